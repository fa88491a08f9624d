// The string resources of the program that runs these tests.
#include <krplatform/system/resource.h>

extern "C" AfxStringEntry const AfxStringTable[] = {
    {100, OLESTR("%s has %d layers, %.2f m")},
    {101, OLESTR("plain")},
    {0, nullptr},
};
