// CStringT: trimming.

namespace kr::detail
{

enum Ends
{
    endsLeft = 1,
    endsRight = 2,
    endsBoth = 3
};

template <class Char, class Predicate>
std::basic_string_view<Char> Trimmed(std::basic_string_view<Char> text, Ends ends, Predicate isTrimmed)
{
    while ((ends & endsRight) && !text.empty() && isTrimmed(text.back()))
        text.remove_suffix(1);
    while ((ends & endsLeft) && !text.empty() && isTrimmed(text.front()))
        text.remove_prefix(1);
    return text;
}

template <class Char>
std::basic_string_view<Char> TrimmedOf(std::basic_string_view<Char> text, Ends ends, std::basic_string_view<Char> units)
{
    return Trimmed(text, ends, [units](Char unit) { return units.find(unit) != notFound; });
}

} // namespace kr::detail

template <class Char>
CStringT<Char> & CStringT<Char>::Trim()
{
    return Keep(kr::detail::Trimmed(View(), kr::detail::endsBoth, kr::detail::UnitRules<Char>::IsSpace));
}

template <class Char>
CStringT<Char> & CStringT<Char>::Trim(Char unit)
{
    return Keep(kr::detail::TrimmedOf(View(), kr::detail::endsBoth, {&unit, 1}));
}

template <class Char>
CStringT<Char> & CStringT<Char>::Trim(Char const * units)
{
    return Keep(kr::detail::TrimmedOf(View(), kr::detail::endsBoth, ViewOf(units)));
}

template <class Char>
CStringT<Char> & CStringT<Char>::TrimLeft()
{
    return Keep(kr::detail::Trimmed(View(), kr::detail::endsLeft, kr::detail::UnitRules<Char>::IsSpace));
}

template <class Char>
CStringT<Char> & CStringT<Char>::TrimLeft(Char unit)
{
    return Keep(kr::detail::TrimmedOf(View(), kr::detail::endsLeft, {&unit, 1}));
}

template <class Char>
CStringT<Char> & CStringT<Char>::TrimLeft(Char const * units)
{
    return Keep(kr::detail::TrimmedOf(View(), kr::detail::endsLeft, ViewOf(units)));
}

template <class Char>
CStringT<Char> & CStringT<Char>::TrimRight()
{
    return Keep(kr::detail::Trimmed(View(), kr::detail::endsRight, kr::detail::UnitRules<Char>::IsSpace));
}

template <class Char>
CStringT<Char> & CStringT<Char>::TrimRight(Char unit)
{
    return Keep(kr::detail::TrimmedOf(View(), kr::detail::endsRight, {&unit, 1}));
}

template <class Char>
CStringT<Char> & CStringT<Char>::TrimRight(Char const * units)
{
    return Keep(kr::detail::TrimmedOf(View(), kr::detail::endsRight, ViewOf(units)));
}
