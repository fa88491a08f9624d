#include "krplatform/linux/locale_patterns.h"

#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

TEST(PlatformPattern, BringsTheCollectionsPatternsToThePlatformsForms)
{
    struct Row
    {
        WCHAR const * pattern;
        char const * platform;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("M/d/yy"),               "M/d/yyyy"             },     // years have four digits
        { OLESTR("d.M.y"),                "d.M.yyyy"             },
        { OLESTR("u-MM-dd"),              "yyyy-MM-dd"           },
        { OLESTR("uuuuu/yyyyy"),          "yyyy/yyyy"            },
        { OLESTR("dd LLL y"),             "dd MMM yyyy"          },
        { OLESTR("d MMMMM y"),            "d MMMM yyyy"          },
        { OLESTR("h:mm:ss a"),            "h:mm:ss tt"           },
        { OLESTR("h:mm:ss\u202Fa"),       "h:mm:ss tt"           },     // the narrow blank of newer data
        { OLESTR("h:mm:ss\u00A0a"),       "h:mm:ss tt"           },
        { OLESTR("h:mm:ssa"),             "h:mm:ss tt"           },     // a blank is put in
        { OLESTR("ah:mm:ss"),             "tt h:mm:ss"           },
        { OLESTR("Bh:mm:ss"),             "tt h:mm:ss"           },
        { OLESTR("h:mm b"),               "h:mm tt"              },
        { OLESTR("K:mm a"),               "h:mm tt"              },
        { OLESTR("kk.mm.ss"),             "HH.mm.ss"             },
        { OLESTR("HH:mm:ss"),             "HH:mm:ss"             },
        { OLESTR("d\u200F/M\u200F/y"),    "d/M/yyyy"             },     // marks of the writing direction
        { OLESTR("d/M/y \u061C"),         "d/M/yyyy "            },
        { OLESTR("d\u200E/M/y"),          "d/M/yyyy"             },
        { OLESTR("d.MM.yy '\u0433'."),    "d.MM.yyyy '\\u0433'." },
        { OLESTR("d 'de' M y"),           "d 'de' M yyyy"        },
        { OLESTR("y\u5E74M\u6708"),       "yyyy'\\u5E74'M'\\u6708'" },
        { OLESTR("EEE d/M/y"),            ""                     },     // the platform's dates have no such fields
        { OLESTR("d/M/y G"),              ""                     },
        { OLESTR(""),                     ""                     },
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(Narrow(detail::PlatformPattern(row.pattern)), row.platform) << Narrow(row.pattern);
}

} // namespace kr::test
