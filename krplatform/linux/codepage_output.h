// Where a conversion puts its characters: a count, or a buffer of limited room.
#pragma once

#include <krplatform/linux/codepage_convert.h>

#include <algorithm>
#include <initializer_list>

namespace kr::detail
{

template <class Char>
class CountingOutput
{
public:
    bool Put(Char) { return Put({0}); }
    bool Put(std::initializer_list<Char> characters)
    {
        m_count += characters.size();
        return true;
    }
    std::size_t GetCount() const { return m_count; }

private:
    std::size_t m_count = 0;
};

template <class Char>
class WritingOutput
{
public:
    explicit WritingOutput(Destination<Char> destination)
        : m_begin(destination.buffer), m_next(m_begin), m_end(m_begin + destination.room)
    {
    }

    /// All or none. False where they do not fit.
    bool Put(Char character)
    {
        if (m_next == m_end)
            return false;
        *m_next++ = character;
        return true;
    }
    bool Put(std::initializer_list<Char> characters)
    {
        if (static_cast<std::size_t>(m_end - m_next) < characters.size())
            return false;
        m_next = std::copy(characters.begin(), characters.end(), m_next);
        return true;
    }
    std::size_t GetCount() const { return static_cast<std::size_t>(m_next - m_begin); }

private:
    Char * m_begin;
    Char * m_next;
    Char * m_end;
};

/// Runs `convert`, which takes an output and gives an error, over the output that the destination asks for.
template <class Char, class Convert>
Conversion ConvertInto(Destination<Char> destination, Convert convert)
{
    if (destination.room == 0)
    {
        CountingOutput<Char> output;
        DWORD const error = convert(output);
        return {output.GetCount(), error};
    }
    WritingOutput<Char> output(destination);
    DWORD const error = convert(output);
    return {output.GetCount(), error};
}

} // namespace kr::detail
