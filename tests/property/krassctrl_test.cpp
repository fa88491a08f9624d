#include <krcore/property/krassctrl.h>

#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>
#include <vector>

using kr::test::FailUntilItPasses;
using kr::test::Narrow;

namespace
{

CKrEvent::EventType Key(int number) { return static_cast<CKrEvent::EventType>(number); }

CKrEvent MakeEvent(WCHAR const * globalName)
{
    CKrEvent event;
    event.SetGlobalName(globalName);
    return event;
}

/// Differs from a new one in each field.
CKrAssCtrl MakeFull(void * data)
{
    CKrAssCtrl control;
    control.SetUserCtrlType(OLESTR("Picker"));
    control.SetVisible(false);
    control.SetEnabled(false);
    control.SetTooltip(OLESTR("tip"));
    control.AddEvent(Key(3), MakeEvent(OLESTR("EDIT")));
    control.PutData(data);
    control.SetSelectionList({CKrVariant(1), CKrVariant(OLESTR("two"))});
    control.SetEditSelectionList(true);
    return control;
}

void ExpectFull(CKrAssCtrl & control, void const * data)
{
    EXPECT_EQ(control.GetType(), CKrAssCtrl::eUserDefinedCtrl);
    EXPECT_EQ(control.GetUserCtrlType(), OLESTR("Picker"));
    EXPECT_FALSE(control.IsVisible());
    EXPECT_FALSE(control.IsEnabled());
    EXPECT_EQ(control.GetTooltip(), OLESTR("tip"));
    ASSERT_NE(control.GetEvent(Key(3)), nullptr);
    EXPECT_EQ(control.GetEvent(Key(3))->GetGlobalName(), OLESTR("EDIT"));
    EXPECT_EQ(control.GetData(), data);
    ASSERT_NE(control.GetSelectionList(), nullptr);
    ASSERT_EQ(control.GetSelectionList()->size(), 2u);
    EXPECT_EQ(static_cast<int>((*control.GetSelectionList())[0]), 1);
    EXPECT_EQ((*control.GetSelectionList())[1].GetAsString(), OLESTR("two"));
    EXPECT_TRUE(control.IsSelectionListEditable());
}

void ExpectNew(CKrAssCtrl & control, CKrAssCtrl::ECtrlType type)
{
    EXPECT_EQ(control.GetType(), type);
    EXPECT_EQ(control.GetUserCtrlType(), OLESTR(""));
    EXPECT_TRUE(control.IsVisible());
    EXPECT_TRUE(control.IsEnabled());
    EXPECT_EQ(control.GetTooltip(), OLESTR(""));
    EXPECT_FALSE(control.HasEvents());
    EXPECT_EQ(control.GetData(), nullptr);
    EXPECT_EQ(control.GetSelectionList(), nullptr);
    EXPECT_FALSE(control.IsSelectionListEditable());
}

} // namespace

TEST(CKrAssCtrl, IsVisibleEnabledAndOtherwiseEmptyByDefault)
{
    EXPECT_TRUE(std::has_virtual_destructor_v<CKrAssCtrl>);
    CKrAssCtrl none;
    ExpectNew(none, CKrAssCtrl::eNoCtrl);
    EXPECT_EQ(none.GetCtrlTypeAsString(), OLESTR(""));
    CKrAssCtrl memo(CKrAssCtrl::eMemoCtrl);
    ExpectNew(memo, CKrAssCtrl::eMemoCtrl);
    EXPECT_EQ(memo.GetCtrlTypeAsString(), OLESTR("eMemoCtrl"));
}

