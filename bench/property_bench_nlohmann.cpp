// The ordered objects of nlohmann/json.
#include "bench/property_rows.h"

#include <nlohmann/json.hpp>

namespace
{

struct Nlohmann
{
    static constexpr char const * label = "nlohmann::ordered_json";
    using Text = std::string;
    using Tree = nlohmann::ordered_json;

    static Text MakeText(std::string const & text) { return text; }
    /// Children are appended without a search for their names, which would cost the square of their number.
    static Tree & Append(Tree & parent, Text const & name, Tree value)
    {
        if (!parent.is_object())
            parent = Tree::object();
        return parent.get_ref<Tree::object_t &>().emplace_back(name, std::move(value)).second;
    }
    static Tree & AddCategory(Tree & tree, Text const & name) { return Append(tree, name, Tree::object()); }
    static void AddProperty(Tree & category, Text const & name, int value) { Append(category, name, value); }
    static Tree const * Find(Tree const & tree, Text const & category, Text const & name)
    {
        return &*tree.find(category)->find(name);
    }
    static Tree Copy(Tree const & tree) { return tree; }
    static bool AreEqual(Tree const & left, Tree const & right) { return left == right; }
    static int CountNodes(Tree const & tree)
    {
        int count = 1;
        if (tree.is_object())
        {
            for (auto const & child : tree)
                count += CountNodes(child);
        }
        return count;
    }
};

[[maybe_unused]] bool const s_registered = (kr::bench::RegisterTreeRows<Nlohmann>(), true);

} // namespace
