#include "progress.h"

#include <filesystem>
#include <ostream>
#include <string>

namespace layeredit
{

namespace
{

constexpr std::chrono::milliseconds s_firstWait{1000};
constexpr std::chrono::milliseconds s_wait{100};

/// A device by name, so that no header of the system is needed; where there are no such names, nothing is a terminal.
bool IsTerminal(char const * device)
{
    std::error_code error;
    return std::filesystem::is_character_file(device, error) &&
           !std::filesystem::equivalent(device, "/dev/null", error);
}

} // namespace

bool IsOutputTerminal() { return IsTerminal("/dev/stdout"); }

bool IsErrorTerminal() { return IsTerminal("/dev/stderr"); }

Progress::Progress(CString const & name, std::ostream * terminal, Clock clock)
    : m_name(name), m_terminal(terminal), m_clock(clock), m_next(clock() + s_firstWait)
{
}

Progress::~Progress()
{
    if (m_shown > 0)
        *m_terminal << "\r" << std::string(static_cast<std::size_t>(m_shown), ' ') << "\r" << std::flush;
}

void Progress::Show(std::uint64_t done, std::uint64_t all)
{
    if (!m_terminal || all == 0 || m_clock() < m_next)
        return;
    m_next = m_clock() + s_wait;
    CString line;
    line.Format(OLESTR("%s: %d %%"), m_name, static_cast<int>(done * 100 / all));
    *m_terminal << "\r" << line << std::flush;
    m_shown = line.GetLength();
}

} // namespace layeredit
