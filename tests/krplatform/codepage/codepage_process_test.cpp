#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"
#include "tests/support/child_process.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <vector>

namespace kr::test
{

namespace
{

/// Sets variables of this process and puts them back.
class ProcessCodePage : public testing::Test
{
protected:
    ProcessCodePage()
    {
        for (auto & [name, value] : m_before)
        {
            if (char const * const text = std::getenv(name))
                value = text;
            unsetenv(name);
        }
    }

    ~ProcessCodePage() override
    {
        for (auto const & [name, value] : m_before)
            if (value)
                setenv(name, value->c_str(), 1);
            else
                unsetenv(name);
    }

private:
    std::map<char const *, std::optional<std::string>> m_before = {{"LC_ALL", {}}, {"LC_CTYPE", {}}, {"LANG", {}}};
};

void CheckUserLocaleRow(VectorRow const & row)
{
    if (row["function"] == "code page of CP_ACP")
        EXPECT_EQ(GetACP(), static_cast<UINT>(row.GetInteger("result")));
    else
        EXPECT_EQ(NarrowUnit(CP_ACP, WC_NO_BEST_FIT_CHARS, UnitsOfHex(row["argument"])[0]), row["result"]);
}

bool IsOfCodePages(VectorRow const & row)
{
    return row["function"] == "code page of CP_ACP" || row["function"] == "WideCharToMultiByte CP_ACP exact";
}

} // namespace

TEST_F(ProcessCodePage, IsThatOfTheCodeset)
{
    struct Row
    {
        char const * locale;
        UINT codePage;
    };
    // clang-format off
    Row const rows[] = {
        { "de_DE.UTF-8",           65001 },
        { "C.UTF-8",               65001 },
        { "en_US.utf8",            65001 },
        { "de_DE.ISO-8859-1",       1252 },
        { "de_DE.iso88591",         1252 },
        { "de_DE.ISO-8859-15@euro", 1252 },
        { "ru_RU.CP1252",           1252 },
        { "ru_RU.IBM-932",           932 },
        { "de_DE.windows-1251",     1251 },
        { "C.ANSI_X3.4-1968",       1252 },
        { "pl_PL.ISO-8859-2",       1250 },
        { "ru_RU.ISO-8859-5",       1251 },
        { "ru_RU.KOI8-R",           1251 },
        { "uk_UA.KOI8-U",           1251 },
        { "el_GR.ISO-8859-7",       1253 },
        { "tr_TR.ISO-8859-9",       1254 },
        { "he_IL.ISO-8859-8",       1255 },
        { "ar_EG.ISO-8859-6",       1256 },
        { "lt_LT.ISO-8859-13",      1257 },
        { "vi_VN.TCVN",             1258 },
        { "th_TH.TIS-620",           874 },
        { "ja_JP.SJIS",              932 },
        { "ja_JP.eucJP",             932 },
        { "zh_CN.GBK",               936 },
        { "zh_CN.GB2312",            936 },
        { "zh_CN.GB18030",           936 },
        { "ko_KR.eucKR",             949 },
        { "ko_KR.JOHAB",            1361 },
        { "zh_TW.BIG5",              950 },
        { "zh_HK.Big5-HKSCS",        950 },
        { "de_DE.CP932",             932 },
        { "ru_RU.CP866",            1251 },  // no ANSI page: that of the language
        { "de_DE.unheard-of",       1252 },
        { "ja_JP.",                  932 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        setenv("LC_ALL", row.locale, 1);
        EXPECT_EQ(GetACP(), row.codePage) << row.locale;
    }
}

TEST_F(ProcessCodePage, IsThatOfTheLanguageWithoutACodeset)
{
    struct Row
    {
        char const * locale;
        UINT codePage;
    };
    // clang-format off
    Row const rows[] = {
        { "C",              1252 }, { "POSIX",          1252 }, { "en_US",          1252 }, { "de_DE@euro",     1252 },
        { "cs_CZ",          1250 }, { "hu",             1250 }, { "pl_PL",          1250 }, { "ro_RO",          1250 },
        { "bg_BG",          1251 }, { "ru_RU",          1251 }, { "uk_UA",          1251 }, { "kk_KZ",          1251 },
        { "sr_RS",          1251 }, { "sr_RS@latin",    1250 }, { "uz_UZ",          1254 }, { "uz_UZ@cyrillic", 1251 },
        { "el_GR",          1253 }, { "tr_TR",          1254 }, { "he_IL",          1255 }, { "fa_IR",          1256 },
        { "pa_PK",          1256 }, { "pa_IN",         65001 }, { "et_EE",          1257 }, { "vi_VN",          1258 },
        { "th_TH",           874 }, { "ja_JP",           932 }, { "zh_CN",           936 }, { "zh_SG",           936 },
        { "zh_TW",           950 }, { "zh_HK",           950 }, { "ko_KR",           949 }, { "hi_IN",         65001 },
        { "xx_XX",          1252 }, { "ja",              932 }, { "jam_JM",         1252 },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        setenv("LC_ALL", row.locale, 1);
        EXPECT_EQ(GetACP(), row.codePage) << row.locale;
    }
}

TEST_F(ProcessCodePage, IsThatOfTheScriptOfEachLanguage)
{
    struct Row
    {
        UINT codePage;
        std::vector<char const *> languages;
    };
    // clang-format off
    Row const rows[] = {
        {   932, { "ja" } },
        {   936, { "zh", "cmn_CN" } },
        {   949, { "ko" } },
        {   950, { "zh_TW", "zh_HK", "zh_MO", "yue", "nan", "cmn_TW" } },
        {   874, { "th" } },
        {  1250, { "bs", "cs", "csb", "hr", "hu", "pl", "ro", "sk", "sl", "sq", "szl", "tk", "sr@latin", "be@latin" } },
        {  1251, { "ba", "be", "bg", "ce", "cv", "kk", "ky", "mhr", "mk", "mn", "os", "ru", "rue", "sah", "sr", "tg", "tt", "uk",
                   "az@cyrillic", "bs@cyrillic", "uz@cyrillic" } },
        {  1252, { "de", "en", "fr", "is", "sv" } },
        {  1253, { "el" } },
        {  1254, { "az", "crh", "ku", "tr", "uz", "tt@iqtelif" } },
        {  1255, { "he", "iw", "yi" } },
        {  1256, { "ar", "ckb", "fa", "ks", "pa_PK", "ps", "sd", "ug", "ur" } },
        {  1257, { "et", "lt", "ltg", "lv", "sgs" } },
        {  1258, { "vi" } },
        { 65001, { "am", "as", "bn", "bo", "dv", "dz", "gu", "hi", "hy", "ka", "km", "kn", "kok", "lo", "mi", "ml", "mr", "mt", "my", "ne",
                   "or", "pa", "sa", "si", "ta", "te", "ti", "ks@devanagari", "sd@devanagari" } },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        for (char const * const language : row.languages)
        {
            setenv("LC_ALL", language, 1);
            EXPECT_EQ(GetACP(), row.codePage) << language;
        }
    }
}

TEST_F(ProcessCodePage, TakesTheFirstVariableThatIsSetAndNotEmpty)
{
    EXPECT_EQ(GetACP(), 1252u);
    setenv("LANG", "ru_RU", 1);
    EXPECT_EQ(GetACP(), 1251u);
    setenv("LC_CTYPE", "ja_JP", 1);
    EXPECT_EQ(GetACP(), 932u);
    setenv("LC_ALL", "el_GR", 1);
    EXPECT_EQ(GetACP(), 1253u);
    setenv("LC_ALL", "", 1);
    EXPECT_EQ(GetACP(), 932u);
    unsetenv("LC_CTYPE");
    EXPECT_EQ(GetACP(), 1251u);
    unsetenv("LANG");
    EXPECT_EQ(GetACP(), 1252u);
}

TEST_F(ProcessCodePage, FollowsAnEnvironmentThatComesBack)
{
    for (int round = 0; round < 3; ++round)
    {
        setenv("LC_ALL", "ja_JP", 1);
        EXPECT_EQ(GetACP(), 932u);
        setenv("LC_ALL", "ko_KR", 1);
        EXPECT_EQ(GetACP(), 949u);
        EXPECT_EQ(GetACP(), 949u);
    }
}

TEST_F(ProcessCodePage, FollowsATextThatIsWrittenOver)
{
    char variable[] = "LC_ALL=ja_JP";
    putenv(variable);
    EXPECT_EQ(GetACP(), 932u);
    variable[7] = 'k';
    variable[8] = 'o';
    EXPECT_EQ(GetACP(), 949u);
    unsetenv("LC_ALL");
}

TEST_F(ProcessCodePage, FollowsAnEmptyTextThatIsWrittenOver)
{
    char variable[] = "LC_ALL=\0\0\0\0\0";
    putenv(variable);
    EXPECT_EQ(GetACP(), 1252u);
    setenv("LANG", "ru_RU", 1);
    EXPECT_EQ(GetACP(), 1251u);
    std::copy_n("ja_JP", 5, variable + 7);
    EXPECT_EQ(GetACP(), 932u);
    unsetenv("LC_ALL");
}

TEST_F(ProcessCodePage, TellsNamesApartThatBeginAlike)
{
    std::string const longBeginning = "de_DE." + std::string(25, '-'); // as long as any name that is remembered
    struct Row
    {
        std::string locale;
        UINT codePage;
    };
    Row const rows[] = {
        {"ja_JP.UTF-8", 65001},
        {"ja_JP", 932},
        {"ja_JP.UTF-8", 65001},
        {longBeginning + "UTF-8", 65001},
        {longBeginning, 1252},
        {longBeginning + "-", 1252},
        {longBeginning + "UTF-8", 65001},
        {longBeginning + "SJIS", 932},
        {longBeginning, 1252},
    };
    for (Row const & row : rows)
    {
        setenv("LC_ALL", row.locale.c_str(), 1);
        EXPECT_EQ(GetACP(), row.codePage) << row.locale;
        EXPECT_EQ(GetACP(), row.codePage) << row.locale;
    }
}

TEST_F(ProcessCodePage, KeepsNothingOfEnvironmentsThatWere)
{
    std::size_t const before = AllAllocations();
    for (char const * const name : {"ja_JP", "ko_KR", "el_GR", "ja_JP", "th_TH"})
    {
        setenv("LC_ALL", name, 1);
        GetACP();
    }
    EXPECT_EQ(AllAllocations(), before);
}

TEST_F(ProcessCodePage, StandsBehindTheNumbersForIt)
{
    WCHAR const unit = 0x3042;
    setenv("LC_ALL", "ja_JP", 1);
    for (UINT const codePage : {CP_ACP, CP_THREAD_ACP})
    {
        EXPECT_EQ(NarrowUnit(codePage, 0, unit), "82A0");
        EXPECT_EQ(WidenToUnit(codePage, 0, "\x82\xA0"), "3042");
    }
    setenv("LC_ALL", "ja_JP.UTF-8", 1);
    for (UINT const codePage : {CP_ACP, CP_THREAD_ACP})
    {
        EXPECT_EQ(NarrowUnit(codePage, 0, unit), "E38182");
        EXPECT_EQ(WidenToUnit(codePage, 0, "\xE3\x81\x82"), "3042");
    }
}

TEST(ProcessCodePageFromItsStart, DISABLED_UnderOneEnvironment)
{
    char const * const environment = std::getenv("LC_ALL");
    VectorFile const file("user_locale");
    for (VectorRow const & row : file.GetRows())
        if (IsOfCodePages(row) && row["environment"] == environment)
        {
            SCOPED_TRACE(row.ToString());
            CheckUserLocaleRow(row);
        }
}

TEST(ProcessCodePageFromItsStart, AnswersAsThePlatformUnderEachEnvironment)
{
    std::set<std::string> environments;
    VectorFile const file("user_locale");
    for (VectorRow const & row : file.GetRows())
        if (IsOfCodePages(row))
            environments.insert(row["environment"]);
    EXPECT_EQ(environments.size(), 6u);
    for (std::string const & environment : environments)
    {
        ChildResult const child =
            RunTestInChild("ProcessCodePageFromItsStart.DISABLED_UnderOneEnvironment",
                           {{"LC_ALL", environment}, {"LC_CTYPE", "el_GR.UTF-8"}, {"LANG", "th_TH"}});
        EXPECT_EQ(child.exitStatus, 0) << environment << "\n" << child.output;
    }
}

TEST(ProcessCodePageFromItsStart, DISABLED_WithoutAnyVariables)
{
    clearenv();
    EXPECT_EQ(GetACP(), 1252u);
    EXPECT_EQ(GetACP(), 1252u);
    setenv("LANG", "ja_JP", 1);
    EXPECT_EQ(GetACP(), 932u);
}

TEST(ProcessCodePageFromItsStart, IsTheWesternOneWithoutAnyVariables)
{
    ChildResult const child =
        RunTestInChild("ProcessCodePageFromItsStart.DISABLED_WithoutAnyVariables", {{"LC_ALL", "ko_KR"}});
    EXPECT_EQ(child.exitStatus, 0) << child.output;
}

} // namespace kr::test
