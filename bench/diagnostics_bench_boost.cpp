// Texts by id in the interval maps of Boost: which range an id lies in, and a hash map of the texts of each.
#include <benchmark/benchmark.h>
#include <boost/icl/interval_map.hpp>

#include <string>
#include <unordered_map>
#include <vector>

namespace
{

constexpr unsigned int messagesOfRange = 100;

void FindMessage(benchmark::State & state)
{
    auto const ranges = static_cast<unsigned int>(state.range(0));
    boost::icl::interval_map<unsigned int, unsigned int, boost::icl::partial_enricher> groupOf;
    std::vector<std::unordered_map<unsigned int, std::u16string>> groups(ranges);
    for (unsigned int range = 0; range < ranges; ++range)
    {
        unsigned int const first = range * messagesOfRange;
        groupOf +=
            std::make_pair(boost::icl::interval<unsigned int>::right_open(first, first + messagesOfRange), range);
        for (unsigned int id = first; id < first + messagesOfRange; ++id)
            groups[range].emplace(id, u"No such layer in this drawing");
    }
    unsigned int id = 0;
    std::u16string text;
    for (auto _ : state)
    {
        id = (id + 7919) % (ranges * messagesOfRange);
        text = groups[groupOf.find(id)->second].at(id);
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(FindMessage)->Name("FindMessage/boost::icl")->Arg(1)->Arg(10)->Arg(100)->Arg(1000);

} // namespace
