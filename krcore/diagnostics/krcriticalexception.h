// The severe variant of the library's exception.
#pragma once

#include <krcore/diagnostics/krexception.h>

/// A failure that a client marks as severe; the library itself throws none. A guard turns it into a plain
/// `CKrException` of the same level.
///
///     CKrCriticalException(OLESTR("a"), OLESTR("f"), 3).what()      -> "a\nf(3): "
class KRCORE_API CKrCriticalException : public CKrException
{
public:
    /// Level `eLevelCritical`.
    CKrCriticalException(CString const & message, CString const & file, long line);
    CKrCriticalException(CKrCriticalException const & other);
    ~CKrCriticalException() override;

    /// As in the base class, but the text has the locations, and it is valid until the next `what` on any
    /// `CKrCriticalException`.
    char const * what() const noexcept override;
    /// As in the base class, but throws a `CKrCriticalException`.
    void ThrowException() override;

    CKrCriticalException & operator=(CKrCriticalException const & other);

protected:
    /// Deliberate: the level is `eLevelNormal`.
    CKrCriticalException();
};
