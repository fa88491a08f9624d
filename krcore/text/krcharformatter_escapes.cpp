// Whole texts to and from the CIF, MIF and RTF escapes.
#include <krcore/text/krcharformatter.h>

#include <krcore/text/krcharescapes.h>
#include <krplatform/codepage/codepage.h>
#include <krplatform/codepage/nativeunits.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>
#include <optional>

namespace kr::detail
{

int NativeBytes(WCHAR character, unsigned int codePage, char (&bytes)[2])
{
    if (character < 128)
    {
        bytes[0] = static_cast<char>(character);
        return 1;
    }
    BOOL usedDefault = FALSE;
    int const count =
        WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &character, 1, bytes, 2, nullptr, &usedDefault);
    return usedDefault ? 0 : count;
}

} // namespace kr::detail

namespace
{

struct Escape
{
    WCHAR character;
    int length;
};

// The value of four hexadecimal digits in either case, or nothing; stops at the first that is none, so never behind a terminator.
std::optional<unsigned int> ReadFourDigits(WCHAR const * text)
{
    unsigned int value = 0;
    for (int index = 0; index < 4; ++index)
    {
        WCHAR const digit = text[index];
        unsigned int const lower = digit | 0x20u;
        if (digit >= OLESTR('0') && digit <= OLESTR('9'))
            value = value * 16 + (digit - OLESTR('0'));
        else if (lower >= 'a' && lower <= 'f')
            value = value * 16 + (lower - 'a' + 10);
        else
            return std::nullopt;
    }
    return value;
}

std::optional<Escape> ReadCif(WCHAR const * text)
{
    if (text[0] != OLESTR('\\') || text[1] != OLESTR('U') || text[2] != OLESTR('+'))
        return std::nullopt;
    std::optional<unsigned int> const unit = ReadFourDigits(text + 3);
    if (!unit)
        return std::nullopt;
    return Escape{static_cast<WCHAR>(*unit), kr::detail::cifLength};
}

std::optional<Escape> ReadMif(WCHAR const * text)
{
    if (text[0] != OLESTR('\\') || text[1] != OLESTR('M') || text[2] != OLESTR('+'))
        return std::nullopt;
    unsigned int const codePage =
        CKrCharFormatter::WinCodePageFromMIFIndex(static_cast<unsigned int>(text[3] - OLESTR('0')));
    if (codePage == 0)
        return std::nullopt;
    std::optional<unsigned int> const value = ReadFourDigits(text + 4);
    if (!value)
        return std::nullopt;

    char const first = static_cast<char>(*value >> 8);
    char const second = static_cast<char>(*value & 0xFF);
    char const bytes[] = {first ? first : second, second};
    int const count = first && second ? 2 : 1;
    WCHAR character = 0;
    if (MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes, count, &character, 1) != 1)
        return std::nullopt;
    return Escape{character, kr::detail::mifLength};
}

// The bytes that stand for one character in RTF: itself, its form in the code page, or an escape.
int RtfPiece(WCHAR character, unsigned int codePage, char (&piece)[8])
{
    char bytes[2];
    int const count = kr::detail::NativeBytes(character, codePage, bytes);
    if (count > 0)
    {
        piece[0] = bytes[0];
        if (count == 2)
            piece[1] = bytes[1];
        return count;
    }
    piece[0] = '\\';
    piece[1] = 'u';
    char * const end = std::to_chars(piece + 2, piece + 7, static_cast<unsigned int>(character)).ptr;
    *end = '?';
    return static_cast<int>(end + 1 - piece);
}

} // namespace

int CKrCharFormatter::WcharFromCIFMIF(WCHAR const * source, WCHAR * destination, int count)
{
    if (!source || (destination ? count <= 0 : count > 0))
        return 0;
    bool const inPlace = !destination && count < 0;
    bool const limited = destination != nullptr;
    if (inPlace)
        destination = const_cast<WCHAR *>(source);

    for (int produced = 0;;)
    {
        if (limited && produced == count)
            return produced;
        Escape next = {*source, 1};
        if (next.character == OLESTR('\\'))
        {
            if (std::optional<Escape> const cif = ReadCif(source))
                next = *cif;
            else if (std::optional<Escape> const mif = ReadMif(source))
                next = *mif;
        }
        bool const isEnd = *source == 0;
        source += next.length;
        if (destination)
            destination[produced] = next.character;
        ++produced;
        if (isEnd)
            return produced;
    }
}

int CKrCharFormatter::WcharNonNativeToCIF(WCHAR const * source, WCHAR * destination, int count)
{
    if (!source || (destination && count < 1))
        return 0;
    unsigned int const codePage = GetACP();
    auto const room = static_cast<std::size_t>((destination ? count : std::numeric_limits<int>::max()) - 1);
    std::size_t produced = 0;
    for (;;)
    {
        std::size_t const native = kr::detail::CountNativeUnits(codePage, source, room - produced);
        if (destination)
            std::copy_n(source, native, destination + produced);
        produced += native;
        source += native;
        if (room - produced < kr::detail::cifLength || *source == 0)
            break;
        if (destination)
            kr::detail::WriteCifEscape(*source, destination + produced);
        produced += kr::detail::cifLength;
        ++source;
    }
    if (destination)
        destination[produced] = 0;
    return static_cast<int>(produced) + 1;
}

int CKrCharFormatter::WcharNonNativeToRTF(unsigned int codePage, WCHAR const * source, int sourceCount,
                                          char * destination, int * destinationCount)
{
    if (!source || !destinationCount || sourceCount < -1 || (destination && *destinationCount < 1))
        return 0;
    int const room = *destinationCount;
    int consumed = 0;
    int produced = 0;
    while (sourceCount < 0 ? source[consumed] != 0 : consumed < sourceCount)
    {
        char piece[8];
        int const length = RtfPiece(source[consumed], codePage, piece);
        if (destination)
        {
            if (produced + length >= room)
                break;
            if (length == 1) // most are, and need no call
                destination[produced] = piece[0];
            else
                std::memcpy(destination + produced, piece, static_cast<std::size_t>(length));
        }
        produced += length;
        ++consumed;
    }
    if (sourceCount < 0)
    {
        if (destination)
            destination[produced] = 0;
        ++produced;
    }
    *destinationCount = produced;
    return consumed;
}
