#include <krcore/files/krfileinfo.h>

#include <krplatform/system/file.h>

CKrFileInfo::CKrFileInfo() = default;

CKrFileInfo::CKrFileInfo(CKrFileInfo const & other) = default;

CKrFileInfo & CKrFileInfo::operator=(CKrFileInfo const & other) = default;

CKrFileInfo::~CKrFileInfo() = default;

bool CKrFileInfo::IsDirectory() const noexcept { return (m_attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

bool CKrFileInfo::IsReadOnly() const noexcept { return (m_attributes & FILE_ATTRIBUTE_READONLY) != 0; }

void CKrFileInfo::SetReadOnly(bool readOnly) noexcept
{
    if (readOnly)
        m_attributes |= FILE_ATTRIBUTE_READONLY;
    else
        m_attributes &= ~FILE_ATTRIBUTE_READONLY;
}

void CKrFileInfo::SetDirectory(bool directory) noexcept
{
    if (directory)
        m_attributes |= FILE_ATTRIBUTE_DIRECTORY;
}
