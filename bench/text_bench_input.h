// What the benchmarks of texts work on, the same for the library and for its peers.
#pragma once

#include <string>
#include <vector>

namespace kr::bench
{

/// Names of layers, of 12 to 20 characters.
inline std::vector<std::string> SomeTexts(std::size_t count)
{
    constexpr char const * kinds[] = {"WALL", "WINDOW", "FURNITURE", "DOOR"};
    std::vector<std::string> texts;
    for (std::size_t index = 0; index < count; ++index)
        texts.push_back("A-" + std::string(kinds[index % 4]) + "-" + std::to_string(100000 + index));
    return texts;
}

inline std::vector<std::u16string> SomeWideTexts(std::size_t count)
{
    std::vector<std::u16string> texts;
    for (std::string const & text : SomeTexts(count))
        texts.emplace_back(text.begin(), text.end());
    return texts;
}

inline std::vector<int> SomeIntegers(std::size_t count)
{
    std::vector<int> integers;
    for (std::size_t index = 0; index < count; ++index)
        integers.push_back(static_cast<int>(index * 7919 % 2000003) - 1000001);
    return integers;
}

inline std::vector<double> SomeDoubles(std::size_t count)
{
    std::vector<double> doubles;
    for (int const integer : SomeIntegers(count))
        doubles.push_back(integer / 1000.0);
    return doubles;
}

/// The items of a list in one text.
inline std::string Joined(std::vector<std::string> const & texts)
{
    std::string joined;
    for (std::string const & text : texts)
        joined += (joined.empty() ? "" : ";") + text;
    return joined;
}

inline std::string JoinedIntegers(std::size_t count)
{
    std::vector<std::string> texts;
    for (int const integer : SomeIntegers(count))
        texts.push_back(std::to_string(integer));
    return Joined(texts);
}

/// Three places behind the point, as coordinates have.
inline std::string JoinedDoubles(std::size_t count)
{
    std::vector<std::string> texts;
    for (double const number : SomeDoubles(count))
    {
        texts.push_back(std::to_string(number));
        texts.back().resize(texts.back().size() - 3);
    }
    return Joined(texts);
}

/// 5,120 units: ASCII, letters of the code page (1252 or 932) and, one in 16, units that it lacks.
inline std::u16string SomeDrawingText(int codePage)
{
    std::u16string text;
    while (text.size() < 5120)
        text += codePage == 932 ? u"\u58C1 24 cm, \u7DD1\u8272\u3067\u3059\u0141" : u"Wand 24 cm, gr\u00FCn\u0141";
    text.resize(5120);
    return text;
}

/// From 10 to 1,000,000 items, with the growth fitted.
template <class Row>
void WithSizes(Row * row)
{
    row->RangeMultiplier(10)->Range(10, 1000000)->Complexity();
}

} // namespace kr::bench
