// Where the columns of a wide table stand.
#pragma once

#include <krcore/table/krtablecolumn.h>

#include <cstring>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kr::detail
{

/// The key of that counter: "Width" and 7 give "Width_#7#".
CString MakeColumnKey(CString const & name, int counter);

/// Answers in constant time where the first column of a key stands, and which counter of a name is the lowest free one.
/// It watches the keys of its columns: any change that it is not told of makes it stale.
class ColumnIndex
{
public:
    using Columns = std::vector<CKrTableColumn>;

    explicit ColumnIndex(Columns const & columns);

    /// Whether the columns are as they were when it was made or last told of a change. Columns that come are seen by
    /// their number, all else by the keys.
    bool IsCurrent(Columns const & columns) const noexcept
    {
        return columns.data() == m_data && columns.size() == m_size && *m_changes == m_changesSeen;
    }

    static constexpr std::size_t none = static_cast<std::size_t>(-1);
    /// `none` where no column has the key.
    std::size_t Find(CString const & key) const;
    CString LowestFreeKey(CString const & name);

    /// Tell a current index that a column came in at `position`, or that the first one of `key` went from there. A
    /// failure for want of memory, `std::bad_alloc`, leaves the index of no use.
    void Inserted(Columns const & columns, std::size_t position);
    void Erased(Columns const & columns, std::size_t position, CString const & key);

private:
    using View = std::basic_string_view<WCHAR>;

    struct Place
    {
        std::size_t first;
        std::size_t count; ///< columns with this key
    };

    /// Every counter below `next` is taken or released.
    struct Counters
    {
        int next = 0;
        std::set<int> released;
    };

    // Keys are looked for by parts of texts, which need no memory.
    static View ViewOf(View text) noexcept { return text; }
    static View ViewOf(CString const & text) noexcept { return text.View(); }
    struct TextHash
    {
        using is_transparent = void;
        std::size_t operator()(auto const & text) const noexcept { return HashOf(ViewOf(text)); }
    };
    struct TextEqual
    {
        using is_transparent = void;
        bool operator()(auto const & left, auto const & right) const noexcept
        {
            return AreEqual(ViewOf(left), ViewOf(right));
        }
    };
    /// Four units at a time.
    static std::size_t HashOf(View text) noexcept;
    static bool AreEqual(View left, View right) noexcept
    {
        return left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size() * sizeof(WCHAR)) == 0;
    }
    template <class Value>
    using MapOfTexts = std::unordered_map<CString, Value, TextHash, TextEqual>;

    struct CountedKey
    {
        View name;
        int counter;
    };
    /// None for a key that no counter made.
    static std::optional<CountedKey> TakeApart(View key);
    /// The counters of a key's name; null where none was asked for yet.
    Counters * CountersOf(std::optional<CountedKey> const & key);
    void AddColumn(CString const & key, std::size_t position);
    void SeeColumns(Columns const & columns) noexcept;

    MapOfTexts<Place> m_places;
    MapOfTexts<Counters> m_counters;
    ColumnKey::Changes m_changes;
    std::size_t m_changesSeen = 0;
    CKrTableColumn const * m_data = nullptr;
    std::size_t m_size = 0;
};

} // namespace kr::detail
