#include "krplatform/linux/facts_cache.h"

#include "krplatform/linux/locale_icu.h"

#include <atomic>
#include <map>
#include <memory>
#include <mutex>

namespace kr::detail
{

namespace
{

/// Facts by a key. They are never freed, so that whoever holds them needs no lock and no count.
class FactsMap
{
public:
    template <class Make>
    LocaleFacts const & Find(std::string const & key, Make make)
    {
        std::lock_guard const lock(m_mutex);
        auto const found = m_facts.find(key);
        if (found != m_facts.end())
            return *found->second;
        return *m_facts.emplace(key, std::make_unique<LocaleFacts const>(make())).first->second;
    }

private:
    std::mutex m_mutex;
    std::map<std::string, std::unique_ptr<LocaleFacts const>> m_facts;
};

FactsMap & FactsByName()
{
    static FactsMap & map = *new FactsMap; // outlives every static object that formats a date when it dies
    return map;
}

FactsMap & FactsByNames()
{
    static FactsMap & map = *new FactsMap;
    return map;
}

/// Facts by identifier, for readers without a lock. A place is written once; identifiers that fall on a taken place are
/// looked up by name each time.
class IdentifierTable
{
public:
    LocaleFacts const * Find(LCID locale) const noexcept
    {
        Place const & place = m_places[PlaceOf(locale)];
        return place.locale.load(std::memory_order_acquire) == locale ? place.facts.load(std::memory_order_relaxed)
                                                                      : nullptr;
    }

    void Add(LCID locale, LocaleFacts const & facts) noexcept
    {
        Place & place = m_places[PlaceOf(locale)];
        LocaleFacts const * none = nullptr;
        if (place.facts.compare_exchange_strong(none, &facts, std::memory_order_relaxed))
            place.locale.store(locale, std::memory_order_release);
    }

private:
    struct Place
    {
        std::atomic<LocaleFacts const *> facts{nullptr};
        std::atomic<LCID> locale{0}; ///< 0 is the user's, which is not kept here
    };

    static constexpr unsigned bits = 7;

    static std::size_t PlaceOf(LCID locale) noexcept { return (locale * 0x9E3779B1u) >> (32 - bits); }

    Place m_places[1 << bits];
};

constinit IdentifierTable s_byIdentifier;

constexpr LCID systemDefault = 2048;

LocaleFacts const * FactsOfIdentifier(LCID locale)
{
    std::string const name = LocaleNameOfIdentifier(locale);
    if (name.empty())
        return nullptr;
    LocaleFacts const & facts = CachedFacts(name);
    s_byIdentifier.Add(locale, facts);
    return &facts;
}

} // namespace

LocaleFacts const & CachedFacts(std::string const & name)
{
    return FactsByName().Find(name, [&] { return FactsOfLocaleName(name); });
}

LocaleFacts const & CachedFacts(LocaleNames const & names)
{
    LocaleFacts const & dates = CachedFacts(names.dates);
    if (names.numbers == names.dates && names.amounts == names.dates)
        return dates;
    LocaleFacts const & numbers = CachedFacts(names.numbers);
    LocaleFacts const & amounts = CachedFacts(names.amounts);
    auto const make = [&] { return LocaleFacts{numbers.number, amounts.currency, dates.date, dates.yes, dates.no}; };
    return FactsByNames().Find(names.numbers + ' ' + names.dates + ' ' + names.amounts, make);
}

HRESULT FindFactsOfLocale(LCID locale, LocaleFacts const *& facts) noexcept
{
    facts = nullptr;
    try
    {
        if (locale == LOCALE_USER_DEFAULT || locale == LOCALE_NEUTRAL || locale == systemDefault)
            facts = &UserFacts();
        else if (locale == LOCALE_INVARIANT)
            facts = &InvariantFacts();
        else if (facts = s_byIdentifier.Find(locale); !facts)
            facts = FactsOfIdentifier(locale);
    }
    catch (std::bad_alloc const &)
    {
        return E_OUTOFMEMORY;
    }
    return facts ? S_OK : E_INVALIDARG;
}

LocaleFacts const * FactsOfLocale(LCID locale) noexcept
{
    LocaleFacts const * facts = nullptr;
    FindFactsOfLocale(locale, facts);
    return facts;
}

} // namespace kr::detail
