// One edit of several selected objects, from their definition texts to the saved ones.
#include <krcore/diagnostics/krtrace.h>
#include <krcore/property/krpropertyset.h>
#include <krcore/property/krpropertyutils.h>

#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include <unistd.h>

namespace
{

CString const s_general(OLESTR("General"));
CString const s_varied(OLESTR("Kr.VariedMode"));

/// What a client keeps of a wall.
struct Wall
{
    CString name;
    double width;
    int floor;
    bool bearing;
};

CKrPropertySet MakeSet(Wall const & wall)
{
    CKrPropertySet set;
    set.CreateCategory(s_general);
    set.CreateProperty(OLESTR("Name"), CKrProperty::ePropString, s_general);
    set.CreateProperty(OLESTR("Width"), CKrProperty::ePropDouble, s_general);
    set.CreateProperty(OLESTR("Floor"), CKrProperty::ePropInt, s_general);
    set.CreateProperty(OLESTR("Bearing"), CKrProperty::ePropBool, s_general);
    set.CreateProperty(OLESTR("Color"), CKrProperty::ePropColor, CString());
    set.CreateProperty(OLESTR("Built"), CKrProperty::ePropDateTime, CString());
    set.CreateProperty(OLESTR("Checked"), CKrProperty::ePropDate, CString());

    CKrPropertyValueFormatter formatter;
    formatter.SetCurrentTime(COleDateTime(2021, 3, 15, 8, 5, 9));
    EXPECT_TRUE(formatter.ParseDefaultValue(OLESTR("7"), *set.GetPropertyByPropName(OLESTR("Color"))));
    EXPECT_TRUE(formatter.ParseDefaultValue(OLESTR(" now "), *set.GetPropertyByPropName(OLESTR("Built"))));
    EXPECT_TRUE(formatter.ParseDefaultValue(OLESTR(""), *set.GetPropertyByPropName(OLESTR("Checked"))));

    CKrPropertyDataMapper const mapper;
    CKrProperty * const general = set.GetCategory(s_general);
    mapper.DataToProp(general, OLESTR("Name"), wall.name);
    mapper.DataToProp(general, OLESTR("Width"), wall.width);
    mapper.DataToProp(general, OLESTR("Floor"), wall.floor);
    mapper.DataToProp(general, OLESTR("Bearing"), wall.bearing);
    return set;
}

Wall ReadBack(CKrPropertySet const & set)
{
    Wall wall = {OLESTR("none"), -1.0, -1, false};
    CKrPropertyDataMapper const mapper;
    CKrProperty * const general = set.GetCategory(s_general);
    mapper.DataFromProp(general, OLESTR("Name"), wall.name);
    mapper.DataFromProp(general, OLESTR("Width"), wall.width);
    mapper.DataFromProp(general, OLESTR("Floor"), wall.floor);
    mapper.DataFromProp(general, OLESTR("Bearing"), wall.bearing);
    return wall;
}

/// The names of the nodes for which `Select` is true, in the order of the walk.
template <bool (*Select)(CKrProperty const &)>
class Collector : public kr::visitor<CKrProperty>
{
public:
    bool Match(CKrProperty * node) override { return Select(*node); }
    bool Action(CKrProperty * node) override
    {
        names += node->GetName() + OLESTR(" ");
        return true;
    }

    CString names;
};

bool IsVaried(CKrProperty const & node) { return node.HasAttribute(s_varied); }
bool IsModified(CKrProperty const & node) { return node.IsModified(); }

template <bool (*Select)(CKrProperty const &)>
CString Collect(CKrPropertySet & set)
{
    Collector<Select> collector;
    EXPECT_TRUE(set.Visit(collector));
    return collector.names;
}

/// Runs `action` at the category of that name.
template <class Work>
class At : public kr::visitor<CKrProperty>
{
public:
    At(CString const & name, Work work) : m_name(name), m_work(work) {}
    bool Match(CKrProperty * node) override { return node->GetName() == m_name; }
    bool Action(CKrProperty *) override
    {
        m_work();
        return true;
    }

private:
    CString m_name;
    Work m_work;
};

class RoadOfOneEdit : public testing::Test
{
protected:
    RoadOfOneEdit() : path(std::filesystem::temp_directory_path() / ("road." + std::to_string(getpid())))
    {
        CKrTrace::SetObject(new CKrTrace(CString(path.c_str()), CString()), true);
        for (CKrPropertySet & set : sets)
            helper.AddPropertySet(&set);
    }
    ~RoadOfOneEdit() override
    {
        CKrTrace::SetObject(nullptr, true);
        std::filesystem::remove(path);
    }

