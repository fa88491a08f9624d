// Results of platform functions: a negative number is a failure.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

constexpr HRESULT HresultFromCode(std::uint32_t code) { return static_cast<HRESULT>(code); }

} // namespace kr::detail

constexpr bool SUCCEEDED(HRESULT result) { return result >= 0; }
constexpr bool FAILED(HRESULT result) { return result < 0; }

// clang-format off
constexpr HRESULT S_OK               = 0;
constexpr HRESULT S_FALSE            = 1;
constexpr HRESULT E_NOTIMPL          = kr::detail::HresultFromCode(0x80004001);
constexpr HRESULT E_NOINTERFACE      = kr::detail::HresultFromCode(0x80004002);
constexpr HRESULT E_POINTER          = kr::detail::HresultFromCode(0x80004003);
constexpr HRESULT E_FAIL             = kr::detail::HresultFromCode(0x80004005);
constexpr HRESULT E_UNEXPECTED       = kr::detail::HresultFromCode(0x8000FFFF);
constexpr HRESULT E_OUTOFMEMORY      = kr::detail::HresultFromCode(0x8007000E);
constexpr HRESULT E_INVALIDARG       = kr::detail::HresultFromCode(0x80070057);
constexpr HRESULT DISP_E_TYPEMISMATCH  = kr::detail::HresultFromCode(0x80020005);
constexpr HRESULT DISP_E_BADVARTYPE    = kr::detail::HresultFromCode(0x80020008);
constexpr HRESULT DISP_E_OVERFLOW      = kr::detail::HresultFromCode(0x8002000A);
constexpr HRESULT DISP_E_BADINDEX      = kr::detail::HresultFromCode(0x8002000B);
constexpr HRESULT DISP_E_ARRAYISLOCKED = kr::detail::HresultFromCode(0x8002000D);

// Codes of the last error of a thread.
constexpr DWORD ERROR_SUCCESS             = 0;
constexpr DWORD ERROR_FILE_NOT_FOUND      = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND      = 3;
constexpr DWORD ERROR_ACCESS_DENIED       = 5;
constexpr DWORD ERROR_INVALID_HANDLE      = 6;
constexpr DWORD ERROR_NOT_ENOUGH_MEMORY   = 8;
constexpr DWORD ERROR_SHARING_VIOLATION   = 32;
constexpr DWORD ERROR_INVALID_PARAMETER   = 87;
constexpr DWORD ERROR_DISK_FULL           = 112;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
constexpr DWORD ERROR_MOD_NOT_FOUND       = 126;
constexpr DWORD ERROR_PROC_NOT_FOUND      = 127;
constexpr DWORD ERROR_BAD_EXE_FORMAT      = 193;
constexpr DWORD ERROR_INVALID_FLAGS       = 1004;
constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113;
constexpr DWORD ERROR_RESOURCE_NAME_NOT_FOUND = 1814;
// clang-format on
