// File names and the managers of files and directories where memory runs out.
#include <krcore/files/krfileinfo.h>
#include <krcore/files/krfilenamemanager.h>
#include <krcore/files/krpathmanager.h>

#include "tests/memory/failing_rows.h"

#include <memory>

using namespace kr::test;

namespace
{

CString const none;
CString const path(OLESTR("D:/other/./directory//of files"));
CString const name(OLESTR("another.name"));
CString const base(OLESTR("C:\\kr"));
CString const key(OLESTR("help"));
CString const newKey(OLESTR("log"));
CString const group(OLESTR("doc"));
CString const newGroup(OLESTR("xml"));

constexpr unsigned either = throwsMemory | throwsBadAlloc;

CKrFileName const & Name()
{
    static CKrFileName const made(OLESTR("C:\\kr\\sub\\a file.txt"), false);
    return made;
}

CKrFileName const & Relative()
{
    static CKrFileName const made(OLESTR("sub\\another.txt"), false);
    return made;
}

/// With a directory of that key.
class Paths : public CKrPathmanager
{
public:
    explicit Paths(CString const & first) { Set(first); }
    Paths * Clone() const override { return new Paths(*this); }

    void Set(CString const & one) { SetPath(one, CKrFileName(base, true), false); }
};

} // namespace

TEST(CKrFileNameMemory, KeepsTheName)
{
    static CString const slashes(OLESTR("a/b.c"));
    auto const stateOf = [](CKrFileName const & file)
    { return Described(file.GetDrive(), file.GetDir(), file.GetBaseName(), file.GetExt()); };
    // clang-format off
    ExpectRows([] { return CKrFileName(Name()); }, stateOf, std::vector<Row<CKrFileName>>{
        { "SetDrive",      throwsMemory, kept, [](CKrFileName & file) { file.SetDrive(base); } },
        { "SetDir",        throwsMemory, kept, [](CKrFileName & file) { file.SetDir(path); } },
        { "SetBaseName",   throwsMemory, kept, [](CKrFileName & file) { file.SetBaseName(slashes); } },
        { "SetExt",        throwsMemory, kept, [](CKrFileName & file) { file.SetExt(name); } },
        { "SetName",       throwsMemory, kept, [](CKrFileName & file) { file.SetName(slashes); } },
        { "SetPath",       throwsMemory, kept, [](CKrFileName & file) { file.SetPath(path); } },
        { "AppendDir",     throwsMemory, kept, [](CKrFileName & file) { file.AppendDir(path); } },
        { "InsertDir",     throwsMemory, kept, [](CKrFileName & file) { file.InsertDir(path); } },
        { "InsertPath",    throwsMemory, kept, [](CKrFileName & file) { file.InsertPath(path); } },
        { "= and copy",    takesNone,    kept, [](CKrFileName & file) { CKrFileName const copy(file); file = copy; } },
    });
    ExpectRows([] { return CKrFileName(OLESTR("a*b?c[d].e*f"), false); }, stateOf, std::vector<Row<CKrFileName>>{
        { "ReplaceInvalidChar",     throwsMemory, kept, [](CKrFileName & file) { file.ReplaceInvalidChar(OLESTR('_')); } },
        { "ReplaceInvalidChar 0",   throwsMemory, kept, [](CKrFileName & file) { file.ReplaceInvalidChar(0); } },
        { "ReplaceReservedUrlChar", throwsMemory, kept, [](CKrFileName & file) { file.ReplaceReservedUrlChar(OLESTR('_')); } },
    });
    // clang-format on
}

