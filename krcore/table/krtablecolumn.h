// A column of a table.
#pragma once

#include <krcore/export.h>
#include <krcore/table/krcolumnkey.h>
#include <krplatform/automation/com_ptr.h>

#include <vector>

/// Three names, a list of cells and, if wanted, the automation object that the cells came from or belong to. A copy
/// takes the names and the cells, and shares the object.
class KRCORE_API CKrTableColumn
{
public:
    CKrTableColumn() noexcept;
    /// Holds one more reference on `range`, which may be null.
    CKrTableColumn(CString const & key, CString const & internalName, CString const & externalName,
                   IDispatchPtr range = nullptr) noexcept;
    CKrTableColumn(CKrTableColumn const & other);
    CKrTableColumn(CKrTableColumn && other) noexcept;
    CKrTableColumn & operator=(CKrTableColumn const & other);
    CKrTableColumn & operator=(CKrTableColumn && other) noexcept;
    virtual ~CKrTableColumn();

    /// The name by which a table finds the column, as `Width_#0#`. A key that is set here is not made unique.
    CString const & GetKey() const noexcept { return m_key.GetText(); }
    void SetKey(CString const & key) noexcept { m_key = kr::detail::ColumnKey(key); }
    /// The name that the caller gave.
    CString const & GetInternalName() const noexcept { return m_internalName; }
    void SetInternalName(CString const & name) noexcept { m_internalName = name; }
    /// The name for display.
    CString const & GetExternalName() const noexcept { return m_externalName; }
    void SetExternalName(CString const & name) noexcept { m_externalName = name; }

    /// The cells, row 0 first.
    std::vector<CString> & GetValues() noexcept { return m_values; }
    std::vector<CString> const & GetValues() const noexcept { return m_values; }

    /// Lent; null where there is none.
    IDispatch * GetRangeRef() const noexcept { return m_range; }
    void SetRangeRef(IDispatchPtr range) noexcept { m_range.Swap(range); }

private:
    friend class kr::detail::ColumnIndex;

    kr::detail::ColumnKey m_key;
    CString m_internalName;
    CString m_externalName;
    std::vector<CString> m_values;
    IDispatchPtr m_range;
};
