// An entry of the tables of files and directories.
#pragma once

#include <krcore/files/krfilename.h>

namespace kr::detail
{

/// A file or directory, and whether the user made the entry and may change it.
struct NamedFile
{
    CKrFileName fileName;
    bool user = false;
};

} // namespace kr::detail
