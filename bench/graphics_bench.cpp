// Line weights: the first that is not below a width. Colours: the nearest row of the table, and their texts.
#include "bench/graphics_rows.h"

#include <krcore/graphics/krcolor.h>
#include <krcore/graphics/krstyles.h>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdlib>

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

void NearestIndex_KrCore(benchmark::State & state)
{
    auto const colors = kr::bench::SomeColors();
    for (auto _ : state)
    {
        for (auto const [red, green, blue] : colors)
            benchmark::DoNotOptimize(CKrColor(red, green, blue).GetAsColorIndex());
    }
}
BENCHMARK(NearestIndex_KrCore)->Name("NearestIndex1024/KrCore");

/// What a user would write instead.
void NearestIndex_Plain(benchmark::State & state)
{
    auto const colors = kr::bench::SomeColors();
    std::array<kr::bench::Rgb, 256> rows;
    for (int index = 0; index < 256; ++index)
    {
        CKrColor row(index);
        row.IndexToRGB();
        rows[static_cast<std::size_t>(index)] = {static_cast<std::uint8_t>(row.GetRed()),
                                                 static_cast<std::uint8_t>(row.GetGreen()),
                                                 static_cast<std::uint8_t>(row.GetBlue())};
    }
    for (auto _ : state)
    {
        for (auto const [red, green, blue] : colors)
        {
            int nearest = 0;
            int least = 3 * 255 + 1;
            for (int index = 1; index < 256; ++index)
            {
                kr::bench::Rgb const & row = rows[static_cast<std::size_t>(index)];
                int const distance = std::abs(row.red - red) + std::abs(row.green - green) + std::abs(row.blue - blue);
                if (distance < least)
                {
                    least = distance;
                    nearest = index;
                }
            }
            benchmark::DoNotOptimize(nearest);
        }
    }
}
BENCHMARK(NearestIndex_Plain)->Name("NearestIndex1024/plain loop");

void ParseColor(benchmark::State & state)
{
    CString const text(OLESTR("#FF8040"));
    for (auto _ : state)
    {
        CKrColor color;
        color.Parse(text);
        benchmark::DoNotOptimize(color);
    }
}
BENCHMARK(ParseColor)->Name("ParseColor/KrCore");

void FormatColor(benchmark::State & state)
{
    CKrColor const color(255u, 128u, 64u);
    for (auto _ : state)
        benchmark::DoNotOptimize(color.Format(true));
}
BENCHMARK(FormatColor)->Name("FormatColor/KrCore");

} // namespace
