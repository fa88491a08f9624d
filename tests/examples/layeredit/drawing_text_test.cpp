// Texts of drawings: code pages, escapes, and the traps between them.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

using Arguments = std::vector<std::string>;

std::string const s_application = "  0\nAPPID\n  2\nAcAecLayerStandard\n 70\n     0\n";

MadeDrawing WithLayer(std::string const & version, std::string const & codePage, std::string const & name)
{
    MadeDrawing drawing;
    drawing.version = version;
    drawing.codePage = codePage;
    drawing.layers = MadeDrawing::Layer(name, " 62\n     7\n");
    drawing.applications += s_application;
    return drawing;
}

/// The only layer's name in the list.
std::string NameIn(MadeDrawing const & drawing, Arguments const & options = {})
{
    Workshop workshop;
    workshop.Put("a.dxf", drawing.Get());
    Arguments arguments = {"a.dxf", "-q", "--format", "tsv"};
    arguments.insert(arguments.end(), options.begin(), options.end());
    std::vector<std::string> const lines = LinesOf(workshop.Call(arguments).output);
    return lines.size() == 2 ? lines[1].substr(0, lines[1].find('\t')) : "no list";
}

/// The bytes of the description that is written, and in `shown` what is read back.
std::string WrittenDescription(MadeDrawing const & drawing, std::string const & description, std::string & shown)
{
    Workshop workshop;
    workshop.Put("a.dxf", drawing.Get());
    workshop.Call({"a.dxf", "--all", "-s", "Description=" + description, "--in-place"});
    std::vector<std::string> const lines = LinesOf(workshop.LayersOf("a.dxf"));
    shown = lines.back().substr(lines.back().rfind('\t') + 1);
    shown.pop_back();
    return GroupsOf(SplitDrawing(workshop.Get("a.dxf")).records.at(0)).back().second;
}

} // namespace

TEST(LayerEditText, EachWordNamesItsCodePageForReadingAndWriting)
{
    struct Row
    {
        char const * word;
        char const * bytes;
        char const * character;
    };
    // clang-format off
    Row const rows[] = { // bytes by the code tables of another program
        { "ANSI_874",   "\xA1",           "\u0E01" },
        { "ANSI_932",   "\x95\x5C",       "\u8868" },
        { "ANSI_936",   "\xD7\xDF",       "\u8D70" },
        { "ANSI_949",   "\xB0\xA1",       "\uAC00" },
        { "ANSI_950",   "\xA4\xA4",       "\u4E2D" },
        { "ANSI_1250",  "\xB9",           "\u0105" },
        { "ANSI_1251",  "\xC6",           "\u0416" },
        { "ANSI_1252",  "\xDC",           "\u00DC" },
        { "ANSI_1253",  "\xD1",           "\u03A1" },
        { "ANSI_1254",  "\xD0",           "\u011E" },
        { "ANSI_1255",  "\xE0",           "\u05D0" },
        { "ANSI_1256",  "\xC8",           "\u0628" },
        { "ANSI_1257",  "\xD0",           "\u0160" },
        { "ANSI_1258",  "\xD0",           "\u0110" },
        { "ANSI_1361",  "\x88\x61",       "\uAC00" },
        { "gb2312",     "\xD7\xDF",       "\u8D70" },
        { "big5",       "\xA4\xA4",       "\u4E2D" },
        { "ksc5601",    "\xB0\xA1",       "\uAC00" },
        { "kcs5601",    "\xB0\xA1",       "\uAC00" },
        { "johab",      "\x88\x61",       "\uAC00" },
        { "dos437",     "\x81",           "\u00FC" },
        { "dos850",     "\x9B",           "\u00F8" },
        { "dos852",     "\xA5",           "\u0105" },
        { "dos855",     "\xE9",           "\u0436" },
        { "dos857",     "\xA7",           "\u011F" },
        { "dos860",     "\x84",           "\u00E3" },
        { "dos861",     "\x8B",           "\u00D0" },
        { "dos863",     "\x84",           "\u00C2" },
        { "dos864",     "\xA3",           "\u00A3" },
        { "dos865",     "\x9D",           "\u00D8" },
        { "dos866",     "\x86",           "\u0416" },
        { "dos869",     "\xA4",           "\u0391" },
        { "dos932",     "\x95\x5C",       "\u8868" },
        { "mac-roman",  "\x9F",           "\u00FC" },
        { "iso8859-1",  "\xDF",           "\u00DF" },
        { "iso8859-2",  "\xB1",           "\u0105" },
        { "iso8859-3",  "\xA1",           "\u0126" },
        { "iso8859-4",  "\xA2",           "\u0138" },
        { "iso8859-5",  "\xB6",           "\u0416" },
        { "iso8859-6",  "\xC8",           "\u0628" },
        { "iso8859-7",  "\xC1",           "\u0391" },
        { "iso8859-8",  "\xE0",           "\u05D0" },
        { "iso8859-9",  "\xD0",           "\u011E" },
        { "ASCII",      "\xDC",           "\u00DC" },
        { "UNDEFINED",  "\xDC",           "\u00DC" },
        { "Undefined",  "\xDC",           "\u00DC" },
        { "ansi_1251",  "\xC6",           "\u0416" },
        { "UTF-8",      "\xC3\x9C",       "\u00DC" },
        { "",           "\xDC",           "\u00DC" },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.word);
        MadeDrawing const drawing = WithLayer("AC1015", row.word, std::string(row.bytes) + "1");
        EXPECT_EQ(NameIn(drawing), row.character + std::string("1"));
        std::string const snow = "\u2603", character = row.character;
        std::string shown;
        bool const isUtf8 = row.word == std::string("UTF-8");
        EXPECT_EQ(WrittenDescription(drawing, character + snow + "x", shown),
                  row.bytes + (isUtf8 ? snow : "\\U+2603") + "x");
        EXPECT_EQ(shown, character + snow + "x");
    }
}

