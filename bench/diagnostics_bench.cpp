// Trace lines, each of which is in the file when the call returns, and texts by message id.
#include "bench/trace_file.h"

#include <krcore/diagnostics/krmessagepool.h>
#include <krcore/diagnostics/krtrace.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>

namespace
{

using namespace kr::bench;

void TracePlain(benchmark::State & state)
{
    TraceFile const file("kr_trace_bench.log");
    CKrTrace trace(CString(file.GetName().c_str()), CString());
    CString const text(line);
    for (auto _ : state)
        trace.Trace(text, true);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(TracePlain)->Name("TraceLine/KrCore");

void TraceLocated(benchmark::State & state)
{
    TraceFile const file("kr_trace_bench.log");
    CKrTrace trace(CString(file.GetName().c_str()), CString());
    CString const text(line);
    CString const source(OLESTR("layers"));
    for (auto _ : state)
        trace.Trace(text, source, 42);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(TraceLocated)->Name("TraceLineWithTimeAndPlace/KrCore");

void TraceOff(benchmark::State & state)
{
    CKrTrace trace(CString(), OLESTR("KR_NO_SUCH_VARIABLE"));
    CString const text(line);
    CString const source(OLESTR("layers"));
    for (auto _ : state)
        trace.Trace(text, source, 42);
}
BENCHMARK(TraceOff)->Name("TraceOff/KrCore");

/// The floor: what the system takes for one write a line.
void WriteLine(benchmark::State & state)
{
    TraceFile const name("kr_write_bench.log");
    std::FILE * const file = std::fopen(name.GetName().c_str(), "wb");
    std::setvbuf(file, nullptr, _IONBF, 0);
    std::string const text = std::string(line) + '\n';
    for (auto _ : state)
        std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(WriteLine)->Name("TraceLine/one write");

constexpr unsigned int messagesOfRange = 100;

/// Ranges of a hundred messages, one group each.
void FindMessage(benchmark::State & state)
{
    auto const ranges = static_cast<unsigned int>(state.range(0));
    CKrMessagePool pool;
    for (unsigned int range = 0; range < ranges; ++range)
    {
        CString group;
        group.Format(OLESTR("group%04u"), range);
        pool.AddMessageGroup(group);
        unsigned int const first = range * messagesOfRange;
        pool.SetIDRange(first, first + messagesOfRange - 1, group);
        for (unsigned int id = first; id < first + messagesOfRange; ++id)
            pool.AddMessage(id, OLESTR("No such layer in this drawing"), group);
    }
    unsigned int id = 0;
    CString text;
    for (auto _ : state)
    {
        id = (id + 7919) % (ranges * messagesOfRange);
        benchmark::DoNotOptimize(pool.GetMessageW(id, text));
    }
}
BENCHMARK(FindMessage)->Name("FindMessage/KrCore")->Arg(1)->Arg(10)->Arg(100)->Arg(1000);

} // namespace
