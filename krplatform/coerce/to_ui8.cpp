#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/integer_target.h>

namespace kr::detail
{

HRESULT ToUI8(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ToInteger(source, locale, result.ullVal);
}

} // namespace kr::detail
