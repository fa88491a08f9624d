// Where a changed drawing goes, and that a drawing is replaced whole or not at all.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/made_drawing.h"

#include <gtest/gtest.h>

namespace kr::test
{

namespace
{

namespace fs = std::filesystem;

std::string const s_before = MadeDrawing().Get();

std::string After()
{
    std::string text = s_before;
    return text.replace(text.find(" 62\n     7"), 10, " 62\n     3");
}

std::vector<std::string> Change(std::vector<std::string> const & more)
{
    std::vector<std::string> arguments = {"a.dxf", "-q", "--all", "-s", "Color=3"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

using Names = std::vector<std::string>;

} // namespace

TEST(LayerEditWriting, WithoutAPlaceAndInADryRunNothingIsWritten)
{
    for (Names const & more : {Names{}, Names{"-n", "-o", "b.dxf"}, Names{"-n", "--in-place"}, Names{"--dry-run"}})
    {
        Workshop workshop;
        workshop.Put("a.dxf", s_before);
        Called const called = workshop.Call(Change(more));
        EXPECT_EQ(called.status, 0);
        EXPECT_EQ(called.output, "0: Color 7 -> 3\n");
        EXPECT_EQ(workshop.List(), Names{"a.dxf"});
        EXPECT_EQ(workshop.Get("a.dxf"), s_before);
    }
}

TEST(LayerEditWriting, AnotherFileIsMadeOrReplaced)
{
    Workshop workshop;
    workshop.Put("a.dxf", s_before);
    workshop.Put("c.dxf", "something else");
    for (char const * const output : {"b.dxf", "c.dxf"})
    {
        Called const called = workshop.Call(Change({"-o", output}));
        EXPECT_EQ(called.status, 0);
        EXPECT_EQ(called.output, "");
        EXPECT_EQ(workshop.Get(output), After());
    }
    EXPECT_EQ(workshop.Get("a.dxf"), s_before);
    EXPECT_EQ(workshop.List(), (Names{"a.dxf", "b.dxf", "c.dxf"}));
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "--all", "-s", "Color=7", "-o", "same.dxf"}).status, 0);
    EXPECT_EQ(workshop.Get("same.dxf"), s_before); // no change is a copy
}

TEST(LayerEditWriting, InPlaceKeepsTheOldContentUnderTheSuffixIfThereIsOne)
{
    Workshop workshop;
    workshop.Put("a.dxf", s_before);
    workshop.Put("a.dxf.bak", "an older one");
    EXPECT_EQ(workshop.Call(Change({"--in-place", "--backup", ".bak"})).status, 0);
    EXPECT_EQ(workshop.Get("a.dxf"), After());
    EXPECT_EQ(workshop.Get("a.dxf.bak"), s_before);
    EXPECT_EQ(workshop.Call(Change({"--in-place", "--backup", ".bak"})).status, 0); // nothing to change
    EXPECT_EQ(workshop.Get("a.dxf.bak"), s_before);
    EXPECT_EQ(workshop.Call({"a.dxf", "-q", "--all", "-s", "Color=7", "--in-place"}).status, 0);
    EXPECT_EQ(workshop.Get("a.dxf"), s_before);
    EXPECT_EQ(workshop.List(), (Names{"a.dxf", "a.dxf.bak"}));
}

TEST(LayerEditWriting, SeveralDrawingsAreEachChangedInPlace)
{
    Workshop workshop;
    workshop.Put("a.dxf", s_before);
    workshop.Put("b.dxf", s_before);
    EXPECT_EQ(workshop.Call(Change({"b.dxf", "--in-place"})).status, 0);
    EXPECT_EQ(workshop.Get("a.dxf"), After());
    EXPECT_EQ(workshop.Get("b.dxf"), After());
}

