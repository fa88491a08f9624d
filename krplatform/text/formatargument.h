// What `CString::Format` hands to the formatter: each argument together with its kind.
#pragma once

#include <krplatform/base/types.h>

#include <concepts>
#include <cstddef>
#include <type_traits>

namespace kr::detail
{

/// A number, a text or another pointer. The kind is kept, so that an argument that does not fit its conversion is found
/// instead of read as something else.
struct FormatArgument
{
    enum class Kind : unsigned char
    {
        Integer, ///< 4 bytes wide
        LongInteger,
        Real,
        Text,
        OtherPointer
    };

    template <std::integral Integer>
    constexpr FormatArgument(Integer value)
        : kind(sizeof value > 4 ? Kind::LongInteger : Kind::Integer), integer(static_cast<LONGLONG>(value))
    {
    }
    template <std::floating_point Real>
    constexpr FormatArgument(Real value) : kind(Kind::Real), real(static_cast<double>(value))
    {
    }
    constexpr FormatArgument(char const * text) : kind(Kind::Text), unitSize(1), pointer(text) {}
    constexpr FormatArgument(WCHAR const * text) : kind(Kind::Text), unitSize(2), pointer(text) {}
    constexpr FormatArgument(void const * value) : kind(Kind::OtherPointer), pointer(value) {}
    constexpr FormatArgument(std::nullptr_t) : kind(Kind::OtherPointer), pointer(nullptr) {}

    constexpr bool IsInteger() const { return kind == Kind::Integer || kind == Kind::LongInteger; }

    Kind kind;
    unsigned char unitSize = 0; ///< of a text, in bytes
    union
    {
        LONGLONG integer;
        double real;
        void const * pointer;
    };
};

template <class Value>
constexpr FormatArgument ToFormatArgument(Value const & value)
{
    static_assert(!WideCharacter<std::remove_cv_t<std::remove_pointer_t<std::decay_t<Value>>>> ||
                      !std::is_pointer_v<std::decay_t<Value>>,
                  "text of wchar_t is wider than a code unit here: wrap it in CString");
    if constexpr (requires { value.GetString(); })
        return FormatArgument(value.GetString());
    else if constexpr (std::is_enum_v<Value>)
        return FormatArgument(static_cast<std::underlying_type_t<Value>>(value));
    else
        return FormatArgument(value);
}

} // namespace kr::detail
