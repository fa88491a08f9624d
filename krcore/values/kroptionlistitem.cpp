#include <krcore/values/kroptionlist.h>

CKrOptionListItem::CKrOptionListItem() = default;

CKrOptionListItem::CKrOptionListItem(CString const & identifier, CString const & text)
    : m_identifier(identifier), m_text(text)
{
    MakeValidTextAndID();
}

CKrOptionListItem::CKrOptionListItem(CKrOptionListItem const & other) = default;

CKrOptionListItem & CKrOptionListItem::operator=(CKrOptionListItem const & other) = default;

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
