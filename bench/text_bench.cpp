// Lists in texts, buffers, and the escapes of drawings.
#include <krcore/text/krbuffer.h>
#include <krcore/text/krcharformatter.h>
#include <krcore/text/krstringparser.h>

#include "bench/text_bench_input.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

using namespace kr::bench;

namespace
{

CString const separator(OLESTR(";"));

template <class Item>
void Split(benchmark::State & state, std::string const & joined)
{
    CString const text(joined.c_str());
    for (auto _ : state)
    {
        std::vector<Item> items;
        CKrStringParser::Split(text, separator, items);
        benchmark::DoNotOptimize(items.data());
    }
    state.SetComplexityN(state.range(0));
}

template <class Item, class Source>
void Join(benchmark::State & state, std::vector<Source> const & source)
{
    std::vector<Item> items;
    for (Source const & item : source)
    {
        if constexpr (std::is_same_v<Item, CString>)
            items.push_back(CString(item.c_str()));
        else
            items.push_back(item);
    }
    for (auto _ : state)
    {
        CString const joined = CKrStringParser::Join(separator, items);
        benchmark::DoNotOptimize(joined.GetString());
    }
    state.SetComplexityN(state.range(0));
}

void AppendBytes(benchmark::State & state)
{
    for (auto _ : state)
    {
        CKrCharBuffer buffer;
        for (std::int64_t index = 0; index < state.range(0); ++index)
            buffer.AddString('x');
        benchmark::DoNotOptimize(buffer.Get());
    }
    state.SetComplexityN(state.range(0));
}

void AppendBytesToStandard(benchmark::State & state)
{
    for (auto _ : state)
    {
        std::string buffer;
        for (std::int64_t index = 0; index < state.range(0); ++index)
            buffer += 'x';
        benchmark::DoNotOptimize(buffer.data());
    }
    state.SetComplexityN(state.range(0));
}

void AppendTexts(benchmark::State & state)
{
    std::vector<std::u16string> const texts = SomeWideTexts(4);
    for (auto _ : state)
    {
        CKrWcharBuffer buffer;
        for (std::size_t index = 0; index < static_cast<std::size_t>(state.range(0)); ++index)
        {
            std::u16string const & text = texts[index % 4];
            buffer.AddString(text.data(), static_cast<unsigned int>(text.size()));
        }
        benchmark::DoNotOptimize(buffer.Get());
    }
    state.SetComplexityN(state.range(0));
}

void AppendTextsToStandard(benchmark::State & state)
{
    std::vector<std::u16string> const texts = SomeWideTexts(4);
    for (auto _ : state)
    {
        std::u16string buffer;
        for (std::size_t index = 0; index < static_cast<std::size_t>(state.range(0)); ++index)
            buffer.append(texts[index % 4].data(), texts[index % 4].size());
        benchmark::DoNotOptimize(buffer.data());
    }
    state.SetComplexityN(state.range(0));
}

// The process code page is the one that the row is run for while it lives.
class ProcessOfRow
{
public:
    explicit ProcessOfRow(benchmark::State const & state)
    {
        setenv("LC_ALL", state.range(0) == 932 ? "ja_JP.SJIS" : "de_DE.ISO-8859-1", 1);
    }
    ~ProcessOfRow() { unsetenv("LC_ALL"); }
};

void EncodeCif(benchmark::State & state)
{
    ProcessOfRow const process(state);
    std::u16string const text = SomeDrawingText(static_cast<int>(state.range(0)));
    std::u16string encoded(8 * text.size(), u'\0');
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CKrCharFormatter::WcharNonNativeToCIF(text.c_str(), encoded.data(), static_cast<int>(encoded.size())));
}
BENCHMARK(EncodeCif)->Name("EncodeEscapes10KB/KrCore")->Arg(1252)->Arg(932);

void DecodeCif(benchmark::State & state)
{
    ProcessOfRow const process(state);
    std::u16string const text = SomeDrawingText(static_cast<int>(state.range(0)));
    std::u16string encoded(8 * text.size(), u'\0');
    CKrCharFormatter::WcharNonNativeToCIF(text.c_str(), encoded.data(), static_cast<int>(encoded.size()));
    std::u16string decoded(text.size() + 1, u'\0');
    for (auto _ : state)
        benchmark::DoNotOptimize(
            CKrCharFormatter::WcharFromCIFMIF(encoded.c_str(), decoded.data(), static_cast<int>(decoded.size())));
}
BENCHMARK(DecodeCif)->Name("DecodeEscapes10KB/KrCore")->Arg(1252)->Arg(932);

void EncodeRtf(benchmark::State & state)
{
    std::u16string const text = SomeDrawingText(static_cast<int>(state.range(0)));
    std::string encoded(8 * text.size(), '\0');
    for (auto _ : state)
    {
        int count = static_cast<int>(encoded.size());
        benchmark::DoNotOptimize(CKrCharFormatter::WcharNonNativeToRTF(static_cast<UINT>(state.range(0)), text.c_str(),
                                                                       -1, encoded.data(), &count));
    }
}
BENCHMARK(EncodeRtf)->Name("EncodeRtf10KB/KrCore")->Arg(1252)->Arg(932);

std::size_t CountOf(benchmark::State const & state) { return static_cast<std::size_t>(state.range(0)); }

void SplitTexts(benchmark::State & state) { Split<CString>(state, Joined(SomeTexts(CountOf(state)))); }
void SplitIntegers(benchmark::State & state) { Split<int>(state, JoinedIntegers(CountOf(state))); }
void SplitDoubles(benchmark::State & state) { Split<double>(state, JoinedDoubles(CountOf(state))); }
void JoinTexts(benchmark::State & state) { Join<CString>(state, SomeTexts(CountOf(state))); }
void JoinIntegers(benchmark::State & state) { Join<int>(state, SomeIntegers(CountOf(state))); }
void JoinDoubles(benchmark::State & state) { Join<double>(state, SomeDoubles(CountOf(state))); }

BENCHMARK(SplitTexts)->Name("SplitTexts/KrCore")->Apply(WithSizes);
BENCHMARK(SplitIntegers)->Name("SplitIntegers/KrCore")->Apply(WithSizes);
BENCHMARK(SplitDoubles)->Name("SplitDoubles/KrCore")->Apply(WithSizes);
BENCHMARK(JoinTexts)->Name("JoinTexts/KrCore")->Apply(WithSizes);
BENCHMARK(JoinIntegers)->Name("JoinIntegers/KrCore")->Apply(WithSizes);
BENCHMARK(JoinDoubles)->Name("JoinDoubles/KrCore")->Apply(WithSizes);
BENCHMARK(AppendBytes)->Name("AppendBytes/KrCore")->Apply(WithSizes);
BENCHMARK(AppendBytesToStandard)->Name("AppendBytes/std::string")->Apply(WithSizes);
BENCHMARK(AppendTexts)->Name("AppendTexts/KrCore")->Apply(WithSizes);
BENCHMARK(AppendTextsToStandard)->Name("AppendTexts/std::u16string")->Apply(WithSizes);

} // namespace
