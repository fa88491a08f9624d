// A path manager for tests: counted while it lives, and open to be filled.
#pragma once

#include <krcore/files/krpathmanager.h>

namespace kr::test
{

/// Its clone is counted too.
class CountedPathmanager : public CKrPathmanager
{
public:
    CountedPathmanager() { ++s_living; }
    explicit CountedPathmanager(CKrFileName const & root) : CKrPathmanager(root) { ++s_living; }
    CountedPathmanager(CountedPathmanager const & other) : CKrPathmanager(other) { ++s_living; }
    CountedPathmanager & operator=(CountedPathmanager const &) = default;
    ~CountedPathmanager() override { --s_living; }

    CountedPathmanager * Clone() const override { return new CountedPathmanager(*this); }

    using CKrPathmanager::SetPath;

    static int Living() { return s_living; }

private:
    static inline int s_living = 0;
};

} // namespace kr::test
