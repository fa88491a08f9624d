// The node of every property tree.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krcore/foundation/krobject.h>
#include <krcore/graphics/krcolor.h>
#include <krcore/property/krassctrl.h>
#include <krcore/property/krpropertychildren.h>
#include <krcore/values/krattrlist.h>
#include <krcore/values/krvariant.h>

#include <memory>
#include <vector>

namespace kr
{
template <class T>
class visitor;
}

/// One named, described, typed value with its flags, its control association, its attributes and an ordered list of sub-properties,
/// which it owns. A node is owned by its parent, or by whoever holds the root.
///
///     CKrProperty layer(OLESTR("Layer"), CString(), CKrProperty::ePropString, true, true);
///     layer.AddSubProperty(new CKrProperty(OLESTR("Width"), OLESTR("Line width"), CKrProperty::ePropDouble, true, true));
///     layer.GetSubProperty(OLESTR("Width"))->SetValueFromString(OLESTR("0,35"));
///     layer.GetSubProperty(OLESTR("Width"))->GetAsString()              -> "0.35"
///     layer.GetSubProperty(OLESTR("width"))                             -> null: case counts
///
/// The verbs of ownership: `Add` and `Insert` take a node (and free it when memory runs out), `Get` lends, `Remove` hands it to the
/// caller, `Delete` destroys, `Clone` gives a new one. Names among siblings need not be unique; look-ups find the first. A
/// node's parent link is set and cleared with its place in the list, nowhere else.
///
/// Nothing is reported: a null node, a name that is missing, an index out of range, text that is no number or date have a quiet result.
/// Only `GetString` and `GetFileName` raise the platform's failure, for a value without text, and want of memory throws. A tree belongs
/// to one thread at a time.
class KRCORE_API CKrProperty : public CKrObject
{
public:
    /// The low byte is the base value type, equal to its `CKrVariant::EType` but for colours; 0x100 selects file and date, 0x200 directory
    /// and time.
    enum EPropType : int
    {
        ePropNone = -1,
        ePropString = 2,
        ePropDouble = 4,
        ePropInt = 6,
        ePropBool = 7,
        ePropColor = 8,
        ePropDateTime = 12,
        ePropFile = 0x102,
        ePropDate = 0x10C,
        ePropDir = 0x202,
        ePropTime = 0x20C
    };

    /// `ePropNone`, no texts, an invalid value, visible and enabled.
    CKrProperty();
    /// An empty `description` becomes the name, here and in the next two.
    CKrProperty(CString const & name, CString const & description, bool enabled, bool visible);
    /// With the default value and the default control of the type.
    CKrProperty(CString const & name, CString const & description, EPropType type, bool enabled, bool visible);
    /// With that value, which is not converted to the type.
    CKrProperty(CString const & name, CString const & description, EPropType type, CKrVariant const & value,
                bool enabled, bool visible);
    /// A deep copy without a parent; sub-properties are copied by their `Clone`.
    CKrProperty(CKrProperty const & other);
    /// `DeepCopy`.
    CKrProperty & operator=(CKrProperty const & other);
    ~CKrProperty() override;

    CKrClass * IsA() const override;
    /// A deep copy without a parent, owned by the caller.
    CKrProperty * Clone() const override;
    static CKrClass * Cls();
    /// The object if it is a property by its built-in type, otherwise null.
    static CKrProperty const * Cast(CKrObject const * object);
    static std::unique_ptr<CKrClass> s_pCls;

    // The tree.
    /// Takes the node, which must not be held by another parent. Null does nothing.
    void AddSubProperty(CKrProperty * property);
    /// The same before that index; one past the end appends.
    void InsertSubProperty(unsigned int index, CKrProperty * property);
    /// The first of that name, or null.
    CKrProperty * GetSubProperty(CString const & name) const;
    /// The same. Where a node is asked for its names in their order, as in a walk through two alike nodes, the index that it is expected at
    /// saves the search.
    CKrProperty * GetSubProperty(CString const & name, unsigned int expectedIndex) const;
    /// Null past the end.
    CKrProperty * GetSubPropertyAt(unsigned int index) const
    {
        return index < GetSubPropertyCount() ? &m_children->GetAt(index) : nullptr;
    }
    unsigned int GetSubPropertyCount() const noexcept
    {
        return m_children ? static_cast<unsigned int>(m_children->GetCount()) : 0;
    }
    /// The index of the first of that name, or -1.
    int FindSubPropertyIndex(CString const & name) const;
    /// Hands the first of that name to the caller, without a parent; null if there is none.
    CKrProperty * RemoveSubProperty(CString const & name);
    /// Destroys the first of that name, if any, with all below it.
    void DeleteSubProperty(CString const & name);
    /// Destroys all, each taken out of the tree first.
    void DeleteSubProperties();
    /// Moves a child by `delta` places, at the most to either end; the order of the others stays. False for an index out of range.
    bool ShiftSubProperty(unsigned int index, int delta);
    /// Sorts the children by description, or name where that is empty, by code units; equal keys keep their order. With `recursive` the
    /// whole subtree. Always true.
    bool SortByDescription(bool recursive);
    CKrProperty * GetParentProperty() const noexcept { return m_parent; }
    /// The number of ancestors. -1 when called on a null pointer.
    int GetLevel() const;
    /// The index in the parent; 0 for a root.
    int GetPropertyIndex() const;
    bool IsRoot() const noexcept { return m_parent == nullptr; }
    bool IsLeaf() const noexcept { return GetSubPropertyCount() == 0; }
    bool IsNode() const noexcept { return GetSubPropertyCount() != 0; }
    /// True for a root as well.
    bool IsFirstProperty() const;
    bool IsLastProperty() const;
    /// Walks this node and its subtree; see `kr::visitor`. Children that `Action` adds are walked too. False if `Action` ended the walk.
    bool Visit(kr::visitor<CKrProperty> & visitor);

