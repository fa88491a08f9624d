// The item model and the hash table of Qt. The model has no unique keys: columns are found by their number.
#include <QHash>
#include <QStandardItemModel>
#include <QString>

#include <benchmark/benchmark.h>

namespace
{

int CountOf(benchmark::State const & state) { return static_cast<int>(state.range(0)); }

void AddColumns(benchmark::State & state)
{
    for (auto _ : state)
    {
        QStandardItemModel model;
        for (int column = 0; column < CountOf(state); ++column)
        {
            model.insertColumn(column);
            model.setHorizontalHeaderItem(column, new QStandardItem("Width"));
        }
        benchmark::DoNotOptimize(model.columnCount());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AddColumns)
    ->Name("AddColumnsOfOneName/QStandardItemModel")
    ->RangeMultiplier(10)
    ->Range(10, 10000)
    ->Complexity();

QStandardItem * NewCell() { return new QStandardItem("twelve units"); }

void AppendRows(benchmark::State & state)
{
    for (auto _ : state)
    {
        QStandardItemModel model(0, 1000);
        for (int row = 0; row < CountOf(state); ++row)
        {
            QList<QStandardItem *> cells;
            cells.reserve(1000);
            for (int column = 0; column < 1000; ++column)
                cells.append(NewCell());
            model.appendRow(cells);
        }
        benchmark::DoNotOptimize(model.rowCount());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(AppendRows)
    ->Name("Append1000CellRows/QStandardItemModel")
    ->RangeMultiplier(10)
    ->Range(10, 1000)
    ->Complexity()
    ->Unit(benchmark::kMillisecond);

void ReadRow(benchmark::State & state)
{
    constexpr int rows = 1000; // ten thousand of a thousand cells do not fit into the memory of a small machine
    QStandardItemModel model(rows, CountOf(state));
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < CountOf(state); ++column)
            model.setItem(row, column, NewCell());
    QStringList values;
    int row = 0;
    for (auto _ : state)
    {
        values.clear();
        for (int column = 0; column < CountOf(state); ++column)
            values.append(model.item(row, column)->text());
        benchmark::DoNotOptimize(values.size());
        row = (row + 1) % rows;
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadRow)->Name("ReadRow/QStandardItemModel")->RangeMultiplier(10)->Range(10, 1000)->Complexity();

void Find(benchmark::State & state)
{
    QHash<QString, int> places;
    for (int column = 0; column < CountOf(state); ++column)
        places.insert(QString("Width_#%1#").arg(column), column);
    QString const key = QString("Width_#%1#").arg(CountOf(state) - 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(places.contains(key));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Find)->Name("FindColumn/QHash")->RangeMultiplier(10)->Range(10, 10000)->Complexity();

} // namespace
