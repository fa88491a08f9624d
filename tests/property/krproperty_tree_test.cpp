#include <krcore/property/krproperty.h>

#include "tests/property/counted_property.h"
#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <memory>
#include <random>
#include <vector>

using kr::test::AddCounted;
using kr::test::CountedProperty;
using kr::test::ExpectLinked;
using kr::test::FailUntilItPasses;
using kr::test::TreeOf;

namespace
{

/// Asks any pointer for its level, also a null one, which neither warnings nor the sanitizer may see.
__attribute__((no_sanitize("undefined"), noinline)) int LevelOf(CKrProperty const * node) { return node->GetLevel(); }

CKrProperty const * volatile s_null = nullptr;

/// A root "r" with children of these names.
class Tree : public CKrProperty
{
public:
    explicit Tree(std::initializer_list<WCHAR const *> names) : CKrProperty(OLESTR("r"), CString(), true, true)
    {
        for (WCHAR const * const name : names)
            AddCounted(*this, name);
    }
};

/// Looks around when it is destroyed.
class Witness : public CountedProperty
{
public:
    using CountedProperty::CountedProperty;
    ~Witness() override
    {
        EXPECT_TRUE(IsRoot());
        EXPECT_TRUE(IsFirstProperty());
        EXPECT_TRUE(IsLastProperty());
        EXPECT_EQ(GetPropertyIndex(), 0);
    }
};

} // namespace

TEST(CKrPropertyTree, AddsAtTheEndAndTakesTheNode)
{
    {
        Tree tree({});
        CKrProperty * const a = AddCounted(tree, OLESTR("a"));
        CKrProperty * const b = AddCounted(*a, OLESTR("b"));
        AddCounted(tree, OLESTR("c"));
        EXPECT_EQ(TreeOf(tree), OLESTR("r(a(b) c)"));
        EXPECT_EQ(CountedProperty::Living(), 3);
        EXPECT_EQ(a->GetParentProperty(), &tree);
        EXPECT_EQ(b->GetParentProperty(), a);
        EXPECT_EQ(tree.GetParentProperty(), nullptr);
        ExpectLinked(tree);
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertyTree, InsertsBeforeAnIndexAndAppendsPastTheEnd)
{
    // clang-format off
    struct Row { unsigned int index; WCHAR const * tree; };
    Row const rows[] = {
        { 0,                                        OLESTR("r(x a b)") },
        { 1,                                        OLESTR("r(a x b)") },
        { 2,                                        OLESTR("r(a b x)") },
        { 3,                                        OLESTR("r(a b x)") },
        { std::numeric_limits<unsigned int>::max(), OLESTR("r(a b x)") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.index);
        Tree tree({OLESTR("a"), OLESTR("b")});
        tree.InsertSubProperty(row.index, new CountedProperty(OLESTR("x")));
        EXPECT_EQ(TreeOf(tree), row.tree);
        ExpectLinked(tree);
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertyTree, TakesNoNullNode)
{
    Tree tree({OLESTR("a")});
    tree.AddSubProperty(nullptr);
    tree.InsertSubProperty(0, nullptr);
    tree.InsertSubProperty(9, nullptr);
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a)"));
}

TEST(CKrPropertyTree, FreesANodeThatItHasNoMemoryToTake)
{
    Tree tree({OLESTR("a"), OLESTR("b"), OLESTR("c"), OLESTR("d")}); // whose list is full
    std::size_t const failures = FailUntilItPasses([&] { AddCounted(tree, OLESTR("e")); },
                                                   [&]
                                                   {
                                                       EXPECT_EQ(TreeOf(tree), OLESTR("r(a b c d)"));
                                                       EXPECT_EQ(CountedProperty::Living(), 4);
                                                   });
    EXPECT_GT(failures, 2u);
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a b c d e)"));
    ExpectLinked(tree);
}

TEST(CKrPropertyTree, LendsTheFirstOfANameAndTheOneAtAnIndex)
{
    Tree tree({OLESTR("a"), OLESTR("b"), OLESTR("a")});
    EXPECT_EQ(tree.GetSubPropertyCount(), 3u);
    EXPECT_EQ(tree.GetSubProperty(OLESTR("a")), tree.GetSubPropertyAt(0));
    EXPECT_EQ(tree.FindSubPropertyIndex(OLESTR("a")), 0);
    EXPECT_EQ(tree.GetSubProperty(OLESTR("b")), tree.GetSubPropertyAt(1));
    EXPECT_EQ(tree.FindSubPropertyIndex(OLESTR("b")), 1);
    EXPECT_EQ(tree.GetSubProperty(OLESTR("B")), nullptr); // case counts
    EXPECT_EQ(tree.FindSubPropertyIndex(OLESTR("B")), -1);
    EXPECT_EQ(tree.GetSubProperty(CString()), nullptr);
    EXPECT_EQ(tree.GetSubPropertyAt(3), nullptr);
    EXPECT_EQ(tree.GetSubPropertyAt(std::numeric_limits<unsigned int>::max()), nullptr);
}

