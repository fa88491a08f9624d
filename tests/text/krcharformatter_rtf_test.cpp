#include <krcore/text/krcharformatter.h>

#include <krplatform/codepage/codepage.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace kr::test;
using namespace std::string_literals;

namespace
{

using Text = std::basic_string<WCHAR>;

constexpr int terminated = -1;
constexpr unsigned int s_codePages[] = {437,  850,  866,  874,  932,  936,  949,   950,   1250,  1251,  1252, 1253,
                                        1254, 1255, 1256, 1257, 1258, 1361, 10000, 28591, 28592, 28605, 65001};
constexpr char untouched = '\x5A';

// A text as the pieces that its characters become.
struct Case
{
    unsigned int codePage;
    Text source;
    std::vector<std::string> pieces;
};

// clang-format off
Case const s_cases[] = {
    {  1252, OLESTR(""),                         {}                                                        },
    {  1252, OLESTR("a{\\}\n"),                  {"a", "{", "\\", "}", "\n"}                               },  // nothing is protected
    {  1252, OLESTR("a\u20AC\u00E4b"),           {"a", "\x80", "\xE4", "b"}                                },
    {  1252, OLESTR("\u0141\u6F22\uFF21x"),      {"\\u321?", "\\u28450?", "\\u65313?", "x"}                },  // no look-alikes
    {  1252, OLESTR("\u0080\u0100\u03E7\u03E8"), {"\\u128?", "\\u256?", "\\u999?", "\\u1000?"}             },
    {  1252, OLESTR("\u270F\u2710\xFFFF"),       {"\\u9999?", "\\u10000?", "\\u65535?"}                    },
    {  1252, OLESTR("\xD83D\xDE00"),             {"\\u55357?", "\\u56832?"}                                },  // each half by itself
    {   932, OLESTR("\u20AC\u30BDa\uFF71\u00E4"), {"\\u8364?", "\x83\x5C", "a", "\xB1", "\\u228?"}         },
    {   936, OLESTR("\u20AC\u4E2D"),             {"\x80", "\xD6\xD0"}                                      },
    {   949, OLESTR("\uAC00\u00E4"),             {"\xB0\xA1", "\\u228?"}                                   },
    {   950, OLESTR("\u4E2D"),                   {"\xA4\xA4"}                                              },
    {  1251, OLESTR("\u0416\u00E4"),             {"\xC6", "\\u228?"}                                       },
    {  1361, OLESTR("\uAC00"),                   {"\x88\x61"}                                              },
    { 65001, OLESTR("\u00E4\u07FF\u0800\u20AC"), {"\xC3\xA4", "\xDF\xBF", "\\u2048?", "\\u8364?"}          },  // two bytes at most
    { 54321, OLESTR("a\u00E4"),                  {"a", "\\u228?"}                                          },  // no such code page
};
// clang-format on

struct Written
{
    int consumed;
    std::string bytes;
};

// What fits whole into a room of which one byte stays free.
Written Expected(Case const & one, int room)
{
    Written written{0, {}};
    for (std::string const & piece : one.pieces)
    {
        if (static_cast<int>(written.bytes.size() + piece.size()) > room - 1)
            break;
        written.bytes += piece;
        ++written.consumed;
    }
    return written;
}

// Converts into a room; what lies behind the bytes told must be as it was.
Written Convert(unsigned int codePage, Text const & source, int sourceCount, int room)
{
    std::string buffer(static_cast<std::size_t>(room) + 16, untouched);
    int count = room;
    int const consumed =
        CKrCharFormatter::WcharNonNativeToRTF(codePage, source.c_str(), sourceCount, buffer.data(), &count);
    EXPECT_LE(count, room);
    auto const end = static_cast<std::size_t>(count);
    EXPECT_EQ(buffer.substr(end), std::string(buffer.size() - end, untouched)) << "written behind the end";
    return {consumed, buffer.substr(0, end)};
}

} // namespace

TEST(CKrCharFormatterRtf, IsExactAtEveryRoom)
{
    for (Case const & one : s_cases)
    {
        Written const whole = Expected(one, 1000);
        for (int room = 1; room <= static_cast<int>(whole.bytes.size()) + 3; ++room)
        {
            SCOPED_TRACE(std::to_string(one.codePage) + ", " + Narrow(one.source) + ", " + std::to_string(room));
            Written const expected = Expected(one, room);
            Written const counted = Convert(one.codePage, one.source, static_cast<int>(one.source.size()), room);
            EXPECT_EQ(counted.consumed, expected.consumed);
            EXPECT_EQ(counted.bytes, expected.bytes) << "without a terminator";
            Written const ended = Convert(one.codePage, one.source, terminated, room);
            EXPECT_EQ(ended.consumed, expected.consumed);
            EXPECT_EQ(ended.bytes, expected.bytes + '\0') << "the terminator counts";
        }
    }
}

