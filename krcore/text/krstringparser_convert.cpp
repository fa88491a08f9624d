// Cutting and joining.
#include <krcore/text/krstringparser.h>

#include <krplatform/automation/vartext.h>
#include <krplatform/base/cexception.h>
#include <krplatform/text/numbers.h>
#include <krplatform/text/takebstr.h>

#include <algorithm>

namespace
{

using kr::detail::TextView;

// Hands each piece between separators to `take`, the last one too.
template <class Take>
void ForEachPiece(TextView text, TextView separator, Take take)
{
    if (separator.empty())
        AfxThrowMemoryException(); // the search would find the same place for ever
    std::size_t start = 0;
    for (std::size_t hit; (hit = text.find(separator, start)) != TextView::npos; start = hit + separator.size())
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

template <class Item, class Write>
CString JoinItems(CString const & separator, std::vector<Item> const & items, Write write)
{
    CString joined;
    bool first = true;
    for (Item const & item : items)
    {
        if (!first)
            joined += separator;
        first = false;
        write(joined, item);
    }
    return joined;
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
    return JoinItems(separator, items, [](CString & joined, CString const & item) { joined += item; });
}

CString CKrStringParser::Join(CString const & separator, std::vector<double> const & items)
{
    return JoinItems(separator, items,
                     [](CString & joined, double item)
                     {
                         BSTR text = nullptr;
                         if (VarBstrFromR8(item, LOCALE_INVARIANT, 0, &text) == E_OUTOFMEMORY)
                             AfxThrowMemoryException();
                         joined += kr::detail::TakeBstr(text); // nothing for any other failure
                     });
}

CString CKrStringParser::Join(CString const & separator, std::vector<int> const & items)
{
    return JoinItems(separator, items,
                     [](CString & joined, int item)
                     {
                         WCHAR text[32];
                         _itow_s(item, text, std::size(text), 10);
                         joined += text;
                     });
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
