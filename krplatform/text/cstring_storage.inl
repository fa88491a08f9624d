// CStringT: storage, construction, assignment, appending and buffers.

template <class Char>
constinit kr::detail::EmptyTextBlock<Char> CStringT<Char>::s_empty = {{{0}, 0, 0}, 0};

template <class Char>
void CStringT<Char>::RaiseInvalidArgument()
{
    AtlThrow(E_INVALIDARG);
}

template <class Char>
auto CStringT<Char>::ViewOf(Char const * text, int length) -> TextView
{
    if (length < 0)
        RaiseInvalidArgument();
    return text ? TextView(text, static_cast<std::size_t>(length)) : TextView();
}

template <class Char>
auto CStringT<Char>::Allocate(std::size_t capacity) -> Block *
{
    constexpr std::size_t granularity = 16, bookkeeping = 8; // of the memory manager; a little more costs nothing
    constexpr std::size_t largestCapacity = std::numeric_limits<int>::max() - granularity;
    if (capacity > largestCapacity)
        AfxThrowMemoryException();
    std::size_t const needed = sizeof(Block) + (capacity + 1) * sizeof(Char);
    std::size_t const size = (needed + bookkeeping + granularity - 1) / granularity * granularity - bookkeeping;
    void * const memory = ::operator new(size, std::nothrow);
    if (!memory)
        AfxThrowMemoryException();
    return new (memory) Block{{1}, 0, static_cast<int>((size - sizeof(Block)) / sizeof(Char) - 1)};
}

/// Takes over a block in place of the present one.
template <class Char>
void CStringT<Char>::Adopt(Block * block) noexcept
{
    Block * const old = Block::Of(std::exchange(m_text, block->Text()));
    if (old->Release())
        kr::detail::FreeTextBlock(old);
}

/// Storage of its own for `capacity` units. The text stays, cut where that is less.
template <class Char>
Char * CStringT<Char>::MakeWritable(int capacity)
{
    Block const * const block = Block::Of(m_text);
    if (!block->IsWritable() || block->capacity < capacity)
    {
        Block * const copy = Allocate(static_cast<std::size_t>(std::max(capacity, block->length)));
        kr::detail::CopyUnits(copy->Text(), m_text, static_cast<std::size_t>(block->length) + 1);
        copy->length = block->length;
        Adopt(copy);
    }
    return m_text;
}

/// Where `count` more units may be written; the length is stated afterwards.
template <class Char>
Char * CStringT<Char>::GrowBy(std::size_t count)
{
    Block const * const block = Block::Of(m_text);
    std::size_t const length = static_cast<std::size_t>(block->length);
    std::size_t const needed = length + count;
    bool const isWritable = block->IsWritable();
    if (!isWritable || needed > static_cast<std::size_t>(block->capacity))
    {
        Block * const grown = Allocate(std::max(needed, isWritable ? length + length / 2 : 0));
        kr::detail::CopyUnits(grown->Text(), m_text, length + 1);
        grown->length = block->length;
        Adopt(grown);
    }
    return m_text + length;
}

/// For storage of its own.
template <class Char>
void CStringT<Char>::SetLength(std::size_t length) noexcept
{
    Block::Of(m_text)->length = static_cast<int>(length);
    m_text[length] = 0;
}

/// `text` may lie inside this text.
template <class Char>
void CStringT<Char>::Assign(TextView text)
{
    Block const * const block = Block::Of(m_text);
    if (text.empty())
        Empty();
    else if (block->IsWritable() && text.size() <= static_cast<std::size_t>(block->capacity))
    {
        kr::detail::MoveUnits(m_text, text.data(), text.size());
        SetLength(text.size());
    }
    else
    {
        Block * const copy = Allocate(text.size());
        kr::detail::CopyUnits(copy->Text(), text.data(), text.size());
        Adopt(copy);
        SetLength(text.size());
    }
}

/// Makes the text a part of itself.
template <class Char>
CStringT<Char> & CStringT<Char>::Keep(TextView part)
{
    if (part.size() != View().size())
        Assign(part);
    return *this;
}

/// `text` may lie inside this text, so the old block is given up last.
template <class Char>
void CStringT<Char>::AppendView(TextView text)
{
    if (text.empty())
        return;
    Block const * const block = Block::Of(m_text);
    std::size_t const length = static_cast<std::size_t>(block->length);
    std::size_t const newLength = length + text.size();
    bool const isWritable = block->IsWritable();
    if (isWritable && newLength <= static_cast<std::size_t>(block->capacity))
        kr::detail::MoveUnits(m_text + length, text.data(), text.size());
    else
    {
        Block * const grown = Allocate(std::max(newLength, isWritable ? length + length / 2 : 0));
        kr::detail::CopyUnits(grown->Text(), m_text, length);
        kr::detail::CopyUnits(grown->Text() + length, text.data(), text.size());
        Adopt(grown);
    }
    SetLength(newLength);
}

