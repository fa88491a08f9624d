// Automation text lies behind its length in bytes and ends in a zero unit.
#include <krplatform/text/bstr.h>
#include <krplatform/text/copybstr.h>
#include <krplatform/text/textmemory.h>

#include <cstring>
#include <limits>
#include <new>

namespace
{

struct Header
{
    std::uint32_t byteLength;
};

Header * HeaderOf(BSTR text) { return reinterpret_cast<Header *>(text) - 1; }

/// Text of that many bytes which are not set yet, with the zero unit behind them.
BSTR AllocateBytes(std::size_t byteLength)
{
    if (byteLength > std::numeric_limits<std::uint32_t>::max() - sizeof(Header) - 2 * sizeof(OLECHAR))
        return nullptr;
    // an odd number leaves half a unit in front of the terminator
    std::size_t const size = sizeof(Header) + (byteLength / sizeof(OLECHAR) + 2) * sizeof(OLECHAR);
    void * const memory = kr::detail::AllocateTextMemory(size);
    if (!memory)
        return nullptr;
    Header * const header = new (memory) Header{static_cast<std::uint32_t>(byteLength)};
    BSTR const text = reinterpret_cast<BSTR>(header + 1);
    // the terminator, in front of which the last of an odd number of bytes is written over half a unit
    text[byteLength / sizeof(OLECHAR)] = 0;
    text[byteLength / sizeof(OLECHAR) + 1] = 0;
    return text;
}

BSTR CopyOf(void const * source, std::size_t byteLength)
{
    BSTR const text = AllocateBytes(byteLength);
    if (text && source)
        std::memcpy(text, source, byteLength);
    return text;
}

std::size_t LengthOf(OLECHAR const * text) { return text ? kr::detail::TextView(text).size() : 0; }

UINT ByteLengthOf(BSTR text) { return text ? HeaderOf(text)->byteLength : 0; }

} // namespace

BSTR SysAllocString(OLECHAR const * text) { return text ? CopyOf(text, LengthOf(text) * sizeof(OLECHAR)) : nullptr; }

BSTR SysAllocStringLen(OLECHAR const * text, UINT length)
{
    return CopyOf(text, std::size_t{length} * sizeof(OLECHAR));
}

BSTR SysAllocStringByteLen(char const * bytes, UINT length) { return CopyOf(bytes, length); }

bool SysReAllocString(BSTR * text, OLECHAR const * source)
{
    return SysReAllocStringLen(text, source, static_cast<UINT>(LengthOf(source)));
}

bool SysReAllocStringLen(BSTR * text, OLECHAR const * source, UINT length)
{
    BSTR const copy = text ? SysAllocStringLen(source, length) : nullptr;
    if (!copy)
        return false;
    SysFreeString(*text);
    *text = copy;
    return true;
}

void SysFreeString(BSTR text)
{
    if (text)
        kr::detail::FreeTextMemory(HeaderOf(text));
}

UINT SysStringLen(BSTR text) { return ByteLengthOf(text) / static_cast<UINT>(sizeof(OLECHAR)); }

UINT SysStringByteLen(BSTR text) { return ByteLengthOf(text); }

BSTR kr::detail::CopyText(BSTR text) noexcept { return CopyOf(text, ByteLengthOf(text)); }
