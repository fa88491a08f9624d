#include <krplatform/automation/safearray.h>
#include <krplatform/coerce/converter.h>
#include <krplatform/text/bstr.h>

#include <cstring>

namespace kr::detail
{

HRESULT ToBytes(VARIANT const & source, LocaleFacts const *, VARIANT & result)
{
    UINT const count = SysStringByteLen(source.bstrVal);
    SAFEARRAY * const array = SafeArrayCreateVector(VT_UI1, 0, count);
    if (!array)
        return E_OUTOFMEMORY;
    if (count > 0)
        std::memcpy(array->pvData, source.bstrVal, count);
    result.parray = array;
    return S_OK;
}

} // namespace kr::detail
