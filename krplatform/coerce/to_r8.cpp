#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/real_target.h>

namespace kr::detail
{

HRESULT ToR8(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ReadSource(source, RealTarget{locale, result.dblVal});
}

} // namespace kr::detail
