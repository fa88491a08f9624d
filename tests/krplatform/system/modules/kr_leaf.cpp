// A library that needs none, with a string that is its own.
#include <krplatform/system/resource.h>

extern "C" AfxStringEntry const AfxStringTable[] = {{700, OLESTR("leaf")}, {0, nullptr}};

extern "C" int KrTestLeaf() { return 1; }
