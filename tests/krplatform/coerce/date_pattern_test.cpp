#include <krplatform/coerce/date_pattern.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <string>

namespace kr::test
{

namespace
{

/// The pieces of a pattern: fields in angle brackets, literals in square ones.
std::string Pieces(detail::TextView pattern)
{
    std::string shown;
    std::size_t position = 0;
    for (detail::PatternPiece piece; detail::NextPiece(pattern, position, piece);)
    {
        std::string const text = Narrow(piece.In(pattern));
        shown += piece.letter ? "<" + text + ">" : "[" + text + "]";
    }
    EXPECT_EQ(position, pattern.size());
    return shown;
}

} // namespace

TEST(DatePattern, FallsIntoRunsOfOneLetterAndLiterals)
{
    struct Row
    {
        WCHAR const * pattern;
        char const * pieces;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR(""),                    ""                                        },
        { OLESTR("MM/dd/yyyy"),          "<MM>[/]<dd>[/]<yyyy>"                    },
        { OLESTR("h:mm:ss tt"),          "<h>[:]<mm>[:]<ss>[ ]<tt>"                },
        { OLESTR("yyyy. MM. dd."),       "<yyyy>[. ]<MM>[. ]<dd>[.]"               },
        { OLESTR("ttHmm"),               "<tt><H><mm>"                             },
        { OLESTR("d 'de' MMMM"),         "<d>[ ][de][ ]<MMMM>"                     },
        { OLESTR("d''M"),                "<d><M>"                                  },   // nothing between quotes
        { OLESTR("'d"),                  "[d]"                                     },   // a quote without its partner
        { OLESTR("d'"),                  "<d>"                                     },
        { OLESTR("yyyy\u5E74M\u6708"),   "<yyyy>[\\u5E74]<M>[\\u6708]"             },   // only ASCII letters are fields
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.pattern));
        EXPECT_EQ(Pieces(row.pattern), row.pieces);
    }
}

TEST(DatePattern, GivesTheLetterOfARun)
{
    detail::PatternPiece piece = {};
    std::size_t position = 0;
    EXPECT_TRUE(detail::NextPiece(OLESTR("MMM"), position, piece));
    EXPECT_EQ(piece.letter, OLESTR('M'));
    EXPECT_FALSE(detail::NextPiece(OLESTR("MMM"), position, piece));
}

TEST(DatePattern, ReadsNoMoreThanAPieceCanName)
{
    std::basic_string<WCHAR> const longPattern(70000, OLESTR('d'));
    std::size_t position = 0;
    detail::PatternPiece piece = {};
    EXPECT_TRUE(detail::NextPiece(longPattern, position, piece));
    EXPECT_EQ(piece.length, 65535);
    EXPECT_FALSE(detail::NextPiece(longPattern, position, piece));
}

} // namespace kr::test
