// Sorting sub-properties.
#include <krcore/property/krproperty.h>

#include <krplatform/text/textunits.h>

#include <algorithm>
#include <cstdint>
#include <utility>

namespace
{

/// Where a key stands. What all keys begin with is left aside; the four units behind it decide most comparisons.
struct Place
{
    CString const * key;
    std::size_t position;
    std::uint64_t lead;
};

std::size_t LengthOfCommonStart(std::vector<Place> const & places)
{
    std::u16string_view start = places.front().key->View();
    for (Place const & place : places)
    {
        std::u16string_view const key = place.key->View();
        start = start.substr(0, kr::detail::CommonLength(start.data(), key.data(), std::min(start.size(), key.size())));
    }
    return start.size();
}

/// Zeros stand for units that the key lacks.
std::uint64_t LeadOf(std::u16string_view key)
{
    std::uint64_t lead = 0;
    for (std::size_t index = 0; index < 4; ++index)
        lead = lead << 16 | (index < key.size() ? key[index] : 0u);
    return lead;
}

/// By code units; equal keys keep their order.
bool operator<(Place const & left, Place const & right)
{
    if (left.lead != right.lead)
        return left.lead < right.lead;
    int const order = left.key->Compare(*right.key);
    return order != 0 ? order < 0 : left.position < right.position;
}

} // namespace

bool CKrProperty::SortByDescription(bool recursive)
{
    if (IsLeaf())
        return true;
    auto & nodes = m_children->Rearrange();
    std::vector<Place> places;
    places.reserve(nodes.size());
    for (auto const & node : nodes)
        places.push_back({node->m_description.IsEmpty() ? &node->m_name : &node->m_description, places.size(), 0});
    std::size_t const start = LengthOfCommonStart(places);
    for (Place & place : places)
        place.lead = LeadOf(place.key->View().substr(start));
    std::sort(places.begin(), places.end());

    kr::detail::PropertyChildren::Nodes sorted;
    sorted.reserve(nodes.size());
    for (Place const & place : places)
        sorted.push_back(std::move(nodes[place.position]));
    nodes = std::move(sorted);

    if (recursive)
    {
        for (auto const & node : nodes)
            node->SortByDescription(true);
    }
    return true;
}
