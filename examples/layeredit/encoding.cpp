#include "encoding.h"

#include <krcore/text/krcharformatter.h>
#include <krplatform/codepage/codepage.h>
#include <krplatform/text/numbers.h>

#include <vector>

namespace layeredit
{

namespace
{

struct PageWord
{
    WCHAR const * word;
    UINT codePage;
};

// clang-format off
constexpr PageWord s_pageWords[] = {            // as drawings write them in $DWGCODEPAGE, case does not count
    { OLESTR("ANSI_874"),    874 }, { OLESTR("ANSI_932"),    932 }, { OLESTR("ANSI_936"),    936 },
    { OLESTR("ANSI_949"),    949 }, { OLESTR("ANSI_950"),    950 }, { OLESTR("ANSI_1250"),  1250 },
    { OLESTR("ANSI_1251"),  1251 }, { OLESTR("ANSI_1252"),  1252 }, { OLESTR("ANSI_1253"),  1253 },
    { OLESTR("ANSI_1254"),  1254 }, { OLESTR("ANSI_1255"),  1255 }, { OLESTR("ANSI_1256"),  1256 },
    { OLESTR("ANSI_1257"),  1257 }, { OLESTR("ANSI_1258"),  1258 }, { OLESTR("ANSI_1361"),  1361 },
    { OLESTR("gb2312"),      936 }, { OLESTR("big5"),        950 }, { OLESTR("ksc5601"),     949 },
    { OLESTR("kcs5601"),     949 }, { OLESTR("johab"),      1361 }, { OLESTR("dos932"),      932 },
    { OLESTR("dos437"),      437 }, { OLESTR("dos850"),      850 }, { OLESTR("dos852"),      852 },
    { OLESTR("dos855"),      855 }, { OLESTR("dos857"),      857 }, { OLESTR("dos860"),      860 },
    { OLESTR("dos861"),      861 }, { OLESTR("dos863"),      863 }, { OLESTR("dos864"),      864 },
    { OLESTR("dos865"),      865 }, { OLESTR("dos866"),      866 }, { OLESTR("dos869"),      869 },
    { OLESTR("mac-roman"), 10000 }, { OLESTR("iso8859-1"), 28591 }, { OLESTR("iso8859-2"), 28592 },
    { OLESTR("iso8859-3"), 28593 }, { OLESTR("iso8859-4"), 28594 }, { OLESTR("iso8859-5"), 28595 },
    { OLESTR("iso8859-6"), 28596 }, { OLESTR("iso8859-7"), 28597 }, { OLESTR("iso8859-8"), 28598 },
    { OLESTR("iso8859-9"), 28599 }, { OLESTR("ascii"),      1252 }, { OLESTR("UNDEFINED"),  1252 },
    { OLESTR("UTF-8"),   CP_UTF8 },
};
// clang-format on

constexpr WCHAR s_caret = OLESTR('^');
constexpr WCHAR s_backslash = OLESTR('\\');

CString Escape(WCHAR unit)
{
    CString escape;
    escape.Format(OLESTR("\\U+%04X"), static_cast<unsigned int>(unit));
    return escape;
}

CString DecodeEscapes(CString const & text)
{
    std::vector<WCHAR> units(static_cast<std::size_t>(text.GetLength()) + 1);
    int const count = CKrCharFormatter::WcharFromCIFMIF(text, units.data(), static_cast<int>(units.size()));
    return CString(units.data(), count - 1);
}

/// UTF-8 has no form for half of a surrogate pair without the other.
bool IsLoneSurrogate(CString const & text, int position)
{
    auto const isHigh = [](WCHAR unit) { return unit >= 0xD800 && unit < 0xDC00; };
    auto const isLow = [](WCHAR unit) { return unit >= 0xDC00 && unit < 0xE000; };
    WCHAR const unit = text[position];
    if (isHigh(unit))
        return !isLow(text[position + 1]); // behind the last unit stands the zero
    return isLow(unit) && (position == 0 || !isHigh(text[position - 1]));
}

bool IsHeld(CString const & text, int position, UINT codePage)
{
    if (codePage == CP_UTF8)
        return !IsLoneSurrogate(text, position);
    return CKrCharFormatter::IsNativeToCodePage(text[position], codePage, nullptr) > 0;
}

bool BeginsEscape(CString const & text, int position)
{
    CString const piece = text.Mid(position, 8);
    return piece[0] == s_backslash && DecodeEscapes(piece).GetLength() < piece.GetLength();
}

std::string NarrowTo(CString const & text, UINT codePage)
{
    std::string bytes(static_cast<std::size_t>(text.GetLength()) * 3, '\0');
    int const count = text.IsEmpty() ? 0
                                     : WideCharToMultiByte(codePage, 0, text, text.GetLength(), bytes.data(),
                                                           static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(count));
    return bytes;
}

} // namespace

UINT CodePageOfWord(std::string_view word)
{
    CString const text = Widen(word, 1252).Trim();
    for (PageWord const & row : s_pageWords)
        if (text.CompareNoCase(row.word) == 0)
            return row.codePage;
    return 0;
}

UINT CodePageOfOption(CString const & text)
{
    for (PageWord const & row : s_pageWords)
    {
        CString number;
        number.Format(OLESTR("%u"), row.codePage);
        if (text == number)
            return row.codePage;
    }
    return CodePageOfWord(Narrow(text));
}

CString Widen(std::string_view bytes, UINT codePage)
{
    int const length = static_cast<int>(bytes.size());
    int const count = length ? MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0) : 0;
    CString text;
    if (count > 0)
        MultiByteToWideChar(codePage, 0, bytes.data(), length, text.GetBufferSetLength(count), count);
    return text;
}

