#include <krplatform/text/casemap.h>
#include <krplatform/text/casing.h>

#include <algorithm>

namespace kr::detail
{

CaseMap::CaseMap(Mapping map, Mapping mapBack) noexcept
{
    unsigned char pages = 0;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit)
    {
        WCHAR const mapped = map(static_cast<WCHAR>(unit));
        if (mapped == unit || mapBack(mapped) != unit)
            continue;
        unsigned char & page = m_pageOf[unit >> 8];
        if (page == 0)
            page = ++pages;
        m_pages[page][unit & 0xFF] = static_cast<WCHAR>(mapped - unit);
    }
}

CaseMap const & UpperCaseMap() noexcept
{
    static CaseMap const map(SystemUpperCase, SystemLowerCase);
    return map;
}

CaseMap const & LowerCaseMap() noexcept
{
    static CaseMap const map(SystemLowerCase, SystemUpperCase);
    return map;
}

WCHAR UpperCase(WCHAR unit) noexcept { return UpperCaseMap()(unit); }

WCHAR LowerCase(WCHAR unit) noexcept { return LowerCaseMap()(unit); }

bool IsSpaceBeyondAscii(WCHAR unit) noexcept
{
    struct Range
    {
        WCHAR first;
        WCHAR last;
    };
    // clang-format off
    constexpr Range spaces[] = {            // the property White_Space of Unicode
        { 0x0085, 0x0085 }, { 0x00A0, 0x00A0 }, { 0x1680, 0x1680 }, { 0x2000, 0x200A }, { 0x2028, 0x2029 }, { 0x202F, 0x202F }, { 0x205F, 0x205F }, { 0x3000, 0x3000 },
    };
    // clang-format on
    return std::any_of(std::begin(spaces), std::end(spaces),
                       [unit](Range const & range) { return unit >= range.first && unit <= range.last; });
}

} // namespace kr::detail
