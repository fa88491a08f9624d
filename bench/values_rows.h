// The workloads of the typed value, each the same for every library.
//
// A library is a struct with its `name`, its types `Value` and `Text`, and the functions that the workloads call.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace kr::bench
{

/// Runs `operation` on one value again and again.
template <class Operation>
void RegisterRow(std::string const & workload, char const * library, Operation operation)
{
    benchmark::RegisterBenchmark((workload + "/" + library).c_str(),
                                 [operation](benchmark::State & state)
                                 {
                                     for (auto _ : state)
                                     {
                                         auto result = operation();
                                         benchmark::DoNotOptimize(result);
                                     }
                                 });
}

template <class Library, class Content>
void RegisterConstructAndCopy(std::string const & kind, Content const & content)
{
    using Value = typename Library::Value;
    RegisterRow("Construct" + kind, Library::name, [content] { return Value(content); });
    RegisterRow("Copy" + kind, Library::name, [source = Value(content)] { return Value(source); });
}

template <class Library>
void RegisterBasicRows()
{
    using Value = typename Library::Value;
    auto const shortText = Library::MakeText("twelve units");
    auto const longText = Library::MakeText(std::string(100, 'x').c_str());
    RegisterConstructAndCopy<Library>("Int", 7);
    RegisterConstructAndCopy<Library>("Double", 7.5);
    RegisterConstructAndCopy<Library>("Bool", true);
    RegisterConstructAndCopy<Library>("Text12", shortText);
    RegisterConstructAndCopy<Library>("Text100", longText);
    RegisterRow("ReadInt", Library::name, [value = Value(7)] { return Library::ReadInt(value); });
    RegisterRow("ReadDouble", Library::name, [value = Value(7.5)] { return Library::ReadDouble(value); });
    RegisterRow("ReadText12", Library::name, [value = Value(shortText)] { return Library::ReadText(value); });
    RegisterRow("ReadText100", Library::name, [value = Value(longText)] { return Library::ReadText(value); });
}

template <class Library>
void RegisterConversionRows()
{
    using Value = typename Library::Value;
    RegisterRow("IntToDouble", Library::name, [value = Value(17)] { return Library::IntToDouble(value); });
    RegisterRow("DoubleToText", Library::name, [value = Value(12345.678)] { return Library::DoubleToText(value); });
    RegisterRow("BoolToText", Library::name, [value = Value(true)] { return Library::BoolToText(value); });
    RegisterRow("TextToDouble", Library::name,
                [value = Value(Library::MakeText("12345.678"))] { return Library::TextToDouble(value); });
}

} // namespace kr::bench