    // Identity and flags. No setter of a value touches the modified flag.
    CString const & GetName() const noexcept { return m_name; }
    void SetName(CString const & name);
    CString const & GetDescription() const noexcept { return m_description; }
    void SetDescription(CString const & description) { m_description = description; }
    EPropType GetType() const noexcept { return m_type; }
    /// Converts the value to the type under the user's locale, or stores the default value where that fails. `ePropNone` and numbers
    /// outside the enumeration leave the value alone.
    void SetType(EPropType type);
    /// The low byte of the type; 255 for `ePropNone`.
    unsigned int GetValueType() const noexcept { return static_cast<unsigned int>(m_type) & 0xFF; }
    bool IsNeeded() const noexcept { return m_needed; }
    void SetNeeded(bool needed) noexcept { m_needed = needed; }
    bool IsModified() const noexcept { return m_modified; }
    void SetModified(bool modified) noexcept { m_modified = modified; }
    // By the low byte: a file is a string value too, a date a date-time value.
    bool IsStringValue() const noexcept { return GetValueType() == ePropString; }
    bool IsDoubleValue() const noexcept { return GetValueType() == ePropDouble; }
    bool IsIntValue() const noexcept { return GetValueType() == ePropInt; }
    bool IsBoolValue() const noexcept { return GetValueType() == ePropBool; }
    bool IsColorValue() const noexcept { return GetValueType() == ePropColor; }
    bool IsDateTimeValue() const noexcept { return GetValueType() == ePropDateTime; }

    // The value. Setters replace it whatever the declared type is; getters convert, and give the zero of their type where that fails.
    CKrVariant GetValue() const { return m_value; }
    void SetValue(CKrVariant const & value) { m_value = value; }
    /// Stores the default value of the type: zero, empty, false, the date 0.0. Deliberate: the default of a colour is a long, so the
    /// property is not valid until a colour is stored. `ePropNone` clears the value and keeps its tag.
    void SetDefaultValue();
    /// Whether the value has the tag of the type.
    bool IsValid() const;
    bool GetBool() const { return m_value; }
    int GetInt() const { return m_value; }
    double GetDouble() const { return m_value; }
    double GetAsDouble() const { return m_value; }
    CKrColor GetColor() const { return m_value; }
    /// The platform's text of the value; raises its failure where there is none.
    CString GetString() const { return m_value.GetAsLocaleString(); }
    /// Status invalid where the value is no date.
    COleDateTime GetOleDateTime() const;
    /// The locale's text of the date or time; empty unless the tag is `eOleDateTime`.
    CString GetDate() const;
    CString GetTime() const;
    /// The text of a string or file as a file name, that of a directory as a path; empty for other types.
    CKrFileName GetFileName() const;
    void SetString(CString const & text) { m_value = CKrVariant(text); }
    void SetInt(int value) { m_value = CKrVariant(value); }
    void SetBool(bool value) { m_value = CKrVariant(value); }
    void SetDouble(double value) { m_value = CKrVariant(value); }
    void SetColor(CKrColor const & color) { m_value = CKrVariant(color); }
    /// Stores the full name as a string.
    void SetFileName(CKrFileName const & fileName) { SetString(fileName.GetFullName(true)); }
    // Ignored unless this is a date-time value. Text is read in the user's locale; empty and unreadable text give the date 0.0, and so
    // does a date whose status is not valid.
    void SetDate(CString const & text);
    void SetTime(CString const & text);
    void SetDateTime(CString const & text);
    void SetDateTime(COleDateTime const & date);
    /// Reads text by the type: numbers as far as they go (a comma is a point), colours as a number (negative: an index), dates in the
    /// user's locale. Types without a text form ignore it.
    void SetValueFromString(CString const & text);

