// Look-alikes: what a unit becomes that a code page lacks, unless the caller wants exact characters only.
//
// The rows are the platform's own, as the Unicode Consortium publishes them in bestfit932.txt and bestfit1250.txt to
// bestfit1256.txt under PUBLIC/MAPPINGS/VENDORS/MICSFT/WindowsBestFit: of the WCTABLE section of such a file every row
// that is not a row of its MBTABLE turned around, save those that give the question mark, which the platform takes for
// no look-alike. Rows that several pages have stand in a group of their own; before it go a page's own rows. The other
// pages need no rows here: ICU knows their look-alikes, or they have full-width forms only.
#include <krplatform/linux/codepage_pages.h>

namespace kr::detail
{

namespace
{

// clang-format off
// Letters without their marks: 1250 to 1254.
constexpr LookAlikes s_latinLetters[] = {
    { 0x00C0, "AAAAAA.CEEEEIIII.NOOOOO.OUUUUY..aaaaaa.ceeeeiiii.nooooo.ouuuuy.y" },
    { 0x0100, "AaAaAaCcCcCcCcDdDdEeEeEeEeEeGgGgGgGgHhHhIiIiIiIiI" },
    { 0x0134, "JjKk" },
    { 0x0139, "LlLlLl" },
    { 0x0141, "LlNnNnNn" },
    { 0x014C, "OoOoOo" },
    { 0x0154, "RrRrRrSsSsSsSsTtTtTtUuUuUuUuUuUuWwYyYZzZzZz" },
    { 0x0180, "b" },
    { 0x0197, "I..l....OOo" },
    { 0x01AB, "t..TUu" },
    { 0x01CD, "AaIiOoUuUuUuUuUu.Aa" },
    { 0x01E4, "GgGgKkOoOo..j" },
};

// Signs and letter-like symbols: 1250, 1252, 1254. Bytes above 7F are those of 1252, also where another page has
// something else there.
constexpr LookAlikes s_signsOfLatin[] = {
    { 0x01B6, "z" },
    { 0x01C0, "|..!" },
    { 0x0261, "g" },
    { 0x02B9, "'\".'" },
    { 0x02C4, "^...'\xAF\xB4`._" },
    { 0x02DA, "\xB0" },
    { 0x0300, "`\xB4^.\xAF\xAF..\xA8" },
    { 0x0327, "\xB8" },
    { 0x0331, "__" },
    { 0x03B2, "\xDF" },
    { 0x03BC, "\xB5" },
    { 0x04BB, "h" },
    { 0x0589, ":" },
    { 0x066A, "%" },
    { 0x2000, "       " },
    { 0x2010, "--" },
    { 0x2032, "'..`" },
    { 0x2044, "/" },
    { 0x2070, "\xB0...45678" },
    { 0x2080, "0123456789" },
    { 0x20A4, "\xA3" },
    { 0x2102, "C....E..gHHHh.IILl.N..PPQRRR" },
    { 0x2124, "Z...Z.K\xC5" "BCeeEF.Mo" },
    { 0x2205, "\xD8" },
    { 0x2212, "-\xB1./\\*\xB0" },
    { 0x2223, "|" },
    { 0x2236, ":" },
    { 0x223C, "~" },
    { 0x226A, "\xAB\xBB" },
    { 0x22C5, "\xB7" },
    { 0x2302, "\xA6^" },
    { 0x2329, "<>" },
    { 0x25A0, "\xA6" },
    { 0x2758, "|" },
    { 0x3000, " " },
    { 0x3008, "<>\xAB\xBB" },
    { 0x301A, "[]" },
    { 0x30FB, "\xB7" },
};

// Boxes and pictures of the DOS pages: 1250, 1251, 1253, 1254.
constexpr LookAlikes s_boxes[] = {
    { 0x203C, "!" },
    { 0x221F, "L" },
    { 0x2302, "\xA6" },
    { 0x250C, "-...\xAC...L...-...+" },
    { 0x2524, "+.......T" },
    { 0x2534, "+" },
    { 0x253C, "+" },
    { 0x2550, "=\xA6..-..\xAC..L..-..\xA6..\xA6..T..\xA6..+" },
    { 0x2580, "-...-...-" },
    { 0x2591, "---" },
    { 0x25A0, "\xA6" },
    { 0x25AC, "-" },
    { 0x25B2, "^" },
    { 0x25BA, ">.\xA1" },
    { 0x25C4, "<" },
    { 0x25CB, "0" },
    { 0x25D8, "\x95" "0" },
    { 0x263A, "OO0" },
    { 0x2640, "+.>" },
    { 0x2660, "\xA6..\xA6.\xA6\xA6" },
    { 0x266A, "dd" },
};

// What 1251 and 1253 have in common besides.
constexpr LookAlikes s_arrowsOfEast[] = {
    { 0x2190, "<^>v-\xA6" },
    { 0x21A8, "\xA6" },
    { 0x2500, "-.\xA6" },
};

constexpr LookAlikes s_1250[] = {
    { 0x00A1, "!cL.Y....a....\x97..23" },
    { 0x00B9, "1o.113" },
    { 0x00C6, "A" },
    { 0x00E6, "a" },
    { 0x0131, "i" },
    { 0x0152, "Oo" },
    { 0x0189, "\xD0" },
    { 0x0191, "Ff" },
    { 0x02BB, "\x91" },
    { 0x02C6, "^" },
    { 0x02DC, "~" },
    { 0x0303, "~..\xA2\xFF..\xB0.\xA1.\"" },
    { 0x037E, ";" },
    { 0x2024, "\x95" },
    { 0x2033, "\x94" },
    { 0x2190, "\x8B^\x9B\xA1-|" },
    { 0x21A8, "|" },
    { 0x2219, "\x95" },
    { 0x2500, "\xA6.-" },
    { 0x263A, "\xA2\xA2" },
    { 0x275B, "\x91\x92\x93\x94" },
    { 0x301D, "\x93\x94\x84" },
    { 0x30FC, "\x97" },
};

constexpr LookAlikes s_1251[] = {
    { 0x2219, "\x95v" },
    { 0x2552, "-\xE3\xE3\xAC\xAC.LL.--.\xA6\xA6.\xA6\xA6.TT.\xA6\xA6.++" },
    { 0x258C, "\xA6...\xA6" },
};

constexpr LookAlikes s_1252[] = {
    { 0x0110, "\xD0" },
    { 0x0131, "i" },
    { 0x0189, "\xD0" },
    { 0x0191, "\x83" },
    { 0x0303, "~......\xB0...\"" },
    { 0x037E, ";" },
    { 0x0393, "G....T" },
    { 0x03A3, "S..F..O" },
    { 0x03B1, "a..de" },
    { 0x03C0, "p..st.f" },
    { 0x2017, "=" },
    { 0x2024, "\xB7" },
    { 0x207F, "n" },
    { 0x20A1, "\xA2" },
    { 0x20A7, "P" },
    { 0x2219, "\xB7v" },
    { 0x221E, "8" },
    { 0x2229, "n" },
    { 0x2248, "\x98" },
    { 0x2261, "=..==" },
    { 0x2310, "\xAC" },
    { 0x2320, "()" },
    { 0x2500, "-.\xA6" },
    { 0x250C, "+...+...+...+...+" },
    { 0x2524, "\xA6.......-" },
    { 0x2534, "-" },
    { 0x253C, "+" },
    { 0x2550, "-\xA6++++++++++++\xA6\xA6\xA6\xA6\xA6\xA6------+++" },
    { 0x2580, "\xAF..._...\xA6...\xA6...\xA6\xA6\xA6\xA6" },
    { 0x263C, "\xA4" },
};

constexpr LookAlikes s_1253[] = {
    { 0x00B4, "/" },
    { 0x0191, "\x83" },
    { 0x030D, "\xB4" },
    { 0x037E, ";" },
};

constexpr LookAlikes s_1254[] = {
    { 0x0189, "D" },
    { 0x0191, "\x83" },
    { 0x02BB, "\x91" },
    { 0x02C7, "^" },
    { 0x02D8, "^'.\xB8.\xA8" },
    { 0x0303, "\x98..\x88\xB7..\xA7.\x88.\xA8" },
    { 0x2024, "\x95" },
    { 0x2033, "\xA8" },
    { 0x2080, "\xB0" "0\xB2\xB3" },
    { 0x2190, "\x8B^\x9Bv-|" },
    { 0x21A8, "|" },
    { 0x2219, "\x95" },
    { 0x2500, "\xA6.-" },
    { 0x275B, "\x91\x92\x93\x94" },
    { 0x301B, "=" },
    { 0x301D, "\"\"\x84" },
    { 0x30FC, "\x97" },
};

constexpr LookAlikes s_1255[] = {
    { 0x00A4, "\xA4" },
    { 0x0191, "F" },
};

constexpr LookAlikes s_1256[] = {
    { 0x00C0, "A.A....CEEEE..II....O....U.UU" },
    { 0x0191, "F" },
};

constexpr LookAlikes s_932[] = {
    { 0x00A1, "!...\\|..ca..-R" },
    { 0x00B2, "23" },
    { 0x00B9, "1o" },
    { 0x00C0, "AAAAAAACEEEEIIIIDNOOOOO.OUUUUYTsaaaaaaaceeeeiiiidnooooo.ouuuuyty" },
};

// clang-format on

} // namespace

constinit LookAlikeRuns const latinLetters = s_latinLetters;
constinit LookAlikeRuns const signsOfLatin = s_signsOfLatin;
constinit LookAlikeRuns const boxes = s_boxes;
constinit LookAlikeRuns const arrowsOfEast = s_arrowsOfEast;
constinit LookAlikeRuns const lookAlikes1250 = s_1250;
constinit LookAlikeRuns const lookAlikes1251 = s_1251;
constinit LookAlikeRuns const lookAlikes1252 = s_1252;
constinit LookAlikeRuns const lookAlikes1253 = s_1253;
constinit LookAlikeRuns const lookAlikes1254 = s_1254;
constinit LookAlikeRuns const lookAlikes1255 = s_1255;
constinit LookAlikeRuns const lookAlikes1256 = s_1256;
constinit LookAlikeRuns const lookAlikes932 = s_932;

} // namespace kr::detail
