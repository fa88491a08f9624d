// Every bundled drawing, edited in every property: what is touched, what is not, and what another reader makes of it.
#include "tests/examples/layeredit/call.h"
#include "tests/examples/layeredit/layer_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace kr::test
{

namespace
{

struct Edit
{
    char const * value;
    std::set<int> codes; ///< of the groups that it may change, bring or take away
    char const * column; ///< what the list then shows for every layer
    char const * ofOld;  ///< the same in R12
};

// clang-format off
Edit const s_edits[] = {
    { "Color=1",               { 62, 420, 430 }, "\t1\t",              "\t1\t"             },
    { "Color=#0114c8",         { 62, 420, 430 }, "\t#0114c8\t",        "\t172\t"           }, // the nearest index
    { "LineType=bybyblock",    {},               nullptr,              nullptr             }, // none has it: refused
    { "LineType=continuous",   { 6 },            "ontinuous\t",        "CONTINUOUS\t"      },
    { "LineWeight=0.53",       { 370 },          "\t0.53\t",           nullptr             },
    { "LineWeight=default",    { 370 },          "\tdefault\t",        nullptr             },
    { "Plot=0",                { 290 },          "\t0\t",              nullptr             },
    { "On=0",                  { 62 },           "\t0\t",              "\t0\t"             },
    { "On=yes",                { 62 },           "\t1\t",              "\t1\t"             },
    { "Frozen=no",             { 70 },           "\t0\t",              "\t0\t"             },
    { "Locked=1",              { 70 },           "\t1\t",              "\t1\t"             },
    { "Description=Stra\u00DFe", { 1000, 1001 }, "\tStra\u00DFe\n",    "\tStra\u00DFe\n"   },
};
// clang-format on

bool IsOld(std::string const & drawing) { return drawing.starts_with("r12") || drawing.starts_with("no-version"); }

/// What a drawing cannot hold is refused; told by its version.
bool IsRefused(std::string const & drawing, std::string const & value)
{
    bool const isNew = value.starts_with("LineWeight") || value.starts_with("Plot");
    return (IsOld(drawing) && isNew) || value == "LineType=bybyblock" ||
           (value.starts_with("Description") && // they have no table of applications
            (drawing.starts_with("no-version") || drawing.starts_with("r2018")));
}

Groups Without(Groups groups, std::set<int> const & codes)
{
    std::erase_if(groups, [&codes](auto const & group) { return codes.contains(group.first); });
    return groups;
}

/// The lines of each group that is in both, code and value, are the same bytes.
void ExpectOthersUntouched(std::string const & before, std::string const & after, std::set<int> const & codes)
{
    EXPECT_EQ(Without(GroupsOf(before), codes), Without(GroupsOf(after), codes));
    std::multiset<std::string> lines;
    for (std::string const & line : LinesOf(before))
        lines.insert(line);
    std::vector<std::string> const written = LinesOf(after);
    for (std::size_t place = 0; place + 1 < written.size(); place += 2)
        if (!codes.contains(std::stoi(written[place])))
        {
            EXPECT_TRUE(lines.contains(written[place])) << written[place];
            EXPECT_TRUE(lines.contains(written[place + 1])) << written[place + 1];
        }
}

void CheckEdit(std::string const & drawing, std::string const & written, Edit const & edit)
{
    LayerTable const before = SplitDrawing(drawing), after = SplitDrawing(written);
    ASSERT_EQ(Join(before), drawing);
    if (!edit.codes.contains(1001)) // a description registers its application as well
    {
        EXPECT_EQ(before.before, after.before);
        EXPECT_EQ(before.after, after.after);
    }
    ASSERT_EQ(before.records.size(), after.records.size());
    for (std::size_t index = 0; index < before.records.size(); ++index)
        ExpectOthersUntouched(before.records[index], after.records[index], edit.codes);
}

void CheckColumn(std::vector<std::string> const & lines, char const * column)
{
    for (std::size_t index = 1; index < lines.size(); ++index)
        EXPECT_NE(lines[index].find(column), std::string::npos) << lines[index];
}

} // namespace

class LayerEditBundled : public testing::TestWithParam<std::string>
{
};

TEST_P(LayerEditBundled, TheOtherReaderAgreesBeforeAnyEdit)
{
    Workshop workshop;
    workshop.ExpectOtherReaderAgrees({workshop.Take(GetParam())});
}

TEST_P(LayerEditBundled, EveryPropertyChangesItsGroupsInLayerRecordsAndNoOtherByte)
{
    Workshop workshop;
    std::string const name = workshop.Take(GetParam());
    std::vector<std::string> written;
    for (Edit const & edit : s_edits)
    {
        SCOPED_TRACE(edit.value);
        std::string const result = "new" + std::to_string(written.size()) + ".dxf";
        Called const called = workshop.Call({name, "--all", "--set", edit.value, "-o", result, "--add-appid"});
        EXPECT_EQ(called.status, IsRefused(name, edit.value) ? 4 : 0) << called.errors;
        EXPECT_EQ(workshop.Has(result), called.status == 0);
        EXPECT_EQ(workshop.Get(name), Workshop::BundledDrawing(name));
        if (called.status != 0)
            continue;
        CheckEdit(Workshop::BundledDrawing(name), workshop.Get(result), edit);
        CheckColumn(LinesOf(workshop.LayersOf(result)), IsOld(name) ? edit.ofOld : edit.column);
        written.push_back(result);
    }
    workshop.ExpectOtherReaderAgrees(written);
}

TEST_P(LayerEditBundled, OneLayerOfManyIsTheOnlyRecordThatChanges)
{
    Workshop workshop;
    std::string const name = workshop.Take(GetParam());
    std::vector<std::string> const layers = LinesOf(workshop.LayersOf(name));
    std::string const last = layers.back().substr(0, layers.back().find('\t'));
    ASSERT_EQ(workshop.Call({name, "-l", last, "-s", "Color=#102030", "-s", "Locked=1", "-o", "new.dxf"}).status, 0);
    LayerTable before = SplitDrawing(Workshop::BundledDrawing(name)), after = SplitDrawing(workshop.Get("new.dxf"));
    EXPECT_NE(before.records.back(), after.records.back());
    after.records.back() = before.records.back();
    EXPECT_EQ(Join(after), Join(before));
    workshop.ExpectOtherReaderAgrees({"new.dxf"});
}

/// The file's name without what a test's name cannot hold.
std::string NameOfTest(testing::TestParamInfo<std::string> const & drawing)
{
    std::string name = drawing.param.substr(0, drawing.param.find('.'));
    std::ranges::replace(name, '-', '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Drawing, LayerEditBundled, testing::ValuesIn(Workshop::BundledDrawings()), NameOfTest);

TEST(LayerEditBackAndForth, ALayerBackAsItWasIsTheDrawingAsItWas)
{
    Workshop workshop;
    std::string const name = workshop.Take("r2004-all-properties.dxf");
    char const * const there[] = {"Color=80", "On=0", "Frozen=1", "Locked=1", "LineType=ACAD_ISO02W100"};
    char const * const back[] = {"Color=7", "On=1", "Frozen=0", "Locked=0", "LineType=Continuous"};
    for (std::size_t index = 0; index < std::size(there); ++index)
    {
        ASSERT_EQ(workshop.Call({name, "-l", "Layer1", "-s", there[index], "--in-place"}).status, 0);
        EXPECT_NE(workshop.Get(name), Workshop::BundledDrawing(name));
        ASSERT_EQ(workshop.Call({name, "-l", "Layer1", "-s", back[index], "--in-place"}).status, 0);
        EXPECT_EQ(workshop.Get(name), Workshop::BundledDrawing(name)) << there[index];
    }
}

} // namespace kr::test
