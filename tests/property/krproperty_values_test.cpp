#include <krcore/property/krproperty.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using kr::test::ChildResult;
using kr::test::Narrow;
using kr::test::RunTestInChild;
using kr::test::ThrownResult;

namespace
{

CKrProperty Make(CKrProperty::EPropType type)
{
    return CKrProperty(OLESTR("name"), CString(), type, CKrVariant(7), true, true);
}

CKrVariant Read(CKrProperty::EPropType type, WCHAR const * text)
{
    CKrProperty property = Make(type);
    property.SetValueFromString(text);
    EXPECT_EQ(property.GetType(), type);
    return property.GetValue();
}

constexpr double s_day = 44270.0;                                      // 15 March 2021
constexpr double s_time = (8.0 * 3600.0 + 5.0 * 60.0 + 9.0) / 86400.0; // 8:05:09
constexpr double s_halfSecond = 0.5 / 86400.0;

CKrProperty::EPropType const s_dateTypes[] = {CKrProperty::ePropDateTime, CKrProperty::ePropDate,
                                              CKrProperty::ePropTime, static_cast<CKrProperty::EPropType>(0x30C)};

} // namespace

TEST(CKrPropertyValue, IsReplacedWithItsTagWhateverTheType)
{
    CKrProperty property = Make(CKrProperty::ePropString);
    property.SetInt(5);
    EXPECT_TRUE(property.GetValue().IsLong());
    EXPECT_EQ(property.GetValue().vt, VT_I4);
    EXPECT_FALSE(property.IsValid());
    property.SetDouble(2.5);
    EXPECT_TRUE(property.GetValue().IsDouble());
    property.SetBool(true);
    EXPECT_TRUE(property.GetValue().IsBool());
    property.SetColor(CKrColor(5));
    EXPECT_TRUE(property.GetValue().IsColor());
    EXPECT_EQ(property.GetValue().lVal, -5);
    property.SetValue(CKrVariant(short(3)));
    EXPECT_TRUE(property.GetValue().IsShort());
    property.SetFileName(CKrFileName(OLESTR("c:/a"), true));
    EXPECT_TRUE(property.GetValue().IsString());
    EXPECT_EQ(property.GetString(), OLESTR("c:\\a\\"));
    property.SetType(CKrProperty::ePropInt);
    property.SetString(OLESTR("x"));
    EXPECT_TRUE(property.GetValue().IsString());
    EXPECT_EQ(property.GetType(), CKrProperty::ePropInt);
}

TEST(CKrPropertyValue, IsACopy)
{
    CKrProperty const property = Make(CKrProperty::ePropInt);
    CKrVariant value = property.GetValue();
    value.lVal = 9;
    EXPECT_EQ(property.GetInt(), 7);
}

TEST(CKrPropertyValue, IsReadAsAnotherKindWhereItConverts)
{
    CKrProperty property = Make(CKrProperty::ePropString);
    property.SetString(OLESTR("17"));
    EXPECT_EQ(property.GetInt(), 17);
    EXPECT_EQ(property.GetDouble(), 17.0);
    EXPECT_EQ(property.GetAsDouble(), 17.0);
    EXPECT_EQ(property.GetColor(), CKrColor(17u));
    property.SetInt(-7);
    EXPECT_EQ(property.GetColor(), CKrColor(7));
    EXPECT_EQ(property.GetString(), OLESTR("-7"));
    EXPECT_EQ(property.GetDouble(), -7.0);
    property.SetDouble(2.0);
    EXPECT_EQ(property.GetInt(), 2);
    property.SetBool(true);
    EXPECT_TRUE(property.GetBool());
    EXPECT_EQ(property.GetString(), OLESTR("-1")); // the platform's own text
}

TEST(CKrPropertyValue, ReadsAsZeroWhereItDoesNotConvert)
{
    CKrVariant const values[] = {CKrVariant(OLESTR("wall")), CKrVariant(std::vector<double>{1.0}), CKrVariant()};
    for (CKrVariant const & value : values)
    {
        SCOPED_TRACE(value.GetType());
        CKrProperty property = Make(CKrProperty::ePropInt);
        property.SetValue(value);
        EXPECT_FALSE(property.GetBool());
        EXPECT_EQ(property.GetInt(), 0);
        EXPECT_EQ(property.GetDouble(), 0.0);
        EXPECT_EQ(property.GetAsDouble(), 0.0);
        EXPECT_EQ(property.GetColor(), CKrColor(0u));
    }
}

