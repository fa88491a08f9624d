#include <krcore/table/krcolumnindex.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace kr::detail
{

CString MakeColumnKey(CString const & name, int counter)
{
    WCHAR ending[] = OLESTR("_#0000000000#"); // as many digits as a counter may have
    WCHAR * place = std::end(ending) - 2;     // on the last "#"
    do
    {
        *--place = static_cast<WCHAR>(OLESTR('0') + counter % 10);
        counter /= 10;
    } while (counter != 0);
    *--place = OLESTR('#');
    *--place = OLESTR('_');
    return name + place;
}

std::size_t ColumnIndex::HashOf(View text) noexcept
{
    std::uint64_t hash = text.size();
    auto const mix = [&hash](std::uint64_t units)
    {
        hash = (hash ^ units) * 0x9E3779B97F4A7C15;
        hash ^= hash >> 32;
    };
    for (; text.size() >= 4; text.remove_prefix(4))
    {
        std::uint64_t units;
        std::memcpy(&units, text.data(), sizeof units);
        mix(units);
    }
    std::uint64_t rest = 0;
    for (WCHAR const unit : text)
        rest = rest << 16 | unit;
    mix(rest);
    return static_cast<std::size_t>(hash >> 32);
}

ColumnIndex::ColumnIndex(Columns const & columns) : m_changes(std::make_shared<std::size_t>(0))
{
    m_places.reserve(columns.size());
    for (std::size_t position = 0; position < columns.size(); ++position)
        AddColumn(columns[position].GetKey(), position);
    for (CKrTableColumn const & column : columns)
        column.m_key.Watch(m_changes);
    SeeColumns(columns);
}

std::size_t ColumnIndex::Find(CString const & key) const
{
    auto const place = m_places.find(key);
    return place == m_places.end() ? none : place->second.first;
}

CString ColumnIndex::LowestFreeKey(CString const & name)
{
    Counters & counters = m_counters[name];
    if (!counters.released.empty())
        return MakeColumnKey(name, *counters.released.begin());
    while (true)
    {
        CString const key = MakeColumnKey(name, counters.next);
        if (!m_places.contains(key))
            return key;
        ++counters.next;
    }
}

void ColumnIndex::Inserted(Columns const & columns, std::size_t position)
{
    for (std::size_t moved = columns.size() - 1; moved > position;
         --moved) // the last first: it stood where its neighbour stands
    {
        Place & place = m_places.find(columns[moved].GetKey())->second;
        if (place.first == moved - 1)
            place.first = moved;
    }
    CString const & key = columns[position].GetKey();
    AddColumn(key, position);
    std::optional<CountedKey> const counted = TakeApart(key.View());
    if (Counters * const counters = CountersOf(counted))
    {
        counters->released.erase(counted->counter);
        if (counters->next == counted->counter)
            ++counters->next;
    }
    columns[position].m_key.Watch(m_changes);
    SeeColumns(columns);
}

void ColumnIndex::Erased(Columns const & columns, std::size_t position, CString const & key)
{
    for (std::size_t moved = position; moved < columns.size(); ++moved)
    {
        Place & place = m_places.find(columns[moved].GetKey())->second;
        if (place.first == moved + 1)
            place.first = moved;
    }
    auto const place = m_places.find(key);
    if (--place->second.count != 0)
        while (columns[place->second.first].GetKey() != key)
            ++place->second.first;
    else
    {
        m_places.erase(place);
        std::optional<CountedKey> const counted = TakeApart(key.View());
        if (Counters * const counters = CountersOf(counted); counters && counted->counter < counters->next)
            counters->released.insert(counted->counter);
    }
    SeeColumns(columns);
}

std::optional<ColumnIndex::CountedKey> ColumnIndex::TakeApart(View key)
{
    constexpr std::size_t mostDigits = 9; // no table has more columns than that tells
    std::size_t const ending = key.rfind(OLESTR("_#"));
    if (ending == View::npos || key.back() != OLESTR('#') || key.size() < ending + 4)
        return std::nullopt;
    View const digits = key.substr(ending + 2, key.size() - ending - 3);
    if (digits.size() > mostDigits || (digits.size() > 1 && digits.front() == OLESTR('0')))
        return std::nullopt;
    int counter = 0;
    for (WCHAR const digit : digits)
    {
        if (digit < OLESTR('0') || digit > OLESTR('9'))
            return std::nullopt;
        counter = counter * 10 + (digit - OLESTR('0'));
    }
    return CountedKey{key.substr(0, ending), counter};
}

ColumnIndex::Counters * ColumnIndex::CountersOf(std::optional<CountedKey> const & key)
{
    auto const counters = key ? m_counters.find(key->name) : m_counters.end();
    return counters == m_counters.end() ? nullptr : &counters->second;
}

void ColumnIndex::AddColumn(CString const & key, std::size_t position)
{
    Place & place = m_places.try_emplace(key, Place{position, 0}).first->second;
    place.first = std::min(place.first, position);
    ++place.count;
}

void ColumnIndex::SeeColumns(Columns const & columns) noexcept
{
    m_data = columns.data();
    m_size = columns.size();
    m_changesSeen = *m_changes;
}

} // namespace kr::detail
