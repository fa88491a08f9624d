// Which group's range an id lies in. Ranges may overlap, and the first in the order of names counts, so they are cut into segments
// that do not.
#include <krcore/diagnostics/krmessagepool.h>

#include <algorithm>
#include <set>

std::vector<CKrMessagePool::Segment> CKrMessagePool::MakeSegments() const
{
    struct End
    {
        unsigned int id;
        std::size_t rank;
        bool isBeginning;
    };
    std::vector<Group *> groups; // by rank, which is the order of names
    std::vector<End> ends;
    for (auto const & [name, range] : m_ranges)
    {
        if (range.first > range.last)
            continue;
        ends.push_back({range.first, groups.size(), true});
        if (range.last + 1 != 0) // else it goes on to the last id that there is
            ends.push_back({range.last + 1, groups.size(), false});
        groups.push_back(GetPoolGroup(name));
    }
    std::ranges::sort(ends, {}, &End::id);

    std::vector<Segment> segments{{0, nullptr}};
    std::set<std::size_t> open;
    for (End const & end : ends)
    {
        if (end.isBeginning)
            open.insert(end.rank);
        else
            open.erase(end.rank);
        if (segments.back().first != end.id)
            segments.push_back({end.id, nullptr});
        segments.back().group = open.empty() ? nullptr : groups[*open.begin()];
    }
    return segments;
}

CKrMessagePool::Group * CKrMessagePool::GetRangeGroup(unsigned int id) const
{
    if (m_ranges.empty())
        return nullptr;
    if (m_segments.empty())
        m_segments = MakeSegments();
    return std::prev(std::ranges::upper_bound(m_segments, id, {}, &Segment::first))->group;
}
