#include <krplatform/base/lasterror.h>
#include <krplatform/linux/codepage_pages.h>

namespace kr::detail
{

namespace
{

void ApplyChanges(UINT codePage, CodePageTable & table)
{
    for (CharacterRun const & run : changedCharacters)
        if (run.codePage == codePage)
            for (int index = 0; index < run.count; ++index)
                table.SetPair(static_cast<CharacterBytes>(run.bytes + index), static_cast<WCHAR>(run.unit + index));
    for (UnitsWithoutBytes const & range : unitsWithoutBytes)
        if (range.codePage == codePage)
            for (WCHAR unit = range.first; unit <= range.last; ++unit)
                table.SetBytes(unit, noBytes);
}

void AddLookAlike(CodePageTable & table, WCHAR unit, CharacterBytes bytes)
{
    if (table.BytesOf(unit) == noBytes)
        table.SetBytes(unit, bytes);
}

void AddLookAlikes(LookAlikes const & run, CodePageTable & table)
{
    for (std::size_t index = 0; index < run.bytes.size(); ++index)
        if (run.bytes[index] != '.')
            AddLookAlike(table, static_cast<WCHAR>(run.unit + index), static_cast<BYTE>(run.bytes[index]));
}

void AddLookAlikes(UINT codePage, CodePageTable & table)
{
    for (LookAlikesOfPage const & row : lookAlikesOfPages)
        if (row.codePage == codePage)
            for (LookAlikes const & run : *row.runs)
                AddLookAlikes(run, table);
    for (UnitRun const & run : writtenAsOthers)
        if (run.codePage == codePage || run.codePage == 0)
            for (int index = 0; index < run.count; ++index)
                AddLookAlike(table, static_cast<WCHAR>(run.unit + index),
                             table.BytesOf(static_cast<WCHAR>(run.written + index)));
}

/// To the platform, what becomes a question mark has no look-alike.
void DropQuestionMarks(CodePageTable & table)
{
    for (unsigned unit = 0x80; unit <= 0xFFFF; ++unit)
        if (table.BytesOf(static_cast<WCHAR>(unit)) == '?')
            table.SetBytes(static_cast<WCHAR>(unit), noBytes);
}

} // namespace

void FillFromConverter(CodePageConverter const & converter, CodePageTable & table)
{
    for (unsigned byte = 0x80; byte <= 0xFF; ++byte)
    {
        auto const lead = static_cast<BYTE>(byte);
        if (!table.IsLead(lead))
            table.SetUnit(lead, converter.UnitOf(lead));
        else
            for (unsigned trail = 0; trail <= 0xFF; ++trail)
            {
                CharacterBytes const bytes = TwoBytes(byte, trail);
                table.SetUnit(bytes, converter.UnitOf(bytes));
            }
    }
    for (unsigned unit = 0x80; unit <= 0xFFFF; ++unit)
        table.SetBytes(static_cast<WCHAR>(unit), converter.BytesOf(static_cast<WCHAR>(unit)));
}

std::unique_ptr<CodePageTable> BuildCodePage(CodePage const & page)
{
    CodePageConverter const converter(page.converter, page.convertersLookAlikes);
    if (converter.GetError() != ERROR_SUCCESS)
    {
        SetLastError(converter.GetError());
        return nullptr;
    }
    std::unique_ptr<CodePageTable> table = CodePageTable::Create(page.number, page.leads, page.defaultUnit);
    if (!table)
    {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    page.fill(converter, *table);
    ApplyChanges(page.number, *table);
    AddLookAlikes(page.number, *table);
    DropQuestionMarks(*table);
    table->FindExactBytes();
    return table;
}

} // namespace kr::detail
