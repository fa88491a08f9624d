// One character at a time: formats, byte order marks, code pages.
#include <krcore/text/krcharformatter.h>

#include <krcore/text/krcharescapes.h>
#include <krplatform/codepage/codepage.h>

#include <utility>

namespace
{

struct ByteOrderMark
{
    unsigned int format;
    unsigned int value; ///< the mark's bytes as a little-endian number
    int width;
};

struct MifCodePage
{
    unsigned char index;
    unsigned int codePage;
};

// clang-format off
constexpr ByteOrderMark s_marks[] = {
    { CKrCharFormatter::eCharFormatUtf8,    0x00BFBBEF, 3 },
    { CKrCharFormatter::eCharFormatUtf16LE, 0x0000FEFF, 2 },
    { CKrCharFormatter::eCharFormatUtf16BE, 0x0000FFFE, 2 },
    { CKrCharFormatter::eCharFormatUtf32LE, 0x0000FEFF, 4 },   // Deliberate: never found, its first two bytes are UTF-16
    { CKrCharFormatter::eCharFormatUtf32BE, 0xFFFE0000, 4 },
};

constexpr MifCodePage s_mifCodePages[] = {
    { 1,  932 },   // Japanese
    { 2,  950 },   // Traditional Chinese
    { 3,  949 },   // Korean, Wansung
    { 4, 1361 },   // Korean, Johab
    { 5,  936 },   // Simplified Chinese
};
// clang-format on

constexpr unsigned int MaskOf(int width) { return width == 4 ? 0xFFFFFFFF : (1u << (8 * width)) - 1; }

} // namespace

CKrCharFormatter::CKrCharFormatter() : CKrCharFormatter(eCharFormatAnsi, false, true) {}

CKrCharFormatter::CKrCharFormatter(unsigned int format, bool useCIF, bool expandLF)
    : m_format(format), m_useCIF(useCIF), m_expandLF(expandLF)
{
}

CKrCharFormatter::CKrCharFormatter(CKrCharFormatter const & other) = default;

CKrCharFormatter & CKrCharFormatter::operator=(CKrCharFormatter const & other) = default;

CKrCharFormatter::~CKrCharFormatter() = default;

unsigned int CKrCharFormatter::setFormat(unsigned int format) noexcept
{
    if (format != eCharFormatAnsi)
        m_useCIF = false;
    return std::exchange(m_format, format);
}

bool CKrCharFormatter::setUseCIF(bool useCIF) noexcept { return std::exchange(m_useCIF, useCIF); }

bool CKrCharFormatter::setExpandLF(bool expandLF) noexcept { return std::exchange(m_expandLF, expandLF); }

unsigned int CKrCharFormatter::WcharToBytes(WCHAR character, char * destination, unsigned int size) const
{
    switch (m_format)
    {
    case eCharFormatAnsi:
    case eCharFormatUtf8:
        return WcharToAnsiOrUtf8(character, destination, size, m_format == eCharFormatAnsi, m_useCIF, m_expandLF);
    case eCharFormatUtf16LE:
    case eCharFormatUtf16BE:
        return WcharToUtf16(character, destination, size, m_format == eCharFormatUtf16LE, m_expandLF);
    default:
        return 0;
    }
}

unsigned int CKrCharFormatter::WcharToAnsiOrUtf8(WCHAR character, char * destination, unsigned int size, bool ansi,
                                                 bool useCIF, bool expandLF)
{
    if (size < 2 || !destination)
        return 0;
    if (character < 128)
    {
        if (character == OLESTR('\n') && expandLF)
        {
            destination[0] = '\r';
            destination[1] = '\n';
            return 2;
        }
        destination[0] = static_cast<char>(character);
        return 1;
    }
    if (!ansi)
        return static_cast<unsigned int>(
            WideCharToMultiByte(CP_UTF8, 0, &character, 1, destination, 4, nullptr, nullptr));

    BOOL usedDefault = FALSE;
    int const count = WideCharToMultiByte(CP_ACP, useCIF ? WC_NO_BEST_FIT_CHARS : 0, &character, 1, destination, 2,
                                          nullptr, &usedDefault);
    if (useCIF && usedDefault)
    {
        kr::detail::WriteCifEscape(character, destination);
        return kr::detail::cifLength;
    }
    return static_cast<unsigned int>(count);
}

unsigned int CKrCharFormatter::WcharToUtf16(WCHAR character, char * destination, unsigned int size, bool littleEndian,
                                            bool expandLF)
{
    if (size < 2 || !destination)
        return 0;
    auto const write = [littleEndian, &destination](WCHAR unit)
    {
        char const low = static_cast<char>(unit & 0xFF);
        char const high = static_cast<char>(unit >> 8);
        *destination++ = littleEndian ? low : high;
        *destination++ = littleEndian ? high : low;
    };
    bool const expand = character == OLESTR('\n') && expandLF;
    if (expand)
        write(OLESTR('\r'));
    write(character);
    return expand ? 4 : 2;
}

int CKrCharFormatter::GetBOM(unsigned int & bom, unsigned int format)
{
    for (ByteOrderMark const & mark : s_marks)
    {
        if (mark.format == format)
        {
            bom = mark.value;
            return mark.width;
        }
    }
    return 0;
}

unsigned int CKrCharFormatter::LookupBOM(unsigned int value)
{
    for (ByteOrderMark const & mark : s_marks)
    {
        if ((value & MaskOf(mark.width)) == mark.value)
            return mark.format;
    }
    return eCharFormatUnknown;
}

int CKrCharFormatter::IsNativeToCodePage(WCHAR character, unsigned int codePage, char * out)
{
    char bytes[2];
    int const count = kr::detail::NativeBytes(character, codePage, bytes);
    if (out)
    {
        for (int index = 0; index < count; ++index)
            out[index] = bytes[index];
    }
    return count;
}

bool CKrCharFormatter::IsAnsiString(CString const & text, int codePage)
{
    char bytes[2];
    for (WCHAR const character : text.View())
    {
        if (kr::detail::NativeBytes(character, static_cast<unsigned int>(codePage), bytes) == 0)
            return false;
    }
    return true;
}

unsigned char CKrCharFormatter::MIFIndexFromWinCodePage(unsigned int codePage)
{
    for (MifCodePage const & row : s_mifCodePages)
    {
        if (row.codePage == codePage)
            return row.index;
    }
    return 0;
}

unsigned int CKrCharFormatter::WinCodePageFromMIFIndex(unsigned int index)
{
    for (MifCodePage const & row : s_mifCodePages)
    {
        if (row.index == index)
            return row.codePage;
    }
    return 0;
}

unsigned int CKrCharFormatter::WcsLength(WCHAR const * text)
{
    return text ? static_cast<unsigned int>(kr::detail::TextView(text).size()) : 0;
}
