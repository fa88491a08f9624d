// The library's start and stop.
#include <krcore/files/krmodule.h>

#include <exception>

namespace
{

AFX_EXTENSION_MODULE s_extensionModule;

/// Fills the record when the library is loaded, before any static object of a client is made, and gives it up at the end. A library that
/// does not find itself is not loaded: the program ends.
class LibraryModule
{
public:
    LibraryModule()
    {
        if (!AfxInitExtensionModule(s_extensionModule, AfxModuleFromAddress(&s_extensionModule)))
            std::terminate(); // GCOVR_EXCL_LINE: the loader knows where the library lies that it is loading
        m_record.Init(s_extensionModule.hModule, s_extensionModule.hResource);
        new CDynLinkLibrary(s_extensionModule); // left to the platform
    }
    ~LibraryModule() { AfxTermExtensionModule(s_extensionModule); }
    LibraryModule(LibraryModule const &) = delete;
    LibraryModule & operator=(LibraryModule const &) = delete;

    CKrModule m_record;
};

LibraryModule s_module;

} // namespace

CKrModule & KrCore::GetModule() { return s_module.m_record; }
