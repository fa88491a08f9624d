// Automation text lies behind its length in bytes and ends in a zero unit.
#include <krplatform/text/bstr.h>

#include <cstring>
#include <limits>
#include <new>

namespace
{

// the text keeps the alignment of memory that stands behind a pointer
struct Header
{
    std::uint32_t reserved;
    std::uint32_t byteLength;
};

Header * HeaderOf(BSTR text) { return reinterpret_cast<Header *>(text) - 1; }

/// Text of that many bytes which are not set yet, with the zero unit behind them.
BSTR AllocateBytes(std::size_t byteLength)
{
    // an odd number leaves half a unit in front of the terminator
    std::size_t const units = byteLength / sizeof(OLECHAR);
    if (byteLength > std::numeric_limits<std::uint32_t>::max() - sizeof(Header) - 2 * sizeof(OLECHAR))
        return nullptr;
    std::size_t const room = sizeof(Header) + (units + 2) * sizeof(OLECHAR);
    void * const memory = ::operator new(room, std::nothrow);
    if (!memory)
        return nullptr;
    Header * const header = new (memory) Header{0, static_cast<std::uint32_t>(byteLength)};
    BSTR const text = reinterpret_cast<BSTR>(header + 1);
    std::memset(reinterpret_cast<char *>(text) + byteLength, 0, room - sizeof(Header) - byteLength);
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
        ::operator delete(HeaderOf(text));
}

UINT SysStringLen(BSTR text) { return SysStringByteLen(text) / static_cast<UINT>(sizeof(OLECHAR)); }

UINT SysStringByteLen(BSTR text) { return text ? HeaderOf(text)->byteLength : 0; }
