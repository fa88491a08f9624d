// String resources of modules.
#pragma once

#include <krplatform/system/module.h>

/// One string of a module's string table.
struct AfxStringEntry
{
    unsigned int id;
    WCHAR const * text;
};

/// The symbol by which a module carries its strings: an array that a null text ends.
///
///     extern "C" KR_EXPORT AfxStringEntry const AfxStringTable[] = {{100, OLESTR("wall")}, {0, nullptr}};
constexpr char const * AfxStringTableSymbol = "AfxStringTable";

/// The module whose resources are current; at start the program.
KRPLATFORM_API HINSTANCE AfxGetResourceHandle();
KRPLATFORM_API void AfxSetResourceHandle(HINSTANCE module);

/// Copies the string `id` of `module` (null: the program) into `buffer`, cut to `size` - 1 units and always terminated.
/// Returns the units copied; 0 if there is no such string or no room. With a `size` of 0 `buffer` takes a read-only
/// pointer to the string itself (it is then the address of a `WCHAR const *`), and its length is returned.
KRPLATFORM_API int LoadStringW(HINSTANCE module, UINT id, WCHAR * buffer, int size);
