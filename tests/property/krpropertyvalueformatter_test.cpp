#include <krcore/property/krpropertyvalueformatter.h>

#include "tests/property/guarded_failures.h"
#include "tests/support/text.h"

#include <krplatform/datetime/ctime.h>

#include <gtest/gtest.h>

using kr::test::FailEachAllocation;
using kr::test::Narrow;

namespace
{

CString const s_defValue(OLESTR("Kr.DefValue"));
COleDateTime const s_now(2021, 3, 15, 8, 5, 9);
CKrProperty::EPropType const s_dateKinds[] = {CKrProperty::ePropDateTime, CKrProperty::ePropDate,
                                              CKrProperty::ePropTime};

CKrPropertyValueFormatter MakeFormatter()
{
    CKrPropertyValueFormatter formatter;
    formatter.SetCurrentTime(s_now);
    return formatter;
}

CKrProperty Make(CKrProperty::EPropType type) { return CKrProperty(OLESTR("name"), CString(), type, true, true); }

CKrProperty Parsed(CKrProperty::EPropType type, CString const & text)
{
    CKrProperty property = Make(type);
    EXPECT_TRUE(MakeFormatter().ParseDefaultValue(text, property));
    return property;
}

CString Invariant(CKrProperty const & property)
{
    CString text(OLESTR("old"));
    EXPECT_TRUE(CKrPropertyValueFormatter().FormatDefaultValueInvariant(property, text));
    return text;
}

CString Locale(CKrProperty const & property)
{
    CString text(OLESTR("old"));
    EXPECT_TRUE(CKrPropertyValueFormatter().FormatDefaultValueLocale(property, text));
    return text;
}

} // namespace

TEST(CKrPropertyValueFormatter, RemembersKeywordsOnEveryDateKind)
{
    // clang-format off
    struct { WCHAR const * text; WCHAR const * word; WCHAR const * localeText; double date; } const rows[] = {
        { OLESTR(""),               OLESTR("NULL"), OLESTR(""),    0.0        },   // comes back as "NULL"
        { OLESTR("  \t\r\n"),       OLESTR("NULL"), OLESTR(""),    0.0        },
        { OLESTR("NULL"),           OLESTR("NULL"), OLESTR(""),    0.0        },
        { OLESTR(" null "),         OLESTR("NULL"), OLESTR(""),    0.0        },
        { OLESTR("NOW"),            OLESTR("NOW"),  OLESTR("NOW"), s_now.m_dt },
        { OLESTR("\tNow\n"),        OLESTR("NOW"),  OLESTR("NOW"), s_now.m_dt },
        { OLESTR("TODAY"),          OLESTR("NOW"),  OLESTR("NOW"), s_now.m_dt },   // all three remember "NOW"
        { OLESTR("today"),          OLESTR("NOW"),  OLESTR("NOW"), s_now.m_dt },
        { OLESTR("HEUTE"),          OLESTR("NOW"),  OLESTR("NOW"), s_now.m_dt },
        { OLESTR(" heute"),         OLESTR("NOW"),  OLESTR("NOW"), s_now.m_dt },
    };
    // clang-format on
    for (CKrProperty::EPropType const type : s_dateKinds)
    {
        for (auto const & row : rows)
        {
            SCOPED_TRACE(Narrow(row.text) + " on " + std::to_string(type));
            CKrProperty const property = Parsed(type, row.text);
            EXPECT_EQ(property.GetOleDateTime().m_dt, row.date); // the full moment, also on a date or a time
            EXPECT_TRUE(property.GetValue().IsOleDateTime());
            EXPECT_EQ(property.GetAttribute(s_defValue).GetType(), CKrVariant::eString);
            EXPECT_EQ(property.GetAttribute(s_defValue).GetAsString(), row.word);
            EXPECT_EQ(Invariant(property), row.word);
            EXPECT_EQ(Locale(property), row.localeText);
        }
    }
}

TEST(CKrPropertyValueFormatter, ReadsOtherTextOfDateKindsWithoutAWord)
{
    // clang-format off
    struct { CKrProperty::EPropType type; WCHAR const * text; WCHAR const * invariant; } const rows[] = {
        { CKrProperty::ePropDate,     OLESTR(" 2021-03-15 "), OLESTR("2021-03-15") },
        { CKrProperty::ePropTime,     OLESTR("\t08:05:09"),   OLESTR("08:05:09")   },
        { CKrProperty::ePropDateTime, OLESTR("no date"),      OLESTR("")           },   // no failure
        { CKrProperty::ePropDate,     OLESTR("NOW!"),         OLESTR("1899-12-30") },
        { CKrProperty::ePropDate,     OLESTR("NOW NOW"),      OLESTR("1899-12-30") },
        { CKrProperty::ePropDate,     OLESTR("YESTERDAY"),    OLESTR("1899-12-30") },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrProperty const property = Parsed(row.type, row.text);
        EXPECT_FALSE(property.HasAttribute(s_defValue));
        EXPECT_EQ(Invariant(property), row.invariant);
        EXPECT_EQ(Locale(property), property.GetAsLocaleString());
    }
}

