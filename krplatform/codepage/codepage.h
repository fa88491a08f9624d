// Conversion of text between code units and the bytes of a code page.
//
//     char bytes[4];
//     WideCharToMultiByte(1252, 0, OLESTR("\u20AC"), 1, bytes, 4, nullptr, nullptr)    -> 1, the byte 80
//     WideCharToMultiByte(1252, 0, OLESTR("\u0100"), 1, bytes, 4, nullptr, nullptr)    -> 1, the look-alike A
//     WideCharToMultiByte(1252, WC_NO_BEST_FIT_CHARS, OLESTR("\u0100"), 1, bytes, 4, nullptr, &usedDefault)
//                                                                                      -> 1, ? and usedDefault
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/base/types.h>
#include <krplatform/export.h>

constexpr UINT CP_ACP = 0;        ///< the process code page
constexpr UINT CP_THREAD_ACP = 3; ///< the thread's code page, which is that of the process
constexpr UINT CP_UTF8 = 65001;

constexpr DWORD WC_NO_BEST_FIT_CHARS = 0x400; ///< a unit that the bytes do not decode back to is replaced
constexpr DWORD WC_ERR_INVALID_CHARS = 0x80;  ///< 65001 only: a lone surrogate fails
constexpr DWORD MB_PRECOMPOSED = 1;           ///< without effect, and not for 65001
constexpr DWORD MB_ERR_INVALID_CHARS = 8;     ///< bytes without a unit fail

/// The process code page: the code page of the codeset of the user's locale (LC_ALL, LC_CTYPE or LANG), or where the
/// locale's name has none, the ANSI code page of its language. A change of the environment takes effect at once.
KRPLATFORM_API UINT GetACP();

/// Converts `length` units (a negative length: up to and with the zero) to `codePage`: CP_ACP, CP_THREAD_ACP, 65001,
/// the ANSI pages 874, 932, 936, 949, 950, 1250 to 1258 and 1361, and for old files those of DOS (437, 737, 775, 850,
/// 852, 855, 857, 860, 861, 863 to 866, 869), 10000, and those of ISO (28591 to 28599, 28603, 28605).
///
/// Returns the bytes written, or with a `room` of 0 the bytes needed. 0 is a failure, told by `GetLastError`:
/// ERROR_INSUFFICIENT_BUFFER, where the room then holds the characters that fitted; ERROR_INVALID_PARAMETER for no
/// text, a length of 0, no buffer, one buffer for both, an unknown code page, and a result beyond what an `int` counts;
/// ERROR_INVALID_FLAGS for flags other than those above; ERROR_NO_UNICODE_TRANSLATION as said there; and
/// ERROR_NOT_ENOUGH_MEMORY, at the first use of a code page only.
///
/// A unit that the code page lacks becomes a look-alike or, where it has none, the default character: `defaultChar` of
/// one or two bytes, or `?`; then `*usedDefault` is set. In 65001 a lone surrogate becomes U+FFFD and counts as that,
/// and `defaultChar` has no meaning. Deliberate: 65001 takes WC_NO_BEST_FIT_CHARS without effect.
KRPLATFORM_API int WideCharToMultiByte(UINT codePage, DWORD flags, WCHAR const * text, int length, char * bytes,
                                       int room, char const * defaultChar, BOOL * usedDefault);

/// Converts `length` bytes (a negative length: up to and with the zero) to units. Returns the units written, or with a
/// `room` of 0 the units needed; 0 for a failure as above.
///
/// With MB_ERR_INVALID_CHARS bytes without a unit fail with ERROR_NO_UNICODE_TRANSLATION. Without it they become the
/// code page's default unit, which is U+30FB for 932, U+FFFD for 65001 and `?` for the others, or the private unit that
/// stands for them, which is converted back to them. Deliberate: a surrogate pair in 65001 that is the last character,
/// and for which there is room for one unit only, is cut without a failure.
KRPLATFORM_API int MultiByteToWideChar(UINT codePage, DWORD flags, char const * bytes, int length, WCHAR * text,
                                       int room);
