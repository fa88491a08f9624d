#include <krcore/datetime/krcheckeddate.h>

#include <limits>

namespace kr::detail
{

namespace
{

bool IsField(int number) { return number >= 0 && number <= std::numeric_limits<WORD>::max(); }

COleDateTime InvalidDate() noexcept
{
    COleDateTime date;
    date.SetStatus(COleDateTime::invalid);
    return date;
}

} // namespace

COleDateTime CheckedDate(int year, int month, int day, int hour, int minute, int second) noexcept
{
    for (int const number : {year, month, day, hour, minute, second})
    {
        if (!IsField(number))
            return InvalidDate();
    }
    SYSTEMTIME const fields = {
        static_cast<WORD>(year),   static_cast<WORD>(month),  0, static_cast<WORD>(day), static_cast<WORD>(hour),
        static_cast<WORD>(minute), static_cast<WORD>(second), 0};
    DATE date = 0.0;
    SYSTEMTIME back;
    if (!SystemTimeToVariantTime(&fields, &date) || !VariantTimeToSystemTime(date, &back))
        return InvalidDate();
    bool const isSame = back.wYear == fields.wYear && back.wMonth == fields.wMonth && back.wDay == fields.wDay &&
                        back.wHour == fields.wHour && back.wMinute == fields.wMinute && back.wSecond == fields.wSecond;
    return isSame ? COleDateTime(date) : InvalidDate();
}

COleDateTime DateOfTime(CTime time) noexcept
{
    if (time.GetTime() == 0)
        return COleDateTime();
    std::tm fields;
    if (!time.GetLocalTm(&fields))
        return InvalidDate();
    return CheckedDate(fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min,
                       fields.tm_sec);
}

} // namespace kr::detail
