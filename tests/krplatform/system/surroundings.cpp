#include "tests/krplatform/system/surroundings.h"
#include "tests/support/text.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace kr::test
{

namespace
{

constexpr uid_t nobody = 65534;

} // namespace

TemporaryDirectory::TemporaryDirectory()
{
    std::string pattern = (std::filesystem::canonical(std::filesystem::temp_directory_path()) / "krXXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary directory");
    m_path = pattern;
    // an ordinary user, too, may look into it
    std::filesystem::permissions(m_path, std::filesystem::perms(0755));
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::basic_string<WCHAR> NameOf(std::filesystem::path const & path) { return Widen(path.string()); }

std::basic_string<WCHAR> HandedOut(std::filesystem::path const & path)
{
    std::basic_string<WCHAR> name = OLESTR("/") + NameOf(path);
    std::ranges::replace(name, OLESTR('/'), OLESTR('\\'));
    return name;
}

void WriteText(std::filesystem::path const & path, std::string_view text)
{
    std::ofstream(path, std::ios::binary) << text;
}

std::string ReadText(std::filesystem::path const & path)
{
    std::ostringstream text;
    if (std::filesystem::file_size(path) != 0)
        text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

OrdinaryUser::OrdinaryUser()
{
    if (getuid() == 0 && seteuid(nobody) != 0)
        throw std::runtime_error("the rights stay");
}

OrdinaryUser::~OrdinaryUser()
{
    if (getuid() == 0 && seteuid(0) != 0)
        std::abort();
}

} // namespace kr::test
