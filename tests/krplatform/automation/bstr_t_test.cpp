#include <krplatform/automation/bstr_t.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/child_process.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <type_traits>

using namespace kr::test;

static_assert(std::is_nothrow_copy_constructible_v<_bstr_t>);
static_assert(std::is_nothrow_move_constructible_v<_bstr_t>);

namespace
{

WCHAR const * WideOf(_bstr_t const & text) { return text; }
char const * NarrowOf(_bstr_t const & text) { return text; }

std::basic_string_view<WCHAR> const withZero(OLESTR("a\0b"), 3);

_bstr_t TextWithZero() { return _bstr_t(MakeText(withZero), false); }

} // namespace

TEST(BstrT, HasNoTextAtFirst)
{
    _bstr_t const text;
    EXPECT_EQ(WideOf(text), nullptr);
    EXPECT_EQ(NarrowOf(text), nullptr);
    EXPECT_EQ(text.length(), 0u);
    EXPECT_EQ(text.copy(), nullptr);
}

TEST(BstrT, HasNoTextFromNullPointers)
{
    EXPECT_EQ(WideOf(_bstr_t(static_cast<char const *>(nullptr))), nullptr);
    EXPECT_EQ(WideOf(_bstr_t(static_cast<WCHAR const *>(nullptr))), nullptr);
    EXPECT_EQ(WideOf(_bstr_t(static_cast<BSTR>(nullptr), true)), nullptr);
    EXPECT_EQ(WideOf(_bstr_t(static_cast<BSTR>(nullptr), false)), nullptr);
}

TEST(BstrT, HoldsWideText)
{
    _bstr_t const text(OLESTR("wall"));
    EXPECT_EQ(Narrow(WideOf(text)), "wall");
    EXPECT_EQ(text.length(), 4u);
    _bstr_t const empty(OLESTR(""));
    EXPECT_NE(WideOf(empty), nullptr);
    EXPECT_EQ(empty.length(), 0u);
}

TEST(BstrT, HoldsNarrowText)
{
    EXPECT_EQ(Narrow(WideOf(_bstr_t("wall"))), "wall");
    _bstr_t const empty("");
    ASSERT_NE(WideOf(empty), nullptr);
    EXPECT_EQ(empty.length(), 0u);
    EXPECT_STREQ(NarrowOf(empty), "");
}

TEST(BstrT, CopiesABstrWithItsLength)
{
    BSTR const mine = MakeText(withZero);
    _bstr_t const text(mine, true);
    EXPECT_NE(WideOf(text), mine);
    SysFreeString(mine);
    EXPECT_EQ(text.length(), 3u);
    EXPECT_EQ(Narrow({WideOf(text), 3}), Narrow(withZero));
}

TEST(BstrT, TakesABstrOver)
{
    BSTR const mine = MakeText(withZero);
    _bstr_t const text(mine, false);
    EXPECT_EQ(WideOf(text), mine);
}

TEST(BstrT, SharesTheTextOfCopies)
{
    BuildTablesOfFirstUse();
    _bstr_t const text(OLESTR("wall"));
    std::size_t const before = AllAllocations();
    _bstr_t const copy(text);
    _bstr_t assigned;
    assigned = copy;
    EXPECT_EQ(WideOf(copy), WideOf(text));
    EXPECT_EQ(WideOf(assigned), WideOf(text));
    EXPECT_EQ(NarrowOf(assigned), NarrowOf(text));
    EXPECT_EQ(AllAllocations(), before + 1); // the narrow form, once
}

