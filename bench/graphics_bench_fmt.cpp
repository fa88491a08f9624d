// Colours as texts by fmt.
#include <fmt/format.h>

#include <benchmark/benchmark.h>

namespace
{

void FormatColor(benchmark::State & state)
{
    int red = 255, green = 128, blue = 64;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(red);
        benchmark::DoNotOptimize(fmt::format("#{:02x}{:02x}{:02x}", red, green, blue));
    }
}
BENCHMARK(FormatColor)->Name("FormatColor/fmt");

} // namespace
