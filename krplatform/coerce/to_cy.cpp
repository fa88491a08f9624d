#include <krplatform/coerce/amount_parse.h>
#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/rounding.h>
#include <krplatform/coerce/source.h>

namespace kr::detail
{

namespace
{

constexpr LONGLONG s_highestWhole = std::numeric_limits<LONGLONG>::max() / 10000;

struct CyTarget
{
    LocaleFacts const * locale;
    LONGLONG & tenThousandths;

    HRESULT operator()(Nothing) const { return operator()(0); }
    HRESULT operator()(Truth source) const { return operator()(source.number); }

    /// Deliberate: the highest whole amount, which fits, overflows from this one type.
    HRESULT operator()(LONGLONG source) const
    {
        bool const isHighest = source == s_highestWhole || source == -s_highestWhole;
        return isHighest ? DISP_E_OVERFLOW : Multiply(source);
    }

    template <std::integral Source>
    HRESULT operator()(Source source) const
    {
        return Multiply(source);
    }

    HRESULT operator()(float source) const { return RealToAmount(static_cast<double>(source), tenThousandths); }
    HRESULT operator()(double source) const { return RealToAmount(source, tenThousandths); }
    HRESULT operator()(Moment source) const { return RealToAmount(source.days, tenThousandths); }

    HRESULT operator()(Amount source) const
    {
        tenThousandths = source.tenThousandths;
        return S_OK;
    }

    HRESULT operator()(TextView source) const { return ParseAmount(source, *locale, tenThousandths); }

private:
    template <std::integral Source>
    HRESULT Multiply(Source source) const
    {
        if (std::cmp_greater(source, s_highestWhole) || std::cmp_less(source, -s_highestWhole))
            return DISP_E_OVERFLOW;
        tenThousandths = static_cast<LONGLONG>(source) * 10000;
        return S_OK;
    }
};

} // namespace

HRESULT ToCy(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ReadSource(source, CyTarget{locale, result.cyVal.int64});
}

} // namespace kr::detail
