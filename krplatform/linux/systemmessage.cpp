#include <krplatform/linux/systemmessage_table.h>
#include <krplatform/system/systemmessage.h>

#include <algorithm>
#include <new>

using namespace kr::detail;

namespace
{

constexpr TextView lineEnd = OLESTR("\r\n");

static_assert(std::ranges::adjacent_find(s_systemMessages, std::ranges::greater_equal(), &SystemMessage::code) ==
              std::ranges::end(s_systemMessages));

/// A failure that only carries a system code stands for that code.
DWORD PlainCode(DWORD code) { return (code & 0xFFFF0000) == 0x80070000 ? code & 0xFFFF : code; }

/// The text without its line end; nothing for an unknown code.
TextView FindMessage(DWORD code)
{
    auto const row = std::ranges::lower_bound(s_systemMessages, code, {}, &SystemMessage::code);
    return row != std::ranges::end(s_systemMessages) && row->code == code ? TextView(row->text) : TextView();
}

DWORD Fail(DWORD code)
{
    SetLastError(code);
    return 0;
}

/// Room for `size` units; null, with the last error set, when memory runs out.
WCHAR * Allocate(std::size_t size)
{
    auto * const memory = static_cast<WCHAR *>(::operator new(size * sizeof(WCHAR), std::nothrow));
    if (!memory)
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return memory;
}

} // namespace

DWORD FormatMessageW(DWORD flags, void const *, DWORD messageId, DWORD, WCHAR * buffer, DWORD size, va_list *)
{
    bool const allocates = (flags & FORMAT_MESSAGE_ALLOCATE_BUFFER) != 0;
    if (buffer && allocates)
        *reinterpret_cast<WCHAR **>(buffer) = nullptr;
    if (!buffer || !(flags & FORMAT_MESSAGE_FROM_SYSTEM))
        return Fail(ERROR_INVALID_PARAMETER);
    TextView const message = FindMessage(PlainCode(messageId));
    if (message.empty())
        return Fail(ERROR_MR_MID_NOT_FOUND);
    std::size_t const length = message.size() + lineEnd.size();
    if (!allocates && size <= length)
        return Fail(ERROR_INSUFFICIENT_BUFFER);
    WCHAR * const text = allocates ? Allocate(std::max<std::size_t>(size, length + 1)) : buffer;
    if (!text)
        return 0;
    if (allocates)
        *reinterpret_cast<WCHAR **>(buffer) = text;
    *std::ranges::copy(lineEnd, std::ranges::copy(message, text).out).out = 0;
    return static_cast<DWORD>(length);
}

void * LocalFree(void * memory)
{
    ::operator delete(memory);
    return nullptr;
}
