#include "tests/datetime/stopped_clock.h"

#include <time.h>

#include <optional>

namespace
{

std::optional<std::int64_t> s_stoppedAt;

time_t RunningClock()
{
    timespec now = {};
    clock_gettime(CLOCK_REALTIME, &now);
    return now.tv_sec;
}

} // namespace

/// Stands before the C library's, for the libraries too.
extern "C" time_t time(time_t * result) noexcept
{
    time_t const now = s_stoppedAt ? *s_stoppedAt : RunningClock();
    if (result)
        *result = now;
    return now;
}

namespace kr::test
{

StoppedClock::~StoppedClock() { s_stoppedAt.reset(); }

void StoppedClock::Set(std::int64_t seconds) noexcept { s_stoppedAt = seconds; }

} // namespace kr::test
