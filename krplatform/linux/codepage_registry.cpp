#include <krplatform/base/lasterror.h>
#include <krplatform/linux/codepage_pages.h>
#include <krplatform/linux/codepage_registry.h>

#include <algorithm>
#include <mutex>

namespace kr::detail
{

constinit CodePageSlots codePageSlots;

namespace
{

constinit std::mutex s_making;

} // namespace

CodePageTable const * MakeCodePage(UINT codePage)
{
    auto const page = std::find_if(codePages.begin(), codePages.end(),
                                   [codePage](CodePage const & candidate) { return candidate.number == codePage; });
    if (page == codePages.end())
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    std::lock_guard const lock(s_making);
    std::atomic<CodePageTable const *> & slot = SlotOfCodePage(codePage);
    if (!slot.load())
        slot = BuildCodePage(*page).release();
    return slot;
}

} // namespace kr::detail
