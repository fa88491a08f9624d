#include <krplatform/automation/variant.h>
#include <krplatform/text/cstring.h>

#include "tests/krplatform/text/failures.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace
{

template <class... Arguments>
CString Formatted(WCHAR const * format, Arguments const &... arguments)
{
    CString text;
    text.Format(format, arguments...);
    return text;
}

CString FormattedV(WCHAR const * format, ...)
{
    CString text;
    va_list arguments;
    va_start(arguments, format);
    text.FormatV(format, arguments);
    va_end(arguments);
    return text;
}

template <class Value>
constexpr bool s_isFormattable = requires(CString & text, Value const & value)
{
    text.Format(OLESTR(""), value);
};

static_assert(s_isFormattable<CString> && s_isFormattable<CStringA> && s_isFormattable<void *>);
static_assert(s_isFormattable<wchar_t> && s_isFormattable<char[3]> && s_isFormattable<std::nullptr_t>);
static_assert(!s_isFormattable<wchar_t const *> && !s_isFormattable<wchar_t[3]>, "wider than a code unit");
static_assert(!s_isFormattable<std::string> && !s_isFormattable<VARIANT>, "objects that are no text");

enum Colour
{
    eRed = 7
};

} // namespace

TEST(CStringFormat, WritesTextAndNumbers)
{
    EXPECT_EQ(Formatted(OLESTR("")), OLESTR(""));
    EXPECT_EQ(Formatted(OLESTR("plain text")), OLESTR("plain text"));
    EXPECT_EQ(Formatted(OLESTR("100%%")), OLESTR("100%"));
    EXPECT_EQ(Formatted(OLESTR("%s(%ld): "), CString(OLESTR("wall.cpp")), 12L), OLESTR("wall.cpp(12): "));
    EXPECT_EQ(Formatted(OLESTR("%s-%-30s(%ld): \t"), OLESTR("t"), OLESTR("krerror"), 7L),
              OLESTR("t-krerror                       (7): \t"));
    EXPECT_EQ(Formatted(OLESTR("#%02x%02x%02x"), 255, 128, 0), OLESTR("#ff8000"));
    EXPECT_EQ(Formatted(OLESTR("0x%0lX"), LONG(0x80040200)), OLESTR("0x80040200"));
    EXPECT_EQ(Formatted(OLESTR("%s: %05.2f"), CString(OLESTR("walls")), 2.5), OLESTR("walls: 02.50"));
    EXPECT_EQ(Formatted(OLESTR("%d"), eRed), OLESTR("7"));
    EXPECT_EQ(Formatted(OLESTR("%d %d"), true, short{-5}), OLESTR("1 -5"));
}

TEST(CStringFormat, TakesTextInAllItsForms)
{
    WCHAR buffer[10] = OLESTR("buffer");
    WCHAR * const pointer = buffer;
    EXPECT_EQ(Formatted(OLESTR("%s|%s|%s"), buffer, pointer, OLESTR("literal")), OLESTR("buffer|buffer|literal"));
    EXPECT_EQ(Formatted(OLESTR("%S|%hs|%ls|%ws"), "other", "narrow", OLESTR("wide"), OLESTR("wide")),
              OLESTR("other|narrow|wide|wide"));
    EXPECT_EQ(Formatted(OLESTR("%hS|%lS"), "narrow", OLESTR("wide")), OLESTR("narrow|wide"));
    EXPECT_EQ(Formatted(OLESTR("%S"), CStringA("narrow")), OLESTR("narrow"));

    CStringA narrow;
    narrow.Format("%s|%S|%ls|%hs", "own", OLESTR("other"), CString(OLESTR("wide")), "narrow");
    EXPECT_EQ(narrow, "own|other|wide|narrow");
}

TEST(CStringFormat, WritesAWordForANullText)
{
    WCHAR const * const noText = nullptr;
    char const * const noNarrowText = nullptr;
    EXPECT_EQ(Formatted(OLESTR("%s|%S|%9s|%.3s"), noText, noNarrowText, noText, noText),
              OLESTR("(null)|(null)|   (null)|(nu"));
    EXPECT_EQ(Formatted(OLESTR("%s"), nullptr), OLESTR("(null)"));
    EXPECT_EQ(FormattedV(OLESTR("%s|%S"), noText, noNarrowText), OLESTR("(null)|(null)"));
}

