#include <krcore/diagnostics/krexception_guard.h>

#include <krcore/diagnostics/krcriticalexception.h>
#include <krplatform/automation/com_error.h>
#include <krplatform/base/cexception.h>

#include <memory>

namespace kr::detail
{

namespace
{

/// Gives the message of a platform exception and frees it, also where the message cannot be made.
CString TakeMessage(CException * exception)
{
    struct Free
    {
        void operator()(CException * held) const { held->Delete(); }
    };
    std::unique_ptr<CException, Free> const owner(exception);
    constexpr UINT size = 255;
    WCHAR message[size] = {};
    if (exception)
        exception->GetErrorMessage(message, size);
    return message;
}

CString MessageOf(_com_error const & error)
{
    try
    {
        return error.ErrorMessage();
    }
    catch (_com_error const &)
    {
        AfxThrowMemoryException(); // as every other text here
    }
}

[[noreturn]] void ThrowNew(CString const & message, SourceLocation const & location,
                           std::optional<SourceText> const & text)
{
    CString const added = text ? text->ToString() : CString();
    throw CKrException(message + OLESTR('\n') + added, location.file.ToString(), location.line,
                       CKrException::eLevelNormal);
}

} // namespace

void RethrowAsKrException(SourceLocation const & location, std::optional<SourceText> const & text)
{
    try
    {
        throw;
    }
    catch (CKrCriticalException & exception)
    {
        exception.AddPath(location.file.ToString(), location.line);
        exception.AddMessage(text ? text->ToString() : CString());
        throw CKrException(exception);
    }
    catch (CKrException & exception)
    {
        exception.AddPath(location.file.ToString(), location.line);
        if (text)
            exception.AddMessage(text->ToString());
        throw; // the same object, which may be of a client's derived class
    }
    catch (CException * exception)
    {
        ThrowNew(OLESTR("MFC_EXCEPTION::") + TakeMessage(exception), location, text);
    }
    catch (_com_error & error)
    {
        ThrowNew(OLESTR("_EXCEPTION::") + MessageOf(error), location, text);
    }
    catch (std::exception & exception)
    {
        // the process code page is the thread's as well
        ThrowNew(OLESTR("STL_EXCEPTION::") + CString(exception.what()), location, text);
    }
    catch (char * message)
    {
        ThrowNew(OLESTR("CHAR_EXCEPTION::") + CString(message), location, text);
    }
    catch (...)
    {
        ThrowNew(OLESTR("UNKNOWN_EXCEPTION"), location, text);
    }
}

} // namespace kr::detail
