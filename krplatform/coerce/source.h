// What a variant holds, handed to a target as the type that carries it.
#pragma once

#include <krplatform/automation/variant.h>

namespace kr::detail
{

// Values that are stored as plain numbers, but are more than that.

/// VT_EMPTY.
struct Nothing
{
};

/// VT_BOOL, which keeps whatever number it holds.
struct Truth
{
    VARIANT_BOOL number;
};

/// VT_CY.
struct Amount
{
    LONGLONG tenThousandths;
};

/// VT_DATE.
struct Moment
{
    DATE days;
};

/// Calls `target` with the value of a scalar or text: an integer, `float`, `double`, one of the types above, or a
/// `TextView`. Text ends at its first zero, as for all functions of the platform that read one. No text, and what is no
/// scalar, is a type mismatch.
template <class Target>
HRESULT ReadSource(VARIANT const & source, Target const & target)
{
    switch (source.vt)
    {
    // clang-format off
    case VT_EMPTY: return target(Nothing{});
    case VT_I1:    return target(source.cVal);
    case VT_UI1:   return target(source.bVal);
    case VT_I2:    return target(source.iVal);
    case VT_UI2:   return target(source.uiVal);
    case VT_I4:    return target(source.lVal);
    case VT_UI4:   return target(source.ulVal);
    case VT_I8:    return target(source.llVal);
    case VT_UI8:   return target(source.ullVal);
    case VT_INT:   return target(source.intVal);
    case VT_UINT:  return target(source.uintVal);
    case VT_R4:    return target(source.fltVal);
    case VT_R8:    return target(source.dblVal);
    case VT_CY:    return target(Amount{source.cyVal.int64});
    case VT_DATE:  return target(Moment{source.date});
    case VT_BOOL:  return target(Truth{source.boolVal});
    case VT_BSTR:  return source.bstrVal ? target(TextView(source.bstrVal)) : DISP_E_TYPEMISMATCH;
    default:       return DISP_E_TYPEMISMATCH;
        // clang-format on
    }
}

} // namespace kr::detail