TEST(CStringFormat, CutsTextAtThePrecisionAndLooksNoFurther)
{
    WCHAR const noTerminator[] = {OLESTR('a'), OLESTR('b'), OLESTR('c')};
    char const noNarrowTerminator[] = {'a', 'b', 'c'};
    EXPECT_EQ(Formatted(OLESTR("%.3s|%5.2s|%-5.1s|%.0s|%.s|%.9s"), static_cast<WCHAR const *>(noTerminator),
                        OLESTR("abc"), OLESTR("abc"), OLESTR("abc"), OLESTR("abc"), OLESTR("abc")),
              OLESTR("abc|   ab|a    ||"
                     "|abc"));
    EXPECT_EQ(Formatted(OLESTR("%.3S"), static_cast<char const *>(noNarrowTerminator)), OLESTR("abc"));
}

TEST(CStringFormat, FillsTextWithZerosToo)
{
    EXPECT_EQ(Formatted(OLESTR("%05s|%-05s|%03c"), OLESTR("ab"), OLESTR("ab"), OLESTR('c')), OLESTR("000ab|ab   |00c"));
}

TEST(CStringFormat, WritesCharacters)
{
    EXPECT_EQ(Formatted(OLESTR("%c%C%hc%lc|%3c|%-3c|"), OLESTR('a'), 'b', 'c', OLESTR('\u20AC'), 'd', 'e'),
              OLESTR("abc\u20AC|  d|e  |"));
    CString const zero = Formatted(OLESTR("a%cb"), 0);
    ASSERT_EQ(zero.GetLength(), 3);
    EXPECT_EQ(zero[1], 0);
    EXPECT_EQ(zero[2], OLESTR('b'));
}

TEST(CStringFormat, TakesWidthAndPrecisionFromArguments)
{
    EXPECT_EQ(Formatted(OLESTR("%*d|%-*d|%*d"), 4, 1, 4, 2, -4, 3), OLESTR("   1|2   |3   "));
    EXPECT_EQ(Formatted(OLESTR("%.*f|%.*f|%.*s"), 1, 2.55, -1, 2.5, 2, OLESTR("abc")), OLESTR("2.5|2.500000|ab"));
    EXPECT_EQ(FormattedV(OLESTR("%*.*f"), 8, 2, 3.14159), OLESTR("    3.14"));
}

