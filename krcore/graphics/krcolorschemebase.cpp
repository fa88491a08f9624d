#include <krcore/graphics/krcolorschemebase.h>

CKrColorSchemeBase::CKrColorSchemeBase() = default;

CKrColorSchemeBase::CKrColorSchemeBase(CKrColorSchemeBase const & other) = default;

CKrColorSchemeBase & CKrColorSchemeBase::operator=(CKrColorSchemeBase const & other) = default;

CKrColorSchemeBase::~CKrColorSchemeBase() = default;

bool CKrColorSchemeBase::Init() { return true; }

bool CKrColorSchemeBase::Reset() { return true; }

bool CKrColorSchemeBase::Clear() { return true; }
