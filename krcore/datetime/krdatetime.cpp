#include <krcore/datetime/krdatetime.h>

#include <krcore/datetime/krdateoftime.h>
#include <krcore/datetime/krinvariantdate.h>

#include <cmath>

CKrDateTime::CKrDateTime() noexcept = default;

CKrDateTime::CKrDateTime(CKrDateTime const &) noexcept : CKrDateTimeBase() {}

CKrDateTime::CKrDateTime(COleDateTime const & value) noexcept { SetVal(value); }

CKrDateTime::CKrDateTime(CTime value) noexcept { SetVal(value); }

CKrDateTime & CKrDateTime::operator=(CKrDateTime const & other) noexcept { return Set(other); }

CKrDateTime CKrDateTime::Now() { return CKrDateTime(ReadClock()); }

CKrDateTime & CKrDateTime::Set(CKrDateTime const & value) noexcept
{
    SetVal(static_cast<CKrDateTimeBase const &>(value));
    return *this;
}

CKrDateTime & CKrDateTime::Set(COleDateTime const & value) noexcept
{
    SetVal(value);
    return *this;
}

CKrDateTime & CKrDateTime::Set(CTime value) noexcept
{
    SetVal(value);
    return *this;
}

CKrDateTime & CKrDateTime::SetDate(COleDateTime const & value) noexcept
{
    SetDateImpl(value);
    return *this;
}

CKrDateTime & CKrDateTime::SetDate(CTime value) noexcept { return SetDate(kr::detail::DateOfTime(value)); }

CKrDateTime & CKrDateTime::SetDate(CKrDate const & value) noexcept { return SetDate(value.operator COleDateTime()); }

CKrDateTime & CKrDateTime::SetDate(CKrDateTime const & value) noexcept { return SetDate(value.m_value); }

CKrDateTime & CKrDateTime::SetTime(COleDateTime const & value) noexcept
{
    SetTimeImpl(value);
    return *this;
}

CKrDateTime & CKrDateTime::SetTime(CTime value) noexcept { return SetTime(kr::detail::DateOfTime(value)); }

CKrDateTime & CKrDateTime::SetTime(CKrTime const & value) noexcept { return SetTime(value.operator COleDateTime()); }

CKrDateTime & CKrDateTime::SetTime(CKrDateTime const & value) noexcept { return SetTime(value.m_value); }

CKrDateTime & CKrDateTime::SetNull() noexcept
{
    SetZero();
    m_value.SetStatus(COleDateTime::null);
    return *this;
}

CKrDateTime & CKrDateTime::SetZero() noexcept
{
    m_value = COleDateTime();
    return *this;
}

CKrDateTime & CKrDateTime::SetZeroDate() noexcept
{
    m_value.SetStatus(COleDateTime::valid);
    m_value.m_dt -= std::trunc(m_value.m_dt);
    return *this;
}

CKrDateTime & CKrDateTime::SetZeroTime() noexcept
{
    m_value.SetStatus(COleDateTime::valid);
    m_value.m_dt = std::trunc(m_value.m_dt);
    return *this;
}

CKrDateTime & CKrDateTime::SetNow() noexcept { return Set(ReadClock()); }

CKrDateTime & CKrDateTime::Parse(CString const & text) { return Set(ParseText(text)); }

CString CKrDateTime::Format(unsigned long lcid) const { return FormatPart(0, lcid); }

CString CKrDateTime::FormatInvariant() const { return IsValid() ? kr::detail::InvariantDateTime(m_value) : CString(); }

CKrDate CKrDateTime::AsDate() const noexcept { return CKrDate(m_value); }

CKrTime CKrDateTime::AsTime() const noexcept { return CKrTime(m_value); }

CKrDateTime::operator CKrDate() const noexcept { return AsDate(); }

CKrDateTime::operator CKrTime() const noexcept { return AsTime(); }
