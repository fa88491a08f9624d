// A pointer that frees automation text.
#pragma once

#include <krplatform/text/bstr.h>

#include <memory>

namespace kr::detail
{

struct FreeText
{
    void operator()(OLECHAR * text) const noexcept { SysFreeString(text); }
};
using OwnedText = std::unique_ptr<OLECHAR, FreeText>;

} // namespace kr::detail
