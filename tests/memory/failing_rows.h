// Tables of operations that run out of memory.
#pragma once

#include "tests/support/failing_allocator.h"

#include <krcore/diagnostics/krexception.h>
#include <krplatform/automation/com_error.h>
#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace kr::test
{

/// What an operation does when memory runs out in it. Where it depends on the place, the ways are added up.
enum Way : unsigned
{
    takesNone = 0,
    throwsMemory = 1,   ///< `CMemoryException *`
    throwsBadAlloc = 2, ///< `std::bad_alloc`
    throwsComError = 4, ///< `_com_error` of E_OUTOFMEMORY
    throwsGuarded = 8,  ///< `CKrException`, of a guard that turned the failure into one
    tellsIt = 16,       ///< its answer says so
    goesOn = 32,        ///< its work is done all the same
    throwsOther = 64,   ///< never expected
};

/// What is left of the object then.
enum Left
{
    kept,   ///< it is as it was
    partly, ///< what was done by then stays
};

/// Anything that is called with the subject; where it answers, false says that it failed.
template <class Subject>
class Operation
{
public:
    template <class Callable>
    Operation(Callable callable)
        : m_run(
              [callable](Subject & subject)
              {
                  if constexpr (std::is_void_v<std::invoke_result_t<Callable, Subject &>>)
                      return callable(subject), true;
                  else
                      return static_cast<bool>(callable(subject));
              })
    {
    }
    bool operator()(Subject & subject) const { return m_run(subject); }

private:
    std::function<bool(Subject &)> m_run;
};

template <class Subject>
struct Row
{
    char const * name;
    unsigned ways;
    Left left;
    Operation<Subject> operation;
};

/// The values as one text.
template <class... Values>
std::string Described(Values const &... values)
{
    std::ostringstream text;
    (..., (text << values << '|'));
    return text.str();
}

/// Runs the operation and says in which way it ended.
template <class Subject>
unsigned WayOf(Operation<Subject> const & operation, Subject & subject)
{
    try
    {
        return operation(subject) ? goesOn : tellsIt;
    }
    catch (CMemoryException * exception)
    {
        exception->Delete();
        return throwsMemory;
    }
    catch (CException * exception)
    {
        exception->Delete();
        return throwsOther;
    }
    catch (std::bad_alloc const &)
    {
        return throwsBadAlloc;
    }
    catch (_com_error const & error)
    {
        return error.Error() == E_OUTOFMEMORY ? throwsComError : throwsOther;
    }
    catch (CKrException const &)
    {
        return throwsGuarded;
    }
    catch (...)
    {
        return throwsOther;
    }
}

/// Fails each allocation of each row in turn, once alone and once with all that follow. `make` gives a new subject, and
/// `stateOf` all that can be seen of it, as a text. The failure leaves in the ways of the row, all of which are met; it leaves
/// no memory behind; the subject is as the row says, and good for the same operation once more.
///
/// Each row runs undisturbed first, so that what a process builds once is there. Where all allocations fail the guard has no memory for
/// its exception, and `CMemoryException *` takes its place.
template <class Make, class StateOf, class Subject>
void ExpectRows(Make make, StateOf stateOf, std::vector<Row<Subject>> const & rows)
{
    for (Row<Subject> const & row : rows)
    {
        SCOPED_TRACE(row.name);
        std::string done;
        {
            Subject subject = make();
            ASSERT_EQ(WayOf(row.operation, subject), goesOn) << "undisturbed";
            done = stateOf(subject);
        }
        unsigned met = 0;
        bool reached = true;
        for (std::size_t n = 1; reached; ++n)
        {
            for (bool const andAllAfter : {false, true})
            {
                SCOPED_TRACE(testing::Message() << "allocation " << n << (andAllAfter ? " and all after" : " alone"));
                std::size_t const before = LiveAllocations();
                {
                    Subject subject = make();
                    std::string const start = stateOf(subject);
                    unsigned way = 0;
                    {
                        FailNthAllocation const fail(n, andAllAfter);
                        way = WayOf(row.operation, subject);
                        reached = fail.HasFailed();
                    }
                    if (!reached)
                    {
                        EXPECT_EQ(way, goesOn);
                        break;
                    }
                    bool const isBeyondGuard = andAllAfter && way == throwsMemory && (row.ways & throwsGuarded);
                    met |= isBeyondGuard ? 0 : way;
                    if (way == goesOn)
                    {
                        EXPECT_EQ(stateOf(subject), done);
                    }
                    else
                    {
                        if (row.left == kept)
                        {
                            EXPECT_EQ(stateOf(subject), start);
                        }
                        EXPECT_EQ(WayOf(row.operation, subject), goesOn) << "once more";
                        EXPECT_EQ(stateOf(subject), done) << "once more";
                    }
                }
                ASSERT_EQ(LiveAllocations(), before) << "memory was left behind";
            }
        }
        EXPECT_EQ(met, row.ways) << "the ways in which it failed";
    }
}

/// For what has no object that changes: functions, and objects that are made.
struct Nothing
{
};
inline void ExpectRows(std::vector<Row<Nothing>> const & rows)
{
    ExpectRows([] { return Nothing(); }, [](Nothing const &) { return std::string(); }, rows);
}

} // namespace kr::test
