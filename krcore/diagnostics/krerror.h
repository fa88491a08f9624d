// One error as a value.
#pragma once

#include <krcore/export.h>
#include <krplatform/system/module.h>
#include <krplatform/text/cstring.h>

#include <memory>

class CKrMessagePool;
class _com_error;

/// One error: what kind it is, how severe, and up to three texts (message, second message, location). The library makes none by
/// itself; clients make them, fill their messages, push them onto a `CKrErrorStack` and report or trace them.
///
///     CKrError error = CKrError::IdError(1500);
///     error.FillMessage(pool);                                -> true if the pool has a text for 1500
///     error.AddLocation(OLESTR("reader.cpp"), 12);
///     error.GetFormattedMessage(true, true)                   -> "No such layer\nreader.cpp(12): "
///     CKrError::StringError(OLESTR("x")) == 5ul               -> false: an error of text has no number
///
/// Beside the stack, the process has one last error. It is not guarded against use from several threads.
class KRCORE_API CKrError
{
public:
    /// What the number of an error is.
    enum EType : int
    {
        eUndefined = 0,   ///< nothing
        eIdError = 1,     ///< a message id
        eComError = 2,    ///< an HRESULT
        eStringError = 3, ///< nothing: the message was given
        eSystemError = 4  ///< a code of the system
    };

    /// Severity, compared by number. Any other value is shown as `eError`.
    enum ELevel : int
    {
        eInformation = 0,
        eWarning = 1,
        eError = 2
    };

    /// `eUndefined`, `eError`, number 0, no texts.
    CKrError();
    CKrError(CKrError const & other);
    CKrError & operator=(CKrError const & other);
    virtual ~CKrError();

    static CKrError IdError(unsigned int id);
    /// The id is the low 16 bits of the HRESULT with their sign; the message is the error's description.
    static CKrError IdError(_com_error & error);
    static CKrError ComError(long result);
    /// With the error's description as message.
    static CKrError ComError(_com_error & error);
    static CKrError StringError(CString const & text);
    static CKrError SystemError(unsigned long code);

    unsigned int GetErrorID() const noexcept { return m_nErrorID; }
    EType GetType() const noexcept { return m_nType; }
    ELevel GetLevel() const noexcept { return m_nLevel; }
    void SetLevel(ELevel level) noexcept { m_nLevel = level; }
    CString GetErrorMessage() const { return m_strMessage; }
    void SetErrorMessage(CString const & message) { m_strMessage = message; }
    CString GetSecondMessage() const { return m_strSecondMessage; }
    void SetSecondMessage(CString const & message) { m_strSecondMessage = message; }
    /// Sets the one location, "file(line): ", with the low 32 bits of the line; a second call replaces the first.
    void AddLocation(CString const & file, long line);

    /// Gives an error without a message the one of its number: from the pool or the module's string resources (null: the current
    /// resource module) for an id, from the system for a system error. True if there is a message afterwards; one that is
    /// there is never overwritten.
    bool FillMessage(CKrMessagePool const & pool);
    bool FillMessage(HINSTANCE module);

    /// Shows the formatted message in a box, with the icon of the level unless `style` has one, and returns the answer. Empty text
    /// is shown too.
    virtual int ReportError(bool second, bool location, unsigned int style) const;
    /// Message, second message and location, those asked for and not empty, with line ends between them.
    virtual CString GetFormattedMessage(bool second, bool location) const;
    /// The block for the trace file.
    virtual CString GetTraceMessage() const;

    /// Whether this is an error of that kind and number, of which the low 32 bits count; 0 stands for any number.
    bool IsIdError(unsigned int id) const noexcept;
    bool IsSystemError(unsigned long code) const noexcept;

    /// Equal level and type, then the messages of errors of text, the numbers of all others.
    bool operator==(CKrError const & other) const;
    /// Deliberate: the number alone counts, whatever the type; an error of text never matches.
    bool operator==(unsigned long id) const noexcept;

    /// Keeps a copy as the process's last error. One that is there stays unless `overwrite` is set, so that the first failure
    /// survives.
    static void SetLastError(CKrError const & error, bool overwrite);
    /// The last error or null; owned here, valid until the next `SetLastError` or `ClearLastError`.
    static CKrError * GetLastError();
    static void ClearLastError();

private:
    CKrError(EType type, unsigned int id, CString const & message);

    bool GetMsgFromMsgPool(CKrMessagePool const & pool);
    bool GetMsgFromResourceID(HINSTANCE module);
    bool GetMsgFromSystem();

    ELevel m_nLevel;
    EType m_nType;
    unsigned int m_nErrorID;
    CString m_strMessage;
    CString m_strSecondMessage;
    CString m_strLocation;

    static std::unique_ptr<CKrError> s_pLastError;
};
