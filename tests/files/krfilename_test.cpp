#include <krcore/files/krfilename.h>

#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>
#include <string>
#include <utility>

namespace kr::test
{

namespace
{

struct NameRow
{
    WCHAR const * text;
    bool isPath;
    WCHAR const * drive;
    WCHAR const * dir;
    WCHAR const * baseName;
    WCHAR const * ext;
    WCHAR const * fullName; ///< with `trailing`
};

struct PartRow
{
    WCHAR const * text;
    WCHAR const * stored;
};

using PartSetter = void (CKrFileName::*)(CString const &);
using PartReader = CString (CKrFileName::*)() const;

template <std::size_t size>
void ExpectStored(PartRow const (&rows)[size], PartSetter set, PartReader get)
{
    for (PartRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrFileName name;
        (name.*set)(row.text);
        EXPECT_EQ((name.*get)(), row.stored);
    }
}

/// A text the constructor reads: perhaps a drive or two leading separators, then names parted by single separators.
std::basic_string<WCHAR> RandomName(std::mt19937 & random)
{
    auto const below = [&random](unsigned int limit) { return static_cast<unsigned int>(random() % limit); };
    auto const separator = [&below]() { return below(2) == 0 ? OLESTR('\\') : OLESTR('/'); };
    constexpr std::basic_string_view<WCHAR> letters = OLESTR("abCD09 -_\u00E4\u0416\u3042");
    std::basic_string<WCHAR> text;
    switch (below(4))
    {
    case 0:
        text = OLESTR("C:");
        break;
    case 1:
        text += separator();
        text += separator();
        break;
    default:
        break;
    }
    for (unsigned int count = below(4); count > 0; --count)
    {
        text += below(5) == 0 ? OLESTR("..") : OLESTR("");
        text += letters[below(static_cast<unsigned int>(letters.size()))];
        text += separator();
    }
    for (unsigned int count = below(4); count > 0; --count)
    {
        text += letters[below(static_cast<unsigned int>(letters.size()))];
        text += below(3) == 0 ? OLESTR(".") : OLESTR("");
    }
    return text;
}

} // namespace

TEST(CKrFileName, IsEmptyAtFirst)
{
    CKrFileName const name;
    EXPECT_EQ(name.GetDrive(), OLESTR(""));
    EXPECT_EQ(name.GetDir(), OLESTR(""));
    EXPECT_EQ(name.GetBaseName(), OLESTR(""));
    EXPECT_EQ(name.GetExt(), OLESTR(""));
    EXPECT_EQ(name.GetName(), OLESTR(""));
    EXPECT_EQ(name.GetPath(true), OLESTR(""));
    EXPECT_EQ(name.GetFullName(true), OLESTR(""));
    EXPECT_TRUE(name.IsDirName());
    EXPECT_FALSE(name.IsFileName());
    EXPECT_TRUE(name.HasRelativePath());
}

TEST(CKrFileName, ReadsTextIntoFourParts)
{
    // clang-format off
    constexpr NameRow rows[] = {
        // text                              isPath drive                dir                     base                    ext                  full name
        { OLESTR("C:/a/b.txt"),              false, OLESTR("C"),         OLESTR("\\a"),          OLESTR("b"),            OLESTR("txt"),       OLESTR("C:\\a\\b.txt") },
        { OLESTR("C:\\a"),                   true,  OLESTR("C"),         OLESTR("\\a"),          OLESTR(""),             OLESTR(""),          OLESTR("C:\\a\\") },
        { OLESTR("C:\\a.b"),                 true,  OLESTR("C"),         OLESTR("\\a.b"),        OLESTR(""),             OLESTR(""),          OLESTR("C:\\a.b\\") },
        { OLESTR("b.txt"),                   false, OLESTR(""),          OLESTR(""),             OLESTR("b"),            OLESTR("txt"),       OLESTR("b.txt") },
        { OLESTR("b.txt"),                   true,  OLESTR(""),          OLESTR("\\b.txt"),      OLESTR(""),             OLESTR(""),          OLESTR("\\b.txt\\") },
        { OLESTR("a\\b.txt"),                false, OLESTR(""),          OLESTR("\\a"),          OLESTR("b"),            OLESTR("txt"),       OLESTR("\\a\\b.txt") },   // gains a backslash
        { OLESTR("C:\\b"),                   false, OLESTR("C"),         OLESTR(""),             OLESTR("b"),            OLESTR(""),          OLESTR("C:\\b") },
        { OLESTR("C:\\a\\"),                 false, OLESTR("C"),         OLESTR("\\a"),          OLESTR(""),             OLESTR(""),          OLESTR("C:\\a\\") },
        { OLESTR("C:"),                      true,  OLESTR("C"),         OLESTR(""),             OLESTR(""),             OLESTR(""),          OLESTR("C:\\") },
        { OLESTR("C:foo.txt"),               false, OLESTR(""),          OLESTR(""),             OLESTR("C:foo"),        OLESTR("txt"),       OLESTR("C:foo.txt") },     // no backslash: wholly a name
        { OLESTR("C:foo"),                   true,  OLESTR("C"),         OLESTR("\\foo"),        OLESTR(""),             OLESTR(""),          OLESTR("C:\\foo\\") },
        { OLESTR("\\\\srv\\share\\x.doc"),   false, OLESTR("\\"),        OLESTR("\\srv\\share"), OLESTR("x"),            OLESTR("doc"),       OLESTR("\\\\srv\\share\\x.doc") },
        { OLESTR("\\\\srv\\share"),          true,  OLESTR("\\"),        OLESTR("\\srv\\share"), OLESTR(""),             OLESTR(""),          OLESTR("\\\\srv\\share\\") },
        { OLESTR("//srv/share"),             true,  OLESTR("\\"),        OLESTR("\\srv\\share"), OLESTR(""),             OLESTR(""),          OLESTR("\\\\srv\\share\\") },
        { OLESTR("\\\\srv"),                  false, OLESTR(""),          OLESTR(""),             OLESTR("srv"),          OLESTR(""),          OLESTR("srv") },             // one backslash before the last
        { OLESTR("\\\\"),                     true,  OLESTR("\\"),        OLESTR(""),             OLESTR(""),             OLESTR(""),          OLESTR("\\\\") },
        { OLESTR("/\\srv"),                  true,  OLESTR("\\"),        OLESTR("\\srv"),        OLESTR(""),             OLESTR(""),          OLESTR("\\\\srv\\") },
        { OLESTR("/srv/x"),                  true,  OLESTR(""),          OLESTR("\\srv\\x"),     OLESTR(""),             OLESTR(""),          OLESTR("\\srv\\x\\") },
        { OLESTR(":abc"),                    true,  OLESTR(""),          OLESTR("\\abc"),        OLESTR(""),             OLESTR(""),          OLESTR("\\abc\\") },
        { OLESTR("x:y:z"),                   true,  OLESTR("x"),         OLESTR("\\y:z"),        OLESTR(""),             OLESTR(""),          OLESTR("x:\\y:z\\") },    // the first colon counts
        { OLESTR("\\\\?\\C:\\a"),            true,  OLESTR("\\\\?\\C"),  OLESTR("\\a"),          OLESTR(""),             OLESTR(""),          OLESTR("\\\\?\\C:\\a\\") },
        { OLESTR("archive.tar.gz"),          false, OLESTR(""),          OLESTR(""),             OLESTR("archive.tar"),  OLESTR("gz"),        OLESTR("archive.tar.gz") },
        { OLESTR(".profile"),                false, OLESTR(""),          OLESTR(""),             OLESTR(""),             OLESTR("profile"),   OLESTR("") },              // deliberate: only an ext, no name
        { OLESTR("C:\\a\\.profile"),         false, OLESTR("C"),         OLESTR("\\a"),          OLESTR(""),             OLESTR("profile"),   OLESTR("C:\\a\\") },
        { OLESTR("abc."),                    false, OLESTR(""),          OLESTR(""),             OLESTR("abc"),          OLESTR(""),          OLESTR("abc") },
        { OLESTR("."),                       false, OLESTR(""),          OLESTR(""),             OLESTR(""),             OLESTR(""),          OLESTR("") },
        { OLESTR(""),                        false, OLESTR(""),          OLESTR(""),             OLESTR(""),             OLESTR(""),          OLESTR("") },
        { OLESTR(""),                        true,  OLESTR(""),          OLESTR(""),             OLESTR(""),             OLESTR(""),          OLESTR("") },
    };
    // clang-format on
    for (NameRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text) + (row.isPath ? " as a path" : ""));
        CKrFileName const name(row.text, row.isPath);
        EXPECT_EQ(name.GetDrive(), row.drive);
        EXPECT_EQ(name.GetDir(), row.dir);
        EXPECT_EQ(name.GetBaseName(), row.baseName);
        EXPECT_EQ(name.GetExt(), row.ext);
        EXPECT_EQ(name.GetFullName(true), row.fullName);
        CString const converted = name;
        EXPECT_EQ(converted, row.fullName);
        EXPECT_EQ(name.IsDirName(), *row.baseName == 0 && *row.ext == 0);
        EXPECT_EQ(name.IsFileName(), !name.IsDirName());
        EXPECT_EQ(name.HasRelativePath(), *row.drive == 0);
    }
}

