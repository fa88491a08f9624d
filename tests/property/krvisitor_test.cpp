#include <krcore/property/krvisitor.h>

#include "tests/support/virtual_slot.h"

#include <krcore/diagnostics/krexception.h>
#include <krcore/property/krpropertyset.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>

using kr::test::VirtualSlotOf;
using Visitor = kr::visitor<CKrProperty>;

namespace
{

/// Writes down level and name of what is matched, and what is finished.
class Recorder : public Visitor
{
public:
    bool Match(CKrProperty * node) override
    {
        CString level;
        level.Format(OLESTR("%d"), node->GetLevel());
        log += level + node->GetName() + OLESTR(" ");
        return node->GetName() != unmatched;
    }
    bool Action(CKrProperty * node) override
    {
        ++actions;
        if (node->GetName() == failing)
            throw std::runtime_error("no such layer");
        return node->GetName() != ending;
    }
    bool Finish(CKrProperty * node, bool result) override
    {
        log += (result ? OLESTR("+") : OLESTR("-")) + node->GetName() + OLESTR(" ");
        return !result; // plays no part
    }

    CString log;
    CString unmatched = OLESTR("?");
    CString ending = OLESTR("?");
    CString failing = OLESTR("?");
    int actions = 0;
};

/// A(1 2) B(3)
CKrPropertySet MakeSet()
{
    CKrPropertySet set;
    set.CreateProperty(OLESTR("1"), OLESTR("A"));
    set.CreateProperty(OLESTR("2"), OLESTR("A"));
    set.CreateProperty(OLESTR("3"), OLESTR("B"));
    return set;
}

} // namespace

TEST(Visitor, SaysYesToEverything)
{
    Visitor visitor;
    CKrProperty node;
    EXPECT_TRUE(visitor.Match(&node));
    EXPECT_TRUE(visitor.Action(&node));
    EXPECT_TRUE(visitor.Finish(&node, false));
    EXPECT_TRUE(visitor.Finish(&node, true));
    EXPECT_TRUE(visitor.Match(nullptr));
}

TEST(Visitor, WalksAWholeSetAsItStands)
{
    CKrPropertySet set = MakeSet();
    Visitor visitor;
    EXPECT_TRUE(set.Visit(visitor));
    EXPECT_TRUE(set.GetRootProperty().Visit(visitor));
}

TEST(Visitor, HasNothingToCopy)
{
    Recorder recorder;
    recorder.log = OLESTR("kept");
    Visitor visitor;
    Visitor const copy(visitor);
    Visitor & base = recorder;
    EXPECT_EQ(&(base = copy), &base);
    EXPECT_EQ(recorder.log, OLESTR("kept"));
    EXPECT_TRUE(std::has_virtual_destructor_v<Visitor>);
}

TEST(Visitor, HasItsOperationsInOrder)
{
    EXPECT_EQ(VirtualSlotOf(&Visitor::Match), 0u);
    EXPECT_EQ(VirtualSlotOf(&Visitor::Action), 1u);
    EXPECT_EQ(VirtualSlotOf(&Visitor::Finish), 2u);
}

TEST(Visitor, MeetsTheRootOfASetAndItsCategoriesAsNodes)
{
    CKrPropertySet set = MakeSet();
    Recorder recorder;
    EXPECT_TRUE(set.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("0 1A 21 +1 22 +2 +A 1B 23 +3 +B + "));
    EXPECT_EQ(recorder.actions, 6);
}

TEST(Visitor, WalksBelowANodeThatDoesNotMatch)
{
    CKrPropertySet set = MakeSet();
    Recorder recorder;
    recorder.unmatched = OLESTR("A");
    EXPECT_TRUE(set.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("0 1A 21 +1 22 +2 +A 1B 23 +3 +B + "));
    EXPECT_EQ(recorder.actions, 5);
}

TEST(Visitor, EndsAWalkAndIsToldOnTheWayBack)
{
    CKrPropertySet set = MakeSet();
    Recorder recorder;
    recorder.ending = OLESTR("1");
    EXPECT_FALSE(set.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("0 1A 21 -1 -A - "));
    EXPECT_EQ(recorder.actions, 3);
}

TEST(Visitor, ThrowsThroughTheWalkOfANodeAsItIs)
{
    CKrPropertySet set = MakeSet();
    Recorder recorder;
    recorder.failing = OLESTR("2");
    EXPECT_THROW(set.GetRootProperty().Visit(recorder), std::runtime_error);
    EXPECT_EQ(recorder.log, OLESTR("0 1A 21 +1 22 ")); // nothing is finished
}

TEST(Visitor, ThrowsThroughTheWalkOfASetUnderItsGuard)
{
    CKrPropertySet set = MakeSet();
    Recorder recorder;
    recorder.failing = OLESTR("2");
    try
    {
        set.Visit(recorder);
        FAIL();
    }
    catch (CKrException const & exception)
    {
        EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("STL_EXCEPTION::no such layer\n\nkrpropertyset(553): "));
        EXPECT_EQ(exception.GetLevel(), CKrException::eLevelNormal);
    }
}