TEST(BstrT, TheTextLivesAsLongAsOneCopy)
{
    BuildTablesOfFirstUse();
    std::size_t const before = LiveAllocations();
    {
        _bstr_t copy;
        {
            _bstr_t const text(OLESTR("wall"));
            copy = text;
        }
        EXPECT_EQ(Narrow(WideOf(copy)), "wall");
        EXPECT_STREQ(NarrowOf(copy), "wall");
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(BstrT, MovesWithoutACopy)
{
    _bstr_t text(OLESTR("wall"));
    WCHAR const * const wide = text;
    _bstr_t moved(std::move(text));
    EXPECT_EQ(WideOf(moved), wide);
    EXPECT_EQ(WideOf(text), nullptr);
    _bstr_t target(OLESTR("old"));
    target = std::move(moved);
    EXPECT_EQ(WideOf(target), wide);
    EXPECT_EQ(WideOf(moved), nullptr);
}

TEST(BstrT, AssigningItselfKeepsTheText)
{
    _bstr_t text(OLESTR("wall"));
    _bstr_t & itself = text;
    text = itself;
    text = std::move(itself);
    EXPECT_EQ(Narrow(WideOf(text)), "wall");
    text = WideOf(text) + 1;
    EXPECT_EQ(Narrow(WideOf(text)), "all");
    text = NarrowOf(text) + 1;
    EXPECT_EQ(Narrow(WideOf(text)), "ll");
}

TEST(BstrT, AssigningDropsTheOldNarrowForm)
{
    _bstr_t text(OLESTR("old"));
    EXPECT_STREQ(NarrowOf(text), "old");
    text = OLESTR("new");
    EXPECT_STREQ(NarrowOf(text), "new");
    text = "newer";
    EXPECT_STREQ(NarrowOf(text), "newer");
    text = static_cast<WCHAR const *>(nullptr);
    EXPECT_EQ(NarrowOf(text), nullptr);
}

TEST(BstrT, TheNarrowFormIsMadeOnce)
{
    _bstr_t const text(OLESTR("wall"));
    char const * const narrow = text;
    std::size_t const before = AllAllocations();
    EXPECT_EQ(NarrowOf(text), narrow);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(BstrT, TheNarrowFormKeepsZerosInside)
{
    _bstr_t const text = TextWithZero();
    EXPECT_EQ(std::memcmp(NarrowOf(text), "a\0b", 4), 0);
}

TEST(BstrT, JoinsTexts)
{
    _bstr_t text("wall");
    _bstr_t const before(text);
    text += _bstr_t("s");
    EXPECT_EQ(Narrow(WideOf(text)), "walls");
    EXPECT_EQ(Narrow(WideOf(before)), "wall");
    text += text;
    EXPECT_EQ(Narrow(WideOf(text)), "wallswalls");
    EXPECT_EQ((TextWithZero() + TextWithZero()).length(), 6u);
}

TEST(BstrT, JoinsWhatIsNoText)
{
    _bstr_t const none;
    _bstr_t const text("wall");
    EXPECT_EQ(WideOf(none + none), nullptr);
    EXPECT_EQ(Narrow(WideOf(none + text)), "wall");
    EXPECT_EQ(Narrow(WideOf(text + none)), "wall");
    EXPECT_NE(WideOf(none + _bstr_t("")), nullptr);
}

TEST(BstrT, HandsOutACopy)
{
    _bstr_t const text = TextWithZero();
    BSTR const copy = text.copy();
    EXPECT_NE(copy, WideOf(text));
    EXPECT_EQ(Narrow(TextOf(copy)), Narrow(withZero));
    SysFreeString(copy);
}

TEST(BstrT, DetachesATextOfItsOwnWithoutACopy)
{
    _bstr_t text(OLESTR("wall"));
    WCHAR const * const wide = text;
    BSTR const detached = text.Detach();
    EXPECT_EQ(detached, wide);
    EXPECT_EQ(WideOf(text), nullptr);
    EXPECT_EQ(text.Detach(), nullptr);
    SysFreeString(detached);
}

TEST(BstrT, DetachesACopyOfASharedText)
{
    _bstr_t text(OLESTR("wall"));
    _bstr_t const other(text);
    BSTR const detached = text.Detach();
    EXPECT_NE(detached, WideOf(other));
    EXPECT_EQ(Narrow(detached), "wall");
    EXPECT_EQ(Narrow(WideOf(other)), "wall");
    EXPECT_EQ(WideOf(text), nullptr);
    SysFreeString(detached);
}

TEST(BstrT, ComparesExactContent)
{
    EXPECT_TRUE(_bstr_t("wall") == _bstr_t(OLESTR("wall")));
    EXPECT_FALSE(_bstr_t("wall") == _bstr_t("Wall"));
    EXPECT_FALSE(_bstr_t("wall") == _bstr_t("walls"));
    EXPECT_TRUE(TextWithZero() == TextWithZero());
    EXPECT_FALSE(TextWithZero() == _bstr_t("a"));
    EXPECT_TRUE(_bstr_t() == _bstr_t("")); // no text is empty text
}

TEST(BstrTMemory, LeaksNothingWhenItRunsOut)
{
    _bstr_t const text("wall");
    _bstr_t const shared(text);
    BSTR mine = MakeText(OLESTR("mine"));
    auto const check = [] { EXPECT_EQ(ThrownComError([] { throw; }), E_OUTOFMEMORY); };
    EXPECT_EQ(FailEveryAllocation([] { _bstr_t const made("wall"); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([] { _bstr_t const made(OLESTR("wall")); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([&] { _bstr_t const made(mine, true); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([&] { static_cast<void>(text + text); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([&] { SysFreeString(text.copy()); }, check), 1u);
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(ThrownComError([&] { _bstr_t const made(mine, false); }), E_OUTOFMEMORY);
    }
    EXPECT_EQ(Narrow(mine), "mine"); // it stayed the caller's
    SysFreeString(mine);
}

TEST(BstrTMemory, KeepsTheTextWhenItRunsOut)
{
    _bstr_t text("wall");
    _bstr_t const other("floor");
    _bstr_t const shared(text);
    auto const failing = [&](auto operation)
    {
        for (std::size_t n = 1; n <= 2; ++n)
        {
            FailNthAllocation const fail(n);
            HRESULT const result = ThrownComError(operation);
            EXPECT_EQ(result, fail.HasFailed() ? E_OUTOFMEMORY : S_OK);
            EXPECT_EQ(Narrow(WideOf(text)), "wall");
        }
    };
    failing([&] { text = "new"; });
    failing([&] { text = OLESTR("new"); });
    failing([&] { text += other; });
    FailNthAllocation const fail(1);
    EXPECT_EQ(ThrownComError([&] { text.Detach(); }), E_OUTOFMEMORY);
    EXPECT_EQ(Narrow(WideOf(text)), "wall");
}

TEST(BstrTMemory, TheNarrowFormIsMadeAfterAFailure)
{
    BuildTablesOfFirstUse();
    _bstr_t const text(OLESTR("wall"));
    {
        FailNthAllocation const fail(1);
        EXPECT_EQ(ThrownComError([&] { NarrowOf(text); }), E_OUTOFMEMORY);
    }
    EXPECT_STREQ(NarrowOf(text), "wall");
}

TEST(BstrTCodePage, DISABLED_ReadsAndWritesLatin1)
{
    _bstr_t const text("T\xFCr \x80");
    EXPECT_EQ(Narrow(WideOf(text)), "T\\u00FCr \\u20AC");
    EXPECT_STREQ(NarrowOf(_bstr_t(OLESTR("T\u00FCr \u20AC"))), "T\xFCr \x80");
}

TEST(BstrTCodePage, DISABLED_ReadsAndWritesJapanese)
{
    _bstr_t const text("\x95\xC7");
    EXPECT_EQ(Narrow(WideOf(text)), "\\u58C1");
    EXPECT_STREQ(NarrowOf(_bstr_t(OLESTR("\u58C1"))), "\x95\xC7");
}

TEST(BstrTCodePage, IsThatOfTheProcess)
{
    struct Row
    {
        char const * locale;
        char const * test;
    };
    // clang-format off
    constexpr Row rows[] = {
        { "de_DE.CP1252", "BstrTCodePage.DISABLED_ReadsAndWritesLatin1"   },
        { "ja_JP.SJIS",   "BstrTCodePage.DISABLED_ReadsAndWritesJapanese" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        ChildResult const result = RunTestInChild(row.test, {{"LC_ALL", row.locale}});
        EXPECT_EQ(result.exitStatus, 0) << result.output;
    }
}
