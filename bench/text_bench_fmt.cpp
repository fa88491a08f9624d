// Joining by fmt, where it is installed.
#include "bench/text_bench_input.h"

#include <benchmark/benchmark.h>
#include <fmt/format.h>

using namespace kr::bench;

namespace
{

std::size_t CountOf(benchmark::State const & state) { return static_cast<std::size_t>(state.range(0)); }

template <class Item>
void Join(benchmark::State & state, std::vector<Item> const & items)
{
    for (auto _ : state)
    {
        std::string const joined = fmt::format("{}", fmt::join(items, ";"));
        benchmark::DoNotOptimize(joined.data());
    }
    state.SetComplexityN(state.range(0));
}

void JoinTexts(benchmark::State & state) { Join(state, SomeTexts(CountOf(state))); }
void JoinIntegers(benchmark::State & state) { Join(state, SomeIntegers(CountOf(state))); }
void JoinDoubles(benchmark::State & state) { Join(state, SomeDoubles(CountOf(state))); }

BENCHMARK(JoinTexts)->Name("JoinTexts/fmt")->Apply(WithSizes);
BENCHMARK(JoinIntegers)->Name("JoinIntegers/fmt")->Apply(WithSizes);
BENCHMARK(JoinDoubles)->Name("JoinDoubles/fmt")->Apply(WithSizes);

} // namespace
