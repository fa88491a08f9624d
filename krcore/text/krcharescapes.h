// The written form of the escapes, shared by the sources of the character formatter.
#pragma once

#include <krplatform/base/types.h>

namespace kr::detail
{

/// Characters of `\U+XXXX` and `\M+nXXXX`.
constexpr int cifLength = 7;
constexpr int mifLength = 8;

/// The bytes of a character's exact form in the code page, at most two; 0 if it has none. Characters up to 127 always have one.
int NativeBytes(WCHAR character, unsigned int codePage, char (&bytes)[2]);

/// Writes the seven characters of `\U+XXXX`, with upper-case digits and without a terminator.
template <class Char>
void WriteCifEscape(WCHAR character, Char * destination)
{
    constexpr char digits[] = "0123456789ABCDEF";
    *destination++ = Char('\\');
    *destination++ = Char('U');
    *destination++ = Char('+');
    for (int shift = 12; shift >= 0; shift -= 4)
        *destination++ = Char(digits[(character >> shift) & 0xF]);
}

} // namespace kr::detail
