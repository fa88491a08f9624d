#include <krcore/text/krcharformatter.h>

#include <krplatform/codepage/codepage.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <string>
#include <string_view>

using namespace kr::test;

namespace
{

using Text = std::basic_string<WCHAR>;
using namespace std::string_view_literals;

constexpr WCHAR untouched = 0x5A5A;

struct Decoded
{
    int produced;
    Text text; ///< what was written, without the room behind it
};

// Decodes into a room of `count` characters; what lies behind must be as it was.
Decoded DecodeInto(Text const & source, int count)
{
    Text buffer(source.size() + 8, untouched);
    int const produced = CKrCharFormatter::WcharFromCIFMIF(source.c_str(), buffer.data(), count);
    auto const end = static_cast<std::size_t>(produced);
    EXPECT_EQ(buffer.substr(end), Text(buffer.size() - end, untouched)) << "written behind the end";
    return {produced, buffer.substr(0, end)};
}

// Each way of decoding must say the same; gives the text without its terminator.
Text Decode(Text const & source)
{
    auto const ample = static_cast<int>(source.size() + 2);
    Decoded const whole = DecodeInto(source, ample);
    EXPECT_GE(whole.produced, 1);
    EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(source.c_str(), nullptr, 0), whole.produced) << "counting";

    Text place = source;
    EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(place.c_str(), nullptr, -1), whole.produced) << "in place";
    auto const end = static_cast<std::size_t>(whole.produced);
    EXPECT_EQ((place + WCHAR{}).substr(0, end), whole.text);
    if (end < source.size())
    {
        EXPECT_EQ(place.substr(end), source.substr(end)) << "what lies behind the terminator stays";
    }

    for (int room = 1; room < whole.produced; ++room)
    {
        Decoded const part = DecodeInto(source, room);
        EXPECT_EQ(part.produced, room);
        EXPECT_EQ(part.text, whole.text.substr(0, static_cast<std::size_t>(room))) << "cut, without a terminator";
    }
    EXPECT_EQ(whole.text.back(), 0);
    return whole.text.substr(0, end - 1);
}

struct Row
{
    std::basic_string_view<WCHAR> source;
    std::basic_string_view<WCHAR> decoded;
};

template <std::size_t size>
void ExpectDecoded(Row const (&rows)[size])
{
    for (Row const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.source));
        EXPECT_EQ(Narrow(Decode(Text(row.source))), Narrow(row.decoded));
    }
}

template <std::size_t size>
void ExpectUnchanged(std::basic_string_view<WCHAR> const (&sources)[size])
{
    for (std::basic_string_view<WCHAR> const source : sources)
        EXPECT_EQ(Narrow(Decode(Text(source))), Narrow(source));
}

// A second reader of escapes: at each place, what the rules say in their words.
std::optional<unsigned int> NumberAt(Text const & text, std::size_t place)
{
    std::string digits;
    for (WCHAR const character : text.substr(std::min(place, text.size()), 4))
        digits += character < 128 ? static_cast<char>(character) : '?';
    bool const isNumber = digits.size() == 4 && digits.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos;
    return isNumber ? std::optional(static_cast<unsigned int>(std::stoul(digits, nullptr, 16))) : std::nullopt;
}

std::optional<WCHAR> CharacterOf(unsigned int codePage, unsigned int number)
{
    std::string bytes;
    for (unsigned int const byte : {number / 256, number % 256})
        if (byte != 0)
            bytes += static_cast<char>(byte);
    if (bytes.empty())
        bytes.assign(1, '\0');
    WCHAR character[2];
    auto const length = static_cast<int>(bytes.size());
    bool const isOne = MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, bytes.data(), length, character, 2) == 1;
    return isOne ? std::optional(character[0]) : std::nullopt;
}

