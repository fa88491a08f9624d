#include <krcore/graphics/krcolor.h>

#include "tests/graphics/color_fields.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <climits>

using kr::test::FieldsOf;
using kr::test::Narrow;

namespace
{

CKrColor InSpace(CKrColor color, int space)
{
    color.SetColorSpace(static_cast<CKrColor::ColorSpace>(space));
    return color;
}

CKrColor Parsed(CString const & text)
{
    CKrColor color;
    color.Parse(text);
    return color;
}

} // namespace

TEST(CKrColorFormat, WritesEachColourSpaceInItsForm)
{
    struct Row
    {
        CKrColor color;
        WCHAR const * text;
        WCHAR const * hexText;
    };
    // clang-format off
    Row const rows[] = {
        { CKrColor::NoColor(),                OLESTR("NOCOLOR"),          OLESTR("NOCOLOR")  },
        { CKrColor(256),                      OLESTR("BYLAYER"),          OLESTR("BYLAYER")  },
        { InSpace(CKrColor(257), 3),          OLESTR("NOCOLOR"),          OLESTR("NOCOLOR")  },  // by its index
        { InSpace(CKrColor(5), 12),           OLESTR("NOCOLOR"),          OLESTR("NOCOLOR")  },
        { InSpace(CKrColor(256), 12),         OLESTR("NOCOLOR"),          OLESTR("NOCOLOR")  },
        { CKrColor(0),                        OLESTR("0"),                OLESTR("0")        },
        { CKrColor(12),                       OLESTR("12"),               OLESTR("12")       },
        { CKrColor(255),                      OLESTR("255"),              OLESTR("255")      },
        { CKrColor(258),                      OLESTR("258"),              OLESTR("258")      },
        { CKrColor(-1),                       OLESTR("-1"),               OLESTR("-1")       },
        { CKrColor(SHRT_MAX),                 OLESTR("32767"),            OLESTR("32767")    },
        { CKrColor(SHRT_MIN),                 OLESTR("-32768"),           OLESTR("-32768")   },
        { CKrColor(),                         OLESTR("RGB(0,0,0)"),       OLESTR("#000000")  },
        { CKrColor(1u, 20u, 200u),            OLESTR("RGB(1,20,200)"),    OLESTR("#0114c8")  },
        { CKrColor(255, 128, 0),              OLESTR("RGB(255,128,0)"),   OLESTR("#ff8000")  },  // digits in lower case
        { CKrColor(255, 255, 255),            OLESTR("RGB(255,255,255)"), OLESTR("#ffffff")  },
        { CKrColor(171, 205, 239),            OLESTR("RGB(171,205,239)"), OLESTR("#abcdef")  },
        { InSpace(CKrColor(1u, 2u, 3u), 11),  OLESTR(""),                 OLESTR("")         },  // Deliberate: empty
        { InSpace(CKrColor(256), 11),         OLESTR(""),                 OLESTR("")         },
        { InSpace(CKrColor(1u, 2u, 3u), 0),   OLESTR(""),                 OLESTR("")         },  // and so any other
        { InSpace(CKrColor(257), 2),          OLESTR(""),                 OLESTR("")         },
        { InSpace(CKrColor(257), -3),         OLESTR(""),                 OLESTR("")         },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << FieldsOf(row.color));
        EXPECT_EQ(row.color.Format(false), row.text);
        EXPECT_EQ(row.color.Format(true), row.hexText);
    }
}

TEST(CKrColorFormat, DoesNotWriteAlpha)
{
    CKrColor color(1u, 2u, 3u);
    color.SetAlpha(200);
    EXPECT_EQ(color.Format(false), OLESTR("RGB(1,2,3)"));
    EXPECT_EQ(color.Format(true), OLESTR("#010203"));
}

TEST(CKrColorFormat, WritesEveryByteAsTheRuntimeDoes)
{
    for (unsigned int value = 0; value < 256; ++value)
    {
        CKrColor const color(value, 255 - value, value ^ 0x55);
        CString expected;
        expected.Format(OLESTR("#%02x%02x%02x"), value, 255 - value, value ^ 0x55);
        EXPECT_EQ(color.Format(true), expected);
        expected.Format(OLESTR("RGB(%d,%d,%d)"), value, 255 - value, value ^ 0x55);
        EXPECT_EQ(color.Format(false), expected);
    }
}

TEST(CKrColorFormat, WritesEveryIndexAsTheRuntimeDoes)
{
    CString expected;
    for (int index = SHRT_MIN; index <= SHRT_MAX; ++index)
    {
        if (index == 256 || index == 257) // these have words
            continue;
        expected.Format(OLESTR("%d"), index);
        ASSERT_EQ(CKrColor(index).Format(false), expected);
    }
}

TEST(CKrColorFormat, WritesWhatParseReadsBack)
{
    for (int index = SHRT_MIN; index <= SHRT_MAX; ++index)
    {
        CKrColor const color(index);
        ASSERT_EQ(FieldsOf(Parsed(color.Format(false))), FieldsOf(color));
    }
    for (unsigned long colorRef = 0; colorRef < 0x1000000; colorRef += 997)
    {
        CKrColor const color(colorRef);
        ASSERT_EQ(FieldsOf(Parsed(color.Format(false))), FieldsOf(color));
        ASSERT_EQ(FieldsOf(Parsed(color.Format(true))), FieldsOf(color));
    }
    EXPECT_EQ(FieldsOf(Parsed(CKrColor::NoColor().Format(false))), FieldsOf(CKrColor::NoColor()));
}

TEST(CKrColorFormat, LosesAnInheritedColour)
{
    CKrColor color(1u, 2u, 3u);
    color.SetInheritedColor();
    EXPECT_TRUE(Parsed(color.Format(false)).IsNoColor()); // Deliberate: empty text is no colour
}

TEST(CKrColorFormat, ThrowsWithoutMemoryAndLeavesNothingBehind)
{
    CKrColor const color(1u, 2u, 3u);
    std::size_t const failures =
        kr::test::FailEveryAllocation([&] { EXPECT_EQ(color.Format(true), OLESTR("#010203")); },
                                      []
                                      {
                                          try
                                          {
                                              throw;
                                          }
                                          catch (CMemoryException * exception)
                                          {
                                              exception->Delete();
                                          }
                                      });
    EXPECT_EQ(failures, 1u);
    EXPECT_EQ(FieldsOf(color), FieldsOf(CKrColor(1u, 2u, 3u)));
}
