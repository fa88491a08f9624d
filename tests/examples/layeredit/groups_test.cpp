#include <examples/layeredit/groups.h>
#include <examples/layeredit/progress.h>

#include <gtest/gtest.h>

#include <sstream>

namespace layeredit
{

namespace
{

/// "code:value@offset/line" of each group, and what ends them.
std::string GroupsIn(std::string const & text)
{
    std::istringstream file(text);
    Progress progress(CString(), nullptr);
    GroupStream stream(file, 0, text.size(), progress);
    std::string result;
    Group group;
    for (;;)
    {
        Taken const taken = stream.Next(group);
        std::string const place = "@" + std::to_string(stream.GetOffset()) + "/" + std::to_string(stream.GetLine());
        if (taken == Taken::Group)
            result += std::to_string(group.code) + ":" + std::string(group.value) + place + " ";
        else if (taken == Taken::BadCode)
            return result + "bad " + std::string(group.codeLine) + place;
        else
            return result + (taken == Taken::End ? "end" : "cut off") + place;
    }
}

} // namespace

TEST(DrawingGroups, ConsistOfACodeAndAValueOnALineEach)
{
    // clang-format off
    struct { std::string text; std::string groups; } const rows[] = {
        { "",                          "end@0/1"                                 },
        { "  0\nEOF\n",                "0:EOF@0/1 end@8/3"                       },
        { "  0\r\nEOF\r\n",            "0:EOF@0/1 end@10/3"                      },
        { "0\nEOF",                    "0:EOF@0/1 end@5/3"                       },
        { "\t 10 \n 1.5 \n",           "10: 1.5 @0/1 end@12/3"                   },
        { "  1\n\n  2\na\n",           "1:@0/1 2:a@5/3 end@11/5"                 },
        { "  0\nEOF\n\n \n\x1A",       "0:EOF@0/1 end@8/3"                       },
        { "  0\nA\n\n  0\nB\n",        "0:A@0/1 bad @6/3"                        },
        { "  0\n",                     "cut off@0/1"                             },
        { "  0",                       "cut off@0/1"                             },
        { "x\ny\n",                    "bad x@0/1"                               },
        { "1.0\ny\n",                  "bad 1.0@0/1"                             },
        { "1 0\ny\n",                  "bad 1 0@0/1"                             },
        { "-5\ny\n",                   "-5:y@0/1 end@5/3"                        },
        { "-6\ny\n",                   "bad -6@0/1"                              },
        { "1071\ny\n",                 "1071:y@0/1 end@7/3"                      },
        { "1072\ny\n",                 "bad 1072@0/1"                            },
        { "99999999999\ny\n",          "bad 99999999999@0/1"                     },
        { std::string("  1\na\0b\n", 8), std::string("1:a\0b@0/1 end@8/3", 17)   },
        { "  1\na\rb\n",               "1:a\rb@0/1 end@8/3"                      },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(GroupsIn(row.text), row.groups) << row.text;
}

TEST(DrawingGroups, AreTheSameAtEveryPlaceOfTheBuffer)
{
    for (std::size_t shift = 0; shift < 24; ++shift)
    {
        std::string const filler = "  1\n" + std::string(262'144 - 20 + shift, 'x') + "\n";
        std::string const groups = GroupsIn(filler + " 62\r\n     7\r\n  0\r\nEOF\r\n\n\n");
        std::string const offset = std::to_string(filler.size()), next = std::to_string(filler.size() + 13);
        std::string const last = std::to_string(filler.size() + 23);
        EXPECT_TRUE(groups.ends_with(" 62:     7@" + offset + "/3 0:EOF@" + next + "/5 end@" + last + "/7"))
            << shift << groups.substr(groups.size() - 60);
    }
}

TEST(DrawingGroups, AValueBeyondTheBufferIsCutAndPassedOver)
{
    for (std::size_t const length : {262'140u, 262'141u, 300'000u, 524'288u, 900'000u})
    {
        std::string const text = "  1\n" + std::string(length, 'x') + "\n  0\nEOF\n";
        std::istringstream file(text);
        Progress progress(CString(), nullptr);
        GroupStream stream(file, 0, text.size(), progress);
        Group group;
        ASSERT_EQ(stream.Next(group), Taken::Group);
        EXPECT_EQ(group.code, 1);
        EXPECT_TRUE(group.isCut);
        EXPECT_EQ(group.value, std::string(1020, 'x'));
        ASSERT_EQ(stream.Next(group), Taken::Group);
        EXPECT_FALSE(group.isCut);
        EXPECT_EQ(group.value, "EOF");
        EXPECT_EQ(stream.GetLine(), 3);
        EXPECT_EQ(stream.GetOffset(), length + 5);
    }
}

TEST(DrawingGroups, NumbersMayHaveBlanksAroundThemAndNothingElse)
{
    int number = 42;
    EXPECT_TRUE(ReadNumber(" -7\t", number));
    EXPECT_EQ(number, -7);
    for (char const * const text : {"", " ", "x", "7x", "7.5", "+7", "99999999999", "1 2"})
        EXPECT_FALSE(ReadNumber(text, number)) << text;
    EXPECT_EQ(number, -7);
    std::uint64_t handle = 0;
    EXPECT_TRUE(ReadNumber("fFfF", handle, 16));
    EXPECT_EQ(handle, 0xFFFFu);
}

} // namespace layeredit
