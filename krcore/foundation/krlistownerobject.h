// A base class for objects that own a list of children.
#pragma once

#include <krcore/foundation/krobject.h>
#include <krcore/foundation/krownervector.h>

/// Owns its children, in the order in which they were added. Children may be null.
///
/// Copies, which only derived classes make, hold the clones of the children. Deliberate: the clones come from the
/// virtual `CKrObject::Clone`, so a child whose class does not override it comes out as a plain `CKrObject`.
class KRCORE_API CKrListOwnerObject : public CKrObject
{
public:
    ~CKrListOwnerObject() override;
    CKrClass * IsA() const override;

    /// Takes ownership, also when memory runs out (`std::bad_alloc`): the child is deleted then. Deliberate: a child
    /// that is already held is added once more; the caller takes one of the two out again before the list deletes both.
    void AddChild(CKrObject * child);
    /// Deletes the first child that is this pointer (null finds a null child); the others keep their order. A pointer
    /// that is no child is left alone.
    void DeleteChild(CKrObject * child);
    void DeleteChildren();

    /// Lends the child; null past the end.
    CKrObject * GetChildAt(unsigned int index) const;
    unsigned int GetChildCount() const;
    /// Changes made in the vector itself follow its own rules of ownership.
    kr::ownervector<CKrObject> & GetChildren();
    kr::ownervector<CKrObject> const & GetChildren() const;

    static CKrClass * Cls();
    /// The object if it is of this class by its built-in type, otherwise null.
    static CKrListOwnerObject const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;

protected:
    CKrListOwnerObject();
    CKrListOwnerObject(CKrListOwnerObject const & other);
    /// Deletes the children and takes clones of the other's; has no effect on the object itself. When a clone fails the
    /// children stay as they were.
    CKrListOwnerObject & operator=(CKrListOwnerObject const & other);

private:
    void CopyChildrenFrom(CKrListOwnerObject const & other);

    kr::ownervector<CKrObject> m_children;
};
