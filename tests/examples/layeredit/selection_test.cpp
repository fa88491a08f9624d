#include <examples/layeredit/selection.h>

#include <gtest/gtest.h>

namespace layeredit
{

TEST(LayerSelection, PatternsMatchWholeNames)
{
    struct Row
    {
        WCHAR const * text;
        WCHAR const * pattern;
        bool isMatch;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("A-WALL"),  OLESTR("A-*"),      true  }, { OLESTR("A-WALL"),  OLESTR("a-w?ll"),   true  },
        { OLESTR("A-WALL"),  OLESTR("A-WAL"),    false }, { OLESTR("A-WALL"),  OLESTR("WALL"),     false },
        { OLESTR("A-WALL"),  OLESTR("*"),        true  }, { OLESTR("A-WALL"),  OLESTR("*wall"),    true  },
        { OLESTR("A-WALL"),  OLESTR("*a*l*"),    true  }, { OLESTR("A-WALL"),  OLESTR("*l?"),      true  },
        { OLESTR("A-WALL"),  OLESTR("*x*"),      false }, { OLESTR("A-WALL"),  OLESTR("A-WALL?"),  false },
        { OLESTR("A-WALL"),  OLESTR("A-WALL**"), true  }, { OLESTR("A-WALL"),  OLESTR("??????"),   true  },
        { OLESTR("aab"),     OLESTR("*ab"),      true  }, { OLESTR("abab!"),   OLESTR("*ab!"),     true  },
        { OLESTR(""),        OLESTR("*"),        true  }, { OLESTR(""),        OLESTR("?"),        false },
        { OLESTR(""),        OLESTR(""),         true  }, { OLESTR("a"),       OLESTR(""),         false },
        { OLESTR("\u00C4"),  OLESTR("\u00E4"),   true  }, { OLESTR("\u0416x"), OLESTR("\u0436?"),  true  },
        { OLESTR("\U0001F600"), OLESTR("?"),     true  }, // one character of two units
        { OLESTR("\U0001F600"), OLESTR("??"),    false },
        { OLESTR("[a]"),     OLESTR("[a]"),      true  }, // nothing else has a meaning
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(MatchesPattern(row.text, row.pattern), row.isMatch)
            << CString(row.text) << " " << CString(row.pattern);
}

} // namespace layeredit
