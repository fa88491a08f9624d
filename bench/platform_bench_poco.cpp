// One character to a code page by the encodings of POCO.
#include <Poco/UTF8Encoding.h>
#include <Poco/Windows1252Encoding.h>
#include <Poco/Windows932Encoding.h>

#include <benchmark/benchmark.h>

#include <memory>

namespace
{

std::unique_ptr<Poco::TextEncoding> EncodingOf(std::int64_t codePage)
{
    if (codePage == 932)
        return std::make_unique<Poco::Windows932Encoding>();
    if (codePage == 65001)
        return std::make_unique<Poco::UTF8Encoding>();
    return std::make_unique<Poco::Windows1252Encoding>();
}

void UnitToCodePage(benchmark::State & state)
{
    auto const encoding = EncodingOf(state.range(0));
    int const character = state.range(0) == 932 ? 0x8868 : 0xE4;
    for (auto _ : state)
    {
        unsigned char bytes[4];
        benchmark::DoNotOptimize(encoding->convert(character, bytes, 4));
        benchmark::DoNotOptimize(bytes);
    }
}
BENCHMARK(UnitToCodePage)->Name("UnitToCodePage/POCO")->Arg(1252)->Arg(932)->Arg(65001);

} // namespace
