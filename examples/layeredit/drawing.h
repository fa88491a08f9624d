// What an editor of layers knows of a drawing, and the reader that finds it.
#pragma once

#include "groups.h"

#include <krcore/files/krfilename.h>

#include <cstdint>
#include <string>
#include <vector>

namespace layeredit
{

/// The first versions that have what this program edits, as the numbers behind "AC" in $ACADVER.
enum Version : int
{
    eVersionR12 = 1009,
    eVersionR13 = 1012,
    eVersionR2000 = 1015,
    eVersionR2004 = 1018,
    eVersionR2007 = 1021
};

/// A stretch of the file.
struct Stretch
{
    std::uint64_t offset = 0; ///< from the file's beginning
    std::string bytes;

    bool IsThere() const { return !bytes.empty(); }
};

/// A LAYER record: all of its groups but the 0 in front.
struct LayerRecord : Stretch
{
    long line = 0; ///< of the first code
};

struct LineType
{
    CString name;
    std::string nameBytes;
    bool isOfReference = false;
};

/// The table of applications, as far as it is needed to add one.
struct ApplicationTable
{
    std::vector<std::string> names;
    std::string handle; ///< of the table
    Stretch count;      ///< the group 70 of the table
    Stretch end;        ///< the group 0 ENDTAB
};

struct Drawing
{
    CString title; ///< as the user wrote the name
    CKrFileName fileName;
    std::uint64_t size = 0;

    std::string versionWord; ///< empty where the drawing says none
    int version = eVersionR12;
    std::string pageWord;
    UINT codePage = 0;
    bool hasByteOrderMark = false;
    CString currentLayer;
    std::string currentLayerBytes;
    double saved = 0.0; ///< local time as a Julian day number; 0 where the drawing does not say

    std::vector<LayerRecord> layers;
    std::vector<LineType> lineTypes;
    ApplicationTable applications;
    Stretch handleSeed;               ///< the group 5 of $HANDSEED
    std::uint64_t greatestHandle = 0; ///< of all groups 5 and 105
    bool isSound = true;              ///< up to its EOF
};

/// "AC1018" is 1018. Words of another form, such as "AC2.10", are older than all of them, though a comparison of texts puts them last.
int VersionOfWord(std::string_view word);

/// "R2004"; the word itself for a version without a name, "R12 or older" where there is no word.
CString VersionName(Drawing const & drawing);
CString VersionName(int version);

/// What the drawing's texts are in, as a person reads it: "ANSI_932", "UTF-8", "code page 949".
CString PageName(Drawing const & drawing);

/// The time of the last change as "2025-11-11 12:45:24"; empty where the drawing does not say.
CString SavedTime(Drawing const & drawing);

/// Reads what stands above. `codePage` (0 for none) is that of a drawing without a word. False, with an error on the stack, for
/// what is no drawing or is damaged before the end of its layer table; damage behind it is a note.
bool ReadDrawing(Drawing & drawing, UINT codePage, Progress & progress);

} // namespace layeredit
