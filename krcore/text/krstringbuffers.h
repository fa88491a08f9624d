// Buffers that work in the storage of a platform string.
#pragma once

#include <krcore/text/krtextbuffers.h>

#include <memory>

namespace kr::detail
{

/// A string whose storage is lent to a buffer.
template <class Char>
struct StringAttachment
{
    CStringT<Char> & string;
    Char * storage;
    int length = -1; ///< the final length once the attachment has ended
};

} // namespace kr::detail

/// A `CKrCharBuffer` that can lend the storage of a `CStringA`, for a caller to fill it in place.
///
///     CStringA text;
///     {
///         CKrBufferCStringA buffer(text, 10);        room for ten characters, all of them content
///         ReadInto(buffer.Get(), 10);
///         buffer.SetLength();
///     }                                              the string has the buffer's length now
///
/// While attached the size is fixed: growing, `Free`, `Attach` and assigning to the buffer are outside the contract, and the string must not
/// be touched. Of a copy and its source the first to go ends the attachment, or the one that the storage was moved to.
class KRCORE_API CKrBufferCStringA : public CKrCharBuffer
{
public:
    CKrBufferCStringA() noexcept = default;
    CKrBufferCStringA(CStringA & string, int length);
    CKrBufferCStringA(CKrBufferCStringA const & other) = default;
    CKrBufferCStringA & operator=(CKrBufferCStringA const & other) = default;
    ~CKrBufferCStringA() override;

    /// Ends an earlier attachment, frees the own block and works in the string's storage, which gets room for `length` characters (negative: its
    /// present length); all of them are content, with a zero behind.
    void AttachString(CStringA & string, int length);
    /// Gives the storage back, with the buffer's present length as that of the string; the buffer is empty then. Nothing if unattached.
    void ReleaseString();

private:
    std::shared_ptr<kr::detail::StringAttachment<char>> m_attachment;
};

/// The same of a `CString`; lengths are in characters.
class KRCORE_API CKrBufferCStringW : public CKrWcharBuffer
{
public:
    CKrBufferCStringW() noexcept = default;
    CKrBufferCStringW(CString & string, int length);
    CKrBufferCStringW(CKrBufferCStringW const & other) = default;
    CKrBufferCStringW & operator=(CKrBufferCStringW const & other) = default;
    ~CKrBufferCStringW() override;

    void AttachString(CString & string, int length);
    void ReleaseString();

private:
    std::shared_ptr<kr::detail::StringAttachment<WCHAR>> m_attachment;
};
