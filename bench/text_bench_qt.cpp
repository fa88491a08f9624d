// Lists in texts by Qt, where it is installed.
#include "bench/text_bench_input.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

#include <benchmark/benchmark.h>

using namespace kr::bench;

namespace
{

std::size_t CountOf(benchmark::State const & state) { return static_cast<std::size_t>(state.range(0)); }

template <class Item, class Read>
void Split(benchmark::State & state, std::string const & joined, Read read)
{
    QString const text = QString::fromStdString(joined);
    for (auto _ : state)
    {
        std::vector<Item> items;
        for (QStringRef const & piece : text.splitRef(QLatin1Char(';')))
            items.push_back(read(piece));
        benchmark::DoNotOptimize(items.data());
    }
    state.SetComplexityN(state.range(0));
}

void SplitTexts(benchmark::State & state)
{
    QString const text = QString::fromStdString(Joined(SomeTexts(CountOf(state))));
    for (auto _ : state)
    {
        QStringList const items = text.split(QLatin1Char(';'));
        benchmark::DoNotOptimize(items.size());
    }
    state.SetComplexityN(state.range(0));
}

void SplitIntegers(benchmark::State & state)
{
    Split<int>(state, JoinedIntegers(CountOf(state)), [](QStringRef const & piece) { return piece.toInt(); });
}

void SplitDoubles(benchmark::State & state)
{
    Split<double>(state, JoinedDoubles(CountOf(state)), [](QStringRef const & piece) { return piece.toDouble(); });
}

void Join(benchmark::State & state, QStringList const & items)
{
    for (auto _ : state)
    {
        QString const joined = items.join(QLatin1Char(';'));
        benchmark::DoNotOptimize(joined.constData());
    }
    state.SetComplexityN(state.range(0));
}

void JoinTexts(benchmark::State & state)
{
    QStringList items;
    for (std::string const & text : SomeTexts(CountOf(state)))
        items.push_back(QString::fromStdString(text));
    Join(state, items);
}

template <class Item, class Write>
void JoinNumbers(benchmark::State & state, std::vector<Item> const & items, Write write)
{
    for (auto _ : state)
    {
        QStringList texts;
        for (Item const item : items)
            texts.push_back(write(item));
        QString const joined = texts.join(QLatin1Char(';'));
        benchmark::DoNotOptimize(joined.constData());
    }
    state.SetComplexityN(state.range(0));
}

void JoinIntegers(benchmark::State & state)
{
    JoinNumbers(state, SomeIntegers(CountOf(state)), [](int item) { return QString::number(item); });
}

void JoinDoubles(benchmark::State & state)
{
    JoinNumbers(state, SomeDoubles(CountOf(state)), [](double item) { return QString::number(item, 'g', 15); });
}

BENCHMARK(SplitTexts)->Name("SplitTexts/QString")->Apply(WithSizes);
BENCHMARK(SplitIntegers)->Name("SplitIntegers/QString")->Apply(WithSizes);
BENCHMARK(SplitDoubles)->Name("SplitDoubles/QString")->Apply(WithSizes);
BENCHMARK(JoinTexts)->Name("JoinTexts/QString")->Apply(WithSizes);
BENCHMARK(JoinIntegers)->Name("JoinIntegers/QString")->Apply(WithSizes);
BENCHMARK(JoinDoubles)->Name("JoinDoubles/QString")->Apply(WithSizes);

} // namespace
