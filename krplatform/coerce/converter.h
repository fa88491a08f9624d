// The conversions, one for each target.
#pragma once

#include <krplatform/automation/variant.h>
#include <krplatform/coerce/locale_facts.h>

namespace kr::detail
{

/// Writes the value of `source`, in the target's type, into the value field of `result`; the tag is the caller's. After
/// a failure nothing is owned by `result`. `locale` may be null where `ReadsLocale` is false.
using Converter = HRESULT (*)(VARIANT const & source, LocaleFacts const * locale, VARIANT & result);

// clang-format off
HRESULT ToNothing (VARIANT const & source, LocaleFacts const * locale, VARIANT & result); ///< VT_EMPTY, VT_NULL
HRESULT ToI1      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToUI1     (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToI2      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToUI2     (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToI4      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result); ///< VT_INT as well
HRESULT ToUI4     (VARIANT const & source, LocaleFacts const * locale, VARIANT & result); ///< VT_UINT as well
HRESULT ToI8      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToUI8     (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToR4      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToR8      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToCy      (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToDate    (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToBool    (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToBstr    (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToUnknown (VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToDispatch(VARIANT const & source, LocaleFacts const * locale, VARIANT & result);
HRESULT ToBytes   (VARIANT const & source, LocaleFacts const * locale, VARIANT & result); ///< an array of VT_UI1
// clang-format on

} // namespace kr::detail
