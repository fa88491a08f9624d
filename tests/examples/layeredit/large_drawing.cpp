#include "tests/examples/layeredit/large_drawing.h"

#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

#include <fstream>

#include <sys/resource.h>

namespace kr::test
{

namespace
{

/// Places where the files differ; -1 for different sizes.
long Differences(std::filesystem::path const & left, std::filesystem::path const & right)
{
    if (std::filesystem::file_size(left) != std::filesystem::file_size(right))
        return -1;
    std::ifstream first(left, std::ios::binary), second(right, std::ios::binary);
    std::string one(65536, '\0'), other(65536, '\0');
    long count = 0;
    while (first.read(one.data(), static_cast<std::streamsize>(one.size())), first.gcount() > 0)
    {
        second.read(other.data(), static_cast<std::streamsize>(other.size()));
        for (std::size_t place = 0; place < static_cast<std::size_t>(first.gcount()); ++place)
            count += one[place] != other[place];
    }
    return count;
}

} // namespace

void WriteLargeDrawing(std::filesystem::path const & path, std::size_t bytes)
{
    MadeDrawing drawing;
    for (int layer = 1; layer < 100; ++layer)
        drawing.layers += MadeDrawing::Layer("Layer " + std::to_string(layer), " 62\n     7\n");
    std::string const text = drawing.Get();
    std::size_t const place = text.find("  0\nLINE\n");
    std::string lines;
    for (int line = 0; line < 1000; ++line)
        lines += "  0\nLINE\n  5\n" + std::to_string(1000 + line) + "\n  8\n0\n 10\n0.5\n 20\n" + std::to_string(line) +
                 ".25\n 11\n1.0\n 21\n-17.125\n";
    std::ofstream file(path, std::ios::binary);
    file << text.substr(0, place);
    for (std::size_t written = text.size(); written < bytes; written += lines.size())
        file << lines;
    file << text.substr(place);
}

void CheckLargeDrawing(std::size_t bytes, long kilobytes)
{
    Workshop workshop;
    WriteLargeDrawing(workshop.PathOf("a.dxf"), bytes);
    Called const called = workshop.Call({"a.dxf", "-q", "--all", "-s", "Color=3", "--in-place", "--backup", ".bak"});
    ASSERT_EQ(called.status, 0) << called.errors;
    rusage usage = {};
    ASSERT_EQ(getrusage(RUSAGE_CHILDREN, &usage), 0);
    EXPECT_LT(usage.ru_maxrss, kilobytes);
    EXPECT_EQ(Differences(workshop.PathOf("a.dxf"), workshop.PathOf("a.dxf.bak")), 100);
}

} // namespace kr::test
