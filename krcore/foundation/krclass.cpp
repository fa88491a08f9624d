#include <krcore/foundation/krclass.h>

constinit std::unique_ptr<CKrClass> CKrClass::s_pCls;

CKrClass::CKrClass(CString const & name, unsigned int version, CKrClass * base)
    : m_strName(name), m_nVersion(version), m_pBaseCls(base)
{
}

CKrClass::CKrClass(CKrClass const &) = default;

CKrClass::~CKrClass() = default;

CKrClass & CKrClass::operator=(CKrClass const &) = default;

CKrClass * CKrClass::Cls() { return s_pCls.get(); }

CKrClass * CKrClass::IsA() const { return Cls(); }

CKrClass const * CKrClass::Cast(CKrObject const * object) { return dynamic_cast<CKrClass const *>(object); }

CString const & CKrClass::ClsName() const { return m_strName; }

unsigned int CKrClass::ClsVersion() const { return m_nVersion; }

CKrClass * CKrClass::GetBaseCls() const { return m_pBaseCls; }

bool CKrClass::IsDerivedFrom(CKrClass const * cls) const
{
    // `this` may be null: the build compiles this source so that the compiler does not conclude otherwise
    CKrClass const * link = this;
    while (link && link != cls)
        link = link->m_pBaseCls;
    return link != nullptr;
}
