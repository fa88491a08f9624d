#include <krplatform/coerce/converter.h>
#include <krplatform/coerce/date_parse.h>
#include <krplatform/coerce/real_target.h>

namespace kr::detail
{

namespace
{

// What lies between these two days is a date: the last one of the year 99 and the first one of the year 10000. A negative
// fraction counts forward, so -657434.9 is the evening of 1 January 100.
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
        RealTarget{locale, value}(source); // only a text can fail to be a number
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
