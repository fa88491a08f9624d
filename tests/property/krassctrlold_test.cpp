// What the older control association has of its own; events and selection lists are the same in both generations.
#include <krcore/property/krassctrlold.h>

#include <krcore/property/krassctrl.h>

#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <utility>

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

int s_data = 0;

/// Differs from a new one in each field.
CKrAssCtrlOld MakeFull()
{
    CKrAssCtrlOld control(CKrAssCtrlOld::eObjDouble, OLESTR("width"));
    control.SetCtrlText(OLESTR("Width"));
    control.SetVisible(false);
    control.SetEnabled(false);
    control.SetOrder(7);
    control.SetTooltip(OLESTR("tip"));
    control.AddEvent(Key(3), MakeEvent(OLESTR("EDIT")));
    control.PutData(&s_data);
    control.SetSelectionList({CKrVariant(1), CKrVariant(OLESTR("two"))});
    control.SetEditSelectionList(true);
    return control;
}

void ExpectFull(CKrAssCtrlOld const & control)
{
    EXPECT_EQ(control.GetType(), CKrAssCtrlOld::eObjDouble);
    EXPECT_EQ(control.GetObjName(), OLESTR("width"));
    EXPECT_EQ(control.GetCtrlText(), OLESTR("Width"));
    EXPECT_FALSE(control.IsVisible());
    EXPECT_FALSE(control.IsEnabled());
    EXPECT_EQ(control.GetOrder(), 7);
    EXPECT_EQ(control.GetTooltip(), OLESTR("tip"));
    EXPECT_TRUE(control.HasEvents());
    ASSERT_NE(control.GetEvent(Key(3)), nullptr);
    EXPECT_EQ(control.GetEvent(Key(3))->GetGlobalName(), OLESTR("EDIT"));
    EXPECT_EQ(control.GetData(), &s_data);
    ASSERT_NE(control.GetSelectionList(), nullptr);
    ASSERT_EQ(control.GetSelectionList()->size(), 2u);
    EXPECT_EQ((*control.GetSelectionList())[1].GetAsString(), OLESTR("two"));
    EXPECT_TRUE(control.IsSelectionListEditable());
}

void ExpectNew(CKrAssCtrlOld const & control, CKrAssCtrlOld::EObjType type, WCHAR const * name)
{
    EXPECT_EQ(control.GetType(), type);
    EXPECT_EQ(control.GetObjName(), name);
    EXPECT_EQ(control.GetCtrlText(), name);
    EXPECT_TRUE(control.IsVisible());
    EXPECT_TRUE(control.IsEnabled());
    EXPECT_EQ(control.GetOrder(), -1);
    EXPECT_TRUE(control.GetTooltip().IsEmpty());
    EXPECT_FALSE(control.HasEvents());
    EXPECT_EQ(control.GetEvent(Key(3)), nullptr);
    EXPECT_EQ(control.GetData(), nullptr);
    EXPECT_EQ(control.GetSelectionList(), nullptr);
    EXPECT_FALSE(control.IsSelectionListEditable());
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrAssCtrlOld>);

TEST(CKrAssCtrlOld, StartsWithItsNameAsControlText)
{
    ExpectNew(CKrAssCtrlOld(), CKrAssCtrlOld::eObjNone, OLESTR(""));
    ExpectNew(CKrAssCtrlOld(CKrAssCtrlOld::eObjDate, OLESTR("day")), CKrAssCtrlOld::eObjDate, OLESTR("day"));
}

TEST(CKrAssCtrlOld, KeepsNameAndControlTextApart)
{
    CKrAssCtrlOld control(CKrAssCtrlOld::eObjString, OLESTR("name"));
    control.SetCtrlText(OLESTR("text"));
    control.SetObjName(OLESTR("other"));
    control.SetType(CKrAssCtrlOld::eObjInt);
    EXPECT_EQ(control.GetObjName(), OLESTR("other"));
    EXPECT_EQ(control.GetCtrlText(), OLESTR("text"));
    EXPECT_EQ(control.GetType(), CKrAssCtrlOld::eObjInt);
}

