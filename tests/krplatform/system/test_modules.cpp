#include "tests/krplatform/system/test_modules.h"

#include <link.h>

namespace kr::test
{

namespace
{

struct Count
{
    std::string directory;
    int modules = 0;
};

int AddModule(dl_phdr_info * facts, std::size_t, void * data)
{
    Count & count = *static_cast<Count *>(data);
    if (std::string_view(facts->dlpi_name).starts_with(count.directory))
        ++count.modules;
    return 0;
}

} // namespace

std::filesystem::path BuiltModules() { return KR_TEST_MODULES; }

std::filesystem::path CopyModule(std::string_view module, TemporaryDirectory const & directory, std::string_view name)
{
    std::filesystem::path const copy = directory / (name.empty() ? module : name);
    std::filesystem::copy_file(BuiltModules() / module, copy);
    return copy;
}

int CountLoadedFrom(std::filesystem::path const & directory)
{
    Count count{directory.string() + "/"};
    dl_iterate_phdr(AddModule, &count);
    return count.modules;
}

} // namespace kr::test
