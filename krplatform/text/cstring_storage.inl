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
    if (capacity > kr::detail::largestTextCapacity)
        AfxThrowMemoryException();
    std::size_t const size = kr::detail::SizeOfTextMemory(sizeof(Block) + (capacity + 1) * sizeof(Char));
    void * const memory = kr::detail::AllocateTextMemory(size);
    if (!memory)
        AfxThrowMemoryException();
    return new (memory) Block{{1}, 0, static_cast<int>((size - sizeof(Block)) / sizeof(Char) - 1)};
}

/// A new block with the two texts joined and room for `capacity` units at least; that of all empty texts where they are
/// empty.
template <class Char>
auto CStringT<Char>::NewBlock(TextView left, TextView right, std::size_t capacity) -> Block *
{
    std::size_t const length = left.size() + right.size();
    if (length == 0 && capacity == 0)
        return &s_empty.block;
    Block * const block = Allocate(std::max(length, capacity));
    kr::detail::CopyUnits(block->Text(), left.data(), left.size());
    kr::detail::CopyUnits(block->Text() + left.size(), right.data(), right.size());
    block->SetLength(length);
    return block;
}

/// Takes over a block in place of the present one.
template <class Char>
void CStringT<Char>::Adopt(Block * block) noexcept
{
    Block::Of(std::exchange(m_text, block->Text()))->Release();
}

/// Storage of its own for `capacity` units at least. The text stays.
template <class Char>
Char * CStringT<Char>::MakeWritable(int capacity)
{
    Block const * const block = Block::Of(m_text);
    if (!block->IsWritable() || block->capacity < capacity)
        Adopt(NewBlock(View(), {}, static_cast<std::size_t>(std::max(capacity, 1))));
    return m_text;
}

/// Where `count` more units may be written; the length is stated afterwards.
template <class Char>
Char * CStringT<Char>::GrowBy(std::size_t count)
{
    Block const * const block = Block::Of(m_text);
    std::size_t const length = static_cast<std::size_t>(block->length);
    if (!block->IsWritable() || length + count > static_cast<std::size_t>(block->capacity))
        Adopt(NewBlock(View(), {}, std::max({length + count, kr::detail::GrownCapacity(length), std::size_t{1}})));
    return m_text + length;
}

/// For storage of its own.
template <class Char>
void CStringT<Char>::SetLength(std::size_t length) noexcept
{
    Block::Of(m_text)->SetLength(length);
}

/// `text` may lie inside this text.
template <class Char>
void CStringT<Char>::Assign(TextView text)
{
    Block const * const block = Block::Of(m_text);
    if (text.empty() || !block->IsWritable() || text.size() > static_cast<std::size_t>(block->capacity))
        Adopt(NewBlock(text, {}));
    else
    {
        kr::detail::MoveUnits(m_text, text.data(), text.size());
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

/// `text` may lie inside this text, so the old block is given up last. A text that begins with an append mostly grows on.
template <class Char>
void CStringT<Char>::AppendView(TextView text)
{
    if (text.empty())
        return;
    Block * const block = Block::Of(m_text);
    std::size_t const length = static_cast<std::size_t>(block->length);
    if (block->IsWritable() && length + text.size() <= static_cast<std::size_t>(block->capacity))
    {
        kr::detail::MoveUnits(m_text + length, text.data(), text.size());
        block->SetLength(length + text.size());
    }
    else
        Adopt(NewBlock(View(), text, std::max(kr::detail::GrownCapacity(length), std::size_t{8})));
}

template <class Char>
CStringT<Char> CStringT<Char>::Join(TextView left, TextView right)
{
    return CStringT(NewBlock(left, right));
}

template <class Char>
CStringT<Char>::CStringT(Char const * text) : CStringT(NewBlock(ViewOf(text), {}))
{
}

template <class Char>
CStringT<Char>::CStringT(Char const * text, int length) : CStringT(NewBlock(ViewOf(text, length), {}))
{
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
void CStringT<Char>::Append(CStringT const & other)
{
    if (IsEmpty())
        *this = other;
    else
        AppendView(other.View());
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