TEST(LayerEditText, FromR2007OnTextsAreUtf8WhateverTheWordSays)
{
    for (char const * const version : {"AC1021", "AC1024", "AC1027", "AC1032", "AC1040"})
        EXPECT_EQ(NameIn(WithLayer(version, "ANSI_932", "\u00DC\u8868")), "\u00DC\u8868") << version;
    for (char const * const version : {"AC1009", "AC1012", "AC1014", "AC1015", "AC1018", "AC2.10", "AC1.50"})
        EXPECT_EQ(NameIn(WithLayer(version, "ANSI_1252", "\xDC")), "\u00DC") << version;
    std::string shown;
    EXPECT_EQ(WrittenDescription(WithLayer("AC1021", "ANSI_1252", "A"), "\u00DC\U0001F600", shown), "\u00DC\U0001F600");
    EXPECT_EQ(shown, "\u00DC\U0001F600");
    EXPECT_EQ(WrittenDescription(WithLayer("AC1018", "ANSI_1252", "A"), "\U0001F600", shown), "\\U+D83D\\U+DE00");
    EXPECT_EQ(shown, "\U0001F600");
}

TEST(LayerEditText, EscapesAreReadInEveryVersionAndBothCases)
{
    // clang-format off
    struct { char const * version; char const * page; char const * bytes; char const * name; } const rows[] = {
        { "AC1018", "ANSI_932",  "\\U+30EC\\U+30A4 1",            "\u30EC\u30A4 1"     },
        { "AC1018", "ANSI_1252", "ausgef\\U+00fcllt",             "ausgef\u00FCllt"    }, // lower-case digits
        { "AC1027", "ANSI_1252", "Tsch\u00FCss \\U+00FC",         "Tsch\u00FCss \u00FC" },
        { "AC1009", "",          "\\U+039B\xC4\xDC",              "\u039B\u00C4\u00DC" }, // beside bytes
        { "AC1018", "ANSI_936",  "\\M+5D7DF\\M+5CFDF\\M+5BCDC",   "\u8D70\u7EBF\u67B6" },
        { "AC1018", "ANSI_1252", "\\M+1955C",                     "\u8868"             },
        { "AC1018", "ANSI_936",  "\\M+5D7",                       "\\M+5D7"            }, // cut
        { "AC1018", "ANSI_936",  "\\M+6D7DF",                     "\\M+6D7DF"          }, // no code page
        { "AC1018", "ANSI_1252", "\\U+00G1",                      "\\U+00G1"           },
        { "AC1018", "ANSI_1252", "A^B|C",                         "A^B|C"              }, // names hold these as they are
        { "AC1018", "ANSI_932",  "\x95\x5CU+0041",                "\u8868U+0041"       }, // a second byte 5C is no backslash
        { "AC1018", "ANSI_950",  "\xA5\x5CU+0041",                "\u529FU+0041"       },
        { "AC1018", "ANSI_932",  "\x81\x7C",                      "\uFF0D"             }, // nor is 7C a bar
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(NameIn(WithLayer(row.version, row.page, row.bytes)), row.name) << row.bytes;
}

TEST(LayerEditText, ADescriptionReadsBackAsItWasGiven)
{
    // clang-format off
    struct { char const * page; char const * text; char const * bytes; } const rows[] = {
        { "ANSI_1252", "\\U+0041",        "\\U+005CU+0041"       }, // what looks like an escape is none
        { "ANSI_1252", "\\M+5D7DF",       "\\U+005CM+5D7DF"      },
        { "ANSI_1252", "C:\\Users",       "C:\\Users"            },
        { "ANSI_1252", "\\U+00G1",        "\\U+00G1"             },
        { "ANSI_932",  "\u8868U+0041",    "\x95\x5CU+0041"       },
        { "ANSI_1252", "a^b",             "a^ b"                 }, // control signs as caret and letter
        { "ANSI_1252", "a\tb\nc",         "a^Ib^Jc"              },
        { "ANSI_1252", "\u20AC \u03A9",   "\x80 \\U+03A9"        },
        { "ANSI_1252", "a=b",             "a=b"                  },
        { "ANSI_1252", "Text",            "Text"                 },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        std::string shown;
        EXPECT_EQ(WrittenDescription(WithLayer("AC1018", row.page, "A"), row.text, shown), row.bytes);
        std::string expected = row.text; // the list shows control signs on one line
        for (auto const & [sign, twoSigns] : {std::pair("\t", "^I"), std::pair("\n", "^J")})
            if (std::size_t const place = expected.find(sign); place != std::string::npos)
                expected.replace(place, 1, twoSigns);
        EXPECT_EQ(shown, expected);
    }
}

TEST(LayerEditText, TheEncodingOptionIsForDrawingsWithoutAWord)
{
    std::string const bytes = "\x95\x5C";
    MadeDrawing const without = WithLayer("", "", bytes);
    for (char const * const option : {"932", "ANSI_932", "ansi_932", "dos932"})
        EXPECT_EQ(NameIn(without, {"--encoding", option}), "\u8868") << option;
    EXPECT_EQ(NameIn(without), "\u2022\\");
    EXPECT_EQ(NameIn(WithLayer("AC1015", "ANSI_1252", bytes), {"--encoding", "932"}), "\u2022\\");
    EXPECT_EQ(NameIn(WithLayer("AC1015", "KLINGON", bytes), {"--encoding", "932"}), "\u8868");
    EXPECT_EQ(NameIn(WithLayer("AC1015", "ANSI_1200", bytes)), "\u2022\\"); // a word without bytes of its own
}

TEST(LayerEditText, AByteOrderMarkMeansUtf8InEveryVersionAndStays)
{
    Workshop workshop;
    MadeDrawing drawing = WithLayer("AC1015", "ANSI_1252", "\u00DC");
    std::string const bytes = "\xEF\xBB\xBF" + drawing.Get();
    workshop.Put("a.dxf", bytes);
    Called const called = workshop.Call({"a.dxf", "--all", "-s", "Color=3", "-o", "b.dxf"});
    EXPECT_EQ(called.errors, "a.dxf: R2000, UTF-8, 1 layer, current layer \"0\"\n"
                             "a.dxf: note: the drawing begins with a byte order mark, so its texts are read as UTF-8.\n"
                             "a.dxf: 1 of 1 layer changed\n");
    std::string expected = bytes;
    expected.replace(expected.find("     7\n"), 7, "     3\n");
    EXPECT_EQ(workshop.Get("b.dxf"), expected);
    EXPECT_NE(workshop.LayersOf("b.dxf").find("\n\u00DC\t3\t"), std::string::npos);
}

TEST(LayerEditText, PatternsMatchDecodedNamesInAnyCase)
{
    Workshop workshop;
    MadeDrawing drawing;
    drawing.layers = MadeDrawing::Layer("\xDC"
                                        "ber",
                                        "") +
                     MadeDrawing::Layer("\\U+00DCbel", "") + MadeDrawing::Layer("Ubel", "");
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(LinesOf(workshop.Call({"a.dxf", "-q", "-l", "\u00FCBE?"}).output).size(), 3u);
    EXPECT_EQ(LinesOf(workshop.Call({"a.dxf", "-q", "-l", "\u00FC*", "--not", "*L"}).output).size(), 2u);
}

TEST(LayerEditText, ArgumentsAreUtf8InEveryLocaleAndOtherwiseOfTheLocale)
{
    Workshop workshop;
    MadeDrawing drawing;
    drawing.layers = MadeDrawing::Layer("\xDC", "");
    workshop.Put("a.dxf", drawing.Get());
    for (char const * const locale : {"C.UTF-8", "de_DE.ISO-8859-1", "C"})
        EXPECT_EQ(workshop.Call({"a.dxf", "-q", "-l", "\u00DC"}, {{"LANG", locale}}).status, 0) << locale;
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "-l", "\xDC"}, {{"LANG", "de_DE.ISO-8859-1"}}).status, 0);
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "-l", "\xDC"}, {{"LANG", "ru_RU.CP1251"}}).status, 3);
}

TEST(LayerEditText, TheCurrentLayerIsFoundInAnotherSpelling)
{
    Workshop workshop;
    MadeDrawing drawing = WithLayer("AC1018", "ANSI_1252",
                                    "\xDC"
                                    "ber");
    drawing.currentLayer = "\\U+00DCBER";
    workshop.Put("a.dxf", drawing.Get());
    EXPECT_EQ(workshop.Call({"a.dxf", "--all", "-s", "Frozen=1"}).status, 4);
}

} // namespace kr::test
