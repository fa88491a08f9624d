// Walking a tree.
#pragma once

namespace kr
{

/// Walks a tree of `T`, handed to the `Visit` of its root. For each node, parents first: `Match` says whether `Action` shall run; after it
/// the children follow, unless `Action` said false, which ends the walk; then `Finish` is told the result, also on the way
/// back of a walk that was ended. A node that does not match is not acted on, but its children are still walked.
///
///     struct Counter : kr::visitor<CKrProperty>
///     {
///         bool Action(CKrProperty *) override { ++count; return true; }
///         int count = 0;
///     };
template <class T>
class visitor
{
public:
    visitor() = default;
    visitor(visitor const &) = default;
    visitor & operator=(visitor const &) { return *this; }

    virtual bool Match(T *) { return true; }
    virtual bool Action(T *) { return true; }
    /// The answer plays no part.
    virtual bool Finish(T *, bool) { return true; }
    virtual ~visitor() = default;
};

} // namespace kr
