#include <krcore/property/krproperty.h>

#include <krcore/property/krvisitor.h>

#include "tests/property/counted_property.h"

#include <gtest/gtest.h>

using kr::test::AddCounted;
using kr::test::ExpectLinked;

namespace
{

/// Writes down what it is asked: "m" Match, "a" Action, "f+" and "f-" Finish, with the name of the node.
class Recorder : public kr::visitor<CKrProperty>
{
public:
    bool Match(CKrProperty * node) override
    {
        log += OLESTR("m") + node->GetName() + OLESTR(" ");
        return node->GetName() != unmatched;
    }
    bool Action(CKrProperty * node) override
    {
        log += OLESTR("a") + node->GetName() + OLESTR(" ");
        if (node->GetName() == growing)
            AddCounted(*node, OLESTR("new"));
        if (node->GetName() == growingBeside)
            AddCounted(*node->GetParentProperty(), OLESTR("new"));
        return node->GetName() != ending;
    }
    bool Finish(CKrProperty * node, bool result) override
    {
        log += OLESTR("f") + node->GetName() + (result ? OLESTR("+ ") : OLESTR("- "));
        return finishAnswer;
    }

    CString log;
    CString unmatched = OLESTR("?");
    CString ending = OLESTR("?");
    CString growing = OLESTR("?");
    CString growingBeside = OLESTR("?");
    bool finishAnswer = true;
};

/// r(1(2 3) 4)
class Tree : public CKrProperty
{
public:
    Tree() : CKrProperty(OLESTR("r"), CString(), true, true)
    {
        CKrProperty * const first = AddCounted(*this, OLESTR("1"));
        AddCounted(*first, OLESTR("2"));
        AddCounted(*first, OLESTR("3"));
        AddCounted(*this, OLESTR("4"));
    }
};

} // namespace

TEST(CKrPropertyVisit, MeetsParentsBeforeChildrenAndFinishesThemAfter)
{
    Tree tree;
    Recorder recorder;
    EXPECT_TRUE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 a1 m2 a2 f2+ m3 a3 f3+ f1+ m4 a4 f4+ fr+ "));
}

TEST(CKrPropertyVisit, BeginsAtTheNodeThatIsAsked)
{
    Tree tree;
    Recorder recorder;
    EXPECT_TRUE(tree.GetSubPropertyAt(1)->Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("m4 a4 f4+ "));
}

TEST(CKrPropertyVisit, WalksTheChildrenOfANodeThatDoesNotMatch)
{
    Tree tree;
    Recorder recorder;
    recorder.unmatched = OLESTR("1");
    EXPECT_TRUE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 m2 a2 f2+ m3 a3 f3+ f1+ m4 a4 f4+ fr+ "));
}

TEST(CKrPropertyVisit, EndsWhereActionSaysSoAndTellsAllAbove)
{
    Tree tree;
    Recorder recorder;
    recorder.ending = OLESTR("2");
    EXPECT_FALSE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 a1 m2 a2 f2- f1- fr- "));
}

TEST(CKrPropertyVisit, SkipsTheChildrenOfTheNodeThatEndsIt)
{
    Tree tree;
    Recorder recorder;
    recorder.ending = OLESTR("1");
    EXPECT_FALSE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 a1 f1- fr- "));
}

TEST(CKrPropertyVisit, IgnoresTheAnswerOfFinish)
{
    Tree tree;
    Recorder recorder;
    recorder.finishAnswer = false;
    EXPECT_TRUE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 a1 m2 a2 f2+ m3 a3 f3+ f1+ m4 a4 f4+ fr+ "));
}

TEST(CKrPropertyVisit, MeetsChildrenThatActionAdds)
{
    Tree tree;
    Recorder recorder;
    recorder.growing = OLESTR("4");
    EXPECT_TRUE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 a1 m2 a2 f2+ m3 a3 f3+ f1+ m4 a4 mnew anew fnew+ f4+ fr+ "));
    ExpectLinked(tree);
}

TEST(CKrPropertyVisit, MeetsSiblingsThatActionAddsBehindTheLast)
{
    Tree tree;
    Recorder recorder;
    recorder.growingBeside = OLESTR("4");
    EXPECT_TRUE(tree.Visit(recorder));
    EXPECT_EQ(recorder.log, OLESTR("mr ar m1 a1 m2 a2 f2+ m3 a3 f3+ f1+ m4 a4 f4+ mnew anew fnew+ fr+ "));
    ExpectLinked(tree);
}