Text DecodeByTheWords(Text const & text)
{
    constexpr unsigned int codePages[] = {932, 950, 949, 1361, 936};
    Text decoded;
    for (std::size_t place = 0; place < text.size();)
    {
        std::optional<WCHAR> character;
        std::size_t length = 1;
        if (text.compare(place, 3, OLESTR("\\U+")) == 0)
        {
            length = 7;
            if (std::optional<unsigned int> const number = NumberAt(text, place + 3))
                character = static_cast<WCHAR>(*number);
        }
        else if (text.compare(place, 3, OLESTR("\\M+")) == 0 && place + 3 < text.size())
        {
            length = 8;
            WCHAR const index = text[place + 3];
            std::optional<unsigned int> const number = NumberAt(text, place + 4);
            if (number && index >= OLESTR('1') && index <= OLESTR('5'))
                character = CharacterOf(codePages[index - OLESTR('1')], *number);
        }
        decoded += character.value_or(text[place]);
        place += character ? length : 1;
    }
    return decoded;
}

} // namespace

TEST(CKrCharFormatterDecode, ReadsCifEscapesInEitherCase)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR(""),                      OLESTR("")              },
        { OLESTR("plain"),                 OLESTR("plain")         },
        { OLESTR("\\U+00E4"),              OLESTR("\u00E4")        },
        { OLESTR("\\U+00e4"),              OLESTR("\u00E4")        },
        { OLESTR("\\U+aBcD"),              OLESTR("\uABCD")        },
        { OLESTR("a\\U+20ACb"),            OLESTR("a\u20ACb")      },
        { OLESTR("\\U+0041\\U+0042C"),     OLESTR("ABC")           },
        { OLESTR("\\U+00E41"),             OLESTR("\u00E41")       },  // four digits, no more
        { OLESTR("\\U+D83D\\U+DE00"),      OLESTR("\xD83D\xDE00")  },  // the halves of a pair, each by itself
        { OLESTR("\\U+DE00"),              OLESTR("\xDE00")        },
        { OLESTR("\\U+FFFF"),              OLESTR("\xFFFF")        },
        { OLESTR("\\\\U+00E4"),            OLESTR("\\\u00E4")      },  // a backslash protects nothing
        { OLESTR("\\U\\U+00E4"),           OLESTR("\\U\u00E4")     },
        { OLESTR("\\U+\\U+00E4"),          OLESTR("\\U+\u00E4")    },
        { OLESTR("\\U+005CU+0041"),        OLESTR("\\U+0041")      },  // a decoded backslash begins no escape
    };
    // clang-format on
    ExpectDecoded(rows);
}

TEST(CKrCharFormatterDecode, LeavesMalformedCifEscapesCharacterByCharacter)
{
    std::basic_string_view<WCHAR> const sources[] = {
        OLESTR("\\"),
        OLESTR("\\U"),
        OLESTR("\\U+"),
        OLESTR("\\U+0"),
        OLESTR("\\U+00"),
        OLESTR("\\U+00E"),
        OLESTR("\\U+00G4"),
        OLESTR("\\U+g0E4"),
        OLESTR("\\U+0@E4"),
        OLESTR("\\U+0`E4"),
        OLESTR("\\U+0/E4"),
        OLESTR("\\U+0:E4"),
        OLESTR("\\U+00E."),
        OLESTR("\\U+ 0E4"),
        OLESTR("\\U-00E4"),
        OLESTR("\\U00E4"),
        OLESTR("\\u+00E4"),
        OLESTR("/U+00E4"),
        OLESTR("U+00E4"),
        OLESTR("\\ U+00E4"),
        OLESTR("\\U+00\uFF154"), // a digit of full width
        OLESTR("\\U+00\u01354"), // ends in the byte of a digit
        OLESTR("\\U+00\u01454"),
    };
    ExpectUnchanged(sources);
    EXPECT_EQ(Decode(OLESTR("\\U+00G4\\U+00E4")), OLESTR("\\U+00G4\u00E4")) << "the next one is read again";
}

