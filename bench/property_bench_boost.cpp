// The tree of Boost, whose values are texts.
#include "bench/property_rows.h"

#include <boost/property_tree/ptree.hpp>

namespace
{

struct Boost
{
    static constexpr char const * label = "boost::property_tree";
    using Text = std::string;
    using Tree = boost::property_tree::ptree;

    static Text MakeText(std::string const & text) { return text; }
    static Tree & AddCategory(Tree & tree, Text const & name) { return tree.push_back({name, Tree()})->second; }
    static void AddProperty(Tree & category, Text const & name, int value)
    {
        category.push_back({name, Tree(std::to_string(value))});
    }
    static Tree const * Find(Tree const & tree, Text const & category, Text const & name)
    {
        return &tree.find(category)->second.find(name)->second;
    }
    static Tree Copy(Tree const & tree) { return tree; }
    static bool AreEqual(Tree const & left, Tree const & right) { return left == right; }
    static void Sort(Tree & tree)
    {
        for (auto & category : tree)
            category.second.sort();
    }
    static int CountNodes(Tree const & tree)
    {
        int count = 1;
        for (auto const & child : tree)
            count += CountNodes(child.second);
        return count;
    }
};

[[maybe_unused]] bool const s_registered = (kr::bench::RegisterTreeRows<Boost>(), true);

} // namespace
