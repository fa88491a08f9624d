#include <krplatform/linux/codepage_pages.h>

#include <string_view>

namespace kr::detail
{

namespace
{

// A syllable, and a letter as one with two parts missing, is three numbers of five bits behind a set bit.
constexpr unsigned s_noInitial = 1, s_noVowel = 2, s_noFinal = 1;

constexpr CharacterBytes BytesOfParts(unsigned initial, unsigned vowel, unsigned final)
{
    return static_cast<CharacterBytes>(0x8000 | initial << 10 | vowel << 5 | final);
}

// clang-format off
constexpr BYTE s_vowels[] = { 3, 4, 5, 6, 7, 10, 11, 12, 13, 14, 15, 18, 19, 20, 21, 22, 23, 26, 27, 28, 29 };
constexpr BYTE s_finals[] = { s_noFinal, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17,
                              19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29 };
constexpr unsigned s_initials = 19;

/// Letters out of use, from DAD4 on, and at U+3164 in the order of Wansung.
constexpr std::basic_string_view<WCHAR> s_oldLetters =
    OLESTR("\u115F\u1114\u1115\u11C7\u11C8\u11CC\u11CE\u11D3\u11D7\u11D9\u111C\u11DD\u11DF\u111D\u111E\u1120\u1122"
           "\u1123\u1127\u1128\u112B\u112C\u112D\u112E\u112F\u1132\u1136\u1140\u1147\u114C\u1145\u1146\u1157\u1158"
           "\u1159\u1184\u1185\u1188\u1191\u1192\u1194\u119E\u11A1");

/// What U+3131 to U+314E are as parts of a syllable: an initial, or a final where no initial is alike.
constexpr std::basic_string_view<WCHAR> s_consonants =
    OLESTR("\u1100\u1101\u11AA\u1102\u11AC\u11AD\u1103\u1104\u1105\u11B0\u11B1\u11B2\u11B3\u11B4\u11B5\u11B6\u1106"
           "\u1107\u1108\u11B9\u1109\u110A\u110B\u110C\u110D\u110E\u110F\u1110\u1111\u1112");

/// Each lead byte of Johab holds two rows of Wansung.
struct RowPairs
{
    BYTE johab;
    int count;
    BYTE firstRow;
    BYTE secondRow;
};
constexpr RowPairs s_rowPairs[] = {
    { 0xD8,  1, 0xC9, 0xFE },   // private
    { 0xD9,  6, 0xA1, 0xA2 },   // signs
    { 0xE0, 26, 0xCA, 0xCB },   // Hanja
};
// clang-format on

constexpr unsigned s_cells = 94;

void CopyRow(CodePageConverter const & wansung, unsigned row, BYTE lead, unsigned firstCell, CodePageTable & table)
{
    for (unsigned cell = 0; cell < s_cells; ++cell)
    {
        WCHAR const unit = wansung.UnitOf(TwoBytes(row, 0xA1 + cell));
        unsigned const position = firstCell + cell;
        unsigned const trail = position < 78 ? 0x31 + position : 0x91 + position - 78;
        bool const isLetter = unit >= 0x3131 && unit <= 0x318E;
        if (unit != noUnit && !isLetter)
            table.SetPair(TwoBytes(lead, trail), unit);
    }
}

void AddSyllables(CodePageTable & table)
{
    WCHAR syllable = 0xAC00;
    for (unsigned initial = 0; initial < s_initials; ++initial)
        for (BYTE const vowel : s_vowels)
            for (BYTE const final : s_finals)
                table.SetPair(BytesOfParts(initial + 2, vowel, final), syllable++);
}

/// The platform takes single letters for the parts of syllables, U+1100 to U+11FF. Text that has them as letters of
/// their own, from U+3131 on, is written with the same bytes.
void AddLetters(CodePageTable & table)
{
    for (unsigned initial = 0; initial < s_initials; ++initial)
        table.SetPair(BytesOfParts(initial + 2, s_noVowel, s_noFinal), static_cast<WCHAR>(0x1100 + initial));
    for (unsigned vowel = 0; vowel < std::size(s_vowels); ++vowel)
    {
        CharacterBytes const bytes = BytesOfParts(s_noInitial, s_vowels[vowel], s_noFinal);
        table.SetPair(bytes, static_cast<WCHAR>(0x1161 + vowel));
        table.SetBytes(static_cast<WCHAR>(0x314F + vowel), bytes);
    }
    for (unsigned final = 1; final < std::size(s_finals); ++final)
        table.SetPair(BytesOfParts(s_noInitial, s_noVowel, s_finals[final]), static_cast<WCHAR>(0x11A7 + final));
    for (std::size_t index = 0; index < s_oldLetters.size(); ++index)
    {
        auto const bytes = static_cast<CharacterBytes>(0xDAD4 + index);
        table.SetPair(bytes, s_oldLetters[index]);
        table.SetBytes(static_cast<WCHAR>(0x3164 + index), bytes);
    }
    for (std::size_t index = 0; index < s_consonants.size(); ++index)
        table.SetBytes(static_cast<WCHAR>(0x3131 + index), table.BytesOf(s_consonants[index]));
}

} // namespace

void FillJohab(CodePageConverter const & wansung, CodePageTable & table)
{
    for (RowPairs const & pairs : s_rowPairs)
        for (int index = 0; index < pairs.count; ++index)
        {
            auto const lead = static_cast<BYTE>(pairs.johab + index);
            CopyRow(wansung, pairs.firstRow + 2u * static_cast<unsigned>(index), lead, 0, table);
            CopyRow(wansung, pairs.secondRow + 2u * static_cast<unsigned>(index), lead, s_cells, table);
        }
    AddSyllables(table);
    AddLetters(table);
}

} // namespace kr::detail
