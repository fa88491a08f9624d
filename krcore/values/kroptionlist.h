// Choices that are offered to a user.
#pragma once

#include <krcore/export.h>
#include <krcore/foundation/krownervector.h>
#include <krcore/values/krvariant.h>

#include <map>
#include <utility>
#include <vector>

/// One choice: an identifier for programs, a text for people, a description, a value and flags, which are for the
/// client but for `IsSelected`.
class KRCORE_API CKrOptionListItem
{
public:
    /// Empty, visible, enabled, selectable, not selected, not missing.
    CKrOptionListItem();
    /// An empty identifier becomes the text, an empty text the identifier.
    CKrOptionListItem(CString const & identifier, CString const & text);
    CKrOptionListItem(CKrOptionListItem const & other);
    CKrOptionListItem & operator=(CKrOptionListItem const & other);
    virtual ~CKrOptionListItem();
    /// A copy, owned by the caller.
    CKrOptionListItem * Clone() const;

    CString const & GetID() const noexcept { return m_identifier; }
    /// Deliberate: a list that holds the item goes on finding it under the identifier that it was added with.
    void SetID(CString const & identifier) { m_identifier = identifier; }
    CString const & GetText() const noexcept { return m_text; }
    void SetText(CString const & text) { m_text = text; }
    CString const & GetDescription() const noexcept { return m_description; }
    void SetDescription(CString const & description) { m_description = description; }
    CKrVariant GetValue() const { return m_value; }
    void SetValue(CKrVariant const & value) { m_value = value; }
    bool HasValue(CKrVariant const & value) const { return m_value == value; }

    bool IsVisible() const noexcept { return m_visible; }
    void SetVisible(bool visible) noexcept { m_visible = visible; }
    bool IsEnabled() const noexcept { return m_enabled; }
    void SetEnabled(bool enabled) noexcept { m_enabled = enabled; }
    bool IsSelected() const noexcept { return m_selected; }
    void SetSelected(bool selected) noexcept { m_selected = selected; }
    bool IsSelectable() const noexcept { return m_selectable; }
    void SetSelectable(bool selectable) noexcept { m_selectable = selectable; }
    bool IsMissing() const noexcept { return m_missing; }
    void SetMissing(bool missing) noexcept { m_missing = missing; }

    /// Puts text and identifier in each other's place where one is empty. Whether there is an identifier afterwards.
    bool MakeValidTextAndID();

private:
    CString m_identifier;
    CString m_text;
    CString m_description;
    CKrVariant m_value;
    bool m_visible = true;
    bool m_enabled = true;
    bool m_selected = false;
    bool m_selectable = true;
    bool m_missing = false;
};

/// An ordered list of choices with unique identifiers. Each item is selected by itself: selecting one never clears
/// another, and an item that is not selectable, visible or enabled is selected like any other.
///
///     CKrOptionList list;
///     list.AddOption(OLESTR("wall"), OLESTR("Walls"), true);
///     list.AddOptionID(OLESTR("door"), true);
///     list.GetSelectedIDs()                       -> "wall;door"
///     CKrOptionList(list).GetOptionCount()        -> 0: a copy has no options
///
/// The list owns its items; what it gives is lent until the item is deleted. What is not found does nothing or gives
/// null or false. Case counts. When memory runs out (`std::bad_alloc`, `CMemoryException *`) an operation on one option
/// changes nothing; one on several keeps what it has done by then.
class KRCORE_API CKrOptionList
{
public:
    CKrOptionList();
    /// Deliberate: copies no options.
    CKrOptionList(CKrOptionList const & other);
    /// Deliberate: deletes the own options and copies none. The index keeps the old identifiers of what is deleted:
    /// before a `Clear`, nothing may be looked up or added by identifier.
    CKrOptionList & operator=(CKrOptionList const & other);
    virtual ~CKrOptionList();

    /// Adds a copy, or assigns it to the item of that identifier; null without identifier and text.
    CKrOptionListItem * AddOption(CKrOptionListItem const & item);
    /// Adds an item, or sets the selected flag of the one of that identifier and gives it the text, unless that is
    /// empty or, where it has a text, the identifier itself. Null without identifier and text, and for an empty
    /// identifier with a text that is another's identifier.
    CKrOptionListItem * AddOption(CString const & identifier, CString const & text, bool selected);
    /// Pairs of identifier and text, not selected.
    void AddOption(std::vector<std::pair<CString, CString>> const & options);
    /// The same of two lists; what one has more stands for both. A text that is there already is deselected.
    void AddOption(std::vector<CString> const & identifiers, std::vector<CString> const & texts);
    CKrOptionListItem * AddOptionID(CString const & identifier, bool selected);
    void AddOptionIDs(std::vector<CString> const & identifiers);
    /// Adds an item, or sets the selected flag of the first one with that text. Null for empty text.
    CKrOptionListItem * AddOptionText(CString const & text, bool selected);
    /// The same for each text that is not empty, deselected.
    void AddOptionText(std::vector<CString> const & texts);
    void Clear();
    void DeleteOption(CString const & identifier);
    /// Hands the item to the caller. Deliberate: the identifier that it has now is forgotten, so that one renamed in
    /// the list stays under its old one; rename no item that is to be removed.
    CKrOptionListItem * RemoveOption(CString const & identifier);

    CKrOptionListItem * GetOption(CString const & identifier) const;
    CKrOptionListItem * GetOptionAt(unsigned int index) const;
    /// The first in order.
    CKrOptionListItem * GetOptionByText(CString const & text) const;
    CKrOptionListItem * GetOptionByValue(CKrVariant const & value) const;
    unsigned int GetOptionCount() const noexcept { return static_cast<unsigned int>(m_items.size()); }

    // Of the selected items, in the order of the list.
    void GetSelectedIDs(std::vector<CString> & identifiers) const;
    void GetSelectedTexts(std::vector<CString> & texts) const;
    void GetSelectedValues(std::vector<CKrVariant> & values) const;
    /// Joined with ";".
    CString GetSelectedIDs() const;
    CString GetSelectedTexts() const;

    bool IsSelectedAt(unsigned int index) const;
    bool IsSelectedID(CString const & identifier) const;
    // The flag of the item that is found; other items keep theirs.
    void SelectID(CString const & identifier, bool select);
    void SelectText(CString const & text, bool select);
    void SelectValue(CKrVariant const & value, bool select);
    void SelectIDs(std::vector<CString> const & identifiers, bool select);
    void SelectTexts(std::vector<CString> const & texts, bool select);
    /// Split at ";".
    void SelectIDs(CString const & identifiers, bool select);
    void SelectTexts(CString const & texts, bool select);
    /// The flag of each item in order, for as many as both have.
    void SetSelection(std::vector<bool> const & selection);
    /// The text of each item in order, for as many as both have.
    void SetOptionText(std::vector<CString> const & texts);

private:
    CKrOptionListItem * AddOptionImpl(CKrOptionListItem * item);
    bool RemoveOptionImpl(CKrOptionListItem * item);
    void AddTexts(std::vector<CString> const & texts, std::size_t first);

    CString m_separator;
    kr::ownervector<CKrOptionListItem> m_items;
    std::map<CString, CKrOptionListItem *> m_index;
};
