#include <krcore/property/krpropertyold.h>

#include <krcore/property/krproperty.h>

#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <ctime>

using kr::test::Narrow;
using kr::test::RunTestInChild;

namespace
{

constexpr double s_day = 44270.0;                                      // 15 March 2021
constexpr double s_time = (8.0 * 3600.0 + 5.0 * 60.0 + 9.0) / 86400.0; // 8:05:09

CKrVariant Float(float number)
{
    VARIANT source;
    VariantInit(&source);
    source.vt = VT_R4;
    source.fltVal = number;
    return CKrVariant(source);
}

CKrPropertyOld With(CKrVariant const & value, CKrPropertyOld::ECtrlType control = CKrAssCtrlOld::eEditCtrl)
{
    CKrPropertyOld property(control, OLESTR("name"), true, true);
    property.SetValue(value);
    return property;
}

void RunInChild(char const * test, std::vector<std::pair<std::string, std::string>> const & environment)
{
    kr::test::ChildResult const result = RunTestInChild(test, environment);
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

} // namespace

TEST(CKrPropertyOldValue, IsReadByItsTagAndNeverConverted)
{
    struct Row
    {
        CKrVariant value;
        bool asBool;
        int asInt;
        double asDouble;    ///< by GetDouble
        double asAnyDouble; ///< by GetAsDouble
        WCHAR const * asString;
    };
    // clang-format off
    Row const rows[] = {
        // value                      bool   int  double  any    text
        { CKrVariant(),               false, -1,  -1.0,   -1.0,  OLESTR("")   },
        { CKrVariant(true),           true,  -1,  -1.0,   -1.0,  OLESTR("")   },
        { CKrVariant(false),          false, -1,  -1.0,   -1.0,  OLESTR("")   },
        { CKrVariant(7),              false, 7,   -1.0,   7.0,   OLESTR("")   },
        { CKrVariant(-7),             false, -7,  -1.0,   -7.0,  OLESTR("")   },
        { CKrVariant(short(3)),       false, -1,  -1.0,   3.0,   OLESTR("")   },
        { CKrVariant(2.5),            false, -1,  2.5,    2.5,   OLESTR("")   },
        { Float(0.5F),                false, -1,  -1.0,   0.5,   OLESTR("")   },
        { CKrVariant(OLESTR("17")),   false, -1,  -1.0,   -1.0,  OLESTR("17") },
        { CKrVariant(COleDateTime(s_day)), false, -1, -1.0, -1.0, OLESTR("")  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.value.GetType());
        CKrPropertyOld const property = With(row.value);
        EXPECT_EQ(property.GetBool(), row.asBool);
        EXPECT_EQ(property.GetInt(), row.asInt);
        EXPECT_EQ(property.GetDouble(), row.asDouble);
        EXPECT_EQ(property.GetAsDouble(), row.asAnyDouble);
        EXPECT_EQ(property.GetString(), row.asString);
        EXPECT_EQ(property.GetAsString(), row.value.GetAsString());
    }
}

TEST(CKrPropertyOldValue, GivesMinusOneWhereTheNewerGenerationConverts)
{
    CKrProperty newer(OLESTR("name"), CString(), CKrProperty::ePropDouble, true, true);
    newer.SetDouble(2.0);
    EXPECT_EQ(newer.GetInt(), 2);
    EXPECT_EQ(With(CKrVariant(2.0)).GetInt(), -1);
}

TEST(CKrPropertyOldValue, IsStoredWithTheTagOfTheSetterWhateverTheType)
{
    CKrPropertyOld property;
    property.SetType(CKrAssCtrlOld::eObjDate);
    property.SetInt(5);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eLong);
    property.SetDouble(2.5);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eDouble);
    property.SetBool(true);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eBool);
    property.SetString(OLESTR("x"));
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eString);
    property.SetFileName(CKrFileName(OLESTR("c:/a"), true));
    EXPECT_EQ(property.GetString(), OLESTR("c:\\a\\"));
    property.SetValue(CKrVariant(short(3)));
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eShort);
    EXPECT_EQ(property.GetType(), CKrAssCtrlOld::eObjDate);
    EXPECT_FALSE(property.IsModified());
}

TEST(CKrPropertyOldColor, IsStoredAsALong)
{
    CKrPropertyOld property;
    property.SetColor(CKrColor(1, 2, 3));
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eLong);
    EXPECT_EQ(property.GetInt(), 0x030201);
    EXPECT_EQ(property.GetColor(), CKrColor(1, 2, 3));
    CKrColor index(5);
    property.SetColor(index);
    EXPECT_EQ(property.GetInt(), static_cast<int>(index.GetColorRef()));
    property.SetInt(-1); // all bits
    EXPECT_EQ(property.GetColor(), CKrColor(255, 255, 255));
    EXPECT_EQ(With(CKrVariant(CKrColor(1, 2, 3))).GetColor(), CKrColor()); // the tag of the newer generation
    EXPECT_EQ(CKrPropertyOld().GetColor(), CKrColor());
}

