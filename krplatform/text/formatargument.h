// The rules of `CString::Format`, and what it hands to the formatter: each argument together with its kind.
//
// A conversion is %[flags][width][.precision][size]letter; width and precision may be `*`, an argument. By letter:
//   d i u o x X     integers; a size below that of the argument cuts it, and an argument keeps a smaller size of its own,
//                   so that "%lX" of an int has eight digits at most
//   f F e E g G a A double, correctly rounded, exact ties to even; "%a" writes 13 digits unless a precision is given.
//                   What is no number is "inf", "nan", "nan(ind)", "nan(snan)" with its sign
//   s S c C         text and code units; a null text is "(null)", a precision cuts the text and nothing is read behind it
//   p               a pointer of any kind, 16 upper-case digits
//   %               the sign itself, written "%%"
// Flags: - + blank # 0. Deliberate: 0 fills texts with zeros as well, as the platform's runtime does.
// Sizes of integers: hh h l ll I32 I64 I z j t; of texts: h narrow, l and w wide; l and L for doubles mean nothing.
// No locale is looked at. Everything else, "%n" among it, is no format.
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
concept TextObject = requires(Value const & value)
{
    FormatArgument(value.GetString());
};

/// Text of `wchar_t` where that is wider than a code unit: it is to be wrapped in `CString`.
template <class Value>
concept WidePointer = std::is_pointer_v<Value> && WideCharacter<std::remove_cv_t<std::remove_pointer_t<Value>>>;

template <class Value>
concept NumberOrPointer = std::is_scalar_v<Value> && !WidePointer<Value>;

/// What has a form.
template <class Value>
concept Formattable = TextObject<Value> || NumberOrPointer<std::decay_t<Value>>;

template <Formattable Value>
constexpr FormatArgument ToFormatArgument(Value const & value)
{
    if constexpr (TextObject<Value>)
        return FormatArgument(value.GetString());
    else if constexpr (std::is_enum_v<Value>)
        return FormatArgument(static_cast<std::underlying_type_t<Value>>(value));
    else
        return FormatArgument(value);
}

} // namespace kr::detail
