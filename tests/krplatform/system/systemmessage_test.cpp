#include <krplatform/linux/systemmessage_table.h>
#include <krplatform/system/systemmessage.h>

#include "tests/krplatform/system/surroundings.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace kr::test;
using kr::detail::s_systemMessages;

namespace
{

using Text = std::basic_string<WCHAR>;

constexpr DWORD fromSystem = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;

/// The message as a system function gives it, "\none" if there is none.
std::string MessageOf(DWORD code)
{
    WCHAR buffer[200];
    DWORD const length = FormatMessageW(fromSystem, nullptr, code, 0, buffer, 200, nullptr);
    if (length == 0)
        return "\\none";
    EXPECT_EQ(Text(buffer).size(), length);
    return Narrow(Text(buffer));
}

TEST(FormatMessage, GivesTheMessageOfACode)
{
    struct Row
    {
        DWORD code;
        char const * message;
    };
    // clang-format off
    Row const rows[] = {
        { 0,          "The operation succeeded."                          },
        { 2,          "The file was not found."                           },
        { 5,          "Access is denied."                                 },
        { 32,         "The file is in use by another process."            },
        { 87,         "The parameter is incorrect."                       },
        { 1814,       "The named resource was not found in the module."   },
        { 0x8000FFFF, "Catastrophic failure"                              },
        { 0x80004001, "Not implemented"                                   },
        { 0x80004005, "Unspecified error"                                 },
        { 0x80020005, "Type mismatch."                                    },
        { 0x8002000A, "The value is out of range."                        },
        { 0x80040154, "The class is not registered."                      },
        { 0x80070057, "The parameter is incorrect."                       },  // the code 87
        { 0x8007000E, "There is not enough memory to complete this operation." },
        { 0x80070002, "The file was not found."                           },
        { 0x80070000, "The operation succeeded."                          },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.code);
        EXPECT_EQ(MessageOf(row.code), std::string(row.message) + "\\u000D\\u000A");
    }
}

TEST(FormatMessage, HasNoTextForUnknownCodes)
{
    // clang-format off
    DWORD const codes[] = {
        7, 1813 + 100, 65535, 0xFFFFFFFF, 0x7FFFFFFF,
        0x80070007, 0x8007FFFF,              // of no code that has one
        0x00070002, 0x80060002, 0xC0070002,  // not of that form
        0x80040200, 0x80040205, 0x8004FFFF,  // an interface's own
    };
    // clang-format on
    for (DWORD const code : codes)
    {
        SCOPED_TRACE(code);
        SetLastError(ERROR_SUCCESS);
        WCHAR buffer[200] = OLESTR("old");
        EXPECT_EQ(FormatMessageW(fromSystem, nullptr, code, 0, buffer, 200, nullptr), 0u);
        EXPECT_EQ(GetLastError(), ERROR_MR_MID_NOT_FOUND);
        EXPECT_EQ(Narrow(buffer), "old");
    }
}

TEST(FormatMessage, HasATableOfProperTexts)
{
    ASSERT_GT(std::size(s_systemMessages), 100u);
    for (auto const & row : s_systemMessages)
    {
        Text const text = row.text;
        SCOPED_TRACE(std::to_string(row.code) + " " + Narrow(text));
        EXPECT_EQ(MessageOf(row.code), Narrow(text) + "\\u000D\\u000A");
        EXPECT_TRUE(text.front() >= OLESTR('A') && text.front() <= OLESTR('Z'));
        EXPECT_NE(text.back(), OLESTR(' '));
        EXPECT_TRUE(std::ranges::all_of(text, [](WCHAR unit) { return unit >= 0x20 && unit < 0x7F; }));
        EXPECT_EQ(text.find(OLESTR('%')), text.npos); // a place for an argument
        EXPECT_NE(row.code & 0xFFFF0000, 0x80070000); // stands under its code
    }
}

