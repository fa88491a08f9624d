// What the engine calls, and what the targets share.
#include "fuzz/fuzz_target.h"

#include <cstdio>
#include <cstdlib>

namespace kr::fuzz
{

namespace
{

bool IsContinuation(unsigned byte) { return (byte & 0xC0) == 0x80; }

} // namespace

void BreakLaw(char const * law, char const * file, int line)
{
    std::fprintf(stderr, "%s:%d: this does not hold: %s\n", file, line, law);
    std::abort();
}

std::string_view FuzzInput::Line()
{
    std::size_t const end = m_rest.find('\n');
    std::string_view const line = Bytes(end);
    Bytes(1);
    return line;
}

Units FuzzInput::UnitsOf(std::string_view bytes)
{
    Units units;
    for (std::size_t index = 0; index < bytes.size(); ++index)
    {
        auto const byteAt = [bytes, index](std::size_t offset) -> unsigned
        { return index + offset < bytes.size() ? static_cast<unsigned char>(bytes[index + offset]) : 0u; };
        unsigned unit = byteAt(0);
        if ((unit & 0xE0) == 0xC0 && IsContinuation(byteAt(1)))
        {
            unit = (unit & 0x1F) << 6 | (byteAt(1) & 0x3F);
            index += 1;
        }
        else if ((unit & 0xF0) == 0xE0 && IsContinuation(byteAt(1)) && IsContinuation(byteAt(2)))
        {
            unit = (unit & 0xF) << 12 | (byteAt(1) & 0x3F) << 6 | (byteAt(2) & 0x3F);
            index += 2;
        }
        units += static_cast<WCHAR>(unit);
    }
    return units;
}

} // namespace kr::fuzz

/// The locale is English with UTF-8, whatever the user's is, so that an input means the same everywhere.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    for (char const * name : {"LC_ALL", "LC_CTYPE", "LC_NUMERIC", "LC_TIME", "LC_MONETARY"})
        unsetenv(name);
    setenv("LANG", "en_US.UTF-8", 1);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size)
{
    kr::fuzz::CheckLaws(kr::fuzz::FuzzInput({reinterpret_cast<char const *>(data), size}));
    return 0;
}
