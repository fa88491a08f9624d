#include <krcore/values/kroptionlist.h>

#include <krcore/text/krstringparser.h>

#include <algorithm>
#include <memory>

namespace
{

// Replaces the output by what `read` gives of each selected item.
template <class Value, class Read>
void CollectSelected(kr::ownervector<CKrOptionListItem> const & items, std::vector<Value> & values, Read read)
{
    std::vector<Value> selected;
    for (CKrOptionListItem const * const item : items)
    {
        if (item->IsSelected())
            selected.push_back(read(*item));
    }
    values.swap(selected);
}

void SelectItem(CKrOptionListItem * item, bool select)
{
    if (item)
        item->SetSelected(select);
}

} // namespace

CKrOptionList::CKrOptionList() : m_separator(OLESTR(";")) {}

CKrOptionList::CKrOptionList(CKrOptionList const & other) : m_separator(other.m_separator), m_items(other.m_items) {}

CKrOptionList & CKrOptionList::operator=(CKrOptionList const & other)
{
    m_separator = other.m_separator;
    m_items = other.m_items;
    return *this;
}

CKrOptionList::~CKrOptionList() = default;

CKrOptionListItem * CKrOptionList::AddOptionImpl(CKrOptionListItem * item)
{
    std::unique_ptr<CKrOptionListItem> owner(item);
    if (!item || !item->MakeValidTextAndID() || m_index.contains(item->GetID()))
        return nullptr;
    m_items.push_back(item);
    try
    {
        m_index.emplace(item->GetID(), item);
    }
    catch (...)
    {
        m_items.pop_back();
        throw;
    }
    return owner.release();
}

CKrOptionListItem * CKrOptionList::AddOption(CKrOptionListItem const & item)
{
    if (CKrOptionListItem * const existing = GetOption(item.GetID()))
    {
        *existing = item;
        return existing;
    }
    return AddOptionImpl(item.Clone());
}

CKrOptionListItem * CKrOptionList::AddOption(CString const & identifier, CString const & text, bool selected)
{
    CString const key = identifier.IsEmpty() ? text : identifier;
    if (key.IsEmpty())
        return nullptr;
    CKrOptionListItem * item = GetOption(identifier);
    if (!item)
        item = AddOptionImpl(new CKrOptionListItem(key, text));
    else if (!text.IsEmpty() && (text != key || item->GetText().IsEmpty()))
        item->SetText(text);
    SelectItem(item, selected);
    return item;
}

void CKrOptionList::AddOption(std::vector<std::pair<CString, CString>> const & options)
{
    for (auto const & [identifier, text] : options)
        AddOption(identifier, text, false);
}

void CKrOptionList::AddOption(std::vector<CString> const & identifiers, std::vector<CString> const & texts)
{
    for (std::size_t index = 0; index < identifiers.size(); ++index)
        AddOption(identifiers[index], index < texts.size() ? texts[index] : identifiers[index], false);
    AddTexts(texts, identifiers.size());
}

CKrOptionListItem * CKrOptionList::AddOptionID(CString const & identifier, bool selected)
{
    return AddOption(identifier, identifier, selected);
}

void CKrOptionList::AddOptionIDs(std::vector<CString> const & identifiers)
{
    for (CString const & identifier : identifiers)
        AddOptionID(identifier, false);
}

CKrOptionListItem * CKrOptionList::AddOptionText(CString const & text, bool selected)
{
    if (text.IsEmpty())
        return nullptr;
    CKrOptionListItem * const item = GetOptionByText(text);
    if (!item)
        return AddOption(text, text, selected);
    SelectItem(item, selected);
    return item;
}

void CKrOptionList::AddOptionText(std::vector<CString> const & texts) { AddTexts(texts, 0); }

void CKrOptionList::AddTexts(std::vector<CString> const & texts, std::size_t first)
{
    for (std::size_t index = first; index < texts.size(); ++index)
        AddOptionText(texts[index], false);
}

void CKrOptionList::Clear()
{
    m_index.clear();
    m_items = {};
}

void CKrOptionList::DeleteOption(CString const & identifier) { delete RemoveOption(identifier); }

CKrOptionListItem * CKrOptionList::RemoveOption(CString const & identifier)
{
    CKrOptionListItem * const item = GetOption(identifier);
    return RemoveOptionImpl(item) ? item : nullptr;
}

