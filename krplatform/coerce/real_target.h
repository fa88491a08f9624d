// How any source becomes a double: for itself, and on the way to what is made from doubles.
#pragma once

#include <krplatform/coerce/number_parse.h>
#include <krplatform/coerce/source.h>

#include <concepts>

namespace kr::detail
{

struct RealTarget
{
    LocaleFacts const * locale;
    double & real;

    HRESULT operator()(Nothing) const { return Store(0); }
    HRESULT operator()(Truth source) const { return Store(source.number); }
    HRESULT operator()(std::integral auto source) const { return Store(static_cast<double>(source)); }
    HRESULT operator()(float source) const { return Store(static_cast<double>(source)); }
    HRESULT operator()(double source) const { return Store(source); }
    HRESULT operator()(Amount source) const { return Store(static_cast<double>(source.tenThousandths) / 10000); }

    /// The negative zero of a date is the same day as zero, and becomes it.
    HRESULT operator()(Moment source) const { return Store(source.days + 0.0); }

    HRESULT operator()(TextView source) const { return ParseReal(source, *locale, real); }

private:
    HRESULT Store(double value) const
    {
        real = value;
        return S_OK;
    }
};

} // namespace kr::detail
