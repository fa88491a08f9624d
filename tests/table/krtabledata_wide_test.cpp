// Tables of many columns, whose keys are looked up: they answer as a search from the first column to the last does,
// whatever changes the columns.
#include <krcore/table/krtabledata.h>

#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace
{

/// The rule, slow and obvious: keys in the order of the columns, each with a text that tells the column apart.
class NaiveTable
{
public:
    struct Column
    {
        CString key;
        CString mark;
    };

    CString KeyFor(CString const & name) const
    {
        if (name.Find(OLESTR("_#")) > 0)
            return name;
        for (int counter = 0;; ++counter)
        {
            CString key;
            key.Format(OLESTR("%s_#%d#"), name, counter);
            if (Find(key) == columns.end())
                return key;
        }
    }
    std::vector<Column>::const_iterator Find(CString const & key) const
    {
        return std::find_if(columns.begin(), columns.end(), [&](Column const & column) { return column.key == key; });
    }
    CString MarkOf(CString const & key) const
    {
        auto const column = Find(key);
        return column == columns.end() ? OLESTR("#NO_ENTRY#") : column->mark;
    }

    std::vector<Column> columns;
};

CString Numbered(WCHAR const * format, unsigned int number)
{
    CString text;
    text.Format(format, number);
    return text;
}

/// Does the same to both, chosen by numbers of a fixed seed.
class Pair
{
public:
    explicit Pair(unsigned int seed) : m_random(seed) {}

    void Change()
    {
        switch (Below(m_naive.columns.size() < 40 ? 3 : 12))
        {
        case 0:
        case 1:
        case 2:
            return Insert();
        case 3:
        case 4:
        case 5:
            return Remove();
        case 6:
            return Erase();
        case 7:
            return InsertByVector();
        case 8:
            return SwapColumns();
        case 9:
            return SetKey();
        case 10:
            return Assign();
        default:
            return ReplaceLast();
        }
    }

    void ExpectSame()
    {
        ASSERT_EQ(m_table.size(), m_naive.columns.size());
        for (int times = 0; times < 3; ++times)
        {
            CString const key = AnyKey();
            ASSERT_EQ(m_table.GetExternalName(key), m_naive.MarkOf(key));
            ASSERT_EQ(m_table.Includes(key), m_naive.Find(key) != m_naive.columns.end());
        }
    }

private:
    unsigned int Below(std::size_t end) { return static_cast<unsigned int>(m_random() % end); }
    CString NewMark() { return Numbered(OLESTR("mark %u"), ++m_marks); }
    CString AnyName()
    {
        static CString const names[] = {OLESTR("Width"), OLESTR("Height"), CString(), OLESTR("_#x")};
        return Below(8) == 0 ? AnyKey() : names[Below(std::size(names))];
    }
    /// Of a column, or of none.
    CString AnyKey()
    {
        if (!m_naive.columns.empty() && Below(2) == 0)
            return m_naive.columns[Below(m_naive.columns.size())].key;
        static WCHAR const * const formats[] = {OLESTR("Width_#%u#"), OLESTR("Width_#%02u#"), OLESTR("_#x_#%u#")};
        return Numbered(formats[Below(std::size(formats))], Below(30));
    }
    std::ptrdiff_t AnyPosition() { return Below(m_naive.columns.size()); }

    void Insert()
    {
        CString const name = AnyName();
        CString const mark = NewMark();
        CString const key = m_naive.KeyFor(name);
        std::ptrdiff_t const position = Below(m_naive.columns.size() + 1);
        m_naive.columns.insert(m_naive.columns.begin() + position, {key, mark});
        ASSERT_EQ(m_table.InsertColumn(static_cast<unsigned int>(position), name, mark, nullptr), key);
    }
    void Remove()
    {
        CString const key = AnyKey();
        if (auto const column = m_naive.Find(key); column != m_naive.columns.end())
            m_naive.columns.erase(column);
        m_table.RemoveColumn(key);
    }
    void Erase()
    {
        std::ptrdiff_t const position = AnyPosition();
        m_naive.columns.erase(m_naive.columns.begin() + position);
        m_table.erase(m_table.begin() + position);
    }
    void InsertByVector()
    {
        std::ptrdiff_t const position = Below(m_naive.columns.size() + 1);
        CString const key = AnyKey();
        CString const mark = NewMark();
        m_naive.columns.insert(m_naive.columns.begin() + position, {key, mark});
        m_table.insert(m_table.begin() + position, CKrTableColumn(key, key, mark));
    }
    void SwapColumns()
    {
        std::ptrdiff_t const first = AnyPosition();
        std::ptrdiff_t const second = AnyPosition();
        std::iter_swap(m_naive.columns.begin() + first, m_naive.columns.begin() + second);
        std::iter_swap(m_table.begin() + first, m_table.begin() + second);
    }
    void SetKey()
    {
        std::ptrdiff_t const position = AnyPosition();
        CString const key = AnyKey();
        m_naive.columns.begin()[position].key = key;
        m_table.begin()[position].SetKey(key);
    }
    void Assign()
    {
        std::ptrdiff_t const from = AnyPosition();
        std::ptrdiff_t const to = AnyPosition();
        m_naive.columns.begin()[to] = m_naive.columns.begin()[from];
        m_table.begin()[to] = m_table.begin()[from];
    }
    void ReplaceLast()
    {
        CString const key = AnyKey();
        CString const mark = NewMark();
        m_naive.columns.back() = {key, mark};
        m_table.pop_back();
        m_table.push_back(CKrTableColumn(key, key, mark));
    }

    std::mt19937 m_random;
    unsigned int m_marks = 0;
    NaiveTable m_naive;
    CKrTableData m_table;
};

CKrTableData MakeWide(unsigned int columns)
{
    CKrTableData table;
    for (unsigned int index = 0; index < columns; ++index)
        table.AddColumn(OLESTR("Width"), Numbered(OLESTR("mark %u"), index), nullptr);
    return table;
}

CString const firstKey(OLESTR("Width_#0#"));

} // namespace

