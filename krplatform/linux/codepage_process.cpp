#include <krplatform/codepage/codepage.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/linux/codepage_of_locale.h>
#include <krplatform/linux/codepage_process.h>
#include <krplatform/linux/short_name.h>

#include <new>

namespace kr::detail
{

namespace
{

/// The code page that a thread asked for last, and of which locale.
struct LastCodePage
{
    ShortName locale;
    UINT codePage = 0;
};

constinit thread_local LastCodePage s_last;

} // namespace

UINT ProcessCodePage()
{
    char const * const locale = UserLocaleName(LocaleCategory::characters);
    LastCodePage & last = *std::launder(&s_last); // the address, which costs a call, is asked for once
    if (!(last.locale == locale))
    {
        last.codePage = CodePageOfLocale(locale);
        last.locale.Take(locale);
    }
    return last.codePage;
}

} // namespace kr::detail

UINT GetACP() { return kr::detail::ProcessCodePage(); }
