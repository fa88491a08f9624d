// A place in a source file, as reports name it.
#pragma once

#include <krcore/export.h>
#include <krplatform/text/cstring.h>

namespace kr::detail
{

/// A text that is lent for the time of a call: a narrow literal, a literal of code units or a `CString`. It takes no
/// memory until `ToString`. Null is empty text.
class SourceText
{
public:
    constexpr SourceText(char const * text) : m_narrow(text) {}
    constexpr SourceText(WCHAR const * text) : m_wide(text) {}
    SourceText(CString const & text) : m_wide(text.GetString()) {}

    /// Narrow text is read in the process code page.
    CString ToString() const { return m_narrow ? CString(m_narrow) : CString(m_wide); }

private:
    char const * m_narrow = nullptr;
    WCHAR const * m_wide = nullptr;
};

/// File and line.
///
///     SourceLocation{"krpropertyset", 553}.ToString()      -> "krpropertyset(553): "
struct KRCORE_API SourceLocation
{
    SourceText file;
    long line;

    /// The low 32 bits of the line are shown, as a signed number.
    CString ToString() const;
};

} // namespace kr::detail
