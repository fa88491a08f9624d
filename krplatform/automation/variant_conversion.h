// Which classes derived from `VARIANT` convert themselves.
#pragma once

#include <krplatform/base/types.h>

#include <concepts>

namespace kr::detail
{

/// A class derived from `VARIANT` with a conversion to `Target` of its own, which is then used in every spelling: `Target t = v;` and
/// `Target(v)` mean the same.
template <class Variant, class Target>
concept ConvertsItself = std::derived_from<Variant, VARIANT> && requires(Variant const & variant)
{
    variant.operator Target();
};

/// Any other variant; the platform converts it.
template <class Variant, class Target>
concept PlainVariant = std::derived_from<Variant, VARIANT> && !ConvertsItself<Variant, Target>;

} // namespace kr::detail