TEST(CKrPropertyTree, FindsDirectChildrenOnly)
{
    Tree tree({OLESTR("a")});
    AddCounted(*tree.GetSubPropertyAt(0), OLESTR("b"));
    EXPECT_EQ(tree.GetSubProperty(OLESTR("b")), nullptr);
    EXPECT_EQ(tree.GetSubProperty(OLESTR("r")), nullptr);
}

TEST(CKrPropertyTree, FindsAnEmptyName)
{
    Tree tree({OLESTR("a"), OLESTR("")});
    EXPECT_EQ(tree.FindSubPropertyIndex(CString()), 1);
}

TEST(CKrPropertyTree, HandsTheFirstOfANameBackWithoutAParent)
{
    Tree tree({OLESTR("a"), OLESTR("b"), OLESTR("b")});
    CKrProperty * const first = tree.GetSubPropertyAt(1);
    AddCounted(*first, OLESTR("c"));
    std::unique_ptr<CKrProperty> const removed(tree.RemoveSubProperty(OLESTR("b")));
    EXPECT_EQ(removed.get(), first);
    EXPECT_EQ(removed->GetParentProperty(), nullptr);
    EXPECT_TRUE(removed->IsRoot());
    EXPECT_EQ(TreeOf(*removed), OLESTR("b(c)"));
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a b)"));
    EXPECT_EQ(CountedProperty::Living(), 4);
    ExpectLinked(tree);
    ExpectLinked(*removed);
    EXPECT_EQ(tree.RemoveSubProperty(OLESTR("x")), nullptr);
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a b)"));
}

TEST(CKrPropertyTree, TakesARemovedNodeElsewhere)
{
    Tree tree({OLESTR("a"), OLESTR("b")});
    tree.GetSubPropertyAt(0)->AddSubProperty(tree.RemoveSubProperty(OLESTR("b")));
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a(b))"));
    ExpectLinked(tree);
}

TEST(CKrPropertyTree, DeletesTheFirstOfANameWithAllBelow)
{
    Tree tree({OLESTR("a"), OLESTR("b"), OLESTR("b")});
    AddCounted(*tree.GetSubPropertyAt(1), OLESTR("c"));
    EXPECT_EQ(CountedProperty::Living(), 4);
    tree.DeleteSubProperty(OLESTR("b"));
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a b)"));
    EXPECT_EQ(CountedProperty::Living(), 2);
    tree.DeleteSubProperty(OLESTR("x"));
    EXPECT_EQ(CountedProperty::Living(), 2);
    tree.DeleteSubProperty(tree.GetSubPropertyAt(0)->GetName()); // by the text of the node itself
    EXPECT_EQ(TreeOf(tree), OLESTR("r(b)"));
    ExpectLinked(tree);
}

TEST(CKrPropertyTree, DeletesAllChildrenAndTakesNewOnes)
{
    Tree tree({OLESTR("a"), OLESTR("b")});
    tree.DeleteSubProperties();
    EXPECT_EQ(CountedProperty::Living(), 0);
    EXPECT_TRUE(tree.IsLeaf());
    EXPECT_EQ(tree.GetSubPropertyCount(), 0u);
    tree.DeleteSubProperties();
    AddCounted(tree, OLESTR("c"));
    EXPECT_EQ(TreeOf(tree), OLESTR("r(c)"));
    ExpectLinked(tree);
}

TEST(CKrPropertyTree, DestroysNodesThatStandInItNoMore)
{
    auto const fill = [](CKrProperty & node)
    {
        for (WCHAR const * const name : {OLESTR("1"), OLESTR("2"), OLESTR("3")})
            node.AddSubProperty(new Witness(name));
    };
    {
        Tree tree({});
        fill(tree);
        tree.DeleteSubProperty(OLESTR("2"));
        tree.DeleteSubProperties();
        fill(tree);
        tree.DeepCopy(CKrProperty());
        fill(tree);
        fill(*tree.GetSubPropertyAt(1));
        EXPECT_EQ(CountedProperty::Living(), 6);
    } // and with the tree itself
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertyTree, CountsLevelsFromTheRootAndMinusOneForNull)
{
    Tree tree({OLESTR("a")});
    CKrProperty * const a = tree.GetSubPropertyAt(0);
    CKrProperty * const b = AddCounted(*a, OLESTR("b"));
    EXPECT_EQ(LevelOf(&tree), 0);
    EXPECT_EQ(LevelOf(a), 1);
    EXPECT_EQ(LevelOf(b), 2);
    EXPECT_EQ(LevelOf(s_null), -1);
}

