// String resources in German.
#include <krplatform/system/resource.h>

extern "C" AfxStringEntry const AfxStringTable[] = {
    {100, OLESTR("Wand")},
    {101, OLESTR("T\u00FCr")},
    {0, nullptr},
};
