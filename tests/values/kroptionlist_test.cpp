#include <krcore/values/kroptionlist.h>

#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <memory>

using namespace kr::test;

namespace
{

CString const none;

// Each item as identifier=text, with a star if it is selected.
CString Shown(CKrOptionList const & list)
{
    CString shown;
    for (unsigned int index = 0; index < list.GetOptionCount(); ++index)
    {
        CKrOptionListItem const & item = *list.GetOptionAt(index);
        shown += item.GetID() + OLESTR("=") + item.GetText() + (item.IsSelected() ? OLESTR("* ") : OLESTR(" "));
    }
    return shown;
}

} // namespace

TEST(CKrOptionListItem, IsVisibleEnabledAndSelectableAtFirst)
{
    CKrOptionListItem const item;
    EXPECT_TRUE(item.IsVisible());
    EXPECT_TRUE(item.IsEnabled());
    EXPECT_TRUE(item.IsSelectable());
    EXPECT_FALSE(item.IsSelected());
    EXPECT_FALSE(item.IsMissing());
    EXPECT_EQ(item.GetID(), none);
    EXPECT_EQ(item.GetText(), none);
    EXPECT_EQ(item.GetDescription(), none);
    EXPECT_EQ(item.GetValue().vt, VT_EMPTY);
}

TEST(CKrOptionListItem, PutsIdentifierAndTextInEachOthersPlace)
{
    // clang-format off
    struct { WCHAR const * identifier; WCHAR const * text; WCHAR const * validIdentifier; WCHAR const * validText; bool valid; } const rows[] = {
        { OLESTR("a"), OLESTR("A"), OLESTR("a"), OLESTR("A"), true  },
        { OLESTR("a"), OLESTR(""),  OLESTR("a"), OLESTR("a"), true  },
        { OLESTR(""),  OLESTR("A"), OLESTR("A"), OLESTR("A"), true  },
        { OLESTR(""),  OLESTR(""),  OLESTR(""),  OLESTR(""),  false },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.identifier) + "=" + Narrow(row.text));
        CKrOptionListItem const made(row.identifier, row.text);
        EXPECT_EQ(made.GetID(), row.validIdentifier);
        EXPECT_EQ(made.GetText(), row.validText);
        CKrOptionListItem item;
        item.SetID(row.identifier);
        item.SetText(row.text);
        EXPECT_EQ(item.MakeValidTextAndID(), row.valid);
        EXPECT_EQ(item.GetID(), row.validIdentifier);
        EXPECT_EQ(item.GetText(), row.validText);
    }
}

TEST(CKrOptionListItem, CopiesEveryField)
{
    CKrOptionListItem item(OLESTR("a"), OLESTR("A"));
    item.SetDescription(OLESTR("first"));
    item.SetValue(CKrVariant(7));
    item.SetVisible(false);
    item.SetEnabled(false);
    item.SetSelected(true);
    item.SetSelectable(false);
    item.SetMissing(true);
    CKrOptionListItem const copy(item);
    CKrOptionListItem assigned;
    assigned = item;
    std::unique_ptr<CKrOptionListItem> const clone(item.Clone());
    for (CKrOptionListItem const * const one : {&copy, static_cast<CKrOptionListItem const *>(&assigned),
                                                static_cast<CKrOptionListItem const *>(clone.get())})
    {
        EXPECT_EQ(one->GetID(), OLESTR("a"));
        EXPECT_EQ(one->GetText(), OLESTR("A"));
        EXPECT_EQ(one->GetDescription(), OLESTR("first"));
        EXPECT_TRUE(one->HasValue(CKrVariant(7)));
        EXPECT_FALSE(one->HasValue(CKrVariant(8)));
        EXPECT_FALSE(one->IsVisible());
        EXPECT_FALSE(one->IsEnabled());
        EXPECT_TRUE(one->IsSelected());
        EXPECT_FALSE(one->IsSelectable());
        EXPECT_TRUE(one->IsMissing());
    }
}

