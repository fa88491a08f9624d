#include <krcore/property/krpropertyold.h>

#include <krcore/property/krtextreading.h>

namespace
{

// clang-format off
constexpr kr::detail::TypeWord<CKrAssCtrlOld::EObjType> s_types[] = {
    { CKrAssCtrlOld::eObjString, OLESTR("string") },
    { CKrAssCtrlOld::eObjDouble, OLESTR("double") },
    { CKrAssCtrlOld::eObjInt,    OLESTR("int")    },
    { CKrAssCtrlOld::eObjBool,   OLESTR("bool")   },
    { CKrAssCtrlOld::eObjDate,   OLESTR("date")   },
};
// clang-format on

} // namespace

CKrPropertyOld::CKrPropertyOld() : m_itemCtrl(std::make_unique<CKrAssCtrlOld>(CKrAssCtrlOld::eObjString, CString())) {}

CKrPropertyOld::CKrPropertyOld(CString const & name, CString const & description, bool enabled, bool visible)
    : CKrPropertyOld(CKrAssCtrlOld::eEditCtrl, name, enabled, visible)
{
    if (!description.IsEmpty())
        m_itemCtrl->SetCtrlText(description);
}

CKrPropertyOld::CKrPropertyOld(ECtrlType ctrlType, CString const & name, bool enabled, bool visible)
    : m_ctrlType(ctrlType), m_itemCtrl(std::make_unique<CKrAssCtrlOld>(CKrAssCtrlOld::eObjString, name))
{
    m_itemCtrl->SetEnabled(enabled);
    m_itemCtrl->SetVisible(visible);
}

CKrPropertyOld::CKrPropertyOld(CKrPropertyOld const & other)
    : m_ctrlType(other.m_ctrlType),
      m_itemCtrl(std::make_unique<CKrAssCtrlOld>(*other.m_itemCtrl)),
      m_value(other.m_value),
      m_needed(other.m_needed),
      m_modified(other.m_modified),
      m_children(Copies(other.m_children))
{
}

CKrPropertyOld & CKrPropertyOld::operator=(CKrPropertyOld const & other)
{
    if (this == &other)
        return *this;
    Children copies = Copies(other.m_children); // first: the other may stand below this property
    auto itemCtrl = std::make_unique<CKrAssCtrlOld>(*other.m_itemCtrl);
    m_value = other.m_value;
    m_itemCtrl = std::move(itemCtrl);
    m_needed = other.m_needed;
    m_modified = other.m_modified;
    m_children = std::move(copies);
    return *this;
}

CKrPropertyOld::~CKrPropertyOld() = default;

CKrPropertyOld * CKrPropertyOld::Clone() const { return new CKrPropertyOld(*this); }

CKrPropertyOld::Children CKrPropertyOld::Copies(Children const & children)
{
    Children copies;
    copies.reserve(children.size());
    for (auto const & child : children)
        copies.push_back(child ? std::make_unique<CKrPropertyOld>(*child) : nullptr);
    return copies;
}

CKrAssCtrlOld * CKrPropertyOld::CreateItemCtrl(ECtrlType) { return m_itemCtrl.get(); }

void CKrPropertyOld::AddSubProperty(CKrPropertyOld * property)
{
    m_children.push_back(std::unique_ptr<CKrPropertyOld>(property));
}

CKrPropertyOld * CKrPropertyOld::GetSubPropertyAt(unsigned int index) const
{
    return index < m_children.size() ? m_children[index].get() : nullptr;
}

bool CKrPropertyOld::IsValid() const
{
    switch (m_ctrlType)
    {
    case CKrAssCtrlOld::eEditCtrl:
    case CKrAssCtrlOld::eComboCtrl:
        return m_value.IsDouble() || m_value.IsLong() || m_value.IsBool() || !GetString().IsEmpty();
    case CKrAssCtrlOld::eColorCtrl:
    case CKrAssCtrlOld::eDateCtrl:
    case CKrAssCtrlOld::eTimeCtrl:
    case CKrAssCtrlOld::eMemoCtrl:
        return true;
    case CKrAssCtrlOld::eFileNameCtrl:
    case CKrAssCtrlOld::eDirNameCtrl:
    case CKrAssCtrlOld::ePasswordCtrl:
        return !GetAsString().IsEmpty();
    case CKrAssCtrlOld::eUserDefinedCtrl:
    case CKrAssCtrlOld::eConfigListCtrl:
        return !GetString().IsEmpty();
    default:
        return false;
    }
}

bool CKrPropertyOld::IsEqual(CKrPropertyOld const & other) const
{
    return this == &other ||
           (m_ctrlType == other.m_ctrlType && GetName() == other.GetName() && GetAsString() == other.GetAsString());
}

bool CKrPropertyOld::operator==(CKrPropertyOld const & other) const
{
    return IsEqual(other) && m_needed == other.m_needed && m_modified == other.m_modified &&
           *m_itemCtrl == *other.m_itemCtrl;
}

CKrPropertyOld::EObjType CKrPropertyOld::PropertyTypeFromString(CString const & text)
{
    for (auto const & row : s_types)
    {
        if (text == row.word)
            return row.type;
    }
    return CKrAssCtrlOld::eObjNone;
}

CString CKrPropertyOld::PropertyTypeToString(EObjType type) { return kr::detail::WordOfType(s_types, type); }
