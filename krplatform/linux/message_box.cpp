#include <krplatform/codepage/codepage.h>
#include <krplatform/system/default_message_box.h>
#include <krplatform/system/messagebox.h>

#include <algorithm>
#include <cstdio>

namespace kr::detail
{

namespace
{

constexpr std::size_t maximumPiece = 256;

/// The length of the next piece, which parts no surrogate pair.
std::size_t NextPiece(TextView text)
{
    std::size_t const length = std::min(text.size(), maximumPiece);
    bool const partsPair = length < text.size() && (text[length - 1] & 0xFC00) == 0xD800;
    return partsPair ? length - 1 : length;
}

} // namespace

// Written in pieces, without memory of its own: the message may be that there is none.
int ShowMessageBox(WCHAR const * text, unsigned int, unsigned int)
{
    flockfile(stderr);
    for (TextView rest = text; !rest.empty();)
    {
        std::size_t const length = NextPiece(rest);
        char bytes[3 * maximumPiece];
        int const count = WideCharToMultiByte(CP_UTF8, 0, rest.data(), static_cast<int>(length), bytes, sizeof bytes,
                                              nullptr, nullptr);
        std::fwrite(bytes, 1, static_cast<std::size_t>(count), stderr);
        rest.remove_prefix(length);
    }
    std::fputc('\n', stderr);
    funlockfile(stderr);
    return IDOK;
}

} // namespace kr::detail
