// The tables of code pages, each made when it is first asked for.
#pragma once

#include <krplatform/linux/codepage_table.h>

#include <array>
#include <atomic>

namespace kr::detail
{

/// The tables that were made: each in the first slot, from the one of its number's remainder on, that was free then.
/// More than twice as many slots as pages, so that a search ends soon. Slots are never emptied.
using CodePageSlots = std::array<std::atomic<CodePageTable const *>, 128>;
extern CodePageSlots codePageSlots;

/// The slot of a page's table, or the free one where it belongs.
inline std::atomic<CodePageTable const *> & SlotOfCodePage(UINT codePage)
{
    for (std::size_t index = codePage;; ++index)
    {
        std::atomic<CodePageTable const *> & slot = codePageSlots[index % codePageSlots.size()];
        CodePageTable const * const table = slot.load(std::memory_order_acquire);
        if (!table || table->GetCodePage() == codePage)
            return slot;
    }
}

/// Makes the table if no other thread has done so by now.
CodePageTable const * MakeCodePage(UINT codePage);

/// The table of a code page, which lives as long as the process. Null with the last error set: ERROR_INVALID_PARAMETER
/// for an unknown page, ERROR_NOT_ENOUGH_MEMORY. Any thread may call.
inline CodePageTable const * FindCodePage(UINT codePage)
{
    CodePageTable const * const table = SlotOfCodePage(codePage).load(std::memory_order_acquire);
    return table ? table : MakeCodePage(codePage);
}

} // namespace kr::detail
