// The control association of the older generation.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krcontrolparts.h>

/// Name, description, data type and state of an older property or category, kept for clients that were never moved to
/// `CKrAssCtrl`. Mind that the numbers of the control types differ between the generations.
class KRCORE_API CKrAssCtrlOld
{
public:
    /// The data type of the value; 5 is free.
    enum EObjType : int
    {
        eObjNone = 0,
        eObjString = 1,
        eObjDouble = 2,
        eObjInt = 3,
        eObjBool = 4,
        eObjDate = 6
    };

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
        eUserDefinedCtrl = 10,
        eConfigListCtrl = 11
    };

    CKrAssCtrlOld();
    /// The name is the control text too.
    CKrAssCtrlOld(EObjType type, CString const & name);
    /// Copies share the client's data pointer; events and selection list are copied.
    CKrAssCtrlOld(CKrAssCtrlOld const & other);
    CKrAssCtrlOld & operator=(CKrAssCtrlOld const & other);
    CKrAssCtrlOld(CKrAssCtrlOld && other) noexcept;
    CKrAssCtrlOld & operator=(CKrAssCtrlOld && other) noexcept;
    virtual ~CKrAssCtrlOld();

    /// Deliberate: events, selection list and data do not count.
    bool operator==(CKrAssCtrlOld const & other) const;

    /// Without case; `eNoCtrl` for an unknown word, empty text for an unknown number.
    static ECtrlType CtrlTypeFromString(CString const & text);
    static CString CtrlTypeToString(ECtrlType type);

    EObjType GetType() const noexcept { return m_type; }
    void SetType(EObjType type) noexcept { m_type = type; }
    CString const & GetObjName() const noexcept { return m_objName; }
    void SetObjName(CString const & name) { m_objName = name; }
    CString const & GetCtrlText() const noexcept { return m_ctrlText; }
    void SetCtrlText(CString const & text) { m_ctrlText = text; }
    /// A stored position; -1 at start.
    int GetOrder() const noexcept { return m_order; }
    void SetOrder(int order) noexcept { m_order = order; }
    CString const & GetTooltip() const noexcept { return m_tooltip; }
    void SetTooltip(CString const & tooltip) { m_tooltip = tooltip; }
    bool IsVisible() const noexcept { return m_visible; }
    void SetVisible(bool visible) noexcept { m_visible = visible; }
    bool IsEnabled() const noexcept { return m_enabled; }
    void SetEnabled(bool enabled) noexcept { m_enabled = enabled; }
    /// The client's pointer; never looked at, never freed.
    void * GetData() const noexcept { return m_data; }
    void PutData(void * data) noexcept { m_data = data; }

    // As in `CKrAssCtrl`.
    void CreateSelectionList() { m_selectionList.Create(); }
    void ClearSelectionList() noexcept { m_selectionList.Clear(); }
    void SetSelectionList(std::vector<CKrVariant> const & values) { m_selectionList.Create(values); }
    std::vector<CKrVariant> * GetSelectionList() noexcept { return m_selectionList.Get(); }
    std::vector<CKrVariant> const * GetSelectionList() const noexcept { return m_selectionList.Get(); }
    bool IsSelectionListEditable() const noexcept { return m_selectionListEditable; }
    void SetEditSelectionList(bool editable) noexcept { m_selectionListEditable = editable; }
    void AddEvent(CKrEvent::EventType type, CKrEvent const & event) { m_events.Add(type, event); }
    CKrEvent const * GetEvent(CKrEvent::EventType type) const { return m_events.Find(type); }
    bool HasEvents() const noexcept { return !m_events.IsEmpty(); }
    void ClearEvents() noexcept { m_events.Clear(); }
    void CopyEvents(CKrAssCtrlOld const & other) { m_events.CopyFrom(other.m_events); }

private:
    EObjType m_type = eObjNone;
    CString m_objName;
    CString m_ctrlText;
    bool m_visible = true;
    bool m_enabled = true;
    int m_order = -1;
    CString m_tooltip;
    kr::detail::EventMap m_events;
    void * m_data = nullptr;
    kr::detail::SelectionList m_selectionList;
    bool m_selectionListEditable = false;
};
