#include <krplatform/text/numbers.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace
{

struct ColourRow
{
    WCHAR const * text;
    int count;
    int red, green, blue; ///< -1: not touched
};

struct IntegerRow
{
    WCHAR const * text;
    WCHAR const * format;
    int count;
    int value;
};

} // namespace

TEST(Swscanf, ReadsColoursAsTheyAreWritten)
{
    // clang-format off
    ColourRow const decimal[] = {
        // text                         count  red  green  blue
        { OLESTR("RGB(1,2,3)"),          3,    1,    2,    3 },
        { OLESTR("RGB( 1,\t2, 3)"),      3,    1,    2,    3 },  // white space before a number is skipped
        { OLESTR("RGB(300,-1,+7"),       3,  300,   -1,    7 },
        { OLESTR("RGB(1 ,2,3)"),         1,    1,   -1,   -1 },  // but not before a comma
        { OLESTR("RGB(1,2)"),            2,    1,    2,   -1 },
        { OLESTR("RGB(1,,3)"),           1,    1,   -1,   -1 },
        { OLESTR("RGB(a,2,3)"),          0,   -1,   -1,   -1 },
        { OLESTR("RGB("),               -1,   -1,   -1,   -1 },  // the text ends before the first number
        { OLESTR("RG"),                 -1,   -1,   -1,   -1 },
        { OLESTR("rgb(1,2,3)"),          0,   -1,   -1,   -1 },
        { OLESTR("RGB(99999999999,-99999999999,0)"), 3, INT_MAX, INT_MIN, 0 },
    };
    ColourRow const hexadecimal[] = {
        { OLESTR("#FF8000"),             3,  255,  128,    0 },
        { OLESTR("#ff8000ff"),           3,  255,  128,    0 },
        { OLESTR("# 1 2 3"),             3,    1,    2,    3 },
        { OLESTR("#FF8"),                2,  255,    8,   -1 },
        { OLESTR("#FFxx"),               1,  255,   -1,   -1 },
        { OLESTR("#"),                  -1,   -1,   -1,   -1 },
        { OLESTR("FF8000"),              0,   -1,   -1,   -1 },
    };
    // clang-format on
    auto const check = [](ColourRow const & row, WCHAR const * format)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text));
        int red = -1, green = -1, blue = -1;
        EXPECT_EQ(swscanf(row.text, format, &red, &green, &blue), row.count);
        EXPECT_EQ(red, row.red);
        EXPECT_EQ(green, row.green);
        EXPECT_EQ(blue, row.blue);
    };
    for (ColourRow const & row : decimal)
        check(row, OLESTR("RGB(%d,%d,%d)"));
    for (ColourRow const & row : hexadecimal)
        check(row, OLESTR("#%2x%2x%2x"));
}

TEST(Swscanf, ReadsIntegersInAllBases)
{
    constexpr int untouched = 77;
    // clang-format off
    IntegerRow const rows[] = {
        // text                   format             count  value
        { OLESTR("42"),           OLESTR("%d"),        1,      42 },
        { OLESTR(" \u3000-42x"),  OLESTR("%d"),        1,     -42 },
        { OLESTR("010"),          OLESTR("%d"),        1,      10 },
        { OLESTR("010"),          OLESTR("%i"),        1,       8 },
        { OLESTR("0x1F"),         OLESTR("%i"),        1,      31 },
        { OLESTR("-0x1F"),        OLESTR("%i"),        1,     -31 },
        { OLESTR("10"),           OLESTR("%i"),        1,      10 },
        { OLESTR("0"),            OLESTR("%i"),        1,       0 },
        { OLESTR("0xg"),          OLESTR("%i"),        1,       0 },  // reading stops before the x
        { OLESTR("08"),           OLESTR("%i"),        1,       0 },
        { OLESTR("17"),           OLESTR("%o"),        1,      15 },
        { OLESTR("0x1f"),         OLESTR("%x"),        1,      31 },
        { OLESTR("1F"),           OLESTR("%X"),        1,      31 },
        { OLESTR("12345"),        OLESTR("%3d"),       1,     123 },
        { OLESTR("-12345"),       OLESTR("%3d"),       1,     -12 },  // the sign counts
        { OLESTR("-5"),           OLESTR("%u"),        1,      -5 },
        { OLESTR("99999999999"),  OLESTR("%u"),        1,      -1 },  // the limit, seen as a signed number
        { OLESTR("99999999999"),  OLESTR("%x"),        1,      -1 },
        { OLESTR("99999999999999999999999"), OLESTR("%d"), 1, INT_MAX },
        { OLESTR("-"),            OLESTR("%d"),        0,  untouched },
        { OLESTR("x"),            OLESTR("%d"),        0,  untouched },
        { OLESTR(""),             OLESTR("%d"),       -1,  untouched },
        { OLESTR("   "),          OLESTR("%d"),       -1,  untouched },
        { OLESTR("1 2"),          OLESTR("%*d%d"),     1,       2 },
        { OLESTR("1"),            OLESTR("%*d%d"),     0,  untouched },  // something was read before the text ended
        { OLESTR("a%5"),          OLESTR("a%%%d"),     1,       5 },
        { OLESTR("a b 5"),        OLESTR("a  b %d"),   1,       5 },
        { OLESTR("ab5"),          OLESTR("a b %d"),    1,       5 },  // white space matches none too
        { OLESTR("5"),            OLESTR("%y"),        0,  untouched },
        { OLESTR("5"),            OLESTR("%"),         0,  untouched },
        { OLESTR("5"),            OLESTR("%Ld"),       0,  untouched },
        { OLESTR("5"),            OLESTR("%[5"),       0,  untouched },
    };
    // clang-format on
    for (IntegerRow const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.text) + " by " + kr::test::Narrow(row.format));
        int value = untouched;
        EXPECT_EQ(swscanf(row.text, row.format, &value), row.count);
        EXPECT_EQ(value, row.value);
    }
}

