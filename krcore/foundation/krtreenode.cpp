#include <krcore/foundation/krtreenode.h>

#include <algorithm>
#include <new>
#include <utility>

namespace
{

void Dispose(CKrTreeNode * node)
{
    if (!node)
        return;
    node->SetParent(nullptr); // so that it does not look for itself in the parent
    delete node;
}

} // namespace

CRuntimeClass CKrTreeNode::classCKrTreeNode = {"CKrTreeNode", sizeof(CKrTreeNode), 0xFFFF, nullptr,
                                               &CObject::GetThisClass};

CKrTreeNode::CKrTreeNode() = default;

CKrTreeNode::CKrTreeNode(CKrTreeNode * parent) : m_parent(parent) {}

CKrTreeNode::~CKrTreeNode()
{
    RemoveAllChilds();
    if (CKrTreeNode * const parent = std::exchange(m_parent, nullptr))
        parent->RemoveChild(this);
}

CRuntimeClass * CKrTreeNode::GetRuntimeClass() const { return &classCKrTreeNode; }

CRuntimeClass * CKrTreeNode::GetThisClass() { return &classCKrTreeNode; }

CKrTreeNode * CKrTreeNode::GetChild(int index) const
{
    return IsIndex(index) ? m_children[static_cast<std::size_t>(index)] : nullptr;
}

CKrTreeNode * CKrTreeNode::GetFirstChild() const { return m_children.empty() ? nullptr : m_children.front(); }

CKrTreeNode * CKrTreeNode::GetLastChild() const { return m_children.empty() ? nullptr : m_children.back(); }

int CKrTreeNode::Contains(CKrTreeNode * child) const { return FindIndex(child) >= 0; }

int CKrTreeNode::FindIndex(CKrTreeNode * child) const
{
    auto const place = std::find(m_children.begin(), m_children.end(), child);
    return place == m_children.end() ? -1 : static_cast<int>(place - m_children.begin());
}

void CKrTreeNode::AddChild(CKrTreeNode * child) { PutIn(m_children.size(), child); }

void CKrTreeNode::InsertChild(int index, CKrTreeNode * child)
{
    if (IsIndex(index))
        PutIn(static_cast<std::size_t>(index), child);
}

void CKrTreeNode::InsertChild(CKrTreeNode * before, CKrTreeNode * child) { InsertChild(FindIndex(before), child); }

void CKrTreeNode::PutIn(std::size_t index, CKrTreeNode * child)
{
    try
    {
        m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(index), child);
    }
    catch (std::bad_alloc const &)
    {
        if (!Contains(child))
            Dispose(child);
        throw;
    }
}

CKrTreeNode * CKrTreeNode::TakeOut(int index)
{
    CKrTreeNode * const child = GetChild(index);
    if (IsIndex(index))
        m_children.erase(m_children.begin() + index);
    return child;
}

void CKrTreeNode::RemoveChild(int index) { Dispose(TakeOut(index)); }

void CKrTreeNode::RemoveChild(CKrTreeNode * child) { RemoveChild(FindIndex(child)); }

void CKrTreeNode::RemoveAllChilds()
{
    while (!m_children.empty())
        RemoveChild(static_cast<int>(m_children.size()) - 1);
}

void CKrTreeNode::RemoveChildFromVector(int index) { TakeOut(index); }

void CKrTreeNode::RemoveChildFromVector(CKrTreeNode * child) { RemoveChildFromVector(FindIndex(child)); }

void CKrTreeNode::SetChild(int index, CKrTreeNode * child)
{
    if (GetChild(index) != child)
        Dispose(SetChildInVector(index, child));
}

void CKrTreeNode::SetChild(CKrTreeNode * oldChild, CKrTreeNode * child) { SetChild(FindIndex(oldChild), child); }

CKrTreeNode * CKrTreeNode::SetChildInVector(int index, CKrTreeNode * child)
{
    return IsIndex(index) ? std::exchange(m_children[static_cast<std::size_t>(index)], child) : nullptr;
}

void CKrTreeNode::SetChildInVector(CKrTreeNode * oldChild, CKrTreeNode * child)
{
    SetChildInVector(FindIndex(oldChild), child);
}
