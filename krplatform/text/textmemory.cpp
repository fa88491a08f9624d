#include <krplatform/text/textmemory.h>

#include <array>
#include <atomic>
#include <cstdint>
#include <new>
#include <utility>

namespace kr::detail
{

namespace
{

#if defined(__SANITIZE_ADDRESS__)
constexpr bool s_isWatched = true;
#elif defined(__has_feature)
constexpr bool s_isWatched = __has_feature(address_sanitizer);
#else
constexpr bool s_isWatched = false;
#endif

// Blocks are 8, 24, 40, ... 264 bytes with the mark: the memory manager gives these without a remainder.
constexpr std::size_t s_sizes = 17;
constexpr std::size_t s_keptBytes = 1024 * 1024; // lists of ten thousand names come and go in it

/// Stands in front of the memory: which list it belongs to.
struct Mark
{
    std::uint32_t index;
};

/// For memory of `SizeOfTextMemory` bytes; from `s_sizes` on it is never kept.
constexpr std::size_t IndexOf(std::size_t memorySize) { return memorySize / 16; }

constexpr std::size_t BlockSize(std::size_t index) { return 16 * index + 8; }
static_assert(BlockSize(IndexOf(SizeOfTextMemory(21))) == SizeOfTextMemory(21) + sizeof(Mark));

struct FreeBlock
{
    FreeBlock * next;
};

/// What a thread keeps. It needs no destructor, so texts that end after the thread's other objects find it ended, and go the long way.
struct KeptBlocks
{
    enum class State
    {
        fresh,
        open,
        ended
    };

    State state;
    std::array<unsigned, s_sizes> room; ///< how many more are kept of each size; none unless open
    std::array<FreeBlock *, s_sizes> first;

    void Open() noexcept
    {
        state = State::open;
        for (std::size_t index = 0; index < s_sizes; ++index)
            room[index] = static_cast<unsigned>(s_keptBytes / BlockSize(index));
    }

    void Close(State newState) noexcept
    {
        state = newState;
        room.fill(0);
        for (FreeBlock *& list : first)
        {
            while (list)
                ::operator delete(std::exchange(list, list->next));
        }
    }
};

constinit thread_local KeptBlocks s_kept = {};

/// To find it is a call in a library that may be loaded late; the laundered address is not asked for again.
KeptBlocks & Kept() noexcept { return *std::launder(&s_kept); }

constinit std::atomic<bool> s_isKeeping = !s_isWatched;

struct CloseAtEndOfThread
{
    ~CloseAtEndOfThread() { Kept().Close(KeptBlocks::State::ended); }
};

/// Where there is no room: all is full, or the thread frees its first block.
[[gnu::noinline]] void FreeWithoutRoom(KeptBlocks & kept, void * memory) noexcept
{
    ::operator delete(memory);
    if (kept.state != KeptBlocks::State::fresh || !s_isKeeping.load(std::memory_order_relaxed))
        return;
    [[maybe_unused]] static thread_local CloseAtEndOfThread const closeAtEnd;
    kept.Open();
}

} // namespace

void * AllocateTextMemory(std::size_t size) noexcept
{
    std::size_t const index = IndexOf(SizeOfTextMemory(size));
    void * block = nullptr;
    if (index < s_sizes)
    {
        KeptBlocks & kept = Kept();
        if (FreeBlock * const first = kept.first[index])
        {
            kept.first[index] = first->next;
            ++kept.room[index];
            block = first;
        }
    }
    if (!block)
        block = ::operator new(BlockSize(index), std::nothrow);
    if (!block)
        return nullptr;
    return new (block) Mark{static_cast<std::uint32_t>(index)} + 1;
}

void FreeTextMemory(void * memory) noexcept
{
    if (!memory)
        return;
    Mark * const mark = static_cast<Mark *>(memory) - 1;
    std::size_t const index = mark->index;
    if (index >= s_sizes)
        return ::operator delete(mark);
    KeptBlocks & kept = Kept();
    if (kept.room[index] == 0)
        return FreeWithoutRoom(kept, mark);
    --kept.room[index];
    kept.first[index] = new (mark) FreeBlock{kept.first[index]};
}

void KeepTextMemory(bool keep) noexcept
{
    s_isKeeping = keep && !s_isWatched;
    if (Kept().state == KeptBlocks::State::open)
        Kept().Close(KeptBlocks::State::fresh);
}

} // namespace kr::detail