TEST(Swscanf, StoresIntegersInTheirSize)
{
    std::int8_t tiny[2] = {5, 5};
    std::int16_t small[2] = {5, 5};
    long large = 0;
    long long larger = 0;
    std::int64_t exact = 0;
    std::int32_t word = 0;
    std::size_t size = 0;
    EXPECT_EQ(swscanf(OLESTR("300 -70000 5000000000 -6000000000 7000000000 -8 9"),
                      OLESTR("%hhd %hd %ld %lld %I64d %I32d %zu"), tiny, small, &large, &larger, &exact, &word, &size),
              7);
    EXPECT_EQ(tiny[0], 127);
    EXPECT_EQ(tiny[1], 5);
    EXPECT_EQ(small[0], -32768);
    EXPECT_EQ(small[1], 5);
    EXPECT_EQ(large, 5'000'000'000);
    EXPECT_EQ(larger, -6'000'000'000);
    EXPECT_EQ(exact, 7'000'000'000);
    EXPECT_EQ(word, -8);
    EXPECT_EQ(size, 9u);
    std::uint8_t byte = 0;
    EXPECT_EQ(swscanf(OLESTR("300"), OLESTR("%hhu"), &byte), 1);
    EXPECT_EQ(byte, 255);
    unsigned long long most = 0;
    EXPECT_EQ(swscanf(OLESTR("99999999999999999999"), OLESTR("%llu"), &most), 1);
    EXPECT_EQ(most, ULLONG_MAX);
    EXPECT_EQ(swscanf(OLESTR("18446744073709551616"), OLESTR("%llu"), &most), 1);
    EXPECT_EQ(most, ULLONG_MAX) << "one more than there is";
    EXPECT_EQ(swscanf(OLESTR("18446744073709551614"), OLESTR("%llu"), &most), 1);
    EXPECT_EQ(most, ULLONG_MAX - 1);
    EXPECT_EQ(swscanf(OLESTR("-99999999999999999999"), OLESTR("%lld"), &larger), 1);
    EXPECT_EQ(larger, LLONG_MIN);
}

TEST(Swscanf, ReadsReals)
{
    float single = 0;
    double number = 0;
    long double longest = 0;
    EXPECT_EQ(swscanf(OLESTR("1.5 -2.5e3 .25"), OLESTR("%f %lf %Lg"), &single, &number, &longest), 3);
    EXPECT_EQ(single, 1.5f);
    EXPECT_EQ(number, -2500.0);
    EXPECT_EQ(longest, 0.25L);
    EXPECT_EQ(swscanf(OLESTR("1e99 -1e999"), OLESTR("%e %le"), &single, &number), 2);
    EXPECT_EQ(single, HUGE_VALF);
    EXPECT_EQ(number, -HUGE_VAL);
    EXPECT_EQ(swscanf(OLESTR("12345.5"), OLESTR("%3lf%lf"), &number, &number), 2);
    EXPECT_EQ(number, 45.5);
    EXPECT_EQ(swscanf(OLESTR("1.5e7"), OLESTR("%4lg"), &number), 1);
    EXPECT_EQ(number, 1.5);
    EXPECT_EQ(swscanf(OLESTR("inf"), OLESTR("%lf"), &number), 0);
    EXPECT_EQ(swscanf(OLESTR("1.5"), OLESTR("%hf"), &single), 0);
}

TEST(Swscanf, ReadsWords)
{
    WCHAR first[20], second[20];
    char narrow[20];
    EXPECT_EQ(swscanf(OLESTR("  one two"), OLESTR("%s%s"), first, second), 2);
    EXPECT_EQ(kr::test::Narrow(first), "one");
    EXPECT_EQ(kr::test::Narrow(second), "two");
    EXPECT_EQ(swscanf(OLESTR("wallpaper"), OLESTR("%4s%ls"), first, second), 2);
    EXPECT_EQ(kr::test::Narrow(first), "wall");
    EXPECT_EQ(kr::test::Narrow(second), "paper");
    EXPECT_EQ(swscanf(OLESTR("wall"), OLESTR("%S"), narrow), 1);
    EXPECT_STREQ(narrow, "wall");
    EXPECT_EQ(swscanf(OLESTR("wall"), OLESTR("%hs"), narrow), 1);
    EXPECT_STREQ(narrow, "wall");
    EXPECT_EQ(swscanf(OLESTR("   "), OLESTR("%s"), first), -1);
    EXPECT_EQ(swscanf(OLESTR("wall"), OLESTR("%lls"), first), 0);
}

TEST(Swscanf, ReadsUnits)
{
    WCHAR units[4] = {OLESTR('x'), OLESTR('x'), OLESTR('x'), 0};
    EXPECT_EQ(swscanf(OLESTR(" ab"), OLESTR("%2c"), units), 1);
    EXPECT_EQ(kr::test::Narrow(units), " ax") << "white space is a unit, and no terminator is written";
    EXPECT_EQ(swscanf(OLESTR("b"), OLESTR("%c"), units), 1);
    EXPECT_EQ(units[0], OLESTR('b'));
    EXPECT_EQ(swscanf(OLESTR("bc"), OLESTR("%3c"), units), -1) << "fewer than asked for";
    EXPECT_EQ(swscanf(OLESTR(""), OLESTR("%c"), units), -1);
    char narrow = 0;
    EXPECT_EQ(swscanf(OLESTR("z"), OLESTR("%C"), &narrow), 1);
    EXPECT_EQ(narrow, 'z');
}

TEST(Swscanf, ReadsRunsOfSets)
{
    WCHAR text[20];
    auto const read = [&text](WCHAR const * source, WCHAR const * format)
    {
        text[0] = 0;
        int const count = swscanf(source, format, text);
        return std::to_string(count) + ":" + kr::test::Narrow(text);
    };
    EXPECT_EQ(read(OLESTR("abc123"), OLESTR("%[a-z]")), "1:abc");
    EXPECT_EQ(read(OLESTR("abc123"), OLESTR("%[^0-9]")), "1:abc");
    EXPECT_EQ(read(OLESTR("abc123"), OLESTR("%2[a-z]")), "1:ab");
    EXPECT_EQ(read(OLESTR("abc123"), OLESTR("%[z-a]")), "1:abc");
    EXPECT_EQ(read(OLESTR("a-b"), OLESTR("%[ab-]")), "1:a-b");
    EXPECT_EQ(read(OLESTR("a-ced"), OLESTR("%[a-c-e]")), "1:a-ce") << "a range ends where it ends";
    EXPECT_EQ(read(OLESTR("]a"), OLESTR("%[]a]")), "1:]a");
    EXPECT_EQ(read(OLESTR("a]"), OLESTR("%[^]]")), "1:a");
    EXPECT_EQ(read(OLESTR(" a"), OLESTR("%[a]")), "0:") << "white space is not skipped";
    EXPECT_EQ(read(OLESTR("a b;c"), OLESTR("%[^;]")), "1:a b");
    EXPECT_EQ(read(OLESTR("key=value"), OLESTR("%*[^=]=%s")), "1:value");
    EXPECT_EQ(read(OLESTR("\u0436x"), OLESTR("%[\u0430-\u044F]")), "1:\\u0436");
}

TEST(Swscanf, TellsThePosition)
{
    int value = 0, position = -1;
    EXPECT_EQ(swscanf(OLESTR(" 12 ab"), OLESTR("%d %n"), &value, &position), 1) << "the position is no value";
    EXPECT_EQ(position, 4);
    EXPECT_EQ(swscanf(OLESTR(""), OLESTR("%n"), &position), 0);
    EXPECT_EQ(position, 0);
    EXPECT_EQ(swscanf(OLESTR("12 34"), OLESTR("%*d%*n%d"), &value), 1) << "a position may be skipped";
    EXPECT_EQ(value, 34);
    EXPECT_EQ(swscanf(OLESTR("12 34"), OLESTR("%d%Ln%d"), &value, &position, &value), 1) << "no size of integers";
    EXPECT_EQ(value, 12);
    EXPECT_EQ(position, 0);
}

TEST(Swscanf, GivesNothingForNoTextOrNoFormat)
{
    int value = 7;
    EXPECT_EQ(swscanf(nullptr, OLESTR("%d"), &value), -1);
    EXPECT_EQ(swscanf(OLESTR("5"), nullptr, &value), -1);
    EXPECT_EQ(swscanf(OLESTR("5"), OLESTR(""), &value), 0);
    EXPECT_EQ(value, 7);
}
