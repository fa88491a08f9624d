// Dates: text in the form of files and in a locale, both ways; calendar weeks.
#include <krcore/datetime/krdatetime.h>
#include <krcore/datetime/krdatetimeutils.h>

#include <benchmark/benchmark.h>

#include <time.h>

#include <charconv>
#include <chrono>
#include <cstdio>
#include <string>
#include <string_view>

namespace
{

constexpr std::int64_t firstSecond = 1615838709; // 15 March 2021, 20:05:09 UTC
constexpr std::int64_t step = 86400 * 37 + 3607;
constexpr int dateCount = 16;

double DateOf(std::int64_t seconds) { return 25569.0 + static_cast<double>(seconds) / 86400.0; }

// The form of files: 2021-03-15 20:05:09.

void WriteInvariant_KrCore(benchmark::State & state)
{
    CKrDateTime dates[dateCount];
    for (int index = 0; index < dateCount; ++index)
        dates[index].Set(COleDateTime(DateOf(firstSecond + index * step)));
    for (auto _ : state)
    {
        for (CKrDateTime const & date : dates)
            benchmark::DoNotOptimize(date.FormatInvariant());
    }
}
BENCHMARK(WriteInvariant_KrCore)->Name("WriteInvariant/KrCore");

void WriteInvariant_Runtime(benchmark::State & state)
{
    for (auto _ : state)
    {
        for (int index = 0; index < dateCount; ++index)
        {
            time_t const seconds = firstSecond + index * step;
            std::tm fields;
            gmtime_r(&seconds, &fields);
            char text[32];
            benchmark::DoNotOptimize(std::string(text, std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", &fields)));
        }
    }
}
BENCHMARK(WriteInvariant_Runtime)->Name("WriteInvariant/strftime");

void WriteInvariant_Chrono(benchmark::State & state)
{
    for (auto _ : state)
    {
        for (int index = 0; index < dateCount; ++index)
        {
            std::chrono::sys_seconds const moment{std::chrono::seconds(firstSecond + index * step)};
            auto const day = std::chrono::floor<std::chrono::days>(moment);
            std::chrono::year_month_day const date(day);
            std::chrono::hh_mm_ss const time(moment - day);
            char text[64];
            int const length =
                std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d", int(date.year()),
                              unsigned(date.month()), unsigned(date.day()), static_cast<int>(time.hours().count()),
                              static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
            benchmark::DoNotOptimize(std::string(text, static_cast<std::size_t>(length)));
        }
    }
}
BENCHMARK(WriteInvariant_Chrono)->Name("WriteInvariant/std::chrono and snprintf");

void ReadInvariant_KrCore(benchmark::State & state)
{
    CString const text(OLESTR("2021-03-15 20:05:09"));
    CKrDateTime date;
    for (auto _ : state)
        benchmark::DoNotOptimize(date.Parse(text));
}
BENCHMARK(ReadInvariant_KrCore)->Name("ReadInvariant/KrCore");

void ReadInvariant_Runtime(benchmark::State & state)
{
    std::string const text("2021-03-15 20:05:09");
    for (auto _ : state)
    {
        std::tm fields = {};
        strptime(text.c_str(), "%Y-%m-%d %H:%M:%S", &fields);
        benchmark::DoNotOptimize(timegm(&fields));
    }
}
BENCHMARK(ReadInvariant_Runtime)->Name("ReadInvariant/strptime");

/// A number and the mark behind it.
int ReadField(char const *& place, char const * end)
{
    int number = 0;
    place = std::from_chars(place, end, number).ptr;
    place += place != end;
    return number;
}

void ReadInvariant_Chrono(benchmark::State & state)
{
    std::string const text("2021-03-15 20:05:09");
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(text.data());
        char const * place = text.data();
        char const * const end = place + text.size();
        std::chrono::year const year(ReadField(place, end));
        std::chrono::month const month(static_cast<unsigned>(ReadField(place, end)));
        std::chrono::day const day(static_cast<unsigned>(ReadField(place, end)));
        std::chrono::hours const hours(ReadField(place, end));
        std::chrono::minutes const minutes(ReadField(place, end));
        std::chrono::seconds const seconds(ReadField(place, end));
        benchmark::DoNotOptimize(std::chrono::sys_days(year / month / day) + hours + minutes + seconds);
    }
}
BENCHMARK(ReadInvariant_Chrono)->Name("ReadInvariant/std::chrono and std::from_chars");

// German: 15.03.2021 20:05:09.

void WriteLocale_KrCore(benchmark::State & state)
{
    constexpr unsigned long german = 1031;
    CKrDateTime dates[dateCount];
    for (int index = 0; index < dateCount; ++index)
        dates[index].Set(COleDateTime(DateOf(firstSecond + index * step)));
    for (auto _ : state)
    {
        for (CKrDateTime const & date : dates)
            benchmark::DoNotOptimize(date.Format(german));
    }
}
BENCHMARK(WriteLocale_KrCore)->Name("WriteLocale/KrCore");

void WriteLocale_Runtime(benchmark::State & state)
{
    for (auto _ : state)
    {
        for (int index = 0; index < dateCount; ++index)
        {
            time_t const seconds = firstSecond + index * step;
            std::tm fields;
            gmtime_r(&seconds, &fields);
            char text[64];
            benchmark::DoNotOptimize(std::string(text, std::strftime(text, sizeof text, "%x %X", &fields)));
        }
    }
}
BENCHMARK(WriteLocale_Runtime)->Name("WriteLocale/strftime");

// Every day of four years.

constexpr int weekDays = 1461;

void Week_KrCore(benchmark::State & state)
{
    CKrDateTimeUtils const utils;
    for (auto _ : state)
    {
        for (int day = 0; day < weekDays; ++day)
        {
            int week = 0;
            utils.CalendarWeek(COleDateTime(44000.0 + day), week);
            benchmark::DoNotOptimize(week);
        }
    }
}
BENCHMARK(Week_KrCore)->Name("Week/KrCore");

void Week_Chrono(benchmark::State & state)
{
    using namespace std::chrono;
    for (auto _ : state)
    {
        for (int number = 0; number < weekDays; ++number)
        {
            sys_days const day = sys_days(days(18431 + number));
            sys_days const thursday = day - (weekday(day) - Monday) + days(3);
            sys_days const newYear = year_month_day(thursday).year() / January / 1;
            benchmark::DoNotOptimize((thursday - newYear).count() / 7 + 1);
        }
    }
}
BENCHMARK(Week_Chrono)->Name("Week/std::chrono");

void WeekDates_KrCore(benchmark::State & state)
{
    CKrDateTimeUtils const utils;
    for (auto _ : state)
    {
        for (int week = 1; week <= 53; ++week)
        {
            COleDateTime first;
            COleDateTime last;
            utils.DateOfCalendarWeek(week, 2026, first, last);
            benchmark::DoNotOptimize(first);
            benchmark::DoNotOptimize(last);
        }
    }
}
BENCHMARK(WeekDates_KrCore)->Name("WeekDates/KrCore");

void WeekDates_Chrono(benchmark::State & state)
{
    using namespace std::chrono;
    for (auto _ : state)
    {
        for (int week = 1; week <= 53; ++week)
        {
            sys_days const fourth = year(2026) / January / 4;
            sys_days const first = fourth - (weekday(fourth) - Monday) + days(7 * (week - 1));
            benchmark::DoNotOptimize(first);
            benchmark::DoNotOptimize(first + days(6));
        }
    }
}
BENCHMARK(WeekDates_Chrono)->Name("WeekDates/std::chrono");

} // namespace
