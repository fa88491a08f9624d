#include <krplatform/system/messagebox.h>

#include "tests/krplatform/system/surroundings.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace kr::test;

namespace
{

struct Shown
{
    std::basic_string<WCHAR> text;
    unsigned int style;
    unsigned int helpContext;
};
Shown s_shown;

int Remember(WCHAR const * text, unsigned int style, unsigned int helpContext)
{
    s_shown = {text, style, helpContext};
    return IDNO;
}

int AnswerCancel(WCHAR const *, unsigned int, unsigned int) { return IDCANCEL; }

class MessageBox : public testing::Test
{
protected:
    ~MessageBox() override { AfxSetMessageBoxHandler(nullptr); }
};

TEST_F(MessageBox, HandsTextStyleAndHelpContextToTheHandler)
{
    AfxSetMessageBoxHandler(Remember);
    EXPECT_EQ(AfxMessageBox(OLESTR("\u00E4 text"), MB_YESNO | MB_ICONQUESTION, 17), IDNO);
    EXPECT_EQ(Narrow(s_shown.text), "\\u00E4 text");
    EXPECT_EQ(s_shown.style, 0x24u);
    EXPECT_EQ(s_shown.helpContext, 17u);
}

TEST_F(MessageBox, HasPlainStyleAndNoHelpContextUnlessToldOtherwise)
{
    AfxSetMessageBoxHandler(Remember);
    s_shown = {{}, 9, 9};
    AfxMessageBox(OLESTR("text"));
    EXPECT_EQ(s_shown.style, MB_OK);
    EXPECT_EQ(s_shown.helpContext, 0u);
}

TEST_F(MessageBox, TakesANullTextAsEmpty)
{
    AfxSetMessageBoxHandler(Remember);
    s_shown.text = OLESTR("old");
    AfxMessageBox(nullptr);
    EXPECT_EQ(Narrow(s_shown.text), "");
}

TEST_F(MessageBox, GivesBackTheHandlerBefore)
{
    AfxMessageBoxHandler const atStart = AfxSetMessageBoxHandler(Remember);
    ASSERT_NE(atStart, nullptr);
    EXPECT_EQ(AfxSetMessageBoxHandler(AnswerCancel), Remember);
    EXPECT_EQ(AfxMessageBox(OLESTR("text")), IDCANCEL);
    EXPECT_EQ(AfxSetMessageBoxHandler(nullptr), AnswerCancel);
    EXPECT_EQ(AfxSetMessageBoxHandler(nullptr), atStart);
}

/// What is written to standard error while the box is shown.
std::string ShowAtStart(WCHAR const * text)
{
    TemporaryDirectory const directory;
    std::fflush(stderr);
    int const before = dup(STDERR_FILENO);
    int const file = open((directory / "error").c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(file, STDERR_FILENO);
    int const answer = AfxMessageBox(text, MB_YESNO | MB_ICONSTOP);
    std::fflush(stderr);
    dup2(before, STDERR_FILENO);
    close(file);
    close(before);
    EXPECT_EQ(answer, IDOK); // whatever the style
    return ReadText(directory / "error");
}

TEST_F(MessageBox, AtStartWritesTheTextToStandardError)
{
    struct Row
    {
        WCHAR const * text;
        char const * written;
    };
    // clang-format off
    Row const rows[] = {
        { OLESTR("A wall stands."),   "A wall stands.\n"          },
        { OLESTR(""),                 "\n"                        },
        { nullptr,                    "\n"                        },
        { OLESTR("two\nlines\n"),     "two\nlines\n\n"            },
        { OLESTR("100 %s"),           "100 %s\n"                  },
        { OLESTR("\u00E4\u20AC"),     "\xC3\xA4\xE2\x82\xAC\n"    },
        { OLESTR("\U0001F600"),       "\xF0\x9F\x98\x80\n"        },
        { OLESTR("a\xD800z"),         "a\xEF\xBF\xBDz\n"          },  // half a pair
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        EXPECT_EQ(ShowAtStart(row.text), row.written);
    }
}

TEST_F(MessageBox, AtStartWritesLongTextsWhole)
{
    // it is written in pieces, which must not part the two halves of a character
    for (std::size_t const length : {0u, 253u, 254u, 255u, 256u, 257u, 510u, 511u, 512u, 513u})
    {
        std::basic_string<WCHAR> const text =
            std::basic_string<WCHAR>(length, OLESTR('x')) + OLESTR("\U0001F600\u20AC");
        EXPECT_EQ(ShowAtStart(text.c_str()), std::string(length, 'x') + "\xF0\x9F\x98\x80\xE2\x82\xAC\n") << length;
    }
    EXPECT_EQ(ShowAtStart(std::basic_string<WCHAR>(1000, OLESTR('\u20AC')).c_str()).size(), 3001u);
}

TEST_F(MessageBox, AtStartNeedsNoMemory)
{
    std::size_t const before = AllAllocations();
    std::fflush(stderr);
    int const standardError = dup(STDERR_FILENO);
    int const nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDERR_FILENO);
    AfxMessageBox(OLESTR("Out of memory."));
    std::size_t const after = AllAllocations();
    dup2(standardError, STDERR_FILENO);
    close(nowhere);
    close(standardError);
    EXPECT_EQ(after, before);
}

} // namespace
