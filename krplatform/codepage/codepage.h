// Conversion of text between code units and the bytes of a code page.
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/base/types.h>
#include <krplatform/export.h>

constexpr UINT CP_ACP = 0;        ///< the process code page
constexpr UINT CP_THREAD_ACP = 3; ///< the thread's code page, which is that of the process
constexpr UINT CP_UTF8 = 65001;

constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400;
constexpr DWORD WC_ERR_INVALID_CHARS = 0x80;
constexpr DWORD MB_PRECOMPOSED = 1;
constexpr DWORD MB_ERR_INVALID_CHARS = 8;

/// The process code page: the codeset of the user's locale, or the ANSI code page of its language.
KRPLATFORM_API UINT GetACP();

/// Converts `length` units (-1: up to and with the zero) to `codePage`: 1250 to 1258, 874, 932, 936, 949, 950, 1361,
/// 65001, CP_ACP, CP_THREAD_ACP. Returns the bytes written, or with a `room` of 0 the bytes needed; 0 for a failure,
/// told by `GetLastError`: ERROR_INSUFFICIENT_BUFFER, ERROR_INVALID_PARAMETER (also for an unknown code page),
/// ERROR_INVALID_FLAGS. A unit without a form becomes a look-alike, or with WC_NO_BEST_FIT_CHARS the default character
/// (`defaultChar`, or the code page's own), and then `*usedDefault` is set. Deliberate: 65001 takes
/// WC_NO_BEST_FIT_CHARS without effect.
KRPLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, WCHAR const * text, int length, char * bytes,
                                       int room, char const * defaultChar, BOOL * usedDefault);

/// Converts `length` bytes (-1: up to and with the zero) to units. Returns the units written, or with a `room` of 0 the
/// units needed; 0 for a failure as above, with MB_ERR_INVALID_CHARS also for bytes without a unit
/// (ERROR_NO_UNICODE_TRANSLATION).
KRPLATFORM_API int MultiByteToWideChar(UINT codePage, DWORD flags, char const * bytes, int length, WCHAR * text,
                                       int room);
