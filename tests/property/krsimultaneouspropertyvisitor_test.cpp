#include <krcore/property/krsimultaneouspropertyvisitor.h>

#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <type_traits>

using kr::test::VirtualSlotOf;

namespace
{

/// Lets the test see the cursor, and writes down its name behind each step; "." is the root, "null" no cursor.
class Open : public CKrSimultaneousPropertyVisitor
{
public:
    using CKrSimultaneousPropertyVisitor::CKrSimultaneousPropertyVisitor;

    bool Match(CKrProperty * node) override
    {
        bool const matches = CKrSimultaneousPropertyVisitor::Match(node);
        log += OLESTR("m") + node->GetName() + (matches ? OLESTR("+") : OLESTR("-")) + Where() + OLESTR(" ");
        return matches;
    }
    bool Action(CKrProperty * node) override
    {
        bool const goesOn = CKrSimultaneousPropertyVisitor::Action(node);
        EXPECT_TRUE(goesOn);
        log += OLESTR("a") + node->GetName() + Where() + OLESTR(" ");
        return goesOn;
    }

    bool BaseMatch(CKrProperty * node) { return CKrSimultaneousPropertyVisitor::Match(node); }
    bool BaseAction(CKrProperty * node) { return CKrSimultaneousPropertyVisitor::Action(node); }
    CKrProperty * Cursor() const { return m_counterpart; }
    void SetCursor(CKrProperty * cursor) { m_counterpart = cursor; }
    CKrPropertySet & Other() const { return m_other; }

    static std::size_t SlotOfMatch() { return VirtualSlotOf(&Open::Match); }
    static std::size_t SlotOfAction() { return VirtualSlotOf(&Open::Action); }

    CString log;

private:
    CString Where() const
    {
        if (!m_counterpart)
            return OLESTR("null");
        return m_counterpart->IsRoot() ? CString(OLESTR(".")) : m_counterpart->GetName();
    }
};

/// Stays down while the children are walked, as a derived class is free to, and notes the pairs that it meets.
class Deep : public Open
{
public:
    using Open::Open;

    bool Match(CKrProperty * node) override { return node->IsRoot() || BaseMatch(node); }
    bool Action(CKrProperty * node) override
    {
        if (!node->IsRoot())
            log += node->GetName() + OLESTR("=") + m_counterpart->GetAsString() + OLESTR(" ");
        return true;
    }
    bool Finish(CKrProperty * node, bool) override { return node->IsRoot() || BaseAction(node); }
};

void AddText(CKrPropertySet & set, CString const & name, CString const & category, CString const & text)
{
    set.CreateProperty(name, CKrProperty::ePropString, category)->SetString(text);
}

} // namespace

TEST(CKrSimultaneousPropertyVisitor, StartsAtTheOtherRoot)
{
    CKrPropertySet other;
    Open const visitor(other);
    EXPECT_EQ(visitor.Cursor(), &other.GetRootProperty());
    EXPECT_EQ(&visitor.Other(), &other);
}

TEST(CKrSimultaneousPropertyVisitor, CopiesTheCursorToo)
{
    CKrPropertySet other;
    CKrProperty * const category = other.CreateCategory(OLESTR("A"));
    Open visitor(other);
    CKrProperty node(OLESTR("A"), CString(), true, true);
    ASSERT_TRUE(visitor.BaseMatch(&node));
    Open const copy(visitor);
    EXPECT_EQ(copy.Cursor(), category);
    EXPECT_EQ(&copy.Other(), &other);
    visitor.BaseAction(&node);
    EXPECT_EQ(copy.Cursor(), category);
}

TEST(CKrSimultaneousPropertyVisitor, StepsDownToTheFirstOfTheName)
{
    CKrPropertySet other;
    CKrProperty * const category = other.CreateCategory(OLESTR("A"));
    CKrProperty * const first = other.CreateProperty(OLESTR("x"), OLESTR("A"));
    other.CreateProperty(OLESTR("x"), OLESTR("A"));
    Open visitor(other);
    CKrProperty nodeA(OLESTR("A"), CString(), true, true);
    CKrProperty nodeX(OLESTR("x"), CString(), true, true);
    EXPECT_TRUE(visitor.BaseMatch(&nodeA));
    EXPECT_EQ(visitor.Cursor(), category);
    EXPECT_TRUE(visitor.BaseMatch(&nodeX));
    EXPECT_EQ(visitor.Cursor(), first);
}

TEST(CKrSimultaneousPropertyVisitor, StaysWhereThereIsNoCounterpart)
{
    CKrPropertySet other;
    CKrProperty * const category = other.CreateCategory(OLESTR("A"));
    Open visitor(other);
    CKrProperty lower(OLESTR("a"), CString(), true, true); // case counts
    EXPECT_FALSE(visitor.BaseMatch(&lower));
    EXPECT_EQ(visitor.Cursor(), &other.GetRootProperty());
    visitor.SetCursor(category);
    EXPECT_FALSE(visitor.BaseMatch(&lower));
    EXPECT_EQ(visitor.Cursor(), category);
}

