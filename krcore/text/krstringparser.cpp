// The object form: the active list, and multisets of two.
#include <krcore/text/krstringparser.h>

#include <krplatform/text/numbers.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <type_traits>
#include <utility>

namespace
{

constexpr double sameItem = -9.0; // Deliberate: negative, so that no two doubles are ever the same item
constexpr double leastDifference = 1e-10;

// The order of items; not-a-number stands behind all numbers, or no sort would be safe.
struct Before
{
    bool operator()(CString const & left, CString const & right) const { return left < right; }
    bool operator()(int left, int right) const { return left < right; }
    bool operator()(double left, double right) const
    {
        return left < right || (std::isnan(right) && !std::isnan(left));
    }
};

template <class Item>
void SortItems(std::vector<Item> & items)
{
    std::sort(items.begin(), items.end(), Before());
}

template <class Item>
Item ReadItem(CString text)
{
    if constexpr (std::is_same_v<Item, int>)
        return _wtoi(text);
    else if constexpr (std::is_same_v<Item, double>)
    {
        text.Replace(OLESTR(','), OLESTR('.'));
        return wcstod(text, nullptr);
    }
    else
        return text;
}

// What `Has` and `Replace` take for the same item.
template <class Item>
bool IsSameItem(Item const & left, Item const & right)
{
    return left == right;
}

template <>
bool IsSameItem(double const & left, double const & right)
{
    return std::fabs(left - right) < sameItem;
}

// What `IsEqual` takes for an equal pair.
template <class Item>
bool IsEqualPair(Item const & left, Item const & right)
{
    return left == right;
}

template <>
bool IsEqualPair(double const & left, double const & right)
{
    return !(std::fabs(left - right) < leastDifference);
}

} // namespace

CKrStringParser::CKrStringParser(EParserType type) : m_type(type) {}

CKrStringParser::CKrStringParser(CString const & separator, EParserType type) : m_separator(separator), m_type(type) {}

CKrStringParser::CKrStringParser(CString const & text, CString const & separator, EParserType type)
    : m_separator(separator), m_type(type)
{
    Split(text, CString());
}

CKrStringParser::CKrStringParser(std::vector<CString> const & items, CString const & separator)
    : m_separator(separator), m_type(eParserTypeString), m_strings(items)
{
}

CKrStringParser::CKrStringParser(std::vector<double> const & items, CString const & separator)
    : m_separator(separator), m_type(eParserTypeDouble), m_doubles(items)
{
}

CKrStringParser::CKrStringParser(std::vector<int> const & items, CString const & separator)
    : m_separator(separator), m_type(eParserTypeInt), m_integers(items)
{
}

CKrStringParser::CKrStringParser(CKrStringParser const & other) = default;

CKrStringParser & CKrStringParser::operator=(CKrStringParser const & other)
{
    CKrStringParser copy(other); // nothing changes when memory runs out
    m_separator = other.m_separator;
    m_type = other.m_type;
    m_strings.swap(copy.m_strings);
    m_doubles.swap(copy.m_doubles);
    m_integers.swap(copy.m_integers);
    return *this;
}

CKrStringParser::~CKrStringParser() = default;

void CKrStringParser::Clear() noexcept
{
    m_strings.clear();
    m_doubles.clear();
    m_integers.clear();
}

// Calls `work` with the member that is the active list; false for an unknown type.
template <class Work>
bool CKrStringParser::WithActiveList(Work work) const
{
    switch (m_type)
    {
    case eParserTypeString:
        work(&CKrStringParser::m_strings);
        return true;
    case eParserTypeDouble:
        work(&CKrStringParser::m_doubles);
        return true;
    case eParserTypeInt:
        work(&CKrStringParser::m_integers);
        return true;
    default:
        return false;
    }
}

// The separator that an operation works with: the stored one where none is given.
CString const & CKrStringParser::SeparatorOr(CString const & separator) const noexcept
{
    return separator.IsEmpty() ? m_separator : separator;
}

bool CKrStringParser::Split(CString const & text, CString const & separator)
{
    bool const isKnown = WithActiveList([&](auto list) { Split(text, SeparatorOr(separator), this->*list); });
    m_separator = SeparatorOr(separator);
    return isKnown;
}

CString CKrStringParser::Join(CString const & separator)
{
    CString joined;
    WithActiveList([&](auto list) { joined = Join(SeparatorOr(separator), this->*list); });
    m_separator = SeparatorOr(separator);
    return joined;
}

CKrStringParser CKrStringParser::ParserOf(CString const & text, CString const & separator) const
{
    return CKrStringParser(text, SeparatorOr(separator), m_type);
}

CKrStringParser & CKrStringParser::Append(CKrStringParser const & other)
{
    if (m_type != other.m_type)
        return *this;
    WithActiveList(
        [&](auto list)
        {
            auto const added = other.*list; // a copy: the other may be this object
            auto & items = this->*list;
            items.insert(items.end(), added.begin(), added.end());
        });
    return *this;
}

