// Dates to text and back, row by row as the vector files have it.
#include <krplatform/automation/vartext.h>
#include <krplatform/coerce/calendar.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/text/bstr.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/text.h"
#include "tests/support/vectors.h"
#include "tests/vectors/known_differences.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdio>

namespace kr::test
{

namespace
{

/// The date of a field `value:bits`, or `Y:MM-DD hh:mm:ss` in the running year.
double DateOfField(VectorRow const & row, std::string_view column)
{
    std::string const & field = row[column];
    if (!field.starts_with("Y:"))
        return row.GetDouble(column);
    detail::CalendarFields fields = {};
    EXPECT_EQ(std::sscanf(field.c_str(), "Y:%d-%d %d:%d:%d", &fields.month, &fields.day, &fields.hour, &fields.minute,
                          &fields.second),
              5);
    return detail::DateOf(detail::DayNumber(detail::RunningYear(), fields.month, fields.day), fields.hour,
                          fields.minute, fields.second);
}

} // namespace

TEST(DateVectors, DatesAreWrittenAsByThePlatform)
{
    VectorFile const file("bstr_from_date");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("bstr_from_date", row))
            continue;
        SCOPED_TRACE(row.ToString());
        BSTR text = nullptr;
        LCID const locale = static_cast<LCID>(row.GetInteger("lcid"));
        ULONG const flags = static_cast<ULONG>(row.GetInteger("flags"));
        EXPECT_EQ(VarBstrFromDate(row.GetDouble("bits"), locale, flags, &text), row.GetHresult());
        EXPECT_EQ(text == nullptr, !row.GetText("text").has_value());
        EXPECT_EQ(Narrow(TextOf(text)), Narrow(row.GetText("text").value_or(detail::Text())));
        SysFreeString(text);
    }
}

TEST(DateVectors, TextIsReadAsByThePlatform)
{
    VectorFile const file("date_from_str");
    for (VectorRow const & row : file.GetRows())
    {
        if (!IsBinding("date_from_str", row))
            continue;
        SCOPED_TRACE(row.ToString());
        constexpr double untouched = 0.123;
        double date = untouched;
        LCID const locale = static_cast<LCID>(row.GetInteger("lcid"));
        ULONG const flags = static_cast<ULONG>(row.GetInteger("flags"));
        EXPECT_EQ(VarDateFromStr(row.GetText("text")->c_str(), locale, flags, &date), row.GetHresult());
        double const expected = row["date"] == "-" ? untouched : DateOfField(row, "date");
        EXPECT_EQ(std::bit_cast<std::uint64_t>(date), std::bit_cast<std::uint64_t>(expected));
    }
}

} // namespace kr::test
