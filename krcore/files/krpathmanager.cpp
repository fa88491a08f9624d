#include <krcore/files/krpathmanager.h>

CKrPathmanager::CKrPathmanager() = default;

CKrPathmanager::CKrPathmanager(CKrFileName const & root) : m_root(root) {}

CKrPathmanager::CKrPathmanager(CKrPathmanager const & other) = default;

CKrPathmanager & CKrPathmanager::operator=(CKrPathmanager const & other)
{
    std::map<CString, kr::detail::NamedFile> copy(other.m_paths);
    m_paths.swap(copy);
    m_root = other.m_root;
    return *this;
}

CKrPathmanager::~CKrPathmanager() = default;

CKrPathmanager * CKrPathmanager::Clone() const { return new CKrPathmanager(*this); }

CKrFileName CKrPathmanager::GetPath(CString const & key) const
{
    auto const place = m_paths.find(key);
    return place == m_paths.end() ? CKrFileName() : place->second.fileName;
}

void CKrPathmanager::SetPath(CString const & key, CKrFileName const & path, bool user)
{
    m_paths.insert_or_assign(key, kr::detail::NamedFile{path, user});
}

void CKrPathmanager::SetUserPath(CString const & key, CKrFileName const & path)
{
    auto const place = m_paths.find(key);
    if (place == m_paths.end() || place->second.user)
        SetPath(key, path, true);
}
