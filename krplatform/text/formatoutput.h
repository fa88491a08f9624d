// Where formatted text is gathered. Internal to the text classes.
#pragma once

#include <krplatform/base/cexception.h>
#include <krplatform/text/textunits.h>

#include <new>

namespace kr::detail
{

/// Text that grows at its end. What is short needs no memory; when memory runs out `CMemoryException *` is thrown.
template <class Char>
class FormatOutput
{
public:
    FormatOutput() = default;
    FormatOutput(FormatOutput const &) = delete;
    FormatOutput & operator=(FormatOutput const &) = delete;
    ~FormatOutput()
    {
        if (m_text != m_short)
            ::operator delete(m_text);
    }

    std::basic_string_view<Char> View() const noexcept { return {m_text, m_length}; }

    /// `count` more units, which the caller writes.
    Char * Extend(std::size_t count)
    {
        if (count > m_capacity - m_length)
            Grow(count);
        m_length += count;
        return m_text + m_length - count;
    }

    void Append(std::basic_string_view<Char> text) { CopyUnits(Extend(text.size()), text.data(), text.size()); }
    void AppendUnit(Char unit) { *Extend(1) = unit; }
    void Fill(Char unit, std::size_t count) { std::fill_n(Extend(count), count, unit); }

    void AppendAscii(std::string_view text)
    {
        if constexpr (sizeof(Char) == 1)
            Append(text);
        else
            CopyAscii(Extend(text.size()), text.data(), text.size());
    }

private:
    void Grow(std::size_t count)
    {
        std::size_t const capacity = std::max(m_length + count, 2 * m_capacity);
        void * const memory = ::operator new(capacity * sizeof(Char), std::nothrow);
        if (!memory)
            AfxThrowMemoryException();
        Char * const text = static_cast<Char *>(memory);
        CopyUnits(text, m_text, m_length);
        if (m_text != m_short)
            ::operator delete(m_text);
        m_text = text;
        m_capacity = capacity;
    }

    static constexpr std::size_t shortCapacity = 256;

    Char m_short[shortCapacity];
    Char * m_text = m_short;
    std::size_t m_length = 0;
    std::size_t m_capacity = shortCapacity;
};

} // namespace kr::detail
