// Sets of properties: build, find, copy, compare, sort, walk, edit as one.
#include "bench/property_rows.h"

#include <krcore/property/krpropertyset.h>
#include <krcore/property/krpropertyutils.h>

namespace
{

using namespace kr::bench;

struct KrCore
{
    static constexpr char const * label = "KrCore";
    using Text = CString;
    using Tree = CKrPropertySet;

    struct Counter : kr::visitor<CKrProperty>
    {
        bool Action(CKrProperty *) override { return ++count > 0; }
        int count = 0;
    };
    struct Category
    {
        Tree & tree;
        Text const & name;
    };

    static Text MakeText(std::string const & text) { return CString(text.c_str()); }
    static Category AddCategory(Tree & tree, Text const & name) { return {tree, name}; }
    static void AddProperty(Category const & category, Text const & name, int value)
    {
        category.tree.CreateProperty(name, CKrProperty::ePropInt, category.name)->SetInt(value);
    }
    static CKrProperty * Find(Tree const & tree, Text const & category, Text const & name)
    {
        return tree.GetProperty(name, category);
    }
    static Tree Copy(Tree const & tree) { return tree; }
    static bool AreEqual(Tree const & left, Tree const & right) { return left.IsEqual(right); }
    static void Sort(Tree & tree) { tree.AlphabeticSortProperties(Text()); }
    static int CountNodes(Tree & tree)
    {
        Counter counter;
        tree.Visit(counter);
        return counter.count;
    }
};

/// Every tenth property gets a new value.
void ChangeSome(CKrPropertySet & set, Names<KrCore> const & names, int value)
{
    for (auto const & category : names.categories)
    {
        CKrProperty * const property = set.GetProperty(names.properties.front(), category);
        property->SetInt(value);
        property->SetModified(true);
    }
}

template <bool byPosition>
class Edited
{
public:
    explicit Edited(benchmark::State & state)
        : m_names(static_cast<int>(state.range(1))), m_sets(static_cast<std::size_t>(state.range(0)), MakeTree(m_names))
    {
        m_helper.SetCommonStruct(byPosition);
        for (CKrPropertySet & set : m_sets)
            m_helper.AddPropertySet(&set);
    }

    void Prepare() { m_helper.PrepareEdit(); }
    void Update(int value)
    {
        ChangeSome(m_helper.GetMainPropertySet(), m_names, value);
        m_helper.Update();
    }

private:
    Names<KrCore> m_names;
    std::vector<CKrPropertySet> m_sets;
    CKrPropMultiEditHelper m_helper;
};

template <bool byPosition>
void PrepareEdit(benchmark::State & state)
{
    Edited<byPosition> edited(state);
    for (auto _ : state)
        edited.Prepare();
}

template <bool byPosition>
void UpdateEdited(benchmark::State & state)
{
    Edited<byPosition> edited(state);
    edited.Prepare();
    int value = 0;
    for (auto _ : state)
        edited.Update(++value);
}

/// The walk of the peers, which call no visitor.
int CountByIndex(CKrProperty const & node)
{
    int count = 1;
    for (unsigned int index = 0; index < node.GetSubPropertyCount(); ++index)
        count += CountByIndex(*node.GetSubPropertyAt(index));
    return count;
}

void WalkByIndex(benchmark::State & state)
{
    CKrPropertySet const tree = MakeTree(Names<KrCore>(CountOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(CountByIndex(tree.GetRootProperty()));
}

bool RegisterRows()
{
    RegisterTreeRows<KrCore>();
    AddTreeRow("Walk", "KrCore by index", WalkByIndex);
    AddEditRow("PrepareEdit", "KrCore by name", PrepareEdit<false>);
    AddEditRow("PrepareEdit", "KrCore by position", PrepareEdit<true>);
    AddEditRow("UpdateEdited", "KrCore by name", UpdateEdited<false>);
    AddEditRow("UpdateEdited", "KrCore by position", UpdateEdited<true>);
    return true;
}

[[maybe_unused]] bool const s_registered = RegisterRows();

} // namespace