bool CKrOptionList::RemoveOptionImpl(CKrOptionListItem * item)
{
    if (!item)
        return false;
    m_index.erase(item->GetID());
    if (auto const place = std::find(m_items.begin(), m_items.end(), item); place != m_items.end())
        m_items.erase(place);
    return true;
}

CKrOptionListItem * CKrOptionList::GetOption(CString const & identifier) const
{
    auto const place = m_index.find(identifier);
    return place == m_index.end() ? nullptr : place->second;
}

CKrOptionListItem * CKrOptionList::GetOptionAt(unsigned int index) const
{
    return index < m_items.size() ? m_items[index] : nullptr;
}

CKrOptionListItem * CKrOptionList::GetOptionByText(CString const & text) const
{
    auto const place = std::find_if(m_items.begin(), m_items.end(),
                                    [&text](CKrOptionListItem const * item) { return item->GetText() == text; });
    return place == m_items.end() ? nullptr : *place;
}

CKrOptionListItem * CKrOptionList::GetOptionByValue(CKrVariant const & value) const
{
    auto const place = std::find_if(m_items.begin(), m_items.end(),
                                    [&value](CKrOptionListItem const * item) { return item->HasValue(value); });
    return place == m_items.end() ? nullptr : *place;
}

void CKrOptionList::GetSelectedIDs(std::vector<CString> & identifiers) const
{
    CollectSelected(m_items, identifiers, [](CKrOptionListItem const & item) { return item.GetID(); });
}

void CKrOptionList::GetSelectedTexts(std::vector<CString> & texts) const
{
    CollectSelected(m_items, texts, [](CKrOptionListItem const & item) { return item.GetText(); });
}

void CKrOptionList::GetSelectedValues(std::vector<CKrVariant> & values) const
{
    CollectSelected(m_items, values, [](CKrOptionListItem const & item) { return item.GetValue(); });
}

CString CKrOptionList::GetSelectedIDs() const
{
    std::vector<CString> identifiers;
    GetSelectedIDs(identifiers);
    return CKrStringParser::Join(m_separator, identifiers);
}

CString CKrOptionList::GetSelectedTexts() const
{
    std::vector<CString> texts;
    GetSelectedTexts(texts);
    return CKrStringParser::Join(m_separator, texts);
}

bool CKrOptionList::IsSelectedAt(unsigned int index) const
{
    CKrOptionListItem const * const item = GetOptionAt(index);
    return item && item->IsSelected();
}

bool CKrOptionList::IsSelectedID(CString const & identifier) const
{
    CKrOptionListItem const * const item = GetOption(identifier);
    return item && item->IsSelected();
}

void CKrOptionList::SelectID(CString const & identifier, bool select) { SelectItem(GetOption(identifier), select); }

void CKrOptionList::SelectText(CString const & text, bool select) { SelectItem(GetOptionByText(text), select); }

void CKrOptionList::SelectValue(CKrVariant const & value, bool select) { SelectItem(GetOptionByValue(value), select); }

void CKrOptionList::SelectIDs(std::vector<CString> const & identifiers, bool select)
{
    for (CString const & identifier : identifiers)
        SelectID(identifier, select);
}

void CKrOptionList::SelectTexts(std::vector<CString> const & texts, bool select)
{
    for (CString const & text : texts)
        SelectText(text, select);
}

void CKrOptionList::SelectIDs(CString const & identifiers, bool select)
{
    std::vector<CString> items;
    CKrStringParser::Split(identifiers, m_separator, items);
    SelectIDs(items, select);
}

void CKrOptionList::SelectTexts(CString const & texts, bool select)
{
    std::vector<CString> items;
    CKrStringParser::Split(texts, m_separator, items);
    SelectTexts(items, select);
}

void CKrOptionList::SetSelection(std::vector<bool> const & selection)
{
    for (std::size_t index = 0; index < std::min(selection.size(), m_items.size()); ++index)
        m_items[index]->SetSelected(selection[index]);
}

void CKrOptionList::SetOptionText(std::vector<CString> const & texts)
{
    for (std::size_t index = 0; index < std::min(texts.size(), m_items.size()); ++index)
    {
        m_items[index]->SetText(texts[index]);
        m_items[index]->MakeValidTextAndID();
    }
}
