#include <krplatform/datetime/clock.h>
#include <krplatform/datetime/timezone.h>

#include <krplatform/base/wchar.h>

#include <cstdlib>

namespace
{

using kr::detail::TextView;

// clang-format off
constexpr TextView s_months[] = { OLESTR("January"), OLESTR("February"), OLESTR("March"), OLESTR("April"), OLESTR("May"),
                                  OLESTR("June"), OLESTR("July"), OLESTR("August"), OLESTR("September"),
                                  OLESTR("October"), OLESTR("November"), OLESTR("December") };
constexpr TextView s_days[]   = { OLESTR("Sunday"), OLESTR("Monday"), OLESTR("Tuesday"), OLESTR("Wednesday"),
                                  OLESTR("Thursday"), OLESTR("Friday"), OLESTR("Saturday") };
// clang-format on

constexpr std::size_t shortName = 3;
constexpr int baseYear = 1900;

/// The fields that a conversion reads.
enum Field : unsigned
{
    second = 1,
    minute = 2,
    hour = 4,
    monthDay = 8,
    month = 16,
    year = 32,
    weekDay = 64,
    yearDay = 128
};

struct FieldRange
{
    unsigned field;
    int std::tm::*member;
    int low;
    int high;
};

// clang-format off
constexpr FieldRange s_ranges[] = {
    { second,   &std::tm::tm_sec,      0,   60 },
    { minute,   &std::tm::tm_min,      0,   59 },
    { hour,     &std::tm::tm_hour,     0,   23 },
    { monthDay, &std::tm::tm_mday,     1,   31 },
    { month,    &std::tm::tm_mon,      0,   11 },
    { year,     &std::tm::tm_year, -1900, 8099 },
    { weekDay,  &std::tm::tm_wday,     0,    6 },
    { yearDay,  &std::tm::tm_yday,     0,  365 },
};
// clang-format on

bool AreInRange(unsigned needed, std::tm const & fields)
{
    for (FieldRange const & range : s_ranges)
    {
        int const value = fields.*range.member;
        if ((needed & range.field) && (value < range.low || value > range.high))
            return false;
    }
    return true;
}

struct IsoWeek
{
    int year;
    int week;
};

bool IsLeap(int number) { return number % 4 == 0 && (number % 100 != 0 || number % 400 == 0); }

int DayFromMonday(std::tm const & fields) { return (fields.tm_wday + 6) % 7; }

/// A year has 53 weeks if it begins on a Thursday, or on a Wednesday as a leap year.
int WeeksOfYear(int number, int firstDayFromMonday)
{
    return firstDayFromMonday == 3 || (firstDayFromMonday == 2 && IsLeap(number)) ? 53 : 52;
}

IsoWeek IsoWeekOf(std::tm const & fields)
{
    int const number = fields.tm_year + baseYear;
    int const week = (fields.tm_yday - DayFromMonday(fields) + 10) / 7;
    int const firstDay = (DayFromMonday(fields) + 371 - fields.tm_yday) % 7;
    if (week < 1)
    {
        int const firstDayBefore = (firstDay + (IsLeap(number - 1) ? 5 : 6)) % 7;
        return {number - 1, WeeksOfYear(number - 1, firstDayBefore)};
    }
    if (week > WeeksOfYear(number, firstDay))
        return {number + 1, 1};
    return {number, week};
}

struct NumberConversion
{
    WCHAR letter;
    int digits;
    WCHAR padding;
    unsigned needed;
    int (*value)(std::tm const &);
};

// clang-format off
constexpr NumberConversion s_numbers[] = {
    { OLESTR('C'), 2, OLESTR('0'), year,     [](std::tm const & f) { return (f.tm_year + baseYear) / 100; } },
    { OLESTR('d'), 2, OLESTR('0'), monthDay, [](std::tm const & f) { return f.tm_mday; } },
    { OLESTR('e'), 2, OLESTR(' '), monthDay, [](std::tm const & f) { return f.tm_mday; } },
    { OLESTR('g'), 2, OLESTR('0'), year | weekDay | yearDay, [](std::tm const & f) { return std::abs(IsoWeekOf(f).year) % 100; } },
    { OLESTR('G'), 4, OLESTR('0'), year | weekDay | yearDay, [](std::tm const & f) { return std::abs(IsoWeekOf(f).year); } },
    { OLESTR('H'), 2, OLESTR('0'), hour,     [](std::tm const & f) { return f.tm_hour; } },
    { OLESTR('I'), 2, OLESTR('0'), hour,     [](std::tm const & f) { return (f.tm_hour + 11) % 12 + 1; } },
    { OLESTR('j'), 3, OLESTR('0'), yearDay,  [](std::tm const & f) { return f.tm_yday + 1; } },
    { OLESTR('m'), 2, OLESTR('0'), month,    [](std::tm const & f) { return f.tm_mon + 1; } },
    { OLESTR('M'), 2, OLESTR('0'), minute,   [](std::tm const & f) { return f.tm_min; } },
    { OLESTR('S'), 2, OLESTR('0'), second,   [](std::tm const & f) { return f.tm_sec; } },
    { OLESTR('u'), 1, OLESTR('0'), weekDay,  [](std::tm const & f) { return DayFromMonday(f) + 1; } },
    { OLESTR('U'), 2, OLESTR('0'), weekDay | yearDay, [](std::tm const & f) { return (f.tm_yday + 7 - f.tm_wday) / 7; } },
    { OLESTR('V'), 2, OLESTR('0'), year | weekDay | yearDay, [](std::tm const & f) { return IsoWeekOf(f).week; } },
    { OLESTR('w'), 1, OLESTR('0'), weekDay,  [](std::tm const & f) { return f.tm_wday; } },
    { OLESTR('W'), 2, OLESTR('0'), weekDay | yearDay, [](std::tm const & f) { return (f.tm_yday + 7 - DayFromMonday(f)) / 7; } },
    { OLESTR('y'), 2, OLESTR('0'), year,     [](std::tm const & f) { return (f.tm_year + baseYear) % 100; } },
    { OLESTR('Y'), 4, OLESTR('0'), year,     [](std::tm const & f) { return f.tm_year + baseYear; } },
};
// clang-format on

/// A conversion that stands for a pattern; with `#` for another.
struct PatternConversion
{
    WCHAR letter;
    TextView pattern;
    TextView alternative;
};

// clang-format off
constexpr PatternConversion s_patterns[] = {
    { OLESTR('c'), OLESTR("%a %b %e %H:%M:%S %Y"), OLESTR("%A, %B %d, %Y %H:%M:%S") },
    { OLESTR('D'), OLESTR("%m/%d/%y"),             OLESTR("%#m/%#d/%#y") },
    { OLESTR('F'), OLESTR("%Y-%m-%d"),             OLESTR("%#Y-%#m-%#d") },
    { OLESTR('r'), OLESTR("%I:%M:%S %p"),          OLESTR("%#I:%#M:%#S %p") },
    { OLESTR('R'), OLESTR("%H:%M"),                OLESTR("%#H:%#M") },
    { OLESTR('T'), OLESTR("%H:%M:%S"),             OLESTR("%#H:%#M:%#S") },
    { OLESTR('x'), OLESTR("%m/%d/%y"),             OLESTR("%A, %B %d, %Y") },
    { OLESTR('X'), OLESTR("%H:%M:%S"),             OLESTR("%H:%M:%S") },
};
// clang-format on

/// Writes one text; what has not enough room, or was refused, is no text at all.
class TimeWriter
{
public:
    TimeWriter(WCHAR * buffer, std::size_t size, std::tm const & fields) noexcept
        : m_buffer(buffer), m_size(size), m_fields(fields)
    {
    }

