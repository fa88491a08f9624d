// The workloads of a text type, each the same for every library.
//
// A library is a struct with its `label`, its type `Text`, and the functions that the workloads call.
#pragma once

#include <benchmark/benchmark.h>

#include <string>

namespace kr::bench
{

inline constexpr char const * words = "a wall of 24 units, more or less";

template <class Library>
void CopyText(benchmark::State & state)
{
    auto const source = Library::MakeText(words);
    for (auto _ : state)
    {
        auto copy(source);
        benchmark::DoNotOptimize(copy);
    }
}

template <class Library>
void AppendUnits(benchmark::State & state)
{
    for (auto _ : state)
    {
        typename Library::Text text;
        for (int index = 0; index < 100; ++index)
            text += Library::unit;
        benchmark::DoNotOptimize(text);
    }
}

template <class Library>
void AppendTexts(benchmark::State & state)
{
    auto const part = Library::MakeText("a part");
    for (auto _ : state)
    {
        typename Library::Text text;
        for (int index = 0; index < 100; ++index)
            text += part;
        benchmark::DoNotOptimize(text);
    }
}

template <class Library>
void CompareTexts(benchmark::State & state)
{
    auto const left = Library::MakeText(words);
    auto const right = left + Library::unit;
    for (auto _ : state)
        benchmark::DoNotOptimize(left < right);
}

template <class Library>
void EqualTexts(benchmark::State & state)
{
    auto const left = Library::MakeText(words);
    auto const right = Library::MakeText(words);
    for (auto _ : state)
        benchmark::DoNotOptimize(left == right);
}

template <class Library>
void FormatText(benchmark::State & state)
{
    auto const name = Library::MakeText("wall");
    for (auto _ : state)
    {
        auto text = Library::Format(name, 3, 17, 0.35);
        benchmark::DoNotOptimize(text);
    }
}

template <class Library>
void RegisterStringRows()
{
    auto const add = [](char const * workload, void (*run)(benchmark::State &))
    { benchmark::RegisterBenchmark((std::string(workload) + "/" + Library::label).c_str(), run); };
    add("CopyText", CopyText<Library>);
    add("Append100Units", AppendUnits<Library>);
    add("Append100Texts", AppendTexts<Library>);
    add("CompareTexts", CompareTexts<Library>);
    add("EqualTexts", EqualTexts<Library>);
    add("FormatText", FormatText<Library>);
}

} // namespace kr::bench
