// Class descriptors, owners and tree nodes where memory runs out.
#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krnamedobject.h>
#include <krcore/foundation/krowner.h>
#include <krcore/foundation/krtreenode.h>
#include <krcore/foundation/krwrappedobj.h>

#include "tests/foundation/counted.h"
#include "tests/memory/failing_rows.h"

#include <memory>

using namespace kr::test;

namespace
{

CString const one(OLESTR("one"));
CString const two(OLESTR("two"));
CString const three(OLESTR("three"));

/// Which of the children are null, and how many objects live.
template <class Children>
std::string ChildrenOf(Children const & children)
{
    std::string text = Described(children.size(), Counted::Living());
    for (CKrObject const * const child : children)
        text += child ? 'x' : '-';
    return text;
}

class List : public CKrListOwnerObject
{
public:
    List() = default;
    explicit List(int count)
    {
        for (int index = 0; index < count; ++index)
            AddChild(new Counted);
    }
    List(List const &) = default;
    List & operator=(List const &) = default;
};

class Map : public CKrMapOwnerObject
{
public:
    Map() = default;
    explicit Map(std::vector<CString> const & names)
    {
        for (CString const & name : names)
            AddChild(name, new Counted);
    }
    Map(Map const &) = default;
    Map & operator=(Map const &) = default;
};

class Node : public CKrTreeNode
{
public:
    Node() { ++s_living; }
    ~Node() override { --s_living; }

    static int Living() { return s_living; }

private:
    static inline int s_living = 0;
};

std::string NamesOf(std::map<CString, CKrObject *> const & map)
{
    std::string text = Described(Counted::Living());
    for (auto const & [name, object] : map)
        text += Described(name, object != nullptr);
    return text;
}

} // namespace

TEST(ObjectMemory, LeavesNothingOfACopy)
{
    static CKrObject const & object = *CKrClass::Cls(); // whose class does not override `Clone`
    static CKrNamedObject const named(123456, true);
    static CKrStringObject text(one);
    static CKrStringListObject list({one, two});
    static CKrVariantObject value{CKrVariant(one)};
    // clang-format off
    ExpectRows({
        { "CKrObject::Clone",             throwsBadAlloc, kept, [](Nothing) { delete object.Clone(); } },
        { "CKrNamedObject",               throwsMemory,   kept, [](Nothing) { CKrNamedObject const made(123456, true); } },
        { "CKrNamedObject::IDToString",   throwsMemory,   kept, [](Nothing) { named.IDToString(); } },
        { "CKrNamedObject copy",          takesNone,      kept, [](Nothing) { CKrNamedObject const copy(named); } },
        { "CKrClass",                     takesNone,      kept, [](Nothing) { CKrClass const made(one, 1, nullptr); } },
        { "CKrStringObject::Clone",       throwsBadAlloc, kept, [](Nothing) { delete text.Clone(); } },
        { "CKrStringListObject",          throwsBadAlloc, kept, [](Nothing) { CKrStringListObject const made(list.GetValue()); } },
        { "CKrStringListObject copy",     throwsBadAlloc, kept, [](Nothing) { CKrStringListObject const copy(list); } },
        { "CKrStringListObject::Clone",   throwsBadAlloc, kept, [](Nothing) { delete list.Clone(); } },
        { "CKrVariantObject",             throwsMemory,   kept, [](Nothing) { CKrVariantObject const made(value.GetValue()); } },
        { "CKrVariantObject copy",        throwsMemory,   kept, [](Nothing) { CKrVariantObject const copy(value); } },
        { "CKrVariantObject::Clone", throwsMemory | throwsBadAlloc, kept, [](Nothing) { delete value.Clone(); } },
    });
    // clang-format on
}

TEST(ValueObjectMemory, KeepsTheValue)
{
    static CKrStringListObject const list({one, two});
    static CKrVariantObject const value{CKrVariant(two)};
    struct Values
    {
        CKrStringListObject list{{three}};
        CKrVariantObject value{CKrVariant(one)};
    };
    auto const stateOf = [](Values const & values) {
        return Described(values.list.GetValue().size(), values.list.GetValue()[0],
                         values.value.GetValue().GetAsString());
    };
    // clang-format off
    ExpectRows([] { return Values(); }, stateOf, std::vector<Row<Values>>{
        { "CKrStringListObject =",        throwsBadAlloc, kept, [](Values & values) { values.list = list; } },
        { "CKrStringListObject::SetValue", throwsBadAlloc, kept, [](Values & values) { values.list.SetValue(list.GetValue()); } },
        { "CKrVariantObject =",           throwsMemory,   kept, [](Values & values) { values.value = value; } },
        { "CKrVariantObject::SetValue",   throwsMemory,   kept, [](Values & values) { values.value.SetValue(value.GetValue()); } },
    });
    // clang-format on
}

