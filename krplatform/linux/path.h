// File names between the text of the interface and the bytes that the system takes.
#pragma once

#include <krplatform/base/wchar.h>

#include <optional>
#include <string>
#include <string_view>

namespace kr::detail
{

/// The system's spelling of a name: UTF-8, with `\` turned to `/`. Nothing, with the last error set, for a null or
/// empty name (ERROR_PATH_NOT_FOUND) and for text with a lone surrogate, which is the name of no file
/// (ERROR_INVALID_NAME).
std::optional<std::string> ToNativePath(WCHAR const * name);

/// The spelling in which the system's paths are handed out: `/` turned to `\`, and two of them for the root, so that
/// `/usr/lib/x.so` is `\\usr\lib\x.so`. Bytes that are not UTF-8 become U+FFFD; such a name no longer reaches its file.
std::basic_string<WCHAR> FromNativePath(std::string_view path);

/// The path from the root, without `.` and empty parts. `..` stays, as behind a symbolic link it does not lead back.
std::string AbsolutePath(std::string_view path);

/// What stands behind the last `/`.
std::string_view FileNameOf(std::string_view path);

/// What stands before the last `/` of an absolute path: nothing for a file in the root.
std::string_view DirectoryOf(std::string_view path);

} // namespace kr::detail
