// The typed value: construct, copy, read, convert; the rows of our own value and of the standard's.
#include "bench/allocations.h"
#include "bench/values_rows.h"

#include <krcore/values/krvariant.h>

#include <string>
#include <variant>

namespace
{

using namespace kr::bench;

struct KrCore
{
    static constexpr char const * label = "KrCore";
    using Value = CKrVariant;
    using Text = CString;

    static Text MakeText(char const * text) { return CString(text); }
    static int ReadInt(Value const & value) { return value; }
    static double ReadDouble(Value const & value) { return value; }
    static Text ReadText(Value const & value) { return value; }
    static Value DoubleToText(Value const & value) { return value.GetAsString(); }
    static Value BoolToText(Value const & value) { return value.GetAsString(); }
    static Value TextToDouble(Value const & value) { return double(value); }
    static Value IntToDouble(Value const & value) { return double(value); }
};

struct Standard
{
    static constexpr char const * label = "std::variant";
    using Value = std::variant<std::monostate, int, double, bool, std::u16string>;
    using Text = std::u16string;

    static Text MakeText(char const * text) { return Text(text, text + std::char_traits<char>::length(text)); }
    static int ReadInt(Value const & value) { return std::get<int>(value); }
    static double ReadDouble(Value const & value) { return std::get<double>(value); }
    static Text ReadText(Value const & value) { return std::get<std::u16string>(value); }
};

/// A conversion in place to another type, with the allocations that it makes: none between scalars, that of the text to a text.
template <class From>
void ConvertInPlace(benchmark::State & state, From from, CKrVariant::EType target)
{
    CKrVariant const source(from);
    std::size_t allocations = 0;
    for (auto _ : state)
    {
        CKrVariant value(source);
        std::size_t const before = CountAllocations();
        value.ConvertType(target);
        allocations += CountAllocations() - before;
        benchmark::DoNotOptimize(value);
    }
    state.counters["allocations"] =
        benchmark::Counter(static_cast<double>(allocations), benchmark::Counter::kAvgIterations);
}

bool RegisterRows()
{
    RegisterBasicRows<KrCore>();
    RegisterConversionRows<KrCore>();
    RegisterBasicRows<Standard>();
    benchmark::RegisterBenchmark("ConvertIntToDouble/KrCore", ConvertInPlace<int>, 17, CKrVariant::eDouble);
    benchmark::RegisterBenchmark("ConvertDoubleToInt/KrCore", ConvertInPlace<double>, 17.0, CKrVariant::eLong);
    benchmark::RegisterBenchmark("ConvertBoolToDouble/KrCore", ConvertInPlace<bool>, true, CKrVariant::eDouble);
    benchmark::RegisterBenchmark("ConvertDoubleToText/KrCore", ConvertInPlace<double>, 12345.678, CKrVariant::eString);
    benchmark::RegisterBenchmark("ConvertTextToDouble/KrCore", ConvertInPlace<WCHAR const *>, OLESTR("12345.678"),
                                 CKrVariant::eDouble);
    return true;
}

[[maybe_unused]] bool const s_registered = RegisterRows();

} // namespace
