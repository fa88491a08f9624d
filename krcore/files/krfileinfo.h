// What is known of one file.
#pragma once

#include <krcore/export.h>
#include <krcore/files/krfilename.h>
#include <krplatform/datetime/ctime.h>

/// A record of a file's name, times, size and attributes. It is filled by its caller and reads no file system.
class KRCORE_API CKrFileInfo
{
public:
    /// No name, all times and numbers 0: a file.
    CKrFileInfo();
    CKrFileInfo(CKrFileInfo const & other);
    CKrFileInfo & operator=(CKrFileInfo const & other);
    virtual ~CKrFileInfo();

    CKrFileName const & GetFileName() const noexcept { return m_fileName; }
    void SetFileName(CKrFileName const & fileName) { m_fileName = fileName; }
    CTime GetCreationTime() const noexcept { return m_creationTime; }
    void SetCreationTime(CTime time) noexcept { m_creationTime = time; }
    CTime GetLastWriteTime() const noexcept { return m_lastWriteTime; }
    void SetLastWriteTime(CTime time) noexcept { m_lastWriteTime = time; }
    CTime GetLastAccessTime() const noexcept { return m_lastAccessTime; }
    void SetLastAccessTime(CTime time) noexcept { m_lastAccessTime = time; }
    /// Bytes.
    unsigned long long const & GetSize() const noexcept { return m_size; }
    void SetSize(unsigned long long const & size) noexcept { m_size = size; }
    /// All attribute bits of the system; of them read-only (0x01) and directory (0x10) are read here.
    void SetAttributes(unsigned long attributes) noexcept { m_attributes = static_cast<unsigned int>(attributes); }
    bool IsDirectory() const noexcept;
    bool IsFile() const noexcept { return !IsDirectory(); }
    bool IsReadOnly() const noexcept;
    void SetReadOnly(bool readOnly) noexcept;
    /// Deliberate: false changes nothing; only `SetAttributes` clears the bit.
    void SetDirectory(bool directory) noexcept;

private:
    CKrFileName m_fileName;
    CTime m_creationTime;
    CTime m_lastWriteTime;
    CTime m_lastAccessTime;
    unsigned long long m_size = 0;
    unsigned int m_attributes = 0;
};
