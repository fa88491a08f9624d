// The dates of Poco, where it is installed.
#include <Poco/DateTime.h>
#include <Poco/DateTimeFormatter.h>
#include <Poco/DateTimeParser.h>

#include <benchmark/benchmark.h>

#include <string>

namespace
{

constexpr std::time_t firstSecond = 1615838709; // 15 March 2021, 20:05:09 UTC
constexpr std::time_t step = 86400 * 37 + 3607;
constexpr int dateCount = 16;

void Write(benchmark::State & state)
{
    Poco::DateTime dates[dateCount];
    for (int index = 0; index < dateCount; ++index)
        dates[index] = Poco::DateTime(Poco::Timestamp::fromEpochTime(firstSecond + index * step));
    std::string const pattern("%Y-%m-%d %H:%M:%S");
    for (auto _ : state)
    {
        for (Poco::DateTime const & date : dates)
            benchmark::DoNotOptimize(Poco::DateTimeFormatter::format(date, pattern));
    }
}
BENCHMARK(Write)->Name("WriteInvariant/Poco::DateTime");

void Read(benchmark::State & state)
{
    std::string const text("2021-03-15 20:05:09");
    std::string const pattern("%Y-%m-%d %H:%M:%S");
    for (auto _ : state)
    {
        int zone = 0;
        benchmark::DoNotOptimize(Poco::DateTimeParser::parse(pattern, text, zone));
    }
}
BENCHMARK(Read)->Name("ReadInvariant/Poco::DateTime");

void Week(benchmark::State & state)
{
    constexpr int weekDays = 1461;
    Poco::DateTime const first(2020, 6, 18);
    for (auto _ : state)
    {
        for (int day = 0; day < weekDays; ++day)
            benchmark::DoNotOptimize((first + Poco::Timespan(day, 0, 0, 0, 0)).week());
    }
}
BENCHMARK(Week)->Name("Week/Poco::DateTime");

} // namespace
