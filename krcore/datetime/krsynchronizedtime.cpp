#include <krcore/datetime/krsynchronizedtime.h>

CKrSynchronizedTime::CKrSynchronizedTime() : m_referenceTime(CTime::GetCurrentTime()) {}

CKrSynchronizedTime::CKrSynchronizedTime(CTime const & reference) { SetReferenceTime(reference); }

CKrSynchronizedTime::CKrSynchronizedTime(CKrSynchronizedTime const & other) = default;

CKrSynchronizedTime & CKrSynchronizedTime::operator=(CKrSynchronizedTime const & other) = default;

CKrSynchronizedTime::~CKrSynchronizedTime() = default;

void CKrSynchronizedTime::SetReferenceTime(CTime const & reference)
{
    m_offset = (CTime::GetCurrentTime() - reference).GetTotalSeconds();
    m_referenceTime = reference;
}

CTime CKrSynchronizedTime::GetSyncTime() const
{
    if (m_inheritedTime && m_inheritedTime != this)
        return m_inheritedTime->GetSyncTime();
    return CTime::GetCurrentTime() - CTimeSpan(m_offset);
}
