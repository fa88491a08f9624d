// The exceptions of the platform. They are thrown by pointer and freed by whoever catches them, with `Delete`.
#pragma once

#include <krplatform/base/cobject.h>
#include <krplatform/base/hresult.h>

/// Root of the platform's exceptions.
///
///     try { ... }
///     catch (CException * exception) { WCHAR text[255]; exception->GetErrorMessage(text, 255); exception->Delete(); }
class KRPLATFORM_API CException : public CObject
{
public:
    /// Frees the object. An exception that was made without memory of its own (out of memory) ignores it.
    void Delete();

    /// Writes the message into `text`, cut to `size` - 1 units and always terminated. `helpContext` receives 0. False,
    /// with empty text, if there is no message, `text` is null or `size` is 0.
    virtual BOOL GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext = nullptr) const;

    /// Shows the message in a message box, or "Unknown error." where there is none, and returns the answer of the box.
    virtual int ReportError(UINT style = 0, UINT messageId = 0);

protected:
    explicit CException(bool deletable = true);

private:
    bool m_deletable;
};

/// Memory ran out. There is one object per process, which needs no memory when it is thrown.
class KRPLATFORM_API CMemoryException : public CException
{
public:
    explicit CMemoryException(bool deletable);
    BOOL GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext = nullptr) const override;
};

/// A failed automation call; `m_sc` is its result.
class KRPLATFORM_API COleException : public CException
{
public:
    COleException();
    /// The system's message for `m_sc`, with its line end.
    BOOL GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext = nullptr) const override;

    SCODE m_sc;
};

/// Throws the process's `CMemoryException *`.
[[noreturn]] KRPLATFORM_API void AfxThrowMemoryException();

/// Throws a new `COleException *` with that result. Where no memory is left for it, the memory exception takes its
/// place.
[[noreturn]] KRPLATFORM_API void AfxThrowOleException(SCODE result);

/// Throws what `result` means: the memory exception for E_OUTOFMEMORY, a `COleException *` for all others.
[[noreturn]] KRPLATFORM_API void AtlThrow(HRESULT result);
