#include <krcore/property/krpropertycategory.h>

#include <krcore/diagnostics/krexception_guard.h>

#include <utility>

namespace kr::detail
{

CKrPropertyCategory::CKrPropertyCategory(CString const & name, CString const & description, bool visible)
{
    m_itemCtrl.SetObjName(name);
    m_itemCtrl.SetCtrlText(description);
    m_itemCtrl.SetVisible(visible);
}

CKrPropertyCategory::CKrPropertyCategory(CKrPropertyCategory const & other) : m_itemCtrl(other.m_itemCtrl)
{
    for (auto const & property : other.m_properties)
        m_properties.push_back(std::make_unique<CKrPropertyOld>(*property));
    if (other.m_categoryProperty)
        SetCategoryProperty(*other.m_categoryProperty);
}

CKrPropertyCategory::~CKrPropertyCategory()
{
    while (!m_properties.empty())
        m_properties.pop_back();
}

void CKrPropertyCategory::SetCategoryProperty(CKrPropertyOld const & property)
{
    m_categoryProperty = std::make_unique<CKrPropertyOld>(property);
}

CKrPropertyOld * CKrPropertyCategory::GetAt(unsigned int index) const
{
    return index < m_properties.size() ? m_properties[index].get() : nullptr;
}

int CKrPropertyCategory::FindIndex(CString const & name) const
{
    for (unsigned int index = 0; index < GetCount(); ++index)
    {
        if (m_properties[index]->GetName() == name)
            return static_cast<int>(index);
    }
    return -1;
}

CKrPropertyOld * CKrPropertyCategory::Find(CString const & name) const
{
    int const index = FindIndex(name);
    return index < 0 ? nullptr : GetAt(static_cast<unsigned int>(index));
}

void CKrPropertyCategory::Insert(unsigned int index, std::unique_ptr<CKrPropertyOld> property)
{
    m_properties.insert(m_properties.begin() + static_cast<std::ptrdiff_t>(index), std::move(property));
}

void CKrPropertyCategory::Delete(CString const & name)
{
    try
    {
        CString const deleted(name); // which may be the name of a property that goes
        // Deliberate: the index moves on after a deletion too, so that the next property is not looked at.
        for (unsigned int index = 0; index < GetCount(); ++index)
        {
            if (m_properties[index]->GetName() == deleted)
                m_properties.erase(m_properties.begin() + static_cast<std::ptrdiff_t>(index));
        }
    }
    KR_CATCH_ALL_TEXT("krpropertysetold", 1012, "DelProperty from CKrPropertyCategory") // GCOVR_EXCL_LINE: no failure
}

} // namespace kr::detail
