#include <krplatform/linux/module_file.h>

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

#include <fcntl.h>
#include <link.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kr::detail
{

namespace
{

using Header = ElfW(Ehdr);
using Segment = ElfW(Phdr);
using Entry = ElfW(Dyn);

bool IsOfThisMachine(Header const & header)
{
    constexpr int wordClass = sizeof(void *) == 8 ? ELFCLASS64 : ELFCLASS32;
    constexpr int byteOrder = std::endian::native == std::endian::little ? ELFDATA2LSB : ELFDATA2MSB;
    return std::memcmp(header.e_ident, ELFMAG, SELFMAG) == 0 && header.e_ident[EI_CLASS] == wordClass &&
           header.e_ident[EI_DATA] == byteOrder && header.e_phentsize == sizeof(Segment);
}

/// Where in the file the byte lies that is loaded to `address`.
std::optional<std::uint64_t> OffsetOf(std::span<Segment const> segments, std::uint64_t address)
{
    for (Segment const & segment : segments)
    {
        if (segment.p_type == PT_LOAD && address >= segment.p_vaddr && address - segment.p_vaddr < segment.p_filesz)
            return address - segment.p_vaddr + segment.p_offset;
    }
    return std::nullopt;
}

/// The value of the first entry of that kind; 0 if there is none.
std::uint64_t ValueOf(std::span<Entry const> entries, std::int64_t kind)
{
    auto const found = std::ranges::find(entries, kind, &Entry::d_tag);
    return found == entries.end() ? 0 : found->d_un.d_val;
}

std::vector<std::string> NamesOf(std::span<Entry const> entries, std::string_view strings)
{
    std::vector<std::string> names;
    for (Entry const & entry : entries)
    {
        if (entry.d_tag != DT_NEEDED || entry.d_un.d_val >= strings.size())
            continue;
        std::string_view const rest = strings.substr(entry.d_un.d_val);
        if (std::size_t const end = rest.find('\0'); end != rest.npos)
            names.emplace_back(rest.substr(0, end));
    }
    return names;
}

/// The file and its size; -1 if it is no regular file or cannot be opened.
int OpenRegular(std::string const & path, std::uint64_t & size)
{
    int const file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    struct stat facts;
    if (file >= 0 && fstat(file, &facts) == 0 && S_ISREG(facts.st_mode))
    {
        size = static_cast<std::uint64_t>(facts.st_size);
        return file;
    }
    if (file >= 0)
        close(file);
    return -1;
}

} // namespace

ModuleFile::ModuleFile(std::string const & path) : m_file(OpenRegular(path, m_size))
{
    try
    {
        std::vector<Header> const header = Read<Header>(0, 1);
        if (!header.empty() && IsOfThisMachine(header[0]))
            m_segments = Read<Segment>(header[0].e_phoff, header[0].e_phnum);
    }
    catch (...)
    {
        close(m_file);
        throw;
    }
}

ModuleFile::~ModuleFile()
{
    if (m_file >= 0)
        close(m_file);
}

template <class T>
std::vector<T> ModuleFile::Read(std::uint64_t offset, std::uint64_t count) const
{
    std::vector<T> values;
    if (!Holds(offset, count, sizeof(T)))
        return values;
    values.resize(count);
    std::size_t const bytes = count * sizeof(T);
    if (pread(m_file, values.data(), bytes, static_cast<off_t>(offset)) != static_cast<ssize_t>(bytes))
        values.clear();
    return values;
}

bool ModuleFile::Holds(std::uint64_t offset, std::uint64_t count, std::uint64_t size) const
{
    return offset <= m_size && count <= (m_size - offset) / size;
}

bool ModuleFile::IsComplete() const
{
    for (Segment const & segment : m_segments)
    {
        if (segment.p_type == PT_LOAD && !Holds(segment.p_offset, segment.p_filesz, 1))
            return false;
    }
    return !m_segments.empty();
}

std::vector<std::string> ModuleFile::NeededLibraries() const
{
    auto const dynamic =
        std::ranges::find(m_segments, static_cast<decltype(Segment::p_type)>(PT_DYNAMIC), &Segment::p_type);
    if (dynamic == m_segments.end())
        return {};
    std::vector<Entry> entries = Read<Entry>(dynamic->p_offset, dynamic->p_filesz / sizeof(Entry));
    entries.erase(std::ranges::find(entries, DT_NULL, &Entry::d_tag), entries.end());
    std::optional<std::uint64_t> const offset = OffsetOf(m_segments, ValueOf(entries, DT_STRTAB));
    if (!offset)
        return {};
    std::vector<char> const strings = Read<char>(*offset, ValueOf(entries, DT_STRSZ));
    return NamesOf(entries, {strings.data(), strings.size()});
}

} // namespace kr::detail
