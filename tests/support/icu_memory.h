// ICU takes its memory from malloc, which the failing allocator does not reach.
#pragma once

#include <unicode/uclean.h>

#include <cstdlib>

namespace kr::test
{

/// Gives ICU its memory while it lives, or none. To be made before ICU is used for the first time, so in a child process.
class IcuMemory
{
public:
    IcuMemory()
    {
        UErrorCode status = U_ZERO_ERROR;
        u_setMemoryFunctions(nullptr, Allocate, Reallocate, Free, &status);
        m_isMade = U_SUCCESS(status);
    }

    bool IsMade() const { return m_isMade; }
    void RunOut() { s_isLeft = false; }
    void ComeBack() { s_isLeft = true; }

private:
    static void * Allocate(void const *, std::size_t size) { return s_isLeft ? std::malloc(size) : nullptr; }
    static void * Reallocate(void const *, void * memory, std::size_t size)
    {
        return s_isLeft ? std::realloc(memory, size) : nullptr;
    }
    static void Free(void const *, void * memory) { std::free(memory); }

    static constinit inline bool s_isLeft = true;
    bool m_isMade;
};

} // namespace kr::test
