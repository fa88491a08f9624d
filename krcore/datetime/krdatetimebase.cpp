#include <krcore/datetime/krdatetime.h>

#include <krcore/datetime/krdateoftime.h>
#include <krcore/datetime/krinvariantdate.h>
#include <krplatform/automation/vartext.h>

#include <cmath>

namespace
{

double DatePart(double value) { return std::trunc(value); }

double TimePart(double value) { return value - std::trunc(value); }

} // namespace

CKrDateTimeBase::CKrDateTimeBase() noexcept = default;

CKrDateTimeBase::CKrDateTimeBase(CKrDateTimeBase const &) noexcept : CKrDateTimeBase() {}

CKrDateTimeBase & CKrDateTimeBase::operator=(CKrDateTimeBase const & other) noexcept
{
    SetVal(other);
    return *this;
}

CKrDateTimeBase::~CKrDateTimeBase() = default;

CKrDateTimeBase::operator CTime() const
{
    constexpr WORD firstYear = 1900;
    SYSTEMTIME fields;
    if (!IsValid() || !VariantTimeToSystemTime(m_value.m_dt, &fields) || fields.wYear < firstYear)
        return CTime();
    return CTime(fields.wYear, fields.wMonth, fields.wDay, fields.wHour, fields.wMinute, fields.wSecond);
}

void CKrDateTimeBase::SetVal(COleDateTime const & value) noexcept
{
    m_value.SetStatus(value.GetStatus());
    m_value.m_dt = IsValid() ? value.m_dt : 0.0;
}

void CKrDateTimeBase::SetVal(CTime value) noexcept { SetVal(kr::detail::DateOfTime(value)); }

void CKrDateTimeBase::SetDateImpl(COleDateTime const & value) noexcept
{
    m_value.SetStatus(value.GetStatus());
    m_value.m_dt = IsValid() ? TimePart(m_value.m_dt) + DatePart(value.m_dt) : 0.0;
}

void CKrDateTimeBase::SetTimeImpl(COleDateTime const & value) noexcept
{
    m_value.SetStatus(value.GetStatus());
    m_value.m_dt = IsValid() ? TimePart(value.m_dt) + DatePart(m_value.m_dt) : 0.0;
}

CString CKrDateTimeBase::Format(WCHAR const * pattern) const { return IsValid() ? m_value.Format(pattern) : CString(); }

CString CKrDateTimeBase::FormatPart(unsigned long flags, unsigned long lcid) const
{
    return IsValid() ? m_value.Format(static_cast<DWORD>(flags), static_cast<LCID>(lcid)) : CString();
}

COleDateTime CKrDateTimeBase::ParseText(CString const & text)
{
    COleDateTime date;
    if (!kr::detail::ReadInvariantDate(text, date))
        VarDateFromStr(text, LOCALE_USER_DEFAULT, 0, &date.m_dt);
    return date;
}

COleDateTime CKrDateTimeBase::ReadClock() noexcept { return kr::detail::DateOfTime(CTime::GetCurrentTime()); }