CString OnOneLine(CString const & text)
{
    CString line;
    for (WCHAR const unit : text.View())
    {
        bool const isControl = unit < OLESTR(' ') || (unit >= 0x7F && unit < 0xA0);
        line += isControl ? CString(OLESTR('^')) : CString();
        line += isControl ? static_cast<WCHAR>((unit & 0x1F) + OLESTR('@')) : unit;
    }
    return line;
}

CString Excerpt(std::string_view bytes)
{
    constexpr std::size_t longest = 40;
    CString const text = Widen(bytes.substr(0, longest), 1252).Trim();
    return bytes.size() > longest ? text + OLESTR("...") : text;
}

std::string Narrow(CString const & text) { return NarrowTo(text, CP_UTF8); }

CString WidenArgument(std::string const & argument)
{
    int const length = static_cast<int>(argument.size());
    bool const isUtf8 =
        length == 0 || MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, argument.data(), length, nullptr, 0) > 0;
    return Widen(argument, isUtf8 ? CP_UTF8 : CP_ACP);
}

CString DecodeValue(std::string_view bytes, UINT codePage) { return DecodeEscapes(Widen(bytes, codePage)); }

std::string EncodeValue(CString const & text, UINT codePage)
{
    CString written;
    for (int position = 0; position < text.GetLength(); ++position)
    {
        WCHAR const unit = text[position];
        bool const isPlain = IsHeld(text, position, codePage) && !BeginsEscape(text, position);
        written += isPlain ? CString(unit) : Escape(unit);
    }
    return NarrowTo(written, codePage);
}

CString DecodeControls(CString const & text)
{
    CString decoded;
    for (int position = 0; position < text.GetLength(); ++position)
    {
        WCHAR const next = text[position + 1]; // behind the last unit stands the zero
        if (text[position] == s_caret && (next == OLESTR(' ') || (next > OLESTR('@') && next <= OLESTR('_'))))
        {
            decoded += next == OLESTR(' ') ? s_caret : static_cast<WCHAR>(next - OLESTR('@'));
            ++position;
        }
        else
            decoded += text[position];
    }
    return decoded;
}

CString EncodeControls(CString const & text)
{
    CString encoded;
    for (WCHAR const unit : text.View())
    {
        if (unit < OLESTR(' ') || unit == s_caret)
            encoded += s_caret;
        if (unit != s_caret)
            encoded += unit < OLESTR(' ') ? static_cast<WCHAR>(unit + OLESTR('@')) : unit;
        else
            encoded += OLESTR(' ');
    }
    return encoded;
}

} // namespace layeredit
