// The sizes that a buffer can have, shared by the sources of the buffers.
#pragma once

#include <krplatform/base/cexception.h>

#include <cstdint>
#include <limits>

namespace kr::detail
{

/// A number of bytes as buffers count them; `CMemoryException *` for one that they cannot count.
inline unsigned int BufferSize(std::uint64_t bytes)
{
    if (bytes > std::numeric_limits<unsigned int>::max())
        AfxThrowMemoryException();
    return static_cast<unsigned int>(bytes);
}

} // namespace kr::detail
