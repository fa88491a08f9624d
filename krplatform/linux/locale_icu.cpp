#include "krplatform/linux/locale_icu.h"

#include "krplatform/linux/locale_differences.h"
#include "krplatform/linux/locale_patterns.h"

#include <unicode/udat.h>
#include <unicode/uloc.h>
#include <unicode/unum.h>
#include <unicode/ures.h>

#include <algorithm>
#include <memory>
#include <new>

namespace kr::detail
{

namespace
{

template <auto Close>
struct Closer
{
    template <class T>
    void operator()(T * object) const
    {
        Close(object);
    }
};

using DateFormat = std::unique_ptr<UDateFormat, Closer<udat_close>>;
using NumberFormat = std::unique_ptr<UNumberFormat, Closer<unum_close>>;
using Resources = std::unique_ptr<UResourceBundle, Closer<ures_close>>;

constexpr int roomForNames = ULOC_FULLNAME_CAPACITY;
constexpr int roomForTexts = 128;

/// The tests of ICU's data are not ours: what cannot be read stays empty. Want of memory is told.
bool Succeeded(UErrorCode status)
{
    if (status == U_MEMORY_ALLOCATION_ERROR)
        throw std::bad_alloc();
    return U_SUCCESS(status) && status != U_STRING_NOT_TERMINATED_WARNING;
}

/// Calls `read(buffer, room, status)`, which returns a length.
template <class Read>
Text ReadText(Read read)
{
    WCHAR buffer[roomForTexts];
    UErrorCode status = U_ZERO_ERROR;
    int32_t const length = read(buffer, roomForTexts, &status);
    return Succeeded(status) ? Text(buffer, static_cast<std::size_t>(length)) : Text();
}

template <class Read>
std::string ReadName(Read read)
{
    char buffer[roomForNames];
    UErrorCode status = U_ZERO_ERROR;
    int32_t const length = read(buffer, roomForNames, &status);
    return Succeeded(status) ? std::string(buffer, static_cast<std::size_t>(length)) : std::string();
}

bool IsKnown(std::string const & name)
{
    UErrorCode status = U_ZERO_ERROR;
    Resources const resources(ures_open(nullptr, name.c_str(), &status));
    return Succeeded(status) && status != U_USING_DEFAULT_WARNING;
}

DateFormat OpenDates(std::string const & name, UDateFormatStyle time, UDateFormatStyle date)
{
    UErrorCode status = U_ZERO_ERROR;
    DateFormat format(udat_open(time, date, name.c_str(), u"UTC", -1, nullptr, 0, &status));
    return Succeeded(status) ? std::move(format) : nullptr;
}

Text ReadPattern(DateFormat const & format, WCHAR const * otherwise)
{
    Text pattern;
    if (format)
        pattern = PlatformPattern(ReadText([&](WCHAR * buffer, int32_t room, UErrorCode * status)
                                           { return udat_toPattern(format.get(), false, buffer, room, status); }));
    return pattern.empty() ? otherwise : pattern;
}

Text ReadDateSymbol(DateFormat const & format, UDateFormatSymbolType type, int index)
{
    Text symbol = ReadText([&](WCHAR * buffer, int32_t room, UErrorCode * status)
                           { return udat_getSymbols(format.get(), type, index, buffer, room, status); });
    std::replace(symbol.begin(), symbol.end(), WCHAR{0x00A0}, OLESTR(' '));
    std::replace(symbol.begin(), symbol.end(), WCHAR{0x202F}, OLESTR(' '));
    return symbol;
}

void ReadMonths(DateFormat const & format, UDateFormatSymbolType type, MonthNames & names)
{
    for (std::size_t index = 0; index < names.size(); ++index)
        names[index] = ReadDateSymbol(format, type, static_cast<int>(index));
}

void ReadDateFacts(std::string const & name, DateFacts & facts)
{
    DateFormat const dates = OpenDates(name, UDAT_NONE, UDAT_SHORT);
    facts.shortDate = ReadPattern(dates, OLESTR("yyyy-MM-dd"));
    facts.longTime = ReadPattern(OpenDates(name, UDAT_MEDIUM, UDAT_NONE), OLESTR("HH:mm:ss"));
    if (!dates)
        return; // GCOVR_EXCL_LINE: ICU has formats for every name, those of its root where it knows none
    facts.am = ReadDateSymbol(dates, UDAT_AM_PMS, 0);
    facts.pm = ReadDateSymbol(dates, UDAT_AM_PMS, 1);
    ReadMonths(dates, UDAT_STANDALONE_MONTHS, facts.monthNames);
    ReadMonths(dates, UDAT_STANDALONE_SHORT_MONTHS, facts.shortMonthNames);
    ReadMonths(dates, UDAT_MONTHS, facts.monthNamesInDates);
    ReadMonths(dates, UDAT_SHORT_MONTHS, facts.shortMonthNamesInDates);
}

/// The mark of one unit; 0 where there is none. The narrow blank of newer data is the platform's no-break blank.
WCHAR ReadMark(NumberFormat const & format, UNumberFormatSymbol symbol)
{
    Text const text = ReadText([&](WCHAR * buffer, int32_t room, UErrorCode * status)
                               { return unum_getSymbol(format.get(), symbol, buffer, room, status); });
    WCHAR const mark = text.empty() ? WCHAR{0} : text.front();
    return mark == 0x202F ? WCHAR{0x00A0} : mark;
}

void ReadNumberFacts(std::string const & name, LocaleFacts & facts)
{
    UErrorCode status = U_ZERO_ERROR;
    NumberFormat const format(unum_open(UNUM_CURRENCY, nullptr, 0, name.c_str(), nullptr, &status));
    if (!Succeeded(status))
        return; // GCOVR_EXCL_LINE: as above
    facts.number = {ReadMark(format, UNUM_DECIMAL_SEPARATOR_SYMBOL), ReadMark(format, UNUM_GROUPING_SEPARATOR_SYMBOL)};
    facts.currency.decimalMark = ReadMark(format, UNUM_MONETARY_SEPARATOR_SYMBOL);
    facts.currency.groupMark = ReadMark(format, UNUM_MONETARY_GROUPING_SEPARATOR_SYMBOL);
    facts.currency.symbol =
        ReadText([&](WCHAR * buffer, int32_t room, UErrorCode * code)
                 { return unum_getSymbol(format.get(), UNUM_CURRENCY_SYMBOL, buffer, room, code); });
}

std::string WithLikelyTerritory(std::string const & name)
{
    return ReadName([&](char * buffer, int32_t room, UErrorCode * status)
                    { return uloc_addLikelySubtags(name.c_str(), buffer, room, status); });
}

std::string LanguageOf(std::string const & name)
{
    return ReadName([&](char * buffer, int32_t room, UErrorCode * status)
                    { return uloc_getLanguage(name.c_str(), buffer, room, status); });
}

std::string TerritoryOf(std::string const & name)
{
    return ReadName([&](char * buffer, int32_t room, UErrorCode * status)
                    { return uloc_getCountry(name.c_str(), buffer, room, status); });
}

struct ScriptModifier
{
    std::string_view modifier;
    std::string_view script;
};

// The modifiers of the C library's locales that name a script.
constexpr ScriptModifier s_scripts[] = {{"latin", "_Latn"}, {"cyrillic", "_Cyrl"}, {"devanagari", "_Deva"}};

} // namespace

std::string LocaleNameOfIdentifier(LCID locale)
{
    constexpr LCID languageBits = 0x3FF; // without a language it is one of the system's defaults
    if ((locale & languageBits) == 0)
        return {};
    std::string name = ReadName([&](char * buffer, int32_t room, UErrorCode * status)
                                { return uloc_getLocaleForLCID(locale, buffer, room, status); });
    name.resize(std::min(name.find('@'), name.size()));
    return IsKnown(name) ? name : std::string();
}

std::string LocaleNameOfEnvironment(std::string_view name)
{
    std::string_view const modifier = name.substr(std::min(name.find('@'), name.size()));
    std::string_view const plain = name.substr(0, std::min(name.find_first_of(".@"), name.size()));
    std::string const english = "en_US";
    if (plain == "C" || plain == "POSIX" || plain.empty() || plain.size() > roomForNames / 2)
        return english;
    std::size_t const languageEnd = std::min(plain.find('_'), plain.size());
    std::string result(plain.substr(0, languageEnd));
    for (ScriptModifier const & row : s_scripts)
    {
        if (!modifier.empty() && modifier.substr(1) == row.modifier)
            result += row.script;
    }
    result += plain.substr(languageEnd);
    return IsKnown(result) ? result : english;
}

LocaleFacts FactsOfLocaleName(std::string const & name)
{
    LocaleFacts facts = {{}, {}, {}, InvariantFacts().yes, InvariantFacts().no};
    std::string const full = WithLikelyTerritory(name); // a language alone has no currency
    std::string const inPlatformTerms = full + "@calendar=gregorian;numbers=latn";
    ReadNumberFacts(inPlatformTerms, facts);
    ReadDateFacts(inPlatformTerms, facts.date);
    ApplyPlatformDifferences(LanguageOf(full), TerritoryOf(full), facts);
    CompleteDateFacts(facts.date);
    return facts;
}

} // namespace kr::detail
