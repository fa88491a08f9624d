#include <krplatform/coerce/number_reader.h>

#include <krplatform/coerce/decimal_scaling.h>
#include <krplatform/text/casing.h>

namespace kr::detail
{

namespace
{

// An exponent past this is as good as any larger one, whatever the number of digits.
constexpr LONGLONG s_exponentLimit = LONGLONG{1} << 40;

/// The blanks that part digits: the plain one, the unbreakable one, the narrow unbreakable one.
bool IsGroupBlank(WCHAR unit) { return unit == OLESTR(' ') || unit == 0xA0 || unit == 0x202F; }

/// Reads one text once, from the front.
class NumberReader
{
public:
    NumberReader(TextView text, Marks const & marks, TextView symbol, ParsedNumber & number)
        : m_position(text.data()),
          m_end(text.data() + text.size()),
          m_marks(marks),
          m_isGroupBlank(IsGroupBlank(marks.group)),
          m_symbol(symbol),
          m_number(number)
    {
    }

    bool Read()
    {
        m_number.Clear();
        SkipPrefix();
        if (!ReadDigits())
            return false;
        ReadExponent();
        SkipSuffix();
        m_number.isNegative = m_hasMinus || m_hasOpened;
        return m_position == m_end && m_hasOpened == m_hasClosed;
    }

    bool HasSymbol() const { return m_hasSymbol; }

private:
    bool Take(bool & isSeen)
    {
        if (isSeen)
            return false;
        isSeen = true;
        ++m_position;
        return true;
    }

    bool TakeSymbol()
    {
        if (m_hasSymbol || m_symbol.empty() || !TextView(m_position, m_end).starts_with(m_symbol))
            return false;
        m_hasSymbol = true;
        m_position += m_symbol.size();
        return true;
    }

    bool TakeBlank()
    {
        if (!IsSpace(*m_position))
            return false;
        ++m_position;
        return true;
    }

    bool TakePrefix()
    {
        switch (*m_position)
        {
        case OLESTR('-'):
            return Take(m_hasMinus);
        case OLESTR('+'):
            return Take(m_hasPlus);
        case OLESTR('('):
            return Take(m_hasOpened);
        default:
            return TakeBlank() || TakeSymbol();
        }
    }

    bool TakeSuffix()
    {
        bool const isSigned = m_hasMinus || m_hasPlus;
        switch (*m_position)
        {
        case OLESTR('-'):
            return !isSigned && Take(m_hasMinus);
        case OLESTR('+'):
            return !isSigned && Take(m_hasPlus);
        case OLESTR(')'):
            return Take(m_hasClosed);
        default:
            return TakeBlank() || TakeSymbol();
        }
    }

    void SkipPrefix()
    {
        while (m_position != m_end && !IsDigit(*m_position) && TakePrefix())
            continue;
    }

    void SkipSuffix()
    {
        while (m_position != m_end && TakeSuffix())
            continue;
    }

    bool IsGroupMark(WCHAR unit) const
    {
        return (unit == m_marks.group && unit != 0) || (m_isGroupBlank && IsGroupBlank(unit));
    }

    void SkipGroupMarks()
    {
        while (m_position != m_end && IsGroupMark(*m_position))
            ++m_position;
    }

    /// Works on copies: what is stored as `char` could be any member, as far as the compiler knows.
    bool ReadDigits()
    {
        WCHAR const * position = m_position;
        char * const digits = m_number.digits;
        UINT count = 0;
        ULONGLONG leading = 0;
        LONGLONG exponent = 0;
        LONGLONG step = 0; // what a digit takes from the exponent: 1 behind the decimal mark
        bool hasDigits = false;
        bool hasMore = false;
        for (; position != m_end; ++position)
        {
            WCHAR const unit = *position;
            if (IsDigit(unit))
            {
                hasDigits = true;
                unsigned const digit = static_cast<unsigned>(unit - OLESTR('0'));
                exponent -= step;
                if (count < longestScaledDecimal)
                {
                    leading = leading * 10 + digit;
                    if (leading == 0)
                        continue; // zeros in front are no digits
                }
                else if (count == ParsedNumber::capacity)
                {
                    ++exponent;
                    hasMore = hasMore || digit != 0;
                    continue;
                }
                digits[count++] = static_cast<char>('0' + digit);
            }
            else if (unit == m_marks.decimal && step == 0)
                step = 1;
            else if (!hasDigits || !IsGroupMark(unit))
                break;
        }
        m_position = position;
        m_number.count = count;
        m_number.leading = leading;
        m_number.exponent = exponent;
        m_number.hasMore = hasMore;
        return hasDigits;
    }

    /// An `e` without digits is not taken, and nothing else can follow the digits with it.
    void ReadExponent()
    {
        if (m_position == m_end || (*m_position != OLESTR('e') && *m_position != OLESTR('E')))
            return;
        WCHAR const * const start = m_position++;
        SkipGroupMarks();
        bool isNegative = false;
        if (m_position != m_end && (*m_position == OLESTR('-') || *m_position == OLESTR('+')))
            isNegative = *m_position++ == OLESTR('-');
        bool hasDigits = false;
        LONGLONG exponent = 0;
        for (SkipGroupMarks(); m_position != m_end && IsDigit(*m_position); SkipGroupMarks())
        {
            hasDigits = true;
            if (exponent < s_exponentLimit)
                exponent = exponent * 10 + (*m_position - OLESTR('0'));
            ++m_position;
        }
        if (!hasDigits)
            m_position = start;
        m_number.exponent += isNegative ? -exponent : exponent;
    }

    WCHAR const * m_position;
    WCHAR const * m_end;
    Marks m_marks;
    bool m_isGroupBlank;
    TextView m_symbol;
    ParsedNumber & m_number;
    bool m_hasMinus = false;
    bool m_hasPlus = false;
    bool m_hasOpened = false;
    bool m_hasClosed = false;
    bool m_hasSymbol = false;
};

} // namespace

bool ReadNumber(TextView text, Marks marks, TextView symbol, ParsedNumber & number, bool & hasSymbol)
{
    NumberReader reader(text, marks, symbol, number);
    bool const isRead = reader.Read();
    hasSymbol = reader.HasSymbol();
    return isRead;
}

} // namespace kr::detail
