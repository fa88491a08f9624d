// Objects that are counted while they live.
#pragma once

#include <krcore/foundation/krobject.h>

namespace kr::test
{

/// Its clone is a plain `CKrObject`.
class Counted : public CKrObject
{
public:
    explicit Counted(int newValue = 0) : value(newValue) { ++s_living; }
    Counted(Counted const & other) : CKrObject(other), value(other.value) { ++s_living; }
    ~Counted() override { --s_living; }
    Counted & operator=(Counted const &) = delete;

    static int Living() { return s_living; }

    int const value;

private:
    static inline int s_living = 0;
};

/// Its clone is equal to it.
class CountedWithClone : public Counted
{
public:
    using Counted::Counted;
    CKrObject * Clone() const override { return new CountedWithClone(*this); }
};

} // namespace kr::test
