#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

UINT CodePageOf(VectorRow const & row) { return static_cast<UINT>(row.GetInteger("codepage")); }

WCHAR UnitOf(VectorRow const & row) { return UnitsOfHex(row["code_unit"])[0]; }

DWORD FlagsOf(VectorRow const & row) { return static_cast<DWORD>(std::stoul(row["flags"], nullptr, 16)); }

/// Room as the row has it, and a byte behind it that must stay.
template <class Unit>
class GuardedRoom
{
public:
    explicit GuardedRoom(long long room) : m_text(static_cast<std::size_t>(room) + 1, s_guard) {}

    Unit * GetData() { return m_text.data(); }
    int GetRoom() const { return static_cast<int>(m_text.size()) - 1; }
    bool IsWhole() const { return m_text.back() == s_guard; }
    std::basic_string_view<Unit> GetFirst(int count) const
    {
        return std::basic_string_view<Unit>(m_text).substr(0, static_cast<std::size_t>(count));
    }

private:
    static constexpr Unit s_guard = 0x5A;
    std::basic_string<Unit> m_text;
};

template <class Unit>
void CheckAnswer(VectorRow const & row, int returned, GuardedRoom<Unit> const & room)
{
    EXPECT_EQ(returned, row.GetInteger("returns"));
    EXPECT_TRUE(room.IsWhole());
    if (returned != 0 && room.GetRoom() != 0)
    {
        EXPECT_EQ(HexOf(room.GetFirst(returned)), row["output"]);
    }
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(row.GetInteger("last_error")));
}

void CheckNarrowing(VectorRow const & row)
{
    std::basic_string<WCHAR> const text = UnitsOfHex(row["input"]);
    GuardedRoom<char> room(row.GetInteger("room"));
    bool const asksUsedDefault = row["asks_used_default"] == "1";
    BOOL usedDefault = 17;
    SetLastError(ERROR_SUCCESS);
    int const returned =
        WideCharToMultiByte(CodePageOf(row), FlagsOf(row), text.c_str(), static_cast<int>(row.GetInteger("length")),
                            room.GetData(), room.GetRoom(), nullptr, asksUsedDefault ? &usedDefault : nullptr);
    CheckAnswer(row, returned, room);
    if (row["used_default"] != "-")
    {
        EXPECT_EQ(usedDefault, row.GetInteger("used_default"));
    }
}

void CheckWidening(VectorRow const & row)
{
    std::string const bytes = BytesOfHex(row["input"]);
    GuardedRoom<WCHAR> room(row.GetInteger("room"));
    SetLastError(ERROR_SUCCESS);
    int const returned =
        MultiByteToWideChar(CodePageOf(row), FlagsOf(row), bytes.c_str(), static_cast<int>(row.GetInteger("length")),
                            room.GetData(), room.GetRoom());
    CheckAnswer(row, returned, room);
}

} // namespace

TEST(CodePageVectors, EdgeCasesAnswerAsThePlatform)
{
    VectorFile const file("codepage_facts");
    for (VectorRow const & row : file.GetRows())
    {
        SCOPED_TRACE(row.ToString());
        if (row["function"] == "WideCharToMultiByte")
            CheckNarrowing(row); // the doubtful rows agree too: all speak of the flags that 65001 takes
        else
            CheckWidening(row);
    }
}

TEST(CodePageVectors, UnitsBecomeThePlatformsBytes)
{
    VectorFile const file("codepage_from_unicode");
    for (VectorRow const & row : file.GetRows())
    {
        ASSERT_EQ(NarrowUnit(CodePageOf(row), WC_NO_BEST_FIT_CHARS, UnitOf(row)), row["exact"]) << row.ToString();
        ASSERT_EQ(NarrowUnit(CodePageOf(row), 0, UnitOf(row)), row["bestfit"]) << row.ToString();
    }
}

TEST(CodePageVectors, BytesBecomeThePlatformsUnits)
{
    VectorFile const file("codepage_to_unicode");
    for (VectorRow const & row : file.GetRows())
        ASSERT_EQ(WidenToUnit(CodePageOf(row), MB_ERR_INVALID_CHARS, BytesOfHex(row["bytes"])), row["code_unit"])
            << row.ToString();
}

TEST(CodePageVectors, UnitsBecomeThePlatformsUtf8)
{
    VectorFile const file("codepage_utf8");
    for (VectorRow const & row : file.GetRows())
    {
        WCHAR const unit = UnitOf(row);
        char bytes[4];
        int const count = WideCharToMultiByte(CP_UTF8, 0, &unit, 1, bytes, 4, nullptr, nullptr);
        EXPECT_EQ(HexOf({bytes, static_cast<std::size_t>(count)}), row["bytes"]) << row.ToString();
    }
}

} // namespace kr::test
