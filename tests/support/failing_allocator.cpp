#include "tests/support/failing_allocator.h"

#include <krplatform/automation/vartext.h>
#include <krplatform/codepage/codepage.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/textmemory.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<std::size_t> s_live{0};
std::atomic<std::size_t> s_all{0};
thread_local std::size_t s_failAt = 0;
thread_local bool s_failOn = false;
thread_local bool s_hasFailed = false;

// Each text is an allocation of its own in the programs that count.
[[maybe_unused]] bool const s_keepsNone = [] { return kr::detail::KeepTextMemory(false), true; }();

void * Allocate(std::size_t size) noexcept
{
    if (s_failAt != 0 && --s_failAt == 0)
    {
        s_hasFailed = true;
        s_failAt = s_failOn ? 1 : 0;
        return nullptr;
    }
    void * const memory = std::malloc(size ? size : 1);
    if (memory)
    {
        ++s_live;
        ++s_all;
    }
    return memory;
}

void * AllocateOrThrow(std::size_t size)
{
    void * const memory = Allocate(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void Free(void * memory) noexcept
{
    if (memory)
        --s_live;
    std::free(memory);
}

} // namespace

void * operator new(std::size_t size) { return AllocateOrThrow(size); }
void * operator new[](std::size_t size) { return AllocateOrThrow(size); }
void * operator new(std::size_t size, std::nothrow_t const &) noexcept { return Allocate(size); }
void * operator new[](std::size_t size, std::nothrow_t const &) noexcept { return Allocate(size); }
void operator delete(void * memory) noexcept { Free(memory); }
void operator delete[](void * memory) noexcept { Free(memory); }
void operator delete(void * memory, std::size_t) noexcept { Free(memory); }
void operator delete[](void * memory, std::size_t) noexcept { Free(memory); }
void operator delete(void * memory, std::nothrow_t const &) noexcept { Free(memory); }
void operator delete[](void * memory, std::nothrow_t const &) noexcept { Free(memory); }

namespace kr::test
{

std::size_t LiveAllocations() noexcept { return s_live; }
std::size_t AllAllocations() noexcept { return s_all; }

void BuildTablesOfFirstUse()
{
    constexpr LCID german = 1031;
    for (LCID const locale : {LOCALE_INVARIANT, LOCALE_USER_DEFAULT, german})
    {
        BSTR text = nullptr;
        VarBstrFromDate(44197.75, locale, 0, &text);
        SysFreeString(text);
        DATE date = 0.0;
        VarDateFromStr(OLESTR("1/2/2021"), locale, 0, &date);
    }
    WCHAR const unit = OLESTR('\u00E4');
    char bytes[4];
    int const count = WideCharToMultiByte(CP_ACP, 0, &unit, 1, bytes, 4, nullptr, nullptr);
    WCHAR units[4];
    MultiByteToWideChar(CP_ACP, 0, bytes, count, units, 4);
}

FailNthAllocation::FailNthAllocation(std::size_t n, bool andAllAfter) noexcept
{
    s_failAt = n;
    s_failOn = andAllAfter;
    s_hasFailed = false;
}

FailNthAllocation::~FailNthAllocation() { s_failAt = 0; }

bool FailNthAllocation::HasFailed() const noexcept { return s_hasFailed; }

} // namespace kr::test