TEST(CStringFormat, ReadsIntegersInTheSizeThatIsWritten)
{
    // clang-format off
    EXPECT_EQ(Formatted(OLESTR("%hhd %hd %d"),        300, 70000, 5'000'000'000),  OLESTR("44 4464 705032704"));
    EXPECT_EQ(Formatted(OLESTR("%hhu %hu %u"),        -1, -1, -1),                 OLESTR("255 65535 4294967295"));
    EXPECT_EQ(Formatted(OLESTR("%ld %lld %I64d"),     LONG_MIN, LLONG_MAX, LLONG_MIN),
              OLESTR("-9223372036854775808 9223372036854775807 -9223372036854775808"));
    EXPECT_EQ(Formatted(OLESTR("%I32d %Id %zu %td %jd"), -5, -6L, std::size_t{7}, std::ptrdiff_t{-8}, std::intmax_t{9}),
              OLESTR("-5 -6 7 -8 9"));
    EXPECT_EQ(Formatted(OLESTR("%lx %lX %lu"),        -1L, -1, -1),  // an int keeps its own size
              OLESTR("ffffffffffffffff FFFFFFFF 4294967295"));
    EXPECT_EQ(Formatted(OLESTR("%d %d"),              INT_MIN, INT_MAX),           OLESTR("-2147483648 2147483647"));
    // clang-format on
    EXPECT_EQ(FormattedV(OLESTR("%d %ld %lld %hd %zu %I64u"), -1, -2L, -3LL, 70000, std::size_t{4}, ~0ULL),
              OLESTR("-1 -2 -3 4464 4 18446744073709551615"));
}

TEST(CStringFormat, WritesAnAddressInSixteenDigits)
{
    EXPECT_EQ(Formatted(OLESTR("%p"), reinterpret_cast<void *>(0xABC12)), OLESTR("00000000000ABC12"));
    EXPECT_EQ(Formatted(OLESTR("%p|%18p|%-18p|"), nullptr, nullptr, nullptr),
              OLESTR("0000000000000000|  0000000000000000|0000000000000000  |"));
    EXPECT_EQ(FormattedV(OLESTR("%p %d"), reinterpret_cast<void *>(0xABC12), 7), OLESTR("00000000000ABC12 7"));
}

TEST(CStringFormat, WritesWhatIsNoNumberAsTheRuntimeDoes)
{
    double const infinity = std::numeric_limits<double>::infinity();
    double const notANumber = std::numeric_limits<double>::quiet_NaN();
    double const signalling = std::numeric_limits<double>::signaling_NaN();
    // clang-format off
    EXPECT_EQ(Formatted(OLESTR("%f %e %g %a"), infinity, infinity, infinity, infinity), OLESTR("inf inf inf inf"));
    EXPECT_EQ(Formatted(OLESTR("%F %E %G %A"), infinity, infinity, infinity, infinity), OLESTR("INF INF INF INF"));
    EXPECT_EQ(Formatted(OLESTR("%f %+f % f"),  -infinity, infinity, infinity),          OLESTR("-inf +inf  inf"));
    EXPECT_EQ(Formatted(OLESTR("%f %f %F"),    notANumber, -notANumber, -notANumber),   OLESTR("nan -nan(ind) -NAN(IND)"));
    EXPECT_EQ(Formatted(OLESTR("%f %f"),       signalling, -signalling),                OLESTR("nan(snan) -nan(snan)"));
    EXPECT_EQ(Formatted(OLESTR("%E %G"),       notANumber, -signalling),                OLESTR("NAN -NAN(SNAN)"));
    EXPECT_EQ(Formatted(OLESTR("%06f|%-6f|%.1f"), infinity, infinity, infinity),        OLESTR("   inf|inf   |inf"));
    // clang-format on
}

TEST(CStringFormat, WritesThirteenHexadecimalDigitsWithoutAPrecision)
{
    EXPECT_EQ(Formatted(OLESTR("%a %a %A"), 1.0, -0.0, 0.1),
              OLESTR("0x1.0000000000000p+0 -0x0.0000000000000p+0 0X1.999999999999AP-4"));
    EXPECT_EQ(Formatted(OLESTR("%a"), DBL_TRUE_MIN), OLESTR("0x0.0000000000001p-1022"));
    EXPECT_EQ(Formatted(OLESTR("%a"), DBL_MAX), OLESTR("0x1.fffffffffffffp+1023"));
}

TEST(CStringFormat, RoundsCorrectlyAtAnyPrecision)
{
    EXPECT_EQ(Formatted(OLESTR("%.0f %.0f %.0f %.1f"), 0.5, 1.5, 2.5, 0.25), OLESTR("0 2 2 0.2"));
    EXPECT_EQ(Formatted(OLESTR("%.30f"), 0.1), OLESTR("0.100000000000000005551115123126"));
    EXPECT_EQ(Formatted(OLESTR("%.17g %.17g"), 0.1, 1e23), OLESTR("0.10000000000000001 9.9999999999999992e+22"));
    EXPECT_EQ(Formatted(OLESTR("%e %.2E"), 1e-5, 1e300), OLESTR("1.000000e-05 1.00E+300"));
    EXPECT_EQ(Formatted(OLESTR("%f"), 1e300).GetLength(), 308);
    EXPECT_EQ(Formatted(OLESTR("%#g %g"), 999999.5, 999999.5), OLESTR("1.00000e+06 1e+06"));
}

TEST(CStringFormat, FollowsNoLocaleOfTheCLibrary)
{
    for (char const * const name : {"de_DE.UTF-8", "de_DE", "fr_FR.UTF-8"})
        std::setlocale(LC_ALL, name); // where one of them is installed
    EXPECT_EQ(Formatted(OLESTR("%.2f %g"), 1234.5, 0.5), OLESTR("1234.50 0.5"));
    std::setlocale(LC_ALL, "C");
}

TEST(CStringFormat, TakesLongDoubleAsDouble)
{
    EXPECT_EQ(Formatted(OLESTR("%Lf %lf %f"), 2.5L, 2.5, 2.5f), OLESTR("2.500000 2.500000 2.500000"));
    EXPECT_EQ(FormattedV(OLESTR("%.1Lf %d"), 2.5L, 7), OLESTR("2.5 7"));
}

TEST(CStringFormat, TakesItsOwnTextAsArgumentAndFormat)
{
    CString text(OLESTR("ab"));
    text.Format(OLESTR("%s%s"), text, text);
    EXPECT_EQ(text, OLESTR("abab"));
    text = OLESTR("<%s>");
    text.Format(text, text);
    EXPECT_EQ(text, OLESTR("<<%s>>"));
    text.AppendFormat(OLESTR("%s%d"), text, 1);
    EXPECT_EQ(text, OLESTR("<<%s>><<%s>>1"));
}

TEST(CStringFormat, WritesTextOfAnyLength)
{
    CString const longText(OLESTR('x'), 5000);
    CString text = Formatted(OLESTR("[%s%s]"), longText, longText);
    EXPECT_EQ(text.GetLength(), 10'002);
    text.Format(OLESTR("%3000d|%.3000d"), 7, 7);
    EXPECT_EQ(text.GetLength(), 6001);
    EXPECT_EQ(text.TrimLeft().Left(2), OLESTR("7|"));
    text.Format(OLESTR("%.2000e"), 1.0);
    EXPECT_EQ(text.GetLength(), 2006);
    EXPECT_EQ(text.Right(5), OLESTR("0e+00"));
    text.Format(OLESTR("%#.2000g"), 1.0);
    EXPECT_EQ(text.GetLength(), 2001);
}

TEST(CStringFormat, RefusesWhatIsNoFormatAndKeepsTheText)
{
    CString text(OLESTR("old"));
    for (WCHAR const * const format :
         {OLESTR("%n"), OLESTR("%"), OLESTR("%y"), OLESTR("%5"), OLESTR("%l"), OLESTR("%-"), OLESTR("%.3"),
          OLESTR("%5%"), OLESTR("%1$d"), OLESTR("%Ld"), OLESTR("%wd"), OLESTR("%hf"), OLESTR("%lls"), OLESTR("%lp"),
          OLESTR("%2000000000d"), OLESTR("%.99999999999999999999d"), static_cast<WCHAR const *>(nullptr)})
    {
        SCOPED_TRACE(kr::test::Narrow(format));
        EXPECT_EQ(ThrownResult([&] { text.Format(format, 1, 1); }), E_INVALIDARG);
        EXPECT_EQ(ThrownResult([&] { text.AppendFormat(format, 1, 1); }), E_INVALIDARG);
        EXPECT_EQ(text, OLESTR("old"));
    }
}

TEST(CStringFormat, RefusesArgumentsThatAreMissingOrDoNotFit)
{
    CString text(OLESTR("old"));
    // clang-format off
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%d %d"), 1); }),                   E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%*d"), 1); }),                     E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%*d"), 1.0, 1); }),                E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%*d"), 5'000'000'000, 1); }),      E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%*d"), -5'000'000'000, 1); }),     E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%d"), 1.0); }),                    E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%d"), OLESTR("1")); }),            E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%f"), 1); }),                      E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%s"), 1); }),                      E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%s"), "narrow"); }),               E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%S"), OLESTR("wide")); }),         E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%s"), static_cast<void *>(&text)); }), E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%c"), OLESTR("a")); }),            E_INVALIDARG);
    EXPECT_EQ(ThrownResult([&] { text.Format(OLESTR("%p"), 1); }),                      E_INVALIDARG);
    // clang-format on
    EXPECT_EQ(text, OLESTR("old"));
    text.Format(OLESTR("%d"), 1, 2, 3);
    EXPECT_EQ(text, OLESTR("1")) << "more than are asked for are not looked at";
}

TEST(CStringFormat, ReadsNothingBehindTheEndOfTheFormat)
{
    auto const page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void * const pages = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    auto * const end = static_cast<char *>(pages) + page;
    ASSERT_EQ(mprotect(end, page, PROT_NONE), 0);
    std::memcpy(end - 3, "%X", 3);
    CStringA narrow;
    narrow.Format(end - 3, 255u);
    EXPECT_EQ(narrow, "FF");
    std::memcpy(end - 6, OLESTR("%X"), 6);
    CString wide;
    wide.Format(reinterpret_cast<WCHAR const *>(end - 6), 255u);
    EXPECT_EQ(wide, OLESTR("FF"));
    munmap(pages, 2 * page);
}
