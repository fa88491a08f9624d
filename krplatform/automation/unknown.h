// The interfaces of automation objects.
#pragma once

#include <krplatform/base/hresult.h>

// clang-format off
constexpr GUID IID_IUnknown  = {0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID IID_IDispatch = {0x00020400, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr GUID IID_IErrorInfo = {0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
// clang-format on

/// A counted object with interfaces. `QueryInterface` adds a reference to what it hands out.
struct IUnknown
{
    virtual HRESULT QueryInterface(REFIID iid, void ** object) = 0;
    virtual ULONG AddRef() = 0;
    virtual ULONG Release() = 0;

protected:
    ~IUnknown() = default;
};

struct ITypeInfo;
struct DISPPARAMS;
struct EXCEPINFO;

/// An automation object. This library only counts references, so the four calling operations need no implementation:
/// they answer E_NOTIMPL unless overridden.
struct IDispatch : IUnknown
{
    virtual HRESULT GetTypeInfoCount(UINT *) { return E_NOTIMPL; }
    virtual HRESULT GetTypeInfo(UINT, LCID, ITypeInfo **) { return E_NOTIMPL; }
    virtual HRESULT GetIDsOfNames(REFIID, OLECHAR **, UINT, LCID, DISPID *) { return E_NOTIMPL; }
    virtual HRESULT Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS *, VARIANT *, EXCEPINFO *, UINT *)
    {
        return E_NOTIMPL;
    }

protected:
    ~IDispatch() = default;
};

/// What an automation object tells of a failure. The texts are the caller's to free.
struct IErrorInfo : IUnknown
{
    virtual HRESULT GetGUID(GUID * guid) = 0;
    virtual HRESULT GetSource(BSTR * source) = 0;
    virtual HRESULT GetDescription(BSTR * description) = 0;
    virtual HRESULT GetHelpFile(BSTR * helpFile) = 0;
    virtual HRESULT GetHelpContext(DWORD * helpContext) = 0;

protected:
    ~IErrorInfo() = default;
};

namespace kr::detail
{

/// The identifier of an interface, for `_com_ptr_t`. Clients with interfaces of their own specialise it.
template <class Interface>
inline constexpr GUID interfaceId{};
template <>
inline constexpr GUID interfaceId<IUnknown> = IID_IUnknown;
template <>
inline constexpr GUID interfaceId<IDispatch> = IID_IDispatch;
template <>
inline constexpr GUID interfaceId<IErrorInfo> = IID_IErrorInfo;

} // namespace kr::detail
