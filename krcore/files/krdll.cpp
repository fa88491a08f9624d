#include <krcore/files/krdll.h>

#include <krcore/diagnostics/krtrace.h>
#include <krplatform/base/cexception.h>

CKrDLL::CKrDLL() = default;

CKrDLL::CKrDLL(CKrFileName const & name)
{
    if (name.IsDirName())
        return;
    m_name = name.HasRelativePath() ? CKrFileName(name.GetName(), false) : name;
}

CKrDLL::CKrDLL(HINSTANCE module)
{
    constexpr DWORD size = 512;
    try
    {
        WCHAR path[size];
        if (module && GetModuleFileNameW(module, path, size) > 0)
            m_name = CKrFileName(CString(path), false);
    }
    catch (CException * exception)
    {
        exception->Delete();
    }
    catch (...)
    {
    }
}

CKrDLL::CKrDLL(CKrDLL const & other) = default;

CKrDLL & CKrDLL::operator=(CKrDLL const & other)
{
    if (this == &other)
        m_name = other.m_name;
    return *this;
}

CKrDLL::~CKrDLL() = default;

bool CKrDLL::IsValid() const
{
    if (m_name.GetBaseName().IsEmpty())
        return false;
    return !HasFullPathName() || m_name.IsExisting();
}

bool CKrDLL::IsMapped() const { return IsValid() && GetModuleHandleW(m_name.GetBaseName()) != nullptr; }

bool CKrDLL::IsMappedFromOtherPath() const
{
    if (m_name.GetBaseName().IsEmpty())
        return false;
    HINSTANCE const module = GetModuleHandleW(m_name.GetBaseName());
    return module && !CKrDLL(module).m_name.IsEqual(m_name);
}

bool CKrDLL::IsUsed() const { return false; }

HINSTANCE CKrDLL::GetDLLHandle() const { return IsValid() ? GetModuleHandleW(m_name.GetFullName(true)) : nullptr; }

void CKrDLL::TraceNotMapped(long line) const
{
    CKrTrace::GetObjectW(true)->Trace(m_name.GetFullName(true) + OLESTR(" not mapped"), OLESTR("krdll"), line);
}

FARPROC CKrDLL::GetFuncAddress(CString const & name) const
{
    HINSTANCE const module = GetDLLHandle();
    if (!module)
    {
        TraceNotMapped(270);
        return nullptr;
    }
    FARPROC const address = GetProcAddress(module, CStringA(name));
    if (!address)
        TraceNotMapped(281); // Deliberate: the line names the library here as well
    return address;
}

bool CKrDLL::LoadDLL(bool alteredSearchPath)
{
    if (!IsValid())
        return false;
    CString const name = m_name.GetFullName(true);
    HINSTANCE const module = alteredSearchPath && HasFullPathName()
                                 ? LoadLibraryExW(name, nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)
                                 : AfxLoadLibrary(name);
    if (!module)
        return false;
    m_name = CKrDLL(module).m_name;
    return !m_name.GetBaseName().IsEmpty();
}

bool CKrDLL::UnloadDLL()
{
    HINSTANCE const module = GetDLLHandle();
    return module && AfxFreeLibrary(module);
}