TEST(CKrAssCtrlOldTypes, HaveTheirNumbersAndTheirWordsInAnyCase)
{
    struct Row
    {
        CKrAssCtrlOld::ECtrlType type;
        int number;
        WCHAR const * word;
    };
    // clang-format off
    Row const rows[] = {
        { CKrAssCtrlOld::eEditCtrl,        1,  OLESTR("eEditCtrl")        },
        { CKrAssCtrlOld::eComboCtrl,       2,  OLESTR("eComboCtrl")       },
        { CKrAssCtrlOld::eColorCtrl,       3,  OLESTR("eColorCtrl")       },
        { CKrAssCtrlOld::eFileNameCtrl,    4,  OLESTR("eFileNameCtrl")    },
        { CKrAssCtrlOld::eDirNameCtrl,     5,  OLESTR("eDirNameCtrl")     },
        { CKrAssCtrlOld::ePasswordCtrl,    6,  OLESTR("ePasswordCtrl")    },
        { CKrAssCtrlOld::eDateCtrl,        7,  OLESTR("eDateCtrl")        },
        { CKrAssCtrlOld::eTimeCtrl,        8,  OLESTR("eTimeCtrl")        },
        { CKrAssCtrlOld::eMemoCtrl,        9,  OLESTR("eMemoCtrl")        },
        { CKrAssCtrlOld::eUserDefinedCtrl, 10, OLESTR("eUserDefinedCtrl") },
        { CKrAssCtrlOld::eConfigListCtrl,  11, OLESTR("eConfigListCtrl")  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.word));
        CString upper = row.word;
        upper.MakeUpper();
        EXPECT_EQ(static_cast<int>(row.type), row.number);
        EXPECT_EQ(CKrAssCtrlOld::CtrlTypeToString(row.type), row.word);
        EXPECT_EQ(CKrAssCtrlOld::CtrlTypeFromString(row.word), row.type);
        EXPECT_EQ(CKrAssCtrlOld::CtrlTypeFromString(upper), row.type);
    }
    for (int const number : {-1, 0, 12, 101})
        EXPECT_TRUE(CKrAssCtrlOld::CtrlTypeToString(static_cast<CKrAssCtrlOld::ECtrlType>(number)).IsEmpty());
    for (WCHAR const * const text : {OLESTR(""), OLESTR("eCheckCtrl"), OLESTR(" eEditCtrl"), OLESTR("1")})
        EXPECT_EQ(CKrAssCtrlOld::CtrlTypeFromString(text), CKrAssCtrlOld::eNoCtrl) << Narrow(text);
}

TEST(CKrAssCtrlOldTypes, AreNumberedOtherwiseThanInTheNewerGeneration)
{
    EXPECT_EQ(CKrAssCtrl::CtrlTypeToString(static_cast<CKrAssCtrl::ECtrlType>(10)), OLESTR("eCheckCtrl"));
    EXPECT_EQ(CKrAssCtrlOld::CtrlTypeToString(static_cast<CKrAssCtrlOld::ECtrlType>(10)), OLESTR("eUserDefinedCtrl"));
    EXPECT_EQ(CKrAssCtrl::CtrlTypeFromString(OLESTR("eUserDefinedCtrl")), 101);
    EXPECT_EQ(CKrAssCtrl::CtrlTypeFromString(OLESTR("eConfigListCtrl")), 0);
}

TEST(CKrAssCtrlOldTypes, OfValuesHaveTheirNumbers)
{
    EXPECT_EQ(CKrAssCtrlOld::eObjNone, 0);
    EXPECT_EQ(CKrAssCtrlOld::eObjString, 1);
    EXPECT_EQ(CKrAssCtrlOld::eObjDouble, 2);
    EXPECT_EQ(CKrAssCtrlOld::eObjInt, 3);
    EXPECT_EQ(CKrAssCtrlOld::eObjBool, 4);
    EXPECT_EQ(CKrAssCtrlOld::eObjDate, 6); // 5 is free
}

TEST(CKrAssCtrlOldSelectionList, IsAbsentEmptyOrFilled)
{
    CKrAssCtrlOld control;
    control.CreateSelectionList();
    ASSERT_NE(control.GetSelectionList(), nullptr);
    EXPECT_TRUE(control.GetSelectionList()->empty());
    control.GetSelectionList()->push_back(CKrVariant(5));
    EXPECT_EQ(std::as_const(control).GetSelectionList()->size(), 1u);
    control.SetSelectionList({CKrVariant(1), CKrVariant(2)});
    EXPECT_EQ(control.GetSelectionList()->size(), 2u);
    control.ClearSelectionList();
    EXPECT_EQ(control.GetSelectionList(), nullptr);
}

