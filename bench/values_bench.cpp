// The typed value: construct, copy, read, convert.
#include <krcore/values/krvariant.h>

#include <benchmark/benchmark.h>

#include <string>
#include <variant>

namespace
{

using Standard = std::variant<std::monostate, int, double, bool, std::u16string>;

template <class Value, class Content>
void Construct(benchmark::State & state, Content content)
{
    for (auto _ : state)
    {
        Value value(content);
        benchmark::DoNotOptimize(value);
    }
}

template <class Value, class Content>
void Copy(benchmark::State & state, Content content)
{
    Value const source(content);
    for (auto _ : state)
    {
        Value copy(source);
        benchmark::DoNotOptimize(copy);
    }
}

constexpr WCHAR const * shortText = OLESTR("twelve units");
std::u16string const longText(100, u'x');

void ReadDouble_KrCore(benchmark::State & state)
{
    CKrVariant const value(7.5);
    for (auto _ : state)
        benchmark::DoNotOptimize(static_cast<double>(value));
}
BENCHMARK(ReadDouble_KrCore)->Name("ReadDouble/KrCore");

void ReadDouble_Standard(benchmark::State & state)
{
    Standard const value(7.5);
    for (auto _ : state)
        benchmark::DoNotOptimize(std::get<double>(value));
}
BENCHMARK(ReadDouble_Standard)->Name("ReadDouble/std::variant");

void ReadText_KrCore(benchmark::State & state)
{
    CKrVariant const value(shortText);
    for (auto _ : state)
    {
        CString const text = value;
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(ReadText_KrCore)->Name("ReadText12/KrCore");

template <class From>
void Convert(benchmark::State & state, From from, CKrVariant::EType target)
{
    CKrVariant const source(from);
    for (auto _ : state)
    {
        CKrVariant value(source);
        value.ConvertType(target);
        benchmark::DoNotOptimize(value);
    }
}

bool RegisterRows()
{
    benchmark::RegisterBenchmark("ConstructInt/KrCore", Construct<CKrVariant, int>, 7);
    benchmark::RegisterBenchmark("ConstructInt/std::variant", Construct<Standard, int>, 7);
    benchmark::RegisterBenchmark("ConstructDouble/KrCore", Construct<CKrVariant, double>, 7.5);
    benchmark::RegisterBenchmark("ConstructDouble/std::variant", Construct<Standard, double>, 7.5);
    benchmark::RegisterBenchmark("CopyInt/KrCore", Copy<CKrVariant, int>, 7);
    benchmark::RegisterBenchmark("CopyInt/std::variant", Copy<Standard, int>, 7);
    benchmark::RegisterBenchmark("CopyDouble/KrCore", Copy<CKrVariant, double>, 7.5);
    benchmark::RegisterBenchmark("CopyDouble/std::variant", Copy<Standard, double>, 7.5);
    benchmark::RegisterBenchmark("CopyBool/KrCore", Copy<CKrVariant, bool>, true);
    benchmark::RegisterBenchmark("CopyBool/std::variant", Copy<Standard, bool>, true);
    benchmark::RegisterBenchmark("CopyText12/KrCore", Copy<CKrVariant, WCHAR const *>, shortText);
    benchmark::RegisterBenchmark("CopyText12/std::variant", Copy<Standard, std::u16string>, std::u16string(shortText));
    benchmark::RegisterBenchmark("CopyText100/KrCore", Copy<CKrVariant, WCHAR const *>, longText.c_str());
    benchmark::RegisterBenchmark("CopyText100/std::variant", Copy<Standard, std::u16string>, longText);
    benchmark::RegisterBenchmark("LongToDouble/KrCore", Convert<int>, 17, CKrVariant::eDouble);
    benchmark::RegisterBenchmark("DoubleToText/KrCore", Convert<double>, 12345.678, CKrVariant::eString);
    benchmark::RegisterBenchmark("BoolToText/KrCore", Convert<bool>, true, CKrVariant::eString);
    benchmark::RegisterBenchmark("TextToDouble/KrCore", Convert<WCHAR const *>, OLESTR("12345.678"),
                                 CKrVariant::eDouble);
    return true;
}

[[maybe_unused]] bool const s_registered = RegisterRows();

} // namespace