TEST(CKrCharFormatterDecode, ReadsMifEscapesByTheCodePageOfTheirIndex)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("\\M+19286"),         OLESTR("\u4E2D")   },  // 932
        { OLESTR("\\M+2A4A4"),         OLESTR("\u4E2D")   },  // 950
        { OLESTR("\\M+3B0A1"),         OLESTR("\uAC00")   },  // 949
        { OLESTR("\\M+48861"),         OLESTR("\uAC00")   },  // 1361
        { OLESTR("\\M+5D6D0"),         OLESTR("\u4E2D")   },  // 936
        { OLESTR("\\M+5d6d0"),         OLESTR("\u4E2D")   },
        { OLESTR("\\M+18140"),         OLESTR("\u3000")   },
        { OLESTR("\\M+1835C"),         OLESTR("\u30BD")   },  // the second byte is that of a backslash
        { OLESTR("x\\M+192869"),       OLESTR("x\u4E2D9") },
        { OLESTR("\\M+19286\\U+0041"), OLESTR("\u4E2DA")  },
        { OLESTR("\\M+10041"),         OLESTR("A")        },  // the first byte is 0: the second alone
        { OLESTR("\\M+14100"),         OLESTR("A")        },  // the second is 0: the first alone
        { OLESTR("\\M+100B1"),         OLESTR("\uFF71")   },
        { OLESTR("\\M+1B100"),         OLESTR("\uFF71")   },
    };
    // clang-format on
    ExpectDecoded(rows);
}

TEST(CKrCharFormatterDecode, LeavesMalformedMifEscapesCharacterByCharacter)
{
    std::basic_string_view<WCHAR> const sources[] = {
        OLESTR("\\M"),
        OLESTR("\\M+"),
        OLESTR("\\M+1"),
        OLESTR("\\M+1928"),
        OLESTR("\\M+1928G"),
        OLESTR("\\M+1G286"),
        OLESTR("\\M+0ABCD"),
        OLESTR("\\M+6ABCD"),
        OLESTR("\\M+9286"),
        OLESTR("\\M+A9286"),
        OLESTR("\\M+/9286"),
        OLESTR("\\M+\u01319286"), // ends in the byte of the index
        OLESTR("\\m+19286"),
        OLESTR("\\M-19286"),
        OLESTR("\\M19286"),
        OLESTR("/M+19286"),
        OLESTR("\\M+18100"), // half of a character
        OLESTR("\\M+10081"),
        OLESTR("\\M+18120"), // no second byte
        OLESTR("\\M+14142"), // two characters
        OLESTR("\\M+1B1B2"),
        OLESTR("\\M+5FFFF"),
    };
    ExpectUnchanged(sources);
}

TEST(CKrCharFormatterDecode, GoesOnBehindADecodedZero)
{
    // clang-format off
    Row const rows[] = {
        { OLESTR("a\\U+0000b"),  OLESTR("a\0b"sv) },
        { OLESTR("\\U+0000"),    OLESTR("\0"sv)   },
        { OLESTR("a\\M+10000b"), OLESTR("a\0b"sv) },
    };
    // clang-format on
    ExpectDecoded(rows);
}

TEST(CKrCharFormatterDecode, EndsAtTheZeroOfTheSource)
{
    Text buffer(8, untouched);
    EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(OLESTR("a\0b"), buffer.data(), 8), 2);
    EXPECT_EQ(buffer, Text({OLESTR('a'), 0}) + Text(6, untouched));
}

TEST(CKrCharFormatterDecode, LeavesNoTerminatorWhereTheTextFillsTheRoom)
{
    // clang-format off
    struct { int room; int produced; Text text; } const rows[] = {
        { 1, 1, Text(OLESTR("a"))                  },
        { 2, 2, Text(OLESTR("a\u00E4"))            },
        { 3, 3, Text(OLESTR("a\u00E4b"))           },  // exactly: no terminator
        { 4, 4, Text(OLESTR("a\u00E4b\0"), 4)      },
        { 5, 4, Text(OLESTR("a\u00E4b\0"), 4)      },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.room);
        Decoded const decoded = DecodeInto(OLESTR("a\\U+00E4b"), row.room);
        EXPECT_EQ(decoded.produced, row.produced);
        EXPECT_EQ(decoded.text, row.text);
    }
}

