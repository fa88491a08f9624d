// The key of a column, with a count of its changes.
#pragma once

#include <krplatform/text/cstring.h>

#include <memory>
#include <utility>

namespace kr::detail
{

class ColumnIndex;

/// A text that tells whoever watches it when it changes, moves or ends, so that an index over many of them knows when
/// it is stale. A move takes the watcher along, a copy does not. Watching changes no key, so it is `const`.
class ColumnKey
{
public:
    /// What watched keys count up.
    using Changes = std::shared_ptr<std::size_t>;

    ColumnKey() noexcept = default;
    explicit ColumnKey(CString const & text) noexcept : m_text(text) {}
    ColumnKey(ColumnKey const & other) noexcept : m_text(other.m_text) {}
    ColumnKey(ColumnKey && other) noexcept : m_text(std::move(other.m_text)), m_changes(std::move(other.m_changes))
    {
        Count();
    }
    ColumnKey & operator=(ColumnKey const &) = delete;
    ColumnKey & operator=(ColumnKey && other) noexcept
    {
        Count();
        m_text = std::move(other.m_text);
        m_changes = std::move(other.m_changes);
        Count();
        return *this;
    }
    ~ColumnKey() { Count(); }

    CString const & GetText() const noexcept { return m_text; }
    /// Whoever watched before is told.
    void Watch(Changes const & changes) const noexcept
    {
        Count();
        m_changes = changes;
    }

private:
    void Count() const noexcept
    {
        if (m_changes)
            ++*m_changes;
    }

    CString m_text;
    mutable Changes m_changes;
};

} // namespace kr::detail
