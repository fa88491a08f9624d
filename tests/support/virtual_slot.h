// The place of a virtual operation among those of its class.
#pragma once

#include <array>
#include <bit>
#include <cstddef>

namespace kr::test
{

/// Counted from 0; a virtual destructor takes two places. A pointer to a virtual member is its offset in the table of its
/// class plus one, and a displacement.
template <class Member>
std::size_t VirtualSlotOf(Member member)
{
    auto const parts = std::bit_cast<std::array<std::size_t, 2>>(member);
    return (parts[0] - 1) / sizeof(void *);
}

} // namespace kr::test
