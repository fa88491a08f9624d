// An automation object that counts who holds it.
#pragma once

#include <krplatform/automation/unknown.h>

#include <functional>

namespace kr::test
{

/// Lives on the stack and counts references from 0, so that a test ends with `References()` 0 when every reference that
/// was added is released. It answers for `IUnknown` and `IDispatch`.
class CountedObject final : public IDispatch
{
public:
    CountedObject() = default;
    CountedObject(CountedObject const &) = delete;
    CountedObject & operator=(CountedObject const &) = delete;

    HRESULT QueryInterface(REFIID iid, void ** object) override
    {
        *object = nullptr;
        if (FAILED(queryResult))
            return queryResult;
        if (iid != IID_IUnknown && iid != IID_IDispatch)
            return E_NOINTERFACE;
        *object = static_cast<IDispatch *>(this);
        AddRef();
        return S_OK;
    }
    ULONG AddRef() override
    {
        ++m_added;
        return ++m_references;
    }
    ULONG Release() override
    {
        --m_references;
        if (onRelease)
            onRelease();
        return m_references;
    }

    ULONG References() const { return m_references; }
    /// References that were ever added.
    ULONG Added() const { return m_added; }

    HRESULT queryResult = S_OK;
    std::function<void()> onRelease;

private:
    ULONG m_references = 0;
    ULONG m_added = 0;
};

} // namespace kr::test