TEST(CKrCharFormatterRtf, CountsTheBytesWithoutADestination)
{
    for (Case const & one : s_cases)
        for (int const room : {-1, 0, 1, 1000})
        {
            SCOPED_TRACE(std::to_string(one.codePage) + ", " + Narrow(one.source) + ", " + std::to_string(room));
            Written const whole = Expected(one, 1000);
            auto const bytes = static_cast<int>(whole.bytes.size());
            auto const length = static_cast<int>(one.source.size());
            int count = room;
            EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(one.codePage, one.source.c_str(), length, nullptr, &count),
                      length);
            EXPECT_EQ(count, bytes);
            count = room;
            EXPECT_EQ(
                CKrCharFormatter::WcharNonNativeToRTF(one.codePage, one.source.c_str(), terminated, nullptr, &count),
                length);
            EXPECT_EQ(count, bytes + 1);
        }
}

TEST(CKrCharFormatterRtf, StopsBeforeTheFirstPieceThatLeavesNoByteFree)
{
    // clang-format off
    struct { int room; int consumed; std::string bytes; } const rows[] = {
        {  1, 0, "\0"s                    },
        {  2, 1, "a\0"s                   },
        {  8, 1, "a\0"s                   },  // the escape has seven bytes
        {  9, 2, "a\\u8364?\0"s           },
        { 10, 2, "a\\u8364?\0"s           },  // a character of two bytes is not split
        { 11, 3, "a\\u8364?\x83\x5C\0"s   },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.room);
        Written const written = Convert(932, OLESTR("a\u20AC\u30BD"), terminated, row.room);
        EXPECT_EQ(written.consumed, row.consumed);
        EXPECT_EQ(written.bytes, row.bytes);
    }
}

TEST(CKrCharFormatterRtf, SkipsNoLongPieceForAShorterOneBehindIt)
{
    EXPECT_EQ(Convert(1252, OLESTR("a\u6F22b"), terminated, 5).bytes, "a\0"s);
}

TEST(CKrCharFormatterRtf, TakesZerosForCharactersWhereTheLengthIsTold)
{
    Text const source(OLESTR("a\0\u20AC\0"), 4);
    Written const whole = Convert(1252, source, 4, 100);
    EXPECT_EQ(whole.consumed, 4);
    EXPECT_EQ(whole.bytes, "a\0\x80\0"s);
    EXPECT_EQ(Convert(1252, source, 2, 100).bytes, "a\0"s);
    EXPECT_EQ(Convert(1252, source, 0, 100).bytes, ""s);
    Written const ended = Convert(1252, source, terminated, 100);
    EXPECT_EQ(ended.consumed, 1);
    EXPECT_EQ(ended.bytes, "a\0"s);
}

TEST(CKrCharFormatterRtf, GivesNothingForArgumentsOfNoUse)
{
    char byte = untouched;
    int count = 8;
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, nullptr, terminated, &byte, &count), 0);
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, nullptr, 3, nullptr, &count), 0);
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, OLESTR("abc"), 3, &byte, nullptr), 0);
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, OLESTR("abc"), 3, nullptr, nullptr), 0);
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, OLESTR("abc"), -2, &byte, &count), 0);
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, OLESTR("abc"), -2, nullptr, &count), 0);
    EXPECT_EQ(count, 8);
    for (int room : {0, -1})
    {
        int const told = room;
        EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(1252, OLESTR("abc"), 3, &byte, &room), 0);
        EXPECT_EQ(room, told);
    }
    EXPECT_EQ(byte, untouched);
}

TEST(CKrCharFormatterRtf, WritesEachUnitAsItsBytesOrItsNumber)
{
    for (unsigned int const codePage : s_codePages)
        for (unsigned int number = 1; number <= 0xFFFF; ++number)
        {
            Text const source(1, static_cast<WCHAR>(number));
            std::string buffer(16, untouched);
            int count = 16;
            ASSERT_EQ(CKrCharFormatter::WcharNonNativeToRTF(codePage, source.c_str(), 1, buffer.data(), &count), 1);
            std::string const written = buffer.substr(0, static_cast<std::size_t>(count));
            if (written == "\\u" + std::to_string(number) + "?")
            {
                ASSERT_EQ(CKrCharFormatter::IsNativeToCodePage(source[0], codePage, nullptr), 0) << number;
                continue;
            }
            WCHAR decoded[2];
            ASSERT_EQ(MultiByteToWideChar(codePage, 0, written.data(), count, decoded, 2), 1) << number;
            ASSERT_EQ(decoded[0], number) << codePage;
        }
}
