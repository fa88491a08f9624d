#include <krcore/values/kroptionlist.h>

CKrOptionListItem::CKrOptionListItem() = default;

CKrOptionListItem::CKrOptionListItem(CString const & identifier, CString const & text)
    : m_identifier(identifier), m_text(text)
{
    MakeValidTextAndID();
}

CKrOptionListItem::CKrOptionListItem(CKrOptionListItem const & other) = default;

CKrOptionListItem & CKrOptionListItem::operator=(CKrOptionListItem const & other)
{
    m_value = other.m_value; // first, since only this needs memory
    m_identifier = other.m_identifier;
    m_text = other.m_text;
    m_description = other.m_description;
    m_visible = other.m_visible;
    m_enabled = other.m_enabled;
    m_selected = other.m_selected;
    m_selectable = other.m_selectable;
    m_missing = other.m_missing;
    return *this;
}

CKrOptionListItem::~CKrOptionListItem() = default;

CKrOptionListItem * CKrOptionListItem::Clone() const { return new CKrOptionListItem(*this); }

bool CKrOptionListItem::MakeValidTextAndID()
{
    if (m_identifier.IsEmpty())
        m_identifier = m_text;
    else if (m_text.IsEmpty())
        m_text = m_identifier;
    return !m_identifier.IsEmpty();
}
