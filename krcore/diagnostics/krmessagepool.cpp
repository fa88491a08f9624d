#include <krcore/diagnostics/krmessagepool.h>

#include <krcore/diagnostics/krmsgpoolgroup.h>
#include <krplatform/system/resource.h>

#include <memory>

using namespace kr::detail; // the group and its sources

namespace
{

constexpr WCHAR defaultGroup[] = OLESTR("#DEFAULT_GROUP#");

constexpr int resourceSize = 1024;

} // namespace

CKrMessagePool::CKrMessagePool() = default;

CKrMessagePool::CKrMessagePool(CKrMessagePool const & other) = default;

CKrMessagePool & CKrMessagePool::operator=(CKrMessagePool const & other)
{
    auto groups = other.m_groups; // all that can fail comes before the first change
    auto ranges = other.m_ranges;
    auto mappings = other.m_mappings;
    m_groups.swap(groups);
    m_ranges.swap(ranges);
    m_mappings.swap(mappings);
    m_segments.clear();
    return *this;
}

CKrMessagePool::~CKrMessagePool()
{
    for (auto const & [name, group] : m_groups)
        delete group;
}

CString CKrMessagePool::ConvertGroupName(CString const & name) { return name.IsEmpty() ? CString(defaultGroup) : name; }

CKrMsgPoolGroup * CKrMessagePool::GetPoolGroup(CString const & name) const
{
    auto const place = m_groups.find(ConvertGroupName(name));
    return place == m_groups.end() ? nullptr : place->second;
}

bool CKrMessagePool::HasGroup(CString const & name) const { return GetPoolGroup(name) != nullptr; }

bool CKrMessagePool::ClearGroup(CString const & name)
{
    Group * const group = GetPoolGroup(name);
    if (!group)
        return false;
    group->Clear();
    return true;
}

bool CKrMessagePool::AddGroup(CString const & name, std::unique_ptr<Group> group)
{
    if (!m_groups.try_emplace(ConvertGroupName(name), group.get()).second)
        return false;
    group.release();
    return true;
}

bool CKrMessagePool::AddMessageGroup(CString const & name)
{
    return AddGroup(name, std::make_unique<Group>(eMsgMemory, true, false, nullptr));
}

bool CKrMessagePool::AddMessageGroup(CString const & name, HINSTANCE module, bool listedOnly, bool cache)
{
    return AddGroup(name, std::make_unique<Group>(eMsgResource, listedOnly, cache, module));
}

bool CKrMessagePool::AddMessageGroup(CString const & name, CString const &, CString const &, bool listedOnly,
                                     bool cache)
{
    return AddGroup(name, std::make_unique<Group>(eMsgDatabase, listedOnly, cache, nullptr));
}

bool CKrMessagePool::AddMessage(unsigned int id, CString const & text, CString const & group)
{
    Group * const found = GetPoolGroup(group);
    return found && found->Add(id, text);
}

bool CKrMessagePool::RemoveMessage(unsigned int id, CString const & group)
{
    Group * const found = GetPoolGroup(group);
    return found && found->Remove(id);
}

bool CKrMessagePool::RemoveMessageGroup(CString const & group)
{
    CString const name = ConvertGroupName(group);
    auto const place = m_groups.find(name);
    if (place == m_groups.end())
        return false;
    delete place->second;
    m_groups.erase(place);
    m_ranges.erase(name);
    m_segments.clear();
    return true;
}

bool CKrMessagePool::LoadAllMessages(CString const & group)
{
    Group * const found = GetPoolGroup(group);
    if (!found)
        return false;
    found->LoadAll();
    return true;
}

bool CKrMessagePool::MapID(unsigned int id, unsigned int targetId, CString const & group)
{
    m_mappings.insert_or_assign(id, Mapping{ConvertGroupName(group), targetId});
    return true;
}

bool CKrMessagePool::SetIDRange(unsigned int first, unsigned int last, CString const & group)
{
    if (!HasGroup(group))
        return false;
    m_ranges.insert_or_assign(ConvertGroupName(group), Range{first, last});
    m_segments.clear();
    return true;
}

bool CKrMessagePool::GetMessageW(unsigned int id, CString & text) const
{
    if (auto const mapping = m_mappings.find(id); mapping != m_mappings.end())
        return GetMessageW(mapping->second.id, mapping->second.group, text);
    if (Group * const group = GetRangeGroup(id))
        return group->Find(id, text);
    if (GetMessageW(id, defaultGroup, text))
        return true;
    // Deliberate: the default group is asked a second time, in its place among all groups.
    for (auto const & [name, group] : m_groups)
    {
        if (group->Find(id, text))
            return true;
    }
    return false;
}

bool CKrMessagePool::GetMessageW(unsigned int id, CString const & group, CString & text) const
{
    Group * const found = GetPoolGroup(group);
    return found && found->Find(id, text);
}

bool CKrMessagePool::LoadResourceString(unsigned int id, HINSTANCE module, CString & text)
{
    if (!module)
        return text.LoadString(id);
    WCHAR buffer[resourceSize];
    int const length = LoadStringW(module, id, buffer, resourceSize);
    if (length < 1)
        return false;
    text = CString(buffer, length);
    return true;
}