TEST(CKrPropertyValueFormatter, ReadsOtherKindsAsTheyRead)
{
    // clang-format off
    struct { CKrProperty::EPropType type; WCHAR const * text; WCHAR const * invariant; } const rows[] = {
        { CKrProperty::ePropString, OLESTR("NOW"),       OLESTR("NOW")     },   // a text like any other
        { CKrProperty::ePropString, OLESTR("null"),      OLESTR("null")    },
        { CKrProperty::ePropString, OLESTR(" Wall "),    OLESTR(" Wall ")  },   // neither trimmed nor changed
        { CKrProperty::ePropString, OLESTR(""),          OLESTR("")        },
        { CKrProperty::ePropInt,    OLESTR(" 12x"),      OLESTR("12")      },
        { CKrProperty::ePropInt,    OLESTR("NOW"),       OLESTR("0")       },
        { CKrProperty::ePropDouble, OLESTR("0,35"),      OLESTR("0.35")    },
        { CKrProperty::ePropBool,   OLESTR("1"),         OLESTR("1")       },
        { CKrProperty::ePropBool,   OLESTR("true"),      OLESTR("0")       },
        { CKrProperty::ePropFile,   OLESTR("c:\\a\\B.txt"), OLESTR("c:\\a\\B.txt") },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text) + " on " + std::to_string(row.type));
        CKrProperty const property = Parsed(row.type, row.text);
        EXPECT_FALSE(property.HasAttribute(s_defValue));
        EXPECT_EQ(Invariant(property), row.invariant);
        EXPECT_EQ(Locale(property), property.GetAsLocaleString());
    }
}

TEST(CKrPropertyValueFormatter, ReadsAndWritesColoursInTheirTextForms)
{
    for (WCHAR const * const text : {OLESTR("#FF8000"), OLESTR("  #FF8000\t"), OLESTR("7"), OLESTR(" 7 "), OLESTR(""),
                                     OLESTR("NOW"), OLESTR("wall")})
    {
        SCOPED_TRACE(Narrow(text));
        CKrColor expected;
        expected.Parse(CString(text).Trim());
        CKrProperty const property = Parsed(CKrProperty::ePropColor, text);
        EXPECT_TRUE(property.GetValue().IsColor());
        EXPECT_TRUE(property.GetValue() == CKrVariant(expected));
        EXPECT_FALSE(property.HasAttribute(s_defValue));
        EXPECT_EQ(Invariant(property), property.GetColor().Format(false));
        EXPECT_EQ(Locale(property), Invariant(property)); // the same in both
    }
    EXPECT_TRUE(Parsed(CKrProperty::ePropColor, OLESTR("wall")).GetColor() == CKrColor()); // no colour: the default
    EXPECT_EQ(Parsed(CKrProperty::ePropColor, OLESTR(" #FF8000 ")).GetColor().GetRed(), 255);
    EXPECT_EQ(Parsed(CKrProperty::ePropColor, OLESTR(" 7 ")).GetColor().GetColorIndex(), 7);
}

TEST(CKrPropertyValueFormatter, ForgetsTheWordWithEachReading)
{
    CKrPropertyValueFormatter const formatter = MakeFormatter();
    CKrProperty property = Parsed(CKrProperty::ePropDate, OLESTR("NOW"));
    formatter.ParseDefaultValue(OLESTR("2020-02-29"), property);
    EXPECT_FALSE(property.HasAttribute(s_defValue));
    EXPECT_EQ(Invariant(property), OLESTR("2020-02-29"));

    for (CKrProperty::EPropType const type :
         {CKrProperty::ePropColor, CKrProperty::ePropString, CKrProperty::ePropNone})
    {
        CKrProperty other = Make(type);
        other.SetAttribute(s_defValue, CKrVariant(OLESTR("NOW")));
        EXPECT_TRUE(formatter.ParseDefaultValue(OLESTR("NOW"), other));
        EXPECT_FALSE(other.HasAttribute(s_defValue)); // whatever the kind
    }
}

TEST(CKrPropertyValueFormatter, KeepsTheWordWhenTheValueIsSetPastIt)
{
    CKrProperty property = Parsed(CKrProperty::ePropDate, OLESTR("NOW"));
    property.SetDateTime(COleDateTime(2020, 2, 29, 0, 0, 0));
    EXPECT_EQ(Invariant(property), OLESTR("NOW"));
    EXPECT_EQ(Locale(property), OLESTR("NOW"));
    EXPECT_EQ(property.GetAsInvariantString(), OLESTR("2020-02-29"));
}

