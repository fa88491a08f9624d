// Dates to calendar fields and back, row by row as the vector files have it.
#include <krplatform/automation/vartext.h>

#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cstdio>

namespace kr::test
{

namespace
{

constexpr WORD untouched = 0xABCD;

using Fields = std::array<WORD, 9>; ///< in the order of the columns, the day of the year last

constexpr std::array<char const *, 9> s_columns = {"year",   "month",  "day_of_week", "day",        "hour",
                                                   "minute", "second", "millisecond", "day_of_year"};

Fields FieldsOf(SYSTEMTIME const & time, WORD dayOfYear)
{
    return {time.wYear,   time.wMonth,  time.wDayOfWeek,    time.wDay, time.wHour,
            time.wMinute, time.wSecond, time.wMilliseconds, dayOfYear};
}

Fields ExpectedFields(VectorRow const & row, bool succeeds, bool hasDayOfYear)
{
    Fields fields;
    fields.fill(untouched);
    for (std::size_t index = 0; succeeds && index < fields.size() - (hasDayOfYear ? 0 : 1); ++index)
        fields[index] = static_cast<WORD>(row.GetInteger(s_columns[index]));
    return fields;
}

SYSTEMTIME UntouchedTime()
{
    return {untouched, untouched, untouched, untouched, untouched, untouched, untouched, untouched};
}

} // namespace

TEST(CalendarVectors, VarUdateFromDateGivesThePlatformsFields)
{
    VectorFile const file("udate_from_date");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("udate_from_date", row))
            continue;
        SCOPED_TRACE(row.ToString());
        UDATE date = {UntouchedTime(), untouched};
        HRESULT const result = VarUdateFromDate(row.GetDouble("bits"), 0, &date);
        EXPECT_EQ(result, row.GetHresult());
        EXPECT_EQ(FieldsOf(date.st, date.wDayOfYear), ExpectedFields(row, row.GetHresult() == S_OK, true));
    }
}

TEST(CalendarVectors, VariantTimeToSystemTimeGivesThePlatformsFields)
{
    VectorFile const file("variant_time_to_system_time");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("variant_time_to_system_time", row))
            continue;
        SCOPED_TRACE(row.ToString());
        SYSTEMTIME time = UntouchedTime();
        int const result = VariantTimeToSystemTime(row.GetDouble("bits"), &time);
        EXPECT_EQ(result, row.GetInteger("ret"));
        EXPECT_EQ(FieldsOf(time, untouched), ExpectedFields(row, row.GetInteger("ret") == 1, false));
    }
}

TEST(CalendarVectors, SystemTimeToVariantTimeGivesThePlatformsDate)
{
    VectorFile const file("system_time_to_variant_time");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("system_time_to_variant_time", row))
            continue;
        SCOPED_TRACE(row.ToString());
        auto const field = [&](char const * column) { return static_cast<WORD>(row.GetInteger(column)); };
        SYSTEMTIME const time = {field("year"),   field("month"),      0, field("day"), field("hour"), field("minute"),
                                 field("second"), field("millisecond")};
        double date = 0.123;
        EXPECT_EQ(SystemTimeToVariantTime(&time, &date), row.GetInteger("ret"));
        double const expected = row.GetInteger("ret") == 1 ? row.GetDouble("date") : 0.123;
        EXPECT_EQ(std::bit_cast<std::uint64_t>(date), std::bit_cast<std::uint64_t>(expected));
    }
}

namespace
{

/// The fields as `platform_time_facts` writes them.
std::string Show(SYSTEMTIME const & time)
{
    char text[64];
    std::snprintf(text, sizeof text, "%d-%d-%d %d:%d:%d.%d", time.wYear, time.wMonth, time.wDay, time.wHour,
                  time.wMinute, time.wSecond, time.wMilliseconds);
    return text;
}

/// The status and result of a row's question, as the row writes them.
std::pair<std::string, std::string> AnswerDate(std::string const & function, double date)
{
    UDATE fields = {};
    if (function == "VariantTimeToSystemTime")
        return VariantTimeToSystemTime(date, &fields.st) ? std::pair("1", Show(fields.st))
                                                         : std::pair("0", std::string("-"));
    HRESULT const result = VarUdateFromDate(date, 0, &fields);
    char status[16];
    std::snprintf(status, sizeof status, "%08X", static_cast<unsigned>(result));
    if (FAILED(result))
        return {status, "-"};
    return {status, Show(fields.st) + " day_of_week " + std::to_string(fields.st.wDayOfWeek) + " day_of_year " +
                        std::to_string(fields.wDayOfYear)};
}

std::pair<std::string, std::string> AnswerFields(std::string const & argument)
{
    SYSTEMTIME time = {};
    EXPECT_EQ(std::sscanf(argument.c_str(), "%hu-%hu-%hu %hu:%hu:%hu.%hu", &time.wYear, &time.wMonth, &time.wDay,
                          &time.wHour, &time.wMinute, &time.wSecond, &time.wMilliseconds),
              7);
    double date = 0.0;
    if (!SystemTimeToVariantTime(&time, &date))
        return {"0", "-"};
    char text[64];
    std::snprintf(text, sizeof text, "%.17g:%016llX", date, std::bit_cast<unsigned long long>(date));
    return {"1", text};
}

} // namespace

TEST(CalendarVectors, WhatThePlatformsOwnTestsAssertHolds)
{
    VectorFile const file("platform_time_facts");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("platform_time_facts", row))
            continue;
        SCOPED_TRACE(row.ToString());
        auto const [status, result] = row["function"] == "SystemTimeToVariantTime"
                                          ? AnswerFields(row["argument"])
                                          : AnswerDate(row["function"], row.GetDouble("argument"));
        EXPECT_EQ(status, row["status"]);
        EXPECT_EQ(result, row["result"]);
    }
}

} // namespace kr::test