TEST(LayerEditWriting, RightsStayAndLinksAreFollowed)
{
    Workshop workshop;
    workshop.Put("real.dxf", s_before);
    fs::permissions(workshop.PathOf("real.dxf"),
                    fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    fs::create_symlink("real.dxf", workshop.PathOf("a.dxf"));
    EXPECT_EQ(workshop.Call(Change({"--in-place", "--backup", "~"})).status, 0);
    EXPECT_TRUE(fs::is_symlink(workshop.PathOf("a.dxf")));
    EXPECT_EQ(workshop.Get("real.dxf"), After());
    EXPECT_EQ(workshop.Get("real.dxf~"), s_before);
    EXPECT_EQ(fs::status(workshop.PathOf("real.dxf")).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
}

TEST(LayerEditWriting, AFullDiskLeavesTheDrawingAndNoTemporaryFile)
{
    Workshop workshop;
    std::string large = MadeDrawing().Get();
    large.insert(large.find("  0\nENDSEC\n  0\nEOF"),
                 std::string(2'000'000, '\0').replace(0, 5, "  1\nx").append("\n"));
    workshop.Put("a.dxf", large);
    // a limit on the size of files that the shell sets for the program
    std::string const command =
        "ulimit -f 1000; trap '' XFSZ; exec " KR_LAYEREDIT_PROGRAM " a.dxf -q --all -s Color=3 ";
    for (char const * const more : {"--in-place", "--in-place --backup .bak", "-o b.dxf"})
    {
        Called const called = workshop.Run({"/bin/sh", "-c", command + more});
        EXPECT_EQ(called.status, 1);
        EXPECT_NE(called.errors.find(".dxf: the file cannot be written: "), std::string::npos) << called.errors;
        EXPECT_EQ(workshop.List(), Names{"a.dxf"});
        EXPECT_TRUE(workshop.Get("a.dxf") == large);
    }
}

TEST(LayerEditWriting, ADrawingThatAnotherProgramHoldsIsRefused)
{
    Workshop workshop;
    workshop.Put("a.dxf", s_before);
    Called const called = workshop.Run({"flock", "-x", "a.dxf", KR_LAYEREDIT_PROGRAM, "a.dxf"});
    EXPECT_EQ(called.status, 1);
    EXPECT_EQ(called.output, "");
    EXPECT_EQ(workshop.Run({"flock", "-s", "a.dxf", KR_LAYEREDIT_PROGRAM, "a.dxf"}).status, 0);
}

TEST(LayerEditWriting, NamesInFoldersAreFoundAndThoseThatCannotBeHeldAreRefused)
{
    Workshop workshop;
    fs::create_directories(workshop.PathOf("sub folder/\u8868"));
    workshop.Put("sub folder/\u8868/\u00FC.x.dxf", s_before);
    Called called = workshop.Call({"./sub folder/../sub folder/\u8868/\u00FC.x.dxf", "--format", "tsv"});
    EXPECT_EQ(called.status, 0) << called.errors;
    EXPECT_EQ(called.errors.substr(0, called.errors.find(": R2004")), "./sub folder/../sub folder/\u8868/\u00FC.x.dxf");
    for (char const * const name : {"a:b/c.dxf", "a.", "b\\c.dxf"})
    {
        called = workshop.Call({name});
        EXPECT_EQ(called.status, 1);
        EXPECT_EQ(called.errors, std::string(name) +
                                     ": the name cannot be held as a file name (a colon or backslash in "
                                     "it, or a point at its end); rename it.\n");
    }
}

TEST(LayerEditWriting, TheTraceHoldsEditsAndFailures)
{
    Workshop workshop;
    workshop.Put("a.dxf", s_before);
    EXPECT_EQ(workshop.Call(Change({"--in-place", "--trace", "t.txt"})).status, 0);
    std::string trace = workshop.Get("t.txt");
    EXPECT_NE(trace.find("\ta.dxf: 0: Color 7 -> 3\n"), std::string::npos) << trace;
    EXPECT_NE(trace.find("CKrPropMultiEditHelper::Update() called"), std::string::npos);
    EXPECT_EQ(workshop.Call({"nix.dxf", "--trace", "t.txt"}).status, 1);
    trace = workshop.Get("t.txt");
    EXPECT_NE(trace.find("*** ErrorBegin ***"), std::string::npos);
    EXPECT_NE(trace.find("nix.dxf: the file cannot be read"), std::string::npos);
    Called const called = workshop.Call({"a.dxf", "--trace", "nix/t.txt"});
    EXPECT_EQ(called.status, 0);
    EXPECT_TRUE(called.errors.starts_with(
        "layeredit: note: the trace file \"nix/t.txt\" cannot be written; the work goes on without it.\n"));
}

} // namespace kr::test
