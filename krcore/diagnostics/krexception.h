// The one exception type of the library.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

#include <exception>
#include <vector>

/// A failure with its message and the places that it passed on its way up, the place of the throw first.
///
///     CKrException exception(OLESTR("a"), OLESTR("f"), 3, CKrException::eLevelNormal);
///     exception.GetErrorMessage(true)      -> "a\nf(3): "
///     exception.what()                     -> "a"
///
/// Where memory runs out `CMemoryException *` is thrown and the object stays as it was.
class KRCORE_API CKrException : public std::exception
{
public:
    /// Severity; clients compare it as a number.
    enum ELevel : int
    {
        eLevelLow = 0,
        eLevelNormal = 1,
        eLevelCritical = 2
    };

    /// Level `eLevelNormal`, no message, no location.
    CKrException();
    /// With the first location made of `file` and `line`.
    CKrException(CString const & message, CString const & file, long line, ELevel level);
    CKrException(CKrException const & other);
    ~CKrException() override;

    /// The message without locations, in the process code page. Deliberate: the text is kept once for the whole class,
    /// so it is valid until the next `what` on any `CKrException`, in any thread. Empty text when memory runs out.
    char const * what() const noexcept override;
    /// Shows `GetErrorMessage(withPath)` in a message box and returns its answer. No icon is added to `style`.
    virtual int ReportError(unsigned int style, bool withPath) const;
    /// The message, with `withPath` followed by the locations, each behind a line end.
    virtual CString GetErrorMessage(bool withPath) const;
    /// The message with its locations between the lines that mark an exception in a trace.
    virtual CString GetTraceMessage() const;
    /// For an object made with `new`: frees it and throws a copy as a `CKrException`, also where the object is of a
    /// derived class. May be called on a null pointer by its qualified name and throws a default exception then.
    virtual void ThrowException();

    CKrException & operator=(CKrException const & other);

    /// Appends a line end and `text`, also where either text is empty.
    void AddMessage(CString const & text);
    /// Adds a location, "file(line): "; of the line the low 32 bits are shown.
    void AddPath(CString const & file, long line);

    ELevel GetLevel() const;
    /// Always true: no operation changes it.
    bool ShouldReportToDebugwindow() const;

    /// The string resource `stringId` of the current resource module, formatted by the rules of `CString::Format`. A
    /// missing resource gives empty text. Texts are given as pointers to code units, not as `CString` objects.
    static CString FormatText(long stringId, ...);
    /// The same with a given format. A null format raises E_INVALIDARG.
    static CString FormatText(WCHAR const * format, ...);

private:
    ELevel m_nLevel;
    CString m_strMessage;
    std::vector<CString> m_paths;
    bool m_bReportToDebugwindow;
};