TEST(CKrAssCtrlTypes, HaveTheirNumberAndTheirWordInAnyCase)
{
    // clang-format off
    struct Row { CKrAssCtrl::ECtrlType type; int number; WCHAR const * word; };
    Row const rows[] = {
        { CKrAssCtrl::eEditCtrl,        1,   OLESTR("eEditCtrl")        },
        { CKrAssCtrl::eComboCtrl,       2,   OLESTR("eComboCtrl")       },
        { CKrAssCtrl::eColorCtrl,       3,   OLESTR("eColorCtrl")       },
        { CKrAssCtrl::eFileNameCtrl,    4,   OLESTR("eFileNameCtrl")    },
        { CKrAssCtrl::eDirNameCtrl,     5,   OLESTR("eDirNameCtrl")     },
        { CKrAssCtrl::ePasswordCtrl,    6,   OLESTR("ePasswordCtrl")    },
        { CKrAssCtrl::eDateCtrl,        7,   OLESTR("eDateCtrl")        },
        { CKrAssCtrl::eTimeCtrl,        8,   OLESTR("eTimeCtrl")        },
        { CKrAssCtrl::eMemoCtrl,        9,   OLESTR("eMemoCtrl")        },
        { CKrAssCtrl::eCheckCtrl,       10,  OLESTR("eCheckCtrl")       },
        { CKrAssCtrl::eDateTimeCtrl,    11,  OLESTR("eDateTimeCtrl")    },
        { CKrAssCtrl::eLinkCtrl,        12,  OLESTR("eLinkCtrl")        },
        { CKrAssCtrl::eWebAddrCtrl,     13,  OLESTR("eWebAddrCtrl")     },
        { CKrAssCtrl::eMailAddrCtrl,    14,  OLESTR("eMailAddrCtrl")    },
        { CKrAssCtrl::eUserDefinedCtrl, 101, OLESTR("eUserDefinedCtrl") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.word));
        CString upper = row.word;
        upper.MakeUpper();
        EXPECT_EQ(static_cast<int>(row.type), row.number);
        EXPECT_EQ(CKrAssCtrl::CtrlTypeToString(row.type), row.word);
        EXPECT_EQ(CKrAssCtrl::CtrlTypeFromString(row.word), row.type);
        EXPECT_EQ(CKrAssCtrl::CtrlTypeFromString(upper), row.type);
    }
}

TEST(CKrAssCtrlTypes, HaveNoWordForOtherNumbersAndNoNumberForOtherWords)
{
    for (int const number : {0, -1, 15, 100, 102})
        EXPECT_EQ(CKrAssCtrl::CtrlTypeToString(static_cast<CKrAssCtrl::ECtrlType>(number)), OLESTR("")) << number;
    for (WCHAR const * const text :
         {OLESTR(""), OLESTR("EditCtrl"), OLESTR(" eEditCtrl"), OLESTR("eNoCtrl"), OLESTR("1")})
        EXPECT_EQ(CKrAssCtrl::CtrlTypeFromString(text), CKrAssCtrl::eNoCtrl) << Narrow(text);
}

TEST(CKrAssCtrlTypes, EmptyTheUserControlTypeUnlessUserDefined)
{
    CKrAssCtrl control;
    control.SetUserCtrlType(OLESTR("Picker"));
    control.SetType(CKrAssCtrl::eUserDefinedCtrl);
    EXPECT_EQ(control.GetUserCtrlType(), OLESTR("Picker"));
    control.SetType(CKrAssCtrl::eEditCtrl);
    EXPECT_EQ(control.GetUserCtrlType(), OLESTR(""));
    EXPECT_EQ(control.GetType(), CKrAssCtrl::eEditCtrl);
}

TEST(CKrAssCtrlTypes, AreSetByTextWithUnknownWordsAsUserDefined)
{
    // clang-format off
    struct Row { WCHAR const * text; CKrAssCtrl::ECtrlType type; WCHAR const * userType; WCHAR const * asString; };
    Row const rows[] = {
        { OLESTR("Own"),              CKrAssCtrl::eUserDefinedCtrl, OLESTR("Own"),    OLESTR("Own")       },
        { OLESTR(" eEditCtrl"),       CKrAssCtrl::eUserDefinedCtrl, OLESTR(" eEditCtrl"), OLESTR(" eEditCtrl") },
        { OLESTR("eEditCtrl"),        CKrAssCtrl::eEditCtrl,        OLESTR("Before"), OLESTR("eEditCtrl") },   // Deliberate: the user control type stays
        { OLESTR("EMEMOCTRL"),        CKrAssCtrl::eMemoCtrl,        OLESTR("Before"), OLESTR("eMemoCtrl") },
        { OLESTR("eUserDefinedCtrl"), CKrAssCtrl::eUserDefinedCtrl, OLESTR("Before"), OLESTR("Before")    },
        { OLESTR(""),                 CKrAssCtrl::eNoCtrl,          OLESTR("Before"), OLESTR("")          },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrAssCtrl control;
        control.SetUserCtrlType(OLESTR("Before"));
        control.SetCtrlType(row.text);
        EXPECT_EQ(control.GetType(), row.type);
        EXPECT_EQ(control.GetUserCtrlType(), row.userType);
        EXPECT_EQ(control.GetCtrlTypeAsString(), row.asString);
    }
    EXPECT_EQ(CKrAssCtrl::CtrlTypeToString(CKrAssCtrl::eUserDefinedCtrl), OLESTR("eUserDefinedCtrl"));
}

