#include "drawing_file.h"

#include "encoding.h"
#include "messages.h"
#include "progress.h"

#include <krplatform/codepage/codepage.h>

#include <algorithm>
#include <random>

namespace layeredit
{

namespace fs = std::filesystem;

namespace
{

constexpr std::size_t s_room = 256 * 1024;

CString TextOf(fs::path const & path)
{
    auto const text = path.generic_string<WCHAR>();
    return CString(text.data(), static_cast<int>(text.size()));
}

/// Two leading slashes mark a path that starts at the root.
CKrFileName FileNameOf(fs::path const & absolute) { return CKrFileName(OLESTR("/") + TextOf(absolute), false); }

/// The file that a name stands for, behind links.
fs::path Resolved(CKrFileName const & fileName)
{
    std::error_code error;
    fs::path const resolved = fs::canonical(PathOf(fileName), error);
    return error ? PathOf(fileName) : resolved;
}

/// A new file beside the target, deleted unless it is put in the target's place.
class TemporaryFile
{
public:
    explicit TemporaryFile(fs::path const & target) : m_path(target)
    {
        CString mark;
        mark.Format(OLESTR(".layeredit-%08x"), std::random_device()());
        m_path += Narrow(mark);
    }
    ~TemporaryFile()
    {
        Close();
        std::error_code error;
        if (m_isMade)
            fs::remove(m_path, error);
    }
    TemporaryFile(TemporaryFile const &) = delete;
    TemporaryFile & operator=(TemporaryFile const &) = delete;

    bool Open()
    {
        m_handle =
            CreateFileW(TextOf(m_path), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
        m_isMade = m_handle != INVALID_HANDLE_VALUE;
        return m_isMade;
    }
    bool Write(std::string_view bytes)
    {
        DWORD written = 0;
        return bytes.empty() || WriteFile(m_handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    }
    bool Close()
    {
        bool const isClosed = m_handle == INVALID_HANDLE_VALUE || CloseHandle(m_handle);
        m_handle = INVALID_HANDLE_VALUE;
        return isClosed;
    }
    bool Replace(fs::path const & target, std::error_code & error)
    {
        if (fs::exists(target, error))
            fs::permissions(m_path, fs::status(target, error).permissions(), error);
        fs::rename(m_path, target, error);
        m_isMade = static_cast<bool>(error);
        return !error;
    }

private:
    fs::path m_path;
    HANDLE m_handle = INVALID_HANDLE_VALUE;
    bool m_isMade = false;
};

/// Copies up to `count` bytes; false for a failure to write.
class Copier
{
public:
    Copier(std::istream & source, TemporaryFile & target, std::uint64_t size, Progress & progress)
        : m_source(source), m_target(target), m_size(size), m_progress(progress), m_buffer(s_room)
    {
    }

    bool CopyTo(std::uint64_t end)
    {
        while (m_offset < end)
        {
            std::string_view const bytes = Read(std::min<std::uint64_t>(end - m_offset, m_buffer.size()));
            if (bytes.empty())
                return true;
            if (!m_target.Write(bytes))
                return false;
            m_progress.Show(m_offset, m_size);
        }
        return true;
    }
    /// Passes over bytes; false where others stand there.
    bool Skip(std::string_view expected)
    {
        while (!expected.empty())
        {
            std::string_view const bytes = Read(std::min(expected.size(), m_buffer.size()));
            if (bytes.empty() || !expected.starts_with(bytes))
                return false;
            expected.remove_prefix(bytes.size());
        }
        return true;
    }
    bool IsAtEnd()
    {
        return m_offset == m_size && m_source.peek() == std::istream::traits_type::eof() && !m_source.bad();
    }

private:
    std::string_view Read(std::uint64_t count)
    {
        m_source.read(m_buffer.data(), static_cast<std::streamsize>(count));
        m_offset += static_cast<std::uint64_t>(m_source.gcount());
        return {m_buffer.data(), static_cast<std::size_t>(m_source.gcount())};
    }

    std::istream & m_source;
    TemporaryFile & m_target;
    std::uint64_t m_size;
    Progress & m_progress;
    std::vector<char> m_buffer;
    std::uint64_t m_offset = 0;
};

/// The old content under another name, without copying it where the file system can.
bool KeepBackup(fs::path const & target, CString const & suffix, std::error_code & error)
{
    fs::path backup = target;
    backup += Narrow(suffix);
    fs::remove(backup, error);
    if (!error)
        fs::create_hard_link(target, backup, error);
    if (error)
        fs::copy_file(target, backup, fs::copy_options::overwrite_existing, error);
    return !error;
}

} // namespace

fs::path PathOf(CKrFileName const & fileName)
{
    CString name = fileName;
    name.Replace(OLESTR('\\'), OLESTR('/'));
    return fs::path(name.GetString());
}

bool MakeFileName(CString const & text, CKrFileName & fileName)
{
    std::error_code error;
    fs::path const absolute = fs::absolute(fs::path(text.GetString()), error);
    fileName = FileNameOf(absolute);
    std::string const wanted = absolute.lexically_normal().generic_string();
    std::string const held = PathOf(fileName).lexically_normal().generic_string();
    return (!error && held.ends_with(wanted)) || Tell(eLostFileName, text);
}

DrawingFile::~DrawingFile()
{
    if (m_lock != INVALID_HANDLE_VALUE)
        CloseHandle(m_lock);
}

bool DrawingFile::Open(CKrFileName const & fileName, CString const & title)
{
    std::error_code error;
    fs::path const path = PathOf(fileName);
    m_lock = CreateFileW(fileName.GetFullName(true), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                         FILE_ATTRIBUTE_NORMAL, nullptr);
    if (m_lock == INVALID_HANDLE_VALUE)
        return TellSystemFailure(eCannotRead, title);
    if (!fs::is_regular_file(path, error))
        return Tell(eNoFile, title);
    m_size = fs::file_size(path, error);
    m_stream.open(path, std::ios::binary);
    return m_stream.good() || Tell(eNoFile, title);
}

bool WriteDrawing(Drawing const & drawing, std::vector<Patch> patches, Target const & target, Progress & progress)
{
    std::error_code error;
    fs::path const path = Resolved(target.fileName);
    if (fs::exists(path, error) && !fs::is_regular_file(path, error))
        return Tell(eNoFile, target.title);
    if (!target.fileName.IsExistingPath())
        return Tell(eNoFolder, target.title);
    DrawingFile source;
    TemporaryFile temporary(path);
    if (!source.Open(drawing.fileName, drawing.title))
        return false;
    if (!temporary.Open())
        return TellSystemFailure(eCannotWrite, target.title);

    std::ranges::stable_sort(patches, {}, [](Patch const & patch) { return patch.old.offset; });
    Copier copier(source.GetStream(), temporary, drawing.size, progress);
    for (Patch const & patch : patches)
    {
        if (!copier.CopyTo(patch.old.offset) || !temporary.Write(patch.bytes))
            return TellSystemFailure(eCannotWrite, target.title);
        if (!copier.Skip(patch.old.bytes))
            return Tell(eChangedMeanwhile, drawing.title);
    }
    if (!copier.CopyTo(drawing.size) || !temporary.Close())
        return TellSystemFailure(eCannotWrite, target.title);
    if (!copier.IsAtEnd())
        return Tell(eChangedMeanwhile, drawing.title);
    bool const isReplaced = (target.backupSuffix.IsEmpty() || KeepBackup(path, target.backupSuffix, error)) &&
                            temporary.Replace(path, error);
    return isReplaced || Tell(eCannotWrite, target.title, Widen(error.message(), CP_UTF8));
}

} // namespace layeredit
