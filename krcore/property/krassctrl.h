// How a property is shown and how it behaves in a property grid.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krcontrolparts.h>

/// The control association of a property: the kind of control, its state, the values to choose from, the events that it triggers, and
/// a slot for the client. The library draws nothing: clients read this record.
///
///     CKrAssCtrl control(CKrAssCtrl::eComboCtrl);
///     control.SetSelectionList({CKrVariant(1), CKrVariant(2)});
///     control.SetCtrlType(OLESTR("LayerPicker"));      -> eUserDefinedCtrl: no word of the table
///     control.GetCtrlTypeAsString()                    -> "LayerPicker"
class KRCORE_API CKrAssCtrl
{
public:
    enum ECtrlType : int
    {
        eNoCtrl = 0,
        eEditCtrl = 1,
        eComboCtrl = 2,
        eColorCtrl = 3,
        eFileNameCtrl = 4,
        eDirNameCtrl = 5,
        ePasswordCtrl = 6,
        eDateCtrl = 7,
        eTimeCtrl = 8,
        eMemoCtrl = 9,
        eCheckCtrl = 10,
        eDateTimeCtrl = 11,
        eLinkCtrl = 12,
        eWebAddrCtrl = 13,
        eMailAddrCtrl = 14,
        eUserDefinedCtrl = 101
    };

    /// No control type, visible, enabled, no texts, no events, no selection list.
    CKrAssCtrl();
    explicit CKrAssCtrl(ECtrlType type);
    /// Copies share the client's data pointer; events and selection list are copied.
    CKrAssCtrl(CKrAssCtrl const & other);
    CKrAssCtrl & operator=(CKrAssCtrl const & other);
    CKrAssCtrl(CKrAssCtrl && other) noexcept;
    CKrAssCtrl & operator=(CKrAssCtrl && other) noexcept;
    virtual ~CKrAssCtrl();

    /// Type, user control type, visible, enabled and tooltip. Deliberate: events, selection list and data do not count.
    bool operator==(CKrAssCtrl const & other) const;

    /// The type of a word in any case; `eNoCtrl` for any other text.
    static ECtrlType CtrlTypeFromString(CString const & text);
    /// The word of a type, its enumerator's name; empty for `eNoCtrl` and any other number.
    static CString CtrlTypeToString(ECtrlType type);

    ECtrlType GetType() const noexcept { return m_type; }
    /// Any type but `eUserDefinedCtrl` empties the user control type.
    void SetType(ECtrlType type);
    /// The type of the word; any other text is a user control type, empty text leaves no type. Deliberate: a known word leaves the user
    /// control type as it was.
    void SetCtrlType(CString const & text);
    CString const & GetUserCtrlType() const noexcept { return m_details.Read().userCtrlType; }
    /// Text makes the type `eUserDefinedCtrl`, empty text leaves it alone.
    void SetUserCtrlType(CString const & text);
    /// The user control type of a user-defined control, the word of any other.
    CString GetCtrlTypeAsString() const;

    bool IsVisible() const noexcept { return m_visible; }
    void SetVisible(bool visible) noexcept { m_visible = visible; }
    bool IsEnabled() const noexcept { return m_enabled; }
    void SetEnabled(bool enabled) noexcept { m_enabled = enabled; }
    CString const & GetTooltip() const noexcept { return m_details.Read().tooltip; }
    void SetTooltip(CString const & tooltip);
    /// The client's pointer; never looked at, never freed.
    void * GetData() const noexcept { return m_data; }
    void PutData(void * data) noexcept { m_data = data; }

    /// A new empty list in place of any other.
    void CreateSelectionList();
    /// Leaves no list.
    void ClearSelectionList() noexcept;
    void SetSelectionList(std::vector<CKrVariant> const & values);
    /// The list itself, to be filled, or null; valid until it is replaced or cleared.
    std::vector<CKrVariant> * GetSelectionList() noexcept { return m_details.Read().selectionList.Get(); }
    std::vector<CKrVariant> const * GetSelectionList() const noexcept { return m_details.Read().selectionList.Get(); }
    /// Whether the user may enter a value that is not in the list.
    bool IsSelectionListEditable() const noexcept { return m_selectionListEditable; }
    void SetEditSelectionList(bool editable) noexcept { m_selectionListEditable = editable; }

    /// Stores a copy under that key, which need not be the event's own type, in place of an earlier one.
    void AddEvent(CKrEvent::EventType type, CKrEvent const & event);
    /// The stored event or null; valid until the events change.
    CKrEvent const * GetEvent(CKrEvent::EventType type) const { return m_details.Read().events.Find(type); }
    bool HasEvents() const noexcept { return !m_details.Read().events.IsEmpty(); }
    void ClearEvents() noexcept;
    /// The events of `other` in place of its own. Deliberate: called with itself, it leaves none.
    void CopyEvents(CKrAssCtrl const & other);

private:
    /// What most controls do without.
    struct Details
    {
        CString userCtrlType;
        CString tooltip;
        kr::detail::EventMap events;
        kr::detail::SelectionList selectionList;
    };

    ECtrlType m_type = eNoCtrl;
    bool m_visible = true;
    bool m_enabled = true;
    bool m_selectionListEditable = false;
    void * m_data = nullptr;
    kr::detail::SeldomPart<Details> m_details;
};
