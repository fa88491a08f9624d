#include <krplatform/base/hresult.h>
#include <krplatform/linux/codepage_convert.h>
#include <krplatform/linux/codepage_utf8.h>

namespace kr::detail
{

namespace
{

template <class Output>
DWORD NarrowInto(Output & output, bool validOnly, TextView text, bool & usedDefault)
{
    for (std::size_t index = 0; index < text.size(); ++index)
    {
        char32_t character = text[index];
        bool isLone = false;
        if (IsHighSurrogate(character) && index + 1 < text.size() && IsLowSurrogate(text[index + 1]))
            character = 0x10000 + ((character - 0xD800) << 10) + (text[++index] - 0xDC00u);
        else if (IsSurrogate(character))
        {
            if (validOnly)
                return ERROR_NO_UNICODE_TRANSLATION;
            isLone = true;
            character = replacementUnit;
        }
        if (!PutUtf8(output, character))
            return ERROR_INSUFFICIENT_BUFFER;
        usedDefault = usedDefault || isLone;
    }
    return ERROR_SUCCESS;
}

template <class Output>
DWORD WidenInto(Output & output, bool validOnly, std::string_view bytes)
{
    while (!bytes.empty())
    {
        auto const [character, size, isValid] = DecodeUtf8(bytes);
        if (validOnly && !isValid)
            return ERROR_NO_UNICODE_TRANSLATION;
        bytes.remove_prefix(size);
        if (character < 0x10000)
        {
            if (!output.Put(static_cast<WCHAR>(character)))
                return ERROR_INSUFFICIENT_BUFFER;
            continue;
        }
        auto const high = static_cast<WCHAR>(0xD7C0 + (character >> 10));
        auto const low = static_cast<WCHAR>(0xDC00 + (character & 0x3FF));
        if (!output.Put({high, low}))
            return bytes.empty() && output.Put(high) ? ERROR_SUCCESS : ERROR_INSUFFICIENT_BUFFER;
    }
    return ERROR_SUCCESS;
}

} // namespace

Conversion NarrowToUtf8(bool validOnly, TextView text, Destination<char> destination, bool & usedDefault)
{
    return ConvertInto(destination, [&](auto & output) { return NarrowInto(output, validOnly, text, usedDefault); });
}

Conversion WidenUtf8(bool validOnly, std::string_view bytes, Destination<WCHAR> destination)
{
    return ConvertInto(destination, [&](auto & output) { return WidenInto(output, validOnly, bytes); });
}

} // namespace kr::detail