TEST(CKrAssCtrlOldEvents, AreKeptReplacedAndCleared)
{
    CKrAssCtrlOld control;
    control.AddEvent(Key(1), MakeEvent(OLESTR("ONE")));
    control.AddEvent(Key(1), MakeEvent(OLESTR("TWO")));
    EXPECT_EQ(control.GetEvent(Key(1))->GetGlobalName(), OLESTR("TWO"));
    CKrAssCtrlOld other;
    other.AddEvent(Key(9), MakeEvent(OLESTR("OLD")));
    other.CopyEvents(control);
    EXPECT_EQ(other.GetEvent(Key(9)), nullptr);
    EXPECT_EQ(other.GetEvent(Key(1))->GetGlobalName(), OLESTR("TWO"));
    control.ClearEvents();
    EXPECT_FALSE(control.HasEvents());
    other.CopyEvents(other); // Deliberate: a control's own events are gone
    EXPECT_FALSE(other.HasEvents());
}

TEST(CKrAssCtrlOldCopy, TakesAllAndSharesTheDataPointerAlone)
{
    CKrAssCtrlOld source = MakeFull();
    CKrAssCtrlOld const copy(source);
    CKrAssCtrlOld assigned(CKrAssCtrlOld::eObjInt, OLESTR("old"));
    assigned.AddEvent(Key(7), MakeEvent(OLESTR("OLD")));
    EXPECT_EQ(&(assigned = source), &assigned);
    EXPECT_EQ(assigned.GetEvent(Key(7)), nullptr);
    source.GetSelectionList()->clear();
    source.ClearEvents();
    ExpectFull(copy);
    ExpectFull(assigned);
    CKrAssCtrlOld const moved(std::move(assigned));
    ExpectFull(moved);
}

TEST(CKrAssCtrlOldCopy, ToItselfHasNoEffect)
{
    CKrAssCtrlOld control = MakeFull();
    std::vector<CKrVariant> const * const list = control.GetSelectionList();
    CKrAssCtrlOld const & self = control;
    control = self;
    EXPECT_EQ(control.GetSelectionList(), list);
    ExpectFull(control);
}

TEST(CKrAssCtrlOldCopy, LeavesAllAsItWasWhereMemoryRunsOut)
{
    CKrAssCtrlOld const source = MakeFull();
    CKrAssCtrlOld target(CKrAssCtrlOld::eObjInt, OLESTR("old"));
    EXPECT_GT(
        FailUntilItPasses([&] { target = source; }, [&] { ExpectNew(target, CKrAssCtrlOld::eObjInt, OLESTR("old")); }),
        2u);
    ExpectFull(target);
}

TEST(CKrAssCtrlOldCompare, CountsAllButEventsSelectionListAndData)
{
    struct Row
    {
        char const * what;
        void (*change)(CKrAssCtrlOld &);
        bool isEqual;
    };
    // clang-format off
    Row const rows[] = {
        { "nothing",        [](CKrAssCtrlOld &) {},                                                      true  },
        { "type",           [](CKrAssCtrlOld & control) { control.SetType(CKrAssCtrlOld::eObjInt); },    false },
        { "name",           [](CKrAssCtrlOld & control) { control.SetObjName(OLESTR("Width")); },        false },
        { "control text",   [](CKrAssCtrlOld & control) { control.SetCtrlText(OLESTR("width")); },       false },
        { "visible",        [](CKrAssCtrlOld & control) { control.SetVisible(true); },                   false },
        { "enabled",        [](CKrAssCtrlOld & control) { control.SetEnabled(true); },                   false },
        { "order",          [](CKrAssCtrlOld & control) { control.SetOrder(8); },                        false },
        { "tooltip",        [](CKrAssCtrlOld & control) { control.SetTooltip(OLESTR("Tip")); },          false },
        { "events",         [](CKrAssCtrlOld & control) { control.ClearEvents(); },                      true  },
        { "selection list", [](CKrAssCtrlOld & control) { control.ClearSelectionList(); },               true  },
        { "editable list",  [](CKrAssCtrlOld & control) { control.SetEditSelectionList(false); },        true  },
        { "data",           [](CKrAssCtrlOld & control) { control.PutData(nullptr); },                   true  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrAssCtrlOld const one = MakeFull();
        CKrAssCtrlOld other = one;
        row.change(other);
        EXPECT_EQ(one == other, row.isEqual);
        EXPECT_EQ(one != other, !row.isEqual);
        EXPECT_EQ(other == one, row.isEqual);
    }
}