TEST(CKrFileNameMemory, LeavesNothingOfATextOrAName)
{
    static CString const text(OLESTR("C:/kr/sub/a file.txt"));
    // clang-format off
    ExpectRows({
        { "file",                throwsMemory, kept, [](Nothing) { CKrFileName const made(text, false); } },
        { "path",                throwsMemory, kept, [](Nothing) { CKrFileName const made(text, true); } },
        { "GetName",             throwsMemory, kept, [](Nothing) { Name().GetName(); } },
        { "GetPath",             throwsMemory, kept, [](Nothing) { Name().GetPath(true); } },
        { "GetFullName",         throwsMemory, kept, [](Nothing) { Name().GetFullName(true); } },
        { "GetRelativePath",     throwsMemory, kept, [](Nothing) { Name().GetRelativePath(base, true); } },
        { "GetRelativeFileName", throwsMemory, kept, [](Nothing) { Name().GetRelativeFileName(base); } },
        { "IsRelativeToPath",    throwsMemory, kept, [](Nothing) { return Name().IsRelativeToPath(base); } },
        { "+",                   throwsMemory, kept, [](Nothing) { Name() + Relative(); } },
        { "IsEqual",             throwsMemory, kept, [](Nothing) { return Name().IsEqual(text); } },
        { "IsEqualName",         throwsMemory, kept, [](Nothing) { static_cast<void>(Name().IsEqualName(name)); } },
        { "IsEqualPath",         throwsMemory, kept, [](Nothing) { static_cast<void>(Name().IsEqualPath(path)); } },
        { "HasEqualName",        throwsMemory, kept, [](Nothing) { static_cast<void>(Name().HasEqualName(Relative())); } },
        { "HasEqualPath",        throwsMemory, kept, [](Nothing) { static_cast<void>(Name().HasEqualPath(Relative())); } },
        { "== and <",            takesNone,    kept, [](Nothing) { static_cast<void>(Name() == Relative() || Name() < Relative()); } },
        { "CKrFileInfo",         takesNone,    kept, [](Nothing) { CKrFileInfo made; made.SetFileName(Name()); } },
    });
    // clang-format on
}

TEST(CKrFileNameMemory, AnswersFalseWhereTheSystemHasNoMemory)
{
    static CKrFileName const directory(OLESTR("//usr/share/../share/../share"), true);
    static CKrFileName const device(OLESTR("//dev/../dev/../dev/../dev/null"), false);
    // clang-format off
    ExpectRows({
        { "IsExisting",          throwsMemory | tellsIt, kept, [](Nothing) { return device.IsExisting(); } },
        { "IsExisting path",     throwsMemory | tellsIt, kept, [](Nothing) { return directory.IsExisting(); } },
        { "IsExistingPath",      throwsMemory | tellsIt, kept, [](Nothing) { return directory.IsExistingPath(); } },
        { "IsAlreadyOpen",       throwsMemory | goesOn,  kept, [](Nothing) { static_cast<void>(device.IsAlreadyOpen()); } },
    });
    // clang-format on
}

TEST(CKrPathmanagerMemory, KeepsTheDirectories)
{
    static Paths const others = []
    {
        Paths made(newKey);
        made.SetRootPath(Name());
        return made;
    }();
    auto const stateOf = [](Paths const & paths)
    {
        return Described(paths.GetRootPath().GetFullName(true), paths.GetPath(key).GetFullName(true),
                         paths.GetPath(newKey).GetFullName(true));
    };
    // clang-format off
    ExpectRows([] { return Paths(key); }, stateOf, std::vector<Row<Paths>>{
        { "SetPath",     either,         kept, [](Paths & paths) { paths.Set(newKey); } },
        { "SetUserPath", throwsBadAlloc, kept, [](Paths & paths) { paths.SetUserPath(newKey, Name()); } },
        { "=",           throwsBadAlloc, kept, [](Paths & paths) { paths = others; } },
        { "copy",        throwsBadAlloc, kept, [](Paths & paths) { Paths const copy(paths); } },
        { "Clone",       throwsBadAlloc, kept, [](Paths & paths) { std::unique_ptr<CKrPathmanager> const clone(paths.Clone()); } },
        { "GetBinPath",  throwsMemory,   kept, [](Paths & paths) { paths.GetBinPath(); } },
        { "GetDllPath",  throwsMemory,   kept, [](Paths & paths) { paths.GetDllPath(); } },
        { "GetDocPath",  throwsMemory,   kept, [](Paths & paths) { paths.GetDocPath(); } },
        { "GetLogPath",  throwsMemory,   kept, [](Paths & paths) { paths.GetLogPath(); } },
        { "GetXmlPath",  throwsMemory,   kept, [](Paths & paths) { paths.GetXmlPath(); } },
        { "GetTmpPath",  throwsMemory,   kept, [](Paths & paths) { paths.GetTmpPath(); } },
        { "GetPath",     takesNone,      kept, [](Paths & paths) { paths.GetPath(key); } },
    });
    // clang-format on
}

