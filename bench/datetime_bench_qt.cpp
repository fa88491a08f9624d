// The dates of Qt, where it is installed.
#include <QDateTime>
#include <QLocale>

#include <benchmark/benchmark.h>

namespace
{

constexpr qint64 firstSecond = 1615838709; // 15 March 2021, 20:05:09 UTC
constexpr qint64 step = 86400 * 37 + 3607;
constexpr int dateCount = 16;

template <class Write>
void WriteDates(benchmark::State & state, Write write)
{
    QDateTime dates[dateCount];
    for (int index = 0; index < dateCount; ++index)
        dates[index] = QDateTime::fromSecsSinceEpoch(firstSecond + index * step, Qt::UTC);
    for (auto _ : state)
    {
        for (QDateTime const & date : dates)
            benchmark::DoNotOptimize(write(date));
    }
}

void WriteIso(benchmark::State & state)
{
    WriteDates(state, [](QDateTime const & date) { return date.toString(Qt::ISODate); });
}
BENCHMARK(WriteIso)->Name("WriteInvariant/QDateTime ISODate");

void WritePattern(benchmark::State & state)
{
    QString const pattern("yyyy-MM-dd HH:mm:ss");
    WriteDates(state, [&](QDateTime const & date) { return date.toString(pattern); });
}
BENCHMARK(WritePattern)->Name("WriteInvariant/QDateTime");

void WriteLocale(benchmark::State & state)
{
    QLocale const german(QLocale::German, QLocale::Germany);
    WriteDates(state, [&](QDateTime const & date) { return german.toString(date, QLocale::ShortFormat); });
}
BENCHMARK(WriteLocale)->Name("WriteLocale/QLocale");

void ReadIso(benchmark::State & state)
{
    QString const text("2021-03-15T20:05:09Z");
    for (auto _ : state)
        benchmark::DoNotOptimize(QDateTime::fromString(text, Qt::ISODate));
}
BENCHMARK(ReadIso)->Name("ReadInvariant/QDateTime ISODate");

void ReadPattern(benchmark::State & state)
{
    QString const text("2021-03-15 20:05:09");
    QString const pattern("yyyy-MM-dd HH:mm:ss");
    for (auto _ : state)
        benchmark::DoNotOptimize(QDateTime::fromString(text, pattern));
}
BENCHMARK(ReadPattern)->Name("ReadInvariant/QDateTime");

void Week(benchmark::State & state)
{
    constexpr int weekDays = 1461;
    QDate const first(2020, 6, 18);
    for (auto _ : state)
    {
        for (int day = 0; day < weekDays; ++day)
            benchmark::DoNotOptimize(first.addDays(day).weekNumber());
    }
}
BENCHMARK(Week)->Name("Week/QDate");

} // namespace
