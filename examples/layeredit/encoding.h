// The texts of drawings: their code pages and their escapes.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/text/cstring.h>

#include <string>
#include <string_view>

namespace layeredit
{

/// The code page of a word that drawings use, in any case; 0 for an unknown one.
UINT CodePageOfWord(std::string_view word);

/// The code page of such a word or of its number.
UINT CodePageOfOption(CString const & text);

/// The bytes as they stand, without a look at escapes. What is no character becomes the code page's default one.
CString Widen(std::string_view bytes, UINT codePage);

/// The text with control signs as `^` and a letter, so that it keeps to its line and tells a terminal nothing.
CString OnOneLine(CString const & text);

/// The beginning of a piece of a file, for a message.
CString Excerpt(std::string_view bytes);

/// UTF-8.
std::string Narrow(CString const & text);

/// What the user typed: UTF-8, or where it is not that, text of the process code page.
CString WidenArgument(std::string const & argument);

/// The text of a value: first decoded, and only then looked through for `\U+XXXX` and `\M+nXXXX`, since the second byte of a
/// character may be a backslash.
CString DecodeValue(std::string_view bytes, UINT codePage);

/// The bytes of a value that `DecodeValue` reads back: characters that the code page lacks as `\U+XXXX`, and a backslash that would
/// begin an escape too.
std::string EncodeValue(CString const & text, UINT codePage);

/// Control signs are carried in values as `^` and a letter, and `^` itself as `^` and a blank.
CString DecodeControls(CString const & text);
CString EncodeControls(CString const & text);

} // namespace layeredit