TEST(ListOwnerMemory, KeepsTheChildrenAndFreesTheOneThatWasGiven)
{
    static List const others(3);
    // clang-format off
    ExpectRows([] { return List(2); }, [](List const & list) { return ChildrenOf(list.GetChildren()); }, std::vector<Row<List>>{
        { "AddChild", throwsBadAlloc, kept, [](List & list) { list.AddChild(new Counted); } },
        { "=",        throwsBadAlloc, kept, [](List & list) { list = others; } },
        { "copy",     throwsBadAlloc, kept, [](List & list) { List const copy(list); } },
    });
    // clang-format on
}

TEST(MapOwnerMemory, KeepsTheChildrenAndFreesTheOneThatWasGiven)
{
    static Map const others({two, three});
    // clang-format off
    ExpectRows([] { return Map({one}); }, [](Map const & map) { return NamesOf(map.GetChildren().GetMap()); }, std::vector<Row<Map>>{
        { "AddChild",        throwsBadAlloc, kept, [](Map & map) { map.AddChild(two, new Counted); } },
        { "AddChild, known", throwsBadAlloc, kept, [](Map & map) { map.AddChild(one, new Counted); } },
        { "=",               throwsBadAlloc, kept, [](Map & map) { map = others; } },
        { "copy",            throwsBadAlloc, kept, [](Map & map) { Map const copy(map); } },
    });
    // clang-format on
}

TEST(OwnerMapMemory, KeepsTheEntries)
{
    using Entries = kr::ownermap<CString, CKrObject>;
    struct Holder
    {
        Entries entries;
        explicit Holder(bool filled = false)
        {
            if (filled)
                entries.AddObject(one, nullptr);
        }
    };
    static Entries const others = []
    {
        Entries made;
        made.SetNULL(two);
        made.SetNULL(three);
        return made;
    }();
    // clang-format off
    ExpectRows([] { return Holder(true); }, [](Holder const & holder) { return NamesOf(holder.entries.GetMap()); },
               std::vector<Row<Holder>>{
        { "AddObject",  throwsBadAlloc, kept, [](Holder & holder) { holder.entries.AddObject(two, new Counted); } },
        { "SetNULL",    throwsBadAlloc, kept, [](Holder & holder) { holder.entries.SetNULL(two); } },
        { "=",          throwsBadAlloc, kept, [](Holder & holder) { holder.entries = others; } },
        { "copy",       throwsBadAlloc, kept, [](Holder &) { Entries const copy(others); } },
    });
    // clang-format on
}

TEST(TreeNodeMemory, KeepsTheListAndFreesTheNodeThatWasGiven)
{
    struct Tree
    {
        std::unique_ptr<CKrTreeNode> root = std::make_unique<CKrTreeNode>();
        Tree() { root->AddChild(new Node); }
    };
    auto const stateOf = [](Tree const & tree) { return Described(tree.root->GetMaxChilds(), Node::Living()); };
    // clang-format off
    ExpectRows([] { return Tree(); }, stateOf, std::vector<Row<Tree>>{
        { "AddChild",           throwsBadAlloc, kept, [](Tree & tree) { tree.root->AddChild(new Node); } },
        { "InsertChild",        throwsBadAlloc, kept, [](Tree & tree) { tree.root->InsertChild(0, new Node); } },
        { "InsertChild before", throwsBadAlloc, kept, [](Tree & tree) { tree.root->InsertChild(tree.root->GetFirstChild(), new Node); } },
    });
    // clang-format on
}

TEST(WrappedObjMemory, KeepsTheList)
{
    static CKrWrappedObjList const others = []
    {
        CKrWrappedObjList made;
        made.push_back(CKrWrappedObj::ObjName(two));
        made.push_back(CKrWrappedObj::ObjId(3));
        return made;
    }();
    struct Handles
    {
        CKrWrappedObjList list;
        explicit Handles(bool filled = false)
        {
            if (filled)
                list.push_back(CKrWrappedObj::ObjName(one));
        }
    };
    auto const stateOf = [](Handles const & handles)
    {
        std::string text;
        for (CKrWrappedObj const & handle : handles.list)
            text += Described(handle.GetType(), handle.GetObjName(), handle.GetObjId());
        return text;
    };
    // clang-format off
    ExpectRows([] { return Handles(true); }, stateOf, std::vector<Row<Handles>>{
        { "=",    throwsBadAlloc, kept, [](Handles & handles) { handles.list = others; } },
        { "copy", throwsBadAlloc, kept, [](Handles &) { CKrWrappedObjList const copy(others); } },
    });
    ExpectRows({{ "a handle", takesNone, kept, [](Nothing) { CKrWrappedObj const copy(CKrWrappedObj::ObjName(one)); } }});
    // clang-format on
}
