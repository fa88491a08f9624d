#include <krcore/table/krtabledata.h>

#include <krcore/table/krcolumnindex.h>

#include <algorithm>
#include <new>

namespace
{

CString NoEntry() { return CString(OLESTR("#NO_ENTRY#")); }

} // namespace

CKrTableData::CKrTableData() noexcept = default;

CKrTableData::CKrTableData(CKrTableData const & other) : std::vector<CKrTableColumn>(other) {}

CKrTableData & CKrTableData::operator=(CKrTableData const & other)
{
    if (this != &other)
        *this = CKrTableData(other);
    return *this;
}

CKrTableData::CKrTableData(CKrTableData && other) noexcept = default;

CKrTableData & CKrTableData::operator=(CKrTableData && other) noexcept = default;

CKrTableData::~CKrTableData() = default;

CString CKrTableData::AddColumn(CString const & name, CString const & externalName, IDispatchPtr range)
{
    return InsertColumn(static_cast<unsigned int>(size()), name, externalName, std::move(range));
}

CString CKrTableData::InsertColumn(unsigned int position, CString const & name, CString const & externalName,
                                   IDispatchPtr range)
{
    int const ending = name.Find(OLESTR("_#"));
    bool const isKey = ending > 0;
    CString const key = isKey ? name : MakeKey(name);
    CKrTableColumn column(key, isKey ? name.Left(ending) : name, externalName, std::move(range));

    bool const isIndexed = m_index && m_index->IsCurrent(*this);
    auto const place = insert(begin() + std::min<difference_type>(position, end() - begin()), std::move(column));
    try
    {
        if (isIndexed)
            m_index->Inserted(*this, static_cast<std::size_t>(place - begin()));
    }
    catch (std::bad_alloc const &)
    {
        m_index.reset();
    }
    return key;
}

void CKrTableData::RemoveColumn(CString const & key) noexcept
{
    CKrTableColumn const * const column = FindColumn(key);
    if (!column)
        return;
    CString const removed(key); // which may be the column's own
    bool const isIndexed = m_index && m_index->IsCurrent(*this);
    auto const place = erase(begin() + (column - data()));
    try
    {
        if (isIndexed)
            m_index->Erased(*this, static_cast<std::size_t>(place - begin()), removed);
    }
    catch (std::bad_alloc const &)
    {
        m_index.reset();
    }
}

CString CKrTableData::GetInternalName(CString const & key) const
{
    CKrTableColumn const * const column = FindColumn(key);
    return column ? column->GetInternalName() : NoEntry();
}

CString CKrTableData::GetExternalName(CString const & key) const
{
    CKrTableColumn const * const column = FindColumn(key);
    return column ? column->GetExternalName() : NoEntry();
}

void CKrTableData::AddColumnValue(CString const & key, CString const & value)
{
    if (CKrTableColumn * const column = FindColumn(key))
        column->GetValues().push_back(value);
}

CString CKrTableData::GetColumnValue(CString const & key, unsigned int row) const
{
    CKrTableColumn const * const column = FindColumn(key);
    return column ? column->GetValues()[row] : NoEntry();
}

void CKrTableData::ClearRangeRefs() noexcept
{
    for (CKrTableColumn & column : *this)
        column.SetRangeRef(nullptr);
}

CString CKrTableData::ConvertToString() const
{
    CString text(OLESTR("\n[list data]\n"));
    auto const appendLine = [&text](CString const & line)
    {
        text += line;
        text += OLESTR('\n');
    };
    for (CKrTableColumn const & column : *this)
    {
        appendLine(column.GetKey());
        appendLine(column.GetInternalName());
        appendLine(column.GetExternalName());
        std::for_each(column.GetValues().begin(), column.GetValues().end(), appendLine);
    }
    return text;
}

kr::detail::ColumnIndex * CKrTableData::CurrentIndex() const noexcept
{
    constexpr std::size_t fewColumns = 8; // are compared as fast as one is looked up
    if (m_index && !m_index->IsCurrent(*this))
        m_index.reset();
    if (!m_index && size() >= fewColumns)
        try
        {
            m_index = std::make_unique<kr::detail::ColumnIndex>(*this);
        }
        catch (std::bad_alloc const &)
        {
        }
    return m_index.get();
}

CKrTableColumn * CKrTableData::FindColumn(CString const & key) noexcept
{
    return const_cast<CKrTableColumn *>(std::as_const(*this).FindColumn(key));
}

CKrTableColumn const * CKrTableData::FindColumn(CString const & key) const noexcept
{
    if (kr::detail::ColumnIndex const * const index = CurrentIndex())
    {
        std::size_t const position = index->Find(key);
        return position == kr::detail::ColumnIndex::none ? nullptr : data() + position;
    }
    auto const place =
        std::find_if(begin(), end(), [&](CKrTableColumn const & column) { return column.GetKey() == key; });
    return place == end() ? nullptr : &*place;
}

CString CKrTableData::MakeKey(CString const & name) const
{
    if (kr::detail::ColumnIndex * const index = CurrentIndex())
        return index->LowestFreeKey(name);
    int counter = 0;
    while (true)
    {
        CString const key = kr::detail::MakeColumnKey(name, counter);
        if (!FindColumn(key))
            return key;
        ++counter;
    }
}