TEST(CKrAssCtrlTypes, BecomeUserDefinedByTextAndStayForAnEmptyOne)
{
    CKrAssCtrl control(CKrAssCtrl::eEditCtrl);
    control.SetUserCtrlType(CString());
    EXPECT_EQ(control.GetType(), CKrAssCtrl::eEditCtrl);
    control.SetUserCtrlType(OLESTR("Picker"));
    EXPECT_EQ(control.GetType(), CKrAssCtrl::eUserDefinedCtrl);
    control.SetUserCtrlType(CString());
    EXPECT_EQ(control.GetType(), CKrAssCtrl::eUserDefinedCtrl);
    EXPECT_EQ(control.GetCtrlTypeAsString(), OLESTR(""));
}

TEST(CKrAssCtrl, TakesNoMemoryForWhatItDoesWithout)
{
    std::size_t const before = kr::test::LiveAllocations();
    CKrAssCtrl control(CKrAssCtrl::eEditCtrl);
    control.SetTooltip(CString());
    control.SetUserCtrlType(CString());
    control.SetCtrlType(CString());
    control.SetType(CKrAssCtrl::eComboCtrl);
    control.SetEditSelectionList(true);
    control.ClearSelectionList();
    control.ClearEvents();
    CKrAssCtrl const copy(control);
    EXPECT_EQ(copy.GetTooltip(), OLESTR(""));
    EXPECT_EQ(copy.GetEvent(Key(1)), nullptr);
    EXPECT_EQ(kr::test::LiveAllocations(), before);
}

TEST(CKrAssCtrl, LosesItsTooltip)
{
    CKrAssCtrl control;
    control.SetTooltip(OLESTR("tip"));
    control.SetTooltip(control.GetTooltip());
    EXPECT_EQ(control.GetTooltip(), OLESTR("tip"));
    control.SetTooltip(CString());
    EXPECT_EQ(control.GetTooltip(), OLESTR(""));
}

TEST(CKrAssCtrlSelectionList, IsAbsentEmptyOrFilled)
{
    CKrAssCtrl control;
    EXPECT_EQ(control.GetSelectionList(), nullptr);
    control.CreateSelectionList();
    ASSERT_NE(control.GetSelectionList(), nullptr);
    EXPECT_TRUE(control.GetSelectionList()->empty());
    control.GetSelectionList()->push_back(CKrVariant(5));
    EXPECT_EQ(std::as_const(control).GetSelectionList()->size(), 1u);
    control.CreateSelectionList();
    EXPECT_TRUE(control.GetSelectionList()->empty());
    control.ClearSelectionList();
    EXPECT_EQ(control.GetSelectionList(), nullptr);
    EXPECT_FALSE(control.IsSelectionListEditable());
    control.SetEditSelectionList(true); // with and without a list
    EXPECT_TRUE(control.IsSelectionListEditable());
    control.SetSelectionList({CKrVariant(1), CKrVariant(2)});
    EXPECT_EQ(control.GetSelectionList()->size(), 2u);
    control.SetSelectionList({});
    ASSERT_NE(control.GetSelectionList(), nullptr);
    EXPECT_TRUE(control.GetSelectionList()->empty());
}

TEST(CKrAssCtrlSelectionList, MayBeSetToItself)
{
    CKrAssCtrl control;
    control.SetSelectionList({CKrVariant(1), CKrVariant(OLESTR("two"))});
    control.SetSelectionList(*control.GetSelectionList());
    ASSERT_EQ(control.GetSelectionList()->size(), 2u);
    EXPECT_EQ((*control.GetSelectionList())[1].GetAsString(), OLESTR("two"));
}

