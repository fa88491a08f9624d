#include <krplatform/datetime/clock.h>

#include "tests/krplatform/datetime/zone.h"
#include "tests/support/child_process.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>

namespace kr::test
{

namespace
{

/// Monday 8 March 2021, 08:05:09.
std::tm Morning()
{
    std::tm fields = {};
    fields.tm_year = 121;
    fields.tm_mon = 2;
    fields.tm_mday = 8;
    fields.tm_hour = 8;
    fields.tm_min = 5;
    fields.tm_sec = 9;
    fields.tm_wday = 1;
    fields.tm_yday = 66;
    return fields;
}

std::string Format(WCHAR const * pattern, std::tm const & fields)
{
    WCHAR text[256] = OLESTR("old");
    std::size_t const length = wcsftime(text, 256, pattern, &fields);
    EXPECT_EQ(length, std::char_traits<WCHAR>::length(text));
    return Narrow(text);
}

struct Row
{
    WCHAR const * pattern;
    char const * text;
};

} // namespace

TEST(Wcsftime, KnowsEveryConversion)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("%a"), "Mon"                      },
        { OLESTR("%A"), "Monday"                   },
        { OLESTR("%b"), "Mar"                      },
        { OLESTR("%B"), "March"                    },
        { OLESTR("%c"), "Mon Mar  8 08:05:09 2021" },
        { OLESTR("%C"), "20"                       },
        { OLESTR("%d"), "08"                       },
        { OLESTR("%D"), "03/08/21"                 },
        { OLESTR("%e"), " 8"                       },
        { OLESTR("%F"), "2021-03-08"               },
        { OLESTR("%g"), "21"                       },
        { OLESTR("%G"), "2021"                     },
        { OLESTR("%h"), "Mar"                      },
        { OLESTR("%H"), "08"                       },
        { OLESTR("%I"), "08"                       },
        { OLESTR("%j"), "067"                      },
        { OLESTR("%m"), "03"                       },
        { OLESTR("%M"), "05"                       },
        { OLESTR("%n"), "\\u000A"                  },
        { OLESTR("%p"), "AM"                       },
        { OLESTR("%r"), "08:05:09 AM"              },
        { OLESTR("%R"), "08:05"                    },
        { OLESTR("%S"), "09"                       },
        { OLESTR("%t"), "\\u0009"                  },
        { OLESTR("%T"), "08:05:09"                 },
        { OLESTR("%u"), "1"                        },
        { OLESTR("%U"), "10"                       },
        { OLESTR("%V"), "10"                       },
        { OLESTR("%w"), "1"                        },
        { OLESTR("%W"), "10"                       },
        { OLESTR("%x"), "03/08/21"                 },
        { OLESTR("%X"), "08:05:09"                 },
        { OLESTR("%y"), "21"                       },
        { OLESTR("%Y"), "2021"                     },
        { OLESTR("%%"), "%"                        },
        { OLESTR("on %d.%m. at %H"), "on 08.03. at 08" },
        { OLESTR("\u00E4%d\u4E00"),  "\\u00E408\\u4E00" },
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(Format(row.pattern, Morning()), row.text) << Narrow(row.pattern);
}

TEST(Wcsftime, TakesOffLeadingZerosAndBlanksOrWritesALongForm)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("%#a"), "Mon"                           },
        { OLESTR("%#B"), "March"                         },
        { OLESTR("%#c"), "Monday, March 08, 2021 08:05:09" },
        { OLESTR("%#C"), "20"                            },
        { OLESTR("%#d"), "8"                             },
        { OLESTR("%#D"), "3/8/21"                        },
        { OLESTR("%#e"), "8"                             },
        { OLESTR("%#F"), "2021-3-8"                      },
        { OLESTR("%#g"), "21"                            },
        { OLESTR("%#H"), "8"                             },
        { OLESTR("%#I"), "8"                             },
        { OLESTR("%#j"), "67"                            },
        { OLESTR("%#m"), "3"                             },
        { OLESTR("%#M"), "5"                             },
        { OLESTR("%#p"), "AM"                            },
        { OLESTR("%#r"), "8:5:9 AM"                      },
        { OLESTR("%#R"), "8:5"                           },
        { OLESTR("%#S"), "9"                             },
        { OLESTR("%#T"), "8:5:9"                         },
        { OLESTR("%#x"), "Monday, March 08, 2021"        },
        { OLESTR("%#X"), "08:05:09"                      },
        { OLESTR("%#Y"), "2021"                          },
        { OLESTR("%#%"), "%"                             },
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(Format(row.pattern, Morning()), row.text) << Narrow(row.pattern);
    std::tm midnight = Morning();
    midnight.tm_hour = midnight.tm_min = midnight.tm_sec = 0;
    EXPECT_EQ(Format(OLESTR("%#H:%#M:%#S"), midnight), "0:0:0"); // the last zero stays
}

