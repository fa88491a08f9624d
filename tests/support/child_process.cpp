#include "tests/support/child_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <stdexcept>

namespace kr::test
{

namespace
{

[[noreturn]] void Become(std::vector<std::string> const & arguments,
                         std::vector<std::pair<std::string, std::string>> const & environment, int output)
{
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    for (auto const & [name, value] : environment)
    {
        if (value.empty())
            unsetenv(name.c_str());
        else
            setenv(name.c_str(), value.c_str(), 1);
    }
    std::vector<char *> pointers;
    for (std::string const & argument : arguments)
        pointers.push_back(const_cast<char *>(argument.c_str()));
    pointers.push_back(nullptr);
    execvp(pointers[0], pointers.data());
    _exit(127);
}

} // namespace

ChildResult RunProgram(std::vector<std::string> const & arguments,
                       std::vector<std::pair<std::string, std::string>> const & environment)
{
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    pid_t const child = fork();
    if (child < 0)
        throw std::runtime_error("no child process");
    if (child == 0)
    {
        close(ends[0]);
        Become(arguments, environment, ends[1]);
    }
    close(ends[1]);
    ChildResult result{-1, {}};
    char buffer[4096];
    for (ssize_t count; (count = read(ends[0], buffer, sizeof buffer)) > 0;)
        result.output.append(buffer, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    if (WIFEXITED(status))
        result.exitStatus = WEXITSTATUS(status);
    return result;
}

ChildResult RunTestInChild(std::string const & testName,
                           std::vector<std::pair<std::string, std::string>> const & environment)
{
    return RunProgram({"/proc/self/exe", "--gtest_also_run_disabled_tests", "--gtest_filter=" + testName}, environment);
}

} // namespace kr::test
