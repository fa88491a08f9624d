#include <krplatform/text/textblock.h>

#include <new>

namespace kr::detail
{

void FreeTextBlock(void * block) noexcept { ::operator delete(block); }

} // namespace kr::detail