TEST(CKrAssCtrlSelectionList, AssignedToItselfIsTheSameList)
{
    kr::detail::SelectionList list, other;
    list.Create(std::vector<CKrVariant>{CKrVariant(1)});
    std::vector<CKrVariant> const * const values = list.Get();
    kr::detail::SelectionList const & self = list;
    list = self;
    EXPECT_EQ(list.Get(), values);
    other = list;
    EXPECT_NE(other.Get(), values);
    EXPECT_EQ(other.Get()->size(), 1u);
}

TEST(CKrAssCtrlEvents, AreKeptOnceForEachKey)
{
    CKrAssCtrl control;
    EXPECT_FALSE(control.HasEvents());
    EXPECT_EQ(control.GetEvent(Key(0)), nullptr);
    CKrEvent event = MakeEvent(OLESTR("ONE"));
    event.SetEventType(Key(9)); // need not be the key
    control.AddEvent(Key(1), event);
    event.SetGlobalName(OLESTR("CHANGED")); // a copy is stored
    EXPECT_TRUE(control.HasEvents());
    ASSERT_NE(control.GetEvent(Key(1)), nullptr);
    EXPECT_EQ(control.GetEvent(Key(1))->GetGlobalName(), OLESTR("ONE"));
    EXPECT_EQ(control.GetEvent(Key(1))->GetEventType(), Key(9));
    EXPECT_EQ(control.GetEvent(Key(9)), nullptr);
    control.AddEvent(Key(1), MakeEvent(OLESTR("TWO")));
    control.AddEvent(Key(2), *control.GetEvent(Key(1)));
    EXPECT_EQ(control.GetEvent(Key(1))->GetGlobalName(), OLESTR("TWO"));
    EXPECT_EQ(control.GetEvent(Key(2))->GetGlobalName(), OLESTR("TWO"));
    control.ClearEvents();
    EXPECT_FALSE(control.HasEvents());
    EXPECT_EQ(control.GetEvent(Key(1)), nullptr);
}

TEST(CKrAssCtrlEvents, AreReplacedByThoseOfAnother)
{
    CKrAssCtrl target, source;
    target.AddEvent(Key(1), MakeEvent(OLESTR("OWN")));
    source.AddEvent(Key(2), MakeEvent(OLESTR("NEW")));
    target.SetTooltip(OLESTR("tip"));
    target.CopyEvents(source);
    EXPECT_EQ(target.GetEvent(Key(1)), nullptr);
    EXPECT_EQ(target.GetEvent(Key(2))->GetGlobalName(), OLESTR("NEW"));
    EXPECT_NE(target.GetEvent(Key(2)), source.GetEvent(Key(2)));
    EXPECT_EQ(target.GetTooltip(), OLESTR("tip"));
}

TEST(CKrAssCtrlEvents, AreGoneWhenAControlCopiesItsOwn)
{
    CKrAssCtrl control;
    control.AddEvent(Key(1), MakeEvent(OLESTR("OWN")));
    control.CopyEvents(control);
    EXPECT_FALSE(control.HasEvents());
}

TEST(CKrAssCtrlCopy, TakesAllAndSharesTheDataPointerAlone)
{
    int data = 0;
    CKrAssCtrl source = MakeFull(&data);
    CKrAssCtrl copy(source), assigned(CKrAssCtrl::eMemoCtrl);
    assigned.AddEvent(Key(7), MakeEvent(OLESTR("OLD")));
    CKrAssCtrl const & result = assigned = source;
    EXPECT_EQ(&result, &assigned);
    EXPECT_EQ(assigned.GetEvent(Key(7)), nullptr);
    EXPECT_NE(copy.GetSelectionList(), source.GetSelectionList());
    source.GetSelectionList()->clear();
    source.ClearEvents();
    ExpectFull(copy, &data);
    ExpectFull(assigned, &data);
}

TEST(CKrAssCtrlCopy, OfNoSelectionListIsNoSelectionList)
{
    int data = 0;
    CKrAssCtrl const empty;
    CKrAssCtrl copy(empty), assigned = MakeFull(&data);
    ExpectNew(copy, CKrAssCtrl::eNoCtrl);
    assigned = empty;
    ExpectNew(assigned, CKrAssCtrl::eNoCtrl);
}

