// CStringT: comparing.

template <class Char>
int CStringT<Char>::Compare(CStringT const & other) const noexcept
{
    std::size_t const length = static_cast<std::size_t>(GetLength());
    std::size_t const otherLength = static_cast<std::size_t>(other.GetLength());
    std::size_t const common = kr::detail::CommonLength(m_text, other.m_text, std::min(length, otherLength));
    if (common == length || common == otherLength)
        return (length > otherLength) - (length < otherLength);
    return kr::detail::UnitValue(m_text[common]) < kr::detail::UnitValue(other.m_text[common]) ? -1 : 1;
}

template <class Char>
int CStringT<Char>::Compare(Char const * text) const noexcept
{
    if (!text)
        return IsEmpty() ? 0 : 1;
    std::size_t index = 0;
    while (m_text[index] == text[index] && m_text[index] != 0)
        ++index;
    if (m_text[index] == text[index]) // both at a zero, which may lie inside this text
        return static_cast<std::size_t>(GetLength()) > index ? 1 : 0;
    return kr::detail::UnitValue(m_text[index]) < kr::detail::UnitValue(text[index]) ? -1 : 1;
}

template <class Char>
int CStringT<Char>::CompareNoCase(CStringT const & other) const noexcept
{
    return kr::detail::CompareNoCase(View(), other.View());
}

template <class Char>
int CStringT<Char>::CompareNoCase(Char const * text) const noexcept
{
    return kr::detail::CompareNoCase(View(), ViewOf(text));
}
