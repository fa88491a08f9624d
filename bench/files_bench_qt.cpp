// The file names of Qt, where it is installed.
#include <QDir>
#include <QFileInfo>

#include <benchmark/benchmark.h>

namespace
{

constexpr char const * fileText = "/project/plans/level02/walls_and_doors.dwg";

void Parse(benchmark::State & state)
{
    QString const text(fileText);
    for (auto _ : state)
    {
        QFileInfo const name(text);
        benchmark::DoNotOptimize(name.path());
        benchmark::DoNotOptimize(name.completeBaseName());
        benchmark::DoNotOptimize(name.suffix());
    }
}
BENCHMARK(Parse)->Name("Parse/QFileInfo");

void Join(benchmark::State & state)
{
    QDir const directory("/project/plans");
    QString const file("level02/walls_and_doors.dwg");
    for (auto _ : state)
        benchmark::DoNotOptimize(QFileInfo(directory, file));
}
BENCHMARK(Join)->Name("Join/QFileInfo");

// Asks the file system whether the two are one file.
void Equal(benchmark::State & state, char const * otherText)
{
    QFileInfo const name(fileText);
    QFileInfo const other(otherText);
    for (auto _ : state)
        benchmark::DoNotOptimize(name == other);
}
BENCHMARK_CAPTURE(Equal, , fileText)->Name("EqualYes/QFileInfo");
BENCHMARK_CAPTURE(Equal, , "/project/plans/level02/walls_and_doors.dxf")->Name("EqualNo/QFileInfo");

} // namespace
