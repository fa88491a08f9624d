#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/integer_target.h>

namespace kr::detail
{

HRESULT ToUI2(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ToInteger(source, locale, result.uiVal);
}

} // namespace kr::detail
