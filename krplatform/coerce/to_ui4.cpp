#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/integer_target.h>

namespace kr::detail
{

HRESULT ToUI4(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ToInteger(source, locale, result.ulVal);
}

} // namespace kr::detail
