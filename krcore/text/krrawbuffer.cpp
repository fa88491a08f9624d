#include <krcore/text/krrawbuffer.h>

#include <krcore/text/krbuffersize.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace
{

using kr::detail::BufferSize;

struct Step
{
    unsigned int upToSize;
    unsigned int granule;
};

// clang-format off
constexpr Step s_ladder[] = {
    {  256,  256 },
    { 1024, 1024 },
    { 4096, 4096 },
};
constexpr unsigned int lastGranule = 8192;
// clang-format on

unsigned int GranuleOf(unsigned int size)
{
    for (Step const & step : s_ladder)
    {
        if (size <= step.upToSize)
            return step.granule;
    }
    return lastGranule;
}

// What a block has room for that grows to a size: twice what it had, or many appends would copy it as many times. It is no whole number of
// pages: memory managers would place it so that some processors take thirty times as long to copy the one before.
unsigned int CapacityFor(unsigned int size, unsigned int oldSize)
{
    constexpr std::uint64_t offPage = 48, most = std::numeric_limits<unsigned int>::max();
    std::uint64_t const wanted =
        oldSize == 0 ? size : std::max<std::uint64_t>(size, 2 * std::uint64_t{oldSize}) + offPage;
    return static_cast<unsigned int>(std::min(wanted, most));
}

unsigned char * NewBlock(unsigned int capacity)
{
    unsigned char * const block = new (std::nothrow) unsigned char[capacity];
    if (!block)
        AfxThrowMemoryException();
    return block;
}

// Copies the content to the start of a block of that size, whose rest becomes zero.
void FillBlock(unsigned char * block, unsigned int size, unsigned char const * content, unsigned int length)
{
    if (length > 0 && block != content)
        std::memcpy(block, content, length);
    std::memset(block + length, 0, size - length);
}

} // namespace

CKrRawBuffer::CKrRawBuffer() noexcept = default;

CKrRawBuffer::CKrRawBuffer(unsigned int size) { SetBuffer(nullptr, size, size); }

CKrRawBuffer::CKrRawBuffer(unsigned char const * data, unsigned int length, unsigned int size)
{
    SetBuffer(data, length, size);
}

CKrRawBuffer::CKrRawBuffer(CKrRawBuffer const & other)
{
    *this = other;
    ForgetRoom();
}

CKrRawBuffer & CKrRawBuffer::operator=(CKrRawBuffer const & other)
{
    if (this == &other)
        return *this;
    if (other.m_releaseAssigned)
        Move(const_cast<CKrRawBuffer &>(other)); // what the flag asks for
    else
        Clone(other);
    return *this;
}

CKrRawBuffer::~CKrRawBuffer() { delete[] m_storage; }

int CKrRawBuffer::TrailingBytes() const { return 0; }

void CKrRawBuffer::Resize(unsigned int size)
{
    if (size > m_capacity)
    {
        unsigned int const capacity = CapacityFor(size, m_size);
        unsigned char * const block = NewBlock(capacity);
        FillBlock(block, size, m_storage, m_length);
        delete[] m_storage;
        m_storage = block;
        m_capacity = capacity;
    }
    else
        FillBlock(m_storage, size, m_storage, m_length);
    m_size = size;
}

void CKrRawBuffer::Alloc(unsigned int length)
{
    auto const trailing = static_cast<unsigned int>(TrailingBytes());
    std::uint64_t const need = std::uint64_t{length} + trailing;
    if (need > m_size)
    {
        std::uint64_t const granule = GranuleOf(m_size);
        Resize(BufferSize((need + granule - 1) / granule * granule));
    }
    m_knownRoom = m_size - trailing;
}

void CKrRawBuffer::AllocExact(unsigned int size)
{
    if (size > m_size)
        Resize(size);
}

void CKrRawBuffer::Assign(unsigned int length, unsigned char fill)
{
    AllocExact(BufferSize(std::uint64_t{length} + static_cast<unsigned int>(TrailingBytes())));
    Clear();
    m_length = length;
    if (m_storage && fill != 0)
        std::memset(m_storage, fill, length);
}

void CKrRawBuffer::Attach(unsigned char * block, unsigned int length, unsigned int size)
{
    if (block != m_storage)
        delete[] m_storage;
    Lend(block, length, size);
}

unsigned char * CKrRawBuffer::Release() noexcept
{
    unsigned char * const block = m_storage;
    Lend(nullptr, 0, 0);
    return block;
}

void CKrRawBuffer::Clear() noexcept
{
    m_length = 0;
    if (m_storage)
        std::memset(m_storage, 0, m_size);
}

void CKrRawBuffer::Free() noexcept { delete[] Release(); }

void CKrRawBuffer::Clone(CKrRawBuffer const & source)
{
    if (source.m_size == 0)
    {
        Free();
        return;
    }
    Alloc(source.m_length);
    if (source.m_length > 0)
        std::memmove(m_storage, source.m_storage, source.m_length);
    m_length = source.m_length;
}

void CKrRawBuffer::Move(CKrRawBuffer & source) noexcept
{
    if (this == &source)
        return;
    delete[] m_storage;
    Lend(source.m_storage, source.m_length, source.m_size);
    source.Lend(nullptr, 0, 0);
}

void CKrRawBuffer::SetBuffer(unsigned char const * data, unsigned int length, unsigned int size)
{
    size = std::max(length, size);
    unsigned char * const block = NewBlock(size);
    FillBlock(block, size, data, data ? length : 0);
    delete[] m_storage;
    Lend(block, length, size);
}

unsigned char const * CKrRawBuffer::ExpandBeside(void const * data, unsigned int length)
{
    auto const * const bytes = static_cast<unsigned char const *>(data);
    bool const isOwn = m_storage && bytes >= m_storage && bytes < m_storage + m_size;
    std::ptrdiff_t const offset = isOwn ? bytes - m_storage : 0;
    Alloc(BufferSize(std::uint64_t{m_length} + length));
    return isOwn ? m_storage + offset : bytes;
}

void CKrRawBuffer::TerminateBlock()
{
    if (!m_storage)
        return;
    Alloc(m_length);
    Terminate();
}

void CKrRawBuffer::Lend(unsigned char * storage, unsigned int length, unsigned int size) noexcept
{
    m_storage = storage;
    m_length = length;
    m_size = size;
    m_capacity = size;
    ForgetRoom();
}

void CKrByteBuffer::Expand(unsigned int count) { Alloc(BufferSize(std::uint64_t{BufLength()} + count)); }

void CKrByteBuffer::SetLength(unsigned int length)
{
    if (length < BufSize())
        SetContent(length);
}

void CKrByteBuffer::Add(unsigned char byte) { AppendBytes(&byte, 1); }

void CKrByteBuffer::Add(unsigned char const * data, unsigned int count)
{
    if (data && count > 0)
        AppendBytes(data, count);
}

void CKrByteBuffer::Add(CKrByteBuffer const & other) { Add(other.Get(), other.BufLength()); }

void CKrByteBuffer::Remove() noexcept
{
    if (BufLength() > 0)
        SetContent(BufLength() - 1);
}
