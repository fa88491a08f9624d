// The plain types of the platform: sized integers, results, identifiers.
#pragma once

#include <krplatform/base/wchar.h>

#include <concepts>
#include <cstdint>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using USHORT = std::uint16_t;
using SHORT = std::int16_t;
using DWORD = std::uint32_t;
using ULONG = std::uint32_t;
using LONG = std::int32_t;
using UINT = unsigned int;
using INT = int;
using BOOL = int;
using LONGLONG = std::int64_t;
using ULONGLONG = std::uint64_t;

using HRESULT = LONG;
using SCODE = LONG;
using LCID = DWORD;
using DISPID = LONG;
using VARTYPE = std::uint16_t;

namespace kr::detail
{

/// `long` on the systems where it is another type than `LONG`; numbers of it are cut to 32 bits where they are stored.
template <class T>
concept OtherLong = std::same_as<T, long> && !std::same_as<long, LONG>;

} // namespace kr::detail

/// 16-bit truth value of automation: `VARIANT_TRUE` has all bits set.
using VARIANT_BOOL = std::int16_t;
constexpr VARIANT_BOOL VARIANT_TRUE = -1;
constexpr VARIANT_BOOL VARIANT_FALSE = 0;

constexpr BOOL TRUE = 1;
constexpr BOOL FALSE = 0;

/// Days since 30 December 1899; the fraction is the time of day, also for negative values.
using DATE = double;

/// Currency: a signed count of ten-thousandths.
union CY
{
    struct
    {
        ULONG Lo;
        LONG Hi;
    } s;
    LONGLONG int64;
};

/// Text owned by whoever allocated it with `SysAllocString`, its length stored in front. Null reads as empty text.
using BSTR = OLECHAR *;

using LPCWSTR = WCHAR const *;
using LPWSTR = WCHAR *;
using LPCSTR = char const *;
using LPCOLESTR = OLECHAR const *;

struct tagVARIANT;
using VARIANT = tagVARIANT;

/// The identifier of an interface.
struct GUID
{
    std::uint32_t Data1;
    std::uint16_t Data2;
    std::uint16_t Data3;
    std::uint8_t Data4[8];

    friend constexpr bool operator==(GUID const &, GUID const &) = default;
};
using IID = GUID;
using REFIID = IID const &;

// Locale identifiers.
constexpr LCID LOCALE_NEUTRAL = 0;
constexpr LCID LOCALE_INVARIANT = 127;
constexpr LCID LOCALE_USER_DEFAULT = 1024;