TEST(CKrFileName, AddsTheTrailingBackslashOnRequest)
{
    CKrFileName const dir(OLESTR("C:\\a"), true);
    EXPECT_EQ(dir.GetPath(true), OLESTR("C:\\a\\"));
    EXPECT_EQ(dir.GetPath(false), OLESTR("C:\\a"));
    EXPECT_EQ(dir.GetFullName(false), OLESTR("C:\\a"));
    CKrFileName const drive(OLESTR("C:"), true);
    EXPECT_EQ(drive.GetPath(true), OLESTR("C:\\"));
    EXPECT_EQ(drive.GetPath(false), OLESTR("C:"));
    CKrFileName const file(OLESTR("C:\\a\\b.txt"), false);
    EXPECT_EQ(file.GetFullName(false), OLESTR("C:\\a\\b.txt"));
    EXPECT_EQ(file.GetPath(false), OLESTR("C:\\a"));
    CKrFileName const onlyExt(OLESTR("C:\\a\\.x"), false);
    EXPECT_EQ(onlyExt.GetFullName(false), OLESTR("C:\\a"));
}

TEST(CKrFileName, NormalisesADirInOnePass)
{
    // clang-format off
    constexpr PartRow rows[] = {
        { OLESTR(""),                 OLESTR("") },
        { OLESTR("a"),                OLESTR("\\a") },
        { OLESTR("a/b/"),             OLESTR("\\a\\b") },
        { OLESTR("\\\\\\"),           OLESTR("") },
        { OLESTR("a\\.\\b\\"),        OLESTR("\\a\\b") },
        { OLESTR("a\\.\\.\\b"),       OLESTR("\\a\\.\\b") },        // deliberate: not repeated
        { OLESTR("a\\\\b"),           OLESTR("\\a\\b") },
        { OLESTR("a\\\\\\\\b"),       OLESTR("\\a\\\\b") },         // deliberate: four come out as two
        { OLESTR("a\\\\\\b\\\\\\"),   OLESTR("\\a\\\\b") },
        { OLESTR(".\\a"),             OLESTR("\\a") },
        { OLESTR("a\\."),             OLESTR("\\a\\.") },
        { OLESTR("a\\..\\b"),         OLESTR("\\a\\..\\b") },       // never resolved
        { OLESTR("a\\.\\\\b"),        OLESTR("\\a\\b") },           // the dot goes first, then the double backslash
        { OLESTR("a\\.\\\\.\\b"),        OLESTR("\\a\\b") },           // the dots go first, then the double backslash
    };
    // clang-format on
    ExpectStored(rows, &CKrFileName::SetDir, &CKrFileName::GetDir);
}