    CKrProperty & Main(CString const & name) { return *helper.GetMainPropertySet().GetPropertyByPropName(name); }

    std::string Written() const
    {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }
    // With every digit of a time replaced by a 0.
    void ExpectWritten(std::string const & expected) const
    {
        std::string written = Written();
        constexpr std::string_view time = "00:00:00-";
        for (std::size_t start = 0; start + time.size() <= written.size(); ++start)
        {
            std::string_view const place = std::string_view(written).substr(start, time.size());
            bool const isTime = std::equal(place.begin(), place.end(), time.begin(),
                                           [](char found, char wanted)
                                           { return wanted == '0' ? found >= '0' && found <= '9' : found == wanted; });
            if (isTime)
                written.replace(start, time.size(), time);
        }
        EXPECT_EQ(written, expected);
    }

    std::filesystem::path path;
    std::array<CKrPropertySet, 3> sets = {MakeSet({OLESTR("north"), 0.25, 1, true}),
                                          MakeSet({OLESTR("south"), 0.5, 1, true}),
                                          MakeSet({OLESTR("east"), 0.25, 1, false})};
    CKrPropMultiEditHelper helper;
};

std::string const s_prepared = "00:00:00-krpropertyutils               (305): "
                               "\tCKrPropMultiEditHelper::PrepareEdit() called\n";
std::string const s_updated =
    "00:00:00-krpropertyutils               (327): \tCKrPropMultiEditHelper::Update() called\n";

} // namespace

TEST_F(RoadOfOneEdit, BeginsWithTheDefaultsOfTheTypesAndTheKeywords)
{
    CKrPropertySet const & set = sets[0];
    EXPECT_EQ(set.GetCountCategories(), 2u);
    EXPECT_EQ(set.GetCategoryName(1), OLESTR("_KRPROPDEFCAT_"));
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("Bearing"))->GetCtrlType(), CKrAssCtrl::eCheckCtrl);
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("Built"))->GetOleDateTime().Format(OLESTR("%Y-%m-%d %H:%M:%S")),
              OLESTR("2021-03-15 08:05:09"));
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("Built"))->GetAttribute(OLESTR("Kr.DefValue")).GetAsString(),
              OLESTR("NOW"));
    EXPECT_EQ(set.GetPropertyByPropName(OLESTR("Checked"))->GetAttribute(OLESTR("Kr.DefValue")).GetAsString(),
              OLESTR("NULL"));
}

TEST_F(RoadOfOneEdit, ShowsTheFirstObjectAndMarksWhatVaries)
{
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Collect<IsVaried>(helper.GetMainPropertySet()), OLESTR("Name Width Bearing "));
    EXPECT_EQ(Main(OLESTR("Name")).GetAsLocaleString(), OLESTR("north"));
    EXPECT_EQ(Collect<IsModified>(helper.GetMainPropertySet()), OLESTR(""));
    for (CKrPropertySet & set : sets)
        EXPECT_EQ(Collect<IsVaried>(set), OLESTR(""));
    ExpectWritten(s_prepared);
}

TEST_F(RoadOfOneEdit, CarriesWhatTheUserChangedAndNothingElse)
{
    ASSERT_TRUE(helper.PrepareEdit());
    Main(OLESTR("Width")).SetValueFromString(OLESTR("0.5"));
    Main(OLESTR("Width")).SetModified(true);
    Main(OLESTR("Color")).SetColor(CKrColor(1));
    Main(OLESTR("Color")).SetModified(true);
    Main(OLESTR("Floor")).SetInt(9); // not flagged
    EXPECT_TRUE(helper.Update());

    EXPECT_EQ(Collect<IsModified>(sets[0]), OLESTR("Width Color "));
    EXPECT_EQ(Collect<IsModified>(sets[1]), OLESTR("Color ")); // its width was 0.5 already
    EXPECT_EQ(Collect<IsModified>(sets[2]), OLESTR("Width Color "));

    // clang-format off
    struct { WCHAR const * name; bool bearing; } const rows[] = {
        { OLESTR("north"), true  },
        { OLESTR("south"), true  },
        { OLESTR("east"),  false },   // varied, untouched, so still different
    };
    // clang-format on
    CKrPropertyValueFormatter const formatter;
    for (std::size_t place = 0; place < sets.size(); ++place)
    {
        SCOPED_TRACE(place);
        Wall const wall = ReadBack(sets[place]);
        EXPECT_EQ(wall.name, rows[place].name);
        EXPECT_EQ(wall.bearing, rows[place].bearing);
        EXPECT_EQ(wall.width, 0.5);
        EXPECT_EQ(wall.floor, 1);

        CString text;
        formatter.FormatDefaultValueInvariant(*sets[place].GetPropertyByPropName(OLESTR("Built")), text);
        EXPECT_EQ(text, OLESTR("NOW"));
        formatter.FormatDefaultValueInvariant(*sets[place].GetPropertyByPropName(OLESTR("Checked")), text);
        EXPECT_EQ(text, OLESTR("NULL"));
        formatter.FormatDefaultValueInvariant(*sets[place].GetPropertyByPropName(OLESTR("Color")), text);
        EXPECT_EQ(text, CKrColor(1).Format(false));
        EXPECT_EQ(sets[place].GetPropertyByPropName(OLESTR("Width"))->GetAsInvariantString(), OLESTR("0.5"));
        EXPECT_EQ(sets[place].GetPropertyByPropName(OLESTR("Color"))->GetAsInvariantString(), OLESTR("-1"));
    }
    ExpectWritten(s_prepared + s_updated);
}

