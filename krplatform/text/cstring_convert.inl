// CStringT: conversion to and from other kinds of text.

template <class Char>
CStringT<Char>::CStringT(OtherChar const * text) : CStringT()
{
    AppendConverted(CStringT<OtherChar>::ViewOf(text));
}

template <class Char>
CStringT<Char>::CStringT(OtherChar const * text, int length) : CStringT()
{
    AppendConverted(CStringT<OtherChar>::ViewOf(text, length));
}

template <class Char>
CStringT<Char>::CStringT(CStringT<OtherChar> const & text) : CStringT()
{
    AppendConverted(text.View());
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator=(OtherChar const * text)
{
    return *this = CStringT(text);
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator+=(OtherChar const * text)
{
    AppendConverted(CStringT<OtherChar>::ViewOf(text));
    return *this;
}

template <class Char>
void CStringT<Char>::AppendConverted(std::basic_string_view<OtherChar> text)
{
    if (text.empty())
        return;
    std::size_t const ascii = kr::detail::AsciiLength(text);
    std::size_t const count = ascii == text.size() ? ascii : kr::detail::ConvertedLength(text);
    Char * const end = GrowBy(count);
    if (ascii == text.size())
        std::copy_n(text.data(), count, end);
    else
        kr::detail::Convert(text, end, count);
    SetLength(static_cast<std::size_t>(GetLength()) + count);
}
