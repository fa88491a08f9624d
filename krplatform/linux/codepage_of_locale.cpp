#include <krplatform/linux/codepage_of_locale.h>

#include <algorithm>

namespace kr::detail
{

namespace
{

struct CodesetRow
{
    std::string_view codeset; ///< capitals and digits only
    UINT codePage;
};

struct LanguageRow
{
    std::string_view language;
    std::string_view territory; ///< empty: any
    std::string_view modifier;  ///< empty: any
    UINT codePage;
};

// clang-format off

// A codeset stands for the ANSI code page of its letters.
constexpr CodesetRow s_codesets[] = {
    { "UTF8",         65001 },
    { "ANSIX341968",   1252 },
    { "ASCII",         1252 },
    { "USASCII",       1252 },
    { "ISO88591",      1252 },
    { "ISO885914",     1252 },
    { "ISO885915",     1252 },
    { "ISO88592",      1250 },
    { "ISO885916",     1250 },
    { "ISO88595",      1251 },
    { "KOI8R",         1251 },
    { "KOI8U",         1251 },
    { "KOI8T",         1251 },
    { "RK1048",        1251 },
    { "PT154",         1251 },
    { "ISO88597",      1253 },
    { "ISO88599",      1254 },
    { "ISO88598",      1255 },
    { "ISO88596",      1256 },
    { "ISO88594",      1257 },
    { "ISO885910",     1257 },
    { "ISO885913",     1257 },
    { "TCVN",          1258 },
    { "TCVN57121",     1258 },
    { "VISCII",        1258 },
    { "TIS620",         874 },
    { "ISO885911",      874 },
    { "SJIS",           932 },
    { "SHIFTJIS",       932 },
    { "WINDOWS31J",     932 },
    { "EUCJP",          932 },
    { "UJIS",           932 },
    { "GBK",            936 },
    { "GB2312",         936 },
    { "GB18030",        936 },
    { "EUCCN",          936 },
    { "EUCKR",          949 },
    { "UHC",            949 },
    { "JOHAB",         1361 },
    { "BIG5",           950 },
    { "BIG5HKSCS",      950 },
    { "EUCTW",          950 },
};

// These go by their numbers: CP1250, WINDOWS-1250.
constexpr UINT s_numbered[] = { 874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 1361,
                                65001 };

// The first row that fits counts. The system has no ANSI code page for languages with 65001.
constexpr LanguageRow s_languages[] = {
    { "az", "",   "cyrillic", 1251 }, { "az", "",   "",         1254 },
    { "bs", "",   "cyrillic", 1251 }, { "bs", "",   "",         1250 },
    { "sr", "",   "latin",    1250 }, { "sr", "",   "",         1251 },
    { "uz", "",   "cyrillic", 1251 }, { "uz", "",   "",         1254 },
    { "tt", "",   "iqtelif",  1254 }, { "tt", "",   "",         1251 },
    { "be", "",   "latin",    1250 }, { "be", "",   "",         1251 },
    { "ks", "",   "devanagari", 65001 }, { "ks", "", "",        1256 },
    { "sd", "",   "devanagari", 65001 }, { "sd", "", "",        1256 },
    { "pa", "PK", "",         1256 }, { "pa", "",   "",        65001 },
    { "zh", "TW", "",          950 }, { "zh", "HK", "",          950 }, { "zh", "MO", "",  950 },
    { "zh", "",   "",          936 },
    { "yue", "",  "",          950 }, { "nan", "",  "",          950 }, { "cmn", "TW", "", 950 },
    { "cmn", "",  "",          936 },
    { "ja", "",   "",          932 }, { "ko", "",   "",          949 }, { "th", "", "",    874 },

    { "cs", "",   "",         1250 }, { "hr", "",   "",         1250 }, { "hu", "", "",   1250 },
    { "pl", "",   "",         1250 }, { "ro", "",   "",         1250 }, { "sk", "", "",   1250 },
    { "sl", "",   "",         1250 }, { "sq", "",   "",         1250 }, { "tk", "", "",   1250 },
    { "csb", "",  "",         1250 }, { "szl", "",  "",         1250 },

    { "ba", "",   "",         1251 }, { "bg", "",   "",         1251 }, { "ce", "", "",   1251 },
    { "cv", "",   "",         1251 }, { "kk", "",   "",         1251 }, { "ky", "", "",   1251 },
    { "mk", "",   "",         1251 }, { "mn", "",   "",         1251 }, { "os", "", "",   1251 },
    { "ru", "",   "",         1251 }, { "rue", "",  "",         1251 }, { "sah", "", "",  1251 },
    { "tg", "",   "",         1251 }, { "uk", "",   "",         1251 }, { "mhr", "", "",  1251 },

    { "el", "",   "",         1253 },
    { "tr", "",   "",         1254 }, { "ku", "",   "",         1254 }, { "crh", "", "",  1254 },
    { "he", "",   "",         1255 }, { "iw", "",   "",         1255 }, { "yi", "", "",   1255 },
    { "ar", "",   "",         1256 }, { "ckb", "",  "",         1256 }, { "fa", "", "",   1256 },
    { "ps", "",   "",         1256 }, { "ug", "",   "",         1256 }, { "ur", "", "",   1256 },
    { "et", "",   "",         1257 }, { "lt", "",   "",         1257 }, { "lv", "", "",   1257 },
    { "ltg", "",  "",         1257 }, { "sgs", "",  "",         1257 },
    { "vi", "",   "",         1258 },

    { "am", "",   "",        65001 }, { "as", "",   "",        65001 }, { "bn", "", "",  65001 },
    { "bo", "",   "",        65001 }, { "dv", "",   "",        65001 }, { "dz", "", "",  65001 },
    { "gu", "",   "",        65001 }, { "hi", "",   "",        65001 }, { "hy", "", "",  65001 },
    { "ka", "",   "",        65001 }, { "km", "",   "",        65001 }, { "kn", "", "",  65001 },
    { "kok", "",  "",        65001 }, { "lo", "",   "",        65001 }, { "mi", "", "",  65001 },
    { "ml", "",   "",        65001 }, { "mr", "",   "",        65001 }, { "mt", "", "",  65001 },
    { "my", "",   "",        65001 }, { "ne", "",   "",        65001 }, { "or", "", "",  65001 },
    { "sa", "",   "",        65001 }, { "si", "",   "",        65001 }, { "ta", "", "",  65001 },
    { "te", "",   "",        65001 }, { "ti", "",   "",        65001 },
};

// clang-format on

constexpr UINT s_westernEurope = 1252;

struct LocaleName
{
    std::string_view language;
    std::string_view territory;
    std::string_view codeset;
    std::string_view modifier;
};

/// Takes the part from the first `mark` on off the end of `text`, and gives what is behind it.
std::string_view TakePartBehind(std::string_view & text, char mark)
{
    std::size_t const position = text.find(mark);
    if (position == std::string_view::npos)
        return {};
    std::string_view const part = text.substr(position + 1);
    text = text.substr(0, position);
    return part;
}

LocaleName ParseLocaleName(std::string_view text)
{
    LocaleName name;
    name.modifier = TakePartBehind(text, '@');
    name.codeset = TakePartBehind(text, '.');
    name.territory = TakePartBehind(text, '_');
    name.language = text;
    return name;
}

constexpr bool IsDigit(char character) { return character >= '0' && character <= '9'; }

constexpr char ToCapital(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

constexpr bool IsLetterOrDigit(char character)
{
    char const capital = ToCapital(character);
    return IsDigit(capital) || (capital >= 'A' && capital <= 'Z');
}

/// The codeset's letters as capitals and its digits, without the marks between them: `iso-8859-1` is ISO88591.
class CodesetName
{
public:
    explicit CodesetName(std::string_view codeset)
    {
        for (char const character : codeset)
            if (IsLetterOrDigit(character) && m_length < sizeof m_text)
                m_text[m_length++] = ToCapital(character);
    }

    std::string_view View() const { return {m_text, m_length}; }

private:
    char m_text[24];
    std::size_t m_length = 0;
};

/// The number behind one of the words that go before the number of a code page; 0 without any.
UINT NumberOf(std::string_view codeset)
{
    for (std::string_view const word : {"CP", "WINDOWS", "IBM", "MS"})
    {
        std::string_view const digits = codeset.substr(std::min(codeset.size(), word.size()));
        if (!codeset.starts_with(word) || digits.size() > 5 || !std::all_of(digits.begin(), digits.end(), IsDigit))
            continue;
        UINT number = 0;
        for (char const digit : digits)
            number = number * 10 + static_cast<UINT>(digit - '0');
        return number;
    }
    return 0;
}

/// 0 for an unknown codeset.
UINT CodePageOfCodeset(std::string_view codeset)
{
    CodesetName const name(codeset);
    for (CodesetRow const & row : s_codesets)
        if (row.codeset == name.View())
            return row.codePage;
    UINT const number = NumberOf(name.View());
    return std::find(std::begin(s_numbered), std::end(s_numbered), number) != std::end(s_numbered) ? number : 0;
}

UINT CodePageOfLanguage(LocaleName const & name)
{
    for (LanguageRow const & row : s_languages)
        if (row.language == name.language && (row.territory.empty() || row.territory == name.territory) &&
            (row.modifier.empty() || row.modifier == name.modifier))
            return row.codePage;
    return s_westernEurope;
}

} // namespace

UINT CodePageOfLocale(std::string_view name)
{
    LocaleName const parts = ParseLocaleName(name);
    UINT const codePage = CodePageOfCodeset(parts.codeset);
    return codePage != 0 ? codePage : CodePageOfLanguage(parts);
}

} // namespace kr::detail
