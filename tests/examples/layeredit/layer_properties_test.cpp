#include <examples/layeredit/layer_properties.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>

namespace layeredit
{

namespace
{

/// The value that a text becomes, as text again; "refused" where it is none.
CString Read(CString const & name, CString const & text, double * given = nullptr)
{
    PropertyRow const & row = *FindProperty(name);
    CKrProperty property(row.name, CString(), row.type, true, true);
    double meant = 0.0;
    bool const isRead = ReadValue(text, property, meant);
    if (given)
        *given = meant;
    return isRead ? TextOfValue(property, Style::Programs) : CString(OLESTR("refused"));
}

} // namespace

TEST(LayerProperties, ValuesAreReadStrictly)
{
    struct Row
    {
        WCHAR const * property;
        WCHAR const * text;
        WCHAR const * value;
    };
    WCHAR const * const refused = OLESTR("refused");
    // clang-format off
    Row const rows[] = {
        { OLESTR("Color"),      OLESTR("1"),              OLESTR("1")       }, { OLESTR("color"), OLESTR("255"),         OLESTR("255") },
        { OLESTR("Color"),      OLESTR("0"),              refused           }, { OLESTR("Color"), OLESTR("256"),         refused       },
        { OLESTR("Color"),      OLESTR("-7"),             refused           }, { OLESTR("Color"), OLESTR("65537"),       refused       },
        { OLESTR("Color"),      OLESTR("7x"),             refused           }, { OLESTR("Color"), OLESTR("red"),         refused       },
        { OLESTR("Color"),      OLESTR("BYLAYER"),        refused           }, { OLESTR("Color"), OLESTR(""),            refused       },
        { OLESTR("Color"),      OLESTR("RGB(1,20,200)"),  OLESTR("#0114c8") }, { OLESTR("Color"), OLESTR("rgb( 1, 20 ,200 )"), OLESTR("#0114c8") },
        { OLESTR("Color"),      OLESTR("RGB(256,0,0)"),   refused           }, { OLESTR("Color"), OLESTR("RGB(1,2)"),    refused       },
        { OLESTR("Color"),      OLESTR("#1192EE"),        OLESTR("#1192ee") }, { OLESTR("Color"), OLESTR("#1192e"),      refused       },
        { OLESTR("Color"),      OLESTR("#000000"),        OLESTR("#000000") }, { OLESTR("Color"), OLESTR("NOCOLOR"),     refused       },
        { OLESTR("LineWeight"), OLESTR("0.35"),           OLESTR("0.35")    }, { OLESTR("LineWeight"), OLESTR("DEFAULT"), OLESTR("default") },
        { OLESTR("LineWeight"), OLESTR("0"),              OLESTR("0.00")    }, { OLESTR("LineWeight"), OLESTR("2.11"),   OLESTR("2.11") },
        { OLESTR("LineWeight"), OLESTR("2.111"),          refused           }, { OLESTR("LineWeight"), OLESTR("-0.1"),   refused       },
        { OLESTR("LineWeight"), OLESTR("0,35"),           refused           }, { OLESTR("LineWeight"), OLESTR("0.35mm"), refused       },
        { OLESTR("LineWeight"), OLESTR(""),               refused           }, { OLESTR("LineWeight"), OLESTR("nan"),    refused       },
        { OLESTR("Plot"),       OLESTR("yes"),            OLESTR("1")       }, { OLESTR("On"),     OLESTR("NO"),         OLESTR("0")   },
        { OLESTR("Frozen"),     OLESTR("1"),              OLESTR("1")       }, { OLESTR("Locked"), OLESTR("0"),          OLESTR("0")   },
        { OLESTR("Locked"),     OLESTR("true"),           refused           }, { OLESTR("Locked"), OLESTR(""),           refused       },
        { OLESTR("Description"), OLESTR(" any = text "),  OLESTR(" any = text ") },
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(Read(row.property, row.text), row.value) << CString(row.property) << "=" << CString(row.text);
}

TEST(LayerProperties, EachHundredthOfAMillimetreGoesToTheNextLineWeightUp)
{
    constexpr int weights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                               53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    for (int hundredths = 0; hundredths <= 211; ++hundredths)
    {
        CString text, next;
        text.Format(OLESTR("%d.%02d"), hundredths / 100, hundredths % 100);
        int const weight = *std::ranges::lower_bound(weights, hundredths);
        next.Format(OLESTR("%d.%02d"), weight / 100, weight % 100);
        double given = -1.0;
        EXPECT_EQ(Read(propertyLineWeight, text, &given), next) << text;
        EXPECT_DOUBLE_EQ(given, weight == hundredths ? 0.0 : hundredths / 100.0) << text;
    }
}

TEST(LayerProperties, AreFoundInAnyCaseAndListedInTheOrderOfColumns)
{
    EXPECT_EQ(FindProperty(OLESTR("LINEWEIGHT"))->name, CString(OLESTR("LineWeight")));
    EXPECT_EQ(FindProperty(OLESTR("Line")), nullptr);
    EXPECT_EQ(FindProperty(CString()), nullptr);
    EXPECT_EQ(AllPropertyNames(),
              CString(OLESTR("Name, Color, LineType, LineWeight, Plot, On, Frozen, Locked, Description")));
}

} // namespace layeredit
