// String resources of modules.
#pragma once

#include <krplatform/system/module.h>

/// One string of a module's string table.
struct AfxStringEntry
{
    unsigned int id;
    WCHAR const * text;
};

/// The symbol by which a module carries its strings: an exported array that a null text ends. Where a number stands
/// twice the first row counts. In a module that hides its symbols the table needs default visibility.
///
///     extern "C" AfxStringEntry const AfxStringTable[] = {{100, OLESTR("wall")}, {0, nullptr}};
constexpr char const * AfxStringTableSymbol = "AfxStringTable";

/// The module whose resources are current; at start the program, as after setting null.
KRPLATFORM_API HINSTANCE AfxGetResourceHandle();
KRPLATFORM_API void AfxSetResourceHandle(HINSTANCE module);

/// The module that has the string `id`: the current resource module, or else the extension module that was made known
/// last and has it. The current resource module where none has it.
KRPLATFORM_API HINSTANCE AfxFindStringResourceHandle(UINT id);

/// Copies the string `id` of `module` (null: the program) into `buffer`, cut to `size` - 1 units and always terminated.
/// Returns the units copied; 0, with the last error set, if there is no such string (ERROR_RESOURCE_NAME_NOT_FOUND) or
/// module. With a `size` of 0 `buffer` takes a read-only pointer to the string itself (it is then the address of a
/// `WCHAR const *`; null if there is none), and its length is returned. ERROR_INVALID_PARAMETER for no buffer and a
/// negative size.
KRPLATFORM_API int LoadStringW(HINSTANCE module, UINT id, WCHAR * buffer, int size);
