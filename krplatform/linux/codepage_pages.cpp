#include <krplatform/linux/codepage_pages.h>
#include <krplatform/linux/codepage_registry.h>

#include <array>

namespace kr::detail
{

namespace
{

// clang-format off

constexpr LeadRange s_japanese[] = { { 0x81, 0x9F }, { 0xE0, 0xFC } };
constexpr LeadRange s_extended[] = { { 0x81, 0xFE } };
constexpr LeadRange s_johab[]    = { { 0x84, 0xD3 }, { 0xD8, 0xDE }, { 0xE0, 0xF9 } };

constexpr CodePage::Fill s_take = FillFromConverter;

// ICU's look-alikes are the platform's where its table was taken from the platform. For the pages of DOS and of ISO
// they are what there is.
constexpr CodePage s_pages[] = {
    // number  converter               fill       look-alikes  default  lead bytes
    {    874, "windows-874-2000",      s_take,    true,        '?',    {}         },
    {    932, "ibm-943_P15A-2003",     s_take,    false,       0x30FB, s_japanese },
    {    936, "windows-936-2000",      s_take,    true,        '?',    s_extended },
    {    949, "windows-949-2000",      s_take,    true,        '?',    s_extended },
    {    950, "windows-950-2000",      s_take,    true,        '?',    s_extended },
    {   1250, "ibm-5346_P100-1998",    s_take,    false,       '?',    {}         },
    {   1251, "ibm-5347_P100-1998",    s_take,    false,       '?',    {}         },
    {   1252, "ibm-5348_P100-1997",    s_take,    false,       '?',    {}         },
    {   1253, "ibm-5349_P100-1998",    s_take,    false,       '?',    {}         },
    {   1254, "ibm-5350_P100-1998",    s_take,    false,       '?',    {}         },
    {   1255, "ibm-9447_P100-2002",    s_take,    false,       '?',    {}         },
    {   1256, "ibm-9448_X100-2005",    s_take,    true,        '?',    {}         },
    {   1257, "ibm-9449_P100-2002",    s_take,    false,       '?',    {}         },
    {   1258, "ibm-5354_P100-1998",    s_take,    false,       '?',    {}         },
    {   1361, "windows-949-2000",      FillJohab, false,       '?',    s_johab    },

    {    437, "ibm-437_P100-1995",     s_take,    true,        '?',    {}         },
    {    737, "ibm-737_P100-1997",     s_take,    true,        '?',    {}         },
    {    775, "ibm-775_P100-1996",     s_take,    true,        '?',    {}         },
    {    850, "ibm-850_P100-1995",     s_take,    true,        '?',    {}         },
    {    852, "ibm-852_P100-1995",     s_take,    true,        '?',    {}         },
    {    855, "ibm-855_P100-1995",     s_take,    true,        '?',    {}         },
    {    857, "ibm-857_P100-1995",     s_take,    true,        '?',    {}         },
    {    860, "ibm-860_P100-1995",     s_take,    true,        '?',    {}         },
    {    861, "ibm-861_P100-1995",     s_take,    true,        '?',    {}         },
    {    863, "ibm-863_P100-1995",     s_take,    true,        '?',    {}         },
    {    864, "ibm-864_X110-1999",     s_take,    true,        '?',    {}         },
    {    865, "ibm-865_P100-1995",     s_take,    true,        '?',    {}         },
    {    866, "ibm-866_P100-1995",     s_take,    true,        '?',    {}         },
    {    869, "ibm-869_P100-1995",     s_take,    true,        '?',    {}         },
    {  10000, "macos-0_2-10.2",        s_take,    true,        '?',    {}         },
    {  28591, "ISO-8859-1",            s_take,    true,        '?',    {}         },
    {  28592, "ibm-912_P100-1995",     s_take,    true,        '?',    {}         },
    {  28593, "ibm-913_P100-2000",     s_take,    true,        '?',    {}         },
    {  28594, "ibm-914_P100-1995",     s_take,    true,        '?',    {}         },
    {  28595, "ibm-915_P100-1995",     s_take,    true,        '?',    {}         },
    {  28596, "ibm-1089_P100-1995",    s_take,    true,        '?',    {}         },
    {  28597, "ibm-9005_X110-2007",    s_take,    true,        '?',    {}         },
    {  28598, "ibm-5012_P100-1999",    s_take,    true,        '?',    {}         },
    {  28599, "ibm-920_P100-1995",     s_take,    true,        '?',    {}         },
    {  28603, "ibm-921_P100-1995",     s_take,    true,        '?',    {}         },
    {  28605, "ibm-923_P100-1998",     s_take,    true,        '?',    {}         },
};

constexpr bool HaveSlotsOfTheirOwn(std::span<CodePage const> pages)
{
    std::array<bool, 256> taken{};
    for (CodePage const & page : pages)
    {
        bool & slot = taken[SlotOfCodePage(page.number)];
        if (slot)
            return false;
        slot = true;
    }
    return true;
}
static_assert(HaveSlotsOfTheirOwn(s_pages));

// The private units stand for bytes without a character. They go both ways, but are invalid where the caller asks for
// valid bytes.
constexpr CharacterRun s_changes[] = {
    // page   bytes  count  unit
    {   932,  0x80,  1,     0x0080 },
    {   932,  0xA0,  1,     0xF8F0 },
    {   932,  0xFD,  3,     0xF8F1 },
    {  1253,  0xAA,  1,     0xF8F9 },
    {  1253,  0xD2,  1,     0xF8FA },
    {  1253,  0xFF,  1,     0xF8FB },
    {  1255,  0xCA,  1,     0x05BA },
    {  1255,  0xD9,  7,     0xF88D },
    {  1255,  0xFB,  2,     0xF894 },
    {  1255,  0xFF,  1,     0xF896 },
    {  1257,  0xA1,  1,     0xF8FC },
    {  1257,  0xA5,  1,     0xF8FD },
    {  1361,  0x80,  4,     0x0080 },
    {  1361,  0xD4,  4,     0xF8EC },
    {  1361,  0xDF,  1,     0xF8F0 },
    {  1361,  0xFA,  6,     0xF8F1 },
};

constexpr UnitsWithoutBytes s_without[] = {
    {  932, 0xF86F, 0xF86F },   // a private unit of another maker
    { 1256, 0x02CB, 0x02CB },
    { 1256, 0x066B, 0x066C },
    { 1256, 0x06F0, 0x06F9 },
    { 1256, 0x203E, 0x203E },
    { 1256, 0xFE73, 0xFE73 },
};

constexpr UnitRun s_writtenAs[] = {
    // page   unit    count  written
    {     0,  0xFF01, 94,    '!'    },  // the full-width forms of ASCII
    {   932,  0x00A2,  2,    0xFFE0 },
    {   932,  0x00AB,  1,    0x226A },
    {   932,  0x00AC,  1,    0xFFE2 },
    {   932,  0x00AF,  1,    0xFFE3 },
    {   932,  0x00B5,  1,    0x03BC },
    {   932,  0x00B7,  1,    0x30FB },
    {   932,  0x00B8,  1,    0xFF0C },
    {   932,  0x00BB,  1,    0x226B },
    {   932,  0x3094,  1,    0x30F4 },  // Hiragana Vu: as Katakana
    {  1361,  0x20A9,  1,    '\\'   },  // the won sign
    {  1361,  0xFFA0,  1,    0x3164 },  // half-width Hangul letters
    {  1361,  0xFFA1, 30,    0x3131 },
    {  1361,  0xFFC2,  6,    0x314F },
    {  1361,  0xFFCA,  6,    0x3155 },
    {  1361,  0xFFD2,  6,    0x315B },
    {  1361,  0xFFDA,  3,    0x3161 },
};

constexpr LookAlikesOfPage s_lookAlikes[] = {
    {  932, &lookAlikes932 },
    { 1250, &lookAlikes1250 }, { 1250, &latinLetters }, { 1250, &signsOfLatin }, { 1250, &boxes },
    { 1251, &lookAlikes1251 }, { 1251, &latinLetters }, { 1251, &arrowsOfEast }, { 1251, &boxes },
    { 1252, &lookAlikes1252 }, { 1252, &latinLetters }, { 1252, &signsOfLatin },
    { 1253, &lookAlikes1253 }, { 1253, &latinLetters }, { 1253, &arrowsOfEast }, { 1253, &boxes },
    { 1254, &lookAlikes1254 }, { 1254, &latinLetters }, { 1254, &signsOfLatin }, { 1254, &boxes },
    { 1255, &lookAlikes1255 },
    { 1256, &lookAlikes1256 },
};

// clang-format on

} // namespace

constinit std::span<CodePage const> const codePages = s_pages;
constinit std::span<CharacterRun const> const changedCharacters = s_changes;
constinit std::span<UnitsWithoutBytes const> const unitsWithoutBytes = s_without;
constinit std::span<UnitRun const> const writtenAsOthers = s_writtenAs;
constinit std::span<LookAlikesOfPage const> const lookAlikesOfPages = s_lookAlikes;

} // namespace kr::detail
