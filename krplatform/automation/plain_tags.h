// Which variants own nothing.
#pragma once

#include <krplatform/automation/variant.h>

#include <cstdint>

namespace kr::detail
{

/// Whether the bits of a value with this tag are the whole value, so that it is copied and cleared without a call.
/// A VT_BLOB and a VT_VARIANT that stand alone are carried: what their bits point at belongs to somebody else.
constexpr bool IsPlainTag(VARTYPE tag) noexcept
{
    constexpr std::uint32_t plainTags = 1u << VT_EMPTY | 1u << VT_NULL | 1u << VT_I2 | 1u << VT_I4 | 1u << VT_R4 |
                                        1u << VT_R8 | 1u << VT_CY | 1u << VT_DATE | 1u << VT_ERROR | 1u << VT_BOOL |
                                        1u << VT_VARIANT | 1u << VT_I1 | 1u << VT_UI1 | 1u << VT_UI2 | 1u << VT_UI4 |
                                        1u << VT_I8 | 1u << VT_UI8 | 1u << VT_INT | 1u << VT_UINT;
    return tag < 32 ? (plainTags >> tag & 1) != 0 : tag == VT_BLOB;
}

} // namespace kr::detail
