// How far the work on a large drawing is.
#pragma once

#include <krplatform/text/cstring.h>

#include <chrono>
#include <cstdint>
#include <iosfwd>

namespace layeredit
{

/// Whether standard output or standard error is a terminal.
bool IsOutputTerminal();
bool IsErrorTerminal();

/// One line on a terminal, once the work takes longer than a second: "plan.dxf: 45 %". It is written over and over, and wiped out in
/// the end.
class Progress
{
public:
    using Clock = std::chrono::steady_clock::time_point (*)();

    /// A null stream shows nothing.
    Progress(CString const & name, std::ostream * terminal, Clock clock = &std::chrono::steady_clock::now);
    ~Progress();
    Progress(Progress const &) = delete;
    Progress & operator=(Progress const &) = delete;

    void Show(std::uint64_t done, std::uint64_t all);

private:
    CString m_name;
    std::ostream * m_terminal;
    Clock m_clock;
    std::chrono::steady_clock::time_point m_next;
    int m_shown = 0; ///< units of the line that stands there
};

} // namespace layeredit
