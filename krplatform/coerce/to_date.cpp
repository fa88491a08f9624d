#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/date_parse.h>
#include <krplatform/coerce/real_target.h>

namespace kr::detail
{

namespace
{

// The days between which a number is a date, both outside: the one before 1 January 100, which has no time of day here,
// and the first of the year 10000.
constexpr double s_beforeFirstDay = -657435;
constexpr double s_afterLastDay = 2958466;

struct DateTarget
{
    LocaleFacts const * locale;
    DATE & days;

    HRESULT operator()(TextView source) const
    {
        return TextToDate(source, 0, *locale, days) ? S_OK : DISP_E_TYPEMISMATCH;
    }

    /// A date that is one already is not looked at.
    HRESULT operator()(Moment source) const
    {
        days = source.days;
        return S_OK;
    }

    /// Overflow outside the calendar.
    template <class Source>
    HRESULT operator()(Source source) const
    {
        double value = 0;
        HRESULT const result = RealTarget{locale, value}(source);
        if (FAILED(result))
            return result;
        if (!(value > s_beforeFirstDay && value < s_afterLastDay))
            return DISP_E_OVERFLOW;
        days = value;
        return S_OK;
    }
};

} // namespace

HRESULT ToDate(VARIANT const & source, LocaleFacts const * locale, VARIANT & result)
{
    return ReadSource(source, DateTarget{locale, result.date});
}

} // namespace kr::detail
