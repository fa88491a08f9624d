#include <krplatform/system/textfile.h>

#include <krplatform/system/file.h>

#include <new>

namespace kr::detail
{

TextFile::TextFile() noexcept : m_file(INVALID_HANDLE_VALUE) {}

TextFile::~TextFile()
{
    if (m_file != INVALID_HANDLE_VALUE)
        CloseHandle(m_file);
}

bool TextFile::Open(WCHAR const * name)
{
    if (m_file != INVALID_HANDLE_VALUE)
        CloseHandle(m_file);
    m_file = CreateFileW(name, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, CREATE_ALWAYS,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
    if (m_file == INVALID_HANDLE_VALUE && GetLastError() == ERROR_NOT_ENOUGH_MEMORY)
        throw std::bad_alloc();
    return m_file != INVALID_HANDLE_VALUE;
}

bool TextFile::Write(std::string_view bytes)
{
    DWORD written = 0;
    return m_file != INVALID_HANDLE_VALUE &&
           WriteFile(m_file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

} // namespace kr::detail
