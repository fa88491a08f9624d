// Named, described, typed values, and lists of them.
#pragma once

#include <krcore/export.h>
#include <krcore/values/krvariant.h>
#include <krplatform/base/cobject.h>

#include <map>

/// One attribute: a name, a description and a value.
class KRCORE_API CKrAttrData : public CObject
{
public:
    CKrAttrData();
    /// Mind the order: name, value, description.
    CKrAttrData(CString const & name, CKrVariant const & value, CString const & description);
    CKrAttrData(CKrAttrData const & other);
    CKrAttrData & operator=(CKrAttrData const & other);
    ~CKrAttrData() override;

    /// Equal names and equal values by the platform's comparison. Deliberate: descriptions do not count.
    bool operator==(CKrAttrData const & other) const;

    CString GetName() const { return m_name; }
    CString GetDescription() const { return m_description; }
    CKrVariant GetValue() const { return m_value; }
    void SetValue(CKrVariant const & value) { m_value = value; }
    /// The platform's text of the value under the user's locale; a value without text raises the platform's failure
    /// (`COleException *`).
    CString GetValueAsString() const;

private:
    friend class CKrAttrList;

    CString m_name;
    CString m_description;
    CKrVariant m_value;
};

/// A bag of attributes by name, in the order of their names by code units; case counts. Reading takes a default for
/// what is missing; the `...Add` forms write that default, with a description, when it is first asked for.
///
///     CKrAttrList list;
///     list.GetLong(OLESTR("x"), 5)                          -> 5, and the list stays empty
///     list.GetLongAdd(OLESTR("x"), 5, OLESTR("width"))      -> 5, and the list has an entry
///     list.GetLongAdd(OLESTR("x"), 9, OLESTR("other"))      -> 5, the entry stays as it is
///     list.GetValue(OLESTR("y"))                            throws "Attribute y nicht enthalten"
///
/// Failures of the list are `CKrException` of level normal, without a location; it then stays as it was. A value that
/// cannot be read as the wanted type raises the platform's failure: the default does not stand in for it. When memory
/// runs out (`std::bad_alloc`, `CMemoryException *`) the list stays as it was too; `AppendAttrList` keeps what it has
/// appended by then.
class KRCORE_API CKrAttrList : public CObject
{
public:
    CKrAttrList();
    CKrAttrList(CKrAttrList const & other);
    CKrAttrList & operator=(CKrAttrList const & other);
    ~CKrAttrList() override;

    CRuntimeClass * GetRuntimeClass() const override;
    static CRuntimeClass * GetThisClass();
    static CRuntimeClass classCKrAttrList;

    int size() const noexcept { return static_cast<int>(m_attributes.size()); }
    void clear() noexcept { m_attributes.clear(); }
    bool Includes(CString const & key) const;
    /// Whether the argument's name exists; value and description do not count.
    bool Includes(CKrAttrData const & attribute) const;

    /// The entry at that place in the order of keys, valid until it is removed. Throws "Attributindex ueberschreitet
    /// Map-size!" at or past the end. Deliberate: a negative index gives the first entry, and throws in an empty list.
    CKrAttrData const & At(int index) const;
    /// The entry of that key, valid until it is removed. This and the next three throw where it is missing.
    CKrAttrData const & GetAttr(CString const & key) const;
    CString GetDescription(CString const & key) const;
    CKrVariant GetValue(CString const & key) const;
    /// Replaces the value of an existing entry; the description stays.
    void SetValue(CString const & key, CKrVariant const & value);

    /// Inserts or overwrites under the argument's name.
    void AddAttr(CKrAttrData const & attribute);
    /// Inserts or overwrites under the key. Deliberate: the name inside stays the argument's, also where it differs.
    void SetAttr(CString const & key, CKrAttrData const & attribute);
    /// `AddAttr` of each entry, in the order of keys.
    void AppendAttrList(CKrAttrList const & other);
    /// Removes the entry, if any.
    void ClearKey(CString const & key);

    // Insert or overwrite an entry; the forms without a description leave it empty.
    void SetBool(CString const & key, bool value, CString const & description);
    void SetDouble(CString const & key, double value, CString const & description);
    void SetLong(CString const & key, long value, CString const & description);
    void SetPtr(CString const & key, void * value, CString const & description);
    void SetString(CString const & key, CString const & value, CString const & description);
    void AddBool(CString const & key, bool value);
    void AddDouble(CString const & key, double value);
    void AddLong(CString const & key, long value);
    void AddPtr(CString const & key, void * value);
    void AddString(CString const & key, CString const & value);

    // Read by the platform's conversion under the user's locale; a bool read as text is "-1" or "0".
    bool GetBool(CString const & key, bool defaultValue) const;
    double GetDouble(CString const & key, double defaultValue) const;
    long GetLong(CString const & key, long defaultValue) const;
    CString GetString(CString const & key, CString const & defaultValue) const;
    /// Deliberate: the platform converts nothing to a plain pointer, so an entry that exists raises its failure; read
    /// it by `GetValue` and the conversion to `void *`.
    void * GetPtr(CString const & key, void * defaultValue) const;

    // Write the default and the description where the key is missing, then read.
    bool GetBoolAdd(CString const & key, bool defaultValue, CString const & description);
    double GetDoubleAdd(CString const & key, double defaultValue, CString const & description);
    long GetLongAdd(CString const & key, long defaultValue, CString const & description);
    CString GetStringAdd(CString const & key, CString const & defaultValue, CString const & description);
    /// Deliberate: always raises the platform's failure, as `GetPtr` of the entry does.
    void * GetPtrAdd(CString const & key, void * defaultValue, CString const & description);

private:
    CKrAttrData const * Find(CString const & key) const;

    std::map<CString, CKrAttrData> m_attributes;
};
