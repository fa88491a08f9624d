#include <krplatform/text/format.h>
#include <krplatform/text/formatnumber.h>

#include <concepts>

namespace kr::detail
{

namespace
{

template <class Char>
class Formatter
{
    using OtherChar = std::conditional_t<std::same_as<Char, char>, WCHAR, char>;

public:
    Formatter(FormatOutput<Char> & output, ArgumentSource & arguments) : m_output(output), m_arguments(arguments) {}

    void Format(Char const * format)
    {
        if (!format)
            AtlThrow(E_INVALIDARG);
        for (;;)
        {
            Char const * const literal = format;
            while (*format != 0 && *format != '%')
                ++format;
            m_output.Append({literal, static_cast<std::size_t>(format - literal)});
            if (*format == 0)
                return;
            if (*++format == '%')
                m_output.AppendUnit(*format++);
            else
                format = FormatOne(format);
        }
    }

private:
    Char const * FormatOne(Char const * format)
    {
        FormatSpecReader<Char> reader(format, m_arguments);
        FormatSpec const spec = reader.Read();
        switch (spec.conversion.kind)
        {
        case ConversionKind::Signed:
        case ConversionKind::Unsigned:
            WriteInteger(spec);
            break;
        case ConversionKind::Real:
            WriteReal(spec);
            break;
        case ConversionKind::Pointer:
            WritePointer(spec);
            break;
        case ConversionKind::Character:
            WriteCharacter(spec);
            break;
        case ConversionKind::Text:
            WriteText(spec);
            break;
        }
        return reader.GetEnd();
    }

    FormatArgument Next(ExpectedArgument expected, bool isAllowed, std::initializer_list<FormatArgument::Kind> kinds)
    {
        if (!isAllowed)
            AtlThrow(E_INVALIDARG);
        FormatArgument const argument = m_arguments.Next(expected);
        if (std::find(kinds.begin(), kinds.end(), argument.kind) == kinds.end())
            AtlThrow(E_INVALIDARG);
        return argument;
    }

    void WriteInteger(FormatSpec const & spec)
    {
        std::size_t const bytes = spec.size.integerBytes;
        FormatArgument const argument =
            Next(bytes > 4 ? ExpectedArgument::LongInteger : ExpectedArgument::Integer, bytes != 0,
                 {FormatArgument::Kind::Integer, FormatArgument::Kind::LongInteger});
        FormattedNumber text;
        FormatInteger(spec, argument, text);
        WriteNumber(spec, text);
    }

    void WriteReal(FormatSpec const & spec)
    {
        FormatArgument const argument =
            Next(spec.size.name == "L" ? ExpectedArgument::LongReal : ExpectedArgument::Real, spec.size.isForReals,
                 {FormatArgument::Kind::Real});
        FormattedNumber text;
        FormatReal(spec, argument.real, text);
        WriteNumber(spec, text);
    }

    void WritePointer(FormatSpec const & spec)
    {
        FormatArgument const argument = Next(ExpectedArgument::Pointer, spec.size.name.empty(),
                                             {FormatArgument::Kind::Text, FormatArgument::Kind::OtherPointer});
        FormattedNumber text;
        FormatPointer(argument.pointer, text);
        WriteNumber(spec, text);
    }

    void WriteCharacter(FormatSpec const & spec)
    {
        bool const isWide = IsWide(spec);
        FormatArgument const argument = Next(ExpectedArgument::Integer, spec.size.text != TextKind::None,
                                             {FormatArgument::Kind::Integer, FormatArgument::Kind::LongInteger});
        if (isWide)
        {
            WCHAR const unit = static_cast<WCHAR>(argument.integer);
            WriteView(spec, std::basic_string_view<WCHAR>(&unit, 1));
        }
        else
        {
            char const unit = static_cast<char>(argument.integer);
            WriteView(spec, std::string_view(&unit, 1));
        }
    }

