#include <krplatform/system/environment.h>

#include "tests/krplatform/system/surroundings.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

using namespace kr::test;

namespace
{

/// A variable of the environment for the time of a test.
class Variable
{
public:
    Variable(char const * name, char const * value) : m_name(name) { setenv(name, value, 1); }
    ~Variable() { unsetenv(m_name); }
    Variable(Variable const &) = delete;
    Variable & operator=(Variable const &) = delete;

private:
    char const * m_name;
};

struct Freed
{
    void operator()(WCHAR * text) const { std::free(text); }
};
using Text = std::unique_ptr<WCHAR, Freed>;

/// The value, checked against the count; null if it is not set.
Text Read(WCHAR const * name)
{
    WCHAR filler = 0;
    WCHAR * buffer = &filler;
    std::size_t count = 77;
    EXPECT_EQ(_wdupenv_s(&buffer, &count, name), 0);
    EXPECT_EQ(count, buffer ? std::basic_string<WCHAR>(buffer).size() + 1 : 0);
    return Text(buffer);
}

TEST(Environment, GivesTheValueOfAVariable)
{
    struct Row
    {
        char const * value;
        WCHAR const * text;
    };
    // clang-format off
    Row const rows[] = {
        { "true",                               OLESTR("true")                    },
        { "",                                   OLESTR("")                        },
        { " a=b ",                              OLESTR(" a=b ")                   },
        { "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80", OLESTR("\u00E4\u20AC\U0001F600") },
        { "a\xFFz",                             OLESTR("a\uFFFDz")                },  // no UTF-8
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.value);
        Variable const variable("KR_TEST_VARIABLE", row.value);
        EXPECT_EQ(Narrow(Read(OLESTR("KR_TEST_VARIABLE")).get()), Narrow(row.text));
    }
}

TEST(Environment, TakesNamesInUTF8)
{
    Variable const variable("KR_TEST_\xC3\xA4", "umlaut");
    EXPECT_EQ(Narrow(Read(OLESTR("KR_TEST_\u00E4")).get()), "umlaut");
}

TEST(Environment, GivesNullForWhatIsNotSet)
{
    Variable const variable("KR_TEST_VARIABLE", "b=c");
    for (WCHAR const * const name : {OLESTR("KR_TEST_NONE"), OLESTR("kr_test_variable"), OLESTR(""),
                                     OLESTR("KR_TEST_VARIABLE=b"), OLESTR("\xD800")})
    {
        SCOPED_TRACE(Narrow(name));
        EXPECT_EQ(Read(name), nullptr);
    }
}

TEST(Environment, MayBeAskedWithoutTheCount)
{
    Variable const variable("KR_TEST_VARIABLE", "true");
    WCHAR * buffer = nullptr;
    EXPECT_EQ(_wdupenv_s(&buffer, nullptr, OLESTR("KR_TEST_VARIABLE")), 0);
    EXPECT_EQ(Narrow(Text(buffer).get()), "true");
}

TEST(Environment, RefusesNullArguments)
{
    WCHAR filler = 0;
    WCHAR * buffer = &filler;
    std::size_t count = 77;
    EXPECT_EQ(_wdupenv_s(&buffer, &count, nullptr), EINVAL);
    EXPECT_EQ(buffer, nullptr);
    EXPECT_EQ(count, 0u);
    count = 77;
    EXPECT_EQ(_wdupenv_s(nullptr, &count, OLESTR("PATH")), EINVAL);
    EXPECT_EQ(count, 0u);
}

TEST(Environment, SaysWhenMemoryRunsOut)
{
    Variable const variable("KR_TEST_VARIABLE_WITH_A_LONG_NAME", "a value that is longer than any small text");
    for (std::size_t n = 1; n <= 2; ++n)
    {
        SCOPED_TRACE(n);
        WCHAR filler = 0;
        WCHAR * buffer = &filler;
        std::size_t count = 77;
        std::size_t const before = LiveAllocations();
        {
            FailNthAllocation const fail(n);
            EXPECT_EQ(_wdupenv_s(&buffer, &count, OLESTR("KR_TEST_VARIABLE_WITH_A_LONG_NAME")), ENOMEM);
        }
        EXPECT_EQ(buffer, nullptr);
        EXPECT_EQ(count, 0u);
        EXPECT_EQ(LiveAllocations(), before);
    }
}

} // namespace
