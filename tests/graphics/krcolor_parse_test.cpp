#include <krcore/graphics/krcolor.h>

#include "tests/graphics/color_fields.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/text/numbers.h>

#include <gtest/gtest.h>

#include <random>
#include <string>

using kr::test::ColorFields;
using kr::test::FieldsOf;
using kr::test::Narrow;

namespace
{

constexpr int RGB = CKrColor::eColorSpaceRGB;
constexpr int Index = CKrColor::eColorSpaceIndex;
constexpr int NoColor = CKrColor::eColorSpaceNoColor;

using Text = std::basic_string<WCHAR>;

struct Row
{
    WCHAR const * text;
    int space, index, red, green, blue;
};

/// Reads into a colour that has all fields set to something else.
void CheckParsed(Row const & row)
{
    SCOPED_TRACE(Narrow(row.text));
    CKrColor color(91u, 92u, 93u);
    color.SetColorSpace(static_cast<CKrColor::ColorSpace>(94));
    color.Parse(row.text);
    EXPECT_EQ(FieldsOf(color), (ColorFields{row.space, row.red, row.green, row.blue, row.index}));
}

/// The rules of reading one by one, with the platform's own functions.
CKrColor ParsedByTheRules(CKrColor color, CString const & text)
{
    CString copy(text);
    copy.MakeUpper();
    copy.Trim();
    if (copy.IsEmpty())
    {
        color.SetNoColor();
    }
    else if (copy.Left(4) == OLESTR("RGB("))
    {
        int red = 0, green = 0, blue = 0;
        swscanf(copy, OLESTR("RGB(%d,%d,%d)"), &red, &green, &blue);
        color = CKrColor(red & 0xFF, green & 0xFF, blue & 0xFF);
    }
    else if (copy.Left(1) == OLESTR("#"))
    {
        unsigned int red = 0, green = 0, blue = 0;
        swscanf(copy, OLESTR("#%2x%2x%2x"), &red, &green, &blue);
        color = CKrColor(red & 0xFF, green & 0xFF, blue & 0xFF);
    }
    else if (copy == OLESTR("BYLAYER"))
    {
        color = CKrColor(short(256));
    }
    else if (copy.CompareNoCase(OLESTR("NOCOLOR")) == 0)
    {
        color.SetNoColor();
    }
    else
    {
        color = CKrColor(static_cast<short>(_wtoi(copy)));
    }
    return color;
}

CKrColor WithAlpha()
{
    CKrColor color(91u, 92u, 93u);
    color.SetAlpha(94);
    return color;
}

bool AgreesWithTheRules(Text const & units)
{
    CString const text(units.data(), static_cast<int>(units.size()));
    CKrColor color = WithAlpha();
    color.Parse(text);
    return FieldsOf(color) == FieldsOf(ParsedByTheRules(WithAlpha(), text));
}

/// The text without every unit that the disagreement does not need.
Text Shrunk(Text text)
{
    for (std::size_t at = 0; at < text.size();)
    {
        Text shorter = text;
        shorter.erase(at, 1);
        if (AgreesWithTheRules(shorter))
            ++at;
        else
            text = shorter;
    }
    return text;
}

/// Seeded texts that are nearly colours.
class ColorTexts
{
public:
    explicit ColorTexts(std::uint32_t seed) : m_engine(seed) {}

    Text Next()
    {
        static WCHAR const * const openings[] = {
            OLESTR("RGB("),    OLESTR("rgb("),    OLESTR("Rgb("),    OLESTR("#"),    OLESTR("#"),   OLESTR(""),
            OLESTR("BYLAYER"), OLESTR("byLayer"), OLESTR("NoColor"), OLESTR(" RGB"), OLESTR("\t #")};
        static Text const units = OLESTR("0123456789012345678901234567890123456789,,,,,,,,,,,,   \t\n)(#+--xXaAbBfFgG"
                                         "\u00A0\u2003\u3000\u0085\u0131\u212A\uFF11\u0660.%\0\x0B\x1C");
        static WCHAR const * const pieces[] = {
            OLESTR("2147483647"), OLESTR("-2147483648"), OLESTR("4294967295"), OLESTR("99999999999999999999"),
            OLESTR("0x"),         OLESTR("000000000"),   OLESTR("65793"),      OLESTR("-1"),
            OLESTR("255,"),       OLESTR("ff"),          OLESTR("1234567890"), OLESTR("RGB(")};

        Text text = openings[Number(std::size(openings))];
        for (std::size_t rest = Number(14); rest > 0; --rest)
            if (Number(8) == 0)
                text += pieces[Number(std::size(pieces))];
            else
                text += units[Number(units.size())];
        if (Number(4) == 0)
            text += OLESTR(" ");
        return text;
    }

private:
    std::size_t Number(std::size_t below) { return m_engine() % below; }

