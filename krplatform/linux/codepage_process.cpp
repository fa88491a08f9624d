#include <krplatform/codepage/codepage.h>
#include <krplatform/coerce/locale_lookup.h>
#include <krplatform/linux/codepage_of_locale.h>
#include <krplatform/linux/codepage_process.h>
#include <krplatform/linux/environment_snapshot.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <memory>
#include <mutex>
#include <new>

namespace kr::detail
{

namespace
{

/// The code page of an environment, which is known again by its variables and the text of the name.
class CodePageOfEnvironment
{
public:
    /// Null for an environment that cannot be known again, and when memory runs out.
    static CodePageOfEnvironment * Create(std::string_view localeName, UINT codePage);

    UINT GetCodePage() const { return m_codePage; }

    bool IsCurrent() const { return m_environment.IsCurrent() && std::strcmp(m_nameInEnvironment, m_name.get()) == 0; }

    CodePageOfEnvironment * m_older = nullptr;

private:
    UINT m_codePage = 0;
    EnvironmentSnapshot m_environment;
    char const * m_nameInEnvironment = nullptr; ///< a program may write over the text of a variable
    std::unique_ptr<char[]> m_name;
};

CodePageOfEnvironment * CodePageOfEnvironment::Create(std::string_view localeName, UINT codePage)
{
    std::unique_ptr<CodePageOfEnvironment> created(new (std::nothrow) CodePageOfEnvironment);
    if (!created || !created->m_environment.Take())
        return nullptr;
    created->m_name.reset(new (std::nothrow) char[localeName.size() + 1]);
    if (!created->m_name)
        return nullptr;
    created->m_codePage = codePage;
    created->m_nameInEnvironment = localeName.data();
    std::copy_n(localeName.data(), localeName.size() + 1, created->m_name.get());
    return created.release();
}

/// The one in use. The others follow it: another thread may be comparing with one of them, and an environment may come
/// back.
constinit std::atomic<CodePageOfEnvironment *> s_newest;
constinit std::mutex s_reading;

/// Takes the one that has become current again out of the list. Null if there is none.
CodePageOfEnvironment * TakeCurrent()
{
    CodePageOfEnvironment * newer = nullptr;
    for (CodePageOfEnvironment * known = s_newest.load(); known; newer = known, known = known->m_older)
    {
        if (!known->IsCurrent())
            continue;
        if (newer)
            newer->m_older = known->m_older;
        else
            s_newest = known->m_older;
        return known;
    }
    return nullptr;
}

/// Without memory to remember it the answer is as good, and only slower.
UINT ReadCodePage()
{
    std::lock_guard const lock(s_reading);
    std::string_view const name = UserLocaleName(LocaleCategory::characters);
    UINT const codePage = CodePageOfLocale(name);
    CodePageOfEnvironment * const known = TakeCurrent();
    CodePageOfEnvironment * const current = known ? known : CodePageOfEnvironment::Create(name, codePage);
    if (current)
    {
        current->m_older = s_newest.load();
        s_newest = current;
    }
    return codePage;
}

} // namespace

UINT ProcessCodePage()
{
    CodePageOfEnvironment const * const known = s_newest.load(std::memory_order_acquire);
    return known && known->IsCurrent() ? known->GetCodePage() : ReadCodePage();
}

} // namespace kr::detail

UINT GetACP() { return kr::detail::ProcessCodePage(); }
