#include <krcore/datetime/krinvariantdate.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace kr::detail
{

namespace
{

constexpr int dateLength = 10;
constexpr int timeLength = 8;
constexpr int bothLength = dateLength + 1 + timeLength;

constexpr WCHAR zero = OLESTR('0');
constexpr WCHAR dateMark = OLESTR('-');
constexpr WCHAR timeMark = OLESTR(':');
constexpr WCHAR blank = OLESTR(' ');

/// The two digits of the numbers below 100.
constexpr auto pairs = []
{
    std::array<std::array<WCHAR, 2>, 100> digits{};
    for (int number = 0; number < 100; ++number)
        digits[static_cast<std::size_t>(number)] = {static_cast<WCHAR>(zero + number / 10),
                                                    static_cast<WCHAR>(zero + number % 10)};
    return digits;
}();

/// Writes two digits, and gives the place behind them.
WCHAR * Put(unsigned int number, WCHAR * place) { return std::copy_n(pairs[number].data(), 2, place); }

WCHAR * PutDate(SYSTEMTIME const & fields, WCHAR * place)
{
    place = Put(fields.wYear % 100u, Put(fields.wYear / 100u, place));
    *place++ = dateMark;
    place = Put(fields.wMonth, place);
    *place++ = dateMark;
    return Put(fields.wDay, place);
}

WCHAR * PutTime(SYSTEMTIME const & fields, WCHAR * place)
{
    place = Put(fields.wHour, place);
    *place++ = timeMark;
    place = Put(fields.wMinute, place);
    *place++ = timeMark;
    return Put(fields.wSecond, place);
}

WCHAR * PutBoth(SYSTEMTIME const & fields, WCHAR * place)
{
    place = PutDate(fields, place);
    *place++ = blank;
    return PutTime(fields, place);
}

template <class PutFields>
CString Write(COleDateTime const & date, PutFields putFields)
{
    SYSTEMTIME fields;
    if (!date.GetAsSystemTime(fields))
        return date.Format(OLESTR("%Y")); // the text for dates outside the calendar
    WCHAR text[bothLength];
    return CString(text, static_cast<int>(putFields(fields, text) - text));
}

/// Takes a text apart from left to right, and remembers whether it was as told.
class FieldReader
{
public:
    explicit FieldReader(WCHAR const * text) noexcept : m_place(text) {}

    int Take(int digits) noexcept
    {
        int number = 0;
        for (; digits > 0; --digits, ++m_place)
        {
            int const digit = *m_place - zero;
            m_isGood = m_isGood && digit >= 0 && digit <= 9;
            number = number * 10 + digit;
        }
        return number;
    }

    void Skip(WCHAR mark) noexcept { m_isGood = *m_place++ == mark && m_isGood; }

    bool IsGood() const noexcept { return m_isGood; }

private:
    WCHAR const * m_place;
    bool m_isGood = true;
};

} // namespace

CString InvariantDate(COleDateTime const & date) { return Write(date, PutDate); }

CString InvariantTime(COleDateTime const & date) { return Write(date, PutTime); }

CString InvariantDateTime(COleDateTime const & date) { return Write(date, PutBoth); }

bool ReadInvariantDate(CString const & text, COleDateTime & date) noexcept
{
    int const length = text.GetLength();
    bool const hasDate = length == dateLength || length == bothLength;
    bool const hasTime = length == timeLength || length == bothLength;
    if (!hasDate && !hasTime)
        return false;
    int year = 1899, month = 12, day = 30, hour = 0, minute = 0, second = 0;
    FieldReader reader(text);
    if (hasDate)
    {
        year = reader.Take(4);
        reader.Skip(dateMark);
        month = reader.Take(2);
        reader.Skip(dateMark);
        day = reader.Take(2);
    }
    if (hasDate && hasTime)
        reader.Skip(blank);
    if (hasTime)
    {
        hour = reader.Take(2);
        reader.Skip(timeMark);
        minute = reader.Take(2);
        reader.Skip(timeMark);
        second = reader.Take(2);
    }
    COleDateTime const read(year, month, day, hour, minute, second);
    bool const isDate = reader.IsGood() && read.GetStatus() == COleDateTime::valid;
    if (isDate)
        date = read;
    return isDate;
}

} // namespace kr::detail
