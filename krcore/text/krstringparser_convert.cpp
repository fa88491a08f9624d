// Cutting and joining.
#include <krcore/text/krstringparser.h>

#include <krplatform/automation/vartext.h>
#include <krplatform/base/cexception.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/numbers.h>
#include <krplatform/text/textsearch.h>

#include <algorithm>
#include <charconv>
#include <limits>

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
bool SplitInto(CString const & text, CString const & separator, std::vector<Item> & items, Read read)
{
    if (text.IsEmpty())
        return true;
    std::vector<Item> pieces;
    ForEachPiece(text.View(), separator.View(), [&](TextView piece) { pieces.push_back(read(piece)); });
    items = std::move(pieces);
    return true;
}

// The length of a joined text, or the platform's failure for one that no text can have.
int CheckedLength(std::size_t length)
{
    if (length > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        AfxThrowMemoryException();
    return static_cast<int>(length);
}

// Joins in storage of the right size: `lengthOf` tells what an item takes, `write` writes it and gives the place behind it.
template <class Item, class LengthOf, class Write>
CString JoinItems(TextView separator, std::vector<Item> const & items, LengthOf lengthOf, Write write)
{
    if (items.empty())
        return CString();
    std::size_t length = (items.size() - 1) * separator.size();
    for (Item const & item : items)
        length += lengthOf(item);
    CString joined;
    WCHAR * end = write(items.front(), joined.GetBuffer(CheckedLength(length)));
    for (std::size_t index = 1; index < items.size(); ++index)
        end = write(items[index], std::copy(separator.begin(), separator.end(), end));
    joined.ReleaseBuffer(static_cast<int>(length));
    return joined;
}

// The digits of a number.
class IntegerDigits
{
public:
    explicit IntegerDigits(int number) : m_end(std::to_chars(m_digits, std::end(m_digits), number).ptr) {}
    std::size_t Length() const { return static_cast<std::size_t>(m_end - m_digits); }
    WCHAR * Write(WCHAR * destination) const { return std::copy<char const *>(m_digits, m_end, destination); }

private:
    char m_digits[12];
    char const * m_end;
};

// Appends the platform's text of a number; none where it has none.
void AppendReal(CString & joined, double number)
{
    BSTR text = nullptr;
    if (VarBstrFromR8(number, LOCALE_INVARIANT, 0, &text) == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    struct Release
    {
        BSTR text;
        ~Release() { SysFreeString(text); }
    } const release{text};
    joined.Append(text, static_cast<int>(SysStringLen(text)));
}

} // namespace

bool CKrStringParser::Split(CString const & text, CString const & separator, std::vector<CString> & items)
{
    return SplitInto(text, separator, items,
                     [](TextView piece) { return CString(piece.data(), static_cast<int>(piece.size())); });
}

bool CKrStringParser::Split(CString const & text, CString const & separator, std::vector<double> & items)
{
    return SplitInto(text, separator, items, [](TextView piece) { return TerminatedPiece(piece).ReadDouble(); });
}

bool CKrStringParser::Split(CString const & text, CString const & separator, std::vector<int> & items)
{
    return SplitInto(text, separator, items, [](TextView piece) { return TerminatedPiece(piece).ReadInteger(); });
}

CString CKrStringParser::Join(CString const & separator, std::vector<CString> const & items)
{
    return JoinItems(
        separator.View(), items, [](CString const & item) { return item.View().size(); },
        [](CString const & item, WCHAR * end) { return std::copy_n(item.GetString(), item.GetLength(), end); });
}

CString CKrStringParser::Join(CString const & separator, std::vector<double> const & items)
{
    CString joined;
    for (std::size_t index = 0; index < items.size(); ++index)
    {
        if (index > 0)
            joined += separator;
        AppendReal(joined, items[index]);
    }
    return joined;
}

CString CKrStringParser::Join(CString const & separator, std::vector<int> const & items)
{
    return JoinItems(
        separator.View(), items, [](int item) { return IntegerDigits(item).Length(); },
        [](int item, WCHAR * end) { return IntegerDigits(item).Write(end); });
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
