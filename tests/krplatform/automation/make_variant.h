// Variants for tests, made by hand.
#pragma once

#include <krplatform/automation/safearray.h>
#include <krplatform/automation/variant.h>
#include <krplatform/text/bstr.h>

#include <string_view>

namespace kr::test
{

/// A value whose eight value bytes are `bits`.
inline VARIANT MakeBits(int tag, ULONGLONG bits)
{
    VARIANT value{};
    value.vt = static_cast<VARTYPE>(tag);
    value.ullVal = bits;
    return value;
}

inline VARIANT MakeR8(double number)
{
    VARIANT value = MakeBits(VT_R8, 0);
    value.dblVal = number;
    return value;
}

/// A new text, zeros inside included.
inline BSTR MakeText(std::basic_string_view<WCHAR> text)
{
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

inline VARIANT MakeTextVariant(std::basic_string_view<WCHAR> text)
{
    VARIANT value = MakeBits(VT_BSTR, 0);
    value.bstrVal = MakeText(text);
    return value;
}

/// Takes over the array.
inline VARIANT MakeArrayVariant(SAFEARRAY * array)
{
    VARTYPE element = VT_EMPTY;
    SafeArrayGetVartype(array, &element);
    VARIANT value = MakeBits(VT_ARRAY | element, 0);
    value.parray = array;
    return value;
}

inline std::basic_string_view<WCHAR> TextOf(BSTR text) { return {text ? text : OLESTR(""), SysStringLen(text)}; }

/// Clears the variant at the end of a block.
class Cleared
{
public:
    explicit Cleared(VARIANT value) : m_value(value) {}
    ~Cleared() { VariantClear(&m_value); }
    Cleared(Cleared const &) = delete;
    Cleared & operator=(Cleared const &) = delete;

    VARIANT * Get() { return &m_value; }
    VARIANT * operator->() { return &m_value; }
    VARIANT const & operator*() const { return m_value; }

private:
    VARIANT m_value;
};

} // namespace kr::test
