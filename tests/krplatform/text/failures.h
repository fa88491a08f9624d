// What the platform throws, caught and told as a value.
#pragma once

#include <krplatform/base/cexception.h>

/// The result that `call` throws as `COleException *`; S_OK where it throws nothing.
template <class Call>
HRESULT ThrownResult(Call call)
{
    try
    {
        call();
    }
    catch (COleException * exception)
    {
        HRESULT const result = exception->m_sc;
        exception->Delete();
        return result;
    }
    return S_OK;
}