    std::size_t Finish(TextView pattern) noexcept
    {
        bool const isWritten = Write(pattern) && m_length < m_size;
        m_buffer[isWritten ? m_length : 0] = 0;
        return isWritten ? m_length : 0;
    }

private:
    bool Write(TextView pattern) noexcept
    {
        while (!pattern.empty())
        {
            WCHAR const unit = pattern.front();
            pattern.remove_prefix(1);
            if (unit != OLESTR('%'))
            {
                Put(unit);
                continue;
            }
            bool const isAlternative = pattern.starts_with(OLESTR('#'));
            pattern.remove_prefix(isAlternative);
            if (pattern.empty() || !Convert(pattern.front(), isAlternative))
                return false;
            pattern.remove_prefix(1);
        }
        return true;
    }

    bool Convert(WCHAR letter, bool isAlternative) noexcept
    {
        for (NumberConversion const & row : s_numbers)
        {
            if (row.letter == letter)
                return AreInRange(row.needed, m_fields) && PutNumber(row, isAlternative);
        }
        for (PatternConversion const & row : s_patterns)
        {
            if (row.letter == letter)
                return Write(isAlternative ? row.alternative : row.pattern);
        }
        return ConvertWord(letter);
    }

    bool ConvertWord(WCHAR letter) noexcept
    {
        switch (letter)
        {
        case OLESTR('a'):
            return AreInRange(weekDay, m_fields) && Put(s_days[m_fields.tm_wday].substr(0, shortName));
        case OLESTR('A'):
            return AreInRange(weekDay, m_fields) && Put(s_days[m_fields.tm_wday]);
        case OLESTR('b'):
        case OLESTR('h'):
            return AreInRange(month, m_fields) && Put(s_months[m_fields.tm_mon].substr(0, shortName));
        case OLESTR('B'):
            return AreInRange(month, m_fields) && Put(s_months[m_fields.tm_mon]);
        case OLESTR('p'):
            return AreInRange(hour, m_fields) && Put(m_fields.tm_hour < 12 ? OLESTR("AM") : OLESTR("PM"));
        case OLESTR('n'):
            return Put(OLESTR("\n"));
        case OLESTR('t'):
            return Put(OLESTR("\t"));
        case OLESTR('%'):
            return Put(OLESTR("%"));
        case OLESTR('z'):
            return AreInRange(~0u, m_fields) && PutZoneOffset();
        case OLESTR('Z'):
            return PutZoneName();
        default:
            return false;
        }
    }

