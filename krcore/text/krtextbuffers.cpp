#include <krcore/text/krtextbuffers.h>

#include <krcore/text/krbuffersize.h>

#include <cstdint>
#include <cstring>

namespace
{

using kr::detail::BufferSize;
using kr::detail::TextView;

unsigned int LengthOf(char const * text) { return text ? BufferSize(std::strlen(text)) : 0; }

unsigned int LengthOf(WCHAR const * text) { return text ? BufferSize(TextView(text).size()) : 0; }

unsigned int BytesOf(unsigned int characters) { return BufferSize(std::uint64_t{characters} * sizeof(WCHAR)); }

// The size of a block for content and a terminator.
unsigned int SizeFor(unsigned int length, unsigned int terminator)
{
    return BufferSize(std::uint64_t{length} + terminator);
}

unsigned char const * AsBytes(void const * text) { return static_cast<unsigned char const *>(text); }

// The length of the text at `offset` of a block, in bytes, at the most to the end of the block.
template <class Char>
unsigned int MeasureFrom(unsigned char const * storage, unsigned int offset, unsigned int size)
{
    unsigned int length = 0;
    for (Char character; offset + length + sizeof(Char) <= size; length += static_cast<unsigned int>(sizeof(Char)))
    {
        std::memcpy(&character, storage + offset + length, sizeof(Char));
        if (character == 0)
            break;
    }
    return length;
}

// What `operator=` does, for a text that takes that many bytes: a block that is there is kept, and grows before anything is lost.
template <class Buffer, class Char>
Buffer & AssignText(Buffer & buffer, Char const * text, unsigned int bytes)
{
    if (!buffer.Get())
    {
        Buffer made(text);
        buffer.Move(made);
        return buffer;
    }
    if (text)
        buffer.Alloc(bytes);
    buffer.Clear();
    buffer.AddString(text);
    return buffer;
}

} // namespace

CKrCharBuffer::CKrCharBuffer(char const * text) : CKrCharBuffer(text, LengthOf(text)) {}

CKrCharBuffer::CKrCharBuffer(char const * text, unsigned int length)
{
    SetBuffer(AsBytes(text), length, SizeFor(length, 1));
    Terminate();
}

CKrCharBuffer::CKrCharBuffer(WCHAR const * text) : CKrCharBuffer(text, LengthOf(text)) {}

CKrCharBuffer::CKrCharBuffer(WCHAR const * text, unsigned int length)
{
    SetBuffer(AsBytes(text), BytesOf(length), SizeFor(BytesOf(length), 1));
    Terminate();
}

CKrCharBuffer::CKrCharBuffer(CKrWcharBuffer const & other)
{
    SetBuffer(AsBytes(other.Get()), other.BufLength(), SizeFor(other.BufLength(), 1));
    Terminate();
}

CKrCharBuffer & CKrCharBuffer::operator=(char const * text) { return AssignText(*this, text, LengthOf(text)); }

CKrCharBuffer & CKrCharBuffer::operator=(WCHAR const * text)
{
    return AssignText(*this, text, BytesOf(LengthOf(text)));
}

int CKrCharBuffer::TrailingBytes() const { return 1; }

void CKrCharBuffer::AddString(WCHAR character) { AddString(&character, 1); }

void CKrCharBuffer::AddString(char const * text)
{
    if (text)
        AddString(text, LengthOf(text));
}

void CKrCharBuffer::AddString(WCHAR const * text)
{
    if (text)
        AddString(text, LengthOf(text));
}

void CKrCharBuffer::AddString(char const * text, unsigned int length)
{
    if (!text || length == 0)
        return TerminateBlock();
    AppendBytes(text, length);
    Terminate();
}

void CKrCharBuffer::AddString(WCHAR const * text, unsigned int length)
{
    if (!text || length == 0)
        return TerminateBlock();
    AppendBytes(text, BytesOf(length));
    Terminate();
}

void CKrCharBuffer::AddString(CKrCharBuffer const & other) { AddString(other.Get(), other.Length()); }

void CKrCharBuffer::AddString(CKrWcharBuffer const & other)
{
    AddString(reinterpret_cast<char const *>(other.Get()), other.Length());
}

void CKrCharBuffer::Attach(char * block, unsigned int length)
{
    CKrRawBuffer::Attach(reinterpret_cast<unsigned char *>(block), length, SizeFor(length, 1));
    if (block)
        Terminate();
}

