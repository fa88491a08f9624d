#include <krplatform/text/cstring.h>

#include "tests/krplatform/text/failures.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <sstream>
#include <unordered_map>
#include <utility>

TEST(CString, IsOnePointerInSize) { EXPECT_EQ(sizeof(CString), sizeof(void *)); }

TEST(CString, StartsEmptyAndIsNeverNull)
{
    CString const text;
    EXPECT_TRUE(text.IsEmpty());
    EXPECT_EQ(text.GetLength(), 0);
    ASSERT_NE(text.GetString(), nullptr);
    EXPECT_EQ(*text.GetString(), 0);
}

TEST(CString, TakesANullPointerForEmptyText)
{
    WCHAR const * const noText = nullptr;
    char const * const noNarrowText = nullptr;
    EXPECT_TRUE(CString(noText).IsEmpty());
    EXPECT_TRUE(CString(noNarrowText).IsEmpty());
    EXPECT_TRUE(CString(nullptr).IsEmpty());
    EXPECT_TRUE(CString(noText, 5).IsEmpty());

    CString text(OLESTR("wall"));
    text += noText;
    text.Append(noText);
    text.Append(noText, 3);
    EXPECT_EQ(text, OLESTR("wall"));
    text = noText;
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, TakesAStatedNumberOfUnitsAndKeepsZerosAmongThem)
{
    CString const text(OLESTR("ab\0cd"), 5);
    EXPECT_EQ(text.GetLength(), 5);
    EXPECT_EQ(text[2], 0);
    EXPECT_EQ(text[4], OLESTR('d'));
    EXPECT_EQ(text.GetString()[5], 0);
    EXPECT_EQ(CString(OLESTR("abc"), 0), OLESTR(""));
}

