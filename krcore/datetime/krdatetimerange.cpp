#include <krcore/datetime/krdatetimerange.h>

CKrDateTimeRange::CKrDateTimeRange() noexcept = default;

CKrDateTimeRange::CKrDateTimeRange(CKrDateTimeRange const &) noexcept {}

CKrDateTimeRange & CKrDateTimeRange::operator=(CKrDateTimeRange const &) noexcept { return *this; }

CKrDateTimeRange::~CKrDateTimeRange() = default;

void CKrDateTimeRange::SetUpperBound(COleDateTime const &) noexcept {}

void CKrDateTimeRange::Set(COleDateTime const &, COleDateTime const &, bool, bool) noexcept {}
