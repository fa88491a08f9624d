// The workloads of the typed value, each the same for every library.
//
// A library is a struct with its `label`, its types `Value` and `Text`, and the functions that the workloads call.
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
    RegisterRow("Construct" + kind, Library::label, [content] { return Value(content); });
    RegisterRow("Copy" + kind, Library::label, [source = Value(content)] { return Value(source); });
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
    RegisterRow("ReadInt", Library::label, [value = Value(7)] { return Library::ReadInt(value); });
    RegisterRow("ReadDouble", Library::label, [value = Value(7.5)] { return Library::ReadDouble(value); });
    RegisterRow("ReadText12", Library::label, [value = Value(shortText)] { return Library::ReadText(value); });
    RegisterRow("ReadText100", Library::label, [value = Value(longText)] { return Library::ReadText(value); });
}

template <class Library>
void RegisterConversionRows()
{
    using Value = typename Library::Value;
    RegisterRow("IntToDouble", Library::label, [value = Value(17)] { return Library::IntToDouble(value); });
    RegisterRow("DoubleToText", Library::label, [value = Value(12345.678)] { return Library::DoubleToText(value); });
    RegisterRow("BoolToText", Library::label, [value = Value(true)] { return Library::BoolToText(value); });
    RegisterRow("TextToDouble", Library::label,
                [value = Value(Library::MakeText("12345.678"))] { return Library::TextToDouble(value); });
}

} // namespace kr::bench
