// Colours in Qt: a picture turned into one of a table's colours, and colours as texts.
#include "bench/graphics_rows.h"

#include <QColor>
#include <QImage>
#include <QVector>

#include <benchmark/benchmark.h>

namespace
{

void NearestIndex(benchmark::State & state)
{
    auto const colors = kr::bench::SomeColors();
    QImage picture(32, 32, QImage::Format_RGB32);
    for (int index = 0; index < 1024; ++index)
    {
        auto const [red, green, blue] = colors[static_cast<std::size_t>(index)];
        picture.setPixel(index % 32, index / 32, qRgb(red, green, blue));
    }
    QVector<QRgb> rows; // of 256 colours, like the table's
    for (int index = 0; index < 256; ++index)
        rows.push_back(qRgb(index / 32 * 36, index / 4 % 8 * 36, index % 4 * 85));
    for (auto _ : state)
        benchmark::DoNotOptimize(picture.convertToFormat(QImage::Format_Indexed8, rows));
}
BENCHMARK(NearestIndex)->Name("NearestIndex1024/QImage");

void ParseColor(benchmark::State & state)
{
    QString const text("#FF8040");
    for (auto _ : state)
        benchmark::DoNotOptimize(QColor(text));
}
BENCHMARK(ParseColor)->Name("ParseColor/QColor");

void FormatColor(benchmark::State & state)
{
    QColor const color(255, 128, 64);
    for (auto _ : state)
        benchmark::DoNotOptimize(color.name());
}
BENCHMARK(FormatColor)->Name("FormatColor/QColor");

} // namespace
