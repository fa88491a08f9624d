// One conversion of a format, as it is written. Internal to the text classes.
#pragma once

#include <krplatform/base/cexception.h>
#include <krplatform/text/formatsource.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace kr::detail
{

/// The text that a size asks for.
enum class TextKind : unsigned char
{
    None, ///< the size is not for text
    Own,
    Narrow,
    Wide
};

/// The size of an argument, as it stands before the conversion, and what it means for each kind of conversion.
struct FormatSize
{
    std::string_view name;
    std::size_t integerBytes; ///< 0: not for integers
    TextKind text;
    bool isForReals;
};

enum class ConversionKind : unsigned char
{
    Signed,
    Unsigned,
    Character,
    Text,
    Real,
    Pointer
};

struct FormatConversion
{
    char letter;
    ConversionKind kind;
    unsigned char base; ///< of integers
    bool isUpperCase;
    bool isOtherText; ///< without a size, text of the units that the format does not have
};

// clang-format off
inline constexpr FormatSize formatSizes[] = {      // the longest name that fits is taken
    { "hh",  1,                      TextKind::None,   false },
    { "h",   sizeof(short),          TextKind::Narrow, false },
    { "ll",  sizeof(long long),      TextKind::None,   false },
    { "l",   sizeof(long),           TextKind::Wide,   true  },
    { "I32", 4,                      TextKind::None,   false },
    { "I64", 8,                      TextKind::None,   false },
    { "I",   sizeof(std::size_t),    TextKind::None,   false },
    { "z",   sizeof(std::size_t),    TextKind::None,   false },
    { "t",   sizeof(std::ptrdiff_t), TextKind::None,   false },
    { "j",   sizeof(std::intmax_t),  TextKind::None,   false },
    { "w",   0,                      TextKind::Wide,   false },
    { "L",   0,                      TextKind::None,   true  },
    { "",    sizeof(int),            TextKind::Own,    true  },
};

inline constexpr FormatConversion formatConversions[] = {
    // letter  kind                      base  upper  other
    { 'd', ConversionKind::Signed,       10, false, false },
    { 'i', ConversionKind::Signed,       10, false, false },
    { 'u', ConversionKind::Unsigned,     10, false, false },
    { 'o', ConversionKind::Unsigned,      8, false, false },
    { 'x', ConversionKind::Unsigned,     16, false, false },
    { 'X', ConversionKind::Unsigned,     16, true,  false },
    { 'c', ConversionKind::Character,     0, false, false },
    { 'C', ConversionKind::Character,     0, false, true  },
    { 's', ConversionKind::Text,          0, false, false },
    { 'S', ConversionKind::Text,          0, false, true  },
    { 'f', ConversionKind::Real,          0, false, false },
    { 'F', ConversionKind::Real,          0, true,  false },
    { 'e', ConversionKind::Real,          0, false, false },
    { 'E', ConversionKind::Real,          0, true,  false },
    { 'g', ConversionKind::Real,          0, false, false },
    { 'G', ConversionKind::Real,          0, true,  false },
    { 'a', ConversionKind::Real,          0, false, false },
    { 'A', ConversionKind::Real,          0, true,  false },
    { 'p', ConversionKind::Pointer,      16, true,  false },
};
// clang-format on

/// The size at the beginning of `format`, which moves behind it.
template <class Char>
FormatSize const & ReadFormatSize(Char const *& format)
{
    FormatSize const * longest = nullptr;
    for (FormatSize const & size : formatSizes)
    {
        // Unit by unit, so that nothing behind the terminator is read.
        bool const fits =
            std::equal(size.name.begin(), size.name.end(), format, [](char left, Char right) { return left == right; });
        if (fits && (!longest || size.name.size() > longest->name.size()))
            longest = &size;
    }
    format += longest->name.size();
    return *longest;
}

struct FormatSpec
{
    bool isLeft = false;
    bool hasPlus = false;
    bool hasBlank = false;
    bool isAlternate = false;
    bool hasZeros = false;
    int width = 0;
    int precision = -1; ///< below 0: none
    FormatSize size{};
    FormatConversion conversion{};
};

/// Reads what stands behind a '%'. What is no conversion raises E_INVALIDARG.
template <class Char>
class FormatSpecReader
{
public:
    FormatSpecReader(Char const * format, ArgumentSource & arguments) : m_format(format), m_arguments(arguments) {}

    FormatSpec Read()
    {
        FormatSpec spec;
        while (ReadFlag(spec))
            ++m_format;
        int const width = ReadCount();
        spec.isLeft = spec.isLeft || width < 0;
        spec.width = std::abs(width);
        if (*m_format == '.')
        {
            ++m_format;
            spec.precision = ReadCount();
        }
        spec.size = ReadFormatSize(m_format);
        spec.conversion = ReadConversion();
        return spec;
    }

    /// Behind what was read.
    Char const * GetEnd() const { return m_format; }

private:
    bool ReadFlag(FormatSpec & spec) const
    {
        switch (*m_format)
        {
        case '-':
            return spec.isLeft = true;
        case '+':
            return spec.hasPlus = true;
        case ' ':
            return spec.hasBlank = true;
        case '#':
            return spec.isAlternate = true;
        case '0':
            return spec.hasZeros = true;
        default:
            return false;
        }
    }

    /// Digits, none of which mean 0, or '*' for an argument, which may be negative.
    int ReadCount()
    {
        constexpr int largest = 1'000'000'000;
        LONGLONG count = 0;
        if (*m_format == '*')
        {
            ++m_format;
            FormatArgument const argument = m_arguments.Next(ExpectedArgument::Integer);
            count = argument.IsInteger() ? argument.integer : largest + 1;
        }
        else
        {
            for (; *m_format >= '0' && *m_format <= '9' && count <= largest; ++m_format)
                count = count * 10 + (*m_format - '0');
        }
        if (count > largest || count < -largest)
            AtlThrow(E_INVALIDARG);
        return static_cast<int>(count);
    }

    FormatConversion ReadConversion()
    {
        for (FormatConversion const & conversion : formatConversions)
        {
            if (*m_format == static_cast<Char>(conversion.letter))
            {
                ++m_format;
                return conversion;
            }
        }
        AtlThrow(E_INVALIDARG);
    }

    Char const * m_format;
    ArgumentSource & m_arguments;
};

} // namespace kr::detail
