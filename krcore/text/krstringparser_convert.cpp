// Cutting and joining.
#include <krcore/text/krstringparser.h>

#include <krplatform/base/cexception.h>
#include <krplatform/coerce/number_text.h>
#include <krplatform/text/numbers.h>
#include <krplatform/text/textsearch.h>

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <utility>

namespace
{

using kr::detail::TextView;

// Most separators are a single character, which is found faster.
std::size_t FindSeparator(TextView text, TextView separator, std::size_t start)
{
    return separator.size() == 1 ? kr::detail::FindUnit(text, separator.front(), start)
                                 : kr::detail::FindText(text, separator, start);
}

// Hands each piece between separators to `take`, the last one too.
template <class Take>
void ForEachPiece(TextView text, TextView separator, Take take)
{
    if (separator.empty())
        AfxThrowMemoryException(); // the search would find the same place for ever
    std::size_t start = 0;
    for (std::size_t hit; (hit = FindSeparator(text, separator, start)) != kr::detail::notFound;
         start = hit + separator.size())
        take(text.substr(start, hit - start));
    take(text.substr(start));
}

// A terminated copy of a piece, which the functions that read numbers want.
class TerminatedPiece
{
public:
    explicit TerminatedPiece(TextView piece)
    {
        m_text = m_short;
        if (piece.size() >= std::size(m_short))
            m_text = m_long.GetBuffer(static_cast<int>(piece.size()));
        *std::copy(piece.begin(), piece.end(), m_text) = 0;
        m_end = m_text + piece.size();
    }
    TerminatedPiece(TerminatedPiece const &) = delete;
    TerminatedPiece & operator=(TerminatedPiece const &) = delete;

