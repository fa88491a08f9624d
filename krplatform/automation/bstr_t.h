// The counted automation text with its narrow form.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

/// A text that copies by counting. The narrow form is made by the process code page when it is first asked for and
/// lives as long as the text.
///
///     _bstr_t text(OLESTR("wall"));
///     char const * narrow = text;            -> "wall", valid as long as `text` or a copy of it
///     text += _bstr_t("s");                  -> copies made before keep "wall"
///
/// Text made from a null pointer is no text, and no text is equal to empty text. Throws `_com_error` of E_OUTOFMEMORY
/// when memory runs out; the object then stays as it was. Objects that share a text belong to one thread at a time.
class KRPLATFORM_API _bstr_t
{
public:
    _bstr_t() noexcept = default;
    _bstr_t(_bstr_t const & other) noexcept;
    _bstr_t(_bstr_t && other) noexcept;
    /// Reads `text` in the process code page.
    _bstr_t(char const * text);
    _bstr_t(WCHAR const * text);
    /// Copies `text` with its stored length, or takes it over where `copy` is false; after a failure it stays the
    /// caller's.
    _bstr_t(BSTR text, bool copy);
    ~_bstr_t();

    _bstr_t & operator=(_bstr_t const & other) noexcept;
    _bstr_t & operator=(_bstr_t && other) noexcept;
    _bstr_t & operator=(char const * text);
    _bstr_t & operator=(WCHAR const * text);

    /// Two objects without text give one without text.
    _bstr_t & operator+=(_bstr_t const & other);
    friend KRPLATFORM_API _bstr_t operator+(_bstr_t const & left, _bstr_t const & right);

    /// Null for an object without text.
    operator WCHAR const *() const noexcept;
    /// Null for an object without text. Units that the code page lacks are look-alikes or its default character.
    operator char const *() const;

    /// Units.
    unsigned int length() const noexcept;
    /// A new copy, owned by the receiver; null for an object without text.
    BSTR copy() const;
    /// Hands the text to the caller; other objects that share it keep theirs. Null for an object without text.
    BSTR Detach();

    /// By exact content, zeros inside included.
    friend KRPLATFORM_API bool operator==(_bstr_t const & left, _bstr_t const & right) noexcept;

private:
    struct Data;

    static Data * NewData(BSTR text);
    void Release() noexcept;

    Data * m_data = nullptr;
};