TEST(CKrSimultaneousPropertyVisitor, MatchesNothingWithoutNodeOrCursor)
{
    CKrPropertySet other;
    other.CreateCategory(OLESTR("A"));
    Open visitor(other);
    EXPECT_FALSE(visitor.BaseMatch(nullptr));
    EXPECT_EQ(visitor.Cursor(), &other.GetRootProperty());
    visitor.SetCursor(nullptr);
    CKrProperty node(OLESTR("A"), CString(), true, true);
    EXPECT_FALSE(visitor.BaseMatch(&node));
    EXPECT_FALSE(visitor.BaseMatch(nullptr));
    EXPECT_EQ(visitor.Cursor(), nullptr);
}

TEST(CKrSimultaneousPropertyVisitor, StepsUpToNothingAboveTheRoot)
{
    CKrPropertySet other;
    Open visitor(other);
    CKrProperty node;
    EXPECT_TRUE(visitor.BaseAction(&node));
    EXPECT_EQ(visitor.Cursor(), nullptr);
    EXPECT_TRUE(visitor.BaseAction(&node)); // true also without a cursor
    EXPECT_TRUE(visitor.BaseAction(nullptr));
    EXPECT_EQ(visitor.Cursor(), nullptr);
}

// Deliberate: the cursor steps up before the children are walked, so properties are looked up among the other set's categories.
TEST(CKrSimultaneousPropertyVisitor, IsBackAtTheOtherRootBeforeTheChildrenAreWalked)
{
    CKrPropertySet walked;
    walked.CreateProperty(OLESTR("1"), OLESTR("A"));
    walked.CreateProperty(OLESTR("B"), OLESTR("A")); // a property by the name of a category
    walked.CreateProperty(OLESTR("2"), OLESTR("C"));
    CKrPropertySet other;
    other.CreateProperty(OLESTR("1"), OLESTR("A"));
    other.CreateProperty(OLESTR("B"), OLESTR("A"));
    other.CreateCategory(OLESTR("B"));

    Open visitor(other);
    EXPECT_TRUE(walked.Visit(visitor));
    EXPECT_EQ(visitor.log, OLESTR("m-. mA+A aA. m1-. mB+B aB. mC-. m2-. "));
    EXPECT_EQ(visitor.Cursor(), &other.GetRootProperty());
}

TEST(CKrSimultaneousPropertyVisitor, ActsAtTheRootOnlyWhereTheOtherRootHasANamelessChild)
{
    CKrPropertySet walked;
    walked.CreateCategory(OLESTR("A"));
    CKrPropertySet other;
    other.CreateCategory(OLESTR("A"));
    other.GetRootProperty().AddSubProperty(new CKrProperty);

    Open visitor(other);
    EXPECT_TRUE(walked.Visit(visitor));
    EXPECT_EQ(visitor.log, OLESTR("m+ a. mA+A aA. "));
}

TEST(CKrSimultaneousPropertyVisitor, LetsADerivedVisitorStayDown)
{
    CKrPropertySet walked;
    AddText(walked, OLESTR("1"), OLESTR("A"), OLESTR("here"));
    AddText(walked, OLESTR("2"), OLESTR("A"), OLESTR("here"));
    CKrPropertySet other;
    AddText(other, OLESTR("2"), OLESTR("A"), OLESTR("two"));
    AddText(other, OLESTR("1"), OLESTR("A"), OLESTR("one"));

    Deep visitor(other);
    EXPECT_TRUE(walked.Visit(visitor));
    EXPECT_EQ(visitor.log, OLESTR("A= 1=one 2=two "));
    EXPECT_EQ(visitor.Cursor(), &other.GetRootProperty());
}

TEST(CKrSimultaneousPropertyVisitor, ChangesNeitherTree)
{
    CKrPropertySet walked;
    AddText(walked, OLESTR("1"), OLESTR("A"), OLESTR("one"));
    CKrPropertySet other;
    AddText(other, OLESTR("1"), OLESTR("A"), OLESTR("two"));
    CKrPropertySet const walkedBefore(walked);
    CKrPropertySet const otherBefore(other);
    CKrSimultaneousPropertyVisitor visitor(other);
    EXPECT_TRUE(walked.Visit(visitor));
    EXPECT_TRUE(walked.IsEqual(walkedBefore));
    EXPECT_TRUE(other.IsEqual(otherBefore));
}

TEST(CKrSimultaneousPropertyVisitor, AddsNoOperationToThoseOfAVisitor)
{
    EXPECT_EQ(Open::SlotOfMatch(), VirtualSlotOf(&kr::visitor<CKrProperty>::Match));
    EXPECT_EQ(Open::SlotOfAction(), VirtualSlotOf(&kr::visitor<CKrProperty>::Action));
    EXPECT_TRUE((std::is_base_of_v<kr::visitor<CKrProperty>, CKrSimultaneousPropertyVisitor>));
}
