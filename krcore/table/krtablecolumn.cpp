#include <krcore/table/krtablecolumn.h>

CKrTableColumn::CKrTableColumn() noexcept = default;

CKrTableColumn::CKrTableColumn(CString const & key, CString const & internalName, CString const & externalName,
                               IDispatchPtr range) noexcept
    : m_key(key), m_internalName(internalName), m_externalName(externalName), m_range(std::move(range))
{
}

CKrTableColumn::CKrTableColumn(CKrTableColumn const & other) = default;

CKrTableColumn::CKrTableColumn(CKrTableColumn && other) noexcept = default;

CKrTableColumn & CKrTableColumn::operator=(CKrTableColumn const & other) { return *this = CKrTableColumn(other); }

CKrTableColumn & CKrTableColumn::operator=(CKrTableColumn && other) noexcept = default;

CKrTableColumn::~CKrTableColumn() = default;
