// The code pages that the platform has, and how each differs from ICU's table of it.
#pragma once

#include <krplatform/linux/codepage_converter.h>

#include <span>
#include <string_view>

namespace kr::detail
{

struct CodePage
{
    using Fill = void (*)(CodePageConverter const & converter, CodePageTable & table);

    UINT number;
    char const * converter;    ///< ICU's name
    Fill fill;                 ///< how the converter's characters come into the table
    bool convertersLookAlikes; ///< whether ICU's look-alikes are taken too
    WCHAR defaultUnit;
    std::span<LeadRange const> leads;
};

/// Consecutive bytes of a page that stand for consecutive units.
struct CharacterRun
{
    UINT codePage;
    CharacterBytes bytes;
    int count;
    WCHAR unit;
};

/// Consecutive units for which ICU has a look-alike in a page and the platform has none.
struct UnitsWithoutBytes
{
    UINT codePage;
    WCHAR first;
    WCHAR last;
};

/// Consecutive units that a page lacks and writes as other, consecutive ones.
struct UnitRun
{
    UINT codePage; ///< 0: every page
    WCHAR unit;
    int count;
    WCHAR written;
};

/// Consecutive units that a page lacks, and the bytes it writes for them; a full stop: none here.
struct LookAlikes
{
    WCHAR unit;
    std::string_view bytes;
};
using LookAlikeRuns = std::span<LookAlikes const>;

struct LookAlikesOfPage
{
    UINT codePage;
    LookAlikeRuns const * runs;
};

extern std::span<CodePage const> const codePages;
extern std::span<CharacterRun const> const changedCharacters;
extern std::span<UnitsWithoutBytes const> const unitsWithoutBytes;
extern std::span<UnitRun const> const writtenAsOthers;
extern std::span<LookAlikesOfPage const> const lookAlikesOfPages; ///< for each unit the first row that has it decides

// Groups of look-alikes.
extern LookAlikeRuns const latinLetters, signsOfLatin, boxes, arrowsOfEast;
extern LookAlikeRuns const lookAlikes932, lookAlikes1250, lookAlikes1251, lookAlikes1252, lookAlikes1253;
extern LookAlikeRuns const lookAlikes1254, lookAlikes1255, lookAlikes1256;

/// Two ways to fill a table: to take over what the converter has, and to make Johab out of Wansung (949).
void FillFromConverter(CodePageConverter const & converter, CodePageTable & table);
void FillJohab(CodePageConverter const & wansung, CodePageTable & table);

/// Makes the table of a page. Null with the last error set if memory runs out or ICU lacks the converter.
std::unique_ptr<CodePageTable> BuildCodePage(CodePage const & page);

} // namespace kr::detail
