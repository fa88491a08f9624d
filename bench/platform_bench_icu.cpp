// One unit to a code page by a converter of ICU that stands ready.
#include <benchmark/benchmark.h>

#include <unicode/ucnv.h>

#include <memory>

namespace
{

char const * NameOf(std::int64_t codePage)
{
    if (codePage == 932)
        return "windows-932";
    return codePage == 65001 ? "UTF-8" : "windows-1252";
}

void UnitToCodePage(benchmark::State & state)
{
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<UConverter, decltype(&ucnv_close)> const converter(ucnv_open(NameOf(state.range(0)), &error),
                                                                       &ucnv_close);
    UChar const unit = state.range(0) == 932 ? u'\u8868' : u'\u00E4';
    for (auto _ : state)
    {
        char bytes[4];
        benchmark::DoNotOptimize(ucnv_fromUChars(converter.get(), bytes, 4, &unit, 1, &error));
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(UnitToCodePage)->Name("UnitToCodePage/ICU")->Arg(1252)->Arg(932)->Arg(65001);

} // namespace
