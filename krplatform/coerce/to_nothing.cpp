#include <krplatform/coerce/converter.h>

namespace kr::detail
{

// The tag alone says all.
HRESULT ToNothing(VARIANT const &, LocaleFacts const *, VARIANT &) { return S_OK; }

} // namespace kr::detail
