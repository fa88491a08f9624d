// The string resources of the program that runs these tests.
#include <krplatform/system/resource.h>

extern "C" AfxStringEntry const AfxStringTable[] = {
    {100, OLESTR("%s has a name")},
    {101, OLESTR("a text of the module")},
    {0, nullptr},
};