TEST(CKrFileName, StoresTheOtherPartsInTheirForms)
{
    // clang-format off
    constexpr PartRow drives[] = {
        { OLESTR(""),          OLESTR("") },
        { OLESTR("C"),         OLESTR("C") },
        { OLESTR("C\\\\"),     OLESTR("C") },
        { OLESTR("C/"),        OLESTR("C") },
        { OLESTR("C:"),        OLESTR("C:") },          // the colon stays
        { OLESTR("/"),         OLESTR("\\") },
        { OLESTR("\\x\\\\"),   OLESTR("\\x\\\\") },     // begins with a backslash: none is removed
    };
    constexpr PartRow baseNames[] = {
        { OLESTR("//a/b\\\\"), OLESTR("a\\b") },
        { OLESTR("a.b"),       OLESTR("a.b") },
        { OLESTR("\\"),        OLESTR("") },
    };
    constexpr PartRow exts[] = {
        { OLESTR("txt"),       OLESTR("txt") },
        { OLESTR(".txt"),      OLESTR("txt") },
        { OLESTR("tar.gz"),    OLESTR("gz") },
        { OLESTR("a.b.c"),     OLESTR("c") },
        { OLESTR("gz."),       OLESTR("") },
        { OLESTR("a/b\\"),     OLESTR("a/b\\") },       // separators are left alone
        { OLESTR(""),          OLESTR("") },
    };
    // clang-format on
    ExpectStored(drives, &CKrFileName::SetDrive, &CKrFileName::GetDrive);
    ExpectStored(baseNames, &CKrFileName::SetBaseName, &CKrFileName::GetBaseName);
    ExpectStored(exts, &CKrFileName::SetExt, &CKrFileName::GetExt);
}

