// Colour schemes by name.
#pragma once

#include <krcore/export.h>
#include <krcore/foundation/krownermap.h>
#include <krcore/graphics/krcolorschemebase.h>
#include <krplatform/text/cstring.h>

extern template class KRCORE_API kr::ownermap<CString, CKrColorSchemeBase>;

/// Schemes by name, which the map owns; one name is the current one. What has no scheme here is looked up in the
/// inherited map, then in the one that it inherits, and so on. Case counts.
///
///     CKrColorSchemeMap map;
///     map.AddObject(OLESTR("Dark"), new DarkScheme);
///     map.SetInheritedSchemeMap(&shared);
///     map.SetCurrentScheme(OLESTR("Light"));
///     map.GetCurrentColorScheme()                      the scheme "Light" of `shared`, or null
///
/// Deliberate: a copy holds the same schemes, each map as their owner, so one of the two gives them up by
/// `GetMap().clear()` before its end. An assignment drops the schemes that the target held without deleting them.
/// Circles of inherited maps never answer.
class KRCORE_API CKrColorSchemeMap : public kr::ownermap<CString, CKrColorSchemeBase>
{
public:
    CKrColorSchemeMap();
    /// Entries, both names and the inherited map.
    CKrColorSchemeMap(CKrColorSchemeMap const & other);
    CKrColorSchemeMap & operator=(CKrColorSchemeMap const & other);
    virtual ~CKrColorSchemeMap();

    /// The scheme, lent, or null. A name that holds null counts as missing.
    CKrColorSchemeBase * GetColorScheme(CString const & name) const;
    /// That of this map's current name, wherever it is found.
    CKrColorSchemeBase * GetCurrentColorScheme() const { return GetColorScheme(m_currentScheme); }
    CString const & GetCurrentScheme() const noexcept { return m_currentScheme; }
    /// The name need not be known.
    void SetCurrentScheme(CString const & name) { m_currentScheme = name; }
    /// Remembers the current name; there is one place, which is empty at first.
    void BackupCurrentScheme() { m_backupScheme = m_currentScheme; }
    void RestoreBackupScheme() { m_currentScheme = m_backupScheme; }
    /// Not owned; null ends the inheritance.
    void SetInheritedSchemeMap(CKrColorSchemeMap * map) noexcept { m_inheritedMap = map; }

private:
    CString m_currentScheme;
    CString m_backupScheme;
    CKrColorSchemeMap * m_inheritedMap = nullptr;
};