TEST(CKrCharFormatterDecode, GivesNothingForArgumentsOfNoUse)
{
    Text const source = OLESTR("\\U+00E4");
    WCHAR place = untouched;
    for (int const count : {-1, 0, 1, 8})
        EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(nullptr, &place, count), 0);
    for (int const count : {-1, 0, 1, 8})
        EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(nullptr, nullptr, count), 0);
    for (int const count : {-8, -1, 0})
        EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(source.c_str(), &place, count), 0);
    for (int const count : {1, 8})
        EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(source.c_str(), nullptr, count), 0);
    EXPECT_EQ(place, untouched);
    EXPECT_EQ(source, OLESTR("\\U+00E4"));
}

TEST(CKrCharFormatterDecode, WorksInPlaceForAnyNegativeCount)
{
    for (int const count : {-1, -100})
    {
        Text place = OLESTR("a\\U+00E4b");
        EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(place.c_str(), nullptr, count), 4);
        EXPECT_EQ(place.substr(0, 4), Text(OLESTR("a\u00E4b\0"), 4));
    }
}

TEST(CKrCharFormatterDecode, AgreesWithAReaderByTheWordsOnRandomTexts)
{
    constexpr unsigned int seed = 20260;
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    std::basic_string_view<WCHAR> const pieces[] = {
        OLESTR("\\"), OLESTR("\\U+"),   OLESTR("\\M+"),  OLESTR("U"),         OLESTR("+"),
        OLESTR("1"),  OLESTR("5"),      OLESTR("6"),     OLESTR("00"),        OLESTR("81"),
        OLESTR("40"), OLESTR("A1"),     OLESTR("b0"),    OLESTR("F"),         OLESTR("g"),
        OLESTR("88"), OLESTR("\u00E4"), OLESTR("\\M+1"), OLESTR("\\M+48861"), OLESTR("\\U+20AC"),
    };
    int shortened = 0;
    for (int round = 0; round < 20000; ++round)
    {
        Text source;
        for (unsigned int count = static_cast<unsigned int>(random() % 12); count > 0; --count)
            source += pieces[random() % std::size(pieces)];
        Text const decoded = DecodeByTheWords(source);
        ASSERT_EQ(Narrow(Decode(source)), Narrow(decoded)) << Narrow(source);
        shortened += decoded.size() < source.size() ? 1 : 0;
    }
    EXPECT_GT(shortened, 5000) << "most texts hold an escape";
}

TEST(CKrCharFormatterDecode, ReadsBackWhatACodePageHolds)
{
    constexpr unsigned int codePages[] = {932, 950, 949, 1361, 936};
    for (unsigned int index = 1; index <= 5; ++index)
    {
        int read = 0;
        for (unsigned int number = 1; number <= 0xFFFF; ++number)
        {
            char bytes[2];
            auto const character = static_cast<WCHAR>(number);
            int const count = CKrCharFormatter::IsNativeToCodePage(character, codePages[index - 1], bytes);
            if (count != 2)
                continue;
            CString escape;
            escape.Format(OLESTR("\\M+%u%02X%02X"), index, static_cast<unsigned char>(bytes[0]),
                          static_cast<unsigned char>(bytes[1]));
            WCHAR decoded[2] = {};
            ASSERT_EQ(CKrCharFormatter::WcharFromCIFMIF(escape, decoded, 2), 2) << Narrow(escape);
            ASSERT_EQ(decoded[0], character) << Narrow(escape);
            ++read;
        }
        EXPECT_GT(read, 6000) << codePages[index - 1];
    }
}
