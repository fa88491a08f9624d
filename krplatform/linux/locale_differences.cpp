#include "krplatform/linux/locale_differences.h"

namespace kr::detail
{

namespace
{

/// Null leaves the collection's.
struct Difference
{
    std::string_view language;
    std::string_view territory;
    WCHAR const * shortDate;
    WCHAR const * longTime;
    WCHAR const * currency;
};

// The regional settings that the platform starts with.
// clang-format off
constexpr Difference s_differences[] = {
    // language, territory, short date               long time              currency
    { "da", "DK", OLESTR("dd-MM-yyyy"),              OLESTR("HH:mm:ss"),    nullptr           },
    { "en", "CA", OLESTR("yyyy-MM-dd"),              OLESTR("h:mm:ss tt"),  nullptr           },
    { "es", "ES", OLESTR("dd/MM/yyyy"),              nullptr,               nullptr           },
    { "fr", "CA", nullptr,                           OLESTR("HH:mm:ss"),    nullptr           },
    { "ja", "JP", nullptr,                           nullptr,               OLESTR("\u00A5")  },
    { "ko", "KR", OLESTR("yyyy-MM-dd"),              OLESTR("tt h:mm:ss"),  nullptr           },
    { "nl", "NL", OLESTR("d-M-yyyy"),                nullptr,               nullptr           },
    { "pl", "PL", OLESTR("dd.MM.yyyy"),              nullptr,               nullptr           },
    { "ru", "RU", nullptr,                           OLESTR("H:mm:ss"),     nullptr           },
    { "zh", "CN", OLESTR("yyyy/M/d"),                OLESTR("H:mm:ss"),     nullptr           },
};
// clang-format on

struct TruthWords
{
    std::string_view language;
    WCHAR const * yes;
    WCHAR const * no;
};

// Other languages have the English words.
// clang-format off
constexpr TruthWords s_truthWords[] = {
    { "de", OLESTR("Wahr"),      OLESTR("Falsch") },
    { "es", OLESTR("Verdadero"), OLESTR("Falso")  },
    { "fr", OLESTR("Vrai"),      OLESTR("Faux")   },
    { "it", OLESTR("Vero"),      OLESTR("Falso")  },
};
// clang-format on

void Replace(Text & text, WCHAR const * replacement)
{
    if (replacement)
        text = replacement;
}

} // namespace

void ApplyPlatformDifferences(std::string_view language, std::string_view territory, LocaleFacts & facts)
{
    for (Difference const & row : s_differences)
    {
        if (row.language != language || row.territory != territory)
            continue;
        Replace(facts.date.shortDate, row.shortDate);
        Replace(facts.date.longTime, row.longTime);
        Replace(facts.currency.symbol, row.currency);
    }
    for (TruthWords const & row : s_truthWords)
    {
        if (row.language != language)
            continue;
        facts.yes = row.yes;
        facts.no = row.no;
    }
    // the regions of English abbreviate September each in its own way; the platform has one
    if (language == "en")
        facts.date.shortMonthNames = InvariantFacts().date.shortMonthNames;
}

} // namespace kr::detail
