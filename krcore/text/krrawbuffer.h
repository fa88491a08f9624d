// Heap buffers of bytes.
#pragma once

#include <krcore/export.h>

#include <cstdint>
#include <cstring>

/// Owns a block of bytes and knows how many of them are content (the length) and how many there are (the size). New blocks are zero
/// throughout. Want of memory, and a size that an `unsigned int` cannot hold, throw `CMemoryException *`; the buffer then stays as it was.
///
///     CKrRawBuffer(16).BufLength()                  -> 16: sixteen zero bytes count as content
///     CKrRawBuffer buffer; buffer.Alloc(1)          -> a size of 256, the first step of the ladder
///
/// Blocks are allocated by array `new`, and so must be those that are attached; those that are released are freed by array `delete`.
class KRCORE_API CKrRawBuffer
{
public:
    CKrRawBuffer() noexcept;
    /// `size` zero bytes, all of them content.
    explicit CKrRawBuffer(unsigned int size);
    /// A copy of `length` bytes in a block of at least `size`; null `data` leaves them zero.
    CKrRawBuffer(unsigned char const * data, unsigned int length, unsigned int size);
    /// Copies the content or, where the source's release-assigned flag is set, takes its block away.
    CKrRawBuffer(CKrRawBuffer const & other);
    CKrRawBuffer & operator=(CKrRawBuffer const & other);
    virtual ~CKrRawBuffer();

    /// Bytes that stay free behind the content for a terminator.
    virtual int TrailingBytes() const;

    unsigned char * Get() noexcept { return m_storage; }
    unsigned char const * Get() const noexcept { return m_storage; }
    unsigned int BufLength() const noexcept { return m_length; }
    unsigned int BufSize() const noexcept { return m_size; }

    /// Makes sure that `length` bytes of content and the trailing ones fit. Growing rounds the size up to a multiple of 256, 1,024, 4,096 or
    /// 8,192 bytes, the larger the more there are; the block behind it may be twice as large, to grow in place. Deliberate: only the
    /// content survives, not what was written behind it.
    void Alloc(unsigned int length);
    /// Makes sure of a size of exactly `size`, if it is larger; no trailing bytes.
    void AllocExact(unsigned int size);
    /// Makes the content `length` times `fill`, without the ladder.
    void Assign(unsigned int length, unsigned char fill);
    /// Frees the block and takes over another. Nothing is zeroed or terminated.
    void Attach(unsigned char * block, unsigned int length, unsigned int size);
    /// Hands the block to the caller; null for an empty buffer.
    unsigned char * Release() noexcept;
    /// No content, all bytes zero; the block stays.
    void Clear() noexcept;
    void Free() noexcept;
    /// Takes a copy of the content. Deliberate: bytes of an older, longer content stay behind it, without a terminator.
    void Clone(CKrRawBuffer const & source);
    /// Takes the block away from `source`, whose flag stays.
    void Move(CKrRawBuffer & source) noexcept;
    bool GetReleaseAssigned() const noexcept { return m_releaseAssigned; }
    void SetReleaseAssigned(bool releaseAssigned) noexcept { m_releaseAssigned = releaseAssigned; }

protected:
    /// Replaces the block by a new one of the greater of `length` and `size` with a copy of the data, which may lie in the old one.
    void SetBuffer(unsigned char const * data, unsigned int length, unsigned int size);
    /// Whether `length` more bytes and the trailing ones are known to fit as it is.
    bool HasRoomFor(unsigned int length) const noexcept { return std::uint64_t{m_length} + length <= m_knownRoom; }
    /// For constructors that have called `Alloc`: a derived class may want more trailing bytes.
    void ForgetRoom() noexcept { m_knownRoom = 0; }
    /// Makes room for `length` more bytes, and gives the place of `data` afterwards, which may lie in this buffer.
    unsigned char const * ExpandBeside(void const * data, unsigned int length);
    /// Appends bytes, which may lie in this buffer.
    void AppendBytes(void const * data, unsigned int length)
    {
        void const * const bytes = HasRoomFor(length) ? data : ExpandBeside(data, length);
        unsigned int const start = m_length;
        std::memmove(m_storage + start, bytes, length);
        m_length = start + length;
    }
    /// Writes the zero byte behind the content, for which there must be room.
    void Terminate() noexcept { m_storage[m_length] = 0; }
    /// The same where there is a block at all, which grows if it is full.
    void TerminateBlock();
    void SetContent(unsigned int length) noexcept { m_length = length; }
    /// Gives the storage up without freeing it, and takes other storage without freeing it later.
    void Lend(unsigned char * storage, unsigned int length, unsigned int size) noexcept;

private:
    void Resize(unsigned int size);

    unsigned char * m_storage = nullptr;
    unsigned int m_length = 0;
    unsigned int m_size = 0;
    bool m_releaseAssigned = false;
    unsigned int m_capacity = 0;  ///< what the block has room for; `m_size` and more
    unsigned int m_knownRoom = 0; ///< content that is known to fit with the trailing bytes
};

/// A buffer that grows by appending bytes.
class KRCORE_API CKrByteBuffer : public CKrRawBuffer
{
public:
    CKrByteBuffer() noexcept = default;
    explicit CKrByteBuffer(unsigned int size) : CKrRawBuffer(size) {}
    CKrByteBuffer(unsigned char const * data, unsigned int length, unsigned int size) : CKrRawBuffer(data, length, size)
    {
    }

    /// Room for `count` more bytes.
    virtual void Expand(unsigned int count);
    /// States the length. Deliberate: ignored unless it is less than the size.
    virtual void SetLength(unsigned int length);

    void Add(unsigned char byte);
    /// Null or 0 does nothing.
    void Add(unsigned char const * data, unsigned int count);
    void Add(CKrByteBuffer const & other);
    /// Drops the last byte, which stays in the block; nothing without content.
    void Remove() noexcept;

    operator unsigned char *() noexcept { return Get(); }
    operator unsigned char const *() const noexcept { return Get(); }
};
