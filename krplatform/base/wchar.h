// The 16-bit code unit of all text, and how its literals are written.
#pragma once

#include <concepts>
#include <cwchar>
#include <string_view>

/// The code unit of `CString` and `BSTR`: 16 bits wide on every system. Where `wchar_t` has that width it is the unit
/// itself; elsewhere `char16_t` is. This is the only place that asks.
#if WCHAR_MAX > 0xFFFF
using WCHAR = char16_t;
#define KR_OLESTR_TEXT(text) u##text
#else
using WCHAR = wchar_t;
#define KR_OLESTR_TEXT(text) L##text
#endif

/// The automation name of `WCHAR`.
using OLECHAR = WCHAR;

/// A literal of `WCHAR`: `OLESTR("text")`, `OLESTR('c')`.
#define OLESTR(text) KR_OLESTR_TEXT(text)

static_assert(sizeof(WCHAR) == 2);

namespace kr::detail
{

/// `wchar_t` on the systems where it is wider than a code unit; text of it is converted.
template <class T>
concept WideCharacter = std::same_as<T, wchar_t> && !std::same_as<wchar_t, WCHAR>;

using TextView = std::basic_string_view<WCHAR>;

} // namespace kr::detail
