#include <krcore/text/krstringbuffers.h>

#include <utility>

namespace
{

// Asks the string for storage of its own; `length` becomes the content's.
template <class Char>
std::shared_ptr<kr::detail::StringAttachment<Char>> LendStorage(CStringT<Char> & string, int & length)
{
    if (length < 0)
        length = string.GetLength();
    auto attachment =
        std::make_shared<kr::detail::StringAttachment<Char>>(kr::detail::StringAttachment<Char>{string, nullptr});
    attachment->storage = string.GetBuffer(length);
    return attachment;
}

// Whether the storage has moved to a copy of the buffer, which ends the attachment then.
template <class Char>
bool IsPassedOn(std::shared_ptr<kr::detail::StringAttachment<Char>> const & attachment, Char const * storage)
{
    return !storage && attachment.use_count() > 1;
}

// Tells the string its length, unless a copy of the buffer has done so.
template <class Char>
void GiveBack(kr::detail::StringAttachment<Char> & attachment, unsigned int length)
{
    if (attachment.length >= 0)
        return;
    attachment.length = static_cast<int>(length);
    attachment.string.ReleaseBuffer(attachment.length);
}

} // namespace

CKrBufferCStringA::CKrBufferCStringA(CStringA & string, int length) { AttachString(string, length); }

CKrBufferCStringA::~CKrBufferCStringA() { ReleaseString(); }

void CKrBufferCStringA::AttachString(CStringA & string, int length)
{
    ReleaseString();
    auto attachment = LendStorage(string, length);
    CKrCharBuffer::Attach(attachment->storage, static_cast<unsigned int>(length));
    m_attachment = std::move(attachment);
}

void CKrBufferCStringA::ReleaseString()
{
    auto const attachment = std::exchange(m_attachment, nullptr);
    if (!attachment || IsPassedOn(attachment, Get()))
        return;
    unsigned int const length = Length();
    if (Get() == attachment->storage)
        Release(); // the storage is the string's
    else
        Free();
    GiveBack(*attachment, length);
}

CKrBufferCStringW::CKrBufferCStringW(CString & string, int length) { AttachString(string, length); }

CKrBufferCStringW::~CKrBufferCStringW() { ReleaseString(); }

void CKrBufferCStringW::AttachString(CString & string, int length)
{
    ReleaseString();
    auto attachment = LendStorage(string, length);
    CKrWcharBuffer::Attach(attachment->storage, static_cast<unsigned int>(length));
    m_attachment = std::move(attachment);
}

void CKrBufferCStringW::ReleaseString()
{
    auto const attachment = std::exchange(m_attachment, nullptr);
    if (!attachment || IsPassedOn(attachment, Get()))
        return;
    unsigned int const length = Length();
    if (Get() == attachment->storage)
        Release(); // the storage is the string's
    else
        Free();
    GiveBack(*attachment, length);
}
