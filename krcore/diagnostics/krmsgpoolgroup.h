// One group of a message pool.
#pragma once

#include <krplatform/system/module.h>
#include <krplatform/text/cstring.h>

#include <unordered_map>

namespace kr::detail
{

/// Where the texts of a group come from.
enum EMsgSource : int
{
    eMsgMemory = 0,
    eMsgResource = 1,
    eMsgDatabase = 2
};

/// The texts of a group by id. The text "#NO_MSG_ENTRY#" marks an id whose text must be fetched from the source.
class CKrMsgPoolGroup
{
public:
    CKrMsgPoolGroup(EMsgSource source, bool listedOnly, bool cache, HINSTANCE module);
    virtual ~CKrMsgPoolGroup() = default;

    /// False if the id is there already.
    bool Add(unsigned int id, CString const & text);
    bool Remove(unsigned int id);
    void Clear();
    /// Writes `text` on success only.
    bool Find(unsigned int id, CString & text);
    void LoadAll();

private:
    bool Fetch(unsigned int id, CString & text);

    std::unordered_map<unsigned int, CString> m_messages;
    EMsgSource m_source;
    bool m_bListedOnly;
    bool m_bCache;
    HINSTANCE m_hResource;
};

} // namespace kr::detail
