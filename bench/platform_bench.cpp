// The platform's types: text, numbers as text, coercion, code pages.
#include "bench/string_rows.h"

#include <krplatform/krplatform.h>

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <string>

namespace
{

struct KrCore
{
    static constexpr char const * label = "KrCore";
    using Text = CString;
    static constexpr WCHAR unit = OLESTR('x');

    static Text MakeText(char const * text) { return CString(text); }
    static Text Format(Text const & name, int index, int count, double width)
    {
        CString text;
        text.Format(OLESTR("%s: %d of %d (%5.2f)"), name, index, count, width);
        return text;
    }
};

/// The standard has no formatting of such texts; the row of the runtime stands beside ours.
struct Standard
{
    static constexpr char const * label = "std::u16string";
    using Text = std::u16string;
    static constexpr char16_t unit = u'x';

    static Text MakeText(char const * text) { return Text(text, text + std::char_traits<char>::length(text)); }
    static std::string Format(Text const &, int index, int count, double width)
    {
        char text[64];
        std::snprintf(text, sizeof text, "%s: %d of %d (%5.2f)", "wall", index, count, width);
        return text;
    }
};

[[maybe_unused]] bool const s_registered =
    (kr::bench::RegisterStringRows<KrCore>(), kr::bench::RegisterStringRows<Standard>(), true);

constexpr double numbers[] = {0.1, 2.5, 1.0 / 3, 12345.678, 1e20, 3.0e-7, 44197.75, 1e15};

void NumberToText_KrCore(benchmark::State & state)
{
    for (auto _ : state)
    {
        for (double const number : numbers)
        {
            BSTR text = nullptr;
            VarBstrFromR8(number, LOCALE_INVARIANT, 0, &text);
            benchmark::DoNotOptimize(text);
            SysFreeString(text);
        }
    }
}
BENCHMARK(NumberToText_KrCore)->Name("NumberToText/KrCore");

void NumberToText_Standard(benchmark::State & state)
{
    for (auto _ : state)
    {
        for (double const number : numbers)
        {
            char text[32];
            benchmark::DoNotOptimize(std::to_chars(text, text + sizeof text, number, std::chars_format::general, 15));
        }
    }
}
BENCHMARK(NumberToText_Standard)->Name("NumberToText/std::to_chars");

void TextToNumber_KrCore(benchmark::State & state)
{
    for (auto _ : state)
    {
        double number = 0;
        benchmark::DoNotOptimize(VarR8FromStr(OLESTR("12345.678"), LOCALE_INVARIANT, 0, &number));
        benchmark::DoNotOptimize(number);
    }
}
BENCHMARK(TextToNumber_KrCore)->Name("TextToNumber/KrCore");

void TextToNumber_Runtime(benchmark::State & state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(wcstod(OLESTR("12345.678"), nullptr));
}
BENCHMARK(TextToNumber_Runtime)->Name("TextToNumber/KrCore wcstod");

void TextToNumber_Standard(benchmark::State & state)
{
    std::string const text = "12345.678";
    for (auto _ : state)
    {
        double number = 0;
        benchmark::DoNotOptimize(std::from_chars(text.data(), text.data() + text.size(), number));
        benchmark::DoNotOptimize(number);
    }
}
BENCHMARK(TextToNumber_Standard)->Name("TextToNumber/std::from_chars");

void CoerceScalar(benchmark::State & state)
{
    VARIANT source = {};
    source.vt = VT_I4;
    source.lVal = 17;
    for (auto _ : state)
    {
        VARIANT target = {};
        benchmark::DoNotOptimize(VariantChangeTypeEx(&target, &source, LOCALE_INVARIANT, 0, VT_R8));
        benchmark::DoNotOptimize(target);
    }
}
BENCHMARK(CoerceScalar)->Name("CoerceLongToDouble/KrCore");

void UnitToCodePage(benchmark::State & state)
{
    UINT const codePage = static_cast<UINT>(state.range(0));
    WCHAR const unit = codePage == 932 ? OLESTR('\u8868') : OLESTR('\u00E4');
    for (auto _ : state)
    {
        char bytes[4];
        BOOL usedDefault = FALSE;
        benchmark::DoNotOptimize(WideCharToMultiByte(codePage, codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS, &unit, 1,
                                                     bytes, 4, nullptr, &usedDefault));
    }
}
BENCHMARK(UnitToCodePage)->Name("UnitToCodePage/KrCore")->Arg(CP_ACP)->Arg(1252)->Arg(932)->Arg(CP_UTF8);

} // namespace
