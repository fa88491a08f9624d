// The groups that a drawing consists of: a code and a value, each on a line of its own.
#pragma once

#include <charconv>
#include <cstdint>
#include <istream>
#include <string>
#include <string_view>
#include <vector>

namespace layeredit
{

class Progress;

/// One group as it stands in the file. The views belong to the text that it was taken from.
struct Group
{
    int code = 0;
    std::string_view codeLine; ///< without its line end
    std::string_view value;    ///< without its line end
    std::string_view bytes;    ///< both lines with their ends
    bool isCut = false;        ///< a value too long to be kept: `value` and `bytes` are its beginning
};

enum class Taken
{
    Group,
    End,     ///< nothing more, but for blank lines
    BadCode, ///< the line that should be a code is none; it is in `codeLine`
    CutOff   ///< the text ends inside the group
};

/// Takes the first group off `rest`, which is the whole remaining text. Lines end with LF or CRLF; the last one may lack it.
Taken TakeGroup(std::string_view & rest, Group & group);

/// Without the blanks around it.
std::string_view Trimmed(std::string_view text);

/// A whole number with blanks around it; false, and `number` untouched, for anything else.
template <class Number>
bool ReadNumber(std::string_view text, Number & number, int base = 10)
{
    text = Trimmed(text);
    Number read = 0;
    auto const [end, error] = std::from_chars(text.data(), text.data() + text.size(), read, base);
    if (error != std::errc() || end != text.data() + text.size())
        return false;
    number = read;
    return true;
}

/// The groups of a file, one after the other, with a fixed amount of memory.
class GroupStream
{
public:
    /// Starts at the stream's place, which is `offset` bytes from the file's beginning. `size` is the file's, for `progress`.
    GroupStream(std::istream & stream, std::uint64_t offset, std::uint64_t size, Progress & progress);

    /// The group is valid until the next call.
    Taken Next(Group & group);

    /// Where the last group stands: bytes from the file's beginning, and the line of its code, counted from 1.
    std::uint64_t GetOffset() const { return m_groupOffset; }
    long GetLine() const { return m_groupLine; }
    /// Whether the file could be read to its end so far.
    bool HasFailed() const { return m_stream.bad(); }

private:
    std::string_view Rest() const { return {m_buffer.data() + m_begin, m_end - m_begin}; }
    bool Fill();
    void SkipLine();

    std::istream & m_stream;
    Progress & m_progress;
    std::uint64_t m_size;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;
    std::size_t m_end = 0;
    std::string m_cut; ///< the beginning of a group that is too long
    bool m_isEnd = false;
    std::uint64_t m_offset; ///< of m_begin
    long m_line = 1;        ///< of m_begin
    std::uint64_t m_groupOffset = 0;
    long m_groupLine = 1;
};

} // namespace layeredit
