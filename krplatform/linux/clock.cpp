#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/datetime/clock.h>
#include <krplatform/datetime/timezone.h>

#include <time.h>

#include <cerrno>
#include <cstdlib>
#include <mutex>

namespace
{

constexpr int baseYear = 1900;
constexpr int lastYear = 3000;

constexpr std::tm nothing = {-1, -1, -1, -1, -1, -1, -1, -1, -1, 0, nullptr};

template <class Break>
int BreakDown(std::tm * fields, std::int64_t const * seconds, Break breakDown)
{
    if (!fields)
        return EINVAL;
    time_t const moment = seconds ? *seconds : 0;
    std::tm broken = {};
    if (!seconds || !breakDown(&moment, &broken) || broken.tm_year + baseYear < 1 ||
        broken.tm_year + baseYear > lastYear)
    {
        *fields = nothing;
        return EINVAL;
    }
    *fields = broken;
    return 0;
}

constinit std::mutex s_zoneMutex;
constinit bool s_isMachineZoneRead = false;

/// Has TZ read again, which localtime_r alone need not do. Without it the zone is the machine's: to read that takes a look at its
/// file, and is done once, until TZ was set in between.
void FollowZone() noexcept
{
    std::lock_guard const lock(s_zoneMutex);
    bool const isMachineZone = !std::getenv("TZ");
    if (isMachineZone && s_isMachineZoneRead)
        return;
    s_isMachineZoneRead = isMachineZone;
    tzset();
}

/// As mktime, which reads TZ again by itself: what is known of the zone must not fall behind.
time_t MakeLocal(std::tm & fields) noexcept
{
    FollowZone();
    return mktime(&fields);
}

std::tm * BreakDownLocal(time_t const * moment, std::tm * fields)
{
    FollowZone();
    return localtime_r(moment, fields);
}

} // namespace

std::int64_t _time64(std::int64_t * seconds)
{
    std::int64_t const now = time(nullptr);
    if (seconds)
        *seconds = now;
    return now;
}

int _localtime64_s(std::tm * fields, std::int64_t const * seconds)
{
    return BreakDown(fields, seconds, BreakDownLocal);
}

int _gmtime64_s(std::tm * fields, std::int64_t const * seconds) { return BreakDown(fields, seconds, gmtime_r); }

std::int64_t _mktime64(std::tm * fields)
{
    if (!fields)
        return -1;
    std::tm made = *fields;
    time_t const moment = MakeLocal(made);
    if (moment < 0 || made.tm_year + baseYear > lastYear)
        return -1;
    *fields = made;
    return moment;
}

namespace kr::detail
{

int ZoneOffset(std::tm const & fields) noexcept
{
    std::tm local = fields;
    std::tm universal = fields;
    time_t const moment = MakeLocal(local);
    return static_cast<int>((timegm(&universal) - moment) / 60);
}

char const * ZoneName(std::tm const & fields) noexcept
{
    std::tm local = fields;
    MakeLocal(local); // the names are those of the time that was looked at last
    return tzname[fields.tm_isdst > 0 ? 1 : 0];
}

int RunningYear() noexcept
{
    std::int64_t const now = _time64(nullptr);
    std::tm fields;
    _localtime64_s(&fields, &now);
    return fields.tm_year + baseYear;
}

} // namespace kr::detail