    void WriteText(FormatSpec const & spec)
    {
        bool const isWide = IsWide(spec);
        FormatArgument const argument =
            Next(isWide ? ExpectedArgument::WideText : ExpectedArgument::NarrowText, spec.size.text != TextKind::None,
                 {FormatArgument::Kind::Text, FormatArgument::Kind::OtherPointer});
        if (!argument.pointer)
            WriteView(spec, std::string_view("(null)", LengthOf(spec, "(null)")));
        else if (argument.unitSize != (isWide ? sizeof(WCHAR) : sizeof(char)))
            AtlThrow(E_INVALIDARG);
        else if (isWide)
        {
            WCHAR const * const text = static_cast<WCHAR const *>(argument.pointer);
            WriteView(spec, std::basic_string_view<WCHAR>(text, LengthOf(spec, text)));
        }
        else
        {
            char const * const text = static_cast<char const *>(argument.pointer);
            WriteView(spec, std::string_view(text, LengthOf(spec, text)));
        }
    }

    static bool IsWide(FormatSpec const & spec)
    {
        if (spec.size.text == TextKind::Own)
            return std::same_as<Char, WCHAR> != spec.conversion.isOtherText;
        return spec.size.text == TextKind::Wide;
    }

    /// Up to the terminator; a precision looks no further than its number of units.
    template <class Unit>
    static std::size_t LengthOf(FormatSpec const & spec, Unit const * text)
    {
        if (spec.precision < 0)
            return std::char_traits<Unit>::length(text);
        Unit const * const end = text + spec.precision;
        return static_cast<std::size_t>(std::find(text, end, Unit()) - text);
    }

    std::size_t FillLength(FormatSpec const & spec, std::size_t length) const
    {
        std::size_t const width = static_cast<std::size_t>(spec.width);
        return width > length ? width - length : 0;
    }

    void WriteView(FormatSpec const & spec, std::basic_string_view<Char> text)
    {
        std::size_t const fill = FillLength(spec, text.size());
        if (!spec.isLeft)
            m_output.Fill(spec.hasZeros ? '0' : ' ', fill); // Deliberate: the runtime fills texts with zeros as well
        m_output.Append(text);
        if (spec.isLeft)
            m_output.Fill(' ', fill);
    }

    void WriteView(FormatSpec const & spec, std::basic_string_view<OtherChar> text)
    {
        FormatOutput<Char> converted;
        if (IsAscii(text))
            CopyAscii(converted.Extend(text.size()), text.data(), text.size());
        else
        {
            std::size_t const length = ConvertedLength(text);
            Convert(text, converted.Extend(length), length);
        }
        WriteView(spec, converted.View());
    }

    void WriteNumber(FormatSpec const & spec, FormattedNumber const & text)
    {
        std::size_t const fill = FillLength(spec, text.GetLength());
        bool const hasZeros = spec.hasZeros && !spec.isLeft && text.canFillWithZeros;
        if (!spec.isLeft && !hasZeros)
            m_output.Fill(' ', fill);
        m_output.AppendAscii(text.sign);
        m_output.AppendAscii(text.baseMark);
        m_output.Fill('0', static_cast<std::size_t>(text.leadingZeros) + (hasZeros ? fill : 0));
        m_output.AppendAscii(text.body);
        m_output.Fill('0', static_cast<std::size_t>(text.trailingZeros));
        m_output.AppendAscii(text.exponent);
        if (spec.isLeft)
            m_output.Fill(' ', fill);
    }

    FormatOutput<Char> & m_output;
    ArgumentSource & m_arguments;
};

} // namespace

void FormatText(FormatOutput<WCHAR> & output, WCHAR const * format, ArgumentSource & arguments)
{
    Formatter<WCHAR>(output, arguments).Format(format);
}

void FormatText(FormatOutput<char> & output, char const * format, ArgumentSource & arguments)
{
    Formatter<char>(output, arguments).Format(format);
}

} // namespace kr::detail
