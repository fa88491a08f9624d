// What an operation of the platform throws, as a number.
#pragma once

#include <krplatform/automation/com_error.h>
#include <krplatform/base/cexception.h>

namespace kr::test
{

/// The result that `operation` throws: that of a `COleException *`, E_OUTOFMEMORY for a `CMemoryException *`; S_OK if
/// it throws nothing.
template <class Operation>
HRESULT ThrownResult(Operation operation)
{
    try
    {
        operation();
    }
    catch (COleException * exception)
    {
        HRESULT const result = exception->m_sc;
        exception->Delete();
        return result;
    }
    catch (CMemoryException * exception)
    {
        exception->Delete();
        return E_OUTOFMEMORY;
    }
    return S_OK;
}

/// The result of the `_com_error` that `operation` throws, or S_OK.
template <class Operation>
HRESULT ThrownComError(Operation operation)
{
    try
    {
        operation();
    }
    catch (_com_error const & error)
    {
        return error.Error();
    }
    return S_OK;
}

} // namespace kr::test
