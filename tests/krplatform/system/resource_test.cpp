#include <krplatform/system/resource.h>

#include "tests/krplatform/system/test_modules.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

using namespace kr::test;

// The strings of the program. It is not built to export anything: the library it is linked with asks for them.
extern "C" AfxStringEntry const AfxStringTable[] = {{100, OLESTR("program")}, {0, nullptr}};

namespace
{

class LoadString : public testing::Test
{
protected:
    TemporaryDirectory m_directory;
    LoadedForTest m_module{CopyModule("kr_plain.so", m_directory)};
    WCHAR m_buffer[20] = OLESTR("old");
};

TEST_F(LoadString, CopiesTheStringOfThatNumber)
{
    struct Row
    {
        UINT id;
        std::basic_string<WCHAR> text;
        int length;
        DWORD error;
    };
    // clang-format off
    Row const rows[] = {
        { 500,        OLESTR("wall"),                   4, ERROR_SUCCESS                 },
        { 501,        OLESTR(""),                       0, ERROR_SUCCESS                 },
        { 502,        OLESTR("first"),                  5, ERROR_SUCCESS                 },  // the first row counts
        { 0xFFFFFFFF, OLESTR("\u00E4 and \U0001F600"),  8, ERROR_SUCCESS                 },  // 32 bits, not 16
        { 0,          OLESTR("zero"),                   4, ERROR_SUCCESS                 },
        { 503,        OLESTR(""),                       0, ERROR_RESOURCE_NAME_NOT_FOUND },  // the end
        { 504,        OLESTR(""),                       0, ERROR_RESOURCE_NAME_NOT_FOUND },  // behind it
        { 0xFFFF,     OLESTR(""),                       0, ERROR_RESOURCE_NAME_NOT_FOUND },
        { 100,        OLESTR(""),                       0, ERROR_RESOURCE_NAME_NOT_FOUND },  // of the program
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.id);
        SetLastError(ERROR_SUCCESS);
        EXPECT_EQ(LoadStringW(m_module, row.id, m_buffer, 20), row.length);
        EXPECT_EQ(GetLastError(), row.error);
        EXPECT_EQ(Narrow(m_buffer), Narrow(row.text));
    }
}

TEST_F(LoadString, CutsWhatDoesNotFit)
{
    struct Row
    {
        int size;
        int length;
        char const * text;
    };
    // clang-format off
    Row const rows[] = {
        { 6, 4, "wall" },
        { 5, 4, "wall" },
        { 4, 3, "wal"  },
        { 2, 1, "w"    },
        { 1, 0, ""     },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.size);
        std::fill_n(m_buffer, 20, OLESTR('#'));
        EXPECT_EQ(LoadStringW(m_module, 500, m_buffer, row.size), row.length);
        EXPECT_EQ(Narrow(m_buffer), row.text);
        EXPECT_EQ(m_buffer[row.size], OLESTR('#'));
    }
}

TEST_F(LoadString, HandsOutTheStringItselfForASizeOfZero)
{
    WCHAR const * text = OLESTR("old");
    auto const buffer = reinterpret_cast<WCHAR *>(&text);
    EXPECT_EQ(LoadStringW(m_module, 500, buffer, 0), 4);
    EXPECT_EQ(Narrow(text), "wall");
    EXPECT_EQ(AfxModuleFromAddress(text), m_module);
    EXPECT_EQ(LoadStringW(m_module, 501, buffer, 0), 0);
    EXPECT_EQ(Narrow(text), ""); // empty, not missing
    EXPECT_EQ(LoadStringW(m_module, 999, buffer, 0), 0);
    EXPECT_EQ(text, nullptr);
}

TEST_F(LoadString, RefusesNoBufferAndNegativeSizes)
{
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(LoadStringW(m_module, 500, m_buffer, -1), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Narrow(m_buffer), "old");
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(LoadStringW(m_module, 500, nullptr, 10), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    EXPECT_EQ(LoadStringW(m_module, 500, nullptr, 0), 0);
}

TEST_F(LoadString, ReadsTheProgramForANullModule)
{
    EXPECT_EQ(LoadStringW(nullptr, 100, m_buffer, 20), 7);
    EXPECT_EQ(Narrow(m_buffer), "program");
    EXPECT_EQ(LoadStringW(GetModuleHandleW(nullptr), 100, m_buffer, 20), 7);
    EXPECT_EQ(LoadStringW(nullptr, 500, m_buffer, 20), 0);
}

TEST_F(LoadString, FindsNothingInAModuleWithoutStringsWhoseLibraryHasSome)
{
    for (char const * const name : {"kr_middle.so", "kr_leaf.so"})
        CopyModule(name, m_directory);
    HMODULE const module =
        LoadLibraryExW(NameOf(m_directory / "kr_middle.so").c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(LoadStringW(GetModuleHandleW(OLESTR("kr_leaf")), 700, m_buffer, 20), 4);
    EXPECT_EQ(LoadStringW(module, 700, m_buffer, 20), 0);
    EXPECT_EQ(GetLastError(), ERROR_RESOURCE_NAME_NOT_FOUND);
    EXPECT_TRUE(FreeLibrary(module));
}

TEST_F(LoadString, RefusesAModuleThatHasLeft)
{
    HMODULE const stale = m_module.Free();
    EXPECT_EQ(LoadStringW(stale, 500, m_buffer, 20), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_HANDLE);
    EXPECT_EQ(Narrow(m_buffer), "");
}

TEST_F(LoadString, NeedsNoMemory)
{
    std::size_t const before = AllAllocations();
    EXPECT_EQ(LoadStringW(m_module, 500, m_buffer, 20), 4);
    EXPECT_EQ(AllAllocations(), before);
}

TEST_F(LoadString, CurrentModuleIsTheProgramUntilAnotherIsSet)
{
    HMODULE const program = GetModuleHandleW(nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), program);
    AfxSetResourceHandle(m_module);
    EXPECT_EQ(AfxGetResourceHandle(), m_module);
    AfxSetResourceHandle(nullptr);
    EXPECT_EQ(AfxGetResourceHandle(), program);
}

} // namespace
