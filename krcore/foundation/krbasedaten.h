// The base of records with a key.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

/// A record that has a key and a description and may be active. Clients derive from it; the library calls neither
/// `GetObjType` nor `SetObjKey`.
class KRCORE_API CKrBaseDaten
{
public:
    /// Active.
    CKrBaseDaten() noexcept;
    CKrBaseDaten(CKrBaseDaten const & other) noexcept;
    CKrBaseDaten & operator=(CKrBaseDaten const & other) noexcept;
    virtual ~CKrBaseDaten();

    virtual CString GetObjKey() const = 0;
    virtual CString GetObjType() const = 0;
    /// Whether the key is not empty.
    virtual bool HasValidKey() const;
    virtual void SetObjKey(CString const & key) = 0;
    /// Empty here.
    virtual CString GetObjDesc() const;

    bool IsActive() const noexcept { return m_active; }
    void SetActive(bool active) noexcept { m_active = active; }

private:
    bool m_active;
};
