// The samples of the headers.
#include <krcore/text/krbuffer.h>
#include <krcore/text/krcharformatter.h>
#include <krcore/text/krmultilanguagetext.h>
#include <krcore/text/krstringparser.h>

#include "tests/support/child_process.h"

#include <gtest/gtest.h>

#include <string>

TEST(TextHeaders, SamplesOfTheHeadersGiveWhatTheySay)
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

TEST(TextHeaders, DISABLED_SampleOfACharacter)
{
    char bytes[7];
    EXPECT_EQ(CKrCharFormatter(CKrCharFormatter::eCharFormatAnsi, true, true).WcharToBytes(0x20AC, bytes, 7), 1u);
    EXPECT_EQ(bytes[0], '\x80');
}

TEST(TextHeaders, SampleOfACharacterGivesWhatItSays)
{
    kr::test::ChildResult const child =
        kr::test::RunTestInChild("TextHeaders.DISABLED_SampleOfACharacter", {{"LC_ALL", "de_DE.ISO-8859-1"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}
