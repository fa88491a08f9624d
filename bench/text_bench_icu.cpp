// Escapes by ICU: a converter that writes what the code page lacks as \uXXXX, and the reader of such escapes.
#include "bench/text_bench_input.h"

#include <benchmark/benchmark.h>

#include <unicode/ucnv.h>
#include <unicode/ucnv_err.h>
#include <unicode/ustring.h>

#include <memory>
#include <stdexcept>

using namespace kr::bench;

namespace
{

using Converter = std::unique_ptr<UConverter, decltype(&ucnv_close)>;

Converter EscapingConverter(std::int64_t codePage)
{
    UErrorCode error = U_ZERO_ERROR;
    Converter converter(ucnv_open(codePage == 932 ? "windows-932" : "windows-1252", &error), &ucnv_close);
    ucnv_setFromUCallBack(converter.get(), UCNV_FROM_U_CALLBACK_ESCAPE, UCNV_ESCAPE_C, nullptr, nullptr, &error);
    if (U_FAILURE(error))
        throw std::runtime_error(u_errorName(error));
    return converter;
}

int Encode(UConverter * converter, std::u16string const & text, std::string & room)
{
    UErrorCode error = U_ZERO_ERROR;
    return ucnv_fromUChars(converter, room.data(), static_cast<int>(room.size()), text.data(),
                           static_cast<int>(text.size()), &error);
}

void EncodeEscapes(benchmark::State & state)
{
    Converter const converter = EscapingConverter(state.range(0));
    std::u16string const text = SomeDrawingText(static_cast<int>(state.range(0)));
    std::string encoded(8 * text.size(), '\0');
    for (auto _ : state)
        benchmark::DoNotOptimize(Encode(converter.get(), text, encoded));
}
BENCHMARK(EncodeEscapes)->Name("EncodeEscapes10KB/ICU")->Arg(1252)->Arg(932);
BENCHMARK(EncodeEscapes)->Name("EncodeRtf10KB/ICU")->Arg(1252)->Arg(932);

void DecodeEscapes(benchmark::State & state)
{
    std::u16string const text = SomeDrawingText(static_cast<int>(state.range(0)));
    std::string encoded(8 * text.size(), '\0');
    Encode(EscapingConverter(state.range(0)).get(), text, encoded);
    for (char & unit : encoded)
        unit = static_cast<unsigned char>(unit) < 128 ? unit : 'u'; // it reads no others
    std::u16string decoded(text.size() + 1, u'\0');
    for (auto _ : state)
        benchmark::DoNotOptimize(u_unescape(encoded.c_str(), decoded.data(), static_cast<int>(decoded.size())));
}
BENCHMARK(DecodeEscapes)->Name("DecodeEscapes10KB/ICU")->Arg(1252)->Arg(932);

} // namespace
