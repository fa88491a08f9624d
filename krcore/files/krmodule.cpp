#include <krcore/files/krmodule.h>

#include <krcore/files/krdll.h>

#include <utility>

CKrModule::CKrModule() = default;

CKrModule::CKrModule(HINSTANCE handle) : CKrModule(handle, handle) {}

CKrModule::CKrModule(HINSTANCE module, HINSTANCE resource) : m_module(module), m_resource(resource) {}

CKrModule::CKrModule(CKrModule const & other) = default;

CKrModule & CKrModule::operator=(CKrModule const & other) = default;

CKrModule::~CKrModule() { RestoreResourceHandle(); }

void CKrModule::FreeOwned()
{
    if (std::exchange(m_owned, false))
        AfxFreeLibrary(m_resource);
}

bool CKrModule::Init(HINSTANCE module, HINSTANCE resource)
{
    FreeOwned();
    m_previousResource = nullptr;
    m_module = module;
    m_resource = resource;
    return true;
}

bool CKrModule::ChangeResourceHandle(HINSTANCE resource, bool own)
{
    FreeOwned();
    if (!m_previousResource)
        m_previousResource = m_resource;
    m_resource = resource;
    m_owned = own && resource;
    return true;
}

bool CKrModule::LoadResource(CString const & fileName)
{
    RestoreResourceHandle();
    HINSTANCE const loaded = CKrDLL(CKrFileName(fileName, false)).Load(true);
    return loaded && ChangeResourceHandle(loaded, true);
}

bool CKrModule::RestoreResourceHandle()
{
    FreeOwned();
    if (m_previousResource)
        m_resource = std::exchange(m_previousResource, nullptr);
    return true;
}

CKrFileName CKrModule::GetFileName() const { return m_module ? CKrDLL(m_module).GetDLLName() : CKrFileName(); }

CString CKrModule::GetModuleName() const { return GetFileName().GetBaseName(); }

CString CKrModule::GetPath() const { return GetFileName().GetPath(true); }
