// The object form: the active list, and multisets of two.
#include <krcore/text/krstringparser.h>

#include <krplatform/text/numbers.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace
{

constexpr double sameItem = -9.0; // Deliberate: negative, so that no two doubles are ever the same item
constexpr double leastDifference = 1e-10;

double ReadDouble(CString text)
{
    text.Replace(OLESTR(','), OLESTR('.'));
    return wcstod(text, nullptr);
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

CKrStringParser & CKrStringParser::operator=(CKrStringParser const & other) = default;

CKrStringParser::~CKrStringParser() = default;

void CKrStringParser::Clear() noexcept
{
    m_strings.clear();
    m_doubles.clear();
    m_integers.clear();
}

bool CKrStringParser::Split(CString const & text, CString const & separator)
{
    if (!separator.IsEmpty())
        m_separator = separator;
    switch (m_type)
    {
    case eParserTypeString:
        return Split(text, m_separator, m_strings);
    case eParserTypeDouble:
        return Split(text, m_separator, m_doubles);
    case eParserTypeInt:
        return Split(text, m_separator, m_integers);
    default:
        return false;
    }
}

CString CKrStringParser::Join(CString const & separator)
{
    if (!separator.IsEmpty())
        m_separator = separator;
    switch (m_type)
    {
    case eParserTypeString:
        return Join(m_separator, m_strings);
    case eParserTypeDouble:
        return Join(m_separator, m_doubles);
    case eParserTypeInt:
        return Join(m_separator, m_integers);
    default:
        return CString();
    }
}

CKrStringParser CKrStringParser::ParserOf(CString const & text, CString const & separator) const
{
    return CKrStringParser(text, separator.IsEmpty() ? m_separator : separator, m_type);
}

// Replaces the active list by what `merge` makes of it and the other's.
template <class Merge>
CKrStringParser & CKrStringParser::Combine(CKrStringParser const & other, Merge merge)
{
    if (m_type != other.m_type)
        return *this;
    switch (m_type)
    {
    case eParserTypeString:
        m_strings = merge(m_strings, other.m_strings);
        break;
    case eParserTypeDouble:
        m_doubles = merge(m_doubles, other.m_doubles);
        break;
    case eParserTypeInt:
        m_integers = merge(m_integers, other.m_integers);
        break;
    default:
        break;
    }
    return *this;
}

namespace
{

// Makes a merge of two lists out of a merge of two sorted ranges.
template <class MergeRanges>
auto OfSorted(MergeRanges mergeRanges)
{
    return [mergeRanges](auto left, auto right)
    {
        std::sort(left.begin(), left.end());
        std::sort(right.begin(), right.end());
        decltype(left) result;
        mergeRanges(left, right, std::back_inserter(result));
        return result;
    };
}

} // namespace

CKrStringParser & CKrStringParser::Append(CKrStringParser const & other)
{
    return Combine(other,
                   [](auto left, auto const & right)
                   {
                       left.insert(left.end(), right.begin(), right.end());
                       return left;
                   });
}

CKrStringParser & CKrStringParser::Union(CKrStringParser const & other)
{
    return Combine(other, OfSorted([](auto const & left, auto const & right, auto out)
                                   { std::set_union(left.begin(), left.end(), right.begin(), right.end(), out); }));
}

CKrStringParser & CKrStringParser::Intersection(CKrStringParser const & other)
{
    return Combine(other,
                   OfSorted([](auto const & left, auto const & right, auto out)
                            { std::set_intersection(left.begin(), left.end(), right.begin(), right.end(), out); }));
}

CKrStringParser & CKrStringParser::Difference(CKrStringParser const & other)
{
    return Combine(other,
                   OfSorted([](auto const & left, auto const & right, auto out)
                            { std::set_difference(left.begin(), left.end(), right.begin(), right.end(), out); }));
}

CKrStringParser & CKrStringParser::SymmetricDifference(CKrStringParser const & other)
{
    return Combine(
        other, OfSorted([](auto const & left, auto const & right, auto out)
                        { std::set_symmetric_difference(left.begin(), left.end(), right.begin(), right.end(), out); }));
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
    {
        std::sort(m_strings.begin(), m_strings.end(),
                  [](CString const & left, CString const & right) { return left.CompareNoCase(right) < 0; });
        return *this;
    }
    return Combine(*this,
                   [](auto items, auto const &)
                   {
                       std::sort(items.begin(), items.end());
                       return items;
                   });
}

CKrStringParser & CKrStringParser::Reverse()
{
    return Combine(*this,
                   [](auto items, auto const &)
                   {
                       std::reverse(items.begin(), items.end());
                       return items;
                   });
}

CKrStringParser & CKrStringParser::Unique()
{
    return Combine(*this,
                   [](auto items, auto const &)
                   {
                       std::sort(items.begin(), items.end());
                       items.erase(std::unique(items.begin(), items.end()), items.end());
                       return items;
                   });
}

CKrStringParser & CKrStringParser::Replace(CString const & oldItem, CString const & newItem)
{
    switch (m_type)
    {
    case eParserTypeString:
        std::replace(m_strings.begin(), m_strings.end(), CString(oldItem), CString(newItem));
        break;
    case eParserTypeDouble:
        std::replace_if(
            m_doubles.begin(), m_doubles.end(),
            [old = ReadDouble(oldItem)](double item) { return std::fabs(item - old) < sameItem; }, ReadDouble(newItem));
        break;
    case eParserTypeInt:
        std::replace(m_integers.begin(), m_integers.end(), _wtoi(oldItem), _wtoi(newItem));
        break;
    default:
        break;
    }
    return *this;
}

bool CKrStringParser::Has(CString const & item) const
{
    switch (m_type)
    {
    case eParserTypeString:
        return std::find(m_strings.begin(), m_strings.end(), item) != m_strings.end();
    case eParserTypeDouble:
        return std::any_of(m_doubles.begin(), m_doubles.end(),
                           [wanted = ReadDouble(item)](double candidate)
                           { return std::fabs(candidate - wanted) < sameItem; });
    case eParserTypeInt:
        return std::find(m_integers.begin(), m_integers.end(), _wtoi(item)) != m_integers.end();
    default:
        return false;
    }
}

bool CKrStringParser::IsEqual(CKrStringParser const & other) const
{
    if (m_type != other.m_type)
        return false;
    switch (m_type)
    {
    case eParserTypeString:
        return m_strings == other.m_strings;
    case eParserTypeDouble:
        return std::equal(m_doubles.begin(), m_doubles.end(), other.m_doubles.begin(), other.m_doubles.end(),
                          [](double left, double right) { return !(std::fabs(left - right) < leastDifference); });
    case eParserTypeInt:
        return m_integers == other.m_integers;
    default:
        return true;
    }
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
