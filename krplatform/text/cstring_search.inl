// CStringT: finding and taking parts.

template <class Char>
int CStringT<Char>::Find(Char const * text, int start) const noexcept
{
    return kr::detail::PositionOf(
        kr::detail::FindText(View(), ViewOf(text), static_cast<std::size_t>(std::max(start, 0))));
}

template <class Char>
int CStringT<Char>::Find(Char unit, int start) const noexcept
{
    return kr::detail::PositionOf(kr::detail::FindUnit(View(), unit, static_cast<std::size_t>(std::max(start, 0))));
}

template <class Char>
int CStringT<Char>::FindOneOf(Char const * units) const noexcept
{
    return kr::detail::PositionOf(View().find_first_of(ViewOf(units)));
}

template <class Char>
int CStringT<Char>::ReverseFind(Char unit) const noexcept
{
    return kr::detail::PositionOf(View().rfind(unit));
}

/// The units from `first` on, `count` at most; the whole text shares its storage.
template <class Char>
CStringT<Char> CStringT<Char>::Part(std::size_t first, std::size_t count) const
{
    TextView const text = View();
    TextView const part = text.substr(std::min(first, text.size()), count);
    if (part.size() == text.size())
        return *this;
    return CStringT(NewBlock(part, {}));
}

template <class Char>
CStringT<Char> CStringT<Char>::Left(int count) const
{
    return Part(0, static_cast<std::size_t>(std::max(count, 0)));
}

template <class Char>
CStringT<Char> CStringT<Char>::Right(int count) const
{
    int const held = std::clamp(count, 0, GetLength());
    return Part(static_cast<std::size_t>(GetLength() - held), static_cast<std::size_t>(held));
}

template <class Char>
CStringT<Char> CStringT<Char>::Mid(int first) const
{
    return Mid(first, GetLength());
}

template <class Char>
CStringT<Char> CStringT<Char>::Mid(int first, int count) const
{
    return Part(static_cast<std::size_t>(std::max(first, 0)), static_cast<std::size_t>(std::max(count, 0)));
}

template <class Char>
CStringT<Char> CStringT<Char>::SpanIncluding(Char const * units) const
{
    return Part(0, View().find_first_not_of(ViewOf(units)));
}

template <class Char>
CStringT<Char> CStringT<Char>::SpanExcluding(Char const * units) const
{
    return Part(0, View().find_first_of(ViewOf(units)));
}

template <class Char>
CStringT<Char> CStringT<Char>::Tokenize(Char const * units, int & start) const
{
    TextView const separators = ViewOf(units);
    std::size_t const first =
        start < 0 ? TextView::npos : View().find_first_not_of(separators, static_cast<std::size_t>(start));
    if (first == TextView::npos)
    {
        start = -1;
        return {};
    }
    std::size_t const end = std::min(View().find_first_of(separators, first), View().size());
    CStringT piece = Part(first, end - first); // all that can fail
    start = static_cast<int>(end) + 1;
    return piece;
}
