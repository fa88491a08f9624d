#include <krplatform/system/resource.h>

#include <atomic>

namespace
{

std::atomic<HINSTANCE> s_current = nullptr; // null: the program

} // namespace

HINSTANCE AfxGetResourceHandle()
{
    HINSTANCE const current = s_current;
    return current ? current : GetModuleHandleW(nullptr);
}

void AfxSetResourceHandle(HINSTANCE module) { s_current = module; }
