// The process's diagnostic log.
#pragma once

#include <krcore/diagnostics/krerror.h>
#include <krcore/diagnostics/krerrorstack.h>
#include <krcore/diagnostics/krexception.h>
#include <krcore/export.h>
#include <krplatform/text/cstring.h>

#include <memory>

namespace kr::detail
{
class TextFile;
}

/// One text file, written line by line and flushed at each, that an environment variable switches on. It takes plain lines, lines with
/// time and location, and the blocks of errors and exceptions. There is one trace per process; whoever comes first makes it:
///
///     CKrTrace::GetObjectW(OLESTR("/tmp/plan.log"), OLESTR("PLAN_TRACE"));       on if PLAN_TRACE is exactly "true"
///     CKrTrace::GetObjectW(true)->Trace(OLESTR("reading"), OLESTR("reader"), 12);
///         -> "12:34:56-reader                        (12): <tab>reading"
///
/// Deliberate: a first call of `GetObjectW(true)` makes a trace that stays off, and the library itself makes such calls.
///
/// The file holds text in the process code page; a character without a form there is its default character or "?". A file that
/// cannot be opened, and a write that fails, go unnoticed: the trace never disturbs the program. While the trace is off nothing
/// is written and no box is shown. Threads that trace at the same time may mix their lines.
class KRCORE_API CKrTrace
{
public:
    /// On if `envName` is empty or that variable is exactly "true"; the file is then made, or cut to nothing. Otherwise off, and
    /// no file is touched.
    CKrTrace(CString const & fileName, CString const & envName);
    /// Copies write to the same file.
    CKrTrace(CKrTrace const & other);
    CKrTrace & operator=(CKrTrace const & other);
    virtual ~CKrTrace();

    /// The process's trace, made with these arguments if there is none; otherwise they are ignored.
    static CKrTrace * GetObjectW(CString const & fileName, CString const & envName);
    /// The process's trace; if there is none, one that is off with `create`, otherwise null.
    static CKrTrace * GetObjectW(bool create);
    /// Makes `trace` the process's trace and takes ownership. Where there is one already and `overwrite` is not set nothing happens,
    /// and the caller keeps `trace`. A replaced trace is destroyed; null leaves none.
    static void SetObject(CKrTrace * trace, bool overwrite);

    bool IsOn() const noexcept { return m_bOn; }
    /// Exceptions below this level are neither written nor shown.
    CKrException::ELevel GetErrorLevel() const noexcept { return m_nErrorLevel; }
    void SetErrorLevel(CKrException::ELevel level) noexcept { m_nErrorLevel = level; }
    /// Whether errors and exceptions may show a box when the caller asks for it; true at start.
    bool GetReportError() const noexcept { return m_bReportError; }
    void SetReportError(bool report) noexcept { m_bReportError = report; }
    /// Whether every exception that is written shows a box; false at start.
    bool GetReportAllExceptions() const noexcept { return m_bReportAllExceptions; }
    void SetReportAllExceptions(bool report) noexcept { m_bReportAllExceptions = report; }

    /// Writes the text as one line. The flag has no effect.
    void Trace(CString const & text, bool unused);
    /// The same behind local time and location; `file` loses what stands before its last `\`, unless that is its first character.
    void Trace(CString const & text, CString const & file, long line);
    /// Writes the error's block; with `report`, shows its message and location too.
    void Trace(CKrError const & error, bool report);
    void Trace(CKrErrorStack const & stack);
    void Trace(CKrException const & exception, bool report);

protected:
    /// Off, with no file.
    CKrTrace();

private:
    static bool CheckTrace(CString const & envName);

    CKrException::ELevel m_nErrorLevel = CKrException::eLevelLow;
    bool m_bReportError = true;
    bool m_bReportAllExceptions = false;
    bool m_bOn = false;
    std::shared_ptr<kr::detail::TextFile> m_pStream;

    static std::unique_ptr<CKrTrace> s_pCKrTraceStatic;
};