    std::mt19937 m_engine;
};

} // namespace

TEST(CKrColorParse, ReadsEmptyAndBlankTextAsNoColour)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR(""),                   NoColor, 257, 0, 0, 0 },
        { OLESTR(" "),                  NoColor, 257, 0, 0, 0 },
        { OLESTR(" \t\r\n\v\f "),       NoColor, 257, 0, 0, 0 },
        { OLESTR("\u00A0\u2003\u3000"), NoColor, 257, 0, 0, 0 },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckParsed(row);
}

TEST(CKrColorParse, ReadsColoursInAnyCaseAndWithBlanksAround)
{
    // clang-format off
    Row const rows[] = {
        // text                             space    index   r    g    b
        { OLESTR(" bylayer "),              Index,     256,   0,   0,   0 },
        { OLESTR("BYLAYER"),                Index,     256,   0,   0,   0 },
        { OLESTR("\u00A0ByLayer\u3000"),    Index,     256,   0,   0,   0 },
        { OLESTR("NOCOLOR"),                NoColor,   257,   0,   0,   0 },
        { OLESTR("\tnoColor\n"),            NoColor,   257,   0,   0,   0 },
        { OLESTR("RGB(1,2,3)"),             RGB,         0,   1,   2,   3 },
        { OLESTR("rgb( 1,2,3)"),            RGB,         0,   1,   2,   3 },
        { OLESTR("  Rgb(1,2,3)  "),         RGB,         0,   1,   2,   3 },
        { OLESTR("rgb(1, 2,\t\n3)"),        RGB,         0,   1,   2,   3 },
        { OLESTR("RGB(1,\u00A02,3)"),       RGB,         0,   1,   2,   3 },
        { OLESTR("#FF8000"),                RGB,         0, 255, 128,   0 },
        { OLESTR("#ff8000"),                RGB,         0, 255, 128,   0 },
        { OLESTR(" #aBcDeF\t"),             RGB,         0, 171, 205, 239 },
        { OLESTR("12"),                     Index,      12,   0,   0,   0 },
        { OLESTR("\n12 "),                  Index,      12,   0,   0,   0 },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckParsed(row);
}

TEST(CKrColorParse, LeavesMissingNumbersAtZero)
{
    // clang-format off
    Row const rows[] = {
        // text                             space    index   r    g    b
        { OLESTR("RGB("),                   RGB,         0,   0,   0,   0 },
        { OLESTR("RGB()"),                  RGB,         0,   0,   0,   0 },
        { OLESTR("RGB(1"),                  RGB,         0,   1,   0,   0 },
        { OLESTR("RGB(1,"),                 RGB,         0,   1,   0,   0 },
        { OLESTR("RGB(1,2"),                RGB,         0,   1,   2,   0 },
        { OLESTR("RGB(1,2)"),               RGB,         0,   1,   2,   0 },
        { OLESTR("RGB(1,2,3"),              RGB,         0,   1,   2,   3 },
        { OLESTR("RGB(1,2,3x"),             RGB,         0,   1,   2,   3 },    // what follows is not looked at
        { OLESTR("RGB(1,2,3,4)"),           RGB,         0,   1,   2,   3 },
        { OLESTR("RGB(1 ,2,3)"),            RGB,         0,   1,   0,   0 },    // no blank in front of a comma
        { OLESTR("RGB(1;2;3)"),             RGB,         0,   1,   0,   0 },
        { OLESTR("RGB(1.5,2,3)"),           RGB,         0,   1,   0,   0 },
        { OLESTR("RGB(,2,3)"),              RGB,         0,   0,   0,   0 },
        { OLESTR("RGB(x,2,3)"),             RGB,         0,   0,   0,   0 },
        { OLESTR("RGB(1,x,3)"),             RGB,         0,   1,   0,   0 },
        { OLESTR("RGB(1,2,x)"),             RGB,         0,   1,   2,   0 },
        { OLESTR("RGB(0x10,2,3)"),          RGB,         0,   0,   0,   0 },    // decimal only
        { OLESTR("#"),                      RGB,         0,   0,   0,   0 },
        { OLESTR("#1"),                     RGB,         0,   1,   0,   0 },
        { OLESTR("#12"),                    RGB,         0,  18,   0,   0 },
        { OLESTR("#123"),                   RGB,         0,  18,   3,   0 },
        { OLESTR("#12345"),                 RGB,         0,  18,  52,   5 },
        { OLESTR("#1234567"),               RGB,         0,  18,  52,  86 },
        { OLESTR("#123456 7"),              RGB,         0,  18,  52,  86 },
        { OLESTR("#1G3456"),                RGB,         0,   1,   0,   0 },
        { OLESTR("#12G456"),                RGB,         0,  18,   0,   0 },
        { OLESTR("#1234G6"),                RGB,         0,  18,  52,   0 },
        { OLESTR("#12345G"),                RGB,         0,  18,  52,   5 },
        { OLESTR("#G23456"),                RGB,         0,   0,   0,   0 },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckParsed(row);
}

TEST(CKrColorParse, IsAsForgivingAsTheScanner)
{
    // clang-format off
    Row const rows[] = {
        // text                             space    index   r    g    b
        { OLESTR("RGB(+1,-1,-0)"),          RGB,         0,   1, 255,   0 },
        { OLESTR("RGB(--1,2,3)"),           RGB,         0,   0,   0,   0 },
        { OLESTR("RGB(- 1,2,3)"),           RGB,         0,   0,   0,   0 },
        { OLESTR("RGB(0001,02,3)"),         RGB,         0,   1,   2,   3 },
        { OLESTR("# 1 2 3"),                RGB,         0,   1,   2,   3 },    // blanks do not count to the two digits
        { OLESTR("# 12 34 56"),             RGB,         0,  18,  52,  86 },
        { OLESTR("#1 23 4"),                RGB,         0,   1,  35,   4 },
        { OLESTR("#-1+2-3"),                RGB,         0, 255,   2, 253 },    // signs do
        { OLESTR("#-F+F00"),                RGB,         0, 241,  15,   0 },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckParsed(row);
}

TEST(CKrColorParse, CutsNumbersToTheLowByteAfterTheirLimit)
{
    // clang-format off
    Row const rows[] = {
        // text                                          space    index   r    g    b
        { OLESTR("RGB(300,0,0)"),                        RGB,         0,  44,   0,   0 },   // Deliberate: the low byte
        { OLESTR("RGB(255,256,257)"),                    RGB,         0, 255,   0,   1 },
        { OLESTR("RGB(-256,-257,65535)"),                RGB,         0,   0, 255, 255 },
        { OLESTR("RGB(999999999,1234567890,2)"),         RGB,         0, 255, 210,   2 },
        { OLESTR("RGB(2147483646,2147483647,0)"),        RGB,         0, 254, 255,   0 },
        { OLESTR("RGB(2147483648,4294967296,9999999999)"), RGB,       0, 255, 255, 255 },   // held at 0x7FFFFFFF
        { OLESTR("RGB(-2147483647,-2147483648,0)"),      RGB,         0,   1,   0,   0 },
        { OLESTR("RGB(-2147483649,-9999999999,1)"),      RGB,         0,   0,   0,   1 },   // held at 0x80000000
        { OLESTR("RGB(99999999999999999999999,0,0)"),    RGB,         0, 255,   0,   0 },
        { OLESTR("RGB(0000000000000000000001,0,0)"),     RGB,         0,   1,   0,   0 },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckParsed(row);
}

TEST(CKrColorParse, ReadsEverythingElseAsAnIndex)
{
    // clang-format off
    Row const rows[] = {
        // text                       space      index   r    g    b
        { OLESTR("0"),                Index,         0,   0,   0,   0 },
        { OLESTR("255"),              Index,       255,   0,   0,   0 },
        { OLESTR("256"),              Index,       256,   0,   0,   0 },
        { OLESTR("257"),              NoColor,     257,   0,   0,   0 },
        { OLESTR("258"),              Index,       258,   0,   0,   0 },
        { OLESTR("-1"),               Index,        -1,   0,   0,   0 },
        { OLESTR("+7"),               Index,         7,   0,   0,   0 },
        { OLESTR("12abc"),            Index,        12,   0,   0,   0 },
        { OLESTR("12 13"),            Index,        12,   0,   0,   0 },
        { OLESTR("1.9"),              Index,         1,   0,   0,   0 },
        { OLESTR("0x10"),             Index,         0,   0,   0,   0 },
        { OLESTR("32768"),            Index,    -32768,   0,   0,   0 },    // cut to 16 bits
        { OLESTR("65543"),            Index,         7,   0,   0,   0 },
        { OLESTR("65793"),            NoColor,     257,   0,   0,   0 },    // 65536 + 257
        { OLESTR("4294967296"),       Index,        -1,   0,   0,   0 },    // held at 0x7FFFFFFF first
        { OLESTR("-4294967296"),      Index,         0,   0,   0,   0 },    // held at 0x80000000 first
        { OLESTR("abc"),              Index,         0,   0,   0,   0 },    // Deliberate: unreadable is index 0
        { OLESTR("RGB"),              Index,         0,   0,   0,   0 },
        { OLESTR("RGB (1,2,3)"),      Index,         0,   0,   0,   0 },
        { OLESTR("RGB[1,2,3]"),       Index,         0,   0,   0,   0 },
        { OLESTR("FF8000"),           Index,         0,   0,   0,   0 },
        { OLESTR("0#FF8000"),         Index,         0,   0,   0,   0 },
        { OLESTR("BYLAYER."),         Index,         0,   0,   0,   0 },
        { OLESTR("BYLAYE"),           Index,         0,   0,   0,   0 },
        { OLESTR("BY LAYER"),         Index,         0,   0,   0,   0 },
        { OLESTR("BYBLOCK"),          Index,         0,   0,   0,   0 },
        { OLESTR("NO COLOR"),         Index,         0,   0,   0,   0 },
        { OLESTR("NOCOLORS"),         Index,         0,   0,   0,   0 },
        { OLESTR("NOCOLOUR"),         Index,         0,   0,   0,   0 },
        { OLESTR("\u00E4\u4E2D"),     Index,         0,   0,   0,   0 },
    };
    // clang-format on
    for (Row const & row : rows)
        CheckParsed(row);
}

TEST(CKrColorParse, TakesAZeroInTheMiddleAsTheEndOfNumbersButNotOfWords)
{
    struct ZeroRow
    {
        Text text;
        int space, index, red, green, blue;
    };
    using namespace std::string_literals;
    // clang-format off
    ZeroRow const rows[] = {
        { Text(OLESTR("\0"), 1),             Index,     0, 0, 0, 0 },       // not blank
        { Text(OLESTR("12\0003"), 4),        Index,    12, 0, 0, 0 },
        { Text(OLESTR("BYLAYER\0"), 8),      Index,     0, 0, 0, 0 },
        { Text(OLESTR("NOCOLOR\0"), 8),      Index,     0, 0, 0, 0 },
        { Text(OLESTR("RGB(1,2\0,3)"), 11),  RGB,       0, 1, 2, 0 },
        { Text(OLESTR("#1\00023"), 5),       RGB,       0, 1, 0, 0 },
    };
    // clang-format on
    for (ZeroRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrColor color;
        color.Parse(CString(row.text.data(), static_cast<int>(row.text.size())));
        EXPECT_EQ(FieldsOf(color), (ColorFields{row.space, row.red, row.green, row.blue, row.index}));
    }
}

TEST(CKrColorParse, KeepsAlphaWithNoColourAndClearsItWithAllOthers)
{
    struct AlphaRow
    {
        WCHAR const * text;
        int alpha;
        bool isAlpha;
    };
    // clang-format off
    AlphaRow const rows[] = {
        { OLESTR(""),           94, true  },
        { OLESTR("  "),         94, true  },
        { OLESTR("nocolor"),    94, true  },
        { OLESTR("257"),         0, false },        // Deliberate: the same colour, by number
        { OLESTR("RGB(1,2,3)"),  0, false },
        { OLESTR("RGB("),        0, false },
        { OLESTR("#010203"),     0, false },
        { OLESTR("#"),           0, false },
        { OLESTR("BYLAYER"),     0, false },
        { OLESTR("12"),          0, false },
        { OLESTR("abc"),         0, false },
    };
    // clang-format on
    for (AlphaRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrColor color = WithAlpha();
        color.Parse(row.text);
        EXPECT_EQ(color.GetAlpha(), row.alpha);
        EXPECT_EQ(color.IsAlpha(), row.isAlpha);
    }
}

TEST(CKrColorParse, AgreesWithTheRulesOnTheRowsAbove)
{
    for (WCHAR const * text :
         {OLESTR("rgb( 1,2,3)"), OLESTR("#-1+2-3"), OLESTR("RGB(99999999999999999999999,0,0)"), OLESTR("65793"),
          OLESTR("noColor"), OLESTR("#0X1234"), OLESTR("#0x"), OLESTR("# 0x 1"), OLESTR("#0"), OLESTR("#00x1")})
        EXPECT_TRUE(AgreesWithTheRules(text)) << Narrow(text);
}

TEST(CKrColorParse, AgreesWithTheRulesOnSeededTexts)
{
    constexpr std::uint32_t seed = 20240229;
    ColorTexts texts(seed);
    for (int count = 0; count < 200000; ++count)
    {
        Text const text = texts.Next();
        ASSERT_TRUE(AgreesWithTheRules(text))
            << "seed " << seed << ", text " << count << ": " << Narrow(text) << ", shrunk: " << Narrow(Shrunk(text));
    }
}

TEST(CKrColorParse, NeedsNoMemory)
{
    for (WCHAR const * text : {OLESTR(" rgb(1,2,3) "), OLESTR("RGB(+1,x"), OLESTR("#Ff8000"), OLESTR("# 1"),
                               OLESTR("bylayer"), OLESTR("nocolor"), OLESTR("12"), OLESTR("abc"), OLESTR("")})
    {
        SCOPED_TRACE(Narrow(text));
        CString const source(text);
        CKrColor color;
        std::size_t const before = kr::test::AllAllocations();
        color.Parse(source);
        EXPECT_EQ(kr::test::AllAllocations(), before);
        EXPECT_EQ(source, text);
    }
}
