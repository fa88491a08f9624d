#include <krplatform/automation/vartext.h>
#include <krplatform/coerce/calendar.h>
#include <krplatform/coerce/date_parse.h>
#include <krplatform/coerce/date_text.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/text/bstr.h>

#include <type_traits>

namespace
{

using namespace kr::detail;

static_assert(VAR_TIMEVALUEONLY == dateTextTimeOnly && VAR_DATEVALUEONLY == dateTextDateOnly);

bool AreFlagsKnown(ULONG flags) { return flags == 0 || flags == VAR_TIMEVALUEONLY || flags == VAR_DATEVALUEONLY; }

SYSTEMTIME SystemTimeOf(CalendarFields const & fields)
{
    auto const word = [](int value) { return static_cast<WORD>(value); };
    return {word(fields.year), word(fields.month),  word(fields.dayOfWeek), word(fields.day),
            word(fields.hour), word(fields.minute), word(fields.second),    0};
}

} // namespace

HRESULT VarBstrFromDate(DATE date, LCID locale, ULONG flags, BSTR * text)
{
    if (!text || !AreFlagsKnown(flags))
        return E_INVALIDARG;
    LocaleFacts const * facts = nullptr;
    if (HRESULT const found = FindFactsOfLocale(locale, facts); FAILED(found))
        return found;
    DateText written;
    if (!WriteDate(date, flags, facts->date, written))
        return E_INVALIDARG;
    BSTR const made = SysAllocStringLen(written.View().data(), static_cast<UINT>(written.View().size()));
    if (!made)
        return E_OUTOFMEMORY;
    *text = made;
    return S_OK;
}

HRESULT VarDateFromStr(OLECHAR const * text, LCID locale, ULONG flags, DATE * date)
{
    if (!text)
        return DISP_E_TYPEMISMATCH;
    if (!date || !AreFlagsKnown(flags))
        return E_INVALIDARG;
    LocaleFacts const * facts = nullptr;
    if (HRESULT const found = FindFactsOfLocale(locale, facts); FAILED(found))
        return found;
    return TextToDate(text, flags, *facts, *date) ? S_OK : DISP_E_TYPEMISMATCH;
}

HRESULT VarUdateFromDate(DATE date, ULONG, UDATE * fields)
{
    CalendarFields read;
    if (!fields || !FieldsOfDate(date, read))
        return E_INVALIDARG;
    fields->st = SystemTimeOf(read);
    fields->wDayOfYear = static_cast<USHORT>(read.dayOfYear);
    return S_OK;
}

int VariantTimeToSystemTime(DATE date, SYSTEMTIME * fields)
{
    CalendarFields read;
    if (!fields || !FieldsOfDate(date, read))
        return 0;
    *fields = SystemTimeOf(read);
    return 1;
}

int SystemTimeToVariantTime(SYSTEMTIME const * fields, DATE * date)
{
    if (!fields || !date)
        return 0;
    CalendarFields const given = {
        fields->wYear, fields->wMonth, fields->wDay, fields->wHour, fields->wMinute, fields->wSecond, 0, 0};
    return DateOfFields(given, *date) ? 1 : 0;
}
