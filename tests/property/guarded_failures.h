// Guarded operations that run out of memory.
#pragma once

#include "tests/support/memory_failure.h"

#include <krcore/diagnostics/krexception.h>

#include <gtest/gtest.h>

namespace kr::test
{

/// Runs `work` on a new subject, as `make` gives it, with its first, second, ... allocation failing until it passes. Each failure must leave as
/// a `CKrException` with `location` alone, and no memory behind; `check` then looks at the subject. Returns the number of failures.
template <class Make, class Work, class Check>
std::size_t FailEachAllocation(CString const & location, Make make, Work work, Check check)
{
    for (std::size_t n = 1;; ++n)
    {
        SCOPED_TRACE(n);
        std::size_t const before = LiveAllocations();
        bool failed = false;
        {
            auto subject = make();
            try
            {
                FailNthAllocation const fail(n);
                work(subject);
                EXPECT_FALSE(fail.HasFailed()) << "the failure was swallowed";
            }
            catch (CKrException const & exception)
            {
                failed = true;
                EXPECT_EQ(exception.GetErrorMessage(true), exception.GetErrorMessage(false) + OLESTR("\n") + location);
            }
            if (failed)
                check(subject);
        }
        EXPECT_EQ(LiveAllocations(), before);
        if (!failed)
            return n - 1;
    }
}

template <class Make, class Work>
std::size_t FailEachAllocation(CString const & location, Make make, Work work)
{
    return FailEachAllocation(location, make, work, [](auto const &) {});
}

} // namespace kr::test