TEST(CKrPropertyTree, TellsTheKindOfANode)
{
    Tree tree({OLESTR("a")});
    CKrProperty * const a = tree.GetSubPropertyAt(0);
    EXPECT_TRUE(tree.IsRoot());
    EXPECT_TRUE(tree.IsNode());
    EXPECT_FALSE(tree.IsLeaf());
    EXPECT_FALSE(a->IsRoot());
    EXPECT_FALSE(a->IsNode());
    EXPECT_TRUE(a->IsLeaf());
}

TEST(CKrPropertyTree, GivesARootTheIndexZeroAndBothEnds)
{
    CKrProperty const root;
    EXPECT_EQ(root.GetPropertyIndex(), 0);
    EXPECT_EQ(root.GetLevel(), 0);
    EXPECT_TRUE(root.IsFirstProperty());
    EXPECT_TRUE(root.IsLastProperty());
    Tree tree({OLESTR("a"), OLESTR("b")});
    std::unique_ptr<CKrProperty> const removed(tree.RemoveSubProperty(OLESTR("b")));
    EXPECT_EQ(removed->GetPropertyIndex(), 0);
    EXPECT_TRUE(removed->IsFirstProperty());
    EXPECT_TRUE(removed->IsLastProperty());
}

TEST(CKrPropertyTree, ShiftsAChildAndKeepsTheOrderOfTheOthers)
{
    // clang-format off
    struct Row { unsigned int index; int delta; bool result; WCHAR const * tree; };
    int const most = std::numeric_limits<int>::max();
    int const least = std::numeric_limits<int>::min();
    Row const rows[] = {
        { 1, -100,  true,  OLESTR("r(b a c d)") },
        { 1, 100,   true,  OLESTR("r(a c d b)") },
        { 0, 2,     true,  OLESTR("r(b c a d)") },
        { 3, -2,    true,  OLESTR("r(a d b c)") },
        { 2, 1,     true,  OLESTR("r(a b d c)") },
        { 1, 0,     true,  OLESTR("r(a b c d)") },
        { 0, -1,    true,  OLESTR("r(a b c d)") },   // at the limit already
        { 3, 1,     true,  OLESTR("r(a b c d)") },
        { 3, most,  true,  OLESTR("r(a b c d)") },
        { 1, most,  true,  OLESTR("r(a c d b)") },
        { 3, least, true,  OLESTR("r(d a b c)") },
        { 4, 0,     false, OLESTR("r(a b c d)") },
        { 4, -1,    false, OLESTR("r(a b c d)") },
        { std::numeric_limits<unsigned int>::max(), 1, false, OLESTR("r(a b c d)") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(testing::Message() << row.index << " by " << row.delta);
        Tree tree({OLESTR("a"), OLESTR("b"), OLESTR("c"), OLESTR("d")});
        EXPECT_EQ(tree.ShiftSubProperty(row.index, row.delta), row.result);
        EXPECT_EQ(TreeOf(tree), row.tree);
        ExpectLinked(tree);
    }
    EXPECT_FALSE(Tree({}).ShiftSubProperty(0, 0));
}

TEST(CKrPropertySort, IsByDescriptionOrNameInTheOrderOfCodeUnits)
{
    // clang-format off
    struct Child { WCHAR const * name; WCHAR const * description; };
    Child const children[] = {
        { OLESTR("n1"),  OLESTR("b")      },
        { OLESTR("n2"),  OLESTR("\u00e4") },
        { OLESTR("n3"),  OLESTR("B")      },
        { OLESTR("aa"),  OLESTR("")       },   // by its name
        { OLESTR("n4"),  OLESTR("a")      },
        { OLESTR("n5"),  OLESTR("a-b")    },
        { OLESTR("n6"),  OLESTR("10")     },
        { OLESTR("n7"),  OLESTR("9")      },
        { OLESTR("n8"),  OLESTR("_")      },
        { OLESTR(""),    OLESTR("")       },
    };
    // clang-format on
    Tree tree({});
    for (Child const & child : children)
        AddCounted(tree, child.name)->SetDescription(child.description);
    CKrProperty * const n4 = tree.GetSubProperty(OLESTR("n4"));
    EXPECT_TRUE(tree.SortByDescription(false));
    EXPECT_EQ(TreeOf(tree), OLESTR("r( n6 n7 n3 n8 n4 n5 aa n1 n2)"));
    EXPECT_EQ(tree.GetSubProperty(OLESTR("n4")), n4); // nodes never move
    EXPECT_EQ(tree.GetSubProperty(OLESTR("aa"))->GetDescription(), OLESTR(""));
    EXPECT_EQ(CountedProperty::Living(), 10);
    ExpectLinked(tree);
}

TEST(CKrPropertySort, IsAsByComparingWholeKeysHoweverMuchOfThemIsTheSame)
{
    std::mt19937 random(20210315);
    WCHAR const units[] = {0, 1, u'a', 0x7FFF, 0x8000, 0xFFFF};
    for (int const startLength : {0, 1, 5, 40})
    {
        for (int round = 0; round < 50; ++round)
        {
            Tree tree({});
            std::vector<CKrProperty *> expected;
            for (int number = 0; number < 40; ++number)
            {
                CString key(u'p', startLength);
                for (auto length = random() % 9; length > 0; --length)
                    key.AppendChar(units[random() % std::size(units)]);
                expected.push_back(AddCounted(tree, key));
                expected.back()->SetDescription(key);
            }
            std::stable_sort(expected.begin(), expected.end(),
                             [](CKrProperty const * left, CKrProperty const * right)
                             { return left->GetName().Compare(right->GetName()) < 0; });
            tree.SortByDescription(false);
            for (unsigned int index = 0; index < expected.size(); ++index)
                ASSERT_EQ(tree.GetSubPropertyAt(index), expected[index]) << startLength << ", " << round;
        }
    }
}

TEST(CKrPropertySort, KeepsTheOrderOfEqualKeys)
{
    for (int const count : {2, 32, 33, 200})
    {
        SCOPED_TRACE(count);
        Tree tree({});
        std::vector<CKrProperty *> odd, even;
        for (int number = 0; number < count; ++number)
        {
            CKrProperty * const child = AddCounted(tree, OLESTR("n"));
            child->SetDescription(number % 2 == 0 ? OLESTR("z") : OLESTR("a"));
            (number % 2 == 0 ? even : odd).push_back(child);
        }
        EXPECT_TRUE(tree.SortByDescription(false));
        odd.insert(odd.end(), even.begin(), even.end());
        for (std::size_t index = 0; index < odd.size(); ++index)
            EXPECT_EQ(tree.GetSubPropertyAt(static_cast<unsigned int>(index)), odd[index]);
    }
}

TEST(CKrPropertySort, GoesDownOnlyWhereToldAndThenEverywhere)
{
    auto const fill = [](Tree & tree)
    {
        CKrProperty * const b = AddCounted(tree, OLESTR("b"));
        AddCounted(*b, OLESTR("z"));
        AddCounted(*b, OLESTR("y"));
        AddCounted(tree, OLESTR("a"));
    };
    Tree flat({});
    fill(flat);
    EXPECT_TRUE(flat.SortByDescription(false));
    EXPECT_EQ(TreeOf(flat), OLESTR("r(a b(z y))"));
    Tree deep({});
    fill(deep);
    EXPECT_TRUE(deep.SortByDescription(true));
    EXPECT_EQ(TreeOf(deep), OLESTR("r(a b(y z))"));
    ExpectLinked(deep);

    Tree single({OLESTR("a")}); // also below a node with one child
    AddCounted(*single.GetSubPropertyAt(0), OLESTR("d"));
    AddCounted(*single.GetSubPropertyAt(0), OLESTR("c"));
    EXPECT_TRUE(single.SortByDescription(true));
    EXPECT_EQ(TreeOf(single), OLESTR("r(a(c d))"));
    EXPECT_TRUE(Tree({}).SortByDescription(true));
}

TEST(CKrPropertySort, LeavesTheOrderWhereMemoryRunsOut)
{
    Tree tree({OLESTR("c"), OLESTR("b"), OLESTR("a")});
    std::size_t const failures =
        FailUntilItPasses([&] { tree.SortByDescription(false); }, [&] { EXPECT_EQ(TreeOf(tree), OLESTR("r(c b a)")); });
    EXPECT_GT(failures, 0u);
    EXPECT_EQ(TreeOf(tree), OLESTR("r(a b c)"));
}
