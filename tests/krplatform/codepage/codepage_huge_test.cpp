#include <krplatform/codepage/codepage.h>
#include <krplatform/system/file.h>
#include <krplatform/text/cstring.h>

#include "tests/krplatform/automation/thrown_result.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <limits>

namespace kr::test
{

namespace
{

/// Text of one unit repeated, ended by a zero: gigabytes of addresses over a few megabytes of memory.
template <class Unit>
class HugeText
{
public:
    HugeText(Unit unit, std::size_t length)
        : m_size((length * sizeof(Unit) + s_partSize - 1) / s_partSize * s_partSize),
          m_begin(mmap(nullptr, m_size + s_partSize, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0))
    {
        int const file = memfd_create("units", 0);
        m_isMade = file >= 0 && m_begin != MAP_FAILED && ftruncate(file, s_partSize) == 0;
        for (std::size_t offset = 0; m_isMade && offset < m_size; offset += s_partSize)
            m_isMade = mmap(static_cast<char *>(m_begin) + offset, s_partSize, PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_FIXED, file, 0) != MAP_FAILED;
        close(file);
        if (m_isMade)
            std::fill_n(static_cast<Unit *>(m_begin), s_partSize / sizeof(Unit), unit);
    }
    ~HugeText() { munmap(m_begin, m_size + s_partSize); }
    HugeText(HugeText const &) = delete;
    HugeText & operator=(HugeText const &) = delete;

    bool IsMade() const { return m_isMade; }
    Unit * GetUnits() const { return static_cast<Unit *>(m_begin); }

private:
    static constexpr std::size_t s_partSize = std::size_t{1} << 24;

    std::size_t m_size;
    void * m_begin;
    bool m_isMade = false;
};

} // namespace

TEST(CodePageHuge, ResultsBeyondAnIntFail)
{
    int const length = std::numeric_limits<int>::max() / 3 + 1;
    HugeText const text(WCHAR{0x3042}, static_cast<std::size_t>(length));
    ASSERT_TRUE(text.IsMade());
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, text.GetUnits(), length, nullptr, 0, nullptr, nullptr), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
}

TEST(CStringHuge, NarrowTextBeyondAnIntIsWantOfMemory)
{
    HugeText const text('\xC4', std::size_t{1} << 31);
    ASSERT_TRUE(text.IsMade());
    EXPECT_EQ(ThrownResult([&] { CString const wide(text.GetUnits()); }), E_OUTOFMEMORY);
}

TEST(CreateFileHuge, ANameWithoutRoomForItsBytesIsWantOfMemory)
{
    HugeText const name(WCHAR{0x3042}, static_cast<std::size_t>(std::numeric_limits<int>::max() / 3 + 1));
    ASSERT_TRUE(name.IsMade());
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(CreateFileW(name.GetUnits(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), ERROR_NOT_ENOUGH_MEMORY);
}

} // namespace kr::test
