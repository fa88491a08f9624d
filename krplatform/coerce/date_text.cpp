#include <krplatform/coerce/calendar.h>
#include <krplatform/coerce/date_text.h>

namespace kr::detail
{

namespace
{

TextView MonthName(MonthNames const & names, MonthNames const & namesInDates, int month)
{
    std::size_t const index = static_cast<std::size_t>(month - 1);
    return namesInDates[index].empty() ? names[index] : namesInDates[index];
}

void WriteMonth(int month, int letters, DateFacts const & facts, DateText & text)
{
    if (letters <= 2)
        text.AppendNumber(month, letters);
    else if (letters == 3)
        text.Append(MonthName(facts.shortMonthNames, facts.shortMonthNamesInDates, month));
    else
        text.Append(MonthName(facts.monthNames, facts.monthNamesInDates, month));
}

void WritePiece(PatternPiece const & piece, TextView pattern, CalendarFields const & fields, DateFacts const & facts,
                DateText & text)
{
    int const digits = piece.length;
    switch (piece.letter)
    {
    case OLESTR('d'):
        return text.AppendNumber(fields.day, digits);
    case OLESTR('M'):
        return WriteMonth(fields.month, digits, facts, text);
    case OLESTR('y'):
        return text.AppendNumber(fields.year, 1);
    case OLESTR('h'):
        return text.AppendNumber((fields.hour + 11) % 12 + 1, digits);
    case OLESTR('H'):
        return text.AppendNumber(fields.hour, digits);
    case OLESTR('m'):
        return text.AppendNumber(fields.minute, digits);
    case OLESTR('s'):
        return text.AppendNumber(fields.second, digits);
    case OLESTR('t'):
        return text.Append(fields.hour < 12 ? facts.am : facts.pm);
    default:
        return text.Append(piece.In(pattern));
    }
}

} // namespace

void DateText::AppendNumber(int number, int digits) noexcept
{
    auto const digit = [](int value) { return static_cast<WCHAR>(OLESTR('0') + value); };
    if (number >= 1000)
        Append(digit(number / 1000));
    if (number >= 100)
        Append(digit(number / 100 % 10));
    if (number >= 10 || digits > 1)
        Append(digit(number / 10 % 10));
    Append(digit(number % 10));
}

bool WriteDate(double date, unsigned flags, DateFacts const & facts, DateText & text) noexcept
{
    CalendarFields fields;
    if (!FieldsOfDate(date, fields))
        return false;
    double const day = static_cast<int>(date);
    bool const hasDate = day != 0.0 && !(flags & dateTextTimeOnly);
    bool const hasTime = (date != day || day == 0.0) && !(flags & dateTextDateOnly);
    if (hasDate)
    {
        for (PatternPiece const & piece : facts.datePieces)
            WritePiece(piece, facts.shortDate, fields, facts, text);
    }
    if (hasDate && hasTime)
        text.Append(OLESTR(' '));
    if (hasTime)
    {
        for (PatternPiece const & piece : facts.timePieces)
            WritePiece(piece, facts.longTime, fields, facts, text);
    }
    return true;
}

bool DateToText(double date, unsigned flags, DateFacts const & facts, Text & text)
{
    DateText written;
    if (!WriteDate(date, flags, facts, written))
        return false;
    text.assign(written.View());
    return true;
}

} // namespace kr::detail
