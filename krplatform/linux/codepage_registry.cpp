#include <krplatform/base/lasterror.h>
#include <krplatform/linux/codepage_pages.h>
#include <krplatform/linux/codepage_registry.h>

#include <algorithm>
#include <mutex>

namespace kr::detail
{

constinit std::array<std::atomic<CodePageTable const *>, 256> codePageSlots;

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
    if (CodePageTable const * const made = FindMadeCodePage(codePage))
        return made;
    CodePageTable const * const table = BuildCodePage(*page).release();
    codePageSlots[SlotOfCodePage(codePage)].store(table, std::memory_order_release);
    return table;
}

} // namespace kr::detail
