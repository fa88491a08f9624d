#include <krplatform/base/cexception.h>
#include <krplatform/system/messagebox.h>
#include <krplatform/system/systemmessage.h>

#include <algorithm>
#include <cstddef>
#include <new>

namespace
{

constexpr UINT maximumMessage = 2048;

BOOL CopyMessage(kr::detail::TextView message, WCHAR * text, UINT size, UINT * helpContext)
{
    if (helpContext)
        *helpContext = 0;
    if (!text || size == 0)
        return FALSE;
    std::size_t const length = std::min<std::size_t>(message.size(), size - 1);
    std::copy_n(message.data(), length, text);
    text[length] = 0;
    return !message.empty();
}

} // namespace

CException::CException(bool deletable) : m_deletable(deletable) {}

void CException::Delete()
{
    if (m_deletable)
        delete this;
}

BOOL CException::GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext) const
{
    return CopyMessage({}, text, size, helpContext);
}

int CException::ReportError(UINT style, UINT)
{
    WCHAR text[maximumMessage];
    return AfxMessageBox(GetErrorMessage(text, maximumMessage) ? text : OLESTR("Unknown error."), style);
}

CMemoryException::CMemoryException(bool deletable) : CException(deletable) {}

BOOL CMemoryException::GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext) const
{
    return CopyMessage(OLESTR("Out of memory."), text, size, helpContext);
}

COleException::COleException() : m_sc(S_OK) {}

BOOL COleException::GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext) const
{
    WCHAR message[maximumMessage];
    DWORD const length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(m_sc), 0, message, maximumMessage, nullptr);
    return CopyMessage({message, length}, text, size, helpContext);
}

void AfxThrowMemoryException()
{
    // Never destroyed, so that memory may run out while other statics end.
    alignas(CMemoryException) static std::byte memory[sizeof(CMemoryException)];
    static CMemoryException * const exception = new (memory) CMemoryException(false);
    throw exception;
}

void AfxThrowOleException(SCODE result)
{
    COleException * const exception = new (std::nothrow) COleException;
    if (!exception)
        AfxThrowMemoryException();
    exception->m_sc = result;
    throw exception;
}

void AtlThrow(HRESULT result)
{
    if (result == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    AfxThrowOleException(result);
}
