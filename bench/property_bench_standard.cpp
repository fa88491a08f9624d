// What a client could write by hand: vectors with a hash map beside them as the floor of the trees, maps of texts to values for the sets
// that are edited as one.
#include "bench/property_rows.h"

#include <map>
#include <unordered_map>
#include <utility>
#include <variant>

namespace
{

using namespace kr::bench;

using Value = std::variant<std::monostate, int, double, bool, std::u16string>;

struct Property
{
    std::u16string name;
    Value value;

    bool operator==(Property const &) const = default;
};

/// Children in their order, and where each name stands first.
template <class Child>
struct Node
{
    std::vector<std::pair<std::u16string, Child>> children;
    std::unordered_map<std::u16string, std::size_t> places;

    Child & Add(std::u16string const & name)
    {
        places.try_emplace(name, children.size());
        return children.emplace_back(name, Child()).second;
    }
    bool operator==(Node const & other) const { return children == other.children; }
};

struct Standard
{
    static constexpr char const * label = "vector and hash map";
    using Text = std::u16string;
    using Tree = Node<Node<Value>>;

    static Text MakeText(std::string const & text) { return Text(text.begin(), text.end()); }
    static Node<Value> & AddCategory(Tree & tree, Text const & name) { return tree.Add(name); }
    static void AddProperty(Node<Value> & category, Text const & name, int value) { category.Add(name) = value; }
    static Value const * Find(Tree const & tree, Text const & category, Text const & name)
    {
        Node<Value> const & node = tree.children[tree.places.at(category)].second;
        return &node.children[node.places.at(name)].second;
    }
    static Tree Copy(Tree const & tree) { return tree; }
    static bool AreEqual(Tree const & left, Tree const & right) { return left == right; }
    static int CountNodes(Tree const & tree)
    {
        int count = 1;
        for (auto const & category : tree.children)
        {
            ++count;
            for (auto const & property : category.second.children)
                count += property.second.index() != 0;
        }
        return count;
    }
};

using Set = std::map<std::u16string, std::map<std::u16string, Value>>;

struct MainValue
{
    Value value;
    bool isVaried;
    bool isModified;
};
using MainSet = std::map<std::u16string, std::map<std::u16string, MainValue>>;

Set MakeSet(Names<Standard> const & names)
{
    Set set;
    for (auto const & category : names.categories)
    {
        int value = 0;
        for (auto const & name : names.properties)
            set[category][name] = value++;
    }
    return set;
}

/// What all sets have, marked where they differ.
MainSet Prepare(std::vector<Set> const & sets)
{
    MainSet main;
    for (auto const & [categoryName, properties] : sets.front())
    {
        for (auto const & [name, value] : properties)
        {
            bool isCommon = true;
            bool isVaried = false;
            for (Set const & set : sets)
            {
                auto const category = set.find(categoryName);
                isCommon = isCommon && category != set.end();
                if (!isCommon)
                    break;
                auto const property = category->second.find(name);
                isCommon = property != category->second.end();
                if (!isCommon)
                    break;
                isVaried = isVaried || property->second != value;
            }
            if (isCommon)
                main[categoryName].try_emplace(name, MainValue{value, isVaried, false});
        }
    }
    return main;
}

void Update(MainSet const & main, std::vector<Set> & sets)
{
    for (auto const & [categoryName, properties] : main)
    {
        for (auto const & [name, value] : properties)
        {
            if (!value.isModified)
                continue;
            for (Set & set : sets)
                set.at(categoryName).at(name) = value.value;
        }
    }
}

std::vector<Set> MakeSets(benchmark::State & state, Names<Standard> const & names)
{
    return std::vector<Set>(static_cast<std::size_t>(state.range(0)), MakeSet(names));
}

void PrepareEdit(benchmark::State & state)
{
    Names<Standard> const names(static_cast<int>(state.range(1)));
    std::vector<Set> const sets = MakeSets(state, names);
    for (auto _ : state)
    {
        MainSet main = Prepare(sets);
        benchmark::DoNotOptimize(main);
    }
}

void UpdateEdited(benchmark::State & state)
{
    Names<Standard> const names(static_cast<int>(state.range(1)));
    std::vector<Set> sets = MakeSets(state, names);
    MainSet main = Prepare(sets);
    int value = 0;
    for (auto _ : state)
    {
        ++value;
        for (auto const & category : names.categories)
            main.at(category).at(names.properties.front()) = {value, false, true};
        Update(main, sets);
    }
}

bool RegisterRows()
{
    RegisterTreeRows<Standard>();
    AddEditRow("PrepareEdit", "map of variants", PrepareEdit);
    AddEditRow("UpdateEdited", "map of variants", UpdateEdited);
    return true;
}

[[maybe_unused]] bool const s_registered = RegisterRows();

} // namespace
