// A program for compilers without a fuzzing engine: it shows a target the files it is given, and those of the folders.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int * argumentCount, char *** arguments);
extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const * data, std::size_t size);

namespace
{

namespace fs = std::filesystem;

void AddFilesOf(fs::path const & path, std::vector<fs::path> & files)
{
    if (!fs::is_directory(path))
        return files.push_back(path);
    for (fs::directory_entry const & entry : fs::recursive_directory_iterator(path))
    {
        if (entry.is_regular_file())
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
}

bool Replay(fs::path const & file)
{
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream bytes;
    if (!stream || (fs::file_size(file) != 0 && !(bytes << stream.rdbuf())))
        return false;
    std::printf("%s\n", file.c_str());
    std::fflush(stdout); // known before the law is looked at
    std::string const text = bytes.str();
    std::vector<std::uint8_t> const data(text.begin(),
                                         text.end()); // exactly as large, so that a read behind it is seen
    LLVMFuzzerTestOneInput(data.data(), data.size());
    return true;
}

} // namespace

int main(int count, char ** arguments)
{
    LLVMFuzzerInitialize(&count, &arguments);
    std::vector<fs::path> files;
    for (int index = 1; index < count; ++index)
        AddFilesOf(arguments[index], files);
    for (fs::path const & file : files)
    {
        if (!Replay(file))
        {
            std::fprintf(stderr, "%s: cannot be read\n", file.c_str());
            return 2;
        }
    }
    std::printf("%zu inputs keep the laws\n", files.size());
    return files.empty() ? 2 : 0; // a test without an input would prove nothing
}