TEST(CKrAssCtrlCopy, ToItselfHasNoEffect)
{
    int data = 0;
    CKrAssCtrl control = MakeFull(&data);
    CKrEvent const * const event = control.GetEvent(Key(3));
    std::vector<CKrVariant> const * const list = control.GetSelectionList();
    CKrAssCtrl const & self = control;
    control = self;
    EXPECT_EQ(control.GetEvent(Key(3)), event);
    EXPECT_EQ(control.GetSelectionList(), list);
    ExpectFull(control, &data);
}

TEST(CKrAssCtrlCopy, LeavesAllAsItWasWhereMemoryRunsOut)
{
    int data = 0;
    CKrAssCtrl source = MakeFull(&data), target(CKrAssCtrl::eMemoCtrl);
    EXPECT_GT(FailUntilItPasses([&] { target = source; }, [&] { ExpectNew(target, CKrAssCtrl::eMemoCtrl); }), 2u);
    ExpectFull(target, &data);
    CKrAssCtrl empty;
    EXPECT_GT(FailUntilItPasses([&] { empty.CopyEvents(source); }, [&] { EXPECT_FALSE(empty.HasEvents()); }), 0u);
    std::vector<CKrVariant> const values = {CKrVariant(1)};
    EXPECT_GT(FailUntilItPasses([&] { source.SetSelectionList(values); }, [&] { ExpectFull(source, &data); }), 1u);
}

TEST(CKrAssCtrlMove, HandsOverAllWithoutCopying)
{
    int data = 0;
    CKrAssCtrl source = MakeFull(&data);
    CKrEvent const * const event = source.GetEvent(Key(3));
    std::vector<CKrVariant> const * const list = source.GetSelectionList();
    CKrAssCtrl moved(std::move(source)), assigned(CKrAssCtrl::eMemoCtrl);
    EXPECT_EQ(moved.GetEvent(Key(3)), event);
    EXPECT_EQ(moved.GetSelectionList(), list);
    ExpectFull(moved, &data);
    assigned.AddEvent(Key(7), MakeEvent(OLESTR("OLD")));
    assigned = std::move(moved);
    EXPECT_EQ(assigned.GetEvent(Key(3)), event);
    EXPECT_EQ(assigned.GetEvent(Key(7)), nullptr);
    EXPECT_EQ(assigned.GetSelectionList(), list);
    ExpectFull(assigned, &data);
}

TEST(CKrAssCtrlCompare, CountsTypeUserTypeFlagsAndTooltipAlone)
{
    static int s_data = 0;
    // clang-format off
    struct Row { char const * what; void (*change)(CKrAssCtrl &); bool equal; };
    Row const rows[] = {
        { "nothing",           [](CKrAssCtrl &) {},                                                          true  },
        { "type",              [](CKrAssCtrl & control) { control.SetType(CKrAssCtrl::eMemoCtrl); },         false },
        { "user control type", [](CKrAssCtrl & control) { control.SetUserCtrlType(OLESTR("PICKER")); },      false },
        { "visible",           [](CKrAssCtrl & control) { control.SetVisible(true); },                       false },
        { "enabled",           [](CKrAssCtrl & control) { control.SetEnabled(true); },                       false },
        { "tooltip",           [](CKrAssCtrl & control) { control.SetTooltip(OLESTR("Tip")); },              false },
        { "events",            [](CKrAssCtrl & control) { control.ClearEvents(); },                          true  },
        { "selection list",    [](CKrAssCtrl & control) { control.ClearSelectionList(); },                   true  },
        { "editable list",     [](CKrAssCtrl & control) { control.SetEditSelectionList(false); },            true  },
        { "data",              [](CKrAssCtrl & control) { control.PutData(nullptr); },                       true  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrAssCtrl const one = MakeFull(&s_data);
        CKrAssCtrl other = one;
        row.change(other);
        EXPECT_EQ(one == other, row.equal);
        EXPECT_EQ(one != other, !row.equal);
        EXPECT_EQ(other == one, row.equal);
    }
    CKrAssCtrl const control;
    CKrAssCtrl const & self = control;
    EXPECT_TRUE(control == self);
}
