// A general tree node for clients to derive from.
#pragma once

#include <krcore/export.h>
#include <krplatform/base/cobject.h>

#include <vector>

/// A node that knows its parent and owns its children. Two kinds of operation are kept apart: those that own
/// (`RemoveChild`, `SetChild`, `RemoveAllChilds` delete what they take out) and those that only edit the list
/// (`...InVector`, `...FromVector` leave the node alive, its parent link untouched). No operation sets a child's parent
/// link: the caller does, by `SetParent` or the constructor.
///
///     auto * const child = new MyNode;
///     root.AddChild(child);
///     child->SetParent(&root);
///     root.RemoveChild(child);                 deletes it
///
/// Truth values are 1 and 0. A pointer that is no child and an index out of range do nothing or give null. When memory
/// runs out `std::bad_alloc` is thrown and a child that could not be taken is freed. Deliberate: a node that is in its
/// parent's list, with its parent link set, must be deleted by the parent's `RemoveChild`, never by `delete`.
class KRCORE_API CKrTreeNode : public CObject
{
public:
    CKrTreeNode();
    /// Deliberate: does not add the node to the parent's list.
    explicit CKrTreeNode(CKrTreeNode * parent);
    /// Deletes the children from the last to the first, then takes itself out of the parent that its link names.
    ~CKrTreeNode() override;

    CRuntimeClass * GetRuntimeClass() const override;
    static CRuntimeClass * GetThisClass();
    static CRuntimeClass classCKrTreeNode;

    CKrTreeNode * GetParent() const noexcept { return m_parent; }
    void SetParent(CKrTreeNode * parent) noexcept { m_parent = parent; }
    int IsRoot() const noexcept { return m_parent == nullptr; }
    int IsLeaf() const noexcept { return m_children.empty(); }
    /// Deliberate: the present number of children, despite the name.
    unsigned int GetMaxChilds() const noexcept { return static_cast<unsigned int>(m_children.size()); }
    CKrTreeNode * GetChild(int index) const;
    CKrTreeNode * GetFirstChild() const;
    CKrTreeNode * GetLastChild() const;
    int Contains(CKrTreeNode * child) const;
    /// The first place, or -1.
    int FindIndex(CKrTreeNode * child) const;

    /// Appends; neither null nor a duplicate is refused.
    void AddChild(CKrTreeNode * child);
    /// Before the child at that index, or before the first argument. Deliberate: an index at or past the end does
    /// nothing, so this cannot append.
    void InsertChild(int index, CKrTreeNode * child);
    void InsertChild(CKrTreeNode * before, CKrTreeNode * child);
    /// Take the child out, clear its parent link and delete it.
    void RemoveChild(int index);
    void RemoveChild(CKrTreeNode * child);
    /// From the last to the first.
    void RemoveAllChilds();
    void RemoveChildFromVector(int index);
    void RemoveChildFromVector(CKrTreeNode * child);
    /// Put another child in the place of an old one, whose parent link is cleared and which is deleted.
    void SetChild(int index, CKrTreeNode * child);
    void SetChild(CKrTreeNode * oldChild, CKrTreeNode * child);
    /// The same, but the old child lives on, and is given back.
    CKrTreeNode * SetChildInVector(int index, CKrTreeNode * child);
    void SetChildInVector(CKrTreeNode * oldChild, CKrTreeNode * child);

private:
    bool IsIndex(int index) const noexcept { return index >= 0 && static_cast<std::size_t>(index) < m_children.size(); }
    void PutIn(std::size_t index, CKrTreeNode * child);
    CKrTreeNode * TakeOut(int index);

    CKrTreeNode * m_parent = nullptr;
    std::vector<CKrTreeNode *> m_children;
};
