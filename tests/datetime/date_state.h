// Value and status of a date, to be compared and printed.
#pragma once

#include <krplatform/datetime/coledatetime.h>

#include <ostream>

namespace kr::test
{

struct DateState
{
    COleDateTime::DateTimeStatus status;
    double value;

    bool operator==(DateState const &) const = default;
};

inline DateState StateOf(COleDateTime const & date) { return {date.GetStatus(), date.m_dt}; }

inline DateState Valid(double value) { return {COleDateTime::valid, value}; }

constexpr DateState zeroState = {COleDateTime::valid, 0.0};
constexpr DateState invalidState = {COleDateTime::invalid, 0.0};
constexpr DateState nullState = {COleDateTime::null, 0.0};

/// 1 January 2021, 18:00, with a status.
inline COleDateTime DateWith(COleDateTime::DateTimeStatus status)
{
    COleDateTime date(44197.75);
    date.SetStatus(status);
    return date;
}

inline std::ostream & operator<<(std::ostream & stream, DateState const & state)
{
    return stream << "status " << state.status << ", value " << state.value;
}

} // namespace kr::test
