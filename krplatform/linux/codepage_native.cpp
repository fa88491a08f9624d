#include <krplatform/codepage/nativeunits.h>

#include <krplatform/codepage/codepage.h>
#include <krplatform/linux/codepage_process.h>
#include <krplatform/linux/codepage_registry.h>

namespace kr::detail
{

namespace
{

constexpr WCHAR endOfAscii = 0x80;
constexpr WCHAR endOfTwoBytesInUtf8 = 0x800;

template <class Test>
std::size_t CountWhile(WCHAR const * text, std::size_t most, Test isNative)
{
    std::size_t count = 0;
    while (count < most && text[count] != 0 && isNative(text[count]))
        ++count;
    return count;
}

} // namespace

std::size_t CountNativeUnits(UINT codePage, WCHAR const * text, std::size_t most)
{
    if (codePage == CP_ACP || codePage == CP_THREAD_ACP)
        codePage = ProcessCodePage();
    if (codePage == CP_UTF8)
        return CountWhile(text, most, [](WCHAR unit) { return unit < endOfTwoBytesInUtf8; });
    if (CodePageTable const * const table = FindCodePage(codePage))
        return CountWhile(text, most, [table](WCHAR unit) { return table->ExactBytesOf(unit) != noBytes; });
    return CountWhile(text, most, [](WCHAR unit) { return unit < endOfAscii; });
}

} // namespace kr::detail
