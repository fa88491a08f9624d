// String resources in English.
#include <krplatform/system/resource.h>

#include <array>

namespace
{

// More than a buffer of 1,024 units holds.
constexpr auto longText = []
{
    std::array<WCHAR, 1501> text{};
    for (std::size_t index = 0; index < 1500; ++index)
        text[index] = index == 1022 ? OLESTR('!') : OLESTR('x');
    return text;
}();

} // namespace

extern "C" AfxStringEntry const AfxStringTable[] = {
    {100, OLESTR("wall")}, {101, OLESTR("door")}, {102, longText.data()}, {103, OLESTR("")}, {0, nullptr},
};