TEST(CKrOptionList, AddsOrChangesByIdentifierAndText)
{
    // clang-format off
    struct { WCHAR const * identifier; WCHAR const * text; bool selected; WCHAR const * list; bool added; } const rows[] = {
        { OLESTR("b"), OLESTR("x"), false, OLESTR("b=x "),                     true  },
        { OLESTR("a"), OLESTR(""),  true,  OLESTR("b=x a=a* "),                true  }, // in order of insertion
        { OLESTR(""),  OLESTR("t"), true,  OLESTR("b=x a=a* t=t* "),           true  },
        { OLESTR(""),  OLESTR(""),  true,  OLESTR("b=x a=a* t=t* "),           false },
        { OLESTR("b"), OLESTR("y"), true,  OLESTR("b=y* a=a* t=t* "),          true  },
        { OLESTR("b"), OLESTR(""),  false, OLESTR("b=y a=a* t=t* "),           true  }, // the text stays
        { OLESTR("b"), OLESTR("b"), true,  OLESTR("b=y* a=a* t=t* "),          true  }, // and for the identifier as text
        { OLESTR(""),  OLESTR("b"), false, OLESTR("b=y* a=a* t=t* "),          false }, // the identifier is taken
        { OLESTR("B"), OLESTR("y"), false, OLESTR("b=y* a=a* t=t* B=y "),      true  }, // case counts
    };
    // clang-format on
    CKrOptionList list;
    for (auto const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.identifier) + "=" + Narrow(row.text));
        EXPECT_EQ(list.AddOption(row.identifier, row.text, row.selected) != nullptr, row.added);
        EXPECT_EQ(Shown(list), row.list);
    }
    list.GetOption(OLESTR("b"))->SetText(none);
    list.AddOption(OLESTR("b"), OLESTR("b"), false);
    EXPECT_EQ(list.GetOptionAt(0)->GetText(), OLESTR("b")) << "an empty text takes the identifier";
}

TEST(CKrOptionList, AddsOrAssignsItems)
{
    CKrOptionList list;
    CKrOptionListItem item(OLESTR("a"), OLESTR("A"));
    CKrOptionListItem * const added = list.AddOption(item);
    ASSERT_NE(added, nullptr);
    EXPECT_NE(added, &item);
    item.SetText(OLESTR("other"));
    item.SetSelected(true);
    EXPECT_EQ(list.AddOption(item), added);
    EXPECT_EQ(Shown(list), OLESTR("a=other* "));
    EXPECT_EQ(list.AddOption(CKrOptionListItem()), nullptr);
    item.SetID(none);
    item.SetText(OLESTR("a"));
    EXPECT_EQ(list.AddOption(item), nullptr) << "the identifier that the text becomes is taken";
    EXPECT_EQ(Shown(list), OLESTR("a=other* "));
}

TEST(CKrOptionList, MakesAnAddedItemValid)
{
    CKrOptionList list;
    CKrOptionListItem onlyText;
    onlyText.SetText(OLESTR("A"));
    EXPECT_NE(list.AddOption(onlyText), nullptr);
    CKrOptionListItem onlyIdentifier;
    onlyIdentifier.SetID(OLESTR("b"));
    EXPECT_NE(list.AddOption(onlyIdentifier), nullptr);
    EXPECT_EQ(Shown(list), OLESTR("A=A b=b "));
    EXPECT_EQ(list.GetOption(OLESTR("A")), list.GetOptionAt(0));
    EXPECT_EQ(onlyText.GetID(), none) << "the copy is made valid, not the argument";
}

TEST(CKrOptionList, AddsPairsAndLists)
{
    CKrOptionList list;
    list.AddOption(std::vector<std::pair<CString, CString>>{{OLESTR("b"), OLESTR("B")}, {OLESTR("a"), none}});
    EXPECT_EQ(Shown(list), OLESTR("b=B a=a "));
    list.AddOptionIDs({OLESTR("c"), OLESTR("b")});
    EXPECT_EQ(Shown(list), OLESTR("b=B a=a c=c "));

    CKrOptionList moreIdentifiers;
    moreIdentifiers.AddOption(std::vector<CString>{OLESTR("a"), OLESTR("b")}, std::vector<CString>{OLESTR("A")});
    EXPECT_EQ(Shown(moreIdentifiers), OLESTR("a=A b=b "));

    CKrOptionList moreTexts;
    moreTexts.AddOption(OLESTR("x"), OLESTR("X"), true);
    moreTexts.AddOption(std::vector<CString>{OLESTR("a")},
                        std::vector<CString>{OLESTR("A"), OLESTR("B"), none, OLESTR("X")});
    EXPECT_EQ(Shown(moreTexts), OLESTR("x=X a=A B=B ")) << "the text X is there, and deselected";
}

TEST(CKrOptionList, AddsByTextAlone)
{
    CKrOptionList list;
    EXPECT_EQ(list.AddOptionText(none, true), nullptr);
    CKrOptionListItem * const item = list.AddOption(OLESTR("a"), OLESTR("A"), false);
    list.AddOption(OLESTR("b"), OLESTR("A"), false);
    EXPECT_EQ(list.AddOptionText(OLESTR("A"), true), item) << "the first with that text";
    EXPECT_EQ(Shown(list), OLESTR("a=A* b=A "));
    EXPECT_NE(list.AddOptionText(OLESTR("c"), true), nullptr);
    list.AddOptionText({OLESTR("A"), none, OLESTR("d")});
    EXPECT_EQ(Shown(list), OLESTR("a=A b=A c=c* d=d "));
}

