// The answer of a platform function when memory runs out in it.
#pragma once

#include <krplatform/base/cexception.h>
#include <krplatform/base/lasterror.h>

#include <new>

namespace kr::detail
{

/// Gives the result of `operation`. Where memory runs out in it, sets the last error and gives `failure`.
template <class Result, class Operation>
Result UnlessMemoryRunsOut(Result failure, Operation operation)
{
    try
    {
        return operation();
    }
    catch (std::bad_alloc const &)
    {
    }
    catch (CMemoryException * exception)
    {
        exception->Delete();
    }
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    return failure;
}

} // namespace kr::detail
