#include <krplatform/coerce/date_pattern.h>

#include <algorithm>

namespace kr::detail
{

namespace
{

constexpr WCHAR quote = OLESTR('\'');
constexpr std::size_t longest = 0xFFFF;

constexpr bool IsLetter(WCHAR unit)
{
    return (unit >= OLESTR('a') && unit <= OLESTR('z')) || (unit >= OLESTR('A') && unit <= OLESTR('Z'));
}

PatternPiece MakePiece(WCHAR letter, std::size_t first, std::size_t end)
{
    return {letter, static_cast<unsigned short>(first), static_cast<unsigned short>(end - first)};
}

/// The end of the run that begins at `first` and is not quoted.
std::size_t EndOfRun(TextView pattern, std::size_t first)
{
    WCHAR const letter = pattern[first];
    auto const goesOn = [letter](WCHAR unit)
    { return IsLetter(letter) ? unit == letter : unit != quote && !IsLetter(unit); };
    std::size_t end = first + 1;
    while (end < pattern.size() && goesOn(pattern[end]))
        ++end;
    return end;
}

} // namespace

bool NextPiece(TextView pattern, std::size_t & position, PatternPiece & piece) noexcept
{
    pattern = pattern.substr(0, longest);
    while (position < pattern.size())
    {
        std::size_t const first = position;
        if (pattern[first] == quote)
        {
            std::size_t const end = std::min(pattern.find(quote, first + 1), pattern.size());
            position = std::min(end + 1, pattern.size());
            piece = MakePiece(0, first + 1, end);
        }
        else
        {
            position = EndOfRun(pattern, first);
            piece = MakePiece(IsLetter(pattern[first]) ? pattern[first] : WCHAR{0}, first, position);
        }
        if (piece.length > 0)
            return true;
    }
    return false;
}

} // namespace kr::detail