TEST(CKrPropertyValueFormatter, FollowsTheAttributeOnlyAsATextOfADateKind)
{
    // clang-format off
    struct { char const * what; CKrProperty::EPropType type; CKrVariant word; WCHAR const * invariant; WCHAR const * locale; } const rows[] = {
        { "now",        CKrProperty::ePropDateTime, CKrVariant(OLESTR("now")),  OLESTR("NOW"),  OLESTR("NOW") },   // any case
        { "Null",       CKrProperty::ePropDateTime, CKrVariant(OLESTR("Null")), OLESTR("NULL"), OLESTR("")    },
        { "other text", CKrProperty::ePropDateTime, CKrVariant(OLESTR("TODAY")), OLESTR(""),    OLESTR("")    },
        { "a number",   CKrProperty::ePropDateTime, CKrVariant(5),              OLESTR(""),     OLESTR("")    },
        { "on text",    CKrProperty::ePropString,   CKrVariant(OLESTR("NOW")),  OLESTR(""),     OLESTR("")    },
        { "on a number", CKrProperty::ePropInt,     CKrVariant(OLESTR("NOW")),  OLESTR("0"),    OLESTR("0")   },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrProperty property = Make(row.type);
        property.SetAttribute(s_defValue, row.word);
        EXPECT_EQ(Invariant(property), row.invariant);
        EXPECT_EQ(Locale(property), row.locale);
    }
}

TEST(CKrPropertyValueFormatter, StandsAtTheTimeOfItsMaking)
{
    COleDateTime const before = COleDateTime(CTime::GetCurrentTime());
    CKrPropertyValueFormatter const formatter;
    COleDateTime const after = COleDateTime(CTime::GetCurrentTime());
    CKrProperty property = Make(CKrProperty::ePropDateTime);
    formatter.ParseDefaultValue(OLESTR("NOW"), property);
    EXPECT_TRUE(before <= property.GetOleDateTime());
    EXPECT_TRUE(property.GetOleDateTime() <= after);
}

TEST(CKrPropertyValueFormatter, TakesAnotherTimeForWhatIsReadLater)
{
    CKrPropertyValueFormatter formatter = MakeFormatter();
    CKrProperty earlier = Make(CKrProperty::ePropDateTime);
    formatter.ParseDefaultValue(OLESTR("NOW"), earlier);
    COleDateTime const other(2030, 1, 1, 0, 0, 1);
    formatter.SetCurrentTime(other);
    CKrPropertyValueFormatter assigned;
    assigned = formatter;
    for (CKrPropertyValueFormatter const * const source : {&formatter, &assigned})
    {
        CKrProperty later = Make(CKrProperty::ePropDateTime);
        source->ParseDefaultValue(OLESTR("NOW"), later);
        EXPECT_TRUE(later.GetOleDateTime() == other);
    }
    EXPECT_TRUE(earlier.GetOleDateTime() == s_now);
}

TEST(CKrPropertyValueFormatter, TouchesNoModifiedFlag)
{
    EXPECT_FALSE(Parsed(CKrProperty::ePropDate, OLESTR("NOW")).IsModified());
    EXPECT_FALSE(Parsed(CKrProperty::ePropString, OLESTR("a")).IsModified());
}

TEST(CKrPropertyValueFormatter, ReadsUnderAGuard)
{
    kr::test::BuildTablesOfFirstUse();
    CKrPropertyValueFormatter const formatter = MakeFormatter();
    for (WCHAR const * const given : {OLESTR("a text that is kept"), OLESTR(" now ")})
    {
        CString const text = given;
        for (CKrProperty::EPropType const type : {CKrProperty::ePropString, CKrProperty::ePropDate})
        {
            std::size_t const failures = FailEachAllocation(
                OLESTR("krpropertyutils(410): "), [type] { return Make(type); },
                [&](CKrProperty & property) { EXPECT_TRUE(formatter.ParseDefaultValue(text, property)); });
            EXPECT_GT(failures, 0u);
        }
    }
}

TEST(CKrPropertyValueFormatter, WritesUnderAGuard)
{
    CKrPropertyValueFormatter const formatter;
    for (WCHAR const * const text : {OLESTR("NOW"), OLESTR("7")})
    {
        for (CKrProperty::EPropType const type : {CKrProperty::ePropInt, CKrProperty::ePropColor})
        {
            std::size_t const failures = FailEachAllocation(
                OLESTR("krpropertyutils(448): "), [type, text] { return Parsed(type, text); },
                [&formatter](CKrProperty & property)
                {
                    CString result;
                    EXPECT_TRUE(formatter.FormatDefaultValueInvariant(property, result));
                    EXPECT_TRUE(formatter.FormatDefaultValueLocale(property, result));
                });
            EXPECT_GT(failures, 0u);
        }
    }
}
