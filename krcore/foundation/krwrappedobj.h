// Handles to objects that live elsewhere.
#pragma once

#include <krcore/export.h>
#include <krplatform/automation/com_ptr.h>
#include <krplatform/text/cstring.h>

#include <vector>

/// Refers to an object by an automation pointer, a raw pointer, a number or a name.
///
///     CKrWrappedObj::ObjId(3).GetObjId()                                      -> 3
///     CKrWrappedObj::ObjName(OLESTR("a")) < CKrWrappedObj::ObjName(OLESTR("b"))  -> true
///
/// Deliberate: both comparisons go by the type of the left side alone, and compare that field with the other's, which
/// holds its default in a handle of another type. So an empty handle equals every handle on its right.
class KRCORE_API CKrWrappedObj
{
public:
    enum EObjType : int
    {
        eObjEmpty = 0,
        eObjDisp = 1,
        eObjPtr = 2,
        eObjId = 3,
        eObjName = 4
    };

    CKrWrappedObj();
    /// Holds one more reference; null is a handle of that type too.
    static CKrWrappedObj ObjDisp(IDispatchPtr object);
    /// Not owned.
    static CKrWrappedObj ObjPtr(void * pointer);
    static CKrWrappedObj ObjId(int id);
    static CKrWrappedObj ObjName(CString const & name);
    CKrWrappedObj(CKrWrappedObj const & other);
    CKrWrappedObj & operator=(CKrWrappedObj const & other);
    virtual ~CKrWrappedObj();

    EObjType GetType() const noexcept { return m_type; }
    bool IsEmpty() const noexcept { return m_type == eObjEmpty; }
    // The fields, whatever the type; null, null, -1 and empty where it is another.
    IDispatchPtr const & GetObjDisp() const noexcept { return m_object; }
    void * GetObjPtr() const noexcept { return m_pointer; }
    int GetObjId() const noexcept { return m_id; }
    CString GetObjName() const { return m_name; }

    /// Pointers, numbers and names (with case) as they are.
    bool operator==(CKrWrappedObj const & other) const;
    /// Automation objects by identity: by the address of their `IUnknown`, so that two pointers to one object are
    /// neither less nor greater. A failing `QueryInterface` throws `_com_error`.
    bool operator<(CKrWrappedObj const & other) const;

protected:
    explicit CKrWrappedObj(IDispatchPtr const & object);
    explicit CKrWrappedObj(void * pointer);
    explicit CKrWrappedObj(int id);
    explicit CKrWrappedObj(CString const & name);

private:
    EObjType m_type = eObjEmpty;
    IDispatchPtr m_object;
    void * m_pointer = nullptr;
    int m_id = -1;
    CString m_name;
};

/// A list of handles.
class KRCORE_API CKrWrappedObjList : public std::vector<CKrWrappedObj>
{
public:
    CKrWrappedObjList();
    CKrWrappedObjList(CKrWrappedObjList const & other);
    CKrWrappedObjList & operator=(CKrWrappedObjList const & other);
    virtual ~CKrWrappedObjList();

    /// Drops all handles; the storage stays.
    void DeleteAll() noexcept { clear(); }
};
