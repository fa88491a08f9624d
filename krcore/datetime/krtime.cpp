#include <krcore/datetime/krdatetime.h>

#include <krcore/datetime/krdateoftime.h>
#include <krcore/datetime/krinvariantdate.h>
#include <krplatform/automation/vartext.h>

CKrTime::CKrTime() noexcept = default;

CKrTime::CKrTime(CKrTime const &) noexcept : CKrDateTimeBase() {}

CKrTime::CKrTime(COleDateTime const & value) noexcept { SetTimeImpl(value); }

CKrTime::CKrTime(CTime value) noexcept { Set(value); }

CKrTime & CKrTime::operator=(CKrTime const & other) noexcept { return Set(other); }

CKrTime CKrTime::Now() { return CKrTime(ReadClock()); }

CKrTime & CKrTime::Set(CKrTime const & value) noexcept
{
    SetVal(value);
    return *this;
}

CKrTime & CKrTime::Set(COleDateTime const & value) noexcept
{
    SetTimeImpl(value);
    return *this;
}

CKrTime & CKrTime::Set(CTime value) noexcept { return Set(kr::detail::DateOfTime(value)); }

CKrTime & CKrTime::Set(CKrDateTime const & value) noexcept
{
    SetDateImpl(value.operator COleDateTime());
    return *this;
}

CKrTime & CKrTime::SetZero() noexcept
{
    m_value = COleDateTime(1899, 12, 30, 0, 0, 0);
    return *this;
}

CKrTime & CKrTime::SetNow() noexcept { return Set(ReadClock()); }

CKrTime & CKrTime::Parse(CString const & text) { return Set(ParseText(text)); }

CString CKrTime::Format(unsigned long lcid) const { return FormatPart(VAR_TIMEVALUEONLY, lcid); }

CString CKrTime::FormatInvariant() const { return IsValid() ? kr::detail::InvariantTime(m_value) : CString(); }

CKrDate CKrTime::AsDate() const noexcept { return CKrDate(m_value); }

CKrDateTime CKrTime::AsDateTime() const noexcept { return CKrDateTime(m_value); }

CKrTime::operator CKrDate() const noexcept { return AsDate(); }

CKrTime::operator CKrDateTime() const noexcept { return AsDateTime(); }
