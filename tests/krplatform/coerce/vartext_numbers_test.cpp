#include <krplatform/automation/vartext.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/coerce/user_locale.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <functional>

namespace kr::test
{

namespace
{

constexpr LCID s_unknownLocale = 0xFFFF;
constexpr LCID s_german = 1031;

CY MakeCy(LONGLONG tenThousandths)
{
    CY amount;
    amount.int64 = tenThousandths;
    return amount;
}

using Writer = std::function<HRESULT(LCID locale, ULONG flags, BSTR * text)>;

struct WriterRow
{
    char const * name;
    Writer write;
    char const * german;
    char const * invariant;
};

WriterRow const s_writers[] = {
    {"R8", [](LCID locale, ULONG flags, BSTR * text) { return VarBstrFromR8(0.1, locale, flags, text); }, "0,1", "0.1"},
    {"R4", [](LCID locale, ULONG flags, BSTR * text) { return VarBstrFromR4(0.1f, locale, flags, text); }, "0,1",
     "0.1"},
    {"CY", [](LCID locale, ULONG flags, BSTR * text) { return VarBstrFromCy(MakeCy(-12345), locale, flags, text); },
     "-1,2345", "-1.2345"},
    {"BOOL", [](LCID locale, ULONG flags, BSTR * text) { return VarBstrFromBool(2, locale, flags, text); }, "True",
     "True"},
};

using Reader = std::function<HRESULT(OLECHAR const * text, LCID locale, ULONG flags)>;

struct ReaderRow
{
    char const * name;
    Reader read; ///< answers S_FALSE where a failure has written the value
    Reader readIntoNowhere;
};

template <class Value>
HRESULT CheckUntouched(HRESULT result, Value const & value, Value const & before)
{
    return FAILED(result) && value != before ? S_FALSE : result;
}

ReaderRow const s_readers[] = {
    {"R8",
     [](OLECHAR const * text, LCID locale, ULONG flags)
     {
         double value = 99;
         return CheckUntouched(VarR8FromStr(text, locale, flags, &value), value, 99.0);
     },
     [](OLECHAR const * text, LCID locale, ULONG flags) { return VarR8FromStr(text, locale, flags, nullptr); }},
    {"CY",
     [](OLECHAR const * text, LCID locale, ULONG flags)
     {
         CY value = MakeCy(99);
         return CheckUntouched(VarCyFromStr(text, locale, flags, &value), value.int64, LONGLONG{99});
     },
     [](OLECHAR const * text, LCID locale, ULONG flags) { return VarCyFromStr(text, locale, flags, nullptr); }},
    {"BOOL",
     [](OLECHAR const * text, LCID locale, ULONG flags)
     {
         VARIANT_BOOL value = 99;
         return CheckUntouched(VarBoolFromStr(text, locale, flags, &value), value, VARIANT_BOOL{99});
     },
     [](OLECHAR const * text, LCID locale, ULONG flags) { return VarBoolFromStr(text, locale, flags, nullptr); }},
};

std::string Write(Writer const & write, LCID locale, ULONG flags)
{
    BSTR text = nullptr;
    EXPECT_EQ(write(locale, flags, &text), S_OK);
    std::string const narrow = Narrow(text);
    SysFreeString(text);
    return narrow;
}

} // namespace

TEST(VartextNumbers, WritesANewTextInTheLocale)
{
    auto const writeAll = []
    {
        for (WriterRow const & row : s_writers)
        {
            SCOPED_TRACE(row.name);
            EXPECT_EQ(Write(row.write, LOCALE_INVARIANT, 0), row.invariant);
        }
    };
    writeAll(); // what a process keeps from its first use does not count
    std::size_t const before = LiveAllocations();
    writeAll();
    EXPECT_EQ(LiveAllocations(), before);
    UserLocale const locale("de_DE");
    for (WriterRow const & row : s_writers)
    {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Write(row.write, s_german, 0), row.german);
        EXPECT_EQ(Write(row.write, LOCALE_USER_DEFAULT, 0), row.german);
        EXPECT_EQ(Write(row.write, LOCALE_NEUTRAL, 0), row.german);
    }
}