TEST(CKrPropertyOldFileName, IsReadFromATextByTheControl)
{
    struct Row
    {
        char const * what;
        CKrPropertyOld property;
        CKrFileName name;
    };
    CString const path(OLESTR("c:\\a\\b"));
    // clang-format off
    Row const rows[] = {
        { "file",          With(CKrVariant(path), CKrAssCtrlOld::eFileNameCtrl), CKrFileName(path, false) },
        { "directory",     With(CKrVariant(path), CKrAssCtrlOld::eDirNameCtrl),  CKrFileName(path, true)  },
        { "other control", With(CKrVariant(path), CKrAssCtrlOld::eEditCtrl),     CKrFileName()            },
        { "other tag",     With(CKrVariant(5),    CKrAssCtrlOld::eFileNameCtrl), CKrFileName()            },
        { "other tag",     With(CKrVariant(5),    CKrAssCtrlOld::eDirNameCtrl),  CKrFileName()            },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.property.GetFileName().GetFullName(true), row.name.GetFullName(true));
    }
}

TEST(CKrPropertyOldDate, IsStoredAsADateWhateverTheType)
{
    CKrPropertyOld property;
    property.SetDate(COleDateTime(s_day + s_time));
    EXPECT_EQ(property.GetValue().vt, VT_DATE);
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eOleDateTime);
    EXPECT_EQ(property.GetOleDateTime().m_dt, s_day + s_time);
    for (COleDateTime::DateTimeStatus const status : {COleDateTime::invalid, COleDateTime::null})
    {
        COleDateTime date(s_day);
        date.SetStatus(status);
        property.SetDate(date);
        EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eOleDateTime);
        EXPECT_EQ(property.GetOleDateTime().m_dt, 0.0);
        EXPECT_EQ(property.GetOleDateTime().GetStatus(), COleDateTime::valid);
    }
    property.SetDate(CTime(2021, 3, 15, 8, 5, 9));
    EXPECT_EQ(property.GetOleDateTime(), COleDateTime(2021, 3, 15, 8, 5, 9));
}

TEST(CKrPropertyOldDate, IsDayZeroForAValueOfAnotherTag)
{
    for (CKrVariant const & value : {CKrVariant(), CKrVariant(s_day), CKrVariant(OLESTR("15.3.2021"))})
    {
        CKrPropertyOld const property = With(value);
        EXPECT_EQ(property.GetOleDateTime().m_dt, 0.0);
        EXPECT_EQ(property.GetOleDateTime().GetStatus(), COleDateTime::valid);
        EXPECT_TRUE(property.GetDate().IsEmpty());
        EXPECT_TRUE(property.GetTime().IsEmpty());
    }
}

TEST(CKrPropertyOldDate, DISABLED_IsReadAndWrittenInTheUsersLocale)
{
    struct Row
    {
        WCHAR const * text;
        double date;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("15.03.2021"),          s_day },
        { OLESTR("15. März 2021"),       s_day },
        { OLESTR("15.03.2021 08:05:09"), s_day },  // the date alone
        { OLESTR("no date"),             0.0   },
        { OLESTR(" "),                   0.0   },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrPropertyOld property = With(CKrVariant(9));
        property.SetDate(CString(row.text));
        EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eOleDateTime);
        EXPECT_EQ(property.GetOleDateTime().m_dt, row.date);
    }
    CKrPropertyOld const property = With(CKrVariant(COleDateTime(s_day + s_time)));
    EXPECT_EQ(property.GetDate(), OLESTR("15.03.2021"));
    EXPECT_EQ(property.GetTime(), OLESTR("08:05:09"));
    EXPECT_EQ(property.GetAsString(), OLESTR("15.03.2021 08:05:09")); // no special case for dates
    CKrPropertyOld const dayZero = With(CKrVariant(COleDateTime(0.0)));
    EXPECT_EQ(dayZero.GetDate(), OLESTR("")); // to the platform a time without a date
    EXPECT_EQ(dayZero.GetTime(), OLESTR("00:00:00"));
}

TEST(CKrPropertyOldDate, IsReadAndWrittenInTheUsersLocale)
{
    RunInChild("CKrPropertyOldDate.DISABLED_IsReadAndWrittenInTheUsersLocale", {{"LC_ALL", "de_DE.UTF-8"}});
}

TEST(CKrPropertyOldDate, DISABLED_AnEmptyTextIsTheCurrentLocalTime)
{
    auto const localTime = [](std::time_t seconds) // nine hours before Greenwich
    { return 25569.0 + (static_cast<double>(seconds) + 9.0 * 3600.0) / 86400.0; };
    double const earliest = localTime(std::time(nullptr));
    CKrPropertyOld property;
    property.SetDate(CString());
    double const latest = localTime(std::time(nullptr));
    double const halfASecond = 0.5 / 86400.0;
    EXPECT_EQ(property.GetValue().GetType(), CKrVariant::eOleDateTime);
    EXPECT_GT(property.GetOleDateTime().m_dt, earliest - halfASecond);
    EXPECT_LT(property.GetOleDateTime().m_dt, latest + halfASecond);
}