TEST(FormatMessage, HasATableThatAscendsWithoutDuplicates)
{
    for (std::size_t index = 1; index < std::size(s_systemMessages); ++index)
        EXPECT_LT(s_systemMessages[index - 1].code, s_systemMessages[index].code);
}

TEST(FormatMessage, AllocatesTextOfItsOwn)
{
    std::size_t const before = LiveAllocations();
    WCHAR * text = nullptr;
    DWORD const length = FormatMessageW(fromSystem | FORMAT_MESSAGE_ALLOCATE_BUFFER, nullptr, 5, 0x400,
                                        reinterpret_cast<WCHAR *>(&text), 0, nullptr);
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(length, 19u);
    EXPECT_EQ(Narrow(text), "Access is denied.\\u000D\\u000A");
    EXPECT_EQ(LiveAllocations(), before + 1);
    EXPECT_EQ(LocalFree(text), nullptr);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(FormatMessage, AllocatesRoomForAsManyUnitsAsAreAskedFor)
{
    WCHAR * text = nullptr;
    FormatMessageW(fromSystem | FORMAT_MESSAGE_ALLOCATE_BUFFER, nullptr, 5, 0, reinterpret_cast<WCHAR *>(&text), 1000,
                   nullptr);
    ASSERT_NE(text, nullptr);
    std::fill_n(text, 1000, OLESTR('x'));
    LocalFree(text);
}

TEST(FormatMessage, GivesNoTextWhenMemoryRunsOut)
{
    WCHAR filler = 0;
    WCHAR * text = &filler;
    std::size_t const failures = FailEveryAllocationOf(
        [&]
        {
            bool const succeeded = FormatMessageW(fromSystem | FORMAT_MESSAGE_ALLOCATE_BUFFER, nullptr, 5, 0,
                                                  reinterpret_cast<WCHAR *>(&text), 0, nullptr) != 0;
            EXPECT_EQ(text != nullptr, succeeded);
            LocalFree(text);
            return succeeded;
        });
    EXPECT_EQ(failures, 1u);
}

TEST(FormatMessage, LeavesNoPointerForAnUnknownCode)
{
    WCHAR filler = 0;
    WCHAR * text = &filler;
    EXPECT_EQ(FormatMessageW(fromSystem | FORMAT_MESSAGE_ALLOCATE_BUFFER, nullptr, 0xFFFFFFFF, 0,
                             reinterpret_cast<WCHAR *>(&text), 0, nullptr),
              0u);
    EXPECT_EQ(text, nullptr);
}

TEST(FormatMessage, NeedsRoomForTheTextAndItsEnd)
{
    struct Row
    {
        DWORD size;
        DWORD length;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { 20, 19, ERROR_SUCCESS             },
        { 19,  0, ERROR_INSUFFICIENT_BUFFER },
        { 1,   0, ERROR_INSUFFICIENT_BUFFER },
        { 0,   0, ERROR_INSUFFICIENT_BUFFER },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.size);
        WCHAR buffer[21];
        std::fill_n(buffer, 21, OLESTR('#'));
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(FormatMessageW(fromSystem, nullptr, 5, 0, buffer, row.size, nullptr), row.length);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(buffer[row.size], OLESTR('#'));
        EXPECT_EQ(buffer[0] == OLESTR('#'), row.length == 0);
    }
}

TEST(FormatMessage, RefusesOtherSourcesAndNoBuffer)
{
    WCHAR buffer[200] = OLESTR("old");
    for (DWORD const flags : {0u, FORMAT_MESSAGE_IGNORE_INSERTS, 0x0400u, 0x0800u})
    {
        SCOPED_TRACE(flags);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(FormatMessageW(flags, nullptr, 5, 0, buffer, 200, nullptr), 0u);
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(Narrow(buffer), "old");
    }
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(FormatMessageW(fromSystem, nullptr, 5, 0, nullptr, 200, nullptr), 0u);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(LocalFree, TakesNull) { EXPECT_EQ(LocalFree(nullptr), nullptr); }

} // namespace
