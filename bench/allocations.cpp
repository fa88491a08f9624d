#include "bench/allocations.h"

#include <cstdlib>
#include <new>

namespace
{

std::size_t s_count = 0;

} // namespace

std::size_t kr::bench::CountAllocations() noexcept { return s_count; }

void * operator new(std::size_t size)
{
    ++s_count;
    if (void * const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
void operator delete(void * memory) noexcept { std::free(memory); }
void operator delete(void * memory, std::size_t) noexcept { std::free(memory); }
