// Loaded modules: loading, finding, symbols, freeing, and the record of an extension module.
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/base/types.h>
#include <krplatform/export.h>

/// A loaded module. The system counts how often it was loaded; `FreeLibrary` takes one off.
using HINSTANCE = struct HINSTANCE__ *;
using HMODULE = HINSTANCE;

/// A symbol of a module, which the caller casts.
using FARPROC = int (*)();

constexpr DWORD LOAD_WITH_ALTERED_SEARCH_PATH = 8;

/// Loads a module by path, or by name through the system's search; null, with the last error set, where that fails.
/// With LOAD_WITH_ALTERED_SEARCH_PATH the libraries it needs are sought beside it first. Name and path are in Windows
/// or POSIX spelling.
KRPLATFORM_API HMODULE LoadLibraryExW(WCHAR const * fileName, void * reserved, DWORD flags);
KRPLATFORM_API HINSTANCE AfxLoadLibrary(WCHAR const * fileName);
KRPLATFORM_API BOOL FreeLibrary(HMODULE module);
KRPLATFORM_API BOOL AfxFreeLibrary(HINSTANCE module);

/// A module in memory, by its file name, its file name without the last ending, or its path; null if there is none. A
/// null name gives the program itself. The module's count does not change.
KRPLATFORM_API HMODULE GetModuleHandleW(WCHAR const * name);

/// The full path of the module (null: the program), with two leading backslashes in place of one slash
/// (`\\usr\lib\x.so`). Returns its length; a path that does not fit is cut and terminated, and the result is `size`. 0
/// for no module.
KRPLATFORM_API DWORD GetModuleFileNameW(HMODULE module, WCHAR * path, DWORD size);

/// A symbol by its narrow name; null, with the last error set, if the module does not export it.
KRPLATFORM_API FARPROC GetProcAddress(HMODULE module, char const * name);

/// The module that holds `address`, without a change of its count; null if none does.
KRPLATFORM_API HMODULE AfxModuleFromAddress(void const * address);

/// The record of an extension module: its handles, filled by `AfxInitExtensionModule`.
struct AFX_EXTENSION_MODULE
{
    BOOL bInitialized;
    HMODULE hModule;
    HMODULE hResource;
};

/// Fills the record with the module, which carries its own resources. False for no module.
KRPLATFORM_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE & record, HMODULE module);
/// Empties the record and takes it out of the modules that the program knows.
KRPLATFORM_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE & record, BOOL all = FALSE);

/// Makes an extension module known to the program, so that its string resources are found behind those of the current
/// resource module. Made with `new` and left to the platform, which frees it in `AfxTermExtensionModule`.
class KRPLATFORM_API CDynLinkLibrary
{
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE & record);
    ~CDynLinkLibrary();
    CDynLinkLibrary(CDynLinkLibrary const &) = delete;
    CDynLinkLibrary & operator=(CDynLinkLibrary const &) = delete;

    HMODULE m_hModule;
    HMODULE m_hResource;
};
