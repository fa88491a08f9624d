// The workloads of trees of properties, each the same for every library: ten categories that share n properties.
//
// A library is a struct with its `label`, its type `Tree`, and the functions that the workloads call. A row ends in n; the last rows of a
// workload tell its growth.
#pragma once

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace kr::bench
{

constexpr int categoryCount = 10;

/// The names of a tree, made beforehand in the text type of the library.
template <class Library>
struct Names
{
    explicit Names(int propertyCount)
    {
        for (int index = 0; index < categoryCount; ++index)
            categories.push_back(Library::MakeText("category" + std::to_string(index)));
        for (int index = 0; index < propertyCount / categoryCount; ++index)
            properties.push_back(Library::MakeText("property" + std::to_string(index)));
    }

    std::vector<typename Library::Text> categories;
    std::vector<typename Library::Text> properties;
};

template <class Library>
typename Library::Tree MakeTree(Names<Library> const & names)
{
    typename Library::Tree tree{};
    for (auto const & category : names.categories)
    {
        auto && parent = Library::AddCategory(tree, category);
        int value = 0;
        for (auto const & name : names.properties)
            Library::AddProperty(parent, name, value++);
    }
    return tree;
}

inline int CountOf(benchmark::State & state)
{
    state.SetComplexityN(state.range(0));
    return static_cast<int>(state.range(0));
}

template <class Library>
void Build(benchmark::State & state)
{
    Names<Library> const names(CountOf(state));
    for (auto _ : state)
    {
        auto tree = MakeTree(names);
        benchmark::DoNotOptimize(tree);
    }
}

template <class Library>
void Find(benchmark::State & state)
{
    Names<Library> const names(CountOf(state));
    auto const tree = MakeTree(names);
    std::size_t next = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(Library::Find(tree, names.categories[next % 10], names.properties[next]));
        next = (next + 7) % names.properties.size();
    }
}

template <class Library>
void DeepCopy(benchmark::State & state)
{
    auto const tree = MakeTree(Names<Library>(CountOf(state)));
    for (auto _ : state)
    {
        auto copy = Library::Copy(tree);
        benchmark::DoNotOptimize(copy);
    }
}

template <class Library>
void DeepCompare(benchmark::State & state)
{
    auto const tree = MakeTree(Names<Library>(CountOf(state)));
    auto const other = Library::Copy(tree);
    for (auto _ : state)
        benchmark::DoNotOptimize(Library::AreEqual(tree, other));
}

template <class Library>
void Sort(benchmark::State & state)
{
    auto const tree = MakeTree(Names<Library>(CountOf(state)));
    for (auto _ : state)
    {
        state.PauseTiming();
        {
            auto copy = Library::Copy(tree);
            state.ResumeTiming();
            Library::Sort(copy);
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}

template <class Library>
void Walk(benchmark::State & state)
{
    auto tree = MakeTree(Names<Library>(CountOf(state)));
    for (auto _ : state)
        benchmark::DoNotOptimize(Library::CountNodes(tree));
}

inline void AddTreeRow(char const * workload, char const * library, void (*run)(benchmark::State &))
{
    benchmark::RegisterBenchmark((std::string(workload) + "/" + library).c_str(), run)
        ->RangeMultiplier(10)
        ->Range(10, 100000)
        ->Complexity();
}

template <class Library>
void RegisterTreeRows()
{
    AddTreeRow("Build", Library::label, Build<Library>);
    AddTreeRow("Find", Library::label, Find<Library>);
    AddTreeRow("DeepCopy", Library::label, DeepCopy<Library>);
    AddTreeRow("DeepCompare", Library::label, DeepCompare<Library>);
    AddTreeRow("Walk", Library::label, Walk<Library>);
    if constexpr (requires(typename Library::Tree & tree) { Library::Sort(tree); })
        AddTreeRow("Sort", Library::label, Sort<Library>);
}

/// Sets that are edited as one; the first argument is their number, the second that of the properties of each.
inline void AddEditRow(char const * workload, char const * library, void (*run)(benchmark::State &))
{
    auto * const row = benchmark::RegisterBenchmark((std::string(workload) + "/" + library).c_str(), run);
    for (std::int64_t const properties : {10, 100, 1000, 10000})
        row->Args({10, properties});
    for (std::int64_t const sets : {2, 100, 1000})
        row->Args({sets, 100});
}

} // namespace kr::bench
