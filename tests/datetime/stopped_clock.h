// A system clock that stands still.
#pragma once

#include <cstdint>

namespace kr::test
{

/// While it lives, the system's clock shows the time that it was given, to the whole process.
class StoppedClock
{
public:
    explicit StoppedClock(std::int64_t seconds) noexcept { Set(seconds); }
    ~StoppedClock();
    StoppedClock(StoppedClock const &) = delete;
    StoppedClock & operator=(StoppedClock const &) = delete;

    void Set(std::int64_t seconds) noexcept;
};

} // namespace kr::test
