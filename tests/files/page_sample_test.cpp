// The samples of docs/files.md and of the headers.
#include <krcore/diagnostics/krmessagepool.h>
#include <krcore/files/krdll.h>
#include <krcore/files/krfilenamemanager.h>
#include <krcore/files/krmodule.h>

#include "tests/krplatform/system/test_modules.h"

#include <gtest/gtest.h>

using namespace kr::test;

TEST(FilesPage, SampleOfANameGivesWhatItSays)
{
    CKrFileName name(OLESTR("C:/plans/level02/walls.tar.gz"), false);
    EXPECT_EQ(name.GetDrive(), OLESTR("C"));
    EXPECT_EQ(name.GetDir(), OLESTR("\\plans\\level02"));
    EXPECT_EQ(name.GetBaseName(), OLESTR("walls.tar"));
    EXPECT_EQ(name.GetExt(), OLESTR("gz"));
    EXPECT_EQ(name.GetRelativeFileName(OLESTR("c:\\PLANS")), OLESTR("level02\\walls.tar.gz"));
    EXPECT_TRUE(name == CKrFileName(OLESTR("c:\\Plans\\LEVEL02\\walls.TAR.gz"), false));

    CKrFileName const root(OLESTR("//srv/archive"), true);
    EXPECT_EQ(root.GetDrive(), OLESTR("\\"));
    name.SetExt(OLESTR(".dwg"));
    EXPECT_EQ((root + name).GetFullName(true), OLESTR("\\\\srv\\archive\\plans\\level02\\walls.tar.dwg"));
}

TEST(FilesPage, SaysOfPosixPathsWhatIsSo)
{
    CKrFileName const name(OLESTR("sub/f.txt"), false);
    EXPECT_EQ(name.GetFullName(true), OLESTR("\\sub\\f.txt"));
    EXPECT_EQ(CKrFileName(OLESTR("/opt/a:b/f.txt"), false).GetDrive(), OLESTR("\\opt\\a"));
    TemporaryDirectory const directory;
    CKrFileName profile(HandedOut(directory / ".profile").c_str(), false);
    EXPECT_FALSE(profile.IsDirName());
    EXPECT_TRUE(profile.IsExisting());
    WriteText(directory / "f.txt", "text");
    CurrentDirectory const current(directory.Path());
    EXPECT_TRUE(CKrFileName(OLESTR("f.txt"), false).IsExisting());
    EXPECT_FALSE(CKrFileName(OLESTR("F.TXT"), false).IsExisting());
}

TEST(FilesPage, SampleOfTablesGivesWhatItSays)
{
    auto const paths = new CKrPathmanager(CKrFileName(OLESTR("C:\\plan"), true));
    CKrFileNameManager files(paths);
    paths->SetUserPath(OLESTR("doc"), CKrFileName(OLESTR("C:\\plan\\help"), true));
    EXPECT_EQ(paths->GetDocPath().GetFullName(false), OLESTR("C:\\plan\\help"));

    files.AddFileName(OLESTR("start"), CKrFileName(OLESTR("en\\start.htm"), false), false, OLESTR("doc"));
    EXPECT_EQ(CString(files.GetFileName(OLESTR("start"), OLESTR("doc"))), OLESTR("\\en\\start.htm"));
    CString const full(OLESTR("C:\\plan\\help\\en\\start.htm"));
    EXPECT_EQ(CString(files.GetFullFileName(OLESTR("start"), OLESTR("doc"))), full);
    files.SetUserFileName(OLESTR("start"), CKrFileName(OLESTR("D:\\my.htm"), false), OLESTR("doc"));
    EXPECT_EQ(CString(files.GetFullFileName(OLESTR("start"), OLESTR("doc"))), full);
}

TEST(FilesPage, SampleOfLibrariesGivesWhatItSays)
{
    TemporaryDirectory const directory;
    for (char const * const module : {"kr_plan.so", "kr_plan_parts.so", "kr_texts_en.so", "kr_texts_de.so"})
        CopyModule(module, directory);
    CKrDLL library(CKrFileName(HandedOut(directory / "kr_plan.so").c_str(), false));
    EXPECT_TRUE(library.LoadDLL(true));
    FARPROC const count = library.GetFuncAddress(OLESTR("KrTestPlanCount"));
    ASSERT_NE(count, nullptr);
    EXPECT_EQ(count(), 2);

    CKrModule record(library.GetDLLHandle());
    EXPECT_TRUE(record.LoadResource(HandedOut(directory / "kr_texts_en.so").c_str()));
    EXPECT_TRUE(record.LoadResource(HandedOut(directory / "kr_texts_de.so").c_str()));
    CString text;
    EXPECT_TRUE(CKrMessagePool::LoadResourceString(100, record.GetResourceHandle(), text));
    EXPECT_EQ(text, OLESTR("Wand"));
    record.RestoreResourceHandle();
    EXPECT_EQ(record.GetResourceHandle(), library.GetDLLHandle());
    EXPECT_TRUE(library.UnloadDLL());
    EXPECT_EQ(CountLoadedFrom(directory.Path()), 0);
}
