// What the command line asks for.
#pragma once

#include "layer_properties.h"

#include <optional>
#include <vector>

namespace layeredit
{

enum class Format
{
    Table,
    Tsv,
    Json
};

/// A property with a value, from "PROP=VALUE".
struct Assignment
{
    PropertyRow const * row = nullptr;
    CKrProperty property;
    double given = 0.0; ///< a line weight that is none of the 24, in millimetres, else 0
};

struct Options
{
    std::vector<CString> drawings;
    std::vector<CString> layers;
    std::vector<CString> excluded;
    bool all = false;
    std::vector<Assignment> where;
    std::vector<Assignment> set;
    CString output;
    bool inPlace = false;
    CString backupSuffix;
    bool dryRun = false;
    bool grid = false;
    Format format = Format::Table;
    UINT codePage = 0;
    bool references = false;
    bool addApplication = false;
    CString traceFile;
    bool quiet = false;

    /// Whether files are written at all.
    bool Writes() const { return !dryRun && (inPlace || !output.IsEmpty()); }
};

/// Reads and checks the call; no file is touched. The exit status where nothing is left to do: after help, or with an error on the stack.
std::optional<int> ReadOptions(int count, char const * const * arguments, Options & options);

} // namespace layeredit
