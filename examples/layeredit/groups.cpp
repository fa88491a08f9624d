#include "groups.h"

#include "progress.h"

#include <algorithm>

namespace layeredit
{

namespace
{

constexpr std::size_t s_room = 256 * 1024;
constexpr std::size_t s_keptOfCut = 1024;
constexpr std::size_t s_longestCode = 64;
constexpr int s_leastCode = -5;
constexpr int s_greatestCode = 1071;

struct Line
{
    std::string_view text; ///< without its line end
    bool isEnded = false;
};

Line TakeLine(std::string_view & rest)
{
    std::size_t const end = rest.find('\n');
    Line line = {rest.substr(0, end), end != std::string_view::npos};
    rest.remove_prefix(line.isEnded ? end + 1 : rest.size());
    if (line.text.ends_with('\r'))
        line.text.remove_suffix(1);
    return line;
}

bool IsBlankSign(char sign) { return sign == ' ' || sign == '\t'; }

bool IsBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n\x1A") == std::string_view::npos; }

bool ReadCode(std::string_view text, int & code)
{
    return text.size() <= s_longestCode && ReadNumber(text, code) && code >= s_leastCode && code <= s_greatestCode;
}

} // namespace

std::string_view Trimmed(std::string_view text)
{
    while (!text.empty() && IsBlankSign(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlankSign(text.back()))
        text.remove_suffix(1);
    return text;
}

Taken TakeGroup(std::string_view & rest, Group & group)
{
    std::string_view const whole = rest;
    if (whole.empty())
        return Taken::End;
    Line const code = TakeLine(rest);
    group.codeLine = code.text;
    if (!ReadCode(code.text, group.code))
        return IsBlank(code.text) && IsBlank(rest) ? Taken::End : Taken::BadCode;
    bool const hasValue = code.isEnded && !rest.empty();
    group.value = TakeLine(rest).text;
    group.bytes = whole.substr(0, whole.size() - rest.size());
    group.isCut = false;
    return hasValue ? Taken::Group : Taken::CutOff;
}

GroupStream::GroupStream(std::istream & stream, std::uint64_t offset, std::uint64_t size, Progress & progress)
    : m_stream(stream), m_progress(progress), m_size(size), m_buffer(s_room), m_offset(offset)
{
}

/// False, and nothing moved, where there is no more text or no room for it.
bool GroupStream::Fill()
{
    if (m_isEnd || m_end - m_begin == m_buffer.size())
        return false;
    std::copy(m_buffer.begin() + static_cast<std::ptrdiff_t>(m_begin),
              m_buffer.begin() + static_cast<std::ptrdiff_t>(m_end), m_buffer.begin());
    m_end -= m_begin;
    m_begin = 0;
    m_stream.read(m_buffer.data() + m_end, static_cast<std::streamsize>(m_buffer.size() - m_end));
    m_end += static_cast<std::size_t>(m_stream.gcount());
    m_isEnd = !m_stream;
    m_progress.Show(m_offset, m_size);
    return true;
}

void GroupStream::SkipLine()
{
    for (;;)
    {
        std::string_view const rest = Rest();
        std::size_t const end = rest.find('\n');
        std::size_t const count = end == std::string_view::npos ? rest.size() : end + 1;
        m_begin += count;
        m_offset += count;
        if (end != std::string_view::npos || !Fill())
            return;
    }
}

Taken GroupStream::Next(Group & group)
{
    m_groupOffset = m_offset;
    m_groupLine = m_line;
    std::string_view rest;
    Taken taken;
    bool isWhole;
    do
    {
        rest = Rest();
        taken = TakeGroup(rest, group);
        isWhole = m_isEnd || (taken == Taken::Group && group.bytes.ends_with('\n'));
    } while (!isWhole && Fill());
    std::size_t const count = static_cast<std::size_t>(m_end - m_begin) - rest.size();
    m_begin += count;
    m_offset += count;
    m_line += 2;
    if (!isWhole && taken == Taken::Group)
    {
        m_cut.assign(group.bytes.substr(0, s_keptOfCut));
        std::string_view kept = m_cut;
        TakeGroup(kept, group);
        group.isCut = true;
        SkipLine();
    }
    return taken;
}

} // namespace layeredit
