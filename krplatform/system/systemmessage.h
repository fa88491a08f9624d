// The system's messages for its codes.
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/base/types.h>
#include <krplatform/export.h>
#include <krplatform/system/errorcodes.h>

#include <cstdarg>

constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x0100;
constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x0200;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

/// The message of a system code or HRESULT, ended by "\r\n"; 0x8007xxxx is the code xxxx. With
/// FORMAT_MESSAGE_ALLOCATE_BUFFER `buffer` is the address of a pointer that receives new text, of room for `size` units
/// at least, to be freed with `LocalFree`, or null; otherwise `buffer` has room for `size` units. Returns the units
/// without the zero. The messages are English whatever `language` says, and have no places for arguments.
///
/// 0, with the last error set, for an unknown code (ERROR_MR_MID_NOT_FOUND), too little room
/// (ERROR_INSUFFICIENT_BUFFER), no memory, no buffer, or flags without FORMAT_MESSAGE_FROM_SYSTEM
/// (ERROR_INVALID_PARAMETER).
KRPLATFORM_API DWORD FormatMessageW(DWORD flags, void const * source, DWORD messageId, DWORD language, WCHAR * buffer,
                                    DWORD size, va_list * arguments);
/// Frees text of `FormatMessageW`; null is allowed. Returns null.
KRPLATFORM_API void * LocalFree(void * memory);