// Replaces the active list by the merge of sorted copies of it and of the other's.
template <class Merge>
CKrStringParser & CKrStringParser::MergeSorted(CKrStringParser const & other, Merge merge)
{
    if (m_type != other.m_type)
        return *this;
    WithActiveList(
        [&](auto list)
        {
            auto left = this->*list;
            auto right = other.*list;
            SortItems(left);
            SortItems(right);
            decltype(left) result;
            merge(left.begin(), left.end(), right.begin(), right.end(), std::back_inserter(result), Before());
            (this->*list).swap(result);
        });
    return *this;
}

CKrStringParser & CKrStringParser::Union(CKrStringParser const & other)
{
    return MergeSorted(other, [](auto... ranges) { std::set_union(ranges...); });
}

CKrStringParser & CKrStringParser::Intersection(CKrStringParser const & other)
{
    return MergeSorted(other, [](auto... ranges) { std::set_intersection(ranges...); });
}

CKrStringParser & CKrStringParser::Difference(CKrStringParser const & other)
{
    return MergeSorted(other, [](auto... ranges) { std::set_difference(ranges...); });
}

CKrStringParser & CKrStringParser::SymmetricDifference(CKrStringParser const & other)
{
    return MergeSorted(other, [](auto... ranges) { std::set_symmetric_difference(ranges...); });
}

CKrStringParser & CKrStringParser::Append(CString const & text, CString const & separator)
{
    return Append(ParserOf(text, separator));
}

CKrStringParser & CKrStringParser::Union(CString const & text, CString const & separator)
{
    return Union(ParserOf(text, separator));
}

CKrStringParser & CKrStringParser::Intersection(CString const & text, CString const & separator)
{
    return Intersection(ParserOf(text, separator));
}

CKrStringParser & CKrStringParser::Difference(CString const & text, CString const & separator)
{
    return Difference(ParserOf(text, separator));
}

CKrStringParser & CKrStringParser::SymmetricDifference(CString const & text, CString const & separator)
{
    return SymmetricDifference(ParserOf(text, separator));
}

CKrStringParser & CKrStringParser::Sort(bool caseSensitive)
{
    if (m_type == eParserTypeString && !caseSensitive)
        std::sort(m_strings.begin(), m_strings.end(),
                  [](CString const & left, CString const & right) { return left.CompareNoCase(right) < 0; });
    else
        WithActiveList([this](auto list) { SortItems(this->*list); });
    return *this;
}

CKrStringParser & CKrStringParser::Reverse()
{
    WithActiveList([this](auto list) { std::reverse((this->*list).begin(), (this->*list).end()); });
    return *this;
}

CKrStringParser & CKrStringParser::Unique()
{
    WithActiveList(
        [this](auto list)
        {
            auto & items = this->*list;
            SortItems(items);
            auto const isRepetition = [](auto const & left, auto const & right) { return !Before()(left, right); };
            items.erase(std::unique(items.begin(), items.end(), isRepetition), items.end());
        });
    return *this;
}

CKrStringParser & CKrStringParser::Replace(CString const & oldItem, CString const & newItem)
{
    WithActiveList(
        [&](auto list)
        {
            auto & items = this->*list;
            using Item = typename std::remove_reference_t<decltype(items)>::value_type;
            auto const isOld = [old = ReadItem<Item>(oldItem)](Item const & item) { return IsSameItem(item, old); };
            std::replace_if(items.begin(), items.end(), isOld, ReadItem<Item>(newItem));
        });
    return *this;
}

bool CKrStringParser::Has(CString const & item) const
{
    bool has = false;
    WithActiveList(
        [&](auto list)
        {
            auto const & items = this->*list;
            using Item = typename std::remove_reference_t<decltype(items)>::value_type;
            has = std::any_of(items.begin(), items.end(),
                              [wanted = ReadItem<Item>(item)](Item const & candidate)
                              { return IsSameItem(candidate, wanted); });
        });
    return has;
}

bool CKrStringParser::IsEqual(CKrStringParser const & other) const
{
    if (m_type != other.m_type)
        return false;
    bool equal = true;
    WithActiveList(
        [&](auto list)
        {
            auto const & left = this->*list;
            auto const & right = other.*list;
            equal = std::equal(left.begin(), left.end(), right.begin(), right.end(),
                               [](auto const & one, auto const & another) { return IsEqualPair(one, another); });
        });
    return equal;
}

bool CKrStringParser::IsEqual(CString const & text, CString const & separator) const
{
    return IsEqual(ParserOf(text, separator));
}

bool CKrStringParser::Find(CKrStringParser const &) const { return true; }

bool CKrStringParser::Find(CString const & text, CString const & separator) const
{
    return Find(ParserOf(text, separator));
}
