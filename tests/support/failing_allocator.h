// An allocator for tests: it counts what is allocated, and fails on demand.
#pragma once

#include <cstddef>

namespace kr::test
{

/// The number of allocations by `operator new`, in all its forms, that are alive in this process.
std::size_t LiveAllocations() noexcept;

/// The number of allocations made so far.
std::size_t AllAllocations() noexcept;

/// Builds what a process builds once, at its first use: the tables of its code page and the facts of the user's locale and of
/// German. For tests that count allocations, each of which may be the first of its process.
void BuildTablesOfFirstUse();

/// Makes the n-th allocation of this thread from now on fail, counted from 1, once, or with `andAllAfter` those that follow
/// too. The destructor ends that.
class FailNthAllocation
{
public:
    explicit FailNthAllocation(std::size_t n, bool andAllAfter = false) noexcept;
    ~FailNthAllocation();
    FailNthAllocation(FailNthAllocation const &) = delete;
    FailNthAllocation & operator=(FailNthAllocation const &) = delete;

    /// Whether the n-th allocation was reached.
    bool HasFailed() const noexcept;
};

/// Runs `operation` with the first, second, ... allocation failing until it passes without a failure. Each failing run
/// must end in `checkFailure`, which is called inside a catch block and looks at the exception, and must leave no
/// allocation behind. Returns the number of failing runs.
template <class Operation, class Check>
std::size_t FailEveryAllocation(Operation operation, Check checkFailure)
{
    for (std::size_t n = 1;; ++n)
    {
        std::size_t const before = LiveAllocations();
        bool failed = false;
        {
            FailNthAllocation const fail(n);
            try
            {
                operation();
            }
            catch (...)
            {
                checkFailure();
            }
            failed = fail.HasFailed();
        }
        if (!failed)
            return n - 1;
        if (LiveAllocations() != before)
            throw "an allocation was left behind";
    }
}

} // namespace kr::test
