// Questions to the file system. Names are in Windows or POSIX spelling and reach the system as UTF-8; text with a lone
// surrogate is the name of no file (ERROR_INVALID_NAME).
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/datetime/ctime.h>
#include <krplatform/system/errorcodes.h>
#include <krplatform/text/cstring.h>

constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

/// The attributes of a file or directory, through links: directory, read-only (not writable for this user), hidden (a
/// name with a leading point), or normal if none of them. INVALID_FILE_ATTRIBUTES, with the last error set, if there is
/// none of that name.
KRPLATFORM_API DWORD GetFileAttributesW(WCHAR const * name);

/// A handle of an open file.
using HANDLE = void *;
inline HANDLE const INVALID_HANDLE_VALUE = reinterpret_cast<HANDLE>(~std::uintptr_t{0});

constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;

/// Opens a file; INVALID_HANDLE_VALUE, with the last error set, for a failure. Opening waits for nobody, and child
/// programs do not inherit the handle.
///
/// A file opened without FILE_SHARE_READ and FILE_SHARE_WRITE is nobody else's while it is open; with either of them it
/// is shared with all who share it too. What another has open against that fails with ERROR_SHARING_VIOLATION, and the
/// file's content stays. On Linux these are the locks of `flock`, which only those see who ask for them; where the file
/// system has none, every file is shared. CREATE_ALWAYS makes the file, or empties it, and asks for GENERIC_WRITE.
/// A directory cannot be opened (ERROR_ACCESS_DENIED). Security, attributes and template play no part; other values are
/// refused (ERROR_INVALID_PARAMETER).
KRPLATFORM_API HANDLE CreateFileW(WCHAR const * name, DWORD access, DWORD share, void * security, DWORD creation,
                                  DWORD attributes, HANDLE templateFile);

/// False, with ERROR_INVALID_HANDLE, for a handle that is not open.
KRPLATFORM_API BOOL CloseHandle(HANDLE handle);

/// Writes all bytes, with one call of the system where it takes them at once. False, with the last error set, for a
/// failure. `*written` (which may be null) receives the number of bytes written in both cases. `overlapped` must be
/// null.
KRPLATFORM_API BOOL WriteFile(HANDLE handle, void const * bytes, DWORD count, DWORD * written, void * overlapped);

/// What is known of a file.
struct CFileStatus
{
    CTime m_ctime;        ///< when it was made, or where the file system does not keep that, last changed in its record
    CTime m_mtime;        ///< last write
    CTime m_atime;        ///< last access
    ULONGLONG m_size = 0; ///< bytes; 0 for a directory
    BYTE m_attribute = 0; ///< the attribute bits, 0 for a normal file
    CString m_strFullName; ///< the full path, with two leading backslashes
};

/// A file by name.
class KRPLATFORM_API CFile
{
public:
    /// Fills `status`; false, with the last error set, and untouched, if there is no such file or directory.
    static BOOL GetStatus(WCHAR const * name, CFileStatus & status);
};
