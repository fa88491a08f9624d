// The path of Boost, where it is installed.
#include <boost/filesystem/path.hpp>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace
{

using boost::filesystem::path;

constexpr char const * fileText = "/project/plans/level02/walls_and_doors.dwg";

void Parse(benchmark::State & state)
{
    std::string const text(fileText);
    for (auto _ : state)
    {
        path const name(text);
        benchmark::DoNotOptimize(name.parent_path());
        benchmark::DoNotOptimize(name.stem());
        benchmark::DoNotOptimize(name.extension());
    }
}
BENCHMARK(Parse)->Name("Parse/boost::filesystem::path");

void Join(benchmark::State & state)
{
    path const directory("/project/plans");
    path const file("level02/walls_and_doors.dwg");
    for (auto _ : state)
        benchmark::DoNotOptimize(directory / file);
}
BENCHMARK(Join)->Name("Join/boost::filesystem::path");

void Equal(benchmark::State & state, char const * otherText)
{
    path const name(fileText);
    path const other(otherText);
    for (auto _ : state)
        benchmark::DoNotOptimize(name == other);
}
BENCHMARK_CAPTURE(Equal, , fileText)->Name("EqualYes/boost::filesystem::path");
BENCHMARK_CAPTURE(Equal, , "/project/plans/level02/walls_and_doors.dxf")->Name("EqualNo/boost::filesystem::path");

void Less(benchmark::State & state)
{
    path const name(fileText);
    path const other("/project/plans/level02/walls_and_doors.dxf");
    for (auto _ : state)
        benchmark::DoNotOptimize(name < other);
}
BENCHMARK(Less)->Name("Less/boost::filesystem::path");

void Sort(benchmark::State & state)
{
    std::mt19937 random(1);
    std::vector<path> names;
    for (int count = 0; count < 1000; ++count)
    {
        std::string const directory = std::to_string(random() % 10);
        names.emplace_back("/project/level" + directory + "/plan" + std::to_string(random() % 100000) + ".dwg");
    }
    for (auto _ : state)
    {
        state.PauseTiming();
        std::vector<path> copy = names;
        state.ResumeTiming();
        std::sort(copy.begin(), copy.end());
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(Sort)->Name("Sort1000/boost::filesystem::path");

} // namespace
