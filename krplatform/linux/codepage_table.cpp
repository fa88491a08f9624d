#include <krplatform/linux/codepage_table.h>

#include <algorithm>
#include <new>

namespace kr::detail
{

CodePageTable::CodePageTable(UINT codePage, WCHAR defaultUnit) : m_codePage(codePage), m_defaultUnit(defaultUnit)
{
    m_bytes.fill(noBytes);
    m_exactBytes.fill(noBytes);
}

std::unique_ptr<CodePageTable> CodePageTable::Create(UINT codePage, std::span<LeadRange const> leads, WCHAR defaultUnit)
{
    std::unique_ptr<CodePageTable> table(new (std::nothrow) CodePageTable(codePage, defaultUnit));
    if (!table)
        return nullptr;
    unsigned blocks = 1;
    for (LeadRange const & range : leads)
        for (unsigned lead = range.first; lead <= range.last; ++lead)
            table->m_blocks[lead] = static_cast<BYTE>(blocks++);
    table->m_units.reset(new (std::nothrow) WCHAR[blocks * 256]);
    if (!table->m_units)
        return nullptr;
    std::fill_n(table->m_units.get(), blocks * 256, noUnit);
    for (WCHAR unit = 0; unit < 0x80; ++unit)
        table->SetPair(unit, unit);
    return table;
}

void CodePageTable::SetPair(CharacterBytes bytes, WCHAR unit)
{
    WCHAR const previous = UnitOf(bytes);
    if (previous != noUnit && BytesOf(previous) == bytes)
        SetBytes(previous, noBytes);
    SetUnit(bytes, unit);
    SetBytes(unit, bytes);
}

void CodePageTable::FindExactBytes()
{
    for (std::size_t unit = 0; unit < m_bytes.size(); ++unit)
    {
        CharacterBytes const bytes = m_bytes[unit];
        m_exactBytes[unit] = bytes != noBytes && UnitOf(bytes) == unit ? bytes : noBytes;
    }
}

} // namespace kr::detail