void CKrCharBuffer::SetLength()
{
    if (Get())
        SetContent(MeasureFrom<char>(CKrRawBuffer::Get(), 0, BufSize()));
}

void CKrCharBuffer::Adjust()
{
    if (BufLength() > 0)
        SetContent(BufLength() + MeasureFrom<char>(CKrRawBuffer::Get(), BufLength(), BufSize()));
}

CKrCharBuffer::operator CStringA() const
{
    return BufLength() > 0 ? CStringA(Get(), static_cast<int>(BufLength())) : CStringA();
}

CKrWcharBuffer::CKrWcharBuffer(unsigned int length) : CKrByteBuffer(BytesOf(length)) {}

CKrWcharBuffer::CKrWcharBuffer(char const * text) : CKrWcharBuffer(text, LengthOf(text)) {}

CKrWcharBuffer::CKrWcharBuffer(char const * text, unsigned int length)
{
    AddString(text, length);
    ForgetRoom();
}

CKrWcharBuffer::CKrWcharBuffer(WCHAR const * text) : CKrWcharBuffer(text, LengthOf(text)) {}

CKrWcharBuffer::CKrWcharBuffer(WCHAR const * text, unsigned int length)
{
    SetBuffer(AsBytes(text), BytesOf(length), SizeFor(BytesOf(length), 2));
    Terminate();
}

CKrWcharBuffer & CKrWcharBuffer::operator=(char const * text)
{
    return AssignText(*this, text, BytesOf(LengthOf(text)));
}

CKrWcharBuffer & CKrWcharBuffer::operator=(WCHAR const * text)
{
    return AssignText(*this, text, BytesOf(LengthOf(text)));
}

int CKrWcharBuffer::TrailingBytes() const { return 2; }

void CKrWcharBuffer::Expand(unsigned int count) { CKrByteBuffer::Expand(BytesOf(count)); }

void CKrWcharBuffer::SetLength(unsigned int length)
{
    if (std::uint64_t{length} * sizeof(WCHAR) < BufSize())
        SetContent(BytesOf(length));
}

void CKrWcharBuffer::AddString(char character) { AddString(&character, 1); }

void CKrWcharBuffer::AddString(WCHAR character) { AddString(&character, 1); }

void CKrWcharBuffer::AddString(char const * text)
{
    if (text)
        AddString(text, LengthOf(text));
}

void CKrWcharBuffer::AddString(WCHAR const * text)
{
    if (text)
        AddString(text, LengthOf(text));
}

void CKrWcharBuffer::AddString(char const * text, unsigned int length)
{
    if (!text || length == 0)
        return;
    unsigned int const start = BufLength();
    unsigned char const * const source = ExpandBeside(text, BytesOf(length));
    unsigned char * const storage = CKrRawBuffer::Get();
    for (unsigned int index = 0; index < length; ++index)
        storage[start + index * sizeof(WCHAR)] = source[index];
    SetContent(start + BytesOf(length));
    Terminate();
}

void CKrWcharBuffer::AddString(WCHAR const * text, unsigned int length)
{
    if (!text || length == 0)
        return TerminateBlock();
    AppendBytes(text, BytesOf(length));
    Terminate();
}

void CKrWcharBuffer::AddString(CKrWcharBuffer const & other)
{
    if (other.BufLength() > 0)
        AppendBytes(other.Get(), other.BufLength());
}

void CKrWcharBuffer::Attach(WCHAR * block, unsigned int length)
{
    CKrRawBuffer::Attach(reinterpret_cast<unsigned char *>(block), BytesOf(length), SizeFor(BytesOf(length), 2));
    if (block)
        Terminate();
}

void CKrWcharBuffer::SetLength()
{
    if (Get())
        SetContent(MeasureFrom<WCHAR>(CKrRawBuffer::Get(), 0, BufSize()));
}

void CKrWcharBuffer::Adjust()
{
    if (BufLength() > 0)
        SetContent(BufLength() + MeasureFrom<WCHAR>(CKrRawBuffer::Get(), BufLength(), BufSize()));
}

CKrWcharBuffer::operator CString() const
{
    return BufLength() > 0 ? CString(Get(), static_cast<int>(Length())) : CString();
}
