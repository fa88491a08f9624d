#include <krcore/foundation/krbasedaten.h>

CKrBaseDaten::CKrBaseDaten() noexcept : m_active(true) {}

CKrBaseDaten::CKrBaseDaten(CKrBaseDaten const & other) noexcept = default;

CKrBaseDaten & CKrBaseDaten::operator=(CKrBaseDaten const & other) noexcept = default;

CKrBaseDaten::~CKrBaseDaten() = default;

bool CKrBaseDaten::HasValidKey() const { return !GetObjKey().IsEmpty(); }

CString CKrBaseDaten::GetObjDesc() const { return CString(); }
