// File names: take apart, put together, join, compare.
#include <krcore/files/krfilename.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr WCHAR const * wideText = OLESTR("C:\\project\\plans\\level02\\walls_and_doors.dwg");
constexpr char const * narrowText = "/project/plans/level02/walls_and_doors.dwg";

CKrFileName MakeName(CString const & text) { return CKrFileName(text, false); }

// The directory, the name without its last ending, and the ending.

void Parse_KrCore(benchmark::State & state)
{
    CString const text(wideText);
    for (auto _ : state)
    {
        CKrFileName const name(text, false);
        benchmark::DoNotOptimize(name.GetPath(false));
        benchmark::DoNotOptimize(name.GetBaseName());
        benchmark::DoNotOptimize(name.GetExt());
    }
}
BENCHMARK(Parse_KrCore)->Name("Parse/KrCore");

void Parse_Standard(benchmark::State & state)
{
    std::string const text(narrowText);
    for (auto _ : state)
    {
        std::filesystem::path const name(text);
        benchmark::DoNotOptimize(name.parent_path());
        benchmark::DoNotOptimize(name.stem());
        benchmark::DoNotOptimize(name.extension());
    }
}
BENCHMARK(Parse_Standard)->Name("Parse/std::filesystem::path");

// A relative name below a directory.

void Join_KrCore(benchmark::State & state)
{
    CKrFileName const directory(OLESTR("C:\\project\\plans"), true);
    CKrFileName const file(OLESTR("level02\\walls_and_doors.dwg"), false);
    for (auto _ : state)
        benchmark::DoNotOptimize(directory + file);
}
BENCHMARK(Join_KrCore)->Name("Join/KrCore");

void Join_Standard(benchmark::State & state)
{
    std::filesystem::path const directory("/project/plans");
    std::filesystem::path const file("level02/walls_and_doors.dwg");
    for (auto _ : state)
        benchmark::DoNotOptimize(directory / file);
}
BENCHMARK(Join_Standard)->Name("Join/std::filesystem::path");

template <class Name>
void Equal(benchmark::State & state, Name const & name, Name const & other)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(name == other);
}

template <class Name>
void Less(benchmark::State & state, Name const & name, Name const & other)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(name < other);
}

// Names of some directories, in disorder.
template <class Name, class Make>
std::vector<Name> MakeNames(Make make)
{
    std::mt19937 random(1);
    std::vector<Name> names;
    for (int count = 0; count < 1000; ++count)
        names.push_back(make(std::to_string(random() % 10), std::to_string(random() % 100000)));
    return names;
}

template <class Name, class Make>
void Sort(benchmark::State & state, Make make)
{
    std::vector<Name> const names = MakeNames<Name>(make);
    for (auto _ : state)
    {
        state.PauseTiming();
        std::vector<Name> copy = names;
        state.ResumeTiming();
        std::sort(copy.begin(), copy.end());
        benchmark::DoNotOptimize(copy.data());
    }
}

bool RegisterRows()
{
    CString const wide(wideText);
    CString const wideOther(OLESTR("C:\\project\\plans\\level02\\walls_and_doors.dxf"));
    std::filesystem::path const narrow(narrowText);
    std::filesystem::path const narrowOther("/project/plans/level02/walls_and_doors.dxf");
    auto const makeWide = [](std::string const & directory, std::string const & name)
    { return MakeName(CString(("C:\\project\\level" + directory + "\\plan" + name + ".dwg").c_str())); };
    auto const makeNarrow = [](std::string const & directory, std::string const & name)
    { return std::filesystem::path("/project/level" + directory + "/plan" + name + ".dwg"); };

    benchmark::RegisterBenchmark("EqualYes/KrCore", Equal<CKrFileName>, MakeName(wide), MakeName(wide));
    benchmark::RegisterBenchmark("EqualYes/std::filesystem::path", Equal<std::filesystem::path>, narrow,
                                 std::filesystem::path(narrowText));
    benchmark::RegisterBenchmark("EqualNo/KrCore", Equal<CKrFileName>, MakeName(wide), MakeName(wideOther));
    benchmark::RegisterBenchmark("EqualNo/std::filesystem::path", Equal<std::filesystem::path>, narrow, narrowOther);
    benchmark::RegisterBenchmark("Less/KrCore", Less<CKrFileName>, MakeName(wide), MakeName(wideOther));
    benchmark::RegisterBenchmark("Less/std::filesystem::path", Less<std::filesystem::path>, narrow, narrowOther);
    benchmark::RegisterBenchmark("Sort1000/KrCore", Sort<CKrFileName, decltype(makeWide)>, makeWide);
    benchmark::RegisterBenchmark("Sort1000/std::filesystem::path", Sort<std::filesystem::path, decltype(makeNarrow)>,
                                 makeNarrow);
    return true;
}

[[maybe_unused]] bool const s_registered = RegisterRows();

} // namespace
