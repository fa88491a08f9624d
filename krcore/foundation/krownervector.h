// A vector of pointers that owns what they point to.
#pragma once

#include <vector>

namespace kr
{

/// A `std::vector` of pointers whose destructor deletes every object in it. Null elements are allowed.
///
///     kr::ownervector<CKrObject> children;
///     children.push_back(child);                      takes ownership
///     kr::ownervector<CKrObject> copy(children);      -> empty
///     children = copy;                                -> empty, the child is deleted
///
/// Everything but copying and the destructor is the vector's own and deletes nothing: what `erase`, `pop_back`, `clear`
/// or an assignment to an element takes out belongs to the caller. `a.swap(b)` hands elements over; `std::swap` must
/// not be used, since it copies. Destroy it as what it is, not through a pointer to `std::vector`.
template <class T>
class ownervector : public std::vector<T *>
{
public:
    ownervector() = default;
    /// Deliberate: a copy is as long as it was before the copying, so it stays empty, from a temporary too.
    ownervector(ownervector const &) : std::vector<T *>() {}
    ~ownervector() { DeleteElements(); }

    /// Deliberate: deletes the elements of this vector and leaves it empty; `other` is not read. Assigning a vector to
    /// itself has no effect.
    ownervector & operator=(ownervector const & other)
    {
        if (this != &other)
            DeleteElements();
        return *this;
    }

private:
    void DeleteElements()
    {
        std::vector<T *> elements; // the vector is empty already when a destructor of an element looks at it
        elements.swap(*this);
        for (T * const element : elements)
            delete element;
    }
};

} // namespace kr
