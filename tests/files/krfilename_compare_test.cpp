#include <krcore/files/krfilename.h>

#include "tests/support/text.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

CKrFileName File(WCHAR const * text) { return CKrFileName(text, false); }

struct RelativeRow
{
    WCHAR const * text;
    WCHAR const * base;
    bool isRelative;
    WCHAR const * path; ///< with `trailing`
    WCHAR const * pathWithoutTrailing;
    WCHAR const * fileName;
};

struct CleanRow
{
    WCHAR const * text;
    WCHAR replacement;
    WCHAR const * cleaned;
};

} // namespace

TEST(CKrFileNameCompare, IgnoresCaseInEveryPart)
{
    CKrFileName const name = File(OLESTR("C:\\A\\b.TXT"));
    EXPECT_TRUE(name == File(OLESTR("c:/a/B.txt")));
    EXPECT_FALSE(name != File(OLESTR("c:/a/B.txt")));
    EXPECT_TRUE(name.IsEqual(File(OLESTR("c:/a/B.txt"))));
    EXPECT_TRUE(name.IsEqual(CString(OLESTR("c:/a/B.txt"))));
    for (WCHAR const * const other : {OLESTR("D:\\A\\b.TXT"), OLESTR("C:\\B\\b.TXT"), OLESTR("C:\\A\\c.TXT"),
                                      OLESTR("C:\\A\\b.DOC"), OLESTR("C:\\A\\b"), OLESTR("\\A\\b.TXT")})
    {
        SCOPED_TRACE(Narrow(other));
        EXPECT_FALSE(name == File(other));
        EXPECT_TRUE(name != File(other));
        EXPECT_FALSE(name.IsEqual(File(other)));
        EXPECT_FALSE(name.IsEqual(CString(other)));
    }
}

TEST(CKrFileNameCompare, TellsNamesWithOnlyAnExtApart)
{
    EXPECT_FALSE(File(OLESTR("C:\\a\\.x")) == File(OLESTR("C:\\a\\.y")));
    EXPECT_EQ(File(OLESTR("C:\\a\\.x")).GetFullName(true), File(OLESTR("C:\\a\\.y")).GetFullName(true));
}

TEST(CKrFileNameCompare, ReadsTextAsAFileNameNotAsAPath)
{
    CKrFileName const dir(OLESTR("C:\\a"), true);
    EXPECT_FALSE(dir.IsEqual(CString(OLESTR("C:\\a"))));
    EXPECT_TRUE(dir.IsEqual(CString(OLESTR("C:\\a\\"))));
}

TEST(CKrFileNameCompare, LooksAtOnePartAlone)
{
    CKrFileName const name = File(OLESTR("C:\\a\\b.txt"));
    EXPECT_TRUE(name.HasEqualDrive(File(OLESTR("c:\\x\\y.z"))));
    EXPECT_FALSE(name.HasEqualDrive(File(OLESTR("D:\\a\\b.txt"))));
    EXPECT_TRUE(name.HasEqualDir(File(OLESTR("D:\\A\\y.z"))));
    EXPECT_FALSE(name.HasEqualDir(File(OLESTR("C:\\x\\b.txt"))));
    EXPECT_TRUE(name.HasEqualBaseName(File(OLESTR("D:\\x\\B.z"))));
    EXPECT_FALSE(name.HasEqualBaseName(File(OLESTR("C:\\a\\c.txt"))));
    EXPECT_TRUE(name.HasEqualExt(File(OLESTR("D:\\x\\y.TXT"))));
    EXPECT_FALSE(name.HasEqualExt(File(OLESTR("C:\\a\\b.doc"))));
    EXPECT_TRUE(name.HasEqualName(File(OLESTR("D:\\x\\B.TXT"))));
    EXPECT_FALSE(name.HasEqualName(File(OLESTR("C:\\a\\b"))));
    EXPECT_TRUE(name.HasEqualPath(File(OLESTR("c:\\A\\y.z"))));
    EXPECT_FALSE(name.HasEqualPath(File(OLESTR("D:\\a\\b.txt"))));
}

TEST(CKrFileNameCompare, TakesTextAsItStands)
{
    CKrFileName const name = File(OLESTR("C:\\a\\b.txt"));
    EXPECT_TRUE(name.IsEqualDrive(OLESTR("c")));
    EXPECT_FALSE(name.IsEqualDrive(OLESTR("C:")));
    EXPECT_TRUE(name.IsEqualDir(OLESTR("\\A")));
    EXPECT_FALSE(name.IsEqualDir(OLESTR("/a")));
    EXPECT_FALSE(name.IsEqualDir(OLESTR("a")));
    EXPECT_TRUE(name.IsEqualBaseName(OLESTR("B")));
    EXPECT_FALSE(name.IsEqualBaseName(OLESTR("\\b")));
    EXPECT_TRUE(name.IsEqualExt(OLESTR("TXT")));
    EXPECT_FALSE(name.IsEqualExt(OLESTR(".txt")));
    EXPECT_TRUE(name.IsEqualName(OLESTR("B.Txt")));
    EXPECT_FALSE(name.IsEqualName(OLESTR("b")));
    EXPECT_TRUE(name.IsEqualPath(OLESTR("c:\\A\\")));
    EXPECT_FALSE(name.IsEqualPath(OLESTR("C:\\a"))) << "the stored path ends with a backslash";
}

