// The log files of spdlog, flushed at each line.
#include "bench/trace_file.h"

#include <benchmark/benchmark.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <memory>

namespace
{

using namespace kr::bench;

void TraceLine(benchmark::State & state, char const * pattern)
{
    TraceFile const file("kr_spdlog_bench.log");
    spdlog::logger logger("bench", std::make_shared<spdlog::sinks::basic_file_sink_mt>(file.GetName(), true));
    logger.set_pattern(pattern);
    logger.flush_on(spdlog::level::trace);
    for (auto _ : state)
        logger.log(spdlog::source_loc("layers", 42, ""), spdlog::level::info, line);
    state.SetItemsProcessed(state.iterations());
}

[[maybe_unused]] bool const s_registered =
    (benchmark::RegisterBenchmark("TraceLine/spdlog", TraceLine, "%v"),
     benchmark::RegisterBenchmark("TraceLineWithTimeAndPlace/spdlog", TraceLine, "%H:%M:%S-%-30s(%#): \t%v"), true);

} // namespace
