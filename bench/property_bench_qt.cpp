// The item trees of Qt's models, and a tree of variant maps.
#include "bench/property_rows.h"

#include <QStandardItem>
#include <QVariantMap>

#include <memory>

namespace
{

using Item = std::unique_ptr<QStandardItem>;

Item CopyOf(QStandardItem const & item)
{
    Item copy(item.clone());
    for (int row = 0; row < item.rowCount(); ++row)
        copy->appendRow(CopyOf(*item.child(row)).release());
    return copy;
}

bool IsSame(QStandardItem const & left, QStandardItem const & right)
{
    if (left.text() != right.text() || left.data() != right.data() || left.rowCount() != right.rowCount())
        return false;
    for (int row = 0; row < left.rowCount(); ++row)
    {
        if (!IsSame(*left.child(row), *right.child(row)))
            return false;
    }
    return true;
}

QStandardItem * ChildOf(QStandardItem const & item, QString const & name)
{
    for (int row = 0; row < item.rowCount(); ++row)
    {
        if (item.child(row)->text() == name)
            return item.child(row);
    }
    return nullptr;
}

struct Items
{
    static constexpr char const * label = "QStandardItem";
    using Text = QString;
    struct Tree
    {
        Item root = std::make_unique<QStandardItem>();
    };

    static Text MakeText(std::string const & text) { return QString::fromStdString(text); }
    static QStandardItem & Append(QStandardItem & parent, Text const & name)
    {
        auto * const item = new QStandardItem(name);
        parent.appendRow(item);
        return *item;
    }
    static QStandardItem & AddCategory(Tree & tree, Text const & name) { return Append(*tree.root, name); }
    static void AddProperty(QStandardItem & category, Text const & name, int value)
    {
        Append(category, name).setData(value);
    }
    static QStandardItem * Find(Tree const & tree, Text const & category, Text const & name)
    {
        return ChildOf(*ChildOf(*tree.root, category), name);
    }
    static Tree Copy(Tree const & tree) { return {CopyOf(*tree.root)}; }
    static bool AreEqual(Tree const & left, Tree const & right) { return IsSame(*left.root, *right.root); }
    static void Sort(Tree & tree)
    {
        for (int row = 0; row < tree.root->rowCount(); ++row)
            tree.root->child(row)->sortChildren(0);
    }
    static int CountItems(QStandardItem const & item)
    {
        int count = 1;
        for (int row = 0; row < item.rowCount(); ++row)
            count += CountItems(*item.child(row));
        return count;
    }
    static int CountNodes(Tree const & tree) { return CountItems(*tree.root); }
};

/// Sorted by name at all times, and shared until it is written: a copy is made deep by touching every category.
struct Maps
{
    static constexpr char const * label = "QVariantMap";
    using Text = QString;
    using Tree = QMap<QString, QVariantMap>;

    static Text MakeText(std::string const & text) { return QString::fromStdString(text); }
    static QVariantMap & AddCategory(Tree & tree, Text const & name) { return tree[name]; }
    static void AddProperty(QVariantMap & category, Text const & name, int value) { category.insert(name, value); }
    static QVariant Find(Tree const & tree, Text const & category, Text const & name)
    {
        return *tree.constFind(category)->constFind(name);
    }
    static Tree Copy(Tree const & tree)
    {
        Tree copy(tree);
        for (QVariantMap & category : copy)
            category.detach();
        return copy;
    }
    static bool AreEqual(Tree const & left, Tree const & right) { return left == right; }
    static int CountNodes(Tree const & tree)
    {
        int count = 1;
        for (QVariantMap const & category : tree)
        {
            ++count;
            for (QVariant const & value : category)
                count += value.isValid();
        }
        return count;
    }
};

[[maybe_unused]] bool const s_registered =
    (kr::bench::RegisterTreeRows<Items>(), kr::bench::RegisterTreeRows<Maps>(), true);

} // namespace
