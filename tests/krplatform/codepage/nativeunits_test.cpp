#include <krplatform/codepage/nativeunits.h>

#include <krplatform/codepage/codepage.h>

#include <gtest/gtest.h>

#include <string>

namespace kr::test
{

namespace
{

constexpr UINT s_pages[] = {874,  932,  936,  949,  950,  1250, 1251, 1252,  1253,  1254,
                            1255, 1256, 1257, 1258, 1361, 437,  850,  28591, 10000, CP_UTF8};

bool HasOneOrTwoBytes(UINT codePage, WCHAR unit)
{
    char bytes[2];
    BOOL usedDefault = FALSE;
    return WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, &unit, 1, bytes, 2, nullptr, &usedDefault) > 0 &&
           !usedDefault;
}

std::size_t CountNativeUnits(UINT codePage, WCHAR const * text)
{
    return kr::detail::CountNativeUnits(codePage, text, std::char_traits<WCHAR>::length(text));
}

} // namespace

TEST(CountNativeUnits, AnswersEachUnitOfEachCodePageAsItsConversionDoes)
{
    for (UINT const codePage : s_pages)
    {
        for (unsigned int number = 1; number < 0x10000; ++number)
        {
            auto const unit = static_cast<WCHAR>(number);
            std::size_t const expected = HasOneOrTwoBytes(codePage, unit) ? 1 : 0;
            ASSERT_EQ(kr::detail::CountNativeUnits(codePage, &unit, 1), expected)
                << codePage << ' ' << std::hex << number;
        }
    }
}

TEST(CountNativeUnits, CountsUpToTheFirstThatIsLacking)
{
    EXPECT_EQ(CountNativeUnits(1252, OLESTR("")), 0u);
    EXPECT_EQ(CountNativeUnits(1252, OLESTR("gr\u00FCn")), 4u);
    EXPECT_EQ(CountNativeUnits(1252, OLESTR("gr\u00FCn\u0141gelb")), 4u);
    EXPECT_EQ(CountNativeUnits(1252, OLESTR("\u0141")), 0u);
    EXPECT_EQ(CountNativeUnits(932, OLESTR("\u58C1 24 cm\u00FC")), 7u);
    EXPECT_EQ(CountNativeUnits(CP_UTF8, OLESTR("gr\u00FCn \u20AC")), 5u); // a form of three bytes is too long
}

TEST(CountNativeUnits, CountsNotMoreThanAskedForAndNothingBehindTheZero)
{
    for (UINT const codePage : {1252u, CP_UTF8, 1u})
    {
        EXPECT_EQ(kr::detail::CountNativeUnits(codePage, OLESTR("abc"), 2), 2u);
        EXPECT_EQ(kr::detail::CountNativeUnits(codePage, OLESTR("abc"), 0), 0u);
        EXPECT_EQ(kr::detail::CountNativeUnits(codePage, OLESTR("a\0b"), 3), 1u);
    }
}

TEST(CountNativeUnits, LeavesAsciiToAnUnknownCodePage) { EXPECT_EQ(CountNativeUnits(1, OLESTR("a\u007F\u0080")), 2u); }

TEST(CountNativeUnits, AsksForTheProcessCodePage)
{
    for (UINT const codePage : {CP_ACP, CP_THREAD_ACP})
        EXPECT_EQ(CountNativeUnits(codePage, OLESTR("\u07FF\u0800")), 1u); // the tests run in UTF-8
}

} // namespace kr::test
