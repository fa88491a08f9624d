// Texts by message id.
#pragma once

#include <krcore/export.h>
#include <krplatform/system/module.h>
#include <krplatform/text/cstring.h>

#include <map>
#include <memory>
#include <vector>

namespace kr::detail
{
class CKrMsgPoolGroup;
}

/// Turns message ids into texts. A pool has named groups; a group holds its texts itself or draws them from the string resources of
/// a module. A range says which group serves an id, a mapping puts another id of some group in its place. An empty group name
/// stands for "#DEFAULT_GROUP#", which nobody adds by himself; case counts.
///
///     CKrMessagePool pool;
///     pool.AddMessageGroup(OLESTR("layers"));
///     pool.AddMessage(1500, OLESTR("No such layer"), OLESTR("layers"));
///     pool.SetIDRange(1000, 1999, OLESTR("layers"));
///     CString text;
///     pool.GetMessageW(1500, text)                         -> true
///
/// Failures answer false and leave everything as it was. Even a lookup may store a fetched text, so one pool belongs to one thread
/// at a time.
class KRCORE_API CKrMessagePool
{
public:
    CKrMessagePool();
    /// Deliberate: a copy shares the groups of its source, and each of the two would free them, so only one may be destroyed.
    CKrMessagePool(CKrMessagePool const & other);
    /// Deliberate: the same; groups that it had are let go, not freed.
    CKrMessagePool & operator=(CKrMessagePool const & other);
    virtual ~CKrMessagePool();

    /// A group that holds its texts itself. This and the next two answer false for a name that is taken.
    bool AddMessageGroup(CString const & name);
    /// A group of the string resources of `module` (null: the current resource module). With `listedOnly` it serves only ids that were
    /// added; with `cache` it keeps what it fetched.
    bool AddMessageGroup(CString const & name, HINSTANCE module, bool listedOnly, bool cache);
    /// A database group, which serves no text: each lookup that reaches it shows "Database-Messages not impl.". The two strings are
    /// not kept.
    bool AddMessageGroup(CString const & name, CString const & database, CString const & table, bool listedOnly,
                         bool cache);
    /// Adds an id; false if the group is missing or has it already. The text counts in groups that hold their own.
    bool AddMessage(unsigned int id, CString const & text, CString const & group);
    bool RemoveMessage(unsigned int id, CString const & group);
    /// Removes the group and its range; mappings to it stay.
    bool RemoveMessageGroup(CString const & group);
    /// Fetches the texts of all ids added to a group of resources that keeps what it fetches and serves only those; nothing to do for
    /// any other. False only for a missing group.
    bool LoadAllMessages(CString const & group);

    /// Puts `targetId` of `group`, which need not exist, in the place of `id`; always true.
    bool MapID(unsigned int id, unsigned int targetId, CString const & group);
    /// The ids that the group serves, both ends included; replaces an earlier range. False for a missing group.
    bool SetIDRange(unsigned int first, unsigned int last, CString const & group);

    /// The text of an id, from the first of these that applies: its mapping, the first range around it in the order of names, the
    /// default group, all groups in the order of names. Mapping and range decide even where they have no text. `text` is
    /// written on success only.
    bool GetMessageW(unsigned int id, CString & text) const;
    /// The text of an id in one group.
    bool GetMessageW(unsigned int id, CString const & group, CString & text) const;

    /// The string resource of a module (cut to 1,023 characters), or of the current resource module for null.
    static bool LoadResourceString(unsigned int id, HINSTANCE module, CString & text);

    // Deliberate: places for reports that do nothing.
    int ErrorReport() const { return 0; }
    int WarningReport() const { return 0; }
    int InformationReport() const { return 0; }

private:
    using Group = kr::detail::CKrMsgPoolGroup;

    struct Range
    {
        unsigned int first;
        unsigned int last;
    };

    /// From its first id to the next segment's, one group serves all ids, or none does.
    struct Segment
    {
        unsigned int first;
        Group * group;
    };

    struct Mapping
    {
        CString group;
        unsigned int id;
    };

    static CString ConvertGroupName(CString const & name);
    Group * GetPoolGroup(CString const & name) const;
    Group * GetRangeGroup(unsigned int id) const;
    std::vector<Segment> MakeSegments() const;
    bool HasGroup(CString const & name) const;
    bool ClearGroup(CString const & name);
    bool AddGroup(CString const & name, std::unique_ptr<Group> group);

    std::map<CString, Group *> m_groups; ///< owned, but for the sharing of copies
    std::map<CString, Range> m_ranges;
    mutable std::vector<Segment>
        m_segments; ///< made of the ranges by the first lookup after a change; empty until then
    std::map<unsigned int, Mapping> m_mappings;
};
