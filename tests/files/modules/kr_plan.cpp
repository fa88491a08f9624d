// A module with functions and a string, which needs a library beside it.
#include <krplatform/system/resource.h>

extern "C" int KrTestPartCount();

extern "C" AfxStringEntry const AfxStringTable[] = {{1, OLESTR("plan")}, {0, nullptr}};

extern "C" int KrTestPlanCount() { return 2; }

extern "C" int CountPlans() { return 2; }

extern "C" int KrTestPlan(int number) { return number + KrTestPartCount(); }

/// Its name as the linker sees it has two letters beyond ASCII, in UTF-8.
int Size() __asm__("KrTestGr\xC3\xB6\xC3\x9F"
                   "e");
int Size() { return 7; }
