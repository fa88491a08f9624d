// A clock that shows another time.
#pragma once

#include <krcore/export.h>
#include <krplatform/datetime/ctime.h>

#include <cstdint>

/// Runs with the system's clock but shows the time that it was set to, plus the seconds since. It can lean on another clock.
///
///     CKrSynchronizedTime clock(timeOfTheServer);
///     clock.GetSyncTime()                          the server's time, as it goes on
///
/// A change of the system's clock moves the shown time with it. Set up once, a clock may be read from any thread.
class KRCORE_API CKrSynchronizedTime
{
public:
    /// Shows the system's time.
    CKrSynchronizedTime();
    explicit CKrSynchronizedTime(CTime const & reference);
    /// Copies lean on the same clock.
    CKrSynchronizedTime(CKrSynchronizedTime const & other);
    CKrSynchronizedTime & operator=(CKrSynchronizedTime const & other);
    virtual ~CKrSynchronizedTime();

    /// States what time it is now.
    void SetReferenceTime(CTime const & reference);
    /// The time that was stated for this clock, also where it leans on another.
    CTime GetReferenceTime() const noexcept { return m_referenceTime; }
    /// The present time of the clock that it leans on, or of its own.
    CTime GetSyncTime() const;
    CKrSynchronizedTime * GetInheritedTime() const noexcept { return m_inheritedTime; }
    /// Leans on another clock, which is not owned; null, or the clock itself, ends that. A circle of clocks never answers.
    void SetInheritedTime(CKrSynchronizedTime * inheritedTime) noexcept { m_inheritedTime = inheritedTime; }

private:
    std::int64_t m_offset = 0; ///< seconds by which the system's clock is ahead
    CTime m_referenceTime;
    CKrSynchronizedTime * m_inheritedTime = nullptr;
};
