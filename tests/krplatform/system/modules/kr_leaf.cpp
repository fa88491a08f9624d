// A library that needs none, with a string that is its own. It adds a letter to a variable of the environment whenever
// it is loaded.
#include <krplatform/system/resource.h>

#include <cstdlib>
#include <string>

extern "C" AfxStringEntry const AfxStringTable[] = {{700, OLESTR("leaf")}, {0, nullptr}};

extern "C" int KrTestLeaf() { return 1; }

namespace
{

struct Load
{
    Load()
    {
        char const * const before = std::getenv("KR_TEST_LEAF_LOADS");
        setenv("KR_TEST_LEAF_LOADS", (std::string(before ? before : "") + "x").c_str(), 1);
    }
};
Load const s_load;

} // namespace
