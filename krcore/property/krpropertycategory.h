// A category of the older property sets.
#pragma once

#include <krcore/property/krpropertyold.h>

#include <memory>
#include <vector>

namespace kr::detail
{

/// Properties in order, an association with name, description and state, and perhaps one property of the whole.
class CKrPropertyCategory
{
public:
    CKrPropertyCategory(CString const & name, CString const & description, bool visible);
    /// A deep copy.
    CKrPropertyCategory(CKrPropertyCategory const & other);
    CKrPropertyCategory & operator=(CKrPropertyCategory const &) = delete;
    /// Destroys the properties from the last to the first.
    virtual ~CKrPropertyCategory();

    CKrAssCtrlOld & GetItemCtrl() noexcept { return m_itemCtrl; }
    CKrAssCtrlOld const & GetItemCtrl() const noexcept { return m_itemCtrl; }
    CKrPropertyOld * GetCategoryProperty() const noexcept { return m_categoryProperty.get(); }
    void SetCategoryProperty(CKrPropertyOld const & property);

    unsigned int GetCount() const noexcept { return static_cast<unsigned int>(m_properties.size()); }
    CKrPropertyOld * GetAt(unsigned int index) const;
    /// The first of that name.
    int FindIndex(CString const & name) const;
    CKrPropertyOld * Find(CString const & name) const;
    /// The index must not exceed the count.
    void Insert(unsigned int index, std::unique_ptr<CKrPropertyOld> property);
    /// Deletes the properties of that name but the second of two neighbours.
    void Delete(CString const & name);

private:
    std::vector<std::unique_ptr<CKrPropertyOld>> m_properties; ///< never null
    CKrAssCtrlOld m_itemCtrl;
    std::unique_ptr<CKrPropertyOld> m_categoryProperty;
};

} // namespace kr::detail
