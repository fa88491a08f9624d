// Named sets of colours.
#pragma once

#include <krcore/export.h>
#include <krcore/foundation/krownermap.h>
#include <krplatform/text/cstring.h>

/// The base that clients derive their colour schemes from: a name and a description. The three operations do nothing and are true here.
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

/// Schemes by name, which the map owns; one of the names is current. A name without a scheme here is looked up in the inherited map, and so on
/// from near to far. Case counts.
///
///     CKrColorSchemeMap map;
///     map.AddObject(OLESTR("Dark"), new MyScheme);
///     map.SetInheritedSchemeMap(&shared);
///     map.SetCurrentScheme(OLESTR("Light"));
///     map.GetCurrentColorScheme()                  -> the scheme "Light" of `shared`, if it has one
///
/// Deliberate: a copy holds the same schemes and would delete them too, so it gives them up by `GetMap().clear()` before its end, and an
/// assignment drops the target's schemes without deleting them. A circle of inherited maps never answers.
class KRCORE_API CKrColorSchemeMap : public kr::ownermap<CString, CKrColorSchemeBase>
{
public:
    CKrColorSchemeMap();
    CKrColorSchemeMap(CKrColorSchemeMap const & other);
    CKrColorSchemeMap & operator=(CKrColorSchemeMap const & other);
    virtual ~CKrColorSchemeMap();

    /// The scheme or null; an entry of null counts as absent.
    CKrColorSchemeBase * GetColorScheme(CString const & name) const;
    CKrColorSchemeBase * GetCurrentColorScheme() const { return GetColorScheme(m_currentScheme); }
    CString const & GetCurrentScheme() const noexcept { return m_currentScheme; }
    /// The name need not be known.
    void SetCurrentScheme(CString const & name) { m_currentScheme = name; }
    /// Remembers the current name, and goes back to it; there is one place.
    void BackupCurrentScheme() { m_backupScheme = m_currentScheme; }
    void RestoreBackupScheme() { m_currentScheme = m_backupScheme; }
    /// Not owned; null ends the inheritance.
    void SetInheritedSchemeMap(CKrColorSchemeMap * map) noexcept { m_inheritedMap = map; }

private:
    CString m_currentScheme;
    CString m_backupScheme;
    CKrColorSchemeMap * m_inheritedMap = nullptr;
};
