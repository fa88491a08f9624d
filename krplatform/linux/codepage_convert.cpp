#include <krplatform/base/hresult.h>
#include <krplatform/linux/codepage_convert.h>
#include <krplatform/linux/codepage_output.h>

namespace kr::detail
{

namespace
{

template <class Output>
bool PutBytes(Output & output, CharacterBytes bytes)
{
    char room[2];
    return PutCharacter(room, bytes) == 1 ? output.Put(room[0]) : output.Put({room[0], room[1]});
}

template <class Output>
DWORD NarrowInto(Output & output, CodePageTable const & table, Substitution substitution, TextView text,
                 bool & usedDefault)
{
    for (WCHAR const unit : text)
    {
        CharacterBytes const bytes = BytesFor(unit, table, substitution);
        bool const isMissing = bytes == noBytes;
        if (!PutBytes(output, isMissing ? substitution.bytes : bytes))
            return ERROR_INSUFFICIENT_BUFFER;
        usedDefault = usedDefault || isMissing;
    }
    return ERROR_SUCCESS;
}

template <class Output>
DWORD WidenInto(Output & output, CodePageTable const & table, bool validOnly, std::string_view bytes)
{
    while (!bytes.empty())
    {
        DecodedCharacter const character = DecodeCharacter(table, bytes);
        if (validOnly && !character.isValid)
            return ERROR_NO_UNICODE_TRANSLATION;
        if (!output.Put(character.unit))
            return ERROR_INSUFFICIENT_BUFFER;
        bytes.remove_prefix(character.size);
    }
    return ERROR_SUCCESS;
}

} // namespace

Conversion NarrowText(CodePageTable const & table, Substitution substitution, TextView text,
                      Destination<char> destination, bool & usedDefault)
{
    return ConvertInto(destination,
                       [&](auto & output) { return NarrowInto(output, table, substitution, text, usedDefault); });
}

Conversion WidenBytes(CodePageTable const & table, bool validOnly, std::string_view bytes,
                      Destination<WCHAR> destination)
{
    return ConvertInto(destination, [&](auto & output) { return WidenInto(output, table, validOnly, bytes); });
}

} // namespace kr::detail
