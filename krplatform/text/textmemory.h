// The memory of texts, which programs make and drop all the time.
#pragma once

#include <krplatform/export.h>

#include <cstddef>

namespace kr::detail
{

/// Memory for a text, null when it runs out: `SizeOfTextMemory` bytes, which begin 4 behind a multiple of 16, so that units behind a
/// header of 4 or of 12 bytes are aligned. Blocks that a thread freed are used again before the memory manager is asked: each thread
/// keeps up to 1 MB of each of 17 sizes, up to 260 bytes, and gives them back when it ends.
KRPLATFORM_API void * AllocateTextMemory(std::size_t size) noexcept;

/// Any thread may free. Null is allowed.
KRPLATFORM_API void FreeTextMemory(void * memory) noexcept;

/// How many bytes are given where `size` are asked for: a little more where it costs nothing.
constexpr std::size_t SizeOfTextMemory(std::size_t size) { return (size + 11) / 16 * 16 + 4; }

/// Whether blocks are kept, which is so until said otherwise; in programs under AddressSanitizer none ever is. A test that counts
/// allocations keeps none. What the calling thread has is given back; what other threads have stays with them.
KRPLATFORM_API void KeepTextMemory(bool keep) noexcept;

} // namespace kr::detail
