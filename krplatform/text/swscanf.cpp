#include <krplatform/text/casing.h>
#include <krplatform/text/numbers.h>
#include <krplatform/text/numberscan.h>
#include <krplatform/text/scanspec.h>
#include <krplatform/text/textunits.h>

#include <cmath>
#include <cstdarg>

namespace kr::detail
{

namespace
{

float NearestFloat(double value)
{
    double const largest = std::numeric_limits<float>::max();
    return std::fabs(value) > largest ? std::copysign(HUGE_VALF, value < 0 ? -1.0f : 1.0f) : static_cast<float>(value);
}

template <class Value>
void StoreValue(void * target, Value value)
{
    std::memcpy(target, &value, sizeof value); // of any type that has this size
}

void StoreInteger(void * target, std::size_t bytes, std::uint64_t value)
{
    switch (bytes)
    {
    case 1:
        return StoreValue(target, static_cast<std::uint8_t>(value));
    case 2:
        return StoreValue(target, static_cast<std::uint16_t>(value));
    case 4:
        return StoreValue(target, static_cast<std::uint32_t>(value));
    default:
        return StoreValue(target, value);
    }
}

class Scanner
{
public:
    Scanner(WCHAR const * text, va_list arguments) : m_begin(text), m_at(text) { va_copy(m_arguments, arguments); }
    Scanner(Scanner const &) = delete;
    Scanner & operator=(Scanner const &) = delete;
    ~Scanner() { va_end(m_arguments); }

    int Scan(WCHAR const * format)
    {
        while (*format != 0 && ScanNext(format)) {}
        return m_hasEnded && !m_hasRead ? -1 : m_stored;
    }

private:
    bool ScanNext(WCHAR const *& format)
    {
        if (IsSpace(*format))
        {
            ++format;
            m_at += CountSpaces(m_at);
            return true;
        }
        if (*format != '%')
            return ScanLiteral(*format++);
        ++format;
        ScanSpec const spec = ReadScanSpec(format);
        if (spec.letter != 'c' && spec.letter != 'C' && spec.letter != '[' && spec.letter != 'n')
            m_at += CountSpaces(m_at);
        if (spec.letter == '%')
            return ScanLiteral('%');
        return ScanValue(spec);
    }

    bool ScanLiteral(WCHAR unit)
    {
        if (*m_at == unit)
        {
            ++m_at;
            return true;
        }
        m_hasEnded = *m_at == 0;
        return false;
    }

    bool ScanValue(ScanSpec const & spec)
    {
        if (spec.letter == 'n')
            return StorePosition(spec);
        m_hasEnded = *m_at == 0;
        if (m_hasEnded)
            return false;
        switch (spec.letter)
        {
        case 'd':
            return ScanInteger(spec, 10, true);
        case 'i':
            return ScanInteger(spec, 0, true);
        case 'u':
            return ScanInteger(spec, 10, false);
        case 'o':
            return ScanInteger(spec, 8, false);
        case 'x':
        case 'X':
            return ScanInteger(spec, 16, false);
        case 'e':
        case 'E':
        case 'f':
        case 'F':
        case 'g':
        case 'G':
        case 'a':
        case 'A':
            return ScanReal(spec);
        case 's':
        case 'S':
            return ScanRun(spec, [](WCHAR unit) { return !IsSpace(unit); });
        case '[':
            return ScanRun(spec, [&spec](WCHAR unit) { return IsInSet(spec.set, unit); });
        case 'c':
        case 'C':
            return ScanUnits(spec);
        default:
            return false;
        }
    }

    static std::size_t LimitOf(ScanSpec const & spec) { return spec.width == 0 ? noLimit : spec.width; }

    void * NextTarget() { return va_arg(m_arguments, void *); }

    /// Goes on behind what was read; false where it is not to be stored.
    bool Take(ScanSpec const & spec, std::size_t length)
    {
        m_at += length;
        m_hasRead = true;
        m_stored += !spec.isSkipped;
        return !spec.isSkipped;
    }

    bool ScanInteger(ScanSpec const & spec, unsigned base, bool isSigned)
    {
        std::size_t const bytes = spec.size.integerBytes;
        ScannedInteger const number = detail::ScanInteger(m_at, LimitOf(spec), base);
        if (bytes == 0 || number.length == 0)
            return false;
        if (Take(spec, number.length))
            StoreInteger(NextTarget(), bytes,
                         isSigned ? static_cast<std::uint64_t>(number.GetSigned(bytes)) : number.GetUnsigned(bytes));
        return true;
    }

    bool ScanReal(ScanSpec const & spec)
    {
        ScannedReal const number = detail::ScanReal(m_at, LimitOf(spec));
        if (!spec.size.isForReals || number.length == 0)
            return false;
        if (Take(spec, number.length))
        {
            if (spec.size.name == "L")
                StoreValue(NextTarget(), static_cast<long double>(number.value));
            else if (spec.size.name == "l")
                StoreValue(NextTarget(), number.value);
            else
                StoreValue(NextTarget(), NearestFloat(number.value));
        }
        return true;
    }

    template <class Predicate>
    bool ScanRun(ScanSpec const & spec, Predicate belongs)
    {
        std::size_t length = 0;
        while (length < LimitOf(spec) && m_at[length] != 0 && belongs(m_at[length]))
            ++length;
        return length != 0 && StoreText(spec, length, true);
    }

    bool ScanUnits(ScanSpec const & spec)
    {
        std::size_t const count = std::max<std::size_t>(spec.width, 1);
        std::size_t length = 0;
        while (length < count && m_at[length] != 0)
            ++length;
        m_hasEnded = length < count;
        return !m_hasEnded && StoreText(spec, count, false);
    }

    bool StoreText(ScanSpec const & spec, std::size_t length, bool isTerminated)
    {
        if (spec.size.text == TextKind::None)
            return false;
        TextView const text(m_at, length);
        if (!Take(spec, length))
            return true;
        bool const isOther = spec.letter == 'S' || spec.letter == 'C';
        if (spec.size.text == TextKind::Narrow || (spec.size.text == TextKind::Own && isOther))
        {
            char * const target = static_cast<char *>(NextTarget());
            std::size_t const bytes = ConvertedLength(text);
            Convert(text, target, bytes);
            if (isTerminated)
                target[bytes] = 0;
        }
        else
        {
            WCHAR * const target = static_cast<WCHAR *>(NextTarget());
            CopyUnits(target, text.data(), length);
            if (isTerminated)
                target[length] = 0;
        }
        return true;
    }

    bool StorePosition(ScanSpec const & spec)
    {
        if (spec.size.integerBytes == 0)
            return false;
        if (!spec.isSkipped)
            StoreInteger(NextTarget(), spec.size.integerBytes, static_cast<std::uint64_t>(m_at - m_begin));
        return true;
    }

    WCHAR const * m_begin;
    WCHAR const * m_at;
    va_list m_arguments;
    int m_stored = 0;
    bool m_hasRead = false;
    bool m_hasEnded = false; ///< the text was at its end where more was asked for
};

} // namespace

} // namespace kr::detail

int swscanf(WCHAR const * text, WCHAR const * format, ...)
{
    if (!text || !format)
        return -1;
    va_list arguments;
    va_start(arguments, format);
    int const stored = kr::detail::Scanner(text, arguments).Scan(format);
    va_end(arguments);
    return stored;
}
