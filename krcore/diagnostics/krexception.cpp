#include <krcore/diagnostics/krexception.h>

#include <krcore/diagnostics/krexception_internal.h>
#include <krcore/diagnostics/krsourcelocation.h>
#include <krplatform/base/cexception.h>
#include <krplatform/system/messagebox.h>

#include <cstdarg>
#include <new>

CKrException::CKrException() : m_nLevel(eLevelNormal), m_bReportToDebugwindow(true) {}

CKrException::CKrException(CString const & message, CString const & file, long line, ELevel level)
    : m_nLevel(level), m_strMessage(message), m_bReportToDebugwindow(true)
{
    AddPath(file, line);
}

CKrException::CKrException(CKrException const & other)
try : std
    ::exception(other), m_nLevel(other.m_nLevel), m_strMessage(other.m_strMessage), m_paths(other.m_paths),
        m_bReportToDebugwindow(other.m_bReportToDebugwindow)
    {
    }
catch (std::bad_alloc const &)
{
    AfxThrowMemoryException();
}

CKrException::~CKrException() = default;

CKrException & CKrException::operator=(CKrException const & other)
{
    CKrException copy(other); // all that can fail; what follows cannot
    m_nLevel = copy.m_nLevel;
    m_strMessage.swap(copy.m_strMessage);
    m_paths.swap(copy.m_paths);
    m_bReportToDebugwindow = copy.m_bReportToDebugwindow;
    return *this;
}

void CKrException::AddMessage(CString const & text) { m_strMessage = m_strMessage + OLESTR('\n') + text; }

void CKrException::AddPath(CString const & file, long line)
{
    CString const location = kr::detail::SourceLocation{file, line}.ToString();
    try
    {
        m_paths.push_back(location);
    }
    catch (std::bad_alloc const &)
    {
        AfxThrowMemoryException();
    }
}

CKrException::ELevel CKrException::GetLevel() const { return m_nLevel; }

bool CKrException::ShouldReportToDebugwindow() const { return m_bReportToDebugwindow; }

CString CKrException::GetErrorMessage(bool withPath) const
{
    CString text = m_strMessage;
    if (withPath)
    {
        for (CString const & location : m_paths)
            text += OLESTR('\n') + location;
    }
    return text;
}

CString CKrException::GetTraceMessage() const
{
    return OLESTR("\n*** ExceptionBegin ***\n") + GetErrorMessage(true) + OLESTR("\n*** ExceptionEnd ***\n\n");
}

int CKrException::ReportError(unsigned int style, bool withPath) const
{
    return AfxMessageBox(GetErrorMessage(withPath), style, 0);
}

char const * CKrException::what() const noexcept
{
    static _bstr_t s_strMessage;
    return kr::detail::KeepMessage(s_strMessage, *this, false);
}

void CKrException::ThrowException() { kr::detail::FreeAndThrow(this, CKrException()); }

CString CKrException::FormatText(long stringId, ...)
{
    CString format;
    format.LoadString(static_cast<UINT>(stringId));
    CString text;
    va_list arguments;
    va_start(arguments, stringId);
    text.FormatV(format, arguments);
    va_end(arguments);
    return text;
}

CString CKrException::FormatText(WCHAR const * format, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    return text;
}

namespace kr::detail
{

char const * KeepMessage(_bstr_t & kept, CKrException const & exception, bool withPath) noexcept
{
    constexpr char const * nothing = "";
    try
    {
        kept = exception.GetErrorMessage(withPath).GetString();
        char const * const narrow = kept;
        return narrow ? narrow : nothing;
    }
    catch (CException * failure)
    {
        if (failure)
            failure->Delete();
        return nothing;
    }
    catch (...)
    {
        return nothing;
    }
}

} // namespace kr::detail
