// The string resources of the program that runs these tests.
#include <krplatform/system/resource.h>

#include <array>

namespace
{

// More than a buffer of 1,024 units holds.
constexpr auto longText = []
{
    std::array<WCHAR, 1501> text{};
    for (std::size_t index = 0; index < 1500; ++index)
        text[index] = OLESTR('x');
    return text;
}();

} // namespace

extern "C" AfxStringEntry const AfxStringTable[] = {
    {100, OLESTR("%s has %d layers, %.2f m")},
    {101, OLESTR("plain")},
    {102, longText.data()},
    {0, nullptr},
};
