// Dates, amounts and calendars where memory runs out: of the platform, and of the library.
#include <krcore/datetime/krdatetime.h>
#include <krplatform/datetime/colecurrency.h>
#include <krplatform/datetime/coledatetime.h>
#include <krplatform/datetime/ctime.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/memory/failing_rows.h"

using namespace kr::test;

namespace
{

constexpr LCID german = 1031;

VARIANT const & TextOfADate()
{
    static Cleared const text(MakeTextVariant(OLESTR("2021-03-15 08:05:09")));
    return *text;
}

VARIANT const & TextOfAnAmount()
{
    static Cleared const text(MakeTextVariant(OLESTR("12.5")));
    return *text;
}

} // namespace

TEST(COleDateTimeMemory, KeepsTheDate)
{
    static COleDateTime const date(2021, 3, 15, 8, 5, 9);
    static COleDateTime const outside(1e9);
    // clang-format off
    ExpectRows({
        { "VARIANT",        takesNone   , kept, [](Nothing) { COleDateTime const made(TextOfADate()); } },
        { "ParseDateTime",  takesNone   , kept, [](Nothing) { COleDateTime made; made.ParseDateTime(OLESTR("15.3.2021"), 0, german); } },
        { "Format locale",  throwsMemory, kept, [](Nothing) { date.Format(0, german); } },
        { "Format pattern", throwsMemory, kept, [](Nothing) { date.Format(OLESTR("%Y-%m-%d %H:%M:%S")); } },
        // a text of the module is looked for first, and done without where there is no memory
        { "Format outside", throwsMemory | goesOn, kept, [](Nothing) { outside.Format(0, german); } },
        { "Format pattern outside", throwsMemory | goesOn, kept, [](Nothing) { outside.Format(OLESTR("%Y")); } },
    });
    // clang-format on
}

TEST(COleCurrencyMemory, KeepsTheAmount)
{
    static COleCurrency const amount(12, 5000);
    static COleCurrency const invalid = []
    {
        COleCurrency made;
        made.SetStatus(COleCurrency::invalid);
        return made;
    }();
    // clang-format off
    ExpectRows({
        { "VARIANT",        takesNone   , kept, [](Nothing) { COleCurrency const made(TextOfAnAmount()); } },
        { "= VARIANT",      takesNone   , kept, [](Nothing) { COleCurrency made; made = TextOfAnAmount(); } },
        { "ParseCurrency",  takesNone   , kept, [](Nothing) { COleCurrency made; made.ParseCurrency(OLESTR("12,5"), 0, german); } },
        { "Format",         throwsMemory, kept, [](Nothing) { amount.Format(0, german); } },
        { "Format invalid", throwsMemory, kept, [](Nothing) { invalid.Format(); } },
    });
    // clang-format on
}

TEST(CTimeMemory, LeavesNothingOfAText)
{
    static CTime const time(2021, 3, 15, 8, 5, 9);
    // clang-format off
    ExpectRows({
        { "Format",        throwsMemory, kept, [](Nothing) { time.Format(OLESTR("%Y-%m-%d")); } },
        { "FormatGmt",     throwsMemory, kept, [](Nothing) { time.FormatGmt(OLESTR("%Y-%m-%d")); } },
        { "refused",       throwsMemory, kept, [](Nothing)
          {
              try
              {
                  CTime const made(1969, 1, 1, 0, 0, 0);
              }
              catch (COleException * exception)
              {
                  exception->Delete();
              }
          } },
    });
    // clang-format on
}

TEST(CKrDateTimeMemory, LeavesNothingOfAText)
{
    static COleDateTime const value(2021, 3, 15, 8, 5, 9);
    static CKrDate const date(value);
    static CKrTime const time(value);
    static CKrDateTime const moment(value);
    static CString const pattern(OLESTR("%d.%m.%Y"));
    static constexpr unsigned long locale = german;
    // clang-format off
    ExpectRows({
        { "CKrDate::Format units",         throwsMemory, kept, [](Nothing) { date.Format(OLESTR("%Y")); } },
        { "CKrDate::Format text",          throwsMemory, kept, [](Nothing) { date.Format(pattern); } },
        { "CKrDate::Format locale",        throwsMemory, kept, [](Nothing) { date.Format(locale); } },
        { "CKrDate::FormatLocale",         throwsMemory, kept, [](Nothing) { date.FormatLocale(); } },
        { "CKrDate::FormatInvariant",      throwsMemory, kept, [](Nothing) { date.FormatInvariant(); } },
        { "CKrTime::Format units",         throwsMemory, kept, [](Nothing) { time.Format(OLESTR("%H")); } },
        { "CKrTime::Format locale",        throwsMemory, kept, [](Nothing) { time.Format(locale); } },
        { "CKrTime::FormatLocale",         throwsMemory, kept, [](Nothing) { time.FormatLocale(); } },
        { "CKrTime::FormatInvariant",      throwsMemory, kept, [](Nothing) { time.FormatInvariant(); } },
        { "CKrDateTime::Format units",     throwsMemory, kept, [](Nothing) { moment.Format(OLESTR("%Y")); } },
        { "CKrDateTime::Format locale",    throwsMemory, kept, [](Nothing) { moment.Format(locale); } },
        { "CKrDateTime::FormatLocale",     throwsMemory, kept, [](Nothing) { moment.FormatLocale(); } },
        { "CKrDateTime::FormatInvariant",  throwsMemory, kept, [](Nothing) { moment.FormatInvariant(); } },
    });
    // clang-format on
}