TEST(CKrPropertyOldDate, AnEmptyTextIsTheCurrentLocalTime)
{
    RunInChild("CKrPropertyOldDate.DISABLED_AnEmptyTextIsTheCurrentLocalTime", {{"TZ", "JST-9"}});
    CKrProperty newer(OLESTR("name"), CString(), CKrProperty::ePropDate, true, true);
    newer.SetDate(CString());
    EXPECT_EQ(newer.GetOleDateTime().m_dt, 0.0);
}

TEST(CKrPropertyOldText, IsReadByTheType)
{
    struct Row
    {
        int type;
        WCHAR const * text;
        CKrVariant::EType tag;
        WCHAR const * asString;
    };
    // clang-format off
    Row const rows[] = {
        { CKrAssCtrlOld::eObjString, OLESTR("1,5"),   CKrVariant::eString, OLESTR("1,5")  },
        { CKrAssCtrlOld::eObjNone,   OLESTR("1"),     CKrVariant::eString, OLESTR("1")    },
        { 5,                         OLESTR("1"),     CKrVariant::eString, OLESTR("1")    },
        { CKrAssCtrlOld::eObjDouble, OLESTR("1,5mm"), CKrVariant::eDouble, OLESTR("1.5")  },
        { CKrAssCtrlOld::eObjDouble, OLESTR("1.25"),  CKrVariant::eDouble, OLESTR("1.25") },
        { CKrAssCtrlOld::eObjDouble, OLESTR("x"),     CKrVariant::eDouble, OLESTR("0")    },
        { CKrAssCtrlOld::eObjInt,    OLESTR(" -7x"),  CKrVariant::eLong,   OLESTR("-7")   },
        { CKrAssCtrlOld::eObjInt,    OLESTR("x"),     CKrVariant::eLong,   OLESTR("0")    },
        { CKrAssCtrlOld::eObjBool,   OLESTR("-2"),    CKrVariant::eBool,   OLESTR("1")    },
        { CKrAssCtrlOld::eObjBool,   OLESTR("0"),     CKrVariant::eBool,   OLESTR("0")    },
        { CKrAssCtrlOld::eObjBool,   OLESTR("true"),  CKrVariant::eBool,   OLESTR("0")    },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrPropertyOld property;
        property.SetType(static_cast<CKrPropertyOld::EObjType>(row.type));
        property.SetValueFromString(row.text);
        EXPECT_EQ(property.GetValue().GetType(), row.tag);
        EXPECT_EQ(property.GetAsString(), row.asString);
    }
    CKrPropertyOld date;
    date.SetType(CKrAssCtrlOld::eObjDate);
    date.SetValueFromString(OLESTR("2021-03-15"));
    EXPECT_EQ(date.GetOleDateTime().m_dt, s_day);
}

TEST(CKrPropertyOldIsValid, GoesByTheControlTypeAndNotByTheDataType)
{
    struct Row
    {
        int control;
        bool none;   ///< with an empty value
        bool number; ///< with a double, a long or a bool
        bool shortNumber;
        bool text;
        bool emptyText;
    };
    // clang-format off
    Row const rows[] = {
        // control                           none   number short  text   empty text
        { 0,                                 false, false, false, false, false },
        { CKrAssCtrlOld::eEditCtrl,          false, true,  false, true,  false },
        { CKrAssCtrlOld::eComboCtrl,         false, true,  false, true,  false },
        { CKrAssCtrlOld::eColorCtrl,         true,  true,  true,  true,  true  },
        { CKrAssCtrlOld::eFileNameCtrl,      false, true,  true,  true,  false },
        { CKrAssCtrlOld::eDirNameCtrl,       false, true,  true,  true,  false },
        { CKrAssCtrlOld::ePasswordCtrl,      false, true,  true,  true,  false },
        { CKrAssCtrlOld::eDateCtrl,          true,  true,  true,  true,  true  },
        { CKrAssCtrlOld::eTimeCtrl,          true,  true,  true,  true,  true  },
        { CKrAssCtrlOld::eMemoCtrl,          true,  true,  true,  true,  true  },
        { CKrAssCtrlOld::eUserDefinedCtrl,   false, false, false, true,  false },
        { CKrAssCtrlOld::eConfigListCtrl,    false, false, false, true,  false },
        { 12,                                false, false, false, false, false },
        { -1,                                false, false, false, false, false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.control);
        auto const isValid = [&row](CKrVariant const & value)
        { return With(value, static_cast<CKrPropertyOld::ECtrlType>(row.control)).IsValid(); };
        EXPECT_EQ(isValid(CKrVariant()), row.none);
        EXPECT_EQ(isValid(CKrVariant(0.0)), row.number);
        EXPECT_EQ(isValid(CKrVariant(0)), row.number);
        EXPECT_EQ(isValid(CKrVariant(false)), row.number);
        EXPECT_EQ(isValid(CKrVariant(short(1))), row.shortNumber);
        EXPECT_EQ(isValid(CKrVariant(OLESTR("x"))), row.text);
        EXPECT_EQ(isValid(CKrVariant(OLESTR(""))), row.emptyText);
    }
}
