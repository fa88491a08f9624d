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
void CStringT<Char>::AppendConverted(std::basic_string_view<OtherChar> text)
{
    if (text.empty())
        return;
    bool const isAscii = kr::detail::IsAscii(text);
    std::size_t const count = isAscii ? text.size() : kr::detail::ConvertedLength(text);
    Char * const end = GrowBy(count);
    if (isAscii)
        kr::detail::CopyAscii(end, text.data(), count);
    else
        kr::detail::Convert(text, end, count);
    SetLength(static_cast<std::size_t>(GetLength()) + count);
}

template <class Char>
CStringT<Char> CStringT<Char>::FromVariant(VARIANT const & value)
{
    return kr::detail::TextOf(value);
}

template <class Char>
CStringT<Char> CStringT<Char>::FromWide(wchar_t const * text)
{
    return kr::detail::TextOf(text);
}

template <class Char>
bool CStringT<Char>::LoadString(UINT id)
{
    return LoadString(AfxFindStringResourceHandle(id), id);
}

template <class Char>
bool CStringT<Char>::LoadString(HINSTANCE module, UINT id)
{
    kr::detail::TextView const text = kr::detail::ResourceText(module, id);
    if (!text.empty())
        *this = CStringT(text.data(), static_cast<int>(text.size()));
    return !text.empty();
}

template <class Char>
CStringT<Char> CStringT<Char>::LoadFormat(UINT formatId)
{
    CStringT format;
    if (!format.LoadString(formatId))
        AtlThrow(E_FAIL);
    return format;
}

template <class Char>
BSTR CStringT<Char>::AllocSysString() const
{
    CString const & text = *this;
    BSTR const copy = SysAllocStringLen(text, static_cast<UINT>(text.GetLength()));
    if (!copy)
        AfxThrowMemoryException();
    return copy;
}
