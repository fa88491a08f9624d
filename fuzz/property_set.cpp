// Property sets as a sequence of operations: each a choice, the choices of two names, and a number.
#include "fuzz/fuzz_target.h"

#include <krcore/property/krpropertyset.h>
#include <krcore/property/krvisitor.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

namespace kr::fuzz
{

namespace
{

/// A node by its description; children are values and looked for one by one.
struct PlainNode
{
    Units name;
    Units description;
    int value = 0;
    bool isModified = false;
    std::vector<PlainNode> children;

    int Find(Units const & wanted) const
    {
        auto const found = std::ranges::find(children, wanted, &PlainNode::name);
        return found == children.end() ? -1 : static_cast<int>(found - children.begin());
    }
    PlainNode * Child(Units const & wanted)
    {
        int const index = Find(wanted);
        return index < 0 ? nullptr : &children[static_cast<std::size_t>(index)];
    }
    PlainNode const * Child(Units const & wanted) const { return const_cast<PlainNode *>(this)->Child(wanted); }

    void Insert(std::size_t index, PlainNode node)
    {
        auto const place = children.begin() + static_cast<std::ptrdiff_t>(std::min(index, children.size()));
        children.insert(place, std::move(node));
    }
    bool Remove(Units const & wanted)
    {
        int const index = Find(wanted);
        if (index >= 0)
            children.erase(children.begin() + index);
        return index >= 0;
    }
    bool Shift(unsigned index, int delta)
    {
        if (index >= children.size())
            return false;
        PlainNode moved = children[index];
        children.erase(children.begin() + index);
        int const target = std::clamp(static_cast<int>(index) + delta, 0, static_cast<int>(children.size()));
        Insert(static_cast<std::size_t>(target), std::move(moved));
        return true;
    }
    void Sort()
    {
        std::ranges::stable_sort(children, {},
                                 [](PlainNode const & node)
                                 { return node.description.empty() ? node.name : node.description; });
    }
    void TakeValues(PlainNode const & other)
    {
        value = other.value;
        for (PlainNode & child : children)
        {
            if (PlainNode const * const counterpart = other.Child(child.name))
                child.TakeValues(*counterpart);
        }
    }
    bool IsDeepEqual(PlainNode const & other) const
    {
        return name == other.name && description == other.description && value == other.value &&
               std::ranges::all_of(children,
                                   [&other](PlainNode const & child)
                                   {
                                       PlainNode const * const counterpart = other.Child(child.name);
                                       return counterpart && child.IsDeepEqual(*counterpart);
                                   });
    }
    std::size_t Count() const
    {
        std::size_t count = 1;
        for (PlainNode const & child : children)
            count += child.Count();
        return count;
    }
};

Units Mapped(Units const & category) { return category.empty() ? OLESTR("_KRPROPDEFCAT_") : category; }

/// A set and what it should be.
struct Twin
{
    CKrPropertySet set;
    PlainNode root;

