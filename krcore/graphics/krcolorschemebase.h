// The base of named sets of colours.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

/// The base that clients derive their colour schemes from: a name and a description, both empty at first. What a scheme
/// holds, and what its three operations do, is the client's affair; here they do nothing and are true.
class KRCORE_API CKrColorSchemeBase
{
public:
    CKrColorSchemeBase();
    CKrColorSchemeBase(CKrColorSchemeBase const & other);
    CKrColorSchemeBase & operator=(CKrColorSchemeBase const & other);
    virtual ~CKrColorSchemeBase();

    virtual bool Init();
    virtual bool Reset();
    virtual bool Clear();

    CString const & GetName() const noexcept { return m_name; }
    void SetName(CString const & name) { m_name = name; }
    CString const & GetDescription() const noexcept { return m_description; }
    void SetDescription(CString const & description) { m_description = description; }

private:
    CString m_name;
    CString m_description;
};
