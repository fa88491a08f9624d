// Operations that run out of memory.
#pragma once

#include "tests/support/failing_allocator.h"

#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <new>

namespace kr::test
{

/// To be called in a catch block: want of memory is expected, anything else is thrown on.
inline void ExpectWantOfMemory()
{
    try
    {
        throw;
    }
    catch (std::bad_alloc const &)
    {
    }
    catch (CMemoryException * exception)
    {
        exception->Delete();
    }
}

/// Runs `operation` with its first, second, ... allocation failing until it passes; after each failure `checkUnchanged`
/// looks at what it works on, and no memory may be left behind. Returns the number of failures.
template <class Operation, class Check>
std::size_t FailUntilItPasses(Operation operation, Check checkUnchanged)
{
    for (std::size_t n = 1;; ++n)
    {
        bool failed = false;
        std::size_t const before = LiveAllocations();
        {
            FailNthAllocation const fail(n);
            try
            {
                operation();
            }
            catch (...)
            {
                ExpectWantOfMemory();
                failed = true;
            }
        }
        if (!failed)
            return n - 1;
        EXPECT_EQ(LiveAllocations(), before) << "allocation " << n;
        checkUnchanged();
    }
}

} // namespace kr::test