TEST(VartextNumbers, WritesNothingAfterAFailure)
{
    WCHAR unit = 0;
    for (WriterRow const & row : s_writers)
    {
        SCOPED_TRACE(row.name);
        BSTR text = &unit;
        EXPECT_EQ(row.write(s_unknownLocale, 0, &text), E_INVALIDARG);
        EXPECT_EQ(row.write(LOCALE_INVARIANT, VAR_TIMEVALUEONLY, &text), E_INVALIDARG);
        EXPECT_EQ(row.write(LOCALE_INVARIANT, 0, nullptr), E_INVALIDARG);
        FailNthAllocation const fail(1);
        EXPECT_EQ(row.write(LOCALE_INVARIANT, 0, &text), E_OUTOFMEMORY);
        EXPECT_EQ(text, &unit);
    }
}

TEST(VartextNumbers, OnlyTruthValuesTakeTheFlagForLocalWords)
{
    BSTR text = nullptr;
    EXPECT_EQ(VarBstrFromR8(1, LOCALE_INVARIANT, VAR_LOCALBOOL, &text), E_INVALIDARG);
    double real = 0;
    EXPECT_EQ(VarR8FromStr(OLESTR("1"), LOCALE_INVARIANT, VAR_LOCALBOOL, &real), E_INVALIDARG);
    VARIANT_BOOL truth = 99;
    EXPECT_EQ(VarBoolFromStr(OLESTR("Wahr"), s_german, VAR_LOCALBOOL, &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_EQ(VarBoolFromStr(OLESTR("Falsch"), s_german, 0, &truth), DISP_E_TYPEMISMATCH);
}

TEST(VartextNumbers, TruthValuesAreWordsAndLocalOnesWhereAskedFor)
{
    auto const writeTrue = [](LCID locale, ULONG flags, BSTR * text)
    { return VarBstrFromBool(VARIANT_TRUE, locale, flags, text); };
    auto const writeFalse = [](LCID locale, ULONG flags, BSTR * text)
    { return VarBstrFromBool(VARIANT_FALSE, locale, flags, text); };
    EXPECT_EQ(Write(writeTrue, s_german, 0), "True");
    EXPECT_EQ(Write(writeFalse, s_german, 0), "False");
    EXPECT_EQ(Write(writeTrue, s_german, VAR_LOCALBOOL), "Wahr");
    EXPECT_EQ(Write(writeFalse, s_german, VAR_LOCALBOOL), "Falsch");
}

TEST(VartextNumbers, ReadsTextInTheLocale)
{
    double real = 0;
    EXPECT_EQ(VarR8FromStr(OLESTR("1.234,5"), s_german, 0, &real), S_OK);
    EXPECT_EQ(real, 1234.5);
    EXPECT_EQ(VarR8FromStr(OLESTR("1.5"), LOCALE_INVARIANT, 0, &real), S_OK);
    EXPECT_EQ(real, 1.5);
    CY amount = MakeCy(0);
    EXPECT_EQ(VarCyFromStr(OLESTR("1,5 \u20AC"), s_german, 0, &amount), S_OK);
    EXPECT_EQ(amount.int64, 15000);
    VARIANT_BOOL truth = 99;
    EXPECT_EQ(VarBoolFromStr(OLESTR("0,00"), s_german, 0, &truth), S_OK);
    EXPECT_EQ(truth, VARIANT_FALSE);
}

TEST(VartextNumbers, ReadsNothingAfterAFailure)
{
    for (ReaderRow const & row : s_readers)
    {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.read(nullptr, LOCALE_INVARIANT, 0), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(row.read(OLESTR(""), LOCALE_INVARIANT, 0), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(row.read(OLESTR("1.2.3"), LOCALE_INVARIANT, 0), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(row.read(OLESTR("1e400"), LOCALE_INVARIANT, 0), DISP_E_OVERFLOW);
        EXPECT_EQ(row.read(OLESTR("1"), s_unknownLocale, 0), E_INVALIDARG);
        EXPECT_EQ(row.read(OLESTR("1"), LOCALE_INVARIANT, 1), E_INVALIDARG);
        EXPECT_EQ(row.readIntoNowhere(OLESTR("1"), LOCALE_INVARIANT, 0), E_INVALIDARG);
    }
}

TEST(VartextNumbers, ReadingAllocatesNothing)
{
    for (ReaderRow const & row : s_readers)
    {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.read(OLESTR("1"), LOCALE_INVARIANT, 0), S_OK);
        std::size_t const before = AllAllocations();
        EXPECT_EQ(row.read(OLESTR(" -1,234.567890123456789012345e-7 "), LOCALE_INVARIANT, 0), S_OK);
        EXPECT_EQ(AllAllocations(), before);
    }
}

} // namespace kr::test
