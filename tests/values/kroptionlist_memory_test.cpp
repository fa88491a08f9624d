// Option lists where memory runs out: at each allocation the list stays as it was.
#include <krcore/values/kroptionlist.h>

#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <memory>

using namespace kr::test;

namespace
{

CString const longText = OLESTR("a text that is not kept in place");

class CKrOptionListMemory : public testing::Test
{
protected:
    CKrOptionListMemory()
    {
        list.AddOption(OLESTR("a"), OLESTR("A"), true);
        list.AddOption(OLESTR("b"), OLESTR("B"), false)->SetValue(CKrVariant(longText));
    }

    void ExpectUnchanged() const
    {
        EXPECT_EQ(list.GetOptionCount(), 2u);
        EXPECT_EQ(list.GetOption(OLESTR("a")), list.GetOptionAt(0));
        EXPECT_EQ(list.GetOption(OLESTR("b")), list.GetOptionAt(1));
        EXPECT_EQ(list.GetOption(OLESTR("c")), nullptr);
        ExpectItem(0, OLESTR("a"), OLESTR("A"), true);
        ExpectItem(1, OLESTR("b"), OLESTR("B"), false);
        EXPECT_TRUE(list.GetOptionAt(1)->HasValue(CKrVariant(longText)));
    }

    // Runs `operation` until it passes; each time before that the list must be as it was.
    template <class Operation>
    std::size_t Failures(Operation operation)
    {
        return FailUntilItPasses(operation, [this] { ExpectUnchanged(); });
    }

    CKrOptionList list;

private:
    void ExpectItem(unsigned int index, WCHAR const * identifier, WCHAR const * text, bool selected) const
    {
        CKrOptionListItem const & item = *list.GetOptionAt(index);
        EXPECT_EQ(item.GetID(), identifier);
        EXPECT_EQ(item.GetText(), text);
        EXPECT_EQ(item.IsSelected(), selected);
    }
};

} // namespace

TEST_F(CKrOptionListMemory, AddsAWholeOptionOrNone)
{
    EXPECT_GE(Failures([this] { list.AddOption(OLESTR("c"), OLESTR("C"), true); }), 4u)
        << "the texts, the item, its place and its entry in the index";
    EXPECT_EQ(list.GetOptionAt(2), list.GetOption(OLESTR("c")));
}

TEST_F(CKrOptionListMemory, AddsACopyOfAnItemOrNothing)
{
    CKrOptionListItem item(OLESTR("c"), OLESTR("C"));
    item.SetValue(CKrVariant(longText));
    EXPECT_GE(Failures([&] { list.AddOption(item); }), 4u);
    EXPECT_EQ(list.GetOptionCount(), 3u);
}

TEST_F(CKrOptionListMemory, AssignsAWholeItemOrNothing)
{
    CKrOptionListItem item(OLESTR("b"), OLESTR("other"));
    item.SetSelected(true);
    item.SetValue(CKrVariant(OLESTR("another text that is not kept in place")));
    EXPECT_GE(Failures([&] { list.AddOption(item); }), 1u);
    EXPECT_EQ(list.GetOption(OLESTR("b"))->GetText(), OLESTR("other"));
    EXPECT_TRUE(list.GetOption(OLESTR("b"))->IsSelected());
}

TEST_F(CKrOptionListMemory, AddsAnIdentifierOrATextOrNothing)
{
    CString const identifier = OLESTR("c");
    CString const text = OLESTR("d");
    EXPECT_GE(Failures([&] { list.AddOptionID(identifier, true); }), 3u);
    list.DeleteOption(identifier);
    EXPECT_GE(Failures([&] { list.AddOptionText(text, true); }), 2u);
    EXPECT_EQ(list.GetSelectedTexts(), OLESTR("A;d"));
}

TEST_F(CKrOptionListMemory, SelectsAllOrNothingOfAText)
{
    EXPECT_GE(Failures([this] { list.SelectIDs(OLESTR("b;a"), true); }), 2u);
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("a;b"));
    list.SelectID(OLESTR("b"), false);
    EXPECT_GE(Failures([this] { list.SelectTexts(OLESTR("B;A"), true); }), 2u);
    EXPECT_EQ(list.GetSelectedTexts(), OLESTR("A;B"));
}

TEST_F(CKrOptionListMemory, GivesTheWholeSelectionOrLeavesTheOutput)
{
    list.SelectID(OLESTR("b"), true);
    std::vector<CString> texts{OLESTR("old")};
    auto const textsAreOld = [&] { EXPECT_EQ(texts, std::vector<CString>{OLESTR("old")}); };
    EXPECT_GE(FailUntilItPasses([&] { list.GetSelectedIDs(texts); }, textsAreOld), 1u);
    EXPECT_EQ(texts.size(), 2u);
    std::vector<CKrVariant> values{CKrVariant(7)};
    auto const valuesAreOld = [&]
    {
        ASSERT_EQ(values.size(), 1u);
        EXPECT_TRUE(values[0] == CKrVariant(7));
    };
    EXPECT_GE(FailUntilItPasses([&] { list.GetSelectedValues(values); }, valuesAreOld), 2u);
    EXPECT_EQ(values.size(), 2u);
    auto const nothing = [] {};
    EXPECT_GE(FailUntilItPasses([&] { list.GetSelectedIDs(); }, nothing), 2u);
    EXPECT_GE(FailUntilItPasses([&] { list.GetSelectedTexts(); }, nothing), 2u);
}

TEST_F(CKrOptionListMemory, NeedsNoneForRemovingAndSelecting)
{
    CString const identifier = OLESTR("b");
    CString const text = OLESTR("A");
    std::vector<bool> const selection{false, true};
    std::vector<CString> const texts{OLESTR("x"), OLESTR("y")};
    std::unique_ptr<CKrOptionListItem> removed;
    std::size_t const before = AllAllocations();
    list.SelectID(identifier, true);
    list.SelectText(text, false);
    list.SetSelection(selection);
    list.SetOptionText(texts);
    removed.reset(list.RemoveOption(identifier));
    list.Clear();
    EXPECT_EQ(AllAllocations(), before);
    EXPECT_TRUE(removed->IsSelected());
}

TEST_F(CKrOptionListMemory, LeavesNothingOfAnItemThatCannotBeMade)
{
    CKrOptionListItem const & item = *list.GetOptionAt(1);
    EXPECT_EQ(Failures([&] { delete item.Clone(); }), 2u) << "the item and its value";
    EXPECT_GE(Failures([] { CKrOptionListItem const made(OLESTR("c"), OLESTR("C")); }), 2u);
    CKrOptionListItem target(OLESTR("c"), OLESTR("C"));
    auto const isUnchanged = [&]
    {
        EXPECT_EQ(target.GetID(), OLESTR("c"));
        EXPECT_EQ(target.GetText(), OLESTR("C"));
        EXPECT_EQ(target.GetValue().vt, VT_EMPTY);
    };
    EXPECT_EQ(FailUntilItPasses([&] { target = item; }, isUnchanged), 1u);
}
