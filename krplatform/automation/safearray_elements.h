// The element types of arrays, and what copying, releasing and comparing their elements means.
#pragma once

#include <krplatform/automation/variant.h>

#include <array>
#include <cstddef>

namespace kr::detail
{

struct ElementType
{
    VARTYPE tag;
    USHORT size;     ///< bytes
    USHORT features; ///< what an element owns: a FADF_ flag, or 0
};

// clang-format off
constexpr ElementType elementTypes[] = {
    // tag          size              owns
    { VT_I2,        2,                0             },
    { VT_I4,        4,                0             },
    { VT_R4,        4,                0             },
    { VT_R8,        8,                0             },
    { VT_CY,        8,                0             },
    { VT_DATE,      8,                0             },
    { VT_BSTR,      sizeof(BSTR),     FADF_BSTR     },
    { VT_DISPATCH,  sizeof(void *),   FADF_DISPATCH },
    { VT_ERROR,     4,                0             },
    { VT_BOOL,      2,                0             },
    { VT_VARIANT,   sizeof(VARIANT),  FADF_VARIANT  },
    { VT_UNKNOWN,   sizeof(void *),   FADF_UNKNOWN  },
    { VT_I1,        1,                0             },
    { VT_UI1,       1,                0             },
    { VT_UI2,       2,                0             },
    { VT_UI4,       4,                0             },
    { VT_I8,        8,                0             },
    { VT_UI8,       8,                0             },
    { VT_INT,       4,                0             },
    { VT_UINT,      4,                0             },
};
// clang-format on

constexpr auto elementTypesByTag = []
{
    std::array<ElementType, VT_UINT + 1> byTag{};
    for (ElementType const & type : elementTypes)
        byTag[type.tag] = type;
    return byTag;
}();

/// The element type of a tag, or null for a tag that no array can have.
constexpr ElementType const * FindElementType(int tag) noexcept
{
    auto const index = static_cast<std::size_t>(tag);
    return index < elementTypesByTag.size() && elementTypesByTag[index].size ? &elementTypesByTag[index] : nullptr;
}

/// The element type of an array.
ElementType const & ElementTypeOf(SAFEARRAY const & array) noexcept;

/// Releases what `count` elements own. Their bits stay.
void ReleaseElements(ElementType const & type, void * elements, std::size_t count);

/// Writes deep copies of `count` elements to the unset memory `copies`. After a failure nothing there owns anything.
HRESULT CopyElements(ElementType const & type, void const * elements, void * copies, std::size_t count);

/// Whether `count` elements are equal one by one.
bool AreElementsEqual(ElementType const & type, void const * left, void const * right, std::size_t count) noexcept;

/// The comparison of whole arrays; null is equal to null alone.
bool AreArraysEqual(SAFEARRAY const * left, SAFEARRAY const * right) noexcept;

} // namespace kr::detail
