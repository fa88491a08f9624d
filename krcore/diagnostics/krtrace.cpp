#include <krcore/diagnostics/krtrace.h>

#include <krcore/text/krcharformatter.h>
#include <krplatform/base/cexception.h>
#include <krplatform/datetime/ctime.h>
#include <krplatform/system/environment.h>
#include <krplatform/system/messagebox.h>
#include <krplatform/system/textfile.h>
#include <krplatform/text/textunits.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <string>

namespace
{

// Adds the text in the process code page, where a character has two bytes at most.
void AppendEncoded(CString const & text, std::string & line)
{
    std::size_t const start = line.size();
    std::size_t const length = text.View().size();
    if (kr::detail::IsAscii(text.View()))
    {
        line.resize(start + length);
        kr::detail::CopyAscii(line.data() + start, text.GetString(), length);
        return;
    }
    line.resize(start + 2 * length);
    char * place = line.data() + start;
    for (WCHAR const character : text.View())
    {
        if (character < 128)
        {
            *place++ = static_cast<char>(character);
            continue;
        }
        unsigned int const count = CKrCharFormatter::WcharToAnsiOrUtf8(character, place, 2, true, false, false);
        if (count == 1 || count == 2)
            place += count;
        else
            *place++ = '?';
    }
    line.resize(static_cast<std::size_t>(place - line.data()));
}

void AppendTwoDigits(int number, std::string & line)
{
    line += static_cast<char>('0' + number / 10);
    line += static_cast<char>('0' + number % 10);
}

// What most names and numbers of lines take, the line end included.
constexpr std::size_t locationRoom = 64;

// Adds what stands before the text of a line with its location: "%H:%M:%S" in local time, then "-%-30s(%ld): \t".
void AppendLocation(CString const & name, long number, std::string & line)
{
    constexpr int nameWidth = 30;
    std::tm now{};
    CTime::GetCurrentTime().GetLocalTm(&now);
    AppendTwoDigits(now.tm_hour, line);
    line += ':';
    AppendTwoDigits(now.tm_min, line);
    line += ':';
    AppendTwoDigits(now.tm_sec, line);
    line += '-';
    AppendEncoded(name, line);
    line.append(static_cast<std::size_t>(std::max(nameWidth - name.GetLength(), 0)), ' ');
    line += '(';
    line += std::to_string(static_cast<LONG>(number));
    line += "): \t";
}

} // namespace

std::unique_ptr<CKrTrace> CKrTrace::s_pCKrTraceStatic;

CKrTrace::CKrTrace() : m_pStream(std::make_shared<kr::detail::TextFile>()) {}

CKrTrace::CKrTrace(CString const & fileName, CString const & envName) : CKrTrace()
{
    if (!envName.IsEmpty() && !CheckTrace(envName))
        return;
    m_bOn = true;
    try
    {
        m_pStream->Open(fileName);
        return;
    }
    catch (...)
    {
    }
    AfxMessageBox(OLESTR("can\u00B4t open trace file"), 0, 0);
    m_bOn = false;
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
    if (!m_bOn)
        return;
    std::string encoded;
    encoded.reserve(text.View().size() + 1);
    AppendEncoded(text, encoded);
    encoded += '\n';
    m_pStream->Write(encoded);
}

void CKrTrace::Trace(CString const & text, CString const & file, long line)
{
    if (!m_bOn)
        return;
    int const last = file.ReverseFind(OLESTR('\\'));
    CString const name = last > 0 ? file.Mid(last + 1) : file;
    std::string encoded;
    encoded.reserve(locationRoom + name.View().size() + text.View().size());
    AppendLocation(name, line, encoded);
    AppendEncoded(text, encoded);
    encoded += '\n';
    m_pStream->Write(encoded);
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
