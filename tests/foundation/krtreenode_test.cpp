#include <krcore/foundation/krtreenode.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <string>
#include <type_traits>

namespace
{

/// Writes its name when it ends, with a mark if its parent link is still set.
class Node : public CKrTreeNode
{
public:
    explicit Node(char name, CKrTreeNode * parent = nullptr) : CKrTreeNode(parent), m_name(name) {}
    ~Node() override
    {
        s_ended += m_name;
        if (GetParent())
            s_ended += '!';
    }

    char GetName() const { return m_name; }

    static std::string s_ended;

private:
    char m_name;
};

std::string Node::s_ended;

/// A root with the children a, b, c, linked to it.
class CKrTreeNodeTest : public testing::Test
{
protected:
    CKrTreeNodeTest()
    {
        for (Node * child : {a, b, c})
        {
            root->AddChild(child);
            child->SetParent(root.get());
        }
        Node::s_ended.clear();
    }

    std::string Children() const
    {
        std::string names;
        for (unsigned int index = 0; index < root->GetMaxChilds(); ++index)
        {
            CKrTreeNode const * const child = root->GetChild(static_cast<int>(index));
            names += child ? static_cast<Node const *>(child)->GetName() : '0';
        }
        return names;
    }

    Node * const a = new Node('a');
    Node * const b = new Node('b');
    Node * const c = new Node('c');
    std::unique_ptr<Node> root = std::make_unique<Node>('r');
};

} // namespace

static_assert(std::is_base_of_v<CObject, CKrTreeNode>);
static_assert(!std::is_copy_constructible_v<CKrTreeNode> && !std::is_copy_assignable_v<CKrTreeNode>);

TEST(CKrTreeNode, StartsAloneAsARootAndALeaf)
{
    CKrTreeNode const node;
    EXPECT_EQ(node.GetParent(), nullptr);
    EXPECT_EQ(node.IsRoot(), 1);
    EXPECT_EQ(node.IsLeaf(), 1);
    EXPECT_EQ(node.GetMaxChilds(), 0u);
    EXPECT_EQ(node.GetChild(0), nullptr);
    EXPECT_EQ(node.GetFirstChild(), nullptr);
    EXPECT_EQ(node.GetLastChild(), nullptr);
    EXPECT_EQ(node.Contains(nullptr), 0);
    EXPECT_EQ(node.FindIndex(nullptr), -1);
}

TEST(CKrTreeNode, AParentGivenToTheConstructorDoesNotKnowTheNode)
{
    CKrTreeNode parent;
    {
        CKrTreeNode const node(&parent);
        EXPECT_EQ(node.GetParent(), &parent);
        EXPECT_EQ(node.IsRoot(), 0);
        EXPECT_EQ(parent.GetMaxChilds(), 0u);
    }
    EXPECT_EQ(parent.IsLeaf(), 1);
}

TEST(CKrTreeNode, AddingLeavesTheParentLinkOfTheChildAlone)
{
    CKrTreeNode root;
    CKrTreeNode * const child = new CKrTreeNode;
    root.AddChild(child);
    EXPECT_EQ(child->IsRoot(), 1);
    EXPECT_EQ(root.IsLeaf(), 0);
    child->SetParent(&root);
    EXPECT_EQ(child->IsRoot(), 0);
    root.InsertChild(0, new CKrTreeNode);
    EXPECT_EQ(root.GetFirstChild()->IsRoot(), 1);
    root.SetChild(0, new CKrTreeNode);
    EXPECT_EQ(root.GetFirstChild()->IsRoot(), 1);
}

TEST_F(CKrTreeNodeTest, FindsItsChildren)
{
    EXPECT_EQ(root->GetMaxChilds(), 3u);
    EXPECT_EQ(root->IsLeaf(), 0);
    EXPECT_EQ(root->GetFirstChild(), a);
    EXPECT_EQ(root->GetLastChild(), c);
    EXPECT_EQ(root->GetChild(1), b);
    EXPECT_EQ(root->GetChild(-1), nullptr);
    EXPECT_EQ(root->GetChild(3), nullptr);
    EXPECT_EQ(root->FindIndex(c), 2);
    EXPECT_EQ(root->Contains(b), 1);
    Node const grandchild('x');
    EXPECT_EQ(root->Contains(const_cast<Node *>(&grandchild)), 0);
    EXPECT_EQ(root->FindIndex(root.get()), -1);
}

TEST_F(CKrTreeNodeTest, NullAndDuplicatesAreNotRefused)
{
    root->AddChild(nullptr);
    root->AddChild(a);
    EXPECT_EQ(Children(), "abc0a");
    EXPECT_EQ(root->FindIndex(nullptr), 3);
    EXPECT_EQ(root->FindIndex(a), 0);
    root->RemoveChildFromVector(a); // the first
    EXPECT_EQ(Children(), "bc0a");
    root->RemoveChild(2);
    EXPECT_EQ(Children(), "bca");
    EXPECT_EQ(Node::s_ended, "");
}

TEST_F(CKrTreeNodeTest, InsertsInFrontOfAChildAndNeverAppends)
{
    std::unique_ptr<Node> const x = std::make_unique<Node>('x');
    root->InsertChild(-1, x.get());
    root->InsertChild(3, x.get());
    root->InsertChild(root.get(), x.get());
    EXPECT_EQ(Children(), "abc");
    root->InsertChild(2, x.get());
    EXPECT_EQ(Children(), "abxc");
    root->RemoveChildFromVector(x.get());
    root->InsertChild(a, x.get());
    EXPECT_EQ(Children(), "xabc");
    root->RemoveChildFromVector(x.get());
    Node empty('e');
    empty.InsertChild(0, x.get());
    EXPECT_EQ(empty.IsLeaf(), 1);
}

