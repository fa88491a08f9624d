#include <krcore/graphics/krcolorscheme.h>

CKrColorSchemeBase::CKrColorSchemeBase() = default;

CKrColorSchemeBase::CKrColorSchemeBase(CKrColorSchemeBase const & other) = default;

CKrColorSchemeBase & CKrColorSchemeBase::operator=(CKrColorSchemeBase const & other) = default;

CKrColorSchemeBase::~CKrColorSchemeBase() = default;

bool CKrColorSchemeBase::Init() { return true; }

bool CKrColorSchemeBase::Reset() { return true; }

bool CKrColorSchemeBase::Clear() { return true; }

CKrColorSchemeMap::CKrColorSchemeMap() = default;

CKrColorSchemeMap::CKrColorSchemeMap(CKrColorSchemeMap const & other) = default;

CKrColorSchemeMap & CKrColorSchemeMap::operator=(CKrColorSchemeMap const & other) = default;

CKrColorSchemeMap::~CKrColorSchemeMap() = default;

CKrColorSchemeBase * CKrColorSchemeMap::GetColorScheme(CString const & name) const
{
    if (CKrColorSchemeBase * const scheme = GetObjectW(name))
        return scheme;
    return m_inheritedMap ? m_inheritedMap->GetColorScheme(name) : nullptr;
}
