// An error object that tells a description.
#pragma once

#include <krplatform/automation/unknown.h>
#include <krplatform/text/bstr.h>

namespace kr::test
{

/// Lives on the stack; references are counted and nothing is freed.
class SpokenFailure final : public IErrorInfo
{
public:
    explicit SpokenFailure(WCHAR const * description) : m_description(description) {}

    HRESULT QueryInterface(REFIID, void **) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return ++m_references; }
    ULONG Release() override { return --m_references; }
    HRESULT GetGUID(GUID *) override { return E_NOTIMPL; }
    HRESULT GetSource(BSTR *) override { return E_NOTIMPL; }
    HRESULT GetDescription(BSTR * description) override
    {
        *description = SysAllocString(m_description);
        return S_OK;
    }
    HRESULT GetHelpFile(BSTR *) override { return E_NOTIMPL; }
    HRESULT GetHelpContext(DWORD *) override { return E_NOTIMPL; }

    ULONG References() const { return m_references; }

private:
    WCHAR const * m_description;
    ULONG m_references = 0;
};

} // namespace kr::test
