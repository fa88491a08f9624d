#include <krplatform/coerce/calendar.h>
#include <krplatform/datetime/coledatetime.h>

using kr::detail::DateOfLinear;
using kr::detail::LinearOfDate;

namespace
{

/// The status of a result: null outweighs invalid.
template <class Result, class Left, class Right>
Result CombinedStatus(Left const & left, Right const & right)
{
    int const leftStatus = left.GetStatus();
    int const rightStatus = right.GetStatus();
    return static_cast<Result>(leftStatus > rightStatus ? leftStatus : rightStatus);
}

COleDateTime Move(COleDateTime const & date, COleDateTimeSpan const & span, double direction)
{
    COleDateTime moved;
    moved.m_status = CombinedStatus<COleDateTime::DateTimeStatus>(date, span);
    if (moved.m_status != COleDateTime::valid)
        return moved;
    moved.m_dt = DateOfLinear(LinearOfDate(date.m_dt) + direction * span.m_span);
    bool const isInRange = moved.m_dt > kr::detail::firstDay - 1.0 && moved.m_dt < kr::detail::lastDay + 1.0;
    moved.m_status = isInRange ? COleDateTime::valid : COleDateTime::invalid;
    return moved;
}

} // namespace

COleDateTimeSpan::COleDateTimeSpan(long days, int hours, int minutes, int seconds) noexcept
    : m_span(static_cast<double>(days) + hours / 24.0 + minutes / 1440.0 + seconds / 86400.0)
{
}

bool operator==(COleDateTime const & left, COleDateTime const & right) noexcept
{
    return left.m_status == right.m_status &&
           (left.m_status != COleDateTime::valid || LinearOfDate(left.m_dt) == LinearOfDate(right.m_dt));
}

std::partial_ordering operator<=>(COleDateTime const & left, COleDateTime const & right) noexcept
{
    if (left.m_status == COleDateTime::valid && right.m_status == COleDateTime::valid)
        return LinearOfDate(left.m_dt) <=> LinearOfDate(right.m_dt);
    return left.m_status == right.m_status ? std::partial_ordering::equivalent : std::partial_ordering::unordered;
}

COleDateTime COleDateTime::operator+(COleDateTimeSpan const & span) const noexcept { return Move(*this, span, 1.0); }

COleDateTime COleDateTime::operator-(COleDateTimeSpan const & span) const noexcept { return Move(*this, span, -1.0); }

COleDateTime & COleDateTime::operator+=(COleDateTimeSpan const & span) noexcept { return *this = *this + span; }

COleDateTime & COleDateTime::operator-=(COleDateTimeSpan const & span) noexcept { return *this = *this - span; }

COleDateTimeSpan COleDateTime::operator-(COleDateTime const & other) const noexcept
{
    COleDateTimeSpan span;
    span.m_status = CombinedStatus<COleDateTimeSpan::DateTimeSpanStatus>(*this, other);
    if (span.m_status == COleDateTimeSpan::valid)
        span.m_span = LinearOfDate(m_dt) - LinearOfDate(other.m_dt);
    return span;
}
