#include <krcore/graphics/krcolorschememap.h>

template class kr::ownermap<CString, CKrColorSchemeBase>;

CKrColorSchemeMap::CKrColorSchemeMap() = default;

CKrColorSchemeMap::CKrColorSchemeMap(CKrColorSchemeMap const & other) = default;

CKrColorSchemeMap & CKrColorSchemeMap::operator=(CKrColorSchemeMap const & other) = default;

CKrColorSchemeMap::~CKrColorSchemeMap() = default;

CKrColorSchemeBase * CKrColorSchemeMap::GetColorScheme(CString const & name) const
{
    for (CKrColorSchemeMap const * map = this; map; map = map->m_inheritedMap)
    {
        if (CKrColorSchemeBase * const scheme = map->GetObjectW(name))
            return scheme;
    }
    return nullptr;
}
