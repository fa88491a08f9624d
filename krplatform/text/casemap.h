// The tables behind the case mapping. Internal to the text classes, which map whole texts with them.
#pragma once

#include <krplatform/base/types.h>

#include <array>

namespace kr::detail
{

/// The simple mapping of one unit in the system's character data; the unit itself where there is none.
WCHAR SystemUpperCase(WCHAR unit) noexcept;
WCHAR SystemLowerCase(WCHAR unit) noexcept;

/// One direction of the mapping in two stages: the page of a unit, and in it the difference to its counterpart.
class CaseMap
{
public:
    using Mapping = WCHAR (*)(WCHAR) noexcept;

    /// For objects of static storage only, whose pages start as zeros; unused pages are then never touched.
    CaseMap(Mapping map, Mapping mapBack) noexcept;

    WCHAR operator()(WCHAR unit) const noexcept
    {
        return static_cast<WCHAR>(unit + m_pages[m_pageOf[unit >> 8]][unit & 0xFF]);
    }

private:
    std::array<unsigned char, 256> m_pageOf;         ///< page 0 is for all units without a counterpart
    std::array<std::array<WCHAR, 256>, 256> m_pages; ///< differences, modulo 2^16
};

/// Made at first use.
CaseMap const & UpperCaseMap() noexcept;
CaseMap const & LowerCaseMap() noexcept;

} // namespace kr::detail