    PlainNode & Category(Units const & name, Units const & description)
    {
        if (!root.Child(Mapped(name)))
            root.Insert(~std::size_t{0},
                        {Mapped(name), description.empty() ? Mapped(name) : description, 0, false, {}});
        return *root.Child(Mapped(name));
    }
};

/// What a node should be, and everything that it says of its place.
void CheckNode(CKrProperty const & node, PlainNode const & plain, CKrProperty const * parent, int level, int index)
{
    KR_LAW(node.GetName().View() == plain.name && node.GetDescription().View() == plain.description);
    KR_LAW(node.GetInt() == plain.value && node.IsModified() == plain.isModified);
    KR_LAW(node.GetParentProperty() == parent && node.GetLevel() == level && node.GetPropertyIndex() == index);
    KR_LAW(!parent || node.IsFirstProperty() == (index == 0));
    KR_LAW(!parent || node.IsLastProperty() == (index + 1 == static_cast<int>(parent->GetSubPropertyCount())));
    KR_LAW(node.GetSubPropertyCount() == plain.children.size() && node.IsLeaf() == plain.children.empty());
    for (unsigned child = 0; child < plain.children.size(); ++child)
        CheckNode(*node.GetSubPropertyAt(child), plain.children[child], &node, level + 1, static_cast<int>(child));
    KR_LAW(!node.GetSubPropertyAt(static_cast<unsigned>(plain.children.size())));
}

void CheckLookup(Twin const & twin, Units const & name, Units const & category)
{
    CString const nameText = TextOf(name), categoryText = TextOf(category);
    PlainNode const * const holder = twin.root.Child(Mapped(category));
    KR_LAW(twin.set.HasCategory(categoryText) == (holder != nullptr));
    KR_LAW(twin.set.FindCategoryIndex(categoryText) == twin.root.Find(Mapped(category)));
    KR_LAW(twin.set.GetCategoryDescription(categoryText).View() == (holder ? holder->description : Units()));
    KR_LAW(twin.set.GetCountProperties(categoryText) == (holder ? holder->children.size() : 0));
    int const index = holder ? holder->Find(name) : -1;
    KR_LAW(twin.set.FindPropertyIndex(nameText, categoryText) == index);
    CKrProperty const * const found = twin.set.GetProperty(nameText, categoryText);
    KR_LAW(index < 0 ? !found : found == twin.set.GetPropertyAt(static_cast<unsigned>(index), categoryText));

    CKrProperty const * first = nullptr;
    for (unsigned each = 0; !first && each < twin.root.children.size(); ++each)
    {
        if (int const place = twin.root.children[each].Find(name); place >= 0)
            first = twin.set.GetCategoryAt(each)->GetSubPropertyAt(static_cast<unsigned>(place));
    }
    KR_LAW(twin.set.GetPropertyByPropName(nameText) == first);
}

struct Counter : kr::visitor<CKrProperty>
{
    bool Action(CKrProperty *) override { return ++count, true; }
    std::size_t count = 0;
};

void Check(Twin & twin, Twin & other)
{
    CheckNode(twin.set.GetRootProperty(), twin.root, nullptr, 0, 0);
    KR_LAW(twin.set.IsEqual(other.set) == twin.root.IsDeepEqual(other.root));
    Counter counter;
    KR_LAW(twin.set.Visit(counter) && counter.count == twin.root.Count());
}

/// Few names, so that they meet; numbered ones for wide nodes.
Units Name(FuzzInput & input)
{
    constexpr unsigned few = 8;
    unsigned const choice = input.Below(64);
    if (choice == 0)
        return {};
    Units const plain(1, static_cast<WCHAR>('a' + choice % few));
    return choice < few ? plain : plain + static_cast<WCHAR>('0' + choice / few);
}

void AddMany(Twin & twin, Units const & category, unsigned count)
{
    for (unsigned index = 0; index < count; ++index)
    {
        Units const name = Units(1, static_cast<WCHAR>('a' + index % 8)) + static_cast<WCHAR>('0' + index / 8);
        twin.set.CreateProperty(TextOf(name), CKrProperty::ePropInt, TextOf(category));
        PlainNode & holder = twin.Category(category, category);
        holder.Insert(~std::size_t{0}, {name, name, 0, false, {}});
    }
}

/// Changes one property in its place.
void ChangeProperty(CKrProperty & property, PlainNode & plain, unsigned choice, Units const & name, int number)
{
    switch (choice)
    {
    case 0:
        property.SetName(TextOf(name));
        plain.name = name;
        return;
    case 1:
        property.SetDescription(TextOf(name));
        plain.description = name;
        return;
    case 2:
        property.SetInt(number);
        plain.value = number;
        return;
    case 3:
        property.SetModified(number % 2 != 0);
        plain.isModified = number % 2 != 0;
        return;
    case 4:
        property.AddSubProperty(new CKrProperty(TextOf(name), CString(), CKrProperty::ePropInt, true, true));
        plain.Insert(~std::size_t{0}, {name, name, 0, false, {}});
        return;
    case 5:
        property.DeleteSubProperty(TextOf(name));
        plain.Remove(name);
        return;
    default:
        property.SortByDescription(false);
        plain.Sort();
    }
}

void Change(Twin & twin, Twin & other, FuzzInput & input)
{
    unsigned const choice = input.Below(24);
    Units const name = Name(input), category = Name(input);
    CString const nameText = TextOf(name), categoryText = TextOf(category);
    int const number = input.Number<signed char>();
    unsigned const index = static_cast<unsigned>(number) % 48;
    CKrPropertySet & set = twin.set;
    PlainNode & root = twin.root;
    PlainNode * const holder = root.Child(Mapped(category));
    switch (choice)
    {
    case 0:
        KR_LAW(set.CreateCategory(categoryText, nameText, true) == set.GetCategory(categoryText));
        twin.Category(category, name);
        return;
    case 1:
    case 2:
        set.CreateProperty(nameText, CKrProperty::ePropInt, categoryText)->SetInt(number);
        twin.Category(category, category).Insert(~std::size_t{0}, {name, name, number, false, {}});
        return;
    case 3:
        KR_LAW(set.InsertProperty(index, new CKrProperty(nameText, CString(), CKrProperty::ePropInt, true, true),
                                  categoryText));
        twin.Category(category, category).Insert(index, {name, name, 0, false, {}});
        return;
    case 4:
        KR_LAW(set.DeleteProperty(nameText, categoryText) == (holder != nullptr));
        if (holder)
            holder->Remove(name);
        return;
    case 5:
        set.DeleteCategory(categoryText);
        root.Remove(Mapped(category));
        return;
    case 6:
    {
        PlainNode const * const moved = root.Child(category); // a name as it comes
        KR_LAW(set.MoveCategory(categoryText, index) == (moved != nullptr));
        if (!moved)
            return;
        PlainNode node = *moved;
        root.Remove(category);
        return root.Insert(index, std::move(node));
    }
    case 7:
        KR_LAW(set.AlphabeticSortCategories());
        return root.Sort();
    case 8:
        KR_LAW(set.AlphabeticSortProperties(categoryText) == (category.empty() || root.Child(category)));
        for (PlainNode & each : root.children)
        {
            if (category.empty() || &each == root.Child(category))
                each.Sort();
        }
        return;
    case 9:
        set.SetCategoryDescription(categoryText, nameText);
        if (holder)
            holder->description = name;
        return;
    case 10:
        if (holder)
            KR_LAW(set.GetCategory(categoryText)->ShiftSubProperty(index, number) == holder->Shift(index, number));
        return;
    case 11:
        set = other.set;
        root = PlainNode(other.root);
        return;
    case 12:
        KR_LAW(set.ChangeValues(other.set));
        return root.TakeValues(other.root);
    case 13:
        return AddMany(twin, category, 36 + index);
    case 14:
        KR_LAW(set.DeleteProperties());
        return root.children.clear();
    case 15:
        if (holder)
        {
            set.GetCategory(categoryText)->SetName(nameText);
            holder->name = name;
        }
        return;
    case 16:
        if (CKrProperty const * const source = other.set.GetPropertyByPropName(nameText); source && holder)
        {
            int const from = source->GetParentProperty()->GetPropertyIndex(); // categories may be named alike
            if (CKrProperty * const target = set.GetPropertyAt(index, categoryText))
            {
                *target = *source;
                holder->children[index] = *other.root.children[static_cast<std::size_t>(from)].Child(name);
            }
        }
        return;
    default:
        if (CKrProperty * const property = set.GetPropertyAt(index, categoryText))
            ChangeProperty(*property, holder->children[index], choice - 17, name, number);
    }
}

} // namespace

void CheckLaws(FuzzInput input)
{
    constexpr std::size_t mostNodes = 300;
    std::array<Twin, 2> twins;
    while (!input.IsAtEnd())
    {
        unsigned const which = input.Below(2);
        Twin & twin = twins[which];
        Change(twin, twins[1 - which], input);
        Units const name = Name(input), category = Name(input);
        for (int repetition = 0; repetition < 3; ++repetition) // a wide node makes an index for them
            CheckLookup(twin, name, category);
        if (twin.root.Count() > mostNodes)
        {
            twin.set.DeleteProperties();
            twin.root.children.clear();
        }
        Check(twin, twins[1 - which]);
    }
}

} // namespace kr::fuzz
