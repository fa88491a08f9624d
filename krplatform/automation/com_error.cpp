#include <krplatform/automation/com_error.h>

#include <krplatform/automation/owned_text.h>
#include <krplatform/system/systemmessage.h>

#include <cstdio>

using namespace kr::detail;

namespace
{

// The results in which an interface numbers errors of its own.
constexpr HRESULT firstInterfaceError = HresultFromCode(0x80040200);
constexpr HRESULT lastInterfaceError = HresultFromCode(0x8004FFFF);

bool IsInterfaceError(HRESULT result) { return result >= firstInterfaceError && result <= lastInterfaceError; }

constexpr DWORD maximumMessage = 2048;

// Without text where the system has none.
_bstr_t SystemMessage(HRESULT result)
{
    WCHAR message[maximumMessage];
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                  static_cast<DWORD>(result), 0, message, maximumMessage, nullptr);
    if (length && message[length - 1] == OLESTR('\n'))
        --length;
    if (length && message[length - 1] == OLESTR('\r'))
        --length;
    message[length] = 0;
    return length ? _bstr_t(message) : _bstr_t();
}

_bstr_t NumberMessage(_com_error const & error)
{
    char narrow[40];
    if (IsInterfaceError(error.Error()))
        std::snprintf(narrow, sizeof narrow, "IDispatch error #%d", int{error.WCode()});
    else
        std::snprintf(narrow, sizeof narrow, "Unknown error 0x%0X", static_cast<unsigned int>(error.Error()));
    return narrow;
}

// What the object tells through one of its operations.
_bstr_t Told(IErrorInfo * errorInfo, HRESULT (IErrorInfo::*operation)(BSTR *))
{
    BSTR text = nullptr;
    if (!errorInfo || FAILED((errorInfo->*operation)(&text)))
        return {};
    OwnedText owned(text);
    _bstr_t told(owned.get(), false);
    owned.release();
    return told;
}

} // namespace

_com_error::_com_error(HRESULT result, IErrorInfo * errorInfo, bool addReference) noexcept
    : m_result(result), m_errorInfo(errorInfo, addReference)
{
}

_com_error::_com_error(_com_error const & other) noexcept = default;
_com_error & _com_error::operator=(_com_error const & other) noexcept = default;
_com_error::~_com_error() = default;

HRESULT _com_error::Error() const noexcept { return m_result; }

IErrorInfo * _com_error::ErrorInfo() const noexcept { return IErrorInfoPtr(m_errorInfo).Detach(); }

WORD _com_error::WCode() const noexcept
{
    return IsInterfaceError(m_result) ? static_cast<WORD>(m_result - firstInterfaceError) : WORD{0};
}

_bstr_t _com_error::Description() const { return Told(m_errorInfo, &IErrorInfo::GetDescription); }

_bstr_t _com_error::Source() const { return Told(m_errorInfo, &IErrorInfo::GetSource); }

WCHAR const * _com_error::ErrorMessage() const
{
    if (!static_cast<WCHAR const *>(m_message))
        m_message = SystemMessage(m_result);
    if (!static_cast<WCHAR const *>(m_message))
        m_message = NumberMessage(*this);
    return m_message;
}

void _com_issue_error(HRESULT result) { throw _com_error(result); }

void _com_raise_error(HRESULT result, IErrorInfo * errorInfo) { throw _com_error(result, errorInfo); }
