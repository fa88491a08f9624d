// Calls of the program, and the drawings that they work on.
#pragma once

#include "tests/krplatform/system/surroundings.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kr::test
{

struct Called
{
    int status;
    std::string output;
    std::string errors;
};

/// A directory with drawings, in which the program is called.
class Workshop
{
public:
    /// The names of the bundled drawings.
    static std::vector<std::string> const & BundledDrawings();
    static std::string BundledDrawing(std::string const & name);

    /// A copy of a bundled drawing; its name.
    std::string Take(std::string const & name);
    void Put(std::string const & name, std::string_view bytes) { WriteText(m_directory / name, bytes); }
    std::string Get(std::string const & name) const { return ReadText(m_directory / name); }
    bool Has(std::string const & name) const { return std::filesystem::exists(m_directory / name); }
    std::filesystem::path PathOf(std::string const & name) const { return m_directory / name; }
    /// The names of all files, in the order of their letters.
    std::vector<std::string> List() const;

    Called Call(std::vector<std::string> const & arguments,
                std::vector<std::pair<std::string, std::string>> const & environment = {}) const;
    /// What another program, in this directory, says about a drawing.
    Called Run(std::vector<std::string> const & command,
               std::vector<std::pair<std::string, std::string>> const & environment = {}) const;

    /// The layers as tab-separated values.
    std::string LayersOf(std::string const & name) const;
    /// Fails unless an independent reader finds the same layers in the drawings.
    void ExpectOtherReaderAgrees(std::vector<std::string> const & names) const;

private:
    TemporaryDirectory m_directory;
};

} // namespace kr::test
