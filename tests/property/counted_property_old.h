// Properties of the older generation that are counted while they live.
#pragma once

#include <krcore/property/krpropertyold.h>

#include <iterator>
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
        for (WCHAR const unit : GetName().View())
            s_ended[s_endedLength++ % std::size(s_ended)] = unit; // memory may have run out
    }

    static int Living() { return s_living; }
    /// The names of those that ended since it was asked for last.
    static CString TakeEnded() { return CString(s_ended, static_cast<int>(std::exchange(s_endedLength, 0))); }

private:
    static inline int s_living = 0;
    static inline WCHAR s_ended[64];
    static inline std::size_t s_endedLength = 0;
};

} // namespace kr::test
