#include <krcore/files/krfilenamemanager.h>

#include <iterator>
#include <utility>

using kr::detail::NamedFile;

namespace
{

/// Moves `added` behind `values`, which has the room.
template <class Value>
void MoveBehind(std::vector<Value> & values, std::vector<Value> & added)
{
    values.insert(values.end(), std::move_iterator(added.begin()), std::move_iterator(added.end()));
}

} // namespace

CKrFileNameManager::CKrFileNameManager() : m_pathmanager(std::make_unique<CKrPathmanager>()) {}

CKrFileNameManager::CKrFileNameManager(CKrFileName const & root) : m_pathmanager(std::make_unique<CKrPathmanager>(root))
{
}

CKrFileNameManager::CKrFileNameManager(CKrPathmanager * manager) : m_pathmanager(manager) {}

CKrFileNameManager::CKrFileNameManager(CKrFileNameManager const & other)
    : m_pathmanager(other.m_pathmanager ? other.m_pathmanager->Clone() : nullptr), m_groups(other.m_groups)
{
}

CKrFileNameManager::~CKrFileNameManager() = default;

void CKrFileNameManager::SetPathmanager(CKrPathmanager * manager)
{
    if (manager != m_pathmanager.get())
        m_pathmanager.reset(manager);
}

CString CKrFileNameManager::ConvertGroupName(CString const & group)
{
    return group.IsEmpty() ? CString(OLESTR("#NO_GROUP#")) : group;
}

NamedFile const * CKrFileNameManager::Find(CString const & key, CString const & group) const
{
    auto const place = m_groups.find(ConvertGroupName(group));
    if (place == m_groups.end())
        return nullptr;
    auto const entry = place->second.find(key);
    return entry == place->second.end() ? nullptr : &entry->second;
}

void CKrFileNameManager::Store(CString const & key, CKrFileName const & file, bool user, CString const & group)
{
    CString const name = ConvertGroupName(group);
    auto const place = m_groups.find(name);
    if (place != m_groups.end())
        place->second.insert_or_assign(key, NamedFile{file, user});
    else
        m_groups.emplace(name, Group{{key, NamedFile{file, user}}}); // never without an entry
}

bool CKrFileNameManager::HasFileName(CString const & key, CString const & group) const
{
    return Find(key, group) != nullptr;
}

bool CKrFileNameManager::AddFileName(CString const & key, CKrFileName const & file, bool user, CString const & group)
{
    if (HasFileName(key, group))
        return false;
    Store(key, file, user, group);
    return true;
}

void CKrFileNameManager::SetFileName(CString const & key, CKrFileName const & file, bool user, CString const & group)
{
    if (user || !HasFileName(key, group))
        Store(key, file, user, group);
}

void CKrFileNameManager::SetUserFileName(CString const & key, CKrFileName const & file, CString const & group)
{
    NamedFile const * const entry = Find(key, group);
    if (!entry || entry->user)
        Store(key, file, true, group);
}

CKrFileName CKrFileNameManager::GetFileName(CString const & key, CString const & group) const
{
    NamedFile const * const entry = Find(key, group);
    return entry ? entry->fileName : CKrFileName();
}

CKrFileName CKrFileNameManager::GetFullFileName(CString const & key, CString const & group) const
{
    CKrFileName file = GetFileName(key, group);
    if (!file.HasRelativePath())
        return file;
    CKrFileName const directory = m_pathmanager->GetPath(group);
    CString const path = directory.GetPath(true);
    if (directory.IsDirName() && !path.IsEmpty())
        file.InsertPath(path);
    return file;
}

bool CKrFileNameManager::RemoveFileName(CString const & key, CString const & group)
{
    NamedFile const * const entry = Find(key, group);
    if (!entry || !entry->user)
        return false;
    auto const place = m_groups.find(ConvertGroupName(group));
    place->second.erase(key);
    if (place->second.empty())
        m_groups.erase(place);
    return true;
}

bool CKrFileNameManager::RemoveFileNameGroup(CString const & group)
{
    return m_groups.erase(ConvertGroupName(group)) > 0;
}

bool CKrFileNameManager::RenameFileNameGroup(CString const & oldName, CString const & newName)
{
    CString const oldGroup = ConvertGroupName(oldName);
    CString const newGroup = ConvertGroupName(newName);
    if (oldGroup == newGroup)
        return true;
    auto const place = m_groups.find(oldGroup);
    if (m_groups.contains(newGroup) || place == m_groups.end())
        return false;
    auto node = m_groups.extract(place);
    node.key() = newGroup;
    m_groups.insert(std::move(node));
    return true;
}

bool CKrFileNameManager::Clear()
{
    m_groups.clear();
    return true;
}

bool CKrFileNameManager::GetContent(std::vector<CString> & groups, std::vector<CString> & keys,
                                    std::vector<CKrFileName> & files) const
{
    // gathered apart, so that a failure leaves the vectors as they are
    std::vector<CString> newGroups, newKeys;
    std::vector<CKrFileName> newFiles;
    for (auto const & [group, entries] : m_groups)
    {
        for (auto const & [key, entry] : entries)
        {
            newGroups.push_back(group);
            newKeys.push_back(key);
            newFiles.push_back(GetFullFileName(key, group));
        }
    }
    groups.reserve(groups.size() + newGroups.size());
    keys.reserve(keys.size() + newKeys.size());
    files.reserve(files.size() + newFiles.size());
    MoveBehind(groups, newGroups);
    MoveBehind(keys, newKeys);
    MoveBehind(files, newFiles);
    return true;
}

bool CKrFileNameManager::GetAllFileNames(std::vector<CKrFileName> & files) const
{
    std::vector<CString> groups;
    std::vector<CString> keys;
    return GetContent(groups, keys, files);
}

void CKrFileNameManager::CopyFileNames(CKrFileNameManager const & other)
{
    std::map<CString, Group> copy(other.m_groups);
    m_groups.swap(copy);
}