TEST(CKrFileNameCompare, OrdersWithCaseWhileEqualityHasNone)
{
    CKrFileName const upper = File(OLESTR("C:\\A\\b.TXT"));
    CKrFileName const lower = File(OLESTR("c:/a/B.txt"));
    EXPECT_TRUE(upper == lower);
    EXPECT_TRUE(upper < lower);
    EXPECT_FALSE(lower < upper);
    EXPECT_TRUE(lower > upper);
    EXPECT_FALSE(upper > lower);
}

TEST(CKrFileNameCompare, HoldsAValueGreaterThanItself)
{
    CKrFileName const name = File(OLESTR("C:\\a\\b.txt"));
    EXPECT_FALSE(name < name);
    EXPECT_TRUE(name > name);
}

TEST(CKrFileNameCompare, OrdersByFullNamesWithTheirLastBackslash)
{
    EXPECT_TRUE(CKrFileName(OLESTR("C:\\a"), true) < CKrFileName(OLESTR("C:\\a]"), true)); // "\" is below "]"
    EXPECT_FALSE(CKrFileName(OLESTR("C:\\a"), true) < CKrFileName(OLESTR("C:\\aZ"), true));
}

TEST(CKrFileNameCompare, OrdersAsTheFullNamesDo)
{
    constexpr WCHAR const * texts[] = {
        OLESTR(""),           OLESTR("a"),
        OLESTR("a.b"),        OLESTR("a.bc"),
        OLESTR("ab"),         OLESTR("C:\\a"),
        OLESTR("C:\\a.b"),    OLESTR("C:\\a\\"),
        OLESTR("C:\\a\\b"),   OLESTR("C:\\a\\b.c"),
        OLESTR("C:\\a\\bc"),  OLESTR("C:\\a.b\\c"),
        OLESTR("C:\\ab\\c"),  OLESTR("C:\\"),
        OLESTR("C:\\a\\.c"),  OLESTR("\\\\a\\b"),
        OLESTR("\\a\\b"),     OLESTR("CD:\\a\\b"),
        OLESTR("D:\\a\\b"),   OLESTR("C:\\\u00E4"),
        OLESTR("C:\\\uFFFF"), OLESTR("C:\\a\\b.\u00E4"),
    };
    for (WCHAR const * const left : texts)
    {
        for (WCHAR const * const right : texts)
        {
            SCOPED_TRACE(Narrow(left) + " and " + Narrow(right));
            int const order = File(left).GetFullName(true).Compare(File(right).GetFullName(true));
            EXPECT_EQ(File(left) < File(right), order < 0);
            EXPECT_EQ(File(left) > File(right), order >= 0);
        }
    }
}

TEST(CKrFileNameCompare, TellsWhatLiesBelowABase)
{
    // clang-format off
    constexpr RelativeRow rows[] = {
        // name                           base                     below  path with "\"             without                 file name
        { OLESTR("C:\\ROOT\\sub\\f.txt"), OLESTR("C:\\root"),      true,  OLESTR("sub\\"),          OLESTR("sub"),          OLESTR("sub\\f.txt") },
        { OLESTR("C:\\ROOT\\sub\\f.txt"), OLESTR("c:/Root/"),      true,  OLESTR("sub\\"),          OLESTR("sub"),          OLESTR("sub\\f.txt") },
        { OLESTR("C:\\ROOT\\sub\\f.txt"), OLESTR("D:\\x"),         false, OLESTR("C:\\ROOT\\sub\\"), OLESTR("C:\\ROOT\\sub"), OLESTR("C:\\ROOT\\sub\\f.txt") },
        { OLESTR("C:\\ROOT\\sub\\f.txt"), OLESTR("C:\\root\\sub"), true,  OLESTR(""),               OLESTR(""),             OLESTR("f.txt") },
        { OLESTR("C:\\ROOT\\sub\\f.txt"), OLESTR("C:"),            true,  OLESTR("ROOT\\sub\\"),    OLESTR("ROOT\\sub"),    OLESTR("ROOT\\sub\\f.txt") },
        { OLESTR("C:\\a\\f.txt"),         OLESTR("C:\\a\\b"),      false, OLESTR("C:\\a\\"),        OLESTR("C:\\a"),        OLESTR("C:\\a\\f.txt") },   // longer than the path
        { OLESTR("C:\\ab\\f.txt"),        OLESTR("C:\\a"),         false, OLESTR("C:\\ab\\"),       OLESTR("C:\\ab"),       OLESTR("C:\\ab\\f.txt") },  // whole names only
        { OLESTR("C:\\a\\f.txt"),         OLESTR(""),              true,  OLESTR("C:\\a\\"),        OLESTR("C:\\a"),        OLESTR("C:\\a\\f.txt") },   // an empty base holds all
        { OLESTR("f.txt"),                OLESTR(""),              true,  OLESTR(""),               OLESTR(""),             OLESTR("f.txt") },
        { OLESTR("f.txt"),                OLESTR("C:\\a"),         false, OLESTR(""),               OLESTR(""),             OLESTR("f.txt") },
        { OLESTR("C:\\a\\b\\"),           OLESTR("C:\\a"),         true,  OLESTR("b\\"),            OLESTR("b"),            OLESTR("") },               // a directory name
        { OLESTR("\\\\srv\\x\\f.txt"),    OLESTR("//SRV"),         true,  OLESTR("x\\"),            OLESTR("x"),            OLESTR("x\\f.txt") },
    };
    // clang-format on
    for (RelativeRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text) + " below " + Narrow(row.base));
        CKrFileName const name = File(row.text);
        EXPECT_EQ(name.IsRelativeToPath(row.base), row.isRelative);
        EXPECT_EQ(name.GetRelativePath(row.base, true), row.path);
        EXPECT_EQ(name.GetRelativePath(row.base, false), row.pathWithoutTrailing);
        EXPECT_EQ(name.GetRelativeFileName(row.base), row.fileName);
    }
}

