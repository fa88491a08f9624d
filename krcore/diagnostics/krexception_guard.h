// The guard that closes an operation: whatever is thrown inside leaves it as a `CKrException`.
#pragma once

#include <krcore/diagnostics/krsourcelocation.h>

#include <optional>

namespace kr::detail
{

/// Throws on what is being handled, as a `CKrException` that has `location` added. The guard without a text is `text`
/// nullopt, which is not the same as an empty one. To be called in a catch block.
///
///     caught                   thrown on
///     CKrCriticalException     a copy as a plain CKrException, with "\n" and the text behind its message
///     CKrException             the same object, with "\n" and the text, if there is one, behind its message
///     CException *             a new CKrException "MFC_EXCEPTION::%s"; what was caught is freed
///     _com_error               a new CKrException "_EXCEPTION::%s"
///     std::exception           a new CKrException "STL_EXCEPTION::%s"
///     char *                   a new CKrException "CHAR_EXCEPTION::%s"
///     anything else            a new CKrException "UNKNOWN_EXCEPTION", also for a char const *
///
/// A new exception is of `eLevelNormal`, with "\n" and the text behind its message. Deliberate: critical and new ones
/// get the "\n" also where there is no text. Deliberate: a critical one loses its class here, and only here, and keeps
/// its level. `CMemoryException *` is thrown when memory runs out.
[[noreturn]] KRCORE_API void RethrowAsKrException(SourceLocation const & location,
                                                  std::optional<SourceText> const & text);

} // namespace kr::detail

/// Closes the try block that is the whole body of an operation. File (a narrow literal, an OLESTR literal or a
/// `CString`) and line are arguments, so that a location does not move when code is edited.
///
///     try
///     {
///         ...
///     }
///     KR_CATCH_ALL("krpropertyset", 553)
#define KR_CATCH_ALL(file, line)                                                                                       \
    catch (...) { ::kr::detail::RethrowAsKrException({file, line}, std::nullopt); }

/// The same with a text, given like the file.
#define KR_CATCH_ALL_TEXT(file, line, text)                                                                            \
    catch (...) { ::kr::detail::RethrowAsKrException({file, line}, ::kr::detail::SourceText(text)); }
