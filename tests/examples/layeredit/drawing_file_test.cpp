#include <examples/layeredit/drawing_file.h>

#include "tests/krplatform/system/surroundings.h"
#include <examples/layeredit/encoding.h>
#include <examples/layeredit/progress.h>
#include <krcore/diagnostics/krerrorstack.h>

#include <gtest/gtest.h>

namespace layeredit
{

namespace
{

/// A file with a patch for it, and what another program does in between.
class DrawingFileTest : public testing::Test
{
protected:
    DrawingFileTest()
    {
        kr::test::WriteText(m_directory / "a.dxf", s_content);
        m_drawing.title = OLESTR("a.dxf");
        m_drawing.size = s_content.size();
        EXPECT_TRUE(MakeFileName(WidenArgument((m_directory / "a.dxf").string()), m_drawing.fileName));
    }

    bool Write()
    {
        Progress progress(CString(), nullptr);
        std::vector<Patch> const patches = {{{6, "six"}, "SIX+"}, {{0, "zero"}, ""}, {{12, {}}, "<"}};
        return WriteDrawing(m_drawing, patches, {m_drawing.fileName, m_drawing.title, CString()}, progress);
    }
    std::string Content() const { return kr::test::ReadText(m_directory / "a.dxf"); }
    void ExpectRefusedAfter(std::string const & change)
    {
        CKrPushErrorStack const errors;
        kr::test::WriteText(m_directory / "a.dxf", change);
        EXPECT_FALSE(Write()) << change;
        ASSERT_EQ(CKrErrorStack::GetObjectW(true)->GetErrorCount(), 1u);
        EXPECT_EQ(CKrErrorStack::GetObjectW(true)->GetLastError()->GetErrorMessage(),
                  CString(OLESTR(
                      "a.dxf: the file was changed by another program meanwhile, nothing was written; try again.")));
        EXPECT_EQ(Content(), change);
        auto const files = std::filesystem::directory_iterator(m_directory.Path());
        EXPECT_EQ(std::distance(begin(files), end(files)), 1);
    }

    static inline std::string const s_content = "zero, six, twelve";
    kr::test::TemporaryDirectory m_directory;
    Drawing m_drawing;
};

} // namespace

TEST_F(DrawingFileTest, PatchesGoToTheirPlacesInAnyOrder)
{
    EXPECT_TRUE(Write());
    EXPECT_EQ(Content(), ", SIX+, t<welve");
}

TEST_F(DrawingFileTest, AFileThatWasChangedMeanwhileIsLeftAlone)
{
    ExpectRefusedAfter("zero, SIX, twelve"); // where a patch goes
    ExpectRefusedAfter("zero, six, twelve!");
    ExpectRefusedAfter("zero, six, twelv");
    ExpectRefusedAfter("zero, s");
    ExpectRefusedAfter("");
}

TEST_F(DrawingFileTest, AFileNameIsAbsoluteAndLeadsToTheFile)
{
    kr::test::CurrentDirectory const directory(m_directory.Path());
    CKrFileName fileName;
    EXPECT_TRUE(MakeFileName(OLESTR("a.dxf"), fileName));
    EXPECT_TRUE(fileName == m_drawing.fileName);
    EXPECT_TRUE(std::filesystem::equivalent(PathOf(fileName), m_directory / "a.dxf"));
    EXPECT_TRUE(fileName.IsExisting());
}

} // namespace layeredit
