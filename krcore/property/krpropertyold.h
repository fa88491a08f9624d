// A property of the older generation.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krcore/graphics/krcolor.h>
#include <krcore/property/krassctrlold.h>
#include <krplatform/datetime/ctime.h>

#include <memory>
#include <vector>

/// A typed value with sub-properties, kept for clients that were never moved to `CKrProperty`. Name, description and
/// data type live in the control association, the control type in the property. Deliberate: the typed getters do not
/// convert; a value of another tag gives -1, false or empty text.
///
///     CKrPropertyOld width(CKrPropertyOld::ECtrlType::eEditCtrl, OLESTR("Width"), true, true);
///     width.SetDouble(2.5);
///     width.GetInt()                                  -> -1
class KRCORE_API CKrPropertyOld
{
public:
    using ECtrlType = CKrAssCtrlOld::ECtrlType;
    using EObjType = CKrAssCtrlOld::EObjType;

    /// An edit control of a string, without a name and a value.
    CKrPropertyOld();
    /// An empty `description` becomes the name.
    CKrPropertyOld(CString const & name, CString const & description, bool enabled, bool visible);
    CKrPropertyOld(ECtrlType ctrlType, CString const & name, bool enabled, bool visible);
    /// A deep copy.
    CKrPropertyOld(CKrPropertyOld const & other);
    /// Deliberate: the control type is left as it was.
    CKrPropertyOld & operator=(CKrPropertyOld const & other);
    virtual ~CKrPropertyOld();
    /// A deep copy, owned by the caller.
    CKrPropertyOld * Clone() const;

    // Of the association.
    CString GetName() const { return m_itemCtrl->GetObjName(); }
    void SetName(CString const & name) { m_itemCtrl->SetObjName(name); }
    CString GetDescription() const { return m_itemCtrl->GetCtrlText(); }
    void SetDescription(CString const & description) { m_itemCtrl->SetCtrlText(description); }
    EObjType GetType() const { return m_itemCtrl->GetType(); }
    void SetType(EObjType type) { m_itemCtrl->SetType(type); }
    bool IsVisible() const { return m_itemCtrl->IsVisible(); }
    void SetVisible(bool visible) { m_itemCtrl->SetVisible(visible); }
    bool IsStringValue() const { return GetType() == CKrAssCtrlOld::eObjString; }
    bool IsDoubleValue() const { return GetType() == CKrAssCtrlOld::eObjDouble; }
    bool IsIntValue() const { return GetType() == CKrAssCtrlOld::eObjInt; }
    bool IsBoolValue() const { return GetType() == CKrAssCtrlOld::eObjBool; }
    bool IsDateTimeValue() const { return GetType() == CKrAssCtrlOld::eObjDate; }

    ECtrlType GetCtrlType() const noexcept { return m_ctrlType; }
    void SetCtrlType(ECtrlType type) noexcept { m_ctrlType = type; }
    CKrAssCtrlOld * GetItemCtrl() const noexcept { return m_itemCtrl.get(); }
    /// The association; the argument plays no part.
    CKrAssCtrlOld * CreateItemCtrl(ECtrlType ctrlType);
    bool IsNeeded() const noexcept { return m_needed; }
    void SetNeeded(bool needed) noexcept { m_needed = needed; }
    bool IsModified() const noexcept { return m_modified; }
    void SetModified(bool modified) noexcept { m_modified = modified; }

    /// Takes the property. Deliberate: null is not refused and stays in the list.
    void AddSubProperty(CKrPropertyOld * property);
    CKrPropertyOld * GetSubPropertyAt(unsigned int index) const;
    unsigned int GetSubPropertyCount() const noexcept { return static_cast<unsigned int>(m_children.size()); }

    // Reading: the value if it has the tag, otherwise false, -1, empty text, the default colour, the date 0.0.
    CKrVariant GetValue() const { return m_value; }
    bool GetBool() const;
    int GetInt() const;
    double GetDouble() const;
    /// A double, float, long or short; -1.0 for any other tag.
    double GetAsDouble() const;
    CString GetString() const;
    CString GetAsString() const { return m_value.GetAsString(); }
    /// Colours are longs in this generation.
    CKrColor GetColor() const;
    COleDateTime GetOleDateTime() const;
    /// The locale's text of the date or time; empty unless the tag is `eOleDateTime`.
    CString GetDate() const;
    CString GetTime() const;
    /// Of a text in a file or directory control.
    CKrFileName GetFileName() const;

    // Writing; the type plays no part.
    void SetValue(CKrVariant const & value) { m_value = value; }
    void SetString(CString const & text) { m_value = CKrVariant(text); }
    void SetInt(int value) { m_value = CKrVariant(value); }
    void SetDouble(double value) { m_value = CKrVariant(value); }
    void SetBool(bool value) { m_value = CKrVariant(value); }
    void SetFileName(CKrFileName const & fileName) { SetString(fileName.GetFullName(true)); }
    void SetColor(CKrColor const & color);
    void SetDate(COleDateTime const & date) { m_value = CKrVariant(date); }
    void SetDate(CTime const & time) { SetDate(COleDateTime(time)); }
    /// The date of a text in the user's locale; 0.0 for text that is none. Deliberate: empty text is the current time.
    void SetDate(CString const & text);
    void SetValueFromString(CString const & text);

    /// By the control type, not by the data type.
    bool IsValid() const;
    /// Control type, name, and the texts of the values. Deliberate: an integer 1 equals a text "1".
    bool IsEqual(CKrPropertyOld const & other) const;
    /// `IsEqual`, the flags and the associations; no sub-properties.
    bool operator==(CKrPropertyOld const & other) const;

    /// With case; `eObjNone` for an unknown word, empty text for an unknown number.
    static EObjType PropertyTypeFromString(CString const & text);
    static CString PropertyTypeToString(EObjType type);

private:
    using Children = std::vector<std::unique_ptr<CKrPropertyOld>>;

    static Children Copies(Children const & children);

    ECtrlType m_ctrlType = CKrAssCtrlOld::eEditCtrl;
    std::unique_ptr<CKrAssCtrlOld> m_itemCtrl; ///< never null
    CKrVariant m_value;
    bool m_needed = false;
    bool m_modified = false;
    Children m_children;
};
