// How any source becomes an integer.
#pragma once

#include <krplatform/coerce/number_parse.h>
#include <krplatform/coerce/rounding.h>
#include <krplatform/coerce/source.h>

#include <type_traits>

namespace kr::detail
{

template <std::integral Integer>
struct IntegerTarget
{
    LocaleFacts const * locale;
    Integer & number;

    HRESULT operator()(Nothing) const
    {
        number = 0;
        return S_OK;
    }

    /// Deliberate: a truth value is no number that could overflow. Its bits are cut, or its sign extended.
    HRESULT operator()(Truth truth) const
    {
        number = static_cast<Integer>(truth.number);
        return S_OK;
    }

    template <std::integral Source>
    HRESULT operator()(Source source) const
    {
        return FitInteger(source, number);
    }

    HRESULT operator()(float source) const { return FitReal(static_cast<double>(source), number); }
    HRESULT operator()(double source) const { return FitReal(source, number); }
    HRESULT operator()(Moment source) const { return FitReal(source.days, number); }

    HRESULT operator()(Amount source) const
    {
        ULONGLONG const magnitude = RoundAmount(MagnitudeOf(source.tenThousandths));
        return FitMagnitude(source.tenThousandths < 0, magnitude, number);
    }

    HRESULT operator()(TextView source) const
    {
        ParsedNumber parsed;
        if (!ParseNumber(source, *locale, parsed))
            return DISP_E_TYPEMISMATCH;
        if (parsed.isBits)
            return FitBits(parsed);
        ULONGLONG magnitude = 0;
        HRESULT const result = NumberToUnits(parsed, 0, magnitude);
        return SUCCEEDED(result) ? FitMagnitude(parsed.isNegative, magnitude, number) : result;
    }

private:
    /// As many bits as the integer has are its bits.
    HRESULT FitBits(ParsedNumber const & parsed) const
    {
        if (parsed.hasMore || parsed.leading > std::numeric_limits<std::make_unsigned_t<Integer>>::max())
            return DISP_E_OVERFLOW;
        number = static_cast<Integer>(parsed.leading);
        return S_OK;
    }
};

template <std::integral Integer>
HRESULT ToInteger(VARIANT const & source, LocaleFacts const * locale, Integer & number)
{
    return ReadSource(source, IntegerTarget<Integer>{locale, number});
}

} // namespace kr::detail
