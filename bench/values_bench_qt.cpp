// The typed value of Qt, where it is installed.
#include <QString>
#include <QVariant>

#include <benchmark/benchmark.h>

namespace
{

template <class Content>
void Construct(benchmark::State & state, Content content)
{
    for (auto _ : state)
    {
        QVariant value(content);
        benchmark::DoNotOptimize(value);
    }
}

template <class Content>
void Copy(benchmark::State & state, Content content)
{
    QVariant const source(content);
    for (auto _ : state)
    {
        QVariant copy(source);
        benchmark::DoNotOptimize(copy);
    }
}

void ReadText(benchmark::State & state)
{
    QVariant const value(QString("twelve units"));
    for (auto _ : state)
    {
        QString const text = value.toString();
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(ReadText)->Name("ReadText12/QVariant");

template <class From, class To>
void Convert(benchmark::State & state, From from)
{
    QVariant const source(from);
    for (auto _ : state)
    {
        QVariant const value(source.value<To>());
        benchmark::DoNotOptimize(value);
    }
}

bool RegisterRows()
{
    benchmark::RegisterBenchmark("ConstructInt/QVariant", Construct<int>, 7);
    benchmark::RegisterBenchmark("ConstructDouble/QVariant", Construct<double>, 7.5);
    benchmark::RegisterBenchmark("CopyInt/QVariant", Copy<int>, 7);
    benchmark::RegisterBenchmark("CopyDouble/QVariant", Copy<double>, 7.5);
    benchmark::RegisterBenchmark("CopyBool/QVariant", Copy<bool>, true);
    benchmark::RegisterBenchmark("CopyText12/QVariant", Copy<QString>, QString("twelve units"));
    benchmark::RegisterBenchmark("CopyText100/QVariant", Copy<QString>, QString(100, 'x'));
    benchmark::RegisterBenchmark("LongToDouble/QVariant", Convert<int, double>, 17);
    benchmark::RegisterBenchmark("DoubleToText/QVariant", Convert<double, QString>, 12345.678);
    benchmark::RegisterBenchmark("BoolToText/QVariant", Convert<bool, QString>, true);
    benchmark::RegisterBenchmark("TextToDouble/QVariant", Convert<QString, double>, QString("12345.678"));
    return true;
}

[[maybe_unused]] bool const s_registered = RegisterRows();

} // namespace
