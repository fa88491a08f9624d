// CStringT: replacing, inserting, removing, and changing each unit.

template <class Char>
int CStringT<Char>::Replace(Char const * oldText, Char const * newText)
{
    TextView const text = View();
    TextView const oldView = ViewOf(oldText);
    TextView const newView = ViewOf(newText);
    if (oldView.empty())
        return 0;
    auto const findNext = [&](std::size_t start) { return kr::detail::FindText(text, oldView, start); };

    std::size_t count = 0;
    for (std::size_t hit = findNext(0); hit != TextView::npos; hit = findNext(hit + oldView.size()))
        ++count;
    if (count == 0)
        return 0;

    // built beside the old text, in which the arguments may lie
    CStringT result;
    std::size_t const newLength = text.size() - count * oldView.size() + count * newView.size();
    if (newLength != 0)
    {
        Char * end = result.GrowBy(newLength);
        auto const append = [&end](TextView part)
        {
            kr::detail::CopyUnits(end, part.data(), part.size());
            end += part.size();
        };
        std::size_t start = 0;
        for (std::size_t hit = findNext(0); hit != TextView::npos; hit = findNext(start))
        {
            append(text.substr(start, hit - start));
            append(newView);
            start = hit + oldView.size();
        }
        append(text.substr(start));
        result.SetLength(newLength);
    }
    swap(result);
    return static_cast<int>(count);
}

template <class Char>
int CStringT<Char>::Replace(Char oldUnit, Char newUnit)
{
    int const count = oldUnit == newUnit ? 0 : static_cast<int>(std::count(m_text, m_text + GetLength(), oldUnit));
    if (count != 0)
    {
        Char * const text = MakeWritable(0);
        std::replace(text, text + GetLength(), oldUnit, newUnit);
    }
    return count;
}

template <class Char>
int CStringT<Char>::Remove(Char unit)
{
    int const count = static_cast<int>(std::count(m_text, m_text + GetLength(), unit));
    if (count == GetLength())
        Empty();
    else if (count != 0)
    {
        Char * const text = MakeWritable(0);
        SetLength(static_cast<std::size_t>(std::remove(text, text + GetLength(), unit) - text));
    }
    return count;
}

template <class Char>
int CStringT<Char>::Insert(int index, Char const * text)
{
    return InsertView(index, ViewOf(text));
}

template <class Char>
int CStringT<Char>::Insert(int index, Char unit)
{
    return InsertView(index, {&unit, 1});
}

/// `text` may lie inside this text.
template <class Char>
int CStringT<Char>::InsertView(int index, TextView text)
{
    if (text.empty())
        return GetLength();
    std::size_t const length = static_cast<std::size_t>(GetLength());
    std::size_t const first = static_cast<std::size_t>(std::clamp(index, 0, GetLength()));
    CStringT const kept = kr::detail::Holds(View(), text.data()) ? *this : CStringT(); // then GrowBy leaves it
    Char * const end = GrowBy(text.size());
    Char * const gap = end - (length - first);
    kr::detail::MoveUnits(gap + text.size(), gap, length - first);
    kr::detail::CopyUnits(gap, text.data(), text.size());
    SetLength(length + text.size());
    return GetLength();
}

template <class Char>
int CStringT<Char>::Delete(int index, int count)
{
    int const first = std::max(index, 0);
    if (count > 0 && first < GetLength())
    {
        std::size_t const length = static_cast<std::size_t>(GetLength());
        std::size_t const removed = static_cast<std::size_t>(std::min(count, GetLength() - first));
        if (removed == length)
            Empty();
        else
        {
            Char * const gap = MakeWritable(0) + first;
            kr::detail::MoveUnits(gap, gap + removed, length - static_cast<std::size_t>(first) - removed);
            SetLength(length - removed);
        }
    }
    return GetLength();
}

namespace kr::detail
{

/// Gives each unit its counterpart. Storage is made only where one differs.
template <class Char, class Map>
CStringT<Char> & MapUnits(CStringT<Char> & text, Map const & map)
{
    auto const view = text.View();
    auto const changed = std::find_if(view.begin(), view.end(), [&map](Char unit) { return map(unit) != unit; });
    if (changed != view.end())
    {
        std::ptrdiff_t const first = changed - view.begin();
        Char * const units = text.GetBuffer();
        std::transform(units + first, units + text.GetLength(), units + first, std::cref(map));
    }
    return text;
}

} // namespace kr::detail

template <class Char>
CStringT<Char> & CStringT<Char>::MakeUpper()
{
    return kr::detail::MapUnits(*this, kr::detail::UnitRules<Char>::Upper());
}

template <class Char>
CStringT<Char> & CStringT<Char>::MakeLower()
{
    return kr::detail::MapUnits(*this, kr::detail::UnitRules<Char>::Lower());
}

template <class Char>
CStringT<Char> & CStringT<Char>::MakeReverse()
{
    if (GetLength() > 1)
    {
        Char * const text = MakeWritable(0);
        std::reverse(text, text + GetLength());
    }
    return *this;
}
