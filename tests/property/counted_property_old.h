// Properties of the older generation that are counted while they live.
#pragma once

#include <krcore/property/krpropertyold.h>

#include <utility>

namespace kr::test
{

/// Writes its name when it ends.
class CountedPropertyOld : public CKrPropertyOld
{
public:
    explicit CountedPropertyOld(CString const & name) : CKrPropertyOld(name, CString(), true, true) { ++s_living; }
    CountedPropertyOld(CountedPropertyOld const &) = delete;
    CountedPropertyOld & operator=(CountedPropertyOld const &) = delete;
    ~CountedPropertyOld() override
    {
        --s_living;
        s_ended += GetName();
    }

    static int Living() { return s_living; }
    /// The names of those that ended since it was asked for last.
    static CString TakeEnded() { return std::exchange(s_ended, CString()); }

private:
    static inline int s_living = 0;
    static inline CString s_ended;
};

} // namespace kr::test