TEST(CKrOptionList, AddsNothingForAnEmptyTextThoughAnItemHasIt)
{
    CKrOptionList list;
    list.AddOptionID(OLESTR("a"), false)->SetText(none);
    EXPECT_EQ(list.AddOptionText(none, true), nullptr);
    list.AddOptionText({none});
    EXPECT_EQ(Shown(list), OLESTR("a= "));
}

TEST(CKrOptionList, GivesAnIdentifierThatIsAddedAgainATextIfItHasNone)
{
    CKrOptionList list;
    list.AddOptionID(OLESTR("a"), true)->SetText(none);
    list.AddOption(std::vector<CString>{OLESTR("a")}, std::vector<CString>());
    EXPECT_EQ(Shown(list), OLESTR("a=a "));
}

TEST(CKrOptionList, FindsByIdentifierPositionTextAndValue)
{
    CKrOptionList list;
    CKrOptionListItem * const first = list.AddOption(OLESTR("b"), OLESTR("T"), false);
    CKrOptionListItem * const second = list.AddOption(OLESTR("a"), OLESTR("T"), false);
    second->SetValue(CKrVariant(5));
    EXPECT_EQ(list.GetOption(OLESTR("a")), second);
    EXPECT_EQ(list.GetOption(OLESTR("A")), nullptr);
    EXPECT_EQ(list.GetOption(none), nullptr);
    EXPECT_EQ(list.GetOptionAt(0), first);
    EXPECT_EQ(list.GetOptionAt(list.GetOptionCount()), nullptr);
    EXPECT_EQ(list.GetOptionByText(OLESTR("T")), first);
    EXPECT_EQ(list.GetOptionByText(OLESTR("t")), nullptr);
    EXPECT_EQ(list.GetOptionByValue(CKrVariant(5)), second);
    EXPECT_EQ(list.GetOptionByValue(CKrVariant(6)), nullptr);
    first->SetValue(CKrVariant(5));
    EXPECT_EQ(list.GetOptionByValue(CKrVariant(5)), first);
}

TEST(CKrOptionList, SelectsEachItemByItself)
{
    CKrOptionList list;
    EXPECT_EQ(list.GetSelectedIDs(), none);
    list.AddOptionIDs({OLESTR("c"), OLESTR("b"), OLESTR("a")});
    EXPECT_EQ(list.GetSelectedIDs(), none);
    list.SelectID(OLESTR("b"), true);
    list.SelectID(OLESTR("a"), true);
    list.SelectID(OLESTR("unknown"), true);
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("b;a")) << "in the order of the list";
    list.SelectIDs(OLESTR("c;unknown;;b"), false);
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("a"));
    list.SelectIDs(OLESTR("b;c"), true);
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("c;b;a"));
    list.SelectIDs(none, false);
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("c;b;a"));
    list.SelectIDs(std::vector<CString>{OLESTR("a"), OLESTR("c")}, false);
    EXPECT_TRUE(list.IsSelectedID(OLESTR("b")));
    EXPECT_FALSE(list.IsSelectedID(OLESTR("a")));
    EXPECT_FALSE(list.IsSelectedID(OLESTR("unknown")));
    EXPECT_TRUE(list.IsSelectedAt(1));
    EXPECT_FALSE(list.IsSelectedAt(0));
    EXPECT_FALSE(list.IsSelectedAt(3));
}

TEST(CKrOptionList, SelectsByTextAndValue)
{
    CKrOptionList list;
    list.AddOption(OLESTR("a"), OLESTR("A"), false)->SetValue(CKrVariant(1));
    list.AddOption(OLESTR("b"), OLESTR("B"), false)->SetValue(CKrVariant(2));
    list.SelectText(OLESTR("B"), true);
    list.SelectText(OLESTR("b"), false);
    EXPECT_EQ(list.GetSelectedTexts(), OLESTR("B"));
    list.SelectTexts(OLESTR("A;x"), true);
    EXPECT_EQ(list.GetSelectedTexts(), OLESTR("A;B"));
    list.SelectTexts(std::vector<CString>{OLESTR("A"), OLESTR("B")}, false);
    EXPECT_EQ(list.GetSelectedTexts(), none);
    list.SelectValue(CKrVariant(2), true);
    list.SelectValue(CKrVariant(3), true);

    std::vector<CString> identifiers(1, CString(OLESTR("old")));
    std::vector<CString> texts = identifiers;
    std::vector<CKrVariant> values(2);
    list.GetSelectedIDs(identifiers);
    list.GetSelectedTexts(texts);
    list.GetSelectedValues(values);
    EXPECT_EQ(identifiers, std::vector<CString>{OLESTR("b")});
    EXPECT_EQ(texts, std::vector<CString>{OLESTR("B")});
    ASSERT_EQ(values.size(), 1u);
    EXPECT_TRUE(list.GetOptionAt(1)->HasValue(values[0]));
}