TEST(CKrPropertyValue, WithoutATextRaisesThePlatformsFailureAsStringAndFileName)
{
    CKrProperty property = Make(CKrProperty::ePropFile);
    property.SetValue(CKrVariant(std::vector<double>{1.0}));
    EXPECT_EQ(ThrownResult([&] { (void)property.GetString(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ThrownResult([&] { (void)property.GetFileName(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(property.GetAsString(), OLESTR(""));
    property.SetType(static_cast<CKrProperty::EPropType>(0x302));
    EXPECT_EQ(property.GetFileName().GetFullName(true), OLESTR("")); // not looked at for another type
}

TEST(CKrPropertyValue, IsAFileNameForStringsFilesAndDirectories)
{
    // clang-format off
    struct Row { CKrProperty::EPropType type; WCHAR const * fullName; WCHAR const * baseName; };
    Row const rows[] = {
        { CKrProperty::ePropString,   OLESTR("c:\\a\\b"),   OLESTR("b") },
        { CKrProperty::ePropFile,     OLESTR("c:\\a\\b"),   OLESTR("b") },
        { CKrProperty::ePropDir,      OLESTR("c:\\a\\b\\"), OLESTR("")  },   // the whole is a path
        { CKrProperty::ePropInt,      OLESTR(""),           OLESTR("")  },
        { CKrProperty::ePropNone,     OLESTR(""),           OLESTR("")  },
        { CKrProperty::ePropDateTime, OLESTR(""),           OLESTR("")  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.type);
        CKrProperty property = Make(row.type);
        property.SetString(OLESTR("c:/a/b"));
        EXPECT_EQ(property.GetFileName().GetFullName(true), row.fullName);
        EXPECT_EQ(property.GetFileName().GetBaseName(), row.baseName);
    }
}

TEST(CKrPropertyDates, GiveThePayloadOrWhatItConvertsTo)
{
    CKrProperty property = Make(CKrProperty::ePropDate);
    property.SetDateTime(COleDateTime(s_day));
    EXPECT_EQ(property.GetOleDateTime().m_dt, s_day);
    EXPECT_EQ(property.GetOleDateTime().GetStatus(), COleDateTime::valid);
    property.SetDouble(s_day + 0.5);
    EXPECT_EQ(property.GetOleDateTime().m_dt, s_day + 0.5);
    EXPECT_EQ(property.GetOleDateTime().GetStatus(), COleDateTime::valid);
    property.SetValue(CKrVariant()); // VT_EMPTY converts to the date 0.0
    EXPECT_EQ(property.GetOleDateTime().m_dt, 0.0);
    EXPECT_EQ(property.GetOleDateTime().GetStatus(), COleDateTime::valid);
    property.SetString(OLESTR("wall"));
    EXPECT_EQ(property.GetOleDateTime().GetStatus(), COleDateTime::invalid);
}

TEST(CKrPropertyDates, AreNotStoredUnlessTheTypeIsADate)
{
    for (CKrProperty::EPropType const type : {CKrProperty::ePropString, CKrProperty::ePropInt, CKrProperty::ePropNone,
                                              CKrProperty::ePropDir, CKrProperty::ePropColor})
    {
        SCOPED_TRACE(type);
        CKrProperty property = Make(type);
        property.SetDate(OLESTR("2021-03-15"));
        property.SetTime(OLESTR("8:05:09"));
        property.SetDateTime(OLESTR("2021-03-15"));
        property.SetDateTime(COleDateTime(s_day));
        property.SetDate(CString());
        EXPECT_TRUE(property.GetValue().IsLong());
        EXPECT_EQ(property.GetInt(), 7);
    }
}

TEST(CKrPropertyDates, AreZeroForTextThatIsEmptyOrNone)
{
    for (CKrProperty::EPropType const type : s_dateTypes)
    {
        for (WCHAR const * const text : {OLESTR(""), OLESTR("wall"), OLESTR("99.99.2021")})
        {
            SCOPED_TRACE(testing::Message() << type << " " << Narrow(text));
            for (auto const set : {static_cast<void (CKrProperty::*)(CString const &)>(&CKrProperty::SetDate),
                                   &CKrProperty::SetTime, &CKrProperty::SetDateTime, &CKrProperty::SetValueFromString})
            {
                CKrProperty property = Make(type);
                (property.*set)(text);
                EXPECT_TRUE(property.GetValue().IsOleDateTime());
                EXPECT_EQ(property.GetValue().vt, VT_DATE);
                EXPECT_EQ(property.GetValue().date, 0.0);
            }
        }
    }
}

TEST(CKrPropertyDates, AreStoredAsZeroWithoutAValidStatus)
{
    for (CKrProperty::EPropType const type : s_dateTypes)
    {
        CKrProperty property = Make(type);
        COleDateTime date(s_day + s_time);
        property.SetDateTime(date);
        EXPECT_EQ(property.GetValue().date, s_day + s_time);
        EXPECT_TRUE(property.GetValue().IsOleDateTime());
        for (COleDateTime::DateTimeStatus const status : {COleDateTime::invalid, COleDateTime::null})
        {
            property.SetDateTime(COleDateTime(s_day));
            date.SetStatus(status);
            property.SetDateTime(date);
            EXPECT_EQ(property.GetValue().date, 0.0);
            EXPECT_TRUE(property.GetValue().IsOleDateTime());
        }
    }
}

TEST(CKrPropertyDates, DISABLED_AreReadInTheUsersLocale)
{
    CString const text = OLESTR("15.03.2021 08:05:09"); // no date in English
    CKrProperty property = Make(CKrProperty::ePropDateTime);
    property.SetDate(text);
    EXPECT_EQ(property.GetValue().date, s_day);
    property.SetTime(text);
    EXPECT_NEAR(property.GetValue().date, s_time, s_halfSecond);
    property.SetDateTime(text);
    EXPECT_NEAR(property.GetValue().date, s_day + s_time, s_halfSecond);
    EXPECT_EQ(property.GetDate(), OLESTR("15.03.2021"));
    EXPECT_EQ(property.GetTime(), OLESTR("08:05:09"));
    // By the type: the date alone, the time alone, both; also for a date type without a name.
    EXPECT_EQ(Read(CKrProperty::ePropDate, text).date, s_day);
    EXPECT_NEAR(Read(CKrProperty::ePropTime, text).date, s_time, s_halfSecond);
    EXPECT_NEAR(Read(CKrProperty::ePropDateTime, text).date, s_day + s_time, s_halfSecond);
    EXPECT_NEAR(Read(s_dateTypes[3], text).date, s_day + s_time, s_halfSecond);
}

TEST(CKrPropertyDates, AreReadInTheUsersLocale)
{
    ChildResult const result =
        RunTestInChild("CKrPropertyDates.DISABLED_AreReadInTheUsersLocale", {{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

TEST(CKrPropertyFromString, ReadsBoolsAsNumbers)
{
    // clang-format off
    struct Row { WCHAR const * text; bool value; };
    Row const rows[] = {
        { OLESTR("1"),     true  },
        { OLESTR("-2"),    true  },
        { OLESTR(" 3 x"),  true  },
        { OLESTR("0"),     false },
        { OLESTR("0.9"),   false },
        { OLESTR("true"),  false },   // a word, no number
        { OLESTR(""),      false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrVariant const value = Read(CKrProperty::ePropBool, row.text);
        EXPECT_TRUE(value.IsBool());
        EXPECT_EQ(static_cast<bool>(value), row.value);
    }
}

TEST(CKrPropertyFromString, ReadsIntegersAsFarAsTheyGo)
{
    // clang-format off
    struct Row { WCHAR const * text; int value; };
    Row const rows[] = {
        { OLESTR("42"),           42 },
        { OLESTR("  -7 mm"),      -7 },
        { OLESTR("2.9"),          2  },
        { OLESTR("wall"),         0  },
        { OLESTR(""),             0  },
        { OLESTR("99999999999"),  std::numeric_limits<int>::max() },
        { OLESTR("-99999999999"), std::numeric_limits<int>::min() },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrVariant const value = Read(CKrProperty::ePropInt, row.text);
        EXPECT_TRUE(value.IsLong());
        EXPECT_EQ(value.vt, VT_I4);
        EXPECT_EQ(value.lVal, row.value);
    }
}

TEST(CKrPropertyFromString, ReadsDoublesWithACommaAsAPoint)
{
    // clang-format off
    struct Row { WCHAR const * text; double value; };
    Row const rows[] = {
        { OLESTR("0,35"),    0.35    },
        { OLESTR("0.35"),    0.35    },
        { OLESTR("1,5 mm"),  1.5     },   // what follows is not looked at
        { OLESTR("1,5,2"),   1.5     },
        { OLESTR("1.000,5"), 1.0     },   // a point is never a mark of thousands
        { OLESTR("-2e3"),    -2000.0 },
        { OLESTR("wall"),    0.0     },
        { OLESTR("inf"),     0.0     },
        { OLESTR(""),        0.0     },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CString const text = row.text;
        CKrProperty property = Make(CKrProperty::ePropDouble);
        property.SetValueFromString(text);
        EXPECT_TRUE(property.GetValue().IsDouble());
        EXPECT_EQ(property.GetDouble(), row.value);
        EXPECT_EQ(text, row.text); // the caller's text keeps its commas
    }
}

TEST(CKrPropertyFromString, ReadsNegativeColoursByIndexAndOthersByTheirBytes)
{
    // clang-format off
    struct Row { WCHAR const * text; CKrColor color; LONG stored; };
    Row const rows[] = {
        { OLESTR("-7"),          CKrColor(7),         -7       },
        { OLESTR("-256"),        CKrColor(256),       -256     },   // by layer
        { OLESTR("-257"),        CKrColor::NoColor(), -257     },
        { OLESTR("-65539"),      CKrColor(3),         -3       },   // the low 16 bits
        { OLESTR("0"),           CKrColor(0u),        0        },
        { OLESTR("7"),           CKrColor(7, 0, 0),   7        },
        { OLESTR("16711935"),    CKrColor(255, 0, 255), 16711935 },
        { OLESTR("RGB(1,2,3)"),  CKrColor(0u),        0        },   // the colour's own text is no number
        { OLESTR(""),            CKrColor(0u),        0        },
        { OLESTR("-2147483649"), CKrColor(0u),        0        },   // stops at the limit, of which the low 16 bits are index 0
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrProperty property = Make(CKrProperty::ePropColor);
        property.SetValueFromString(row.text);
        EXPECT_TRUE(property.IsValid());
        EXPECT_EQ(property.GetColor(), row.color);
        EXPECT_EQ(property.GetValue().lVal, row.stored);
    }
}

TEST(CKrPropertyFromString, ReadsTextAndFileNames)
{
    // clang-format off
    struct Row { CKrProperty::EPropType type; WCHAR const * text; WCHAR const * stored; };
    Row const rows[] = {
        { CKrProperty::ePropString, OLESTR(" a/b "),    OLESTR(" a/b ")      },
        { CKrProperty::ePropString, OLESTR(""),         OLESTR("")           },
        { CKrProperty::ePropFile,   OLESTR("C:/a/b.x"), OLESTR("C:\\a\\b.x") },
        { CKrProperty::ePropFile,   OLESTR("C:/a/"),    OLESTR("C:\\a\\")    },
        { CKrProperty::ePropDir,    OLESTR("C:/a/b"),   OLESTR("C:\\a\\b\\") },
        { CKrProperty::ePropDir,    OLESTR(""),         OLESTR("")           },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrVariant const value = Read(row.type, row.text);
        EXPECT_TRUE(value.IsString());
        EXPECT_EQ(value.GetAsString(), row.stored);
    }
}

TEST(CKrPropertyFromString, IgnoresTextForTypesWithoutATextForm)
{
    for (int const type : {-1, 0, 3, 77, 0x108, 0x302})
    {
        SCOPED_TRACE(type);
        CKrVariant const value = Read(static_cast<CKrProperty::EPropType>(type), OLESTR("5"));
        EXPECT_TRUE(value.IsLong());
        EXPECT_EQ(value.lVal, 7);
    }
}
