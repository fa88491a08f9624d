#include <krplatform/automation/vartext.h>
#include <krplatform/base/cexception.h>
#include <krplatform/datetime/colecurrency.h>
#include <krplatform/text/takebstr.h>

#include <limits>

namespace
{

constexpr LONGLONG perUnit = 10000;

/// False where the sum leaves the range of amounts.
bool AddUp(LONGLONG units, LONGLONG fraction, LONGLONG & amount)
{
    constexpr LONGLONG highest = std::numeric_limits<LONGLONG>::max();
    constexpr LONGLONG lowest = std::numeric_limits<LONGLONG>::min();
    if (units > highest / perUnit || units < lowest / perUnit)
        return false;
    LONGLONG const whole = units * perUnit;
    if (fraction > 0 ? whole > highest - fraction : whole < lowest - fraction)
        return false;
    amount = whole + fraction;
    return true;
}

} // namespace

COleCurrency::COleCurrency(long units, long fraction) noexcept : m_cur{}
{
    if (!AddUp(units, fraction, m_cur.int64))
        m_status = invalid;
}

COleCurrency & COleCurrency::operator=(VARIANT const & value)
{
    VARIANT converted = {};
    if (value.vt == VT_EMPTY || value.vt == VT_NULL)
        m_status = null;
    else if (SUCCEEDED(VariantChangeType(&converted, &value, 0, VT_CY)))
        m_status = valid;
    else
        m_status = invalid;
    m_cur = m_status == valid ? converted.cyVal : CY{};
    return *this;
}

CString COleCurrency::Format(DWORD flags, LCID locale) const
{
    if (m_status == null)
        return {};
    BSTR text = nullptr;
    HRESULT const result = m_status == invalid ? E_INVALIDARG : VarBstrFromCy(m_cur, locale, flags, &text);
    if (result == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    return SUCCEEDED(result) ? kr::detail::TakeBstr(text) : CString(OLESTR("Invalid Currency"));
}

bool COleCurrency::ParseCurrency(WCHAR const * text, DWORD flags, LCID locale)
{
    CY read = {};
    HRESULT const result = VarCyFromStr(text, locale, flags, &read);
    if (result == E_OUTOFMEMORY)
        AfxThrowMemoryException();
    m_cur = read;
    m_status = SUCCEEDED(result) ? valid : invalid;
    return m_status == valid;
}

bool operator==(COleCurrency const & left, COleCurrency const & right) noexcept
{
    return left.m_status == right.m_status &&
           (left.m_status != COleCurrency::valid || left.m_cur.int64 == right.m_cur.int64);
}

std::partial_ordering operator<=>(COleCurrency const & left, COleCurrency const & right) noexcept
{
    if (left.m_status == COleCurrency::valid && right.m_status == COleCurrency::valid)
        return left.m_cur.int64 <=> right.m_cur.int64;
    return left.m_status == right.m_status ? std::partial_ordering::equivalent : std::partial_ordering::unordered;
}
