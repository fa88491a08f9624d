// Sets of properties: build, find, copy, compare, sort, walk, edit as one; with the growth in n.
#include <krcore/property/krpropertyset.h>
#include <krcore/property/krpropertyutils.h>

#include <benchmark/benchmark.h>

namespace
{

constexpr unsigned int categories = 10;

CString NameOf(WCHAR const * prefix, unsigned int number)
{
    CString name;
    name.Format(OLESTR("%s%u"), prefix, number);
    return name;
}

CKrPropertySet MakeSet(unsigned int count)
{
    CKrPropertySet set;
    for (unsigned int category = 0; category < categories; ++category)
    {
        CString const name = NameOf(OLESTR("category"), category);
        for (unsigned int index = 0; index < count / categories; ++index)
            set.CreateProperty(NameOf(OLESTR("property"), index), CKrProperty::ePropInt, name)
                ->SetInt(static_cast<int>(index));
    }
    return set;
}

unsigned int CountOf(benchmark::State const & state) { return static_cast<unsigned int>(state.range(0)); }

void Build(benchmark::State & state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(MakeSet(CountOf(state)));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Build)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void Find(benchmark::State & state)
{
    CKrPropertySet const set = MakeSet(CountOf(state));
    CString const name = NameOf(OLESTR("property"), CountOf(state) / categories - 1);
    CString const category(OLESTR("category9"));
    for (auto _ : state)
        benchmark::DoNotOptimize(set.GetProperty(name, category));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Find)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void DeepCopy(benchmark::State & state)
{
    CKrPropertySet const set = MakeSet(CountOf(state));
    for (auto _ : state)
    {
        CKrPropertySet copy(set);
        benchmark::DoNotOptimize(copy);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(DeepCopy)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void DeepCompare(benchmark::State & state)
{
    CKrPropertySet const set = MakeSet(CountOf(state));
    CKrPropertySet const other(set);
    for (auto _ : state)
        benchmark::DoNotOptimize(set.IsEqual(other));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(DeepCompare)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void Sort(benchmark::State & state)
{
    CKrPropertySet const set = MakeSet(CountOf(state));
    for (auto _ : state)
    {
        state.PauseTiming();
        CKrPropertySet copy(set);
        state.ResumeTiming();
        copy.AlphabeticSortProperties(CString());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Sort)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

void Walk(benchmark::State & state)
{
    struct Counter : kr::visitor<CKrProperty>
    {
        bool Action(CKrProperty *) override { return ++count > 0; }
        int count = 0;
    };
    CKrPropertySet set = MakeSet(CountOf(state));
    for (auto _ : state)
    {
        Counter counter;
        set.Visit(counter);
        benchmark::DoNotOptimize(counter.count);
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(Walk)->RangeMultiplier(10)->Range(100, 100000)->Complexity();

// Sets of a number of properties, edited as one; by name, or by position where the second argument is 1.
void EditAsOne(benchmark::State & state)
{
    constexpr unsigned int sets = 10;
    std::vector<CKrPropertySet> edited(sets, MakeSet(CountOf(state)));
    CKrPropMultiEditHelper helper;
    helper.SetCommonStruct(state.range(1) != 0);
    for (CKrPropertySet & set : edited)
        helper.AddPropertySet(&set);
    for (auto _ : state)
    {
        helper.PrepareEdit();
        helper.GetMainPropertySet().GetPropertyAt(0, OLESTR("category0"))->SetModified(true);
        helper.Update();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(EditAsOne)->ArgsProduct({{100, 1000, 10000}, {0, 1}});

} // namespace