template <class Char>
CStringT<Char> CStringT<Char>::Join(TextView left, TextView right)
{
    CStringT result;
    if (!left.empty() || !right.empty())
    {
        Char * const text = result.GrowBy(left.size() + right.size());
        kr::detail::CopyUnits(text, left.data(), left.size());
        kr::detail::CopyUnits(text + left.size(), right.data(), right.size());
        result.SetLength(left.size() + right.size());
    }
    return result;
}

template <class Char>
CStringT<Char>::CStringT(Char const * text) : CStringT()
{
    Assign(ViewOf(text));
}

template <class Char>
CStringT<Char>::CStringT(Char const * text, int length) : CStringT()
{
    Assign(ViewOf(text, length));
}

template <class Char>
CStringT<Char>::CStringT(Char unit, int count) : CStringT()
{
    if (count > 0)
    {
        std::fill_n(GrowBy(static_cast<std::size_t>(count)), count, unit);
        SetLength(static_cast<std::size_t>(count));
    }
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator=(Char const * text)
{
    Assign(ViewOf(text));
    return *this;
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator=(Char unit)
{
    Assign({&unit, 1});
    return *this;
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator+=(CStringT const & other)
{
    Append(other);
    return *this;
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator+=(Char const * text)
{
    AppendView(ViewOf(text));
    return *this;
}

template <class Char>
CStringT<Char> & CStringT<Char>::operator+=(Char unit)
{
    AppendChar(unit);
    return *this;
}

template <class Char>
void CStringT<Char>::Append(Char const * text)
{
    AppendView(ViewOf(text));
}

template <class Char>
void CStringT<Char>::Append(Char const * text, int length)
{
    AppendView(ViewOf(text, length));
}

template <class Char>
void CStringT<Char>::Append(CStringT const & other)
{
    if (IsEmpty())
        *this = other;
    else
        AppendView(other.View());
}

template <class Char>
void CStringT<Char>::AppendChar(Char unit)
{
    *GrowBy(1) = unit;
    SetLength(static_cast<std::size_t>(GetLength()) + 1);
}

template <class Char>
void CStringT<Char>::Concatenate(CStringT & result, Char const * first, int firstLength, Char const * second,
                                 int secondLength)
{
    result = Join(ViewOf(first, firstLength), ViewOf(second, secondLength));
}

template <class Char>
void CStringT<Char>::SetAt(int index, Char unit)
{
    if (index < 0 || index >= GetLength())
        RaiseInvalidArgument();
    MakeWritable(0)[index] = unit;
}

template <class Char>
Char * CStringT<Char>::GetBuffer(int minimumLength)
{
    if (minimumLength < 0)
        RaiseInvalidArgument();
    return MakeWritable(minimumLength);
}

template <class Char>
Char * CStringT<Char>::GetBufferSetLength(int length)
{
    Char * const buffer = GetBuffer(length);
    if (length > GetLength())
        std::fill(buffer + GetLength(), buffer + length, Char());
    SetLength(static_cast<std::size_t>(length));
    return buffer;
}

template <class Char>
void CStringT<Char>::ReleaseBuffer(int newLength)
{
    Block const * const block = Block::Of(m_text);
    int const room = block->IsWritable() ? block->capacity : block->length;
    if (newLength == -1)
        newLength = static_cast<int>(std::find(m_text, m_text + room, Char()) - m_text);
    if (newLength < 0 || newLength > room)
        RaiseInvalidArgument();
    if (room == 0)
        return;
    MakeWritable(0);
    SetLength(static_cast<std::size_t>(newLength));
}

template <class Char>
void CStringT<Char>::ReleaseBufferSetLength(int newLength)
{
    if (newLength < 0)
        RaiseInvalidArgument();
    ReleaseBuffer(newLength);
}

template <class Char>
void CStringT<Char>::Preallocate(int length)
{
    GetBuffer(length);
}

template <class Char>
void CStringT<Char>::FreeExtra()
{
    if (!Block::Of(m_text)->IsWritable())
        return;
    CStringT tight;
    tight.Assign(View());
    if (tight.GetAllocLength() < GetAllocLength())
        swap(tight);
}

template <class Char>
void CStringT<Char>::Truncate(int newLength)
{
    if (newLength < 0 || newLength > GetLength())
        RaiseInvalidArgument();
    if (newLength == 0)
        Empty();
    else if (newLength < GetLength())
    {
        MakeWritable(0);
        SetLength(static_cast<std::size_t>(newLength));
    }
}
