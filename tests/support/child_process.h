// Tests that need an environment of their own run in a child process.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace kr::test
{

struct ChildResult
{
    int exitStatus; ///< -1 where the child was ended by a signal
    std::string output;
};

/// Runs a program with `environment` added to (or, with an empty value, taken from) this process's, and collects what
/// it writes to standard output and standard error.
ChildResult RunProgram(std::vector<std::string> const & arguments,
                       std::vector<std::pair<std::string, std::string>> const & environment = {});

/// Runs one test of this executable, also one whose name begins with DISABLED_, in a child process.
ChildResult RunTestInChild(std::string const & testName,
                           std::vector<std::pair<std::string, std::string>> const & environment);

} // namespace kr::test
