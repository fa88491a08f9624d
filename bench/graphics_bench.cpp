// Line weights: the first that is not below a width.
#include <krcore/graphics/krstyles.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>

namespace
{

// Widths in millimetres, from the first weight to the last.
constexpr double widths[] = {0.0, 0.04, 0.13, 0.18, 0.26, 0.35, 0.49, 0.7, 1.0, 1.39, 2.0, 3.0};

void LineWeight_KrCore(benchmark::State & state)
{
    CString const name(OLESTR("DASHED"));
    for (auto _ : state)
    {
        for (double const width : widths)
            benchmark::DoNotOptimize(CKrLineStyle::AcadLineStyle(width, name));
    }
}
BENCHMARK(LineWeight_KrCore)->Name("LineWeight/KrCore");

/// What a user would write instead.
struct PlainLineStyle
{
    CString name;
    double width;
    int weight;
};

void LineWeight_Standard(benchmark::State & state)
{
    constexpr std::array weights = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                    53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
    CString const name(OLESTR("DASHED"));
    for (auto _ : state)
    {
        for (double const width : widths)
        {
            auto const found = std::ranges::lower_bound(weights, static_cast<int>(width * 100.0));
            PlainLineStyle const style{name, width, found == weights.end() ? weights.back() : *found};
            benchmark::DoNotOptimize(style);
        }
    }
}
BENCHMARK(LineWeight_Standard)->Name("LineWeight/std::lower_bound");

} // namespace
