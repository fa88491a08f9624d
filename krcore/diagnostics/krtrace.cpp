#include <krcore/diagnostics/krtrace.h>

#include <krcore/text/krcharformatter.h>
#include <krplatform/base/cexception.h>
#include <krplatform/datetime/ctime.h>
#include <krplatform/system/environment.h>
#include <krplatform/system/messagebox.h>
#include <krplatform/system/textfile.h>

#include <cstdlib>
#include <string>

namespace
{

// The text in the process code page, with a line end.
std::string EncodeLine(CString const & text)
{
    std::string line;
    line.reserve(static_cast<std::size_t>(text.GetLength()) + 1);
    for (WCHAR const character : text.View())
    {
        if (character < 128)
        {
            line += static_cast<char>(character);
            continue;
        }
        char bytes[2];
        unsigned int const count =
            CKrCharFormatter::WcharToAnsiOrUtf8(character, bytes, sizeof bytes, true, false, false);
        if (count == 1 || count == 2)
            line.append(bytes, count);
        else
            line += '?';
    }
    line += '\n';
    return line;
}

} // namespace

std::unique_ptr<CKrTrace> CKrTrace::s_pCKrTraceStatic;

CKrTrace::CKrTrace() : m_pStream(std::make_shared<kr::detail::TextFile>()) {}

CKrTrace::CKrTrace(CString const & fileName, CString const & envName) : CKrTrace()
{
    if (!envName.IsEmpty() && !CheckTrace(envName))
        return;
    m_bOn = true;
    bool failed = false;
    try
    {
        m_pStream->Open(fileName);
    }
    catch (CException * exception)
    {
        exception->Delete();
        failed = true;
    }
    catch (...)
    {
        failed = true;
    }
    if (failed)
    {
        AfxMessageBox(OLESTR("can\u00B4t open trace file"), 0, 0);
        m_bOn = false;
    }
}

CKrTrace::CKrTrace(CKrTrace const & other) = default;

CKrTrace & CKrTrace::operator=(CKrTrace const & other) = default;

CKrTrace::~CKrTrace() = default;

CKrTrace * CKrTrace::GetObjectW(CString const & fileName, CString const & envName)
{
    if (!s_pCKrTraceStatic)
        s_pCKrTraceStatic.reset(new CKrTrace(fileName, envName));
    return s_pCKrTraceStatic.get();
}

CKrTrace * CKrTrace::GetObjectW(bool create)
{
    if (!s_pCKrTraceStatic && create)
        s_pCKrTraceStatic.reset(new CKrTrace);
    return s_pCKrTraceStatic.get();
}

void CKrTrace::SetObject(CKrTrace * trace, bool overwrite)
{
    if (s_pCKrTraceStatic && !overwrite)
        return;
    if (s_pCKrTraceStatic.get() != trace)
        s_pCKrTraceStatic.reset(trace);
}

bool CKrTrace::CheckTrace(CString const & envName)
{
    if (envName.IsEmpty())
        return false;
    WCHAR * value = nullptr;
    _wdupenv_s(&value, nullptr, envName);
    std::unique_ptr<WCHAR, decltype(&std::free)> const owner(value, &std::free);
    return value && kr::detail::TextView(value) == OLESTR("true");
}

void CKrTrace::Trace(CString const & text, bool)
{
    if (m_bOn)
        m_pStream->Write(EncodeLine(text));
}

void CKrTrace::Trace(CString const & text, CString const & file, long line)
{
    if (!m_bOn)
        return;
    int const last = file.ReverseFind(OLESTR('\\'));
    CString const name = last > 0 ? file.Mid(last + 1) : file;
    CString const time = CTime::GetCurrentTime().Format(OLESTR("%H:%M:%S"));
    CString prefixed;
    prefixed.Format(OLESTR("%s-%-30s(%ld): \t"), time, name, line);
    Trace(prefixed + text, true);
}

void CKrTrace::Trace(CKrError const & error, bool report)
{
    if (!m_bOn)
        return;
    Trace(error.GetTraceMessage(), true);
    if (report && m_bReportError)
        error.ReportError(false, true, 0);
}

void CKrTrace::Trace(CKrErrorStack const & stack)
{
    if (m_bOn)
        Trace(stack.GetTraceMessage(), true);
}

void CKrTrace::Trace(CKrException const & exception, bool report)
{
    if (!m_bOn || exception.GetLevel() < m_nErrorLevel)
        return;
    Trace(exception.GetTraceMessage(), true);
    if ((report && m_bReportError) || m_bReportAllExceptions)
        exception.ReportError(0, false);
}
