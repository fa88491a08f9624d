// Automation text turned into a `CString`.
#pragma once

#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>

namespace kr::detail
{

/// The text, zeros inside included. `text` is the callee's and is freed, also when memory runs out; null is empty text.
inline CString TakeBstr(BSTR text)
{
    struct Release
    {
        BSTR text;
        ~Release() { SysFreeString(text); }
    } const release{text};
    return CString(text, static_cast<int>(SysStringLen(text)));
}

} // namespace kr::detail
