// A range of dates.
#pragma once

#include <krcore/export.h>
#include <krplatform/datetime/coledatetime.h>

/// A lower and an upper bound, both the zero date at first. Deliberate: only the lower one can ever change. Copying, assigning, `SetUpperBound`
/// and `Set` do nothing.
///
///     CKrDateTimeRange range;
///     range.SetLowerBound(COleDateTime(44197.0));
///     range.SetUpperBound(COleDateTime(44197.0));
///     range.GetLowerBound()                            -> 1 January 2021
///     range.GetUpperBound()                            -> 30 December 1899
///     CKrDateTimeRange(range).GetLowerBound()          -> 30 December 1899
class KRCORE_API CKrDateTimeRange
{
public:
    CKrDateTimeRange() noexcept;
    CKrDateTimeRange(CKrDateTimeRange const & other) noexcept;
    CKrDateTimeRange & operator=(CKrDateTimeRange const & other) noexcept;
    virtual ~CKrDateTimeRange();

    COleDateTime GetLowerBound() const noexcept { return m_lowerBound; }
    COleDateTime GetUpperBound() const noexcept { return m_upperBound; }
    /// Value and status; nothing is compared with the upper bound.
    void SetLowerBound(COleDateTime const & bound) noexcept { m_lowerBound = bound; }
    void SetUpperBound(COleDateTime const & bound) noexcept;

protected:
    void Set(COleDateTime const & lower, COleDateTime const & upper, bool lowerIncluded, bool upperIncluded) noexcept;

private:
    COleDateTime m_lowerBound;
    COleDateTime m_upperBound;
};