    // Text by the type. Deliberate: a date-time of 0.0 is no date and reads as empty text; a date or time of 0.0 is formatted like any
    // other (the platform's own text of that date is empty, though, and of that time midnight).
    CString GetAsString() const;
    CString GetAsInvariantString() const;
    /// As `GetAsString`, but a double has the decimal mark of the user's locale.
    CString GetAsLocaleString() const;

    // Attributes.
    /// Stores an attribute without a description, or a new value for one that is there. An empty name does nothing.
    void SetAttribute(CString const & name, CKrVariant const & value);
    /// An invalid value if it is missing.
    CKrVariant GetAttribute(CString const & name) const;
    bool HasAttribute(CString const & name) const;
    void RemoveAttribute(CString const & name);

    // The control association.
    /// Never null; valid as long as this node.
    CKrAssCtrl * GetItemCtrl() const noexcept { return &m_itemCtrl; }
    CKrAssCtrl::ECtrlType GetCtrlType() const { return m_itemCtrl.GetType(); }
    void SetCtrlType(CKrAssCtrl::ECtrlType type) { m_itemCtrl.SetType(type); }
    void SetDefaultCtrlType() { SetCtrlType(GetDefaultCtrlType()); }
    CKrAssCtrl::ECtrlType GetDefaultCtrlType() const { return GetDefaultCtrlType(m_type); }
    /// `eEditCtrl` for any number without a control of its own.
    static CKrAssCtrl::ECtrlType GetDefaultCtrlType(EPropType type);
    bool IsEnabled() const { return m_itemCtrl.IsEnabled(); }
    void SetEnabled(bool enabled) { m_itemCtrl.SetEnabled(enabled); }
    bool IsVisible() const { return m_itemCtrl.IsVisible(); }
    void SetVisible(bool visible) { m_itemCtrl.SetVisible(visible); }
    CString GetTooltip() const { return m_itemCtrl.GetTooltip(); }
    void SetTooltip(CString const & tooltip) { m_itemCtrl.SetTooltip(tooltip); }

    // Copying and comparing. Names are compared with case, values by the platform's comparison.
    /// Takes all but the tree. Deliberate: attributes stay where the source never had any.
    void Copy(CKrProperty const & source);
    /// The same, with clones of the source's sub-properties in place of its own. The parent stays.
    void DeepCopy(CKrProperty const & source);
    /// Takes the value of a node of the same name, then those of its sub-properties for the own ones of their names. Nothing is made. False,
    /// and nothing changed, for another name.
    bool ChangeValue(CKrProperty const & other);
    bool HasEqualValue(CKrProperty const & other) const { return m_value == other.m_value; }
    /// Name, description, type and value.
    bool IsEqual(CKrProperty const & other) const;
    /// The same, and for each sub-property an equal one of its name in `other`. Deliberate: one-sided, what only `other` has is ignored.
    bool IsDeepEqual(CKrProperty const & other) const;
    /// `IsEqual`, the flags and the control associations; neither attributes nor sub-properties.
    bool operator==(CKrProperty const & other) const;

    /// The type of a word, case counting; `ePropNone` for any other text. Deliberate: "long" is read as an integer and never written.
    static EPropType PropertyTypeFromString(CString const & text);
    /// The word of a type; empty for `ePropNone` and numbers outside the enumeration.
    static CString PropertyTypeToString(EPropType type);

private:
    using Children = std::unique_ptr<kr::detail::PropertyChildren>;

    friend class CKrPropertySet; // whose root takes over another's

    // The only ones that touch a parent link, with `DeleteSubProperties`.
    void Attach(std::size_t index, std::unique_ptr<CKrProperty> child);
    std::unique_ptr<CKrProperty> Detach(std::size_t index);
    void TakeChildren(Children children) noexcept;

    Children CloneChildren() const;
    // `IsEqual` and `IsDeepEqual` of nodes that have one name.
    bool HasEqualContent(CKrProperty const & other) const;
    bool HasEqualTree(CKrProperty const & other) const;
    /// `DeepCopy` of a node that is given up for it.
    void TakeOver(CKrProperty && made) noexcept;
    static CKrVariant MakeDefaultValue(EPropType type);
    void SetDateFromText(CString const & text, unsigned long flags);
    void StoreDate(double date);
    bool HoldsDate() const noexcept { return m_value.IsOleDateTime(); }
    bool IsNoDate() const noexcept;

    // First what walks, searches and looks for flags read, so that they touch one line of memory.
    CString m_name;
    Children m_children; ///< null until there are any
    EPropType m_type = ePropNone;
    bool m_needed = false;
    bool m_modified = false;
    CString m_description;
    CKrVariant m_value;
    CKrProperty * m_parent = nullptr;
    mutable CKrAssCtrl m_itemCtrl;
    kr::detail::SeldomPart<CKrAttrList> m_attributes;
};
