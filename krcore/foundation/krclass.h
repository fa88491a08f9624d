// The descriptor of a class: name, version and base link.
#pragma once

#include <krcore/foundation/krobject.h>

/// Describes a class. There is one descriptor per class that takes part, made when the library is loaded, before any
/// static object of a client, and never changed afterwards.
///
///     CKrClass::Cls()->ClsName()                          -> "CKrClass"
///     CKrClass::Cls()->IsA() == CKrClass::Cls()           -> true
///     CKrClass::Cls()->GetBaseCls()                       -> null
///
/// Deliberate: the base link of every descriptor of the library is null, also where the class has a base, because the
/// descriptor of `CKrObject` is made last. So `IsDerivedFrom` holds between them only for the same descriptor.
/// Questions that must see through derivation are answered by the `Cast` of the derived classes.
class KRCORE_API CKrClass : public CKrObject
{
public:
    /// `base` may be null, is not owned and must outlive the descriptor.
    CKrClass(CString const & name, unsigned int version, CKrClass * base);
    CKrClass(CKrClass const & other);
    ~CKrClass() override;
    CKrClass & operator=(CKrClass const & other);

    /// The descriptor of `CKrClass` itself.
    CKrClass * IsA() const override;
    /// The name of the class that is described.
    CString const & ClsName() const override;
    virtual unsigned int ClsVersion() const;
    /// Whether `cls` is this descriptor or one on the way along the base links; false for null. May be called on a null
    /// pointer by its qualified name, `pointer->CKrClass::IsDerivedFrom(cls)`, and is false then.
    virtual bool IsDerivedFrom(CKrClass const * cls) const;

    CKrClass * GetBaseCls() const;

    static CKrClass * Cls();
    /// The object if it is a descriptor by its built-in type, otherwise null.
    static CKrClass const * Cast(CKrObject const * object);

    static std::unique_ptr<CKrClass> s_pCls;

private:
    CString m_strName;
    unsigned int m_nVersion;
    CKrClass * m_pBaseCls;
};