TEST(CKrOptionList, SelectsWhatIsHiddenDisabledOrNotSelectable)
{
    CKrOptionList list;
    CKrOptionListItem * const item = list.AddOptionID(OLESTR("a"), false);
    item->SetVisible(false);
    item->SetEnabled(false);
    item->SetSelectable(false);
    item->SetMissing(true);
    list.SelectID(OLESTR("a"), true);
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("a"));
}

TEST(CKrOptionList, SetsSelectionAndTextsForAsManyAsBothHave)
{
    CKrOptionList list;
    list.AddOptionIDs({OLESTR("a"), OLESTR("b"), OLESTR("c")});
    list.SetSelection({true, true, true, true});
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("a;b;c"));
    list.SetSelection({false});
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("b;c"));
    list.SetSelection({});
    EXPECT_EQ(list.GetSelectedIDs(), OLESTR("b;c"));

    list.SetOptionText({OLESTR("A"), none});
    EXPECT_EQ(Shown(list), OLESTR("a=A b=b* c=c* ")) << "an empty text becomes the identifier";
    list.GetOptionAt(0)->SetID(none);
    list.SetOptionText({OLESTR("x"), OLESTR("B"), OLESTR("C"), OLESTR("D")});
    EXPECT_EQ(Shown(list), OLESTR("x=x b=B* c=C* "));
}

TEST(CKrOptionList, HandsOverWhatItRemovesAndKeepsTheOrder)
{
    std::size_t const before = LiveAllocations();
    {
        CKrOptionList list;
        list.AddOptionIDs({OLESTR("c"), OLESTR("b"), OLESTR("a")});
        CKrOptionListItem * const item = list.GetOption(OLESTR("b"));
        std::unique_ptr<CKrOptionListItem> const removed(list.RemoveOption(OLESTR("b")));
        EXPECT_EQ(removed.get(), item);
        EXPECT_EQ(Shown(list), OLESTR("c=c a=a "));
        EXPECT_EQ(list.GetOption(OLESTR("b")), nullptr);
        EXPECT_EQ(list.RemoveOption(OLESTR("b")), nullptr);
        list.DeleteOption(OLESTR("b"));
        list.DeleteOption(OLESTR("c"));
        EXPECT_EQ(Shown(list), OLESTR("a=a "));
        list.Clear();
        EXPECT_EQ(list.GetOptionCount(), 0u);
        EXPECT_EQ(list.GetOption(OLESTR("a")), nullptr);
        list.AddOptionID(OLESTR("a"), true);
        EXPECT_EQ(Shown(list), OLESTR("a=a* "));
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CKrOptionList, GoesOnFindingARenamedItemUnderItsOldIdentifier)
{
    CKrOptionList list;
    CKrOptionListItem * const item = list.AddOptionID(OLESTR("old"), false);
    item->SetID(OLESTR("new"));
    EXPECT_EQ(list.GetOption(OLESTR("old")), item);
    EXPECT_EQ(list.GetOption(OLESTR("new")), nullptr);
    std::unique_ptr<CKrOptionListItem> const removed(list.RemoveOption(OLESTR("old")));
    EXPECT_EQ(removed.get(), item);
    EXPECT_EQ(list.GetOptionCount(), 0u);
    EXPECT_EQ(list.GetOption(OLESTR("old")), item) << "only its present identifier is forgotten";
}

TEST(CKrOptionList, CopiesNoOptions)
{
    std::size_t const before = LiveAllocations();
    {
        CKrOptionList list;
        list.AddOptionID(OLESTR("a"), true);
        CKrOptionList copy(list);
        EXPECT_EQ(copy.GetOptionCount(), 0u);
        EXPECT_EQ(copy.GetOption(OLESTR("a")), nullptr);
        copy.AddOptionIDs({OLESTR("b"), OLESTR("c")});
        copy.SelectIDs(OLESTR("b;c"), true);
        EXPECT_EQ(copy.GetSelectedIDs(), OLESTR("b;c")) << "the separator is copied";
        copy = list;
        EXPECT_EQ(copy.GetOptionCount(), 0u);
        EXPECT_EQ(Shown(list), OLESTR("a=a* "));
        EXPECT_NE(copy.GetOption(OLESTR("b")), nullptr) << "the index is left as it is";
        copy.Clear();
        EXPECT_EQ(copy.GetOption(OLESTR("b")), nullptr);
        copy.AddOptionID(OLESTR("b"), true);
        EXPECT_EQ(Shown(copy), OLESTR("b=b* "));
        CKrOptionList const & same = copy;
        copy = same;
        EXPECT_EQ(Shown(copy), OLESTR("b=b* "));
    }
    EXPECT_EQ(LiveAllocations(), before);
}
