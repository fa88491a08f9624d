// Lists in texts by Abseil, where it is installed.
#include "bench/text_bench_input.h"

#include <absl/strings/numbers.h>
#include <absl/strings/str_join.h>
#include <absl/strings/str_split.h>
#include <benchmark/benchmark.h>

using namespace kr::bench;

namespace
{

std::size_t CountOf(benchmark::State const & state) { return static_cast<std::size_t>(state.range(0)); }

void SplitTexts(benchmark::State & state)
{
    std::string const text = Joined(SomeTexts(CountOf(state)));
    for (auto _ : state)
    {
        std::vector<std::string> items = absl::StrSplit(text, ';');
        benchmark::DoNotOptimize(items.data());
    }
    state.SetComplexityN(state.range(0));
}

template <class Item, class Read>
void SplitNumbers(benchmark::State & state, std::string const & text, Read read)
{
    for (auto _ : state)
    {
        std::vector<Item> items;
        for (absl::string_view const piece : absl::StrSplit(text, ';'))
        {
            Item item = 0;
            benchmark::DoNotOptimize(read(piece, &item));
            items.push_back(item);
        }
        benchmark::DoNotOptimize(items.data());
    }
    state.SetComplexityN(state.range(0));
}

void SplitIntegers(benchmark::State & state)
{
    SplitNumbers<int>(state, JoinedIntegers(CountOf(state)),
                      [](absl::string_view piece, int * item) { return absl::SimpleAtoi(piece, item); });
}

void SplitDoubles(benchmark::State & state)
{
    SplitNumbers<double>(state, JoinedDoubles(CountOf(state)),
                         [](absl::string_view piece, double * item) { return absl::SimpleAtod(piece, item); });
}

template <class Item>
void Join(benchmark::State & state, std::vector<Item> const & items)
{
    for (auto _ : state)
    {
        std::string const joined = absl::StrJoin(items, ";");
        benchmark::DoNotOptimize(joined.data());
    }
    state.SetComplexityN(state.range(0));
}

void JoinTexts(benchmark::State & state) { Join(state, SomeTexts(CountOf(state))); }
void JoinIntegers(benchmark::State & state) { Join(state, SomeIntegers(CountOf(state))); }
void JoinDoubles(benchmark::State & state) { Join(state, SomeDoubles(CountOf(state))); }

BENCHMARK(SplitTexts)->Name("SplitTexts/absl")->Apply(WithSizes);
BENCHMARK(SplitIntegers)->Name("SplitIntegers/absl")->Apply(WithSizes);
BENCHMARK(SplitDoubles)->Name("SplitDoubles/absl")->Apply(WithSizes);
BENCHMARK(JoinTexts)->Name("JoinTexts/absl")->Apply(WithSizes);
BENCHMARK(JoinIntegers)->Name("JoinIntegers/absl")->Apply(WithSizes);
BENCHMARK(JoinDoubles)->Name("JoinDoubles/absl")->Apply(WithSizes);

} // namespace
