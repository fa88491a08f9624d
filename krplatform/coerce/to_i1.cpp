#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/integer_target.h>

namespace kr::detail
{

HRESULT ToI1(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ToInteger(source, locale, result.cVal);
}

} // namespace kr::detail
