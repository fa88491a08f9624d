#include <krcore/diagnostics/krmsgpoolgroup.h>

#include <krcore/diagnostics/krmessagepool.h>
#include <krplatform/system/messagebox.h>

namespace kr::detail
{

namespace
{

constexpr TextView noEntry = OLESTR("#NO_MSG_ENTRY#");

} // namespace

CKrMsgPoolGroup::CKrMsgPoolGroup(EMsgSource source, bool listedOnly, bool cache, HINSTANCE module)
    : m_source(source), m_bListedOnly(listedOnly), m_bCache(cache), m_hResource(module)
{
}

bool CKrMsgPoolGroup::Add(unsigned int id, CString const & text)
{
    return m_messages.try_emplace(id, m_source == eMsgMemory ? text : CString(noEntry.data())).second;
}

bool CKrMsgPoolGroup::Remove(unsigned int id) { return m_messages.erase(id) > 0; }

void CKrMsgPoolGroup::Clear() { m_messages.clear(); }

bool CKrMsgPoolGroup::Find(unsigned int id, CString & text)
{
    auto const place = m_messages.find(id);
    if (place != m_messages.end() && place->second.View() != noEntry)
    {
        text = place->second;
        return true;
    }
    if (place == m_messages.end() && m_bListedOnly)
        return false;
    return Fetch(id, text);
}

bool CKrMsgPoolGroup::Fetch(unsigned int id, CString & text)
{
    switch (m_source)
    {
    case eMsgResource:
    {
        CString fetched;
        if (!CKrMessagePool::LoadResourceString(id, m_hResource, fetched))
            return false;
        if (m_bCache)
            m_messages[id] = fetched; // all that can fail comes before the output is written
        text = fetched;
        return true;
    }
    case eMsgDatabase:
        AfxMessageBox(OLESTR("Database-Messages not impl."), 0, 0);
        return false;
    default:
        return false;
    }
}

void CKrMsgPoolGroup::LoadAll()
{
    if (!m_bCache || !m_bListedOnly || m_source != eMsgResource)
        return;
    for (auto const & [id, text] : m_messages)
    {
        CString fetched;
        Find(id, fetched);
    }
}

} // namespace kr::detail
