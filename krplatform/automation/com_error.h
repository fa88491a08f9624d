// The carrier of a failed automation result.
#pragma once

#include <krplatform/automation/bstr_t.h>
#include <krplatform/automation/com_ptr.h>
#include <krplatform/export.h>

/// A failed result with what the object told of it. Thrown by value.
///
///     _com_error(E_FAIL).ErrorMessage()                -> the system's message, "Unspecified error"
///     _com_error(0x80040205).ErrorMessage()            -> "IDispatch error #5", where the system has no message
///     _com_error(0x8004FFFF).Description().length()    -> 0: no object told anything
class KRPLATFORM_API _com_error
{
public:
    /// Takes one reference of `errorInfo` over, or adds one of its own where `addReference` is set. Null is allowed.
    explicit _com_error(HRESULT result, IErrorInfo * errorInfo = nullptr, bool addReference = false) noexcept;
    _com_error(_com_error const & other) noexcept;
    _com_error & operator=(_com_error const & other) noexcept;
    virtual ~_com_error();

    HRESULT Error() const noexcept;
    /// One more reference for the caller, or null.
    IErrorInfo * ErrorInfo() const noexcept;
    /// The number of an interface's own error, counted from 0x80040200 to 0x8004FFFF; 0 for every other result.
    WORD WCode() const noexcept;

    /// What the object told; without text where there is no object or the call fails. Throws `_com_error` of
    /// E_OUTOFMEMORY when memory runs out.
    _bstr_t Description() const;
    _bstr_t Source() const;

    /// The system's message for the result without its last line end; where it has none "IDispatch error #%d" with
    /// `WCode` for an interface's own error, otherwise "Unknown error 0x%0lX". Made on the first call, valid as long as
    /// the object. Throws as above.
    WCHAR const * ErrorMessage() const;

private:
    HRESULT m_result;
    IErrorInfoPtr m_errorInfo;
    mutable _bstr_t m_message;
};

/// Throws a `_com_error` with an error object, whose reference it takes over.
[[noreturn]] KRPLATFORM_API void _com_raise_error(HRESULT result, IErrorInfo * errorInfo = nullptr);
