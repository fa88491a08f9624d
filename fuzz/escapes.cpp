// The escapes of CAD texts: the choice of the process code page, of another and of a room, then a text.
#include "fuzz/fuzz_target.h"

#include <krcore/text/krcharformatter.h>
#include <krplatform/codepage/codepage.h>

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iterator>
#include <vector>

namespace kr::fuzz
{

namespace
{

/// The process code page is that of the user's language.
class Language
{
public:
    explicit Language(char const * name) : m_before(std::getenv("LANG")) { setenv("LANG", name, 1); }
    ~Language() { setenv("LANG", m_before.c_str(), 1); }
    Language(Language const &) = delete;
    Language & operator=(Language const &) = delete;

private:
    std::string m_before;
};

constexpr char const * languages[] = {"en_US.UTF-8", "de_DE.CP1252", "ja_JP.SJIS", "ko_KR.eucKR", "zh_TW.BIG5"};
constexpr UINT codePages[] = {1252, 932, 936, 949, 950, 1361, 1250, 1251, 65001, 850};

Units CodePageText(UINT codePage, std::string_view bytes)
{
    Units text(bytes.size() + 1, 0);
    int const count = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), static_cast<int>(bytes.size()),
                                          text.data(), static_cast<int>(text.size()));
    return text.substr(0, static_cast<std::size_t>(count));
}

/// The number of four hexadecimal digits; -1 for anything else.
int FourDigits(Units const & text)
{
    bool const areDigits =
        text.size() == 4 &&
        std::ranges::all_of(text,
                            [](WCHAR unit) { return unit < 0x80 && std::isxdigit(static_cast<unsigned char>(unit)); });
    return areDigits ? static_cast<int>(std::strtol(std::string(text.begin(), text.end()).c_str(), nullptr, 16)) : -1;
}

Units SlowlyDecoded(Units const & text)
{
    constexpr UINT mifPages[] = {932, 950, 949, 1361, 936};
    Units decoded;
    for (std::size_t index = 0; index < text.size();)
    {
        int const cif = FourDigits(text.substr(std::min(index + 3, text.size()), 4));
        int const mif = FourDigits(text.substr(std::min(index + 4, text.size()), 4));
        unsigned const page = index + 3 < text.size() ? text[index + 3] - unsigned{'1'} : 5u;
        Units character;
        if (text.compare(index, 3, OLESTR("\\M+")) == 0 && page < 5 && mif >= 0)
        {
            char const bytes[] = {static_cast<char>(mif >> 8), static_cast<char>(mif & 0xFF)};
            bool const isPair = bytes[0] != 0 && bytes[1] != 0;
            char const single = bytes[0] != 0 ? bytes[0] : bytes[1];
            character =
                CodePageText(mifPages[page], isPair ? std::string_view(bytes, 2) : std::string_view(&single, 1));
        }
        if (text.compare(index, 3, OLESTR("\\U+")) == 0 && cif >= 0)
        {
            decoded += static_cast<WCHAR>(cif);
            index += 7;
        }
        else if (character.size() == 1)
        {
            decoded += character;
            index += 8;
        }
        else
            decoded += text[index++];
    }
    return decoded;
}

/// Calls a function that writes `room` units, with exactly so many, and cuts what it wrote off.
template <class Work>
Units Written(int room, Work const & work)
{
    std::vector<WCHAR> buffer(static_cast<std::size_t>(room), 0x5555);
    int const count = work(buffer.data(), room);
    KR_LAW(count <= room);
    return {buffer.begin(), buffer.begin() + count};
}

Units Decoded(Units const & text)
{
    int const needed = CKrCharFormatter::WcharFromCIFMIF(text.c_str(), nullptr, 0);
    Units const decoded = Written(needed, [&](WCHAR * destination, int count)
                                  { return CKrCharFormatter::WcharFromCIFMIF(text.c_str(), destination, count); });
    KR_LAW(decoded.size() == static_cast<std::size_t>(needed) && decoded.back() == 0);
    return decoded.substr(0, decoded.size() - 1);
}

Units Encoded(Units const & text, int room)
{
    return Written(room, [&](WCHAR * destination, int count)
                   { return CKrCharFormatter::WcharNonNativeToCIF(text.c_str(), destination, count); });
}

bool BeginsWith(Units const & whole, Units const & beginning)
{
    return whole.compare(0, beginning.size(), beginning) == 0;
}

void CheckDecoding(Units const & text, int room)
{
    Units const decoded = Decoded(text);
    KR_LAW(decoded == SlowlyDecoded(text));

    Units const beginning = Written(room, [&](WCHAR * destination, int count)
                                    { return CKrCharFormatter::WcharFromCIFMIF(text.c_str(), destination, count); });
    KR_LAW(BeginsWith(decoded + WCHAR(), beginning));

    std::vector<WCHAR> inPlace(text.c_str(), text.c_str() + text.size() + 1);
    int const count = CKrCharFormatter::WcharFromCIFMIF(inPlace.data(), nullptr, -1);
    KR_LAW(Units(inPlace.data(), static_cast<std::size_t>(count)) == decoded + WCHAR());
}

