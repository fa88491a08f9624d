#include "tests/examples/layeredit/call.h"

#include "tests/examples/layeredit/layer_table.h"
#include "tests/support/child_process.h"

#include <algorithm>

namespace kr::test
{

namespace
{

/// The other reader adds these behind all others where a drawing lacks them.
bool IsAddedByOther(std::string const & line)
{
    return line.starts_with("0\t7\t") || line.starts_with("Defpoints\t7\t");
}

} // namespace

std::vector<std::string> const & Workshop::BundledDrawings()
{
    static std::vector<std::string> const names = {
        "no-version-shift-jis.dxf", "r12-8bit-name.dxf", "r2004-932-unicode-escapes.dxf",
        "r2004-all-properties.dxf", "r2013-utf8.dxf",    "r2018-true-colour.dxf"};
    return names;
}

std::string Workshop::BundledDrawing(std::string const & name)
{
    return ReadText(std::filesystem::path(KR_LAYEREDIT_DRAWINGS) / name);
}

std::string Workshop::Take(std::string const & name)
{
    Put(name, BundledDrawing(name));
    return name;
}

std::vector<std::string> Workshop::List() const
{
    std::vector<std::string> names;
    for (auto const & entry : std::filesystem::directory_iterator(m_directory.Path()))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

Called Workshop::Run(std::vector<std::string> const & command,
                     std::vector<std::pair<std::string, std::string>> const & environment) const
{
    // the shell becomes the program; it only parts the two outputs
    TemporaryDirectory const outputs;
    std::vector<std::string> arguments = {"/bin/sh",
                                          "-c",
                                          R"(cd "$1" && o=$2 && e=$3 && shift 3 && exec "$@" >"$o" 2>"$e")",
                                          "sh",
                                          m_directory.Path().string(),
                                          (outputs / "out").string(),
                                          (outputs / "err").string()};
    arguments.insert(arguments.end(), command.begin(), command.end());
    int const status = RunProgram(arguments, environment).exitStatus;
    return {status, ReadText(outputs / "out"), ReadText(outputs / "err")};
}

Called Workshop::Call(std::vector<std::string> const & arguments,
                      std::vector<std::pair<std::string, std::string>> const & environment) const
{
    std::vector<std::string> command = {KR_LAYEREDIT_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return Run(command, environment);
}

std::string Workshop::LayersOf(std::string const & name) const { return Call({name, "--format", "tsv", "-q"}).output; }

void Workshop::ExpectOtherReaderAgrees(std::vector<std::string> const & names) const
{
    std::vector<std::string> command = {"/usr/bin/python3", KR_LAYEREDIT_READER};
    command.insert(command.end(), names.begin(), names.end());
    Called const called = Run(command);
    EXPECT_EQ(called.status, 0) << called.errors;
    std::vector<std::vector<std::string>> others;
    for (std::string const & line : LinesOf(called.output))
    {
        if (line.starts_with("Name\tColor\t"))
            others.emplace_back();
        others.back().push_back(line);
    }
    ASSERT_EQ(others.size(), names.size());
    for (std::size_t index = 0; index < names.size(); ++index)
    {
        std::vector<std::string> const ours = LinesOf(LayersOf(names[index]));
        std::vector<std::string> & other = others[index];
        while (other.size() > ours.size() && IsAddedByOther(other.back()))
            other.pop_back();
        EXPECT_EQ(other, ours) << names[index];
    }
}

} // namespace kr::test
