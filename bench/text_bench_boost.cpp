// Lists in texts by Boost, where it is installed: 16-bit text, as the library's own.
#include "bench/text_bench_input.h"

#include <benchmark/benchmark.h>
#include <boost/algorithm/string/join.hpp>
#include <boost/algorithm/string/split.hpp>

using namespace kr::bench;

namespace
{

void SplitTexts(benchmark::State & state)
{
    std::string const joined = Joined(SomeTexts(static_cast<std::size_t>(state.range(0))));
    std::u16string const text(joined.begin(), joined.end());
    for (auto _ : state)
    {
        std::vector<std::u16string> items;
        boost::split(items, text, [](char16_t unit) { return unit == u';'; });
        benchmark::DoNotOptimize(items.data());
    }
    state.SetComplexityN(state.range(0));
}

void JoinTexts(benchmark::State & state)
{
    std::vector<std::u16string> const items = SomeWideTexts(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state)
    {
        std::u16string const joined = boost::algorithm::join(items, u";");
        benchmark::DoNotOptimize(joined.data());
    }
    state.SetComplexityN(state.range(0));
}

BENCHMARK(SplitTexts)->Name("SplitTexts/boost")->Apply(WithSizes);
BENCHMARK(JoinTexts)->Name("JoinTexts/boost")->Apply(WithSizes);

} // namespace
