// The tables of code pages, each made when it is first asked for.
#pragma once

#include <krplatform/linux/codepage_table.h>

#include <array>
#include <atomic>

namespace kr::detail
{

/// The tables that were made.
extern std::array<std::atomic<CodePageTable const *>, 256> codePageSlots;

/// Where the table of a page has its place: no two pages share one.
constexpr std::size_t SlotOfCodePage(UINT codePage) { return (codePage + codePage / 8) % 256; }

/// Null where it is not made yet, and for an unknown page.
inline CodePageTable const * FindMadeCodePage(UINT codePage)
{
    CodePageTable const * const table = codePageSlots[SlotOfCodePage(codePage)].load(std::memory_order_acquire);
    return table && table->GetCodePage() == codePage ? table : nullptr;
}

/// Makes the table if no other thread has done so by now.
CodePageTable const * MakeCodePage(UINT codePage);

/// The table of a code page, which lives as long as the process. Null with the last error set: ERROR_INVALID_PARAMETER
/// for an unknown page, ERROR_NOT_ENOUGH_MEMORY. Any thread may call.
inline CodePageTable const * FindCodePage(UINT codePage)
{
    CodePageTable const * const table = FindMadeCodePage(codePage);
    return table ? table : MakeCodePage(codePage);
}

} // namespace kr::detail
