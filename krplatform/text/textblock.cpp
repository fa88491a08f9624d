#include <krplatform/text/textblock.h>
#include <krplatform/text/textmemory.h>

namespace kr::detail
{

void FreeTextBlock(void * block) noexcept { FreeTextMemory(block); }

} // namespace kr::detail
