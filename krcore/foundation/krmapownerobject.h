// A base class for objects that own children by name.
#pragma once

#include <krcore/foundation/krobject.h>
#include <krcore/foundation/krownermap.h>

/// Owns its children by name; their order is that of `CString::Compare`. Children may be null.
///
/// Copies, which only derived classes make, hold the clones of the children. Deliberate: the clones come from the
/// virtual `CKrObject::Clone`, so a child whose class does not override it comes out as a plain `CKrObject`.
class KRCORE_API CKrMapOwnerObject : public CKrObject
{
public:
    ~CKrMapOwnerObject() override;
    CKrClass * IsA() const override;

    /// Takes ownership by the rules of `kr::ownermap::AddObject`: the child that the name already holds is deleted.
    void AddChild(CString const & name, CKrObject * child);
    /// Erases the entry and deletes its child; a missing name is no error.
    void DeleteChild(CString const & name);
    void DeleteChildren();

    /// Lends the child; null if the name is missing or holds null.
    CKrObject * GetChild(CString const & name) const;
    /// Lends the child at that place in the order of the names; null past the end.
    CKrObject * GetChildAt(unsigned int index) const;
    unsigned int GetChildCount() const;
    kr::ownermap<CString, CKrObject> & GetChildren();
    kr::ownermap<CString, CKrObject> const & GetChildren() const;

    static CKrClass * Cls();
    /// The object if it is of this class by its built-in type, otherwise null.
    static CKrMapOwnerObject const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;

protected:
    CKrMapOwnerObject();
    CKrMapOwnerObject(CKrMapOwnerObject const & other);
    /// Deletes the children and takes clones of the other's; has no effect on the object itself. When a clone fails the
    /// children stay as they were.
    CKrMapOwnerObject & operator=(CKrMapOwnerObject const & other);

private:
    void CopyChildrenFrom(CKrMapOwnerObject const & other);

    kr::ownermap<CString, CKrObject> m_children;
};