TEST(CKrTableDataWide, AnswersAsASearchOfAllColumnsDoes)
{
    for (unsigned int const seed : {1u, 2u, 3u, 4u})
    {
        SCOPED_TRACE(seed);
        Pair pair(seed);
        for (int step = 0; step < 3000 && !HasFatalFailure(); ++step)
        {
            SCOPED_TRACE(step);
            pair.Change();
            pair.ExpectSame();
        }
    }
}

TEST(CKrTableDataWide, KeysOfOneNameAreNotTriedAnew)
{
    std::size_t const before = kr::test::AllAllocations();
    CKrTableData table = MakeWide(10000);
    EXPECT_EQ(table.back().GetKey(), OLESTR("Width_#9999#"));
    table.RemoveColumn(OLESTR("Width_#9998#"));
    table.RemoveColumn(OLESTR("Width_#17#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), CString(), nullptr), OLESTR("Width_#17#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), CString(), nullptr), OLESTR("Width_#9998#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), CString(), nullptr), OLESTR("Width_#10000#"));
    EXPECT_LT(kr::test::AllAllocations() - before, 20u * 10000); // each try would be one
}

TEST(CKrTableDataWide, OnlyTheKeyOfACounterFreesIt)
{
    CKrTableData table = MakeWide(40);
    for (WCHAR const * const key :
         {OLESTR("Width_#02#"), OLESTR("Width_#2"), OLESTR("Width_#2x"), OLESTR("Width_#2##"), OLESTR("Width_#+2#"),
          OLESTR("Width_##"), OLESTR("Width_#9999999992#"), OLESTR("Height_#2#")})
    {
        SCOPED_TRACE(kr::test::Narrow(key));
        EXPECT_EQ(table.AddColumn(key, CString(), nullptr), key);
        table.RemoveColumn(key);
        CString const added = table.AddColumn(OLESTR("Width"), CString(), nullptr);
        EXPECT_EQ(added, OLESTR("Width_#40#"));
        table.RemoveColumn(added);
    }
}

TEST(CKrTableDataWide, ALookupNeedsNoMemory)
{
    CKrTableData table = MakeWide(1000);
    EXPECT_TRUE(table.Includes(firstKey));
    std::size_t const before = kr::test::AllAllocations();
    EXPECT_TRUE(table.Includes(firstKey));
    EXPECT_FALSE(table.Includes(CString()));
    table.RemoveColumn(firstKey);
    EXPECT_LE(kr::test::AllAllocations() - before, 2u);
}

TEST(CKrTableDataWide, SeesColumnsThatWereExchangedAsAWhole)
{
    CKrTableData table = MakeWide(100);
    EXPECT_EQ(table.GetExternalName(firstKey), OLESTR("mark 0"));
    CKrTableData other = MakeWide(100);
    other[0].SetExternalName(OLESTR("other"));
    EXPECT_EQ(other.GetExternalName(firstKey), OLESTR("other"));
    std::vector<CKrTableColumn> & columns = table;
    columns.swap(other);
    EXPECT_EQ(other.GetExternalName(firstKey), OLESTR("mark 0"));
    EXPECT_EQ(table.GetExternalName(firstKey), OLESTR("other"));
}

TEST(CKrTableDataWide, SeesWhatHappenedToColumnsThatWereAway)
{
    CKrTableData table = MakeWide(100);
    EXPECT_TRUE(table.Includes(firstKey));
    CKrTableData other;
    std::vector<CKrTableColumn> & columns = table;
    columns.swap(other);
    EXPECT_TRUE(other.Includes(firstKey));
    other[0].SetKey(OLESTR("changed"));
    columns.swap(other); // the same storage and number as at first
    EXPECT_FALSE(table.Includes(firstKey));
    EXPECT_TRUE(table.Includes(OLESTR("changed")));
}

TEST(CKrTableDataWide, ACopyIsSearchedByItself)
{
    CKrTableData table = MakeWide(100);
    EXPECT_TRUE(table.Includes(firstKey));
    CKrTableData copy(table);
    copy[0].SetKey(OLESTR("changed"));
    EXPECT_TRUE(table.Includes(firstKey));
    EXPECT_FALSE(copy.Includes(firstKey));
    CKrTableData moved(std::move(table));
    EXPECT_TRUE(moved.Includes(firstKey));
    moved.RemoveColumn(moved[0].GetKey());
    EXPECT_FALSE(moved.Includes(firstKey));
    EXPECT_EQ(moved.AddColumn(OLESTR("Width"), CString(), nullptr), firstKey);
}

TEST(CKrTableDataWide, AColumnMayOutliveItsTable)
{
    CKrTableColumn column;
    {
        CKrTableData table = MakeWide(100);
        EXPECT_TRUE(table.Includes(firstKey));
        column = std::move(table[0]);
        EXPECT_FALSE(table.Includes(firstKey));
    }
    column.SetKey(OLESTR("k"));
    EXPECT_EQ(column.GetExternalName(), OLESTR("mark 0"));
}

TEST(CKrTableDataWide, FindsWithoutAnIndexWhenMemoryRunsOut)
{
    CKrTableData const table(MakeWide(100));
    CString const lastKey(OLESTR("Width_#99#"));
    CString const noKey(OLESTR("Width_#100#"));
    for (std::size_t n = 1; n < 300; ++n)
    {
        SCOPED_TRACE(n);
        CKrTableData const copy(table);
        kr::test::FailNthAllocation const fail(n);
        EXPECT_TRUE(copy.Includes(lastKey));
        EXPECT_FALSE(copy.Includes(noKey));
    }
}

TEST(CKrTableDataWide, AddsAndRemovesRightlyWhenMemoryRunsOut)
{
    CString const name(OLESTR("Width"));
    CString const removed(OLESTR("Width_#7#"));
    for (std::size_t n = 1; n < 30; ++n)
    {
        SCOPED_TRACE(n);
        CKrTableData table = MakeWide(64);
        std::size_t expected = 64;
        for (int times = 0; times < 2; ++times)
        {
            kr::test::FailNthAllocation const fail(n);
            try
            {
                table.AddColumn(name, name, nullptr);
                ++expected;
            }
            catch (...)
            {
                kr::test::ExpectWantOfMemory();
            }
        }
        {
            kr::test::FailNthAllocation const fail(n);
            table.RemoveColumn(removed);
        }
        EXPECT_EQ(table.size(), expected - 1);
        EXPECT_FALSE(table.Includes(removed));
        EXPECT_EQ(table.AddColumn(name, name, nullptr), removed);
    }
}
