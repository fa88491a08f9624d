// Lists in texts: a line for the separator, a line for a list, the rest for another.
#include "fuzz/fuzz_target.h"

#include <krcore/text/krstringparser.h>
#include <krplatform/base/cexception.h>
#include <krplatform/text/numbers.h>

#include <algorithm>
#include <map>
#include <vector>

namespace kr::fuzz
{

namespace
{

/// The pieces between separators, found without haste.
std::vector<CString> SlowlySplit(Units text, Units const & separator)
{
    std::vector<CString> pieces;
    for (std::size_t hit; (hit = text.find(separator)) != Units::npos; text.erase(0, hit + separator.size()))
        pieces.push_back(TextOf(text.substr(0, hit)));
    pieces.push_back(TextOf(text));
    return pieces;
}

int IntegerOf(CString const & text) { return _wtoi(text); }

double DoubleOf(CString text)
{
    text.Replace(OLESTR(','), OLESTR('.'));
    return wcstod(text, nullptr);
}

template <class Item>
std::vector<Item> Split(CString const & text, CString const & separator)
{
    std::vector<Item> items;
    KR_LAW(CKrStringParser::Split(text, separator, items));
    return items;
}

void CheckStrings(CString const & text, CString const & separator, std::vector<CString> const & pieces)
{
    std::vector<CString> const items = Split<CString>(text, separator);
    KR_LAW(items == pieces);
    KR_LAW(CKrStringParser::Join(separator, items) == text);

    std::vector<CString> filled = items;
    std::erase_if(filled, [](CString const & item) { return item.IsEmpty(); });
    KR_LAW(CKrStringParser::JoinSkipEmpty(separator, items) == CKrStringParser::Join(separator, filled));
}

void CheckNumbers(CString const & text, CString const & separator, std::vector<CString> const & pieces)
{
    std::vector<int> const integers = Split<int>(text, separator);
    KR_LAW(std::ranges::equal(integers, pieces, {}, {}, IntegerOf));
    std::vector<double> const doubles = Split<double>(text, separator);
    KR_LAW(std::ranges::equal(doubles, pieces, {}, {}, DoubleOf));

    // with a separator that no number has a part of, what is joined is the same list again
    CString const semicolon(OLESTR(";"));
    KR_LAW(Split<int>(CKrStringParser::Join(semicolon, integers), semicolon) == integers);
    CString const joined = CKrStringParser::Join(semicolon, doubles);
    bool const isFinite = std::ranges::all_of(doubles, [](double item) { return item - item == 0; });
    KR_LAW(!isFinite || CKrStringParser::Join(semicolon, Split<double>(joined, semicolon)) == joined);
}

void CheckEmptySeparator(CString const & text)
{
    std::vector<CString> items = {OLESTR("before")};
    bool hasThrown = false;
    try
    {
        CKrStringParser::Split(text, CString(), items);
    }
    catch (CMemoryException * exception)
    {
        exception->Delete();
        hasThrown = true;
    }
    KR_LAW(hasThrown == !text.IsEmpty());
    KR_LAW(items.size() == 1 && items[0] == OLESTR("before"));
}

template <class Item>
using Counts = std::map<Item, std::pair<int, int>>;

template <class Item>
Counts<Item> CountsOf(std::vector<Item> const & left, std::vector<Item> const & right)
{
    Counts<Item> counts;
    for (Item const & item : left)
        ++counts[item].first;
    for (Item const & item : right)
        ++counts[item].second;
    return counts;
}

/// The items in ascending order, each as often as `count` makes of how often it stands in the two lists.
template <class Item, class Count>
CString Combined(Counts<Item> const & counts, CString const & separator, Count count)
{
    std::vector<Item> items;
    for (auto const & [item, both] : counts)
        items.insert(items.end(), static_cast<std::size_t>(std::max(count(both.first, both.second), 0)), item);
    return CKrStringParser::Join(separator, items);
}

template <class Item>
void CheckSets(std::vector<Item> const & left, std::vector<Item> const & right, CString const & separator)
{
    CKrStringParser const one(left, separator), other(right, separator);
    Counts<Item> const counts = CountsOf(left, right);
    auto const check = [&](auto operation, auto count)
    { KR_LAW(operation(CKrStringParser(one)).Join(CString()) == Combined(counts, separator, count)); };

    check([&](CKrStringParser parser) { return parser.Union(other); }, [](int m, int n) { return std::max(m, n); });
    check([&](CKrStringParser parser) { return parser.Intersection(other); },
          [](int m, int n) { return std::min(m, n); });
    check([&](CKrStringParser parser) { return parser.Difference(other); }, [](int m, int n) { return m - n; });
    check([&](CKrStringParser parser) { return parser.SymmetricDifference(other); },
          [](int m, int n) { return std::abs(m - n); });
    check([](CKrStringParser parser) { return parser.Sort(true); }, [](int m, int) { return m; });
    check([](CKrStringParser parser) { return parser.Unique(); }, [](int m, int) { return std::min(m, 1); });
    check([&](CKrStringParser parser) { return parser.Append(other).Sort(true); }, [](int m, int n) { return m + n; });

    KR_LAW(one.IsEqual(other) == (left == right));
    KR_LAW(CKrStringParser(one).Reverse().Reverse().IsEqual(one));
}

void CheckReplace(std::vector<CString> items, CString const & oldItem, CString const & newItem)
{
    CString const separator(OLESTR(";"));
    CKrStringParser parser(items, separator);
    KR_LAW(parser.Has(oldItem) == (std::ranges::find(items, oldItem) != items.end()));
    std::ranges::replace(items, oldItem, newItem);
    KR_LAW(parser.Replace(oldItem, newItem).Join(CString()) == CKrStringParser::Join(separator, items));
}

} // namespace

void CheckLaws(FuzzInput input)
{
    Units const separatorUnits = input.TextLine();
    Units const units = input.TextLine();
    Units const otherUnits = input.TextRest();
    CString const separator = TextOf(separatorUnits), text = TextOf(units), other = TextOf(otherUnits);
    CheckEmptySeparator(text);
    if (separator.IsEmpty() || text.IsEmpty())
        return;
    std::vector<CString> const pieces = SlowlySplit(units, separatorUnits);
    CheckStrings(text, separator, pieces);
    CheckNumbers(text, separator, pieces);
    CheckSets(pieces, SlowlySplit(otherUnits, separatorUnits), separator);
    CheckSets(Split<int>(text, separator), Split<int>(other, separator), separator);
    CheckReplace(pieces, pieces.back(), other);
}

} // namespace kr::fuzz
