// Heap buffers of terminated text.
#pragma once

#include <krcore/text/krrawbuffer.h>
#include <krplatform/text/cstring.h>

class CKrWcharBuffer;

/// A byte buffer with a zero behind its content. Nothing is converted: wide text is appended as its raw bytes, so that two wide
/// characters make a length of 4. A null text is empty.
class KRCORE_API CKrCharBuffer : public CKrByteBuffer
{
public:
    CKrCharBuffer() noexcept = default;
    /// Deliberate: no room for a terminator.
    explicit CKrCharBuffer(unsigned int size) : CKrByteBuffer(size) {}
    CKrCharBuffer(char const * text);
    CKrCharBuffer(char const * text, unsigned int length);
    CKrCharBuffer(WCHAR const * text);
    CKrCharBuffer(WCHAR const * text, unsigned int length);
    /// All bytes of the other's content.
    CKrCharBuffer(CKrWcharBuffer const & other);
    CKrCharBuffer(CKrCharBuffer const & other) = default;
    CKrCharBuffer & operator=(CKrCharBuffer const & other) = default;
    /// Keep a block that is there.
    CKrCharBuffer & operator=(char const * text);
    CKrCharBuffer & operator=(WCHAR const * text);

    int TrailingBytes() const override;

    void AddString(char character)
    {
        if (!HasRoomFor(1))
            return AddString(&character, 1);
        unsigned int const length = Length();
        char * const end = Get() + length;
        end[0] = character;
        end[1] = 0;
        SetContent(length + 1);
    }
    void AddString(WCHAR character);
    void AddString(char const * text);
    void AddString(WCHAR const * text);
    /// Null or 0 writes only the terminator, where there is a block.
    void AddString(char const * text, unsigned int length);
    void AddString(WCHAR const * text, unsigned int length);
    void AddString(CKrCharBuffer const & other);
    /// Deliberate: only the first half of the other's bytes, as many as it has characters.
    void AddString(CKrWcharBuffer const & other);

    char * Get() noexcept { return reinterpret_cast<char *>(CKrRawBuffer::Get()); }
    char const * Get() const noexcept { return reinterpret_cast<char const *>(CKrRawBuffer::Get()); }
    operator char const *() const noexcept { return Get(); }
    /// In bytes.
    unsigned int Length() const noexcept { return BufLength(); }
    char * Release() noexcept { return reinterpret_cast<char *>(CKrRawBuffer::Release()); }
    /// Takes over a block of `length` + 1 characters and terminates it.
    void Attach(char * block, unsigned int length);
    using CKrByteBuffer::SetLength;
    /// Measures the content up to its first zero.
    void SetLength();
    /// Measures on from the end, for a caller who wrote behind the content; nothing without content.
    void Adjust();
    operator CStringA() const;
};

/// The same of wide text; lengths are in characters unless a name says bytes. Narrow text is widened byte by byte, without a code page.
/// Deliberate: only the low byte of a widened character is written, and one zero byte as terminator; the rest is zero in a
/// buffer that has only grown or been cleared.
class KRCORE_API CKrWcharBuffer : public CKrByteBuffer
{
public:
    CKrWcharBuffer() noexcept = default;
    /// Deliberate: no room for a terminator.
    explicit CKrWcharBuffer(unsigned int length);
    CKrWcharBuffer(char const * text);
    CKrWcharBuffer(char const * text, unsigned int length);
    CKrWcharBuffer(WCHAR const * text);
    CKrWcharBuffer(WCHAR const * text, unsigned int length);
    CKrWcharBuffer(CKrWcharBuffer const & other) = default;
    CKrWcharBuffer & operator=(CKrWcharBuffer const & other) = default;
    CKrWcharBuffer & operator=(char const * text);
    CKrWcharBuffer & operator=(WCHAR const * text);

    int TrailingBytes() const override;
    void Expand(unsigned int count) override;
    void SetLength(unsigned int length) override;

    void AddString(char character);
    void AddString(WCHAR character);
    void AddString(char const * text);
    void AddString(WCHAR const * text);
    /// Null or 0 does nothing at all.
    void AddString(char const * text, unsigned int length);
    /// Null or 0 writes only the terminator, where there is a block.
    void AddString(WCHAR const * text, unsigned int length);
    /// Deliberate: writes no terminator of its own.
    void AddString(CKrWcharBuffer const & other);

    WCHAR * Get() noexcept { return reinterpret_cast<WCHAR *>(CKrRawBuffer::Get()); }
    WCHAR const * Get() const noexcept { return reinterpret_cast<WCHAR const *>(CKrRawBuffer::Get()); }
    operator WCHAR const *() const noexcept { return Get(); }
    unsigned int Length() const noexcept { return BufLength() >> 1; }
    WCHAR * Release() noexcept { return reinterpret_cast<WCHAR *>(CKrRawBuffer::Release()); }
    /// Takes over a block of `length` + 1 characters. Deliberate: of the terminator only the first byte is written.
    void Attach(WCHAR * block, unsigned int length);
    void SetLength();
    void Adjust();
    operator CString() const;
};
