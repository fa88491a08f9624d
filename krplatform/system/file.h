// Questions to the file system. Names are in Windows or POSIX spelling and reach the system as UTF-8.
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/datetime/ctime.h>
#include <krplatform/text/cstring.h>

constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

/// The attributes of a file or directory: directory, read-only (not writable for this user), hidden (a name with a
/// leading point), or normal if none of them. INVALID_FILE_ATTRIBUTES, with the last error set, if there is none of
/// that name.
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

/// Opens a file. Without FILE_SHARE_READ and FILE_SHARE_WRITE it is locked for others while open, and a lock held by
/// another fails with ERROR_SHARING_VIOLATION. INVALID_HANDLE_VALUE, with the last error set, for a failure. Security,
/// attributes and template play no part.
KRPLATFORM_API HANDLE CreateFileW(WCHAR const * name, DWORD access, DWORD share, void * security, DWORD creation,
                                  DWORD attributes, HANDLE templateFile);
KRPLATFORM_API BOOL CloseHandle(HANDLE handle);
/// Writes all bytes, with one call of the system where it takes them at once. False, with the last error set, for a
/// failure.
KRPLATFORM_API BOOL WriteFile(HANDLE handle, void const * bytes, DWORD count, DWORD * written, void * overlapped);

/// What is known of a file.
struct CFileStatus
{
    CTime m_ctime;         ///< the last change of its record: the system keeps no time of making
    CTime m_mtime;         ///< last write
    CTime m_atime;         ///< last access
    ULONGLONG m_size = 0;  ///< bytes
    BYTE m_attribute = 0;  ///< the low attribute bits
    CString m_strFullName; ///< the full path
};

/// A file by name.
class KRPLATFORM_API CFile
{
public:
    /// Fills `status`; false, and untouched, if there is no such file or directory, or the name is empty.
    static BOOL GetStatus(WCHAR const * name, CFileStatus & status);
};
