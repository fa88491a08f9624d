#include "drawing.h"

#include "encoding.h"

#include <krplatform/codepage/codepage.h>
#include <krplatform/datetime/coledatetime.h>

namespace layeredit
{

namespace
{

struct VersionRow
{
    int number;
    WCHAR const * name;
};

// clang-format off
constexpr VersionRow s_versions[] = {
    { 1006, OLESTR("R10")   }, { 1009, OLESTR("R12")   }, { 1012, OLESTR("R13")   }, { 1014, OLESTR("R14")   },
    { 1015, OLESTR("R2000") }, { 1018, OLESTR("R2004") }, { 1021, OLESTR("R2007") }, { 1024, OLESTR("R2010") },
    { 1027, OLESTR("R2013") }, { 1032, OLESTR("R2018") },
};
// clang-format on

constexpr double s_julianDayOfDateZero = 2415019.0; // the fraction of these days counts from midnight

} // namespace

int VersionOfWord(std::string_view word)
{
    int number = 0;
    if (word.starts_with("AC"))
        ReadNumber(word.substr(2), number);
    return number;
}

CString VersionName(int version)
{
    for (VersionRow const & row : s_versions)
        if (row.number == version)
            return row.name;
    return CString();
}

CString VersionName(Drawing const & drawing)
{
    if (drawing.versionWord.empty())
        return OLESTR("R12 or older");
    CString const name = VersionName(drawing.version);
    return name.IsEmpty() ? Excerpt(drawing.versionWord) : name;
}

CString PageName(Drawing const & drawing)
{
    if (drawing.codePage == CP_UTF8)
        return OLESTR("UTF-8");
    CString name = Excerpt(drawing.pageWord);
    if (CodePageOfWord(drawing.pageWord) == 0)
        name.Format(OLESTR("code page %u"), drawing.codePage);
    return name;
}

CString SavedTime(Drawing const & drawing)
{
    COleDateTime const saved(drawing.saved - s_julianDayOfDateZero);
    return drawing.saved > 0.0 ? saved.Format(OLESTR("%Y-%m-%d %H:%M:%S")) : CString();
}

} // namespace layeredit
