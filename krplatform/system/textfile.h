// A text file that is written from the start.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

#include <string_view>

namespace kr::detail
{

/// A file open for writing, shared with other readers and writers, with the line ends of the system's text files. Each write
/// reaches the system at once. Closed at the end of its life.
class KRPLATFORM_API TextFile
{
public:
    TextFile() noexcept;
    ~TextFile();
    TextFile(TextFile const &) = delete;
    TextFile & operator=(TextFile const &) = delete;

    /// Closes the file that is open, then makes this one, or cuts it to nothing. False, with the last error set, if that
    /// fails; writing then fails too. Throws `std::bad_alloc` where memory runs out.
    bool Open(WCHAR const * name);
    /// Writes the bytes with one call of the system. False for a failure, as on a full disk.
    bool Write(std::string_view bytes);

private:
    void * m_file;
};

} // namespace kr::detail
