#include <krcore/diagnostics/krcriticalexception.h>

#include <krcore/diagnostics/krexception_internal.h>

CKrCriticalException::CKrCriticalException() = default;

CKrCriticalException::CKrCriticalException(CString const & message, CString const & file, long line)
    : CKrException(message, file, line, eLevelCritical)
{
}

CKrCriticalException::CKrCriticalException(CKrCriticalException const &) = default;

CKrCriticalException::~CKrCriticalException() = default;

CKrCriticalException & CKrCriticalException::operator=(CKrCriticalException const &) = default;

char const * CKrCriticalException::what() const noexcept
{
    static _bstr_t s_strMessage;
    return kr::detail::KeepMessage(s_strMessage, *this, true);
}

void CKrCriticalException::ThrowException() { kr::detail::FreeAndThrow(this, CKrCriticalException()); }
