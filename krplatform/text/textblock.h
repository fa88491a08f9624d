// The storage of texts: a counted block of units that copies share until one of them is written.
#pragma once

#include <krplatform/export.h>

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <limits>

namespace kr::detail
{

/// The most units that a text has, so that lengths fit into `int` whatever the memory manager rounds them up to.
constexpr std::size_t largestTextCapacity = std::numeric_limits<int>::max() - std::size_t{16};

/// The room that a text of that length is given when more is put to it, since still more will follow; none for empty
/// texts, which mostly stay as long as they are made.
constexpr std::size_t GrownCapacity(std::size_t length)
{
    return length == 0 ? 0 : std::min(2 * length + 16, largestTextCapacity);
}

/// Frees the memory of a block that has no owner any more.
KRPLATFORM_API void FreeTextBlock(void * block) noexcept;

/// Stands in front of a text's units. A block that is counted more than once is never written.
template <class Char>
struct TextBlock
{
    std::atomic<int> references;
    int length;
    int capacity; ///< units beside the terminator; 0 only in the block of all empty texts, which lasts as long as the
                  ///< library and is neither counted nor written

    static TextBlock * Of(Char * text) noexcept { return reinterpret_cast<TextBlock *>(text) - 1; }
    static TextBlock const * Of(Char const * text) noexcept { return reinterpret_cast<TextBlock const *>(text) - 1; }
    Char * Text() noexcept { return reinterpret_cast<Char *>(this + 1); }

    void AddReference() noexcept
    {
        if (capacity != 0)
            references.fetch_add(1, std::memory_order_relaxed);
    }

    /// Takes one reference off and frees the block with the last one.
    void Release() noexcept
    {
        if (capacity != 0 && (IsWritable() || references.fetch_sub(1, std::memory_order_acq_rel) == 1))
            FreeTextBlock(this);
    }

    /// Whether there is one owner, who then can write: whoever sees the one holds it, and nobody else can add to it.
    bool IsWritable() const noexcept { return references.load(std::memory_order_acquire) == 1; }

    /// For a writable block.
    void SetLength(std::size_t newLength) noexcept
    {
        length = static_cast<int>(newLength);
        Text()[newLength] = 0;
    }

    /// False where there is no room of its own for one more unit.
    bool TryAppend(Char unit) noexcept
    {
        int const used = length; // once: behind the look at the owners it would be read again
        bool const fits = IsWritable() && used < capacity;
        if (fits)
        {
            Text()[used] = unit;
            Text()[used + 1] = 0;
            length = used + 1;
        }
        return fits;
    }
};

/// The block of all empty texts with its terminator.
template <class Char>
struct EmptyTextBlock
{
    TextBlock<Char> block;
    Char terminator;
};

} // namespace kr::detail
