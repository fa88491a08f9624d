// Drawings as files: their names, reading, and writing that replaces a file whole or not at all.
#pragma once

#include "drawing.h"

#include <krplatform/system/file.h>

#include <filesystem>
#include <fstream>
#include <vector>

namespace layeredit
{

/// The name that the user wrote, made absolute, since a file name with a folder is always absolute. False, with an error on the
/// stack, for one that `CKrFileName` would change.
bool MakeFileName(CString const & text, CKrFileName & fileName);

std::filesystem::path PathOf(CKrFileName const & fileName);

/// A file open for reading, which others may read too, but not lock.
class DrawingFile
{
public:
    DrawingFile() = default;
    ~DrawingFile();
    DrawingFile(DrawingFile const &) = delete;
    DrawingFile & operator=(DrawingFile const &) = delete;

    /// False, with an error on the stack.
    bool Open(CKrFileName const & fileName, CString const & title);
    std::istream & GetStream() { return m_stream; }
    std::uint64_t GetSize() const { return m_size; }

private:
    HANDLE m_lock = INVALID_HANDLE_VALUE;
    std::ifstream m_stream;
    std::uint64_t m_size = 0;
};

/// What is written in the place of a stretch of the file.
struct Patch
{
    Stretch old; ///< without bytes: the new ones are put in before it
    std::string bytes;
};

/// Where a drawing is written.
struct Target
{
    CKrFileName fileName;
    CString title;        ///< as the user wrote the name
    CString backupSuffix; ///< the file that stood there keeps its content under its name with this; empty: it does not
};

/// Copies the drawing with the patches, which do not overlap, to the target: through a temporary file beside it and a rename. False, with
/// an error on the stack and the target as it was.
bool WriteDrawing(Drawing const & drawing, std::vector<Patch> patches, Target const & target, Progress & progress);

} // namespace layeredit
