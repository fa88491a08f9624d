// The older generation of properties, their control associations and sets.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krassctrlold.h>
#include <krcore/property/krpropertyold.h>

#include <memory>
#include <vector>

namespace kr::detail
{
class CKrPropertyCategory;
}

/// Categories of older properties, kept for clients that were never moved to `CKrPropertySet`, which it resembles.
/// Categories are objects of their own here: there is no tree, no visitor and no sorting. An empty category name stands
/// for "_KRPROPDEFCAT_"; names are compared with case. The set owns everything in it; what it gives is lent. When
/// memory runs out nothing leaks, the set stays as it was, and a property that could not be taken is freed.
///
///     CKrPropertySetOld set;
///     set.CreateProperty(OLESTR("Width"), OLESTR("General"))->SetDouble(0.5);
///     set.GetCategoryDescription(OLESTR("General"))                -> empty: made on demand
///     set.MoveCategory(OLESTR("General"), 1)                       -> false: there is one only
class KRCORE_API CKrPropertySetOld
{
public:
    CKrPropertySetOld();
    /// Copies are deep.
    CKrPropertySetOld(CKrPropertySetOld const & other);
    CKrPropertySetOld & operator=(CKrPropertySetOld const & other);
    virtual ~CKrPropertySetOld();

    // Categories.
    /// Whether the category exists afterwards: always. Deliberate: the description is stored as it comes, empty
    /// included.
    bool CreateCategory(CString const & name, CString const & description, bool visible);
    /// With the name as description, visible.
    bool CreateCategory(CString const & name);
    bool HasCategory(CString const & name) const;
    int FindCategoryIndex(CString const & name) const;
    unsigned int GetCountCategories() const noexcept { return static_cast<unsigned int>(m_categories.size()); }
    CString GetCategoryName(unsigned int index) const;
    CString GetCategoryDescription(CString const & name) const;
    void SetCategoryDescription(CString const & name, CString const & description);
    bool IsCategoryVisible(CString const & name) const;
    /// Deliberate: the name is spelled so.
    void SetCategoryVisisble(CString const & name, bool visible);
    /// One more property, of the category as a whole; null if none was set.
    CKrPropertyOld * GetCategoryProperty(CString const & name) const;
    void SetCategoryProperty(CString const & name, CKrPropertyOld const & property);
    /// Whatever is thrown inside leaves as a `CKrException` with the location.
    void DeleteCategory(CString const & name);
    /// Moves a category to that place in the list without it. False for a missing one, and for an index above the last.
    bool MoveCategory(CString const & name, unsigned int index);

    // Properties.
    /// Deliberate: null for a missing category, which this form does not create.
    CKrPropertyOld * CreateProperty(CString const & category);
    /// Create a missing category, without a description.
    CKrPropertyOld * CreateProperty(CString const & name, CString const & category);
    CKrPropertyOld * CreateProperty(CString const & name, CKrPropertyOld::ECtrlType ctrlType, CString const & category);
    /// Takes the property; false for null.
    bool AddProperty(CKrPropertyOld * property, CString const & category);
    /// The same before that index; the number of properties appends. Deliberate: a greater index is true, with nothing
    /// inserted, and the caller keeps the property.
    bool InsertProperty(unsigned int index, CKrPropertyOld * property, CString const & category);
    CKrPropertyOld * GetProperty(CString const & name, CString const & category) const;
    CKrPropertyOld * GetPropertyAt(unsigned int index, CString const & category) const;
    CKrPropertyOld * GetPropertyByPropName(CString const & name) const;
    int FindPropertyIndex(CString const & name, CString const & category) const;
    unsigned int GetCountProperties(CString const & category) const;
    /// Deletes all properties of that name. Deliberate: of two neighbours the second stays. False only for a missing
    /// category. Whatever is thrown inside leaves as a `CKrException` with the location.
    bool DeleteProperty(CString const & name, CString const & category);
    bool DeleteProperties();

    bool IsEmpty() const noexcept { return m_categories.empty(); }
    /// Whether this set has all categories and properties of `other`, and they are equal. Deliberate: what only this
    /// set has is ignored.
    bool IsEqual(CKrPropertySetOld const & other) const;
    /// Takes over values, visibility and state of what both sets have; always true. Where memory runs out some may have
    /// been taken.
    bool ChangeValues(CKrPropertySetOld const & other);

private:
    using Category = kr::detail::CKrPropertyCategory;

    Category * GetPropCategory(CString const & name) const;
    Category * CreatePropCategory(CString const & name, CString const & description, bool visible);
    bool AddPropCategory(std::unique_ptr<Category> category);

    std::vector<std::unique_ptr<Category>> m_categories;
};
