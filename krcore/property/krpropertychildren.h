// The sub-properties of a node.
#pragma once

#include <krcore/property/krnameindex.h>

#include <memory>
#include <vector>

class CKrProperty;

namespace kr::detail
{

/// The sub-properties of a node in their order, and what is known of their names. Whoever changes a name says so. Few nodes have any, so
/// that a node holds this by pointer.
class PropertyChildren
{
public:
    using Nodes = std::vector<std::unique_ptr<CKrProperty>>;

    Nodes const & GetNodes() const noexcept { return m_nodes; }
    std::size_t GetCount() const noexcept { return m_nodes.size(); }
    CKrProperty & GetAt(std::size_t index) const noexcept { return *m_nodes[index]; }

    /// The index of the first of that name, or -1.
    int Find(CString const & name) const noexcept;
    /// The same, quickly where it is the expected one.
    int Find(CString const & name, std::size_t expected) const noexcept;

    /// A clone of each node, in their order.
    std::unique_ptr<PropertyChildren> Clone() const;
    /// Where memory runs out, the node is freed and all is as it was.
    void Insert(std::size_t index, std::unique_ptr<CKrProperty> node);
    std::unique_ptr<CKrProperty> Remove(std::size_t index) noexcept;
    std::unique_ptr<CKrProperty> RemoveLast() noexcept;
    /// To be brought into another order.
    Nodes & Rearrange() noexcept
    {
        ForgetNames();
        return m_nodes;
    }
    void ForgetNames() noexcept;

private:
    bool IsFirstOfName(std::size_t index, CString const & name) const noexcept;
    int Search(CString const & name) const noexcept;
    void NoteSearched(std::size_t names) const noexcept;

    Nodes m_nodes;
    mutable std::unique_ptr<NameIndex> m_index; ///< made when many children are searched often
    mutable unsigned int m_searched = 0;        ///< names that were looked at without an index
    mutable unsigned int m_countOfDistinct = 0; ///< so many at the front are known to have different names
    mutable unsigned int m_found = 0;           ///< the last that was found without an index
};

} // namespace kr::detail
