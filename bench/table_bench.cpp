// Tables of text: columns and keys, fills by cell and by row, row reads, removal; beside plain vectors with a map.
#include <krcore/table/krtabledata.h>

#include <benchmark/benchmark.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace
{

unsigned int CountOf(benchmark::State const & state) { return static_cast<unsigned int>(state.range(0)); }

/// What a program without a table class would write.
struct Plain
{
    std::unordered_map<std::u16string, std::size_t> places;
    std::vector<std::vector<std::u16string>> columns;
};

CKrTableData MakeTable(unsigned int columns)
{
    CKrTableData table;
    for (unsigned int column = 0; column < columns; ++column)
        table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);
    return table;
}

std::u16string KeyOf(unsigned int number)
{
    std::string const digits = std::to_string(number);
    return u"Width_#" + std::u16string(digits.begin(), digits.end()) + u"#";
}

Plain MakePlain(unsigned int columns)
{
    Plain table;
    table.columns.resize(columns);
    for (unsigned int column = 0; column < columns; ++column)
        table.places.emplace(KeyOf(column), column);
    return table;
}

void AddColumns(benchmark::State & state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MakeTable(CountOf(state)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AddColumns)->Name("AddColumnsOfOneName/KrCore")->RangeMultiplier(10)->Range(10, 10000)->Complexity();

void AddColumnsPlain(benchmark::State & state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MakePlain(CountOf(state)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AddColumnsPlain)->Name("AddColumnsOfOneName/vector+map")->RangeMultiplier(10)->Range(10, 10000)->Complexity();

/// Takes all columns out by their keys, the last first.
void RemoveColumns(benchmark::State & state)
{
    for (auto _ : state)
    {
        state.PauseTiming();
        CKrTableData table = MakeTable(CountOf(state));
        state.ResumeTiming();
        while (!table.IsEmpty())
            table.RemoveColumn(table.back().GetKey());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(RemoveColumns)->Name("RemoveColumns/KrCore")->RangeMultiplier(10)->Range(10, 10000)->Complexity();

/// A thousand columns, one cell after the other by the key of its column.
void FillByKey(benchmark::State & state)
{
    CKrTableData table = MakeTable(1000);
    std::vector<CString> keys;
    for (CKrTableColumn const & column : table)
        keys.push_back(column.GetKey());
    CString const value(OLESTR("twelve units"));
    for (auto _ : state)
    {
        for (unsigned int row = 0; row < CountOf(state); ++row)
            for (CString const & key : keys)
                table.AddColumnValue(key, value);
        state.PauseTiming();
        for (CKrTableColumn & column : table)
            std::vector<CString>().swap(column.GetValues());
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(FillByKey)
    ->Name("Fill1000Columns/KrCore")
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void FillByKeyPlain(benchmark::State & state)
{
    Plain table = MakePlain(1000);
    std::vector<std::u16string> keys;
    for (unsigned int column = 0; column < 1000; ++column)
        keys.push_back(KeyOf(column));
    std::u16string const value(u"twelve units");
    for (auto _ : state)
    {
        for (unsigned int row = 0; row < CountOf(state); ++row)
            for (std::u16string const & key : keys)
                table.columns[table.places.at(key)].push_back(value);
        state.PauseTiming();
        for (std::vector<std::u16string> & column : table.columns)
            std::vector<std::u16string>().swap(column);
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(FillByKeyPlain)
    ->Name("Fill1000Columns/vector+map")
    ->RangeMultiplier(10)
    ->Range(10, 1000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

CKrTableData MakeFull(unsigned int columns, unsigned int rows)
{
    CKrTableData table = MakeTable(columns);
    std::vector<CString> const values(columns, CString(OLESTR("twelve units")));
    for (unsigned int row = 0; row < rows; ++row)
        table.InsertRow(row, values);
    return table;
}

/// Adds rows at the end, to a thousand columns.
void AppendRows(benchmark::State & state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MakeFull(1000, CountOf(state)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AppendRows)
    ->Name("Append1000CellRows/KrCore")
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

/// Reads one row after the other of 10,000.
void ReadRow(benchmark::State & state)
{
    CKrTableData const table = MakeFull(CountOf(state), 10000);
    std::vector<CString> values;
    unsigned int row = 0;
    for (auto _ : state)
    {
        table.GetRowData(row, values);
        benchmark::DoNotOptimize(values.data());
        row = (row + 1) % 10000;
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadRow)->Name("ReadRow/KrCore")->RangeMultiplier(10)->Range(10, 1000)->Complexity();

void ReadRowPlain(benchmark::State & state)
{
    Plain table = MakePlain(CountOf(state));
    for (std::vector<std::u16string> & column : table.columns)
        column.assign(10000, u"twelve units");
    std::vector<std::u16string> values;
    std::size_t row = 0;
    for (auto _ : state)
    {
        values.clear();
        for (std::vector<std::u16string> const & column : table.columns)
            values.push_back(column[row]);
        benchmark::DoNotOptimize(values.data());
        row = (row + 1) % 10000;
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadRowPlain)->Name("ReadRow/vector+map")->RangeMultiplier(10)->Range(10, 100)->Complexity();

/// The last row of a thousand columns, while there is one; the time is that of one row.
void RemoveRow(benchmark::State & state)
{
    CKrTableData const full = MakeFull(1000, 100);
    CKrTableData table(full);
    unsigned int rows = 100;
    for (auto _ : state)
    {
        if (rows == 0)
        {
            state.PauseTiming();
            table = full;
            rows = 100;
            state.ResumeTiming();
        }
        table.RemoveRow(--rows);
    }
}
BENCHMARK(RemoveRow)->Name("RemoveLast1000CellRow/KrCore");

void Find(benchmark::State & state)
{
    CKrTableData const table = MakeTable(CountOf(state));
    CString const key = table.back().GetKey();
    for (auto _ : state)
        benchmark::DoNotOptimize(table.Includes(key));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Find)->Name("FindColumn/KrCore")->RangeMultiplier(10)->Range(10, 10000)->Complexity();

void FindPlain(benchmark::State & state)
{
    Plain const table = MakePlain(CountOf(state));
    std::u16string const key = KeyOf(CountOf(state) - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(table.places.contains(key));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(FindPlain)->Name("FindColumn/vector+map")->RangeMultiplier(10)->Range(10, 10000)->Complexity();

} // namespace
