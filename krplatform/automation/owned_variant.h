// What the variant classes with ownership share.
#pragma once

#include <krplatform/automation/variant.h>
#include <krplatform/base/cexception.h>

namespace kr::detail
{

inline void Check(HRESULT result)
{
    if (FAILED(result))
        AtlThrow(result);
}

/// Clears `target`, which raises the platform's failure and changes nothing for a locked array, and moves `source`
/// there.
inline void MoveVariant(VARIANT & target, VARIANT & source)
{
    if (&target == &source)
        return;
    // The source may be an element of an array in the target, so it is emptied before that array goes.
    VARIANT const moved = source;
    source = VARIANT{};
    HRESULT const result = VariantClear(&target);
    if (FAILED(result))
    {
        source = moved;
        AtlThrow(result);
    }
    target = moved;
}

/// Hands out the value and leaves VT_EMPTY.
inline VARIANT DetachVariant(VARIANT & variant) noexcept
{
    VARIANT const value = variant;
    variant = VARIANT{};
    return value;
}

/// The same as `MoveVariant` without a failure: a locked array of `target` is left to whoever locked it.
inline void ForceVariant(VARIANT & target, VARIANT & source) noexcept
{
    if (&target == &source)
        return;
    VARIANT old = target;
    target = DetachVariant(source);
    VariantClear(&old);
}

} // namespace kr::detail
