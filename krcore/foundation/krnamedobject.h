// A small base with an identifier and a name.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

/// Identifier and name. Not one of the classes with a descriptor.
///
///     CKrNamedObject().GetID()                 -> -1
///     CKrNamedObject(7, true).GetName()        -> "7"
///     CKrNamedObject(7, false).GetName()       -> ""
class KRCORE_API CKrNamedObject
{
public:
    /// Identifier -1, empty name.
    CKrNamedObject();
    /// With `makeName` the name is the identifier's text, otherwise empty.
    CKrNamedObject(long id, bool makeName);
    CKrNamedObject(CKrNamedObject const & other);
    virtual ~CKrNamedObject();
    CKrNamedObject & operator=(CKrNamedObject const & other);

    long GetID() const;
    /// The name stays as it is, also one that was made of the identifier.
    void SetID(long id);
    CString const & GetName() const;
    void SetName(CString const & name);

    /// The identifier in decimal. The identifier is stored whole; its text shows the low 32 bits as a signed number.
    CString IDToString() const;

private:
    long m_nID;
    CString m_strName;
};
