#include <krcore/diagnostics/krerror.h>

#include <krcore/diagnostics/krmessagepool.h>
#include <krcore/diagnostics/krsourcelocation.h>
#include <krplatform/automation/com_error.h>
#include <krplatform/system/messagebox.h>
#include <krplatform/system/systemmessage.h>

#include <cstdint>

namespace
{

CString DescriptionOf(_com_error const & error) { return CString(static_cast<WCHAR const *>(error.Description())); }

unsigned int IconOf(CKrError::ELevel level)
{
    switch (level)
    {
    case CKrError::eInformation:
        return MB_ICONINFORMATION;
    case CKrError::eWarning:
        return MB_ICONEXCLAMATION;
    default:
        return MB_ICONSTOP;
    }
}

void AppendLine(CString & text, CString const & line)
{
    if (line.IsEmpty())
        return;
    if (!text.IsEmpty())
        text += OLESTR('\n');
    text += line;
}

} // namespace

std::unique_ptr<CKrError> CKrError::s_pLastError;

CKrError::CKrError() : CKrError(eUndefined, 0, CString()) {}

CKrError::CKrError(EType type, unsigned int id, CString const & message)
    : m_nLevel(eError), m_nType(type), m_nErrorID(id), m_strMessage(message)
{
}

CKrError::CKrError(CKrError const & other) = default;

CKrError & CKrError::operator=(CKrError const & other) = default;

CKrError::~CKrError() = default;

CKrError CKrError::IdError(unsigned int id) { return CKrError(eIdError, id, CString()); }

CKrError CKrError::IdError(_com_error & error)
{
    int const id = static_cast<std::int16_t>(error.Error() & 0xFFFF);
    return CKrError(eIdError, static_cast<unsigned int>(id), DescriptionOf(error));
}

CKrError CKrError::ComError(long result) { return CKrError(eComError, static_cast<unsigned int>(result), CString()); }

CKrError CKrError::ComError(_com_error & error)
{
    return CKrError(eComError, static_cast<unsigned int>(error.Error()), DescriptionOf(error));
}

CKrError CKrError::StringError(CString const & text) { return CKrError(eStringError, 0, text); }

CKrError CKrError::SystemError(unsigned long code)
{
    return CKrError(eSystemError, static_cast<unsigned int>(code), CString());
}

void CKrError::AddLocation(CString const & file, long line)
{
    m_strLocation = kr::detail::SourceLocation{file, line}.ToString();
}

bool CKrError::FillMessage(CKrMessagePool const & pool)
{
    if (!m_strMessage.IsEmpty())
        return true;
    return m_nType == eSystemError ? GetMsgFromSystem() : GetMsgFromMsgPool(pool);
}

bool CKrError::FillMessage(HINSTANCE module)
{
    if (!m_strMessage.IsEmpty())
        return true;
    return m_nType == eSystemError ? GetMsgFromSystem() : GetMsgFromResourceID(module);
}

bool CKrError::GetMsgFromMsgPool(CKrMessagePool const & pool)
{
    if (m_nType != eIdError)
        return false;
    return !m_strMessage.IsEmpty() || pool.GetMessageW(m_nErrorID, m_strMessage);
}

bool CKrError::GetMsgFromResourceID(HINSTANCE module)
{
    if (m_nType != eIdError)
        return false;
    return !m_strMessage.IsEmpty() || CKrMessagePool::LoadResourceString(m_nErrorID, module, m_strMessage);
}

bool CKrError::GetMsgFromSystem()
{
    constexpr DWORD flags = FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_FROM_SYSTEM;
    constexpr DWORD neutralLanguage = 0x400;
    WCHAR * text = nullptr;
    FormatMessageW(flags, nullptr, m_nErrorID, neutralLanguage, reinterpret_cast<WCHAR *>(&text), 0, nullptr);
    std::unique_ptr<WCHAR, decltype(&LocalFree)> const owner(text, &LocalFree);
    m_strMessage = text;
    return !m_strMessage.IsEmpty();
}

CString CKrError::GetFormattedMessage(bool second, bool location) const
{
    CString text = m_strMessage;
    if (second)
        AppendLine(text, m_strSecondMessage);
    if (location)
        AppendLine(text, m_strLocation);
    return text;
}

CString CKrError::GetTraceMessage() const
{
    CString text;
    text.Format(OLESTR("\n*** ErrorBegin ***\nError-ID : %ld\n"), static_cast<long>(static_cast<int>(m_nErrorID)));
    return text + GetFormattedMessage(true, true) + OLESTR("\n*** ErrorEnd ***\n\n");
}

int CKrError::ReportError(bool second, bool location, unsigned int style) const
{
    if ((style & MB_ICONMASK) == 0)
        style |= IconOf(m_nLevel);
    return AfxMessageBox(GetFormattedMessage(second, location), style, 0);
}

bool CKrError::IsIdError(unsigned int id) const noexcept
{
    return m_nType == eIdError && (id == 0 || id == m_nErrorID);
}

bool CKrError::IsSystemError(unsigned long code) const noexcept
{
    unsigned int const id = static_cast<unsigned int>(code);
    return m_nType == eSystemError && (id == 0 || id == m_nErrorID);
}

bool CKrError::operator==(CKrError const & other) const
{
    if (m_nLevel != other.m_nLevel || m_nType != other.m_nType)
        return false;
    return m_nType == eStringError ? m_strMessage == other.m_strMessage : m_nErrorID == other.m_nErrorID;
}

bool CKrError::operator==(unsigned long id) const noexcept
{
    return m_nType != eStringError && m_nErrorID == static_cast<unsigned int>(id);
}

void CKrError::SetLastError(CKrError const & error, bool overwrite)
{
    if (!s_pLastError || overwrite)
        s_pLastError = std::make_unique<CKrError>(error);
}

CKrError * CKrError::GetLastError() { return s_pLastError.get(); }

void CKrError::ClearLastError() { s_pLastError.reset(); }