TEST_F(RoadOfOneEdit, WritesItsLinesAlsoWithoutSets)
{
    CKrPropMultiEditHelper empty;
    EXPECT_FALSE(empty.PrepareEdit());
    EXPECT_TRUE(empty.Update());
    ExpectWritten(s_prepared + s_updated);
}

TEST_F(RoadOfOneEdit, GoesOnWithoutATrace)
{
    CKrTrace::SetObject(nullptr, true);
    EXPECT_TRUE(helper.PrepareEdit());
    EXPECT_TRUE(helper.Update());
    ASSERT_NE(CKrTrace::GetObjectW(false), nullptr); // one that stays off was made
    EXPECT_FALSE(CKrTrace::GetObjectW(false)->IsOn());
    EXPECT_EQ(Written(), "");
}

TEST_F(RoadOfOneEdit, TellsTheWholeRouteOfAFailureAtItsEnd)
{
    At inner(OLESTR("Width"),
             [] { throw CKrException(OLESTR("No room"), OLESTR("client"), 12, CKrException::eLevelNormal); });
    At outer(s_general, [&] { sets[1].Visit(inner); });
    try
    {
        sets[0].Visit(outer);
        FAIL();
    }
    catch (CKrException const & exception)
    {
        EXPECT_EQ(exception.GetErrorMessage(true),
                  OLESTR("No room\nclient(12): \nkrpropertyset(553): \nkrpropertyset(553): "));
        CKrTrace::GetObjectW(true)->Trace(exception, false);
    }
    EXPECT_EQ(Written(), "\n*** ExceptionBegin ***\nNo room\nclient(12): \nkrpropertyset(553): \nkrpropertyset(553): "
                         "\n*** ExceptionEnd ***\n\n\n");
}

TEST_F(RoadOfOneEdit, TellsTheWholeRouteOfAFailureThatIsNotItsOwn)
{
    At inner(OLESTR("Width"), [] { throw std::runtime_error("disk full"); });
    At outer(s_general, [&] { sets[1].Visit(inner); });
    try
    {
        sets[0].Visit(outer);
        FAIL();
    }
    catch (CKrException const & exception)
    {
        EXPECT_EQ(exception.GetErrorMessage(true),
                  OLESTR("STL_EXCEPTION::disk full\n\nkrpropertyset(553): \nkrpropertyset(553): "));
    }
}

TEST_F(RoadOfOneEdit, TellsTheGuardsOfDifferentOperationsInnermostFirst)
{
    CKrPropertyValueFormatter const formatter;
    CKrProperty & name = *sets[0].GetPropertyByPropName(OLESTR("Name"));
    CString const text(OLESTR("a longer name"));
    At visitor(s_general,
               [&]
               {
                   kr::test::FailNthAllocation const fail(1);
                   formatter.ParseDefaultValue(text, name);
               });
    try
    {
        sets[0].Visit(visitor);
        FAIL();
    }
    catch (CKrException const & exception)
    {
        EXPECT_EQ(exception.GetErrorMessage(true),
                  exception.GetErrorMessage(false) + OLESTR("\nkrpropertyutils(410): \nkrpropertyset(553): "));
    }
    EXPECT_EQ(name.GetAsString(), OLESTR("north"));
}