void CheckCif(Units const & text, int room)
{
    int const needed = CKrCharFormatter::WcharNonNativeToCIF(text.c_str(), nullptr, 0);
    Units const encoded = Encoded(text, needed);
    KR_LAW(encoded.size() == static_cast<std::size_t>(needed) && encoded.back() == 0);
    KR_LAW(CKrCharFormatter::IsAnsiString(CString(encoded.c_str()), static_cast<int>(GetACP())));
    KR_LAW(Decoded(encoded.c_str()) == Decoded(text));

    Units const beginning = Encoded(text, room);
    KR_LAW(beginning.back() == 0 && BeginsWith(encoded, beginning.substr(0, beginning.size() - 1)));
}

std::string Rtf(UINT codePage, Units const & text, int sourceCount, int room, int & consumed)
{
    std::vector<char> buffer(static_cast<std::size_t>(room), 0x55);
    int count = room;
    consumed = CKrCharFormatter::WcharNonNativeToRTF(codePage, text.data(), sourceCount, buffer.data(), &count);
    KR_LAW(count <= room);
    return {buffer.begin(), buffer.begin() + count};
}

/// The text of what has no backslash but those of escapes.
Units RtfText(UINT codePage, std::string_view bytes)
{
    Units text;
    while (!bytes.empty())
    {
        std::size_t const plain = std::min(bytes.find("\\u"), bytes.size());
        if (plain != 0)
            text += CodePageText(codePage, bytes.substr(0, plain));
        bytes.remove_prefix(plain);
        if (bytes.empty())
            break;
        std::size_t const end = bytes.find('?');
        text += static_cast<WCHAR>(std::atoi(std::string(bytes.substr(2, end - 2)).c_str()));
        bytes.remove_prefix(end + 1);
    }
    return text;
}

void CheckRtf(UINT codePage, Units const & text, int room)
{
    int const length = static_cast<int>(text.size());
    int needed = 0;
    KR_LAW(CKrCharFormatter::WcharNonNativeToRTF(codePage, text.data(), length, nullptr, &needed) == length);
    int consumed = 0;
    std::string const bytes = Rtf(codePage, text, length, needed + 1, consumed);
    KR_LAW(consumed == length && bytes.size() == static_cast<std::size_t>(needed));
    if (text.find(WCHAR()) == Units::npos)
        KR_LAW(Rtf(codePage, text, -1, needed + 1, consumed) == bytes + '\0' && consumed == length);

    bool const hasBackslash = text.find('\\') != Units::npos || bytes.find("\\u") != bytes.find('\\');
    if (!hasBackslash)
        KR_LAW(RtfText(codePage, bytes) == text);

    // what did not fit goes on where it stopped
    std::string pieces = Rtf(codePage, text, length, room, consumed);
    KR_LAW(bytes.compare(0, pieces.size(), pieces) == 0 && pieces.size() < static_cast<std::size_t>(room));
    int rest = 0;
    pieces += Rtf(codePage, text.substr(static_cast<std::size_t>(consumed)), length - consumed, needed + 1, rest);
    KR_LAW(pieces == bytes && consumed + rest == length);
}

void CheckCharacter(WCHAR character)
{
    char bytes[7];
    CKrCharFormatter formatter(CKrCharFormatter::eCharFormatUtf8, false, false);
    unsigned const utf8Count = formatter.WcharToBytes(character, bytes, 4);
    bool const isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    KR_LAW(CodePageText(CP_UTF8, {bytes, utf8Count}) == Units(1, isSurrogate ? WCHAR(0xFFFD) : character));

    unsigned const native = static_cast<unsigned>(CKrCharFormatter::IsNativeToCodePage(character, CP_ACP, bytes));
    KR_LAW(native == 0 || CodePageText(CP_ACP, {bytes, native}) == Units(1, character));

    formatter.setFormat(CKrCharFormatter::eCharFormatUtf16BE);
    KR_LAW(formatter.WcharToBytes(character, bytes, 2) == 2);
    KR_LAW(static_cast<unsigned char>(bytes[0]) * 256 + static_cast<unsigned char>(bytes[1]) == character);
}

} // namespace

void CheckLaws(FuzzInput input)
{
    Language const language(languages[input.Below(static_cast<unsigned>(std::size(languages)))]);
    UINT const codePage = codePages[input.Below(static_cast<unsigned>(std::size(codePages)))];
    int const room = 1 + static_cast<int>(input.Below(64));
    Units text = input.TextRest();
    CheckRtf(codePage, text, room);
    for (WCHAR const character : text)
        CheckCharacter(character);

    text = text.c_str(); // the other directions end at a zero
    CheckDecoding(text, room);
    CheckCif(text, room);
}

} // namespace kr::fuzz
