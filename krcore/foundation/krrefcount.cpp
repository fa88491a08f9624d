#include <krcore/foundation/krrefcount.h>

CKrRefCount::CKrRefCount() noexcept : m_count(0) {}

// The count of a copy means nothing; it is 0 so that nobody reads what was never written.
CKrRefCount::CKrRefCount(CKrRefCount const &) noexcept : m_count(0) {}

CKrRefCount & CKrRefCount::operator=(CKrRefCount const & other) noexcept
{
    m_count = other.m_count;
    return *this;
}

CKrRefCount::~CKrRefCount() = default;

void CKrRefCount::IncRefCount() noexcept { ++m_count; }

void CKrRefCount::DecRefCount()
{
    if (--m_count == 0)
        delete this;
}
