#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/real_target.h>

#include <cmath>
#include <limits>

namespace kr::detail
{

namespace
{

struct R4Target
{
    LocaleFacts const * locale;
    float & real;

    /// Whole numbers are rounded once, not to a double first.
    HRESULT operator()(std::integral auto source) const
    {
        real = static_cast<float>(source);
        return S_OK;
    }

    /// What is above the largest float overflows, also where that would be the nearest. Not-a-number stays.
    template <class Source>
    HRESULT operator()(Source source) const
    {
        double value = 0;
        HRESULT const result = RealTarget{locale, value}(source);
        if (FAILED(result))
            return result;
        if (std::abs(value) > static_cast<double>(std::numeric_limits<float>::max()))
            return DISP_E_OVERFLOW;
        real = static_cast<float>(value);
        return S_OK;
    }
};

} // namespace

HRESULT ToR4(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ReadSource(source, R4Target{locale, result.fltVal});
}

} // namespace kr::detail