    bool PutNumber(NumberConversion const & row, bool isAlternative) noexcept
    {
        PutNumber(row.value(m_fields), isAlternative ? 1 : row.digits, row.padding);
        return true;
    }

    void PutNumber(int number, int digits, WCHAR padding) noexcept
    {
        int unit = 1;
        for (int digit = 1; digit < digits || number / unit >= 10; ++digit)
            unit *= 10;
        for (; unit > 1 && number < unit; unit /= 10)
            Put(padding);
        for (; unit > 0; unit /= 10)
            Put(static_cast<WCHAR>(OLESTR('0') + number / unit % 10));
    }

    bool PutZoneOffset() noexcept
    {
        int const offset = kr::detail::ZoneOffset(m_fields);
        Put(offset < 0 ? OLESTR('-') : OLESTR('+'));
        PutNumber(std::abs(offset) / 60 * 100 + std::abs(offset) % 60, 4, OLESTR('0'));
        return true;
    }

    bool PutZoneName() noexcept
    {
        for (char const * byte = kr::detail::ZoneName(m_fields); *byte; ++byte)
            Put(static_cast<WCHAR>(static_cast<unsigned char>(*byte)));
        return true;
    }

    bool Put(TextView text) noexcept
    {
        for (WCHAR const unit : text)
            Put(unit);
        return true;
    }

    void Put(WCHAR unit) noexcept
    {
        if (m_length < m_size)
            m_buffer[m_length] = unit;
        ++m_length;
    }

    WCHAR * m_buffer;
    std::size_t m_size;
    std::size_t m_length = 0; ///< also counts what has no room
    std::tm const & m_fields;
};

} // namespace

std::size_t wcsftime(WCHAR * buffer, std::size_t size, WCHAR const * pattern, std::tm const * fields)
{
    if (!buffer || size == 0)
        return 0;
    buffer[0] = 0;
    return pattern && fields ? TimeWriter(buffer, size, *fields).Finish(pattern) : 0;
}
