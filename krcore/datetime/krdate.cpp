#include <krcore/datetime/krdatetime.h>

#include <krcore/datetime/krdateoftime.h>
#include <krcore/datetime/krinvariantdate.h>
#include <krplatform/automation/vartext.h>

CKrDate::CKrDate() noexcept = default;

CKrDate::CKrDate(CKrDate const &) noexcept : CKrDateTimeBase() {}

CKrDate::CKrDate(COleDateTime const & value) noexcept { SetDateImpl(value); }

CKrDate::CKrDate(CTime value) noexcept { Set(value); }

CKrDate & CKrDate::operator=(CKrDate const & other) noexcept { return Set(other); }

CKrDate CKrDate::Today() { return CKrDate(ReadClock()); }

CKrDate & CKrDate::Set(CKrDate const & value) noexcept
{
    SetVal(value);
    return *this;
}

CKrDate & CKrDate::Set(COleDateTime const & value) noexcept
{
    SetDateImpl(value);
    return *this;
}

CKrDate & CKrDate::Set(CTime value) noexcept { return Set(kr::detail::DateOfTime(value)); }

CKrDate & CKrDate::Set(CKrDateTime const & value) noexcept { return Set(value.operator COleDateTime()); }

CKrDate & CKrDate::SetNull() noexcept
{
    m_value = COleDateTime();
    m_value.SetStatus(COleDateTime::null);
    return *this;
}

CKrDate & CKrDate::SetZero() noexcept
{
    m_value = COleDateTime(0, 0, 0, 0, 0, 0);
    return *this;
}

CKrDate & CKrDate::SetToday() noexcept { return Set(ReadClock()); }

CKrDate & CKrDate::Parse(CString const & text) { return Set(ParseText(text)); }

CString CKrDate::Format(unsigned long lcid) const { return FormatPart(VAR_DATEVALUEONLY, lcid); }

CString CKrDate::FormatInvariant() const { return IsValid() ? kr::detail::InvariantDate(m_value) : CString(); }

CKrTime CKrDate::AsTime() const noexcept { return CKrTime(m_value); }

CKrDateTime CKrDate::AsDateTime() const noexcept { return CKrDateTime(m_value); }

CKrDate::operator CKrTime() const noexcept { return AsTime(); }

CKrDate::operator CKrDateTime() const noexcept { return AsDateTime(); }
