// What the samples of the pages show of their values.
#pragma once

#include <krplatform/text/cstring.h>

#include <sstream>
#include <string>
#include <vector>

namespace kr::test
{

/// A text as a page shows it, in UTF-8.
inline std::string Shown(CString const & text)
{
    std::ostringstream stream;
    stream << text;
    return stream.str();
}
inline std::string Shown(char const * text) { return text; }
inline std::vector<std::string> Shown(std::vector<CString> const & texts)
{
    std::vector<std::string> shown;
    for (CString const & text : texts)
        shown.push_back(Shown(text));
    return shown;
}

} // namespace kr::test