    int ReadInteger() const { return _wtoi(m_text); }
    double ReadDouble()
    {
        std::replace(m_text, m_end, OLESTR(','), OLESTR('.'));
        return wcstod(m_text, nullptr);
    }

private:
    WCHAR m_short[64];
    CString m_long;
    WCHAR * m_text;
    WCHAR * m_end;
};

template <class Item, class Read>
bool SplitNumbers(CString const & text, CString const & separator, std::vector<Item> & items, Read read)
{
    if (text.IsEmpty())
        return true;
    std::vector<Item> pieces;
    ForEachPiece(text.View(), separator.View(), [&](TextView piece) { pieces.push_back(read(piece)); });
    items = std::move(pieces);
    return true;
}

// How many pieces there are.
std::size_t CountPieces(TextView text, TextView separator)
{
    if (separator.size() == 1)
        return kr::detail::CountUnit(text, separator.front()) + 1;
    std::size_t count = 0;
    ForEachPiece(text, separator, [&count](TextView) { ++count; });
    return count;
}

// The length of a joined text, or the platform's failure for one that no text can have.
int CheckedLength(std::size_t length)
{
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

// Most separators are one unit, which is not worth a call.
WCHAR * PutSeparator(TextView separator, WCHAR * end)
{
    if (separator.size() != 1)
        return std::copy(separator.begin(), separator.end(), end);
    *end = separator.front();
    return end + 1;
}

// Joins in storage of the right size: `measure` tells what an item takes, `write` writes it and gives the place behind it.
template <class Item, class Measure, class Write>
CString JoinItems(TextView separator, std::vector<Item> const & items, Measure measure, Write write)
{
    if (items.empty())
        return CString();
    std::size_t length = (items.size() - 1) * separator.size();
    for (Item const & item : items)
        length += measure(item);
    CString joined;
    WCHAR * end = write(items.front(), joined.GetBuffer(CheckedLength(length)));
    for (std::size_t index = 1; index < items.size(); ++index)
        end = write(items[index], PutSeparator(separator, end));
    joined.ReleaseBuffer(static_cast<int>(length));
    return joined;
}

constexpr unsigned int s_powersOfTen[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};

unsigned int MagnitudeOf(int number)
{
    unsigned int const bits = static_cast<unsigned int>(number);
    return number < 0 ? 0 - bits : bits;
}

std::size_t LengthOf(int number)
{
    unsigned int const magnitude = MagnitudeOf(number);
    // The number of bits by the logarithm of 2, which is one too many for some.
    auto const exponent = static_cast<std::size_t>(std::bit_width(magnitude | 1) * 1233 >> 12);
    return exponent + (magnitude >= s_powersOfTen[exponent] || exponent == 0 ? 1 : 0) + (number < 0 ? 1 : 0);
}

// "00" to "99", for two digits in one step.
constexpr auto s_digitPairs = []
{
    std::array<WCHAR, 200> pairs{};
    for (std::size_t index = 0; index < pairs.size(); ++index)
        pairs[index] = static_cast<WCHAR>(OLESTR('0') + (index % 2 == 0 ? index / 20 : index / 2 % 10));
    return pairs;
}();

// Writes the number and gives the place behind it.
WCHAR * WriteInteger(int number, WCHAR * destination)
{
    WCHAR * const end = destination + LengthOf(number);
    if (number < 0)
        *destination++ = OLESTR('-');
    unsigned int rest = MagnitudeOf(number);
    WCHAR * place = end;
    for (; place - destination >= 2; rest /= 100)
    {
        place -= 2;
        std::copy_n(&s_digitPairs[rest % 100 * 2], 2, place);
    }
    if (place != destination)
        *destination = static_cast<WCHAR>(OLESTR('0') + rest);
    return end;
}

// Makes a text whose length is not known before, of pieces that are gathered in place, so that few of them need a larger block.
class Gatherer
{
public:
    Gatherer() = default;
    Gatherer(Gatherer const &) = delete;
    Gatherer & operator=(Gatherer const &) = delete;

    void Add(TextView piece)
    {
        if (piece.size() == 1)
            *MakeRoom(1)++ = piece.front(); // what most separators are, not worth a call
        else
        {
            Flush();
            m_text.Append(piece.data(), static_cast<int>(piece.size()));
        }
    }
    void Add(double number)
    {
        WCHAR *& end = MakeRoom(kr::detail::longestNumberText);
        end = kr::detail::WriteReal(number, OLESTR('.'), end);
    }
    CString Take()
    {
        Flush();
        return std::move(m_text);
    }

private:
    WCHAR *& MakeRoom(std::ptrdiff_t count)
    {
        if (std::end(m_units) - m_end < count)
            Flush();
        return m_end;
    }
    void Flush() { m_text.Append(m_units, static_cast<int>(std::exchange(m_end, m_units) - m_units)); }

    CString m_text;
    WCHAR m_units[512];
    WCHAR * m_end = m_units;
};

} // namespace

bool CKrStringParser::Split(CString const & text, CString const & separator, std::vector<CString> & items)
{
    if (text.IsEmpty())
        return true;
    std::vector<CString> pieces;
    pieces.reserve(CountPieces(text.View(), separator.View())); // to move texts takes longer than to count them
    ForEachPiece(text.View(), separator.View(),
                 [&](TextView piece) { pieces.emplace_back(piece.data(), static_cast<int>(piece.size())); });
    items = std::move(pieces);
    return true;
}

bool CKrStringParser::Split(CString const & text, CString const & separator, std::vector<double> & items)
{
    return SplitNumbers(text, separator, items, [](TextView piece) { return TerminatedPiece(piece).ReadDouble(); });
}

bool CKrStringParser::Split(CString const & text, CString const & separator, std::vector<int> & items)
{
    return SplitNumbers(text, separator, items, [](TextView piece) { return TerminatedPiece(piece).ReadInteger(); });
}

CString CKrStringParser::Join(CString const & separator, std::vector<CString> const & items)
{
    return JoinItems(
        separator.View(), items, [](CString const & item) { return item.View().size(); },
        [](CString const & item, WCHAR * end) { return std::copy_n(item.GetString(), item.GetLength(), end); });
}

CString CKrStringParser::Join(CString const & separator, std::vector<double> const & items)
{
    Gatherer joined;
    for (std::size_t index = 0; index < items.size(); ++index)
    {
        if (index > 0)
            joined.Add(separator.View());
        joined.Add(items[index]);
    }
    return joined.Take();
}

CString CKrStringParser::Join(CString const & separator, std::vector<int> const & items)
{
    return JoinItems(separator.View(), items, LengthOf, WriteInteger);
}

CString CKrStringParser::JoinSkipEmpty(CString const & separator, std::vector<CString> const & items)
{
    CString joined;
    for (CString const & item : items)
    {
        if (item.IsEmpty())
            continue;
        if (!joined.IsEmpty())
            joined += separator;
        joined += item;
    }
    return joined;
}
