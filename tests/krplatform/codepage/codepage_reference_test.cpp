// Whole code pages against the tables of others, character by character: ICU's converters, and for Johab the C library's.
#include <krplatform/codepage/codepage.h>

#include "tests/krplatform/codepage/bytes.h"

#include <gtest/gtest.h>
#include <iconv.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <functional>
#include <span>
#include <stdexcept>

namespace kr::test
{

namespace
{

/// A converter that stops at what it cannot convert.
class IcuPage
{
public:
    explicit IcuPage(char const * name)
    {
        UErrorCode status = U_ZERO_ERROR;
        m_converter = ucnv_open(name, &status);
        ucnv_setFromUCallBack(m_converter, UCNV_FROM_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        ucnv_setToUCallBack(m_converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
        if (U_FAILURE(status))
            throw std::runtime_error(name);
    }
    ~IcuPage() { ucnv_close(m_converter); }
    IcuPage(IcuPage const &) = delete;
    IcuPage & operator=(IcuPage const &) = delete;

    /// As `NarrowUnit` gives it.
    std::string Narrow(WCHAR unit, bool lookAlikes) const
    {
        UErrorCode status = U_ZERO_ERROR;
        char bytes[8];
        ucnv_setFallback(m_converter, lookAlikes);
        int const count = ucnv_fromUChars(m_converter, bytes, 8, &unit, 1, &status);
        bool const hasBytes = U_SUCCESS(status) && count > 0; // characters that are never shown become nothing
        return hasBytes ? HexOf({bytes, static_cast<std::size_t>(count)}) : "-";
    }

    /// As `WidenToUnit` gives it.
    std::string Widen(std::string_view bytes) const
    {
        UErrorCode status = U_ZERO_ERROR;
        WCHAR units[4];
        int const count = ucnv_toUChars(m_converter, units, 4, bytes.data(), static_cast<int>(bytes.size()), &status);
        return U_FAILURE(status) || count != 1 ? "-" : HexOf({units, 1});
    }

private:
    UConverter * m_converter;
};

/// The C library's converter between 16-bit units and a codeset.
class IconvPage
{
public:
    explicit IconvPage(char const * name)
        : m_narrow(iconv_open(name, "UTF-16LE")), m_widen(iconv_open("UTF-16LE", name))
    {
    }
    ~IconvPage()
    {
        iconv_close(m_narrow);
        iconv_close(m_widen);
    }
    IconvPage(IconvPage const &) = delete;
    IconvPage & operator=(IconvPage const &) = delete;

    std::string Narrow(WCHAR unit) const
    {
        std::string const bytes = Convert(m_narrow, {static_cast<char>(unit), static_cast<char>(unit >> 8)});
        return bytes.empty() ? "-" : HexOf(bytes);
    }

    std::string Widen(std::string_view bytes) const
    {
        std::string const unit = Convert(m_widen, std::string(bytes));
        return unit.size() != 2 ? "-" : HexOf(std::string{unit[1], unit[0]});
    }

private:
    /// Empty for what cannot be converted.
    static std::string Convert(iconv_t converter, std::string source)
    {
        char target[8];
        char * next = target;
        char * begin = source.data();
        std::size_t sourceLeft = source.size();
        std::size_t targetLeft = sizeof target;
        iconv(converter, nullptr, nullptr, nullptr, nullptr);
        bool const isConverted =
            iconv(converter, &begin, &sourceLeft, &next, &targetLeft) != static_cast<std::size_t>(-1);
        return isConverted ? std::string(target, next) : std::string();
    }

    iconv_t m_narrow;
    iconv_t m_widen;
};

/// Consecutive bytes or units of a page in which the platform differs from the other table.
struct Difference
{
    UINT codePage;
    unsigned first;
    unsigned last;
};

using Answer = std::function<std::string(unsigned)>;

/// Compares the answers for all numbers of 16 bits. Each difference that is known must be one.
void CompareAll(UINT codePage, Answer const & ours, Answer const & others, std::span<Difference const> differences)
{
    for (unsigned number = 0; number <= 0xFFFF; ++number)
    {
        bool const isKnown = std::any_of(differences.begin(), differences.end(),
                                         [&](Difference const & difference) {
                                             return difference.codePage == codePage && difference.first <= number &&
                                                    number <= difference.last;
                                         });
        if ((ours(number) == others(number)) == isKnown)
            ADD_FAILURE() << codePage << " " << std::hex << number << ": " << ours(number) << ", not "
                          << others(number);
    }
}

std::string BytesOfNumber(unsigned number)
{
    std::string bytes{static_cast<char>(number)};
    return number < 0x100 ? bytes : static_cast<char>(number >> 8) + bytes;
}

WCHAR UnitOfNumber(unsigned number) { return static_cast<WCHAR>(number); }

struct Page
{
    UINT codePage;
    char const * icuName;
};
// clang-format off
constexpr Page s_ansiPages[] = {
    {  874, "windows-874-2000"   }, {  932, "ibm-943_P15A-2003"  }, {  936, "windows-936-2000"   },
    {  949, "windows-949-2000"   }, {  950, "windows-950-2000"   }, { 1250, "ibm-5346_P100-1998" },
    { 1251, "ibm-5347_P100-1998" }, { 1252, "ibm-5348_P100-1997" }, { 1253, "ibm-5349_P100-1998" },
    { 1254, "ibm-5350_P100-1998" }, { 1255, "ibm-9447_P100-2002" }, { 1256, "ibm-9448_X100-2005" },
    { 1257, "ibm-9449_P100-2002" }, { 1258, "ibm-5354_P100-1998" },
};
constexpr Page s_otherPages[] = {
    {   437, "IBM437"      }, {   737, "cp737"       }, {   775, "IBM775"      }, {   850, "IBM850"      },
    {   852, "IBM852"      }, {   855, "IBM855"      }, {   857, "IBM857"      }, {   860, "IBM860"      },
    {   861, "IBM861"      }, {   863, "IBM863"      }, {   864, "IBM864"      }, {   865, "IBM865"      },
    {   866, "IBM866"      }, {   869, "IBM869"      }, { 10000, "macintosh"   }, { 28591, "ISO-8859-1"  },
    { 28592, "ISO-8859-2"  }, { 28593, "ISO-8859-3"  }, { 28594, "ISO-8859-4"  }, { 28595, "ISO-8859-5"  },
    { 28596, "ISO-8859-6"  }, { 28597, "ISO-8859-7"  }, { 28598, "ISO-8859-8"  }, { 28599, "ISO-8859-9"  },
    { 28603, "ISO-8859-13" }, { 28605, "ISO-8859-15" },
};
// clang-format on

} // namespace

TEST(CodePageReference, AnsiPagesDecodeAsIcuDoes)
{
    // clang-format off
    Difference const differences[] = {
        {  874, 0xDB, 0xDE }, {  874, 0xFC, 0xFF },                         // private units, invalid to the platform
        {  932, 0x1A, 0x1A }, {  932, 0x1C, 0x1C }, {  932, 0x7F, 0x7F },   // ICU has the control characters of IBM
        {  932, 0x80, 0x80 },
        {  936, 0xFF, 0xFF },
        {  949, 0xFF, 0xFF },
        {  950, 0xFF, 0xFF },
        { 1253, 0xAA, 0xAA },
        { 1255, 0xCA, 0xCA },
    };
    // clang-format on
    for (Page const & page : s_ansiPages)
    {
        IcuPage const icu(page.icuName);
        CompareAll(
            page.codePage,
            [&](unsigned number) { return WidenToUnit(page.codePage, MB_ERR_INVALID_CHARS, BytesOfNumber(number)); },
            [&](unsigned number) { return icu.Widen(BytesOfNumber(number)); }, differences);
    }
}

TEST(CodePageReference, AnsiPagesHaveTheExactUnitsThatIcuHas)
{
    // clang-format off
    Difference const differences[] = {
        {  932, 0x1A,   0x1A   }, {  932, 0x1C,   0x1C   }, {  932, 0x7F, 0x80 },
        {  932, 0xF86F, 0xF86F }, {  932, 0xF8F0, 0xF8F3 },
        { 1253, 0xAA,   0xAA   }, { 1253, 0xF8F9, 0xF8FB },
        { 1255, 0x05BA, 0x05BA }, { 1255, 0xF88D, 0xF896 },
        { 1257, 0xF8FC, 0xF8FD },
    };
    // clang-format on
    for (Page const & page : s_ansiPages)
    {
        IcuPage const icu(page.icuName);
        CompareAll(
            page.codePage,
            [&](unsigned number) { return NarrowUnit(page.codePage, WC_NO_BEST_FIT_CHARS, UnitOfNumber(number)); },
            [&](unsigned number) { return icu.Narrow(UnitOfNumber(number), false); }, differences);
    }
}

/// Of the other pages ICU knows full-width forms only.
TEST(CodePageReference, SomeAnsiPagesHaveTheLookAlikesThatIcuHas)
{
    // clang-format off
    Difference const differences[] = {
        { 1255, 0x00A4, 0x00A4 }, { 1255, 0x0191, 0x0191 }, { 1255, 0x05BA, 0x05BA }, { 1255, 0x203E, 0x203E },
        { 1255, 0xF88D, 0xF896 }, { 1255, 0xFF1F, 0xFF1F }, // what becomes a question mark has no look-alike
        { 1256, 0x00C0, 0x00C0 }, { 1256, 0x00C2, 0x00C2 }, { 1256, 0x00C7, 0x00CB }, { 1256, 0x00CE, 0x00CF },
        { 1256, 0x00D4, 0x00D4 }, { 1256, 0x00D9, 0x00D9 }, { 1256, 0x00DB, 0x00DC }, { 1256, 0x02CB, 0x02CB },
        { 1256, 0x066B, 0x066C }, { 1256, 0x06F0, 0x06F9 }, { 1256, 0x203E, 0x203E }, { 1256, 0xFE73, 0xFE73 },
        { 1256, 0xFF1F, 0xFF1F },
        { 1257, 0x203E, 0x203E }, { 1257, 0xF8FC, 0xF8FD }, { 1257, 0xFF1F, 0xFF1F },
        { 1258, 0xFF1F, 0xFF1F },
    };
    // clang-format on
    for (Page const & page : s_ansiPages)
    {
        bool const hasMore = page.codePage == 932 || (page.codePage >= 1250 && page.codePage <= 1254);
        if (hasMore)
            continue;
        IcuPage const icu(page.icuName);
        CompareAll(
            page.codePage, [&](unsigned number) { return NarrowUnit(page.codePage, 0, UnitOfNumber(number)); },
            [&](unsigned number) { return icu.Narrow(UnitOfNumber(number), true); }, differences);
    }
}

/// Up to 7F all pages of the platform are ASCII, whatever ICU has there.
TEST(CodePageReference, OtherPagesAreThoseOfIcuFromByte80On)
{
    for (Page const & page : s_otherPages)
    {
        IcuPage const icu(page.icuName);
        for (unsigned number = 0x80; number <= 0xFF; ++number)
        {
            std::string const byte = BytesOfNumber(number);
            std::string const unit = icu.Widen(byte);
            ASSERT_EQ(WidenToUnit(page.codePage, MB_ERR_INVALID_CHARS, byte), unit) << page.codePage;
            if (unit != "-" && unit != "066A") // in 864 the byte 25 too is this percent sign
            {
                ASSERT_EQ(NarrowUnit(page.codePage, WC_NO_BEST_FIT_CHARS, UnitsOfHex(unit)[0]), HexOf(byte));
            }
        }
    }
}

TEST(CodePageReference, JohabIsThatOfTheCLibraryButForItsLetters)
{
    // clang-format off
    Difference const bytes[] = {
        { 1361, 0x5C,   0x5C   },                           // the C library has the won sign
        { 1361, 0x80,   0x83   },
        { 1361, 0xD831, 0xD87E }, { 1361, 0xD891, 0xD8FE }, // private
        { 1361, 0xD9E8, 0xD9E8 },
        { 1361, 0x8442, 0x8451 }, { 1361, 0x8453, 0x845D }, // finals
        { 1361, 0x8461, 0x8461 }, { 1361, 0x8481, 0x8481 }, { 1361, 0x84A1, 0x84A1 }, { 1361, 0x84C1, 0x84C1 },
        { 1361, 0x84E1, 0x84E1 }, { 1361, 0x8541, 0x8541 }, { 1361, 0x8561, 0x8561 }, { 1361, 0x8581, 0x8581 },
        { 1361, 0x85A1, 0x85A1 }, { 1361, 0x85C1, 0x85C1 }, { 1361, 0x85E1, 0x85E1 }, { 1361, 0x8641, 0x8641 },
        { 1361, 0x8661, 0x8661 }, { 1361, 0x8681, 0x8681 }, { 1361, 0x86A1, 0x86A1 }, { 1361, 0x86C1, 0x86C1 },
        { 1361, 0x86E1, 0x86E1 }, { 1361, 0x8741, 0x8741 }, { 1361, 0x8761, 0x8761 }, { 1361, 0x8781, 0x8781 },
        { 1361, 0x87A1, 0x87A1 },                           // vowels
        { 1361, 0x8841, 0x8841 }, { 1361, 0x8C41, 0x8C41 }, { 1361, 0x9041, 0x9041 }, { 1361, 0x9441, 0x9441 },
        { 1361, 0x9841, 0x9841 }, { 1361, 0x9C41, 0x9C41 }, { 1361, 0xA041, 0xA041 }, { 1361, 0xA441, 0xA441 },
        { 1361, 0xA841, 0xA841 }, { 1361, 0xAC41, 0xAC41 }, { 1361, 0xB041, 0xB041 }, { 1361, 0xB441, 0xB441 },
        { 1361, 0xB841, 0xB841 }, { 1361, 0xBC41, 0xBC41 }, { 1361, 0xC041, 0xC041 }, { 1361, 0xC441, 0xC441 },
        { 1361, 0xC841, 0xC841 }, { 1361, 0xCC41, 0xCC41 }, { 1361, 0xD041, 0xD041 },   // initials
        { 1361, 0xDAD4, 0xDAFE },                           // letters out of use
    };
    Difference const units[] = {
        { 1361, 0x5C,   0x5C   },
        { 1361, 0x80,   0x83   },
        { 1361, 0x1100, 0x1112 }, { 1361, 0x1114, 0x1115 }, { 1361, 0x111C, 0x111E }, { 1361, 0x1120, 0x1120 },
        { 1361, 0x1122, 0x1123 }, { 1361, 0x1127, 0x1128 }, { 1361, 0x112B, 0x112F }, { 1361, 0x1132, 0x1132 },
        { 1361, 0x1136, 0x1136 }, { 1361, 0x1140, 0x1140 }, { 1361, 0x1145, 0x1147 }, { 1361, 0x114C, 0x114C },
        { 1361, 0x1157, 0x1159 }, { 1361, 0x115F, 0x115F }, { 1361, 0x1161, 0x1175 }, { 1361, 0x1184, 0x1185 },
        { 1361, 0x1188, 0x1188 }, { 1361, 0x1191, 0x1192 }, { 1361, 0x1194, 0x1194 }, { 1361, 0x119E, 0x119E },
        { 1361, 0x11A1, 0x11A1 }, { 1361, 0x11A8, 0x11C2 }, { 1361, 0x11C7, 0x11C8 }, { 1361, 0x11CC, 0x11CC },
        { 1361, 0x11CE, 0x11CE }, { 1361, 0x11D3, 0x11D3 }, { 1361, 0x11D7, 0x11D7 }, { 1361, 0x11D9, 0x11D9 },
        { 1361, 0x11DD, 0x11DD }, { 1361, 0x11DF, 0x11DF },
        { 1361, 0x327E, 0x327E },
        { 1361, 0xE000, 0xE0BB }, { 1361, 0xF8EC, 0xF8F6 },
        { 1361, 0xFFA0, 0xFFBE }, { 1361, 0xFFC2, 0xFFC7 }, { 1361, 0xFFCA, 0xFFCF }, { 1361, 0xFFD2, 0xFFD7 },
        { 1361, 0xFFDA, 0xFFDC },                           // half-width letters
    };
    // clang-format on
    IconvPage const library("JOHAB");
    CompareAll(
        1361, [](unsigned number) { return WidenToUnit(1361, MB_ERR_INVALID_CHARS, BytesOfNumber(number)); },
        [&](unsigned number) { return library.Widen(BytesOfNumber(number)); }, bytes);
    CompareAll(
        1361, [](unsigned number) { return NarrowUnit(1361, 0, UnitOfNumber(number)); },
        [&](unsigned number) { return library.Narrow(UnitOfNumber(number)); }, units);
}

} // namespace kr::test
