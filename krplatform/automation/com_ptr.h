// The counted pointer to an automation interface.
#pragma once

#include <krplatform/automation/unknown.h>
#include <krplatform/export.h>

#include <cstddef>
#include <utility>

/// Throws `_com_error(result)`; see com_error.h.
[[noreturn]] KRPLATFORM_API void _com_issue_error(HRESULT result);

/// Holds one reference of an interface. Copy adds one, destruction releases one. Using a null pointer throws
/// `_com_error` of E_POINTER. Comparison is that of the plain pointers.
///
///     IDispatchPtr pointer(object);            adds a reference
///     IDispatchPtr taken(object, false);       takes over the caller's
///     IUnknownPtr identity;
///     identity.QueryFrom(pointer);             -> S_OK, or E_NOINTERFACE and null
template <class Interface>
class _com_ptr_t
{
public:
    using interface_type = Interface;

    _com_ptr_t() noexcept = default;
    _com_ptr_t(std::nullptr_t) noexcept {}
    /// Adds a reference.
    _com_ptr_t(Interface * pointer) noexcept : m_pointer(pointer) { AddReference(); }
    /// Takes over the caller's reference unless `addReference` is set.
    _com_ptr_t(Interface * pointer, bool addReference) noexcept : m_pointer(pointer)
    {
        if (addReference)
            AddReference();
    }
    _com_ptr_t(_com_ptr_t const & other) noexcept : m_pointer(other.m_pointer) { AddReference(); }
    _com_ptr_t(_com_ptr_t && other) noexcept : m_pointer(std::exchange(other.m_pointer, nullptr)) {}
    ~_com_ptr_t()
    {
        if (m_pointer)
            m_pointer->Release();
    }

    _com_ptr_t & operator=(Interface * pointer) noexcept
    {
        _com_ptr_t(pointer).Swap(*this);
        return *this;
    }
    _com_ptr_t & operator=(std::nullptr_t) noexcept
    {
        _com_ptr_t().Swap(*this);
        return *this;
    }
    _com_ptr_t & operator=(_com_ptr_t const & other) noexcept
    {
        _com_ptr_t(other).Swap(*this);
        return *this;
    }
    _com_ptr_t & operator=(_com_ptr_t && other) noexcept
    {
        _com_ptr_t(std::move(other)).Swap(*this);
        return *this;
    }

    /// Makes this a pointer to the interface of `object`, or null where it has none or is null (E_NOINTERFACE). Any
    /// other failure of the object leaves null and is thrown as `_com_error`.
    HRESULT QueryFrom(IUnknown * object)
    {
        static_assert(kr::detail::interfaceId<Interface> != GUID{},
                      "the interface needs an identifier: specialise kr::detail::interfaceId");
        void * found = nullptr;
        HRESULT const result =
            object ? object->QueryInterface(kr::detail::interfaceId<Interface>, &found) : E_NOINTERFACE;
        Attach(SUCCEEDED(result) ? static_cast<Interface *>(found) : nullptr);
        if (FAILED(result) && result != E_NOINTERFACE)
            _com_issue_error(result);
        return result;
    }

    Interface * GetInterfacePtr() const noexcept { return m_pointer; }
    operator Interface *() const noexcept { return m_pointer; }
    Interface * operator->() const
    {
        if (!m_pointer)
            _com_issue_error(E_POINTER);
        return m_pointer;
    }
    Interface & operator*() const { return *operator->(); }

    /// The address of the emptied pointer, for a function that hands out an interface.
    Interface ** operator&() noexcept
    {
        Release();
        return &m_pointer;
    }

    /// Takes over a reference of the caller.
    void Attach(Interface * pointer) noexcept { _com_ptr_t(pointer, false).Swap(*this); }
    /// Hands the reference to the caller.
    Interface * Detach() noexcept { return std::exchange(m_pointer, nullptr); }
    /// Leaves null. `pointer->Release()` would be the object's own.
    void Release() noexcept { Attach(nullptr); }
    void Swap(_com_ptr_t & other) noexcept { std::swap(m_pointer, other.m_pointer); }

private:
    void AddReference() noexcept
    {
        if (m_pointer)
            m_pointer->AddRef();
    }

    Interface * m_pointer = nullptr;
};

using IUnknownPtr = _com_ptr_t<IUnknown>;
using IDispatchPtr = _com_ptr_t<IDispatch>;
using IErrorInfoPtr = _com_ptr_t<IErrorInfo>;
