// What the file system knows of a file name.
#include <krcore/files/krfilename.h>

#include <krplatform/system/file.h>

bool CKrFileName::IsExistingPath() const
{
    DWORD const attributes = GetFileAttributesW(GetPath(false));
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool CKrFileName::IsExisting() const
{
    if (IsDirName())
        return IsExistingPath();
    CFileStatus status;
    return CFile::GetStatus(GetFullName(true), status);
}

bool CKrFileName::IsAlreadyOpen() const
{
    if (IsDirName())
        return false;
    HANDLE const file =
        CreateFileW(GetFullName(true), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return GetLastError() == ERROR_SHARING_VIOLATION;
    CloseHandle(file);
    return false;
}
