// Single characters in the encodings of text files, and the escapes of CAD texts.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

/// Writes characters one by one in an output format, and converts whole texts to and from the escapes by which CAD drawings carry
/// what their code page cannot: CIF `\U+XXXX` (one code unit) and MIF `\M+nXXXX` (one character of a double-byte code page).
///
///     char bytes[7];
///     CKrCharFormatter(CKrCharFormatter::eCharFormatAnsi, true, true).WcharToBytes(0x20AC, bytes, 7)
///                                                              -> 1 under code page 1252, the byte 80
///     WCHAR text[8];
///     CKrCharFormatter::WcharFromCIFMIF(OLESTR("\\U+00E4"), text, 8)      -> 2: "ä" and the terminator
///
/// "Native to a code page" is a character whose bytes there decode back to it, best fits excluded; those up to 127 always are.
/// Nothing here throws or reports: bad arguments give 0, what cannot be written is escaped, replaced or left out as told.
class KRCORE_API CKrCharFormatter
{
public:
    /// Output formats, passed as plain numbers. The two of 32 bits exist for byte order marks only.
    enum ECharFormat : unsigned int
    {
        eCharFormatUnknown = 0,
        eCharFormatAnsi = 1,
        eCharFormatUtf8 = 2,
        eCharFormatUtf16LE = 3,
        eCharFormatUtf16BE = 4,
        eCharFormatUtf32LE = 5,
        eCharFormatUtf32BE = 6
    };

    /// ANSI, without CIF escapes, line feeds expanded.
    CKrCharFormatter();
    CKrCharFormatter(unsigned int format, bool useCIF, bool expandLF);
    CKrCharFormatter(CKrCharFormatter const & other);
    CKrCharFormatter & operator=(CKrCharFormatter const & other);
    virtual ~CKrCharFormatter();

    unsigned int getFormat() const noexcept { return m_format; }
    /// Returns the old format. Any format but ANSI also switches CIF escapes off.
    unsigned int setFormat(unsigned int format) noexcept;
    bool getUseCIF() const noexcept { return m_useCIF; }
    bool getExpandLF() const noexcept { return m_expandLF; }
    /// Both return the old value. Deliberate: the format is not looked at.
    bool setUseCIF(bool useCIF) noexcept;
    bool setExpandLF(bool expandLF) noexcept;

    /// Writes one character and returns the bytes written; 0 for a format that has no characters.
    unsigned int WcharToBytes(WCHAR character, char * destination, unsigned int size) const;

    /// One character in the system code page (`ansi`) or UTF-8. With `useCIF` what is not native to the code page becomes a CIF escape
    /// of 7 bytes; without, its best fit or the default character. With `expandLF` a line feed is 13, 10. Returns the bytes
    /// written. Deliberate: only a `size` below 2 is refused; give 4 for UTF-8 and 7 for CIF. Deliberate: an ANSI form has the room of two
    /// bytes, so that under a process code page of 65001 what takes three gives 0, with CIF escapes too.
    static unsigned int WcharToAnsiOrUtf8(WCHAR character, char * destination, unsigned int size, bool ansi,
                                          bool useCIF, bool expandLF);
    /// One code unit in two bytes, or a line feed in four. Deliberate: the room for four is not tested.
    static unsigned int WcharToUtf16(WCHAR character, char * destination, unsigned int size, bool littleEndian,
                                     bool expandLF);

    /// Stores the mark of a format, its bytes read as a little-endian number, and returns its width; 0, and `bom` untouched, for formats
    /// without one.
    static int GetBOM(unsigned int & bom, unsigned int format);
    /// The format whose mark the first four bytes of a file begin with. Deliberate: FF FE 00 00 is answered with UTF-16.
    static unsigned int LookupBOM(unsigned int value);

    /// The number of bytes of the exact form, which are stored in `out` (room for two) if that is not null; 0 if there is none, and
    /// for the forms of three bytes in 65001.
    static int IsNativeToCodePage(WCHAR character, unsigned int codePage, char * out);
    static bool IsAnsiString(CString const & text, int codePage);

    /// MIF index 1 to 5 of code pages 932, 950, 949, 1361, 936, and back; 0 for any other.
    static unsigned char MIFIndexFromWinCodePage(unsigned int codePage);
    static unsigned int WinCodePageFromMIFIndex(unsigned int index);

    /// Characters before the terminator; 0 for null.
    static unsigned int WcsLength(WCHAR const * text);

    /// Decodes both escapes of a terminated text into `destination`, which has room for `count` characters, and returns the characters
    /// produced, the terminator included when it was reached: a text that fills the room has none. A malformed escape stays as
    /// it is. With a null `destination`, a `count` of 0 only counts, and a negative one decodes in place in `source`, which
    /// must then be writable. Other arguments of no use give 0.
    static int WcharFromCIFMIF(WCHAR const * source, WCHAR * destination, int count);
    /// Encodes what is not native to the system code page as CIF escapes, and terminates. Returns the characters written, the
    /// terminator included; with a null `destination` those needed. An escape that does not fit whole ends the text.
    static int WcharNonNativeToCIF(WCHAR const * source, WCHAR * destination, int count);
    /// Narrows to a code page, with RTF escapes (`\u8364?`) for what is not native to it; backslashes and braces stay. `sourceCount` is -1
    /// for a terminated text. `*destinationCount` holds the room on entry and the bytes produced on return, a terminator
    /// included for a terminated text; with a null `destination` the bytes needed. One byte always stays free for the
    /// terminator. Returns the characters consumed.
    static int WcharNonNativeToRTF(unsigned int codePage, WCHAR const * source, int sourceCount, char * destination,
                                   int * destinationCount);

private:
    unsigned int m_format;
    bool m_useCIF;
    bool m_expandLF;
};
