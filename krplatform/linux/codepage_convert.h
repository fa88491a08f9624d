// Conversion of text by the tables of a code page, and to and from UTF-8.
#pragma once

#include <krplatform/linux/codepage_table.h>

#include <string_view>

namespace kr::detail
{

/// Where converted text goes: `room` places, or with a room of 0 nowhere, and it is only counted.
template <class Char>
struct Destination
{
    Char * buffer;
    std::size_t room;
};

/// How many places were filled, or are needed. An error other than ERROR_SUCCESS leaves what was written before it:
/// ERROR_INSUFFICIENT_BUFFER, or ERROR_NO_UNICODE_TRANSLATION for text that the caller wanted to be valid and is not.
struct Conversion
{
    std::size_t count;
    DWORD error;
};

/// What takes the place of a unit without bytes, and whether look-alikes may go before it.
struct Substitution
{
    bool exactOnly;
    CharacterBytes bytes;
};

/// The bytes for a unit; `noBytes` where the substitute must take its place.
inline CharacterBytes BytesFor(WCHAR unit, CodePageTable const & table, Substitution substitution)
{
    return substitution.exactOnly ? table.ExactBytesOf(unit) : table.BytesOf(unit);
}

/// Writes one character into sufficient room. The number of its bytes.
inline int PutCharacter(char * room, CharacterBytes bytes)
{
    if (bytes < 0x100)
    {
        room[0] = static_cast<char>(bytes);
        return 1;
    }
    room[0] = static_cast<char>(bytes >> 8);
    room[1] = static_cast<char>(bytes);
    return 2;
}

struct DecodedCharacter
{
    WCHAR unit;
    std::size_t size; ///< bytes
    bool isValid;
};

/// A private unit stands for a byte that the page leaves undefined.
inline bool StandsForUndefinedByte(WCHAR unit) { return unit >= 0xF880 && unit < 0xF8FF; }

/// The first character of `bytes`, which are not empty; the page's default unit where they have none.
inline DecodedCharacter DecodeCharacter(CodePageTable const & table, std::string_view bytes)
{
    auto const first = static_cast<BYTE>(bytes[0]);
    bool const isLead = table.IsLead(first);
    if (isLead && (bytes.size() == 1 || bytes[1] == 0)) // a zero that ends the text is never swallowed
        return {table.GetDefaultUnit(), 1, false};
    WCHAR const unit = table.UnitOf(isLead ? TwoBytes(first, static_cast<BYTE>(bytes[1])) : first);
    std::size_t const size = isLead ? 2 : 1;
    if (unit == noUnit)
        return {table.GetDefaultUnit(), size, false};
    return {unit, size, isLead || !StandsForUndefinedByte(unit)};
}

/// `usedDefault` becomes true when the substitute is used.
Conversion NarrowText(CodePageTable const & table, Substitution substitution, TextView text,
                      Destination<char> destination, bool & usedDefault);

/// `validOnly`: bytes without a unit are an error; else the page's default unit takes their place.
Conversion WidenBytes(CodePageTable const & table, bool validOnly, std::string_view bytes,
                      Destination<WCHAR> destination);

/// A lone surrogate is an error with `validOnly`, else it becomes U+FFFD and sets `usedDefault`.
Conversion NarrowToUtf8(bool validOnly, TextView text, Destination<char> destination, bool & usedDefault);

/// Each longest beginning of a character that does not go on as one, and each byte that begins none, is an error with
/// `validOnly`, else U+FFFD. Deliberate: at the very end of the text a pair of surrogates for which there is one place
/// only is cut, without an error.
Conversion WidenUtf8(bool validOnly, std::string_view bytes, Destination<WCHAR> destination);

} // namespace kr::detail