TEST(Wcsftime, RefusesOtherConversionsWholly)
{
    for (WCHAR const * const pattern : {OLESTR("%q"), OLESTR("%E"), OLESTR("%Ey"), OLESTR("%Od"), OLESTR("%k"),
                                        OLESTR("%l"), OLESTR("%s"), OLESTR("%P"), OLESTR("%f"), OLESTR("%"),
                                        OLESTR("%#"), OLESTR("%##d"), OLESTR("%5d"), OLESTR("%d %"), OLESTR("%\u00E4")})
        EXPECT_EQ(Format(pattern, Morning()), "") << Narrow(pattern);
}

TEST(Wcsftime, WritesNothingWhereTheTextDoesNotFit)
{
    std::tm const fields = Morning();
    WCHAR text[5] = OLESTR("old");
    EXPECT_EQ(wcsftime(text, 5, OLESTR("%Y"), &fields), 4u);
    EXPECT_EQ(Narrow(text), "2021");
    EXPECT_EQ(wcsftime(text, 4, OLESTR("%Y"), &fields), 0u);
    EXPECT_EQ(Narrow(text), "");
    text[0] = OLESTR('x');
    EXPECT_EQ(wcsftime(text, 0, OLESTR("%Y"), &fields), 0u);
    EXPECT_EQ(text[0], OLESTR('x'));
}

TEST(Wcsftime, GivesNothingForNullAndForAnEmptyPattern)
{
    std::tm const fields = Morning();
    WCHAR text[8] = OLESTR("old");
    EXPECT_EQ(wcsftime(nullptr, 8, OLESTR("%Y"), &fields), 0u);
    EXPECT_EQ(wcsftime(text, 8, OLESTR("%Y"), nullptr), 0u);
    EXPECT_EQ(text[0], 0);
    text[0] = OLESTR('x');
    EXPECT_EQ(wcsftime(text, 8, nullptr, &fields), 0u);
    EXPECT_EQ(text[0], 0);
    text[0] = OLESTR('x');
    EXPECT_EQ(wcsftime(text, 8, OLESTR(""), &fields), 0u);
    EXPECT_EQ(text[0], 0);
}

TEST(Wcsftime, WritesTheYears0To9999AndRefusesOthers)
{
    struct YearRow
    {
        int year;
        char const * year4;
        char const * year2;
        char const * century;
    };
    // clang-format off
    YearRow const rows[] = {
        {     0, "0000", "00", "00" },
        {   100, "0100", "00", "01" },
        {   987, "0987", "87", "09" },
        {  1899, "1899", "99", "18" },      // dates begin there, with a negative tm_year
        {  9999, "9999", "99", "99" },
        {    -1, "",     "",   ""   },
        { 10000, "",     "",   ""   },
    };
    // clang-format on
    for (YearRow const & row : rows)
    {
        std::tm fields = Morning();
        fields.tm_year = row.year - 1900;
        EXPECT_EQ(Format(OLESTR("%Y"), fields), row.year4) << row.year;
        EXPECT_EQ(Format(OLESTR("%y"), fields), row.year2) << row.year;
        EXPECT_EQ(Format(OLESTR("%C"), fields), row.century) << row.year;
    }
}

