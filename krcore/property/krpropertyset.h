// What clients hand to a property grid: named categories of properties.
#pragma once

#include <krcore/export.h>
#include <krcore/foundation/krobject.h>
#include <krcore/property/krproperty.h>

/// A tree of fixed top: the children of the root are categories, their children are the properties. A category is marked by its place
/// alone. An empty category name stands for the default category, "_KRPROPDEFCAT_". Names are compared with case.
///
///     CKrPropertySet set;
///     set.CreateProperty(OLESTR("Color"), CKrProperty::ePropColor, OLESTR("General"))->SetColor(CKrColor(7));
///     set.GetProperty(OLESTR("Color"), OLESTR("General"))->GetAsString()       -> "-7"
///     set.CreateProperty(OLESTR("x"), CString());
///     set.GetCategoryName(1)                                                   -> "_KRPROPDEFCAT_"
///
/// The set owns all nodes; what a call gives is lent until that node is deleted. What is missing gives null, -1, 0, empty text or false.
/// Whatever is thrown inside `Visit` and the two sorts leaves them as a `CKrException` with their location. A set belongs
/// to one thread at a time.
///
/// Deliberate: the class has no descriptor of its own, and `Clone` gives a bare `CKrObject`; copy by the constructor or `=`.
class KRCORE_API CKrPropertySet : public CKrObject
{
public:
    CKrPropertySet();
    /// Copies are deep, with new nodes throughout.
    CKrPropertySet(CKrPropertySet const & other);
    CKrPropertySet & operator=(CKrPropertySet const & other);
    ~CKrPropertySet() override;

    // Categories.
    /// The category of that name: a new one, always enabled, or the one that is there, unchanged.
    CKrProperty * CreateCategory(CString const & name, CString const & description, bool visible);
    /// With the name as description, visible.
    CKrProperty * CreateCategory(CString const & name);
    bool HasCategory(CString const & name) const;
    CKrProperty * GetCategory(CString const & name) const;
    CKrProperty * GetCategoryAt(unsigned int index) const;
    int FindCategoryIndex(CString const & name) const;
    unsigned int GetCountCategories() const;
    CString GetCategoryName(unsigned int index) const;
    CString GetCategoryDescription(CString const & name) const;
    void SetCategoryDescription(CString const & name, CString const & description);
    bool IsCategoryVisible(CString const & name) const;
    /// Deliberate: the name is spelled so.
    void SetCategoryVisisble(CString const & name, bool visible);
    /// Deletes the category with everything in it.
    void DeleteCategory(CString const & name);
    /// Moves a category to that place in the list without it; past the end appends. False if it is missing. Deliberate: an empty name finds
    /// nothing here.
    bool MoveCategory(CString const & name, unsigned int index);
    /// By description, or name where that is empty; the properties inside stay as they are.
    bool AlphabeticSortCategories();

    // Properties. A category that is missing is created by the operations that add.
    /// Appends a property without name and type.
    CKrProperty * CreateProperty(CString const & category);
    /// Appends a property; its description is the name, its value the default of the type. A name may stand several times.
    CKrProperty * CreateProperty(CString const & name, CString const & category);
    CKrProperty * CreateProperty(CString const & name, CKrProperty::EPropType type, CString const & category);
    /// Takes the property; false for null.
    bool AddProperty(CKrProperty * property, CString const & category);
    /// The same before that index; past the end appends.
    bool InsertProperty(unsigned int index, CKrProperty * property, CString const & category);
    /// The first of that name.
    CKrProperty * GetProperty(CString const & name, CString const & category) const;
    CKrProperty * GetPropertyAt(unsigned int index, CString const & category) const;
    /// The first of that name in the order of categories; deeper levels are not searched.
    CKrProperty * GetPropertyByPropName(CString const & name) const;
    int FindPropertyIndex(CString const & name, CString const & category) const;
    unsigned int GetCountProperties(CString const & category) const;
    /// Deletes the first of that name. Deliberate: false only for a missing category.
    bool DeleteProperty(CString const & name, CString const & category);
    /// Deletes all categories with all they hold; always true.
    bool DeleteProperties();
    /// Sorts as above. Deliberate: an empty category means all of them; false for a missing one.
    bool AlphabeticSortProperties(CString const & category);

    // The whole set.
    CKrProperty & GetRootProperty() noexcept { return m_root; }
    CKrProperty const & GetRootProperty() const noexcept { return m_root; }
    /// No categories; an empty category counts.
    bool IsEmpty() const noexcept { return m_root.IsLeaf(); }
    /// Deliberate: one-sided, what only `other` has is ignored; order plays no part.
    bool IsEqual(CKrPropertySet const & other) const;
    /// Takes values over by name, level by level; nothing is created, no flag changes. False if the roots have different names.
    bool ChangeValues(CKrPropertySet const & other);
    /// Walks the whole tree, root and categories included.
    bool Visit(kr::visitor<CKrProperty> & visitor);

private:
    friend class CKrPropMultiEditHelperBase; // which replaces two sets or none

    /// `=` from a set that is given up for it.
    void TakeOver(CKrPropertySet && made) noexcept;
    static CString const & ConvertCategoryName(CString const & name);
    CKrProperty * CreatePropCategory(CString const & name, CString const & description, bool visible);

    CKrProperty m_root;
};