TEST(CKrFileNameCompare, ReplacesCharactersNoFileNameMayHold)
{
    // clang-format off
    constexpr CleanRow rows[] = {
        { OLESTR("C:\\a?b\\c*d.t|t"),                     0,           OLESTR("C:\\ab\\cd.tt") },
        { OLESTR("C:\\a?b\\c*d.t|t"),                     OLESTR('_'), OLESTR("C:\\a_b\\c_d.t_t") },
        { OLESTR("C:\\?:<>|*\"\\?:<>|*\".?:<>|*\""),      OLESTR('_'), OLESTR("C:\\_______\\_______._______") },
        { OLESTR("C:\\a\\#&.;"),                          OLESTR('_'), OLESTR("C:\\a\\#&.;") },
        { OLESTR("?:\\a\\b"),                             OLESTR('_'), OLESTR("?:\\a\\b") },    // the drive is left alone
    };
    // clang-format on
    for (CleanRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrFileName name = File(row.text);
        EXPECT_TRUE(name.ReplaceInvalidChar(row.replacement));
        EXPECT_EQ(name.GetFullName(true), row.cleaned);
    }
}

TEST(CKrFileNameCompare, ReplacesSeparatorsInNamesButNotInTheDir)
{
    CKrFileName name;
    name.SetDir(OLESTR("a\\b"));
    name.SetBaseName(OLESTR("c\\d/e"));
    name.SetExt(OLESTR("f\\g/h"));
    EXPECT_TRUE(name.ReplaceInvalidChar(OLESTR('-')));
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\a\\b\\c-d-e.f-g-h"));
}

TEST(CKrFileNameCompare, ReplacesCharactersReservedInAddresses)
{
    // clang-format off
    constexpr CleanRow rows[] = {
        { OLESTR("C:\\x:=?#[]@$&'()*+,;\\y:=?#[]@$&'()*+,;.z:=?#[]@$&'()*+,;"), OLESTR('_'), OLESTR("C:\\x________________\\y________________.z________________") },
        { OLESTR("C:\\x:=?#[]@$&'()*+,;\\y:=?#[]@$&'()*+,;.z:=?#[]@$&'()*+,;"), 0,           OLESTR("C:\\x\\y.z") },
        { OLESTR("@:\\a<>|\"!%\\b"),                                            OLESTR('_'), OLESTR("@:\\a<>|\"!%\\b") },
    };
    // clang-format on
    for (CleanRow const & row : rows)
    {
        SCOPED_TRACE(Narrow(row.text));
        CKrFileName name = File(row.text);
        EXPECT_TRUE(name.ReplaceReservedUrlChar(row.replacement));
        EXPECT_EQ(name.GetFullName(true), row.cleaned);
    }
}

TEST(CKrFileNameCompare, LeavesABackslashInANameToAddresses)
{
    CKrFileName name;
    name.SetBaseName(OLESTR("a\\b"));
    name.SetExt(OLESTR("c/d\\e"));
    EXPECT_TRUE(name.ReplaceReservedUrlChar(OLESTR('-')));
    EXPECT_EQ(name.GetBaseName(), OLESTR("a\\b"));
    EXPECT_EQ(name.GetExt(), OLESTR("c-d\\e"));
}

} // namespace kr::test
