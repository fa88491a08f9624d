// An intrusive reference count.
#pragma once

#include <krcore/export.h>

#include <cstdint>

/// Counts its references and deletes itself when the last one goes. A new object counts 0: its creator calls
/// `IncRefCount` first. The count is not atomic: an object that threads share needs a lock of its owner.
class KRCORE_API CKrRefCount
{
public:
    CKrRefCount() noexcept;
    /// Deliberate: takes nothing from the source; the count of a copy has no meaning until it is assigned.
    CKrRefCount(CKrRefCount const & other) noexcept;
    /// Deliberate: copies the count, and so overwrites the references to this object.
    CKrRefCount & operator=(CKrRefCount const & other) noexcept;
    virtual ~CKrRefCount();

    void IncRefCount() noexcept;
    /// Deletes the object if the count is exactly 0 afterwards; a new object counts -1 then and lives on.
    void DecRefCount();

private:
    std::int32_t m_count;
};
