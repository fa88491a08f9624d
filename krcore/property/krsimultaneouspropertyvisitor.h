// Walking one tree with a cursor in another.
#pragma once

#include <krcore/export.h>
#include <krcore/property/krpropertyset.h>
#include <krcore/property/krvisitor.h>

/// Keeps a cursor, the counterpart, in a second set while the first is walked: `Match` steps down to the sub-property of the node's name,
/// `Action` steps up again. Deliberate: it steps up before the children are walked, so that used as it stands the cursor never
/// stays deeper than one level below the other root, and a node without a counterpart leaves it where it was.
class KRCORE_API CKrSimultaneousPropertyVisitor : public kr::visitor<CKrProperty>
{
public:
    /// Starts at the root of `other`, which must outlive the visitor and keep the node at the cursor.
    explicit CKrSimultaneousPropertyVisitor(CKrPropertySet & other);
    /// Copies the cursor too.
    CKrSimultaneousPropertyVisitor(CKrSimultaneousPropertyVisitor const & other);
    CKrSimultaneousPropertyVisitor & operator=(CKrSimultaneousPropertyVisitor const &) = delete;
    ~CKrSimultaneousPropertyVisitor() override;

protected:
    /// Whether the counterpart has a sub-property of the node's name; that becomes the counterpart. False for a null node or counterpart.
    bool Match(CKrProperty * node) override;
    /// The counterpart becomes its parent, which may be null; always true.
    bool Action(CKrProperty * node) override;

    CKrPropertySet & m_other;
    CKrProperty * m_counterpart; ///< may be null
};
