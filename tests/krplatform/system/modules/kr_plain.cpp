// A module that needs none, with a function, a number and strings.
#include <krplatform/system/resource.h>

extern "C" AfxStringEntry const AfxStringTable[] = {
    {500, OLESTR("wall")},
    {501, OLESTR("")},
    {502, OLESTR("first")},
    {502, OLESTR("second")},
    {0xFFFFFFFF, OLESTR("\u00E4 and \U0001F600")},
    {0, OLESTR("zero")},
    {503, nullptr},
    {504, OLESTR("behind the end")},
};

extern "C" int KrTestAnswer() { return 42; }

extern "C" int KrTestNumber;
int KrTestNumber = 7;