TEST(CKrFileName, DoublesTheColonOfADriveSetWithOne)
{
    CKrFileName name;
    name.SetDrive(OLESTR("C:"));
    EXPECT_EQ(name.GetPath(false), OLESTR("C::"));
}

TEST(CKrFileName, SetsANameWithoutTouchingThePath)
{
    CKrFileName name(OLESTR("C:\\a\\b.txt"), false);
    name.SetName(OLESTR("dir\\f.doc"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("C:\\a\\f.doc"));
    name.SetName(OLESTR("x/y"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("C:\\a\\y"));
    EXPECT_EQ(name.GetExt(), OLESTR(""));
    name.SetName(OLESTR("dir\\"));
    EXPECT_TRUE(name.IsDirName());
    EXPECT_EQ(name.GetPath(false), OLESTR("C:\\a"));
}

TEST(CKrFileName, SetsAPathWithoutTouchingTheName)
{
    CKrFileName name(OLESTR("C:\\a\\b.txt"), false);
    name.SetPath(OLESTR("D:/x/"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("D:\\x\\b.txt"));
    name.SetPath(OLESTR("y"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\y\\b.txt")) << "the drive before is gone";
    name.SetPath(OLESTR("//srv/y"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\\\srv\\y\\b.txt"));
    name.SetPath(OLESTR(""));
    EXPECT_EQ(name.GetFullName(true), OLESTR("b.txt"));
}

TEST(CKrFileName, TakesTwoSeparatorsOfDifferentKindsForNoUNCName)
{
    for (WCHAR const * const path : {OLESTR("/\\srv\\y"), OLESTR("\\/srv\\y")})
    {
        SCOPED_TRACE(Narrow(path));
        CKrFileName name;
        name.SetPath(path);
        EXPECT_EQ(name.GetDrive(), OLESTR(""));
        EXPECT_EQ(name.GetDir(), OLESTR("\\srv\\y"));
    }
}

TEST(CKrFileName, CopiesAllFourParts)
{
    CKrFileName const name(OLESTR("C:\\a\\b.txt"), false);
    CKrFileName const copy(name);
    CKrFileName assigned(OLESTR("D:\\x"), true);
    assigned = name;
    for (CKrFileName const & other : {copy, assigned})
    {
        EXPECT_EQ(other.GetDrive(), OLESTR("C"));
        EXPECT_EQ(other.GetDir(), OLESTR("\\a"));
        EXPECT_EQ(other.GetBaseName(), OLESTR("b"));
        EXPECT_EQ(other.GetExt(), OLESTR("txt"));
    }
}

TEST(CKrFileName, MovesAllFourParts)
{
    CKrFileName source(OLESTR("C:\\a\\b.txt"), false);
    CKrFileName moved(std::move(source));
    CKrFileName assigned(OLESTR("D:\\x"), true);
    assigned = std::move(moved);
    EXPECT_EQ(assigned.GetFullName(true), OLESTR("C:\\a\\b.txt"));
}

TEST(CKrFileName, BuildsPathsFromDirs)
{
    CKrFileName name(OLESTR("C:\\a\\f.txt"), false);
    name.AppendDir(OLESTR("D:b/c/"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("C:\\a\\b\\c\\f.txt")) << "the drive of the argument is ignored";
    name.InsertDir(OLESTR("E:\\z"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("C:\\z\\a\\b\\c\\f.txt"));
    name.AppendDir(OLESTR(""));
    name.InsertDir(OLESTR(""));
    EXPECT_EQ(name.GetFullName(true), OLESTR("C:\\z\\a\\b\\c\\f.txt"));
    name.InsertPath(OLESTR("D:\\r"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("D:\\r\\z\\a\\b\\c\\f.txt"));
    name.InsertPath(OLESTR("//srv/q"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\\\srv\\q\\r\\z\\a\\b\\c\\f.txt"));
}

TEST(CKrFileName, LosesItsDriveToAnInsertedPathWithoutOne)
{
    CKrFileName name(OLESTR("C:\\a\\f.txt"), false);
    name.InsertPath(OLESTR("b"));
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\b\\a\\f.txt"));
}

TEST(CKrFileName, AddsNamesAsPathAndWhatLiesBelow)
{
    CKrFileName const left(OLESTR("C:\\a\\left.txt"), false);
    CKrFileName const right(OLESTR("D:\\b\\right.doc"), false);
    EXPECT_EQ((left + right).GetFullName(true), OLESTR("C:\\a\\b\\right.doc"));
    EXPECT_EQ((CKrFileName() + right).GetFullName(true), OLESTR("\\b\\right.doc"));
    EXPECT_EQ((left + CKrFileName()).GetFullName(true), OLESTR("C:\\a\\"));
    EXPECT_EQ(left.GetFullName(true), OLESTR("C:\\a\\left.txt"));
    EXPECT_EQ(right.GetFullName(true), OLESTR("D:\\b\\right.doc"));
}

TEST(CKrFileName, AddsToWhatCleaningLeftBehindAsToAnyText)
{
    CKrFileName left(OLESTR("C:\\a\\:"), true);
    left.ReplaceInvalidChar(0);
    ASSERT_EQ(left.GetDir(), OLESTR("\\a\\"));
    EXPECT_EQ((left + CKrFileName()).GetDir(), OLESTR("\\a"));
    left.SetDir(OLESTR("a?b"));
    left.ReplaceInvalidChar(OLESTR('/'));
    ASSERT_EQ(left.GetDir(), OLESTR("\\a/b"));
    EXPECT_EQ((left + CKrFileName()).GetDir(), OLESTR("\\a\\b"));
    EXPECT_EQ((CKrFileName() + left).GetDir(), OLESTR("\\a\\b"));
    EXPECT_EQ((CKrFileName(left) + CKrFileName()).GetDir(), OLESTR("\\a\\b"));
}

TEST(CKrFileName, AddsWhatFoldsOnlyWhereTheDirsMeet)
{
    CKrFileName const left(OLESTR("C:\\a\\."), true);
    CKrFileName const right(OLESTR("b\\c.txt"), false);
    EXPECT_EQ((left + right).GetFullName(true), OLESTR("C:\\a\\b\\c.txt"));
    EXPECT_EQ((left + CKrFileName()).GetDir(), OLESTR("\\a\\."));
}

TEST(CKrFileName, AddsAsThePathInsertedAsText)
{
    constexpr WCHAR const * pieces[] = {OLESTR("a"), OLESTR("\\"), OLESTR("\\"), OLESTR("."), OLESTR(":")};
    std::mt19937 random(5102);
    auto const randomText = [&]
    {
        CString text;
        for (auto count = random() % 6; count > 0; --count)
            text += pieces[random() % std::size(pieces)];
        return text;
    };
    for (int count = 0; count < 20000; ++count)
    {
        CKrFileName left;
        left.SetDrive(randomText());
        left.SetDir(randomText());
        CKrFileName right(OLESTR("D:\\x\\f.txt"), false);
        right.SetDir(randomText());
        CKrFileName inserted(right);
        inserted.InsertPath(left.GetPath(true));
        CKrFileName const added = left + right;
        SCOPED_TRACE(Narrow(left.GetDrive()) + " and " + Narrow(left.GetDir()) + " and " + Narrow(right.GetDir()));
        ASSERT_EQ(added.GetDrive(), inserted.GetDrive());
        ASSERT_EQ(added.GetDir(), inserted.GetDir());
        ASSERT_EQ(added.GetName(), inserted.GetName());
    }
}

TEST(CKrFileName, StaysAsItWasWhenMemoryRunsOut)
{
    using Change = void (*)(CKrFileName &);
    // clang-format off
    constexpr Change changes[] = {
        [](CKrFileName & name) { name = CKrFileName(OLESTR("E:/y/a.doc"), false); },
        [](CKrFileName & name) { name.SetDrive(OLESTR("E/")); },
        [](CKrFileName & name) { name.SetDir(OLESTR("x/./y//z")); },
        [](CKrFileName & name) { name.SetBaseName(OLESTR("/x/y/")); },
        [](CKrFileName & name) { name.SetExt(OLESTR("tar.gz")); },
        [](CKrFileName & name) { name.SetName(OLESTR("x/y.gz")); },
        [](CKrFileName & name) { name.SetPath(OLESTR("E:/x/y")); },
        [](CKrFileName & name) { name.AppendDir(OLESTR("E:/x/y")); },
        [](CKrFileName & name) { name.InsertDir(OLESTR("E:/x/y")); },
        [](CKrFileName & name) { name.InsertPath(OLESTR("E:/x/y")); },
        [](CKrFileName & name) { name = name + name; },
        [](CKrFileName & name) { name = CKrFileName(OLESTR("E:x"), true) + name; },
        [](CKrFileName & name) { name.ReplaceInvalidChar(OLESTR('_')); },
        [](CKrFileName & name) { name.ReplaceReservedUrlChar(OLESTR('_')); },
    };
    // clang-format on
    for (Change const change : changes)
    {
        SCOPED_TRACE(&change - changes);
        CKrFileName const before(OLESTR("C:\\a?\\b?.t?"), false);
        CKrFileName name(before);
        EXPECT_GE(FailUntilItPasses([&] { change(name); }, [&] { EXPECT_TRUE(name == before); }), 1u);
        EXPECT_FALSE(name == before);
    }
}

TEST(CKrFileName, LosesAPointAtTheEnd)
{
    CKrFileName const name(OLESTR("a.b."), false);
    EXPECT_EQ(name.GetBaseName(), OLESTR("a.b"));
    EXPECT_EQ(name.GetExt(), OLESTR(""));
    CKrFileName const again(name.GetFullName(true), false);
    EXPECT_EQ(again.GetExt(), OLESTR("b"));
}

TEST(CKrFileName, GivesBackItsFullName)
{
    std::mt19937 random(5101);
    int fileNames = 0;
    for (int count = 0; count < 5000; ++count)
    {
        std::basic_string<WCHAR> const text = RandomName(random);
        CKrFileName const name(text.c_str(), false);
        if (name.GetBaseName().IsEmpty() && !name.GetExt().IsEmpty())
            continue; // only an ext: has no name to give back
        if (name.GetExt().IsEmpty() && name.GetBaseName().Find(OLESTR('.')) >= 0)
            continue; // a point at the end is lost, and the one before it parts the name then
        SCOPED_TRACE(Narrow(text));
        CKrFileName const again(name.GetFullName(true), false);
        ASSERT_TRUE(again == name) << Narrow(name.GetFullName(true));
        ASSERT_EQ(again.GetFullName(true), name.GetFullName(true));
        fileNames += name.IsFileName();
    }
    EXPECT_GT(fileNames, 2000);
}

} // namespace kr::test
