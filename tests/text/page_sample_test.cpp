// The samples of docs/text.md and of the headers.
#include <krcore/text/krbuffer.h>
#include <krcore/text/krcharformatter.h>
#include <krcore/text/krmultilanguagetext.h>
#include <krcore/text/krstringparser.h>

#include "tests/support/child_process.h"

#include <gtest/gtest.h>

#include <string>

TEST(TextPage, SampleGivesWhatItSays)
{
    std::vector<CString> layers;
    CKrStringParser::Split(OLESTR("A-WALL,,A-DOOR"), OLESTR(","), layers);
    EXPECT_EQ(layers, (std::vector<CString>{OLESTR("A-WALL"), CString(), OLESTR("A-DOOR")}));
    EXPECT_EQ(CKrStringParser::JoinSkipEmpty(OLESTR(";"), layers), OLESTR("A-WALL;A-DOOR"));

    CKrStringParser frozen(OLESTR("b;a;a"), OLESTR(";"), CKrStringParser::eParserTypeString);
    EXPECT_EQ(frozen.Difference(OLESTR("a"), CString()).Join(CString()), OLESTR("a;b"));

    WCHAR text[8];
    EXPECT_EQ(CKrCharFormatter::WcharFromCIFMIF(OLESTR("\\U+00E4\\M+19286"), text, 8), 3);
    EXPECT_EQ(CString(text), OLESTR("\u00E4\u4E2D"));

    char bytes[16];
    int count = 16;
    EXPECT_EQ(CKrCharFormatter::WcharNonNativeToRTF(932, OLESTR("5 \u20AC"), -1, bytes, &count), 3);
    EXPECT_STREQ(bytes, "5 \\u8364?");
    EXPECT_EQ(count, 10);

    CKrMultiLanguageText name;
    name.AddLanguageText(OLESTR("en"), OLESTR("wall"));
    name.SetRefLanguage(OLESTR("en"));
    name.m_bUseRefTextForMissingLanguage = true;
    EXPECT_EQ(name.GetLanguageText(OLESTR("FR")), OLESTR("wall"));
}

TEST(TextPage, SamplesOfTheHeadersGiveWhatTheySay)
{
    EXPECT_EQ(CKrStringParser(OLESTR("1,5;2.5"), OLESTR(";"), CKrStringParser::eParserTypeDouble).Join(CString()),
              OLESTR("1.5;2.5"));
    EXPECT_EQ(CKrStringParser(OLESTR("b;a;a"), OLESTR(";"), CKrStringParser::eParserTypeString)
                  .Union(OLESTR("a;c"), CString())
                  .Join(CString()),
              OLESTR("a;a;b;c"));

    EXPECT_EQ(CKrRawBuffer(16).BufLength(), 16u);
    CKrRawBuffer buffer;
    buffer.Alloc(1);
    EXPECT_EQ(buffer.BufSize(), 256u);

    CStringA text;
    {
        CKrBufferCStringA lent(text, 10);
        std::string("layer").copy(lent.Get(), 6);
        lent.Get()[5] = 0;
        lent.SetLength();
    }
    EXPECT_TRUE(text == "layer");

    CKrMultiLanguageText wall;
    wall.AddLanguageText(OLESTR("de"), OLESTR("Wand"));
    wall.SetRefLanguage(OLESTR("DE"));
    wall.m_bUseRefTextForMissingLanguage = true;
    EXPECT_EQ(wall.GetLanguageText(OLESTR("fr")), OLESTR("Wand"));
}

TEST(TextPage, DISABLED_SampleOfACharacter)
{
    char bytes[7];
    EXPECT_EQ(CKrCharFormatter(CKrCharFormatter::eCharFormatAnsi, true, true).WcharToBytes(0x20AC, bytes, 7), 1u);
    EXPECT_EQ(bytes[0], '\x80');
}

TEST(TextPage, SampleOfACharacterGivesWhatItSays)
{
    kr::test::ChildResult const child =
        kr::test::RunTestInChild("TextPage.DISABLED_SampleOfACharacter", {{"LC_ALL", "de_DE.ISO-8859-1"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}