TEST_F(CKrTreeNodeTest, RemovingDeletesTheChildWithoutAParent)
{
    root->RemoveChild(1);
    EXPECT_EQ(Children(), "ac");
    EXPECT_EQ(Node::s_ended, "b");
    root->RemoveChild(a);
    EXPECT_EQ(Children(), "c");
    EXPECT_EQ(Node::s_ended, "ba");
    Node unknown('x');
    root->RemoveChild(&unknown);
    root->RemoveChild(-1);
    root->RemoveChild(1);
    EXPECT_EQ(Children(), "c");
    EXPECT_EQ(Node::s_ended, "ba");
}

TEST_F(CKrTreeNodeTest, RemovingAllDeletesFromTheLastToTheFirst)
{
    root->RemoveAllChilds();
    EXPECT_EQ(Node::s_ended, "cba");
    EXPECT_EQ(root->IsLeaf(), 1);
    root->RemoveAllChilds();
    EXPECT_EQ(Node::s_ended, "cba");
}

TEST_F(CKrTreeNodeTest, TakingOutOfTheListLeavesTheChildAliveAndLinked)
{
    root->RemoveChildFromVector(b);
    root->RemoveChildFromVector(0);
    root->RemoveChildFromVector(-1);
    root->RemoveChildFromVector(5);
    root->RemoveChildFromVector(b);
    EXPECT_EQ(Children(), "c");
    EXPECT_EQ(Node::s_ended, "");
    EXPECT_EQ(b->GetParent(), root.get());
    delete b; // its parent no longer finds it
    EXPECT_EQ(Children(), "c");
    EXPECT_EQ(Node::s_ended, "b!");
    delete a;
}

TEST_F(CKrTreeNodeTest, SettingAChildDeletesTheOldOneWithoutAParent)
{
    Node * const x = new Node('x');
    Node * const y = new Node('y');
    root->SetChild(1, x);
    EXPECT_EQ(Children(), "axc");
    EXPECT_EQ(Node::s_ended, "b");
    root->SetChild(c, y);
    EXPECT_EQ(Children(), "axy");
    EXPECT_EQ(Node::s_ended, "bc");
    Node unknown('u');
    root->SetChild(3, &unknown);
    root->SetChild(-1, &unknown);
    root->SetChild(&unknown, &unknown);
    EXPECT_EQ(Children(), "axy");
    EXPECT_EQ(Node::s_ended, "bc");
    root->SetChild(0, nullptr);
    EXPECT_EQ(Children(), "0xy");
    EXPECT_EQ(Node::s_ended, "bca");
}

TEST_F(CKrTreeNodeTest, SettingTheChildThatIsThereHasNoEffect)
{
    root->SetChild(1, b);
    root->SetChild(b, b);
    EXPECT_EQ(Children(), "abc");
    EXPECT_EQ(Node::s_ended, "");
    EXPECT_EQ(b->GetParent(), root.get());
}

TEST_F(CKrTreeNodeTest, SettingInTheListHandsTheOldChildBackAliveAndLinked)
{
    Node * const x = new Node('x');
    Node * const y = new Node('y');
    std::unique_ptr<CKrTreeNode> const old(root->SetChildInVector(0, x));
    EXPECT_EQ(old.get(), a);
    EXPECT_EQ(a->GetParent(), root.get());
    std::unique_ptr<CKrTreeNode> const second(b);
    root->SetChildInVector(b, y);
    EXPECT_EQ(Children(), "xyc");
    EXPECT_EQ(b->GetParent(), root.get());
    EXPECT_EQ(root->SetChildInVector(3, a), nullptr);
    EXPECT_EQ(root->SetChildInVector(-1, a), nullptr);
    root->SetChildInVector(b, a);
    EXPECT_EQ(Children(), "xyc");
    EXPECT_EQ(Node::s_ended, "");
}

TEST_F(CKrTreeNodeTest, EndsWithTheWholeSubtreeTheLastFirst)
{
    for (Node * child : {new Node('1', a), new Node('2', a)})
        a->AddChild(child);
    root.reset();
    // A node's own end comes before those of its children.
    EXPECT_EQ(Node::s_ended, "rcba21");
}

TEST(CKrTreeNode, NamesItsClassToThePlatform)
{
    CKrTreeNode const node;
    CRuntimeClass const * const record = node.GetRuntimeClass();
    EXPECT_EQ(record, &CKrTreeNode::classCKrTreeNode);
    EXPECT_EQ(CKrTreeNode::GetThisClass(), record);
    EXPECT_STREQ(record->m_lpszClassName, "CKrTreeNode");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(CKrTreeNode)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_EQ(record->m_pfnGetBaseClass(), &CObject::classCObject);
    EXPECT_TRUE(node.IsKindOf(&CObject::classCObject));
}

TEST_F(CKrTreeNodeTest, AChildThatCannotBeTakenForWantOfMemoryIsFreed)
{
    Node full('f');
    Node * const first = new Node('1');
    full.AddChild(first);
    Node * const second = new Node('2');
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(full.AddChild(second), std::bad_alloc);
    }
    EXPECT_EQ(Node::s_ended, "2");
    Node * const third = new Node('3', &full);
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(full.InsertChild(0, third), std::bad_alloc);
    }
    EXPECT_EQ(Node::s_ended, "23");
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_THROW(full.AddChild(first), std::bad_alloc); // which is held already
    }
    EXPECT_EQ(Node::s_ended, "23");
    EXPECT_EQ(full.GetMaxChilds(), 1u);
}
