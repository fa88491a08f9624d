// A module whose string table words what COleDateTime shows for invalid dates.
#include <krplatform/system/resource.h>

extern "C" AfxStringEntry const AfxStringTable[] = {
    {55296, OLESTR("Kein Datum")},
    {0, nullptr},
};