TEST(CKrFileNameManagerMemory, KeepsTheFiles)
{
    struct Files : CKrFileNameManager
    {
        Files() : CKrFileNameManager(new Paths(group)) { AddFileName(key, Relative(), true, group); }
        using CKrFileNameManager::CopyFileNames;
    };
    static Files const & others = []() -> Files const &
    {
        static Files made;
        made.AddFileName(newKey, Name(), true, newGroup);
        return made;
    }();
    auto const stateOf = [](Files const & files)
    {
        std::vector<CString> groups, keys;
        std::vector<CKrFileName> names;
        files.GetContent(groups, keys, names);
        std::string state;
        for (std::size_t index = 0; index < keys.size(); ++index)
            state += Described(groups[index], keys[index], names[index].GetFullName(true));
        return state;
    };
    // clang-format off
    ExpectRows([] { return Files(); }, stateOf, std::vector<Row<Files>>{
        { "AddFileName",       throwsBadAlloc, kept, [](Files & files) { return files.AddFileName(newKey, Name(), true, group); } },
        { "AddFileName group", throwsBadAlloc, kept, [](Files & files) { return files.AddFileName(newKey, Name(), true, newGroup); } },
        { "SetFileName",       throwsBadAlloc, kept, [](Files & files) { files.SetFileName(newKey, Name(), false, newGroup); } },
        { "SetUserFileName",   throwsBadAlloc, kept, [](Files & files) { files.SetUserFileName(newKey, Name(), newGroup); } },
        { "SetFileName no group", either,      kept, [](Files & files) { files.SetFileName(newKey, Name(), false, none); } },
        { "GetFullFileName",   throwsMemory,   kept, [](Files & files) { files.GetFullFileName(key, group); } },
        { "HasFileName no group", throwsMemory, kept, [](Files & files) { static_cast<void>(files.HasFileName(key, none)); } },
        { "RemoveFileName no group", throwsMemory, kept, [](Files & files) { files.RemoveFileName(key, none); } },
        { "RemoveFileNameGroup none", throwsMemory, kept, [](Files & files) { files.RemoveFileNameGroup(none); } },
        { "RenameFileNameGroup none", throwsMemory, kept, [](Files & files) { return files.RenameFileNameGroup(group, none); } },
        { "RenameFileNameGroup", takesNone,    kept, [](Files & files) { return files.RenameFileNameGroup(group, newGroup); } },
        { "RemoveFileName",    takesNone,      kept, [](Files & files) { return files.RemoveFileName(key, group); } },
        { "CopyFileNames",     throwsBadAlloc, kept, [](Files & files) { files.CopyFileNames(others); } },
        { "copy",              throwsBadAlloc, kept, [](Files & files) { CKrFileNameManager const copy(files); } },
        { "root",              throwsBadAlloc, kept, [](Files &) { CKrFileNameManager const made(Name()); } },
    });
    // clang-format on
}

TEST(CKrFileNameManagerMemory, LeavesTheOutputs)
{
    static CKrFileNameManager const & files = []() -> CKrFileNameManager const &
    {
        static CKrFileNameManager made(new Paths(group));
        made.AddFileName(key, Relative(), true, group);
        made.AddFileName(newKey, Name(), true, newGroup);
        return made;
    }();
    struct Outputs
    {
        std::vector<CString> groups, keys;
        std::vector<CKrFileName> names;
    };
    auto const stateOf = [](Outputs const & outputs)
    { return Described(outputs.groups.size(), outputs.keys.size(), outputs.names.size()); };
    // clang-format off
    ExpectRows([] { return Outputs{{group}, {key}, {Name()}}; }, stateOf, std::vector<Row<Outputs>>{
        { "GetContent",      either, kept, [](Outputs & o) { files.GetContent(o.groups, o.keys, o.names); } },
        { "GetAllFileNames", either, kept, [](Outputs & o) { files.GetAllFileNames(o.names); } },
    });
    // clang-format on
}
