// Loaded modules: loading, finding, symbols, freeing, and the record of an extension module.
#pragma once

#include <krplatform/base/lasterror.h>
#include <krplatform/base/types.h>
#include <krplatform/export.h>
#include <krplatform/system/errorcodes.h>

/// A loaded module: the same handle for every load of it, valid as long as it is in memory. The system counts how often
/// it was loaded; `FreeLibrary` takes one off. A handle that is no module's any more is refused (ERROR_INVALID_HANDLE).
/// All threads may load, find and free modules at once; a module must not leave while a function is at work on it.
///
///     HMODULE const module = LoadLibraryExW(OLESTR("//opt/cad/draw.so"), nullptr, 0);
///     GetModuleHandleW(OLESTR("draw")) == module         and "draw.so", or a path to it
///     GetProcAddress(module, "Draw")                     the function, or null
///     FreeLibrary(module)                                -> 1
using HINSTANCE = struct HINSTANCE__ *;
using HMODULE = HINSTANCE;

/// A symbol of a module, which the caller casts.
using FARPROC = int (*)();

constexpr DWORD LOAD_WITH_ALTERED_SEARCH_PATH = 8;

/// Loads a module; null, with the last error set, where that fails. Name and path are in Windows or POSIX spelling.
///
/// A name without a directory is a module of that file name in memory, a file beside the program, or what the system's
/// own search finds, in this order. With LOAD_WITH_ALTERED_SEARCH_PATH the libraries that a module given by path needs
/// are sought beside it first, unless one of that name is in memory; on Linux each is known by its SONAME. Errors:
/// ERROR_MOD_NOT_FOUND for the module or one that it needs, ERROR_PROC_NOT_FOUND for a symbol that it needs,
/// ERROR_BAD_EXE_FORMAT for a file that is no module of this machine, ERROR_ACCESS_DENIED, ERROR_NOT_ENOUGH_MEMORY;
/// ERROR_INVALID_PARAMETER for no name and other flags.
KRPLATFORM_API HMODULE LoadLibraryExW(WCHAR const * fileName, void * reserved, DWORD flags);
KRPLATFORM_API HINSTANCE AfxLoadLibrary(WCHAR const * fileName);

/// Takes one load back; the last one takes the module out of memory, unless another module needs it or it asks to stay.
/// False, with ERROR_BUSY, where there is none to take back, as for the program and the libraries it is linked with.
KRPLATFORM_API BOOL FreeLibrary(HMODULE module);
KRPLATFORM_API BOOL AfxFreeLibrary(HINSTANCE module);

/// A module in memory: by its file name, its file name without the last ending, or a path to its file, also through a
/// link. Case counts as in the file system. Null, with ERROR_MOD_NOT_FOUND, if there is none. A null name gives the
/// program. The module's count does not change.
KRPLATFORM_API HMODULE GetModuleHandleW(WCHAR const * name);

/// The full path of the module (null: the program), as it was loaded, with two leading backslashes in place of one
/// slash (`\\usr\lib\x.so`). Returns its length; a path that does not fit is cut and terminated, and the result is
/// `size`, with ERROR_INSUFFICIENT_BUFFER. 0 for no module.
KRPLATFORM_API DWORD GetModuleFileNameW(HMODULE module, WCHAR * path, DWORD size);

/// A function or variable by its narrow name; null, with ERROR_PROC_NOT_FOUND, if the module (null: the program) does
/// not export it itself.
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

/// Fills the record with the module, which carries its own resources. False, and untouched, for no module.
KRPLATFORM_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE & record, HMODULE module);

/// Takes the module (with `all` every extension module) out of those that the program knows, and empties the record.
KRPLATFORM_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE & record, BOOL all = FALSE);

/// Makes an extension module known to the program, so that `AfxFindStringResourceHandle` looks into it. Made with `new`
/// and left to the platform, which frees it in `AfxTermExtensionModule`.
class KRPLATFORM_API CDynLinkLibrary
{
public:
    explicit CDynLinkLibrary(AFX_EXTENSION_MODULE & record);
    ~CDynLinkLibrary();
    CDynLinkLibrary(CDynLinkLibrary const &) = delete;
    CDynLinkLibrary & operator=(CDynLinkLibrary const &) = delete;

    HMODULE m_hModule;
    HMODULE m_hResource;
    CDynLinkLibrary * m_pNextDLL; ///< the one made known before it, or null
};