TEST(CString, RefusesANegativeLength)
{
    EXPECT_EQ(ThrownResult([] { CString(OLESTR("abc"), -1); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([] { CString("abc", -1); }), E_INVALIDARG);
    CString text(OLESTR("abc"));
    EXPECT_EQ(ThrownResult([&] { text.Append(OLESTR("abc"), -1); }), E_INVALIDARG);
    EXPECT_EQ(text, OLESTR("abc"));
}

TEST(CString, RepeatsAUnit)
{
    EXPECT_EQ(CString(OLESTR('-'), 3), OLESTR("---"));
    EXPECT_EQ(CString(OLESTR('x')), OLESTR("x"));
    EXPECT_EQ(CString(OLESTR('x'), 0), OLESTR(""));
    EXPECT_EQ(CString(OLESTR('x'), -2), OLESTR(""));
}

TEST(CString, IsAssigned)
{
    CString text;
    text = OLESTR("wall");
    EXPECT_EQ(text, OLESTR("wall"));
    text = OLESTR('w');
    EXPECT_EQ(text, OLESTR("w"));
    text = CString(OLESTR("window"));
    EXPECT_EQ(text, OLESTR("window"));
    text = OLESTR("");
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, AssignsItselfAndPartsOfItself)
{
    CString text(OLESTR("abcdef"));
    CString const & same = text;
    text = same;
    EXPECT_EQ(text, OLESTR("abcdef"));
    text = text.GetString() + 2;
    EXPECT_EQ(text, OLESTR("cdef"));

    CString const keeper(text); // now the text is shared
    text = text.GetString() + 2;
    EXPECT_EQ(text, OLESTR("ef"));
    EXPECT_EQ(keeper, OLESTR("cdef"));
}

TEST(CString, MovesItsText)
{
    CString source(OLESTR("wall"));
    CString target(std::move(source));
    EXPECT_EQ(target, OLESTR("wall"));
    EXPECT_TRUE(source.IsEmpty());
    source = std::move(target);
    EXPECT_EQ(source, OLESTR("wall"));
    EXPECT_TRUE(target.IsEmpty());
    CString & same = source;
    source = std::move(same);
    EXPECT_EQ(source, OLESTR("wall"));
}

TEST(CString, Appends)
{
    CString text;
    text += OLESTR("wa");
    text += OLESTR('l');
    text += CString(OLESTR("l "));
    text += "paper";
    text.Append(OLESTR("s and more"), 1);
    text.AppendChar(OLESTR('!'));
    text.Append(CString(OLESTR("?")));
    text.Append(OLESTR("."));
    EXPECT_EQ(text, OLESTR("wall papers!?."));
}

TEST(CString, AppendsItselfAndPartsOfItself)
{
    CString text(OLESTR("abc"));
    for (int round = 0; round < 5; ++round)
        text += text;
    ASSERT_EQ(text.GetLength(), 96);
    EXPECT_EQ(text.Left(6), OLESTR("abcabc"));
    EXPECT_EQ(text.Right(4), OLESTR("cabc"));

    text = OLESTR("abcdef");
    text.Append(text.GetString() + 4);
    EXPECT_EQ(text, OLESTR("abcdefef"));
    text.FreeExtra();
    for (int round = 0; round < 5; ++round)
        text += text.GetString() + text.GetLength() - 2;
    EXPECT_EQ(text, OLESTR("abcdefefefefefefef"));
}

TEST(CString, AppendsManyUnits)
{
    CString text;
    for (int index = 0; index < 10'000; ++index)
        text += static_cast<WCHAR>('a' + index % 26);
    ASSERT_EQ(text.GetLength(), 10'000);
    for (int index = 0; index < 10'000; ++index)
        ASSERT_EQ(text[index], 'a' + index % 26);
}

TEST(CString, JoinsByPlus)
{
    CString const wall(OLESTR("wall"));
    EXPECT_EQ(wall + CString(OLESTR("s")), OLESTR("walls"));
    EXPECT_EQ(wall + OLESTR("s"), OLESTR("walls"));
    EXPECT_EQ(OLESTR("s") + wall, OLESTR("swall"));
    EXPECT_EQ(wall + OLESTR('s'), OLESTR("walls"));
    EXPECT_EQ(OLESTR('s') + wall, OLESTR("swall"));
    EXPECT_EQ(wall + "s", OLESTR("walls"));
    EXPECT_EQ("s" + wall, OLESTR("swall"));
    EXPECT_EQ(wall + OLESTR(" & ") + wall, OLESTR("wall & wall"));
    EXPECT_EQ(CString() + CString(), OLESTR(""));
    EXPECT_EQ(wall, OLESTR("wall"));
}

TEST(CString, Concatenates)
{
    CString result(OLESTR("old"));
    CString::Concatenate(result, OLESTR("wall"), 3, OLESTR("papers"), 5);
    EXPECT_EQ(result, OLESTR("walpaper"));
    CString::Concatenate(result, result, 3, result, 2);
    EXPECT_EQ(result, OLESTR("walwa"));
    CString::Concatenate(result, nullptr, 3, OLESTR("x"), 1);
    EXPECT_EQ(result, OLESTR("x"));
    EXPECT_EQ(ThrownResult([&] { CString::Concatenate(result, OLESTR("a"), -1, OLESTR("b"), 1); }), E_INVALIDARG);
    EXPECT_EQ(result, OLESTR("x"));
}

TEST(CString, ReadsUnitsUpToTheTerminator)
{
    CString const text(OLESTR("abc"));
    EXPECT_EQ(text[0], OLESTR('a'));
    EXPECT_EQ(text.GetAt(2), OLESTR('c'));
    EXPECT_EQ(text[3], 0);
    EXPECT_EQ(text[2L], OLESTR('c'));
    EXPECT_EQ(text[std::size_t{1}], OLESTR('b'));
    EXPECT_EQ(CString()[0], 0);
    for (long const index : {-1L, 4L, long{INT_MIN}, LONG_MAX})
        EXPECT_EQ(ThrownResult([&] { text.GetAt(index); }), E_INVALIDARG) << index;
}

TEST(CString, SetsAUnit)
{
    CString text(OLESTR("abc"));
    text.SetAt(1, OLESTR('x'));
    EXPECT_EQ(text, OLESTR("axc"));
    for (int const index : {-1, 3, 4})
        EXPECT_EQ(ThrownResult([&] { text.SetAt(index, OLESTR('y')); }), E_INVALIDARG) << index;
    EXPECT_EQ(text, OLESTR("axc"));
    EXPECT_EQ(ThrownResult([] { CString().SetAt(0, OLESTR('y')); }), E_INVALIDARG);
}

TEST(CString, IsTruncated)
{
    CString text(OLESTR("abcdef"));
    text.Truncate(6);
    EXPECT_EQ(text, OLESTR("abcdef"));
    text.Truncate(2);
    EXPECT_EQ(text, OLESTR("ab"));
    EXPECT_EQ(text.GetString()[2], 0);
    for (int const length : {-1, 3})
        EXPECT_EQ(ThrownResult([&] { text.Truncate(length); }), E_INVALIDARG) << length;
    text.Truncate(0);
    EXPECT_TRUE(text.IsEmpty());
}

TEST(CString, IsKeyOfMaps)
{
    std::map<CString, int> const ordered{{OLESTR("b"), 2}, {OLESTR("A"), 1}, {OLESTR("a"), 3}};
    EXPECT_EQ(ordered.begin()->first, OLESTR("A"));
    EXPECT_EQ(std::prev(ordered.end())->first, OLESTR("b"));

    std::unordered_map<CString, int> hashed{{OLESTR("wall"), 1}};
    hashed[CString("wall")] = 2;
    EXPECT_EQ(hashed.size(), 1u);
    EXPECT_EQ(hashed[OLESTR("wall")], 2);
}

TEST(CString, IsWrittenToStreamsAsUtf8)
{
    std::ostringstream stream;
    stream << CString(OLESTR("a\u00E4\u20AC\U0001F600")) << CString() << CStringA("!");
    EXPECT_EQ(stream.str(), "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80!");
}

TEST(CStringA, HoldsBytes)
{
    CStringA text("abc");
    text += 'd';
    text += "ef";
    text.MakeUpper();
    EXPECT_EQ(text, "ABCDEF");
    EXPECT_EQ(text.Mid(2, 2), "CD");
    EXPECT_EQ(text.Find("EF"), 4);
    EXPECT_EQ(text.Find('E'), 4);
    EXPECT_EQ(CStringA(" \t a b\r\n").Trim(), "a b");
    EXPECT_EQ(text.CompareNoCase("abcdef"), 0);
    EXPECT_LT(CStringA("a"), CStringA("\xE4")) << "bytes have no sign";
}