TEST(Wcsftime, RefusesAFieldOutOfItsRangeOnlyWhereItIsRead)
{
    struct FieldRow
    {
        int std::tm::*field;
        int low;
        int high;
        WCHAR const * pattern;
    };
    // clang-format off
    FieldRow const rows[] = {
        { &std::tm::tm_sec,      0,   60, OLESTR("%S") },
        { &std::tm::tm_min,      0,   59, OLESTR("%M") },
        { &std::tm::tm_hour,     0,   23, OLESTR("%H") },
        { &std::tm::tm_hour,     0,   23, OLESTR("%I") },
        { &std::tm::tm_hour,     0,   23, OLESTR("%p") },
        { &std::tm::tm_mday,     1,   31, OLESTR("%d") },
        { &std::tm::tm_mon,      0,   11, OLESTR("%m") },
        { &std::tm::tm_mon,      0,   11, OLESTR("%b") },
        { &std::tm::tm_mon,      0,   11, OLESTR("%B") },
        { &std::tm::tm_year, -1900, 8099, OLESTR("%Y") },
        { &std::tm::tm_wday,     0,    6, OLESTR("%a") },
        { &std::tm::tm_wday,     0,    6, OLESTR("%A") },
        { &std::tm::tm_wday,     0,    6, OLESTR("%w") },
        { &std::tm::tm_yday,     0,  365, OLESTR("%j") },
    };
    // clang-format on
    for (FieldRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.pattern));
        for (int const value : {row.low - 1, row.low, row.high, row.high + 1})
        {
            std::tm fields = Morning();
            fields.*row.field = value;
            bool const isInRange = value >= row.low && value <= row.high;
            EXPECT_EQ(Format(row.pattern, fields) != "", isInRange) << value;
            EXPECT_EQ(Format(OLESTR("text"), fields), "text");
        }
    }
}

TEST(Wcsftime, CountsTwelveHoursFromTwelve)
{
    std::tm fields = Morning();
    char const * const hours[] = {"12 AM", "01 AM", "11 AM", "12 PM", "01 PM", "11 PM"};
    int const given[] = {0, 1, 11, 12, 13, 23};
    for (std::size_t index = 0; index < std::size(given); ++index)
    {
        fields.tm_hour = given[index];
        EXPECT_EQ(Format(OLESTR("%I %p"), fields), hours[index]);
    }
}

TEST(Wcsftime, NamesTheZoneOfTheFields)
{
    struct ZoneRow
    {
        char const * zone;
        int daylightSaving;
        char const * text;
    };
    // clang-format off
    ZoneRow const rows[] = {
        { "Europe/Berlin",        0, "+0100 CET"  },
        { "Europe/Berlin",        1, "+0200 CEST" },     // as the fields say, also in March
        { "America/New_York",     0, "-0500 EST"  },
        { "America/St_Johns",     0, "-0330 NST"  },
        { "UTC",                  0, "+0000 UTC"  },
    };
    // clang-format on
    for (ZoneRow const & row : rows)
    {
        Zone const zone(row.zone);
        std::tm fields = Morning();
        fields.tm_isdst = row.daylightSaving;
        EXPECT_EQ(Format(OLESTR("%z %Z"), fields), row.text);
    }
    std::tm fields = Morning();
    fields.tm_year = 8100;
    EXPECT_EQ(Format(OLESTR("%z"), fields), "");
}

TEST(Wcsftime, DISABLED_StaysEnglishInAGermanProgram)
{
    ASSERT_TRUE(std::setlocale(LC_ALL, ""));
    std::tm const fields = Morning();
    char german[16];
    ASSERT_GT(std::strftime(german, sizeof german, "%A", &fields), 0u);
    ASSERT_STREQ(german, "Montag"); // so the C library speaks German
    EXPECT_EQ(Format(OLESTR("%A %B %p %x %c"), fields), "Monday March AM 03/08/21 Mon Mar  8 08:05:09 2021");
}

TEST(Wcsftime, StaysEnglishWhateverLocaleTheProgramSets)
{
    std::filesystem::path const directory = std::filesystem::path(testing::TempDir()) / "kr_wcsftime_locales";
    std::filesystem::remove_all(directory);
    std::filesystem::create_directories(directory);
    RunProgram({"localedef", "-i", "de_DE", "-f", "ISO-8859-1", directory / "de_DE"});
    bool const isMade = std::filesystem::exists(directory / "de_DE" / "LC_TIME");
    ChildResult const child =
        RunTestInChild("Wcsftime.DISABLED_StaysEnglishInAGermanProgram", {{"LOCPATH", directory}, {"LC_ALL", "de_DE"}});
    std::filesystem::remove_all(directory);
    if (!isMade)
        GTEST_SKIP() << "the sources of the C library's locales are not installed";
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

} // namespace kr::test
