#include <krcore/graphics/krcolorschememap.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <type_traits>

namespace
{

CString const s_dark(OLESTR("Dark"));
CString const s_light(OLESTR("Light"));

/// A scheme that is counted while it lives.
class Scheme : public CKrColorSchemeBase
{
public:
    Scheme() { ++s_living; }
    ~Scheme() override { --s_living; }
    Scheme(Scheme const &) = delete;
    Scheme & operator=(Scheme const &) = delete;

    static int Living() { return s_living; }

private:
    static inline int s_living = 0;
};

/// Adds a new scheme to the map, and lends it.
CKrColorSchemeBase * AddScheme(CKrColorSchemeMap & map, CString const & name)
{
    map.AddObject(name, new Scheme);
    return map.GetObjectW(name);
}

} // namespace

static_assert(std::has_virtual_destructor_v<CKrColorSchemeMap>);
static_assert(std::is_base_of_v<kr::ownermap<CString, CKrColorSchemeBase>, CKrColorSchemeMap>);

TEST(CKrColorSchemeMap, StartsEmptyAndAnswersNull)
{
    CKrColorSchemeMap const map;
    EXPECT_EQ(map.GetCount(), 0u);
    EXPECT_EQ(map.GetColorScheme(s_dark), nullptr);
    EXPECT_EQ(map.GetColorScheme(CString()), nullptr);
    EXPECT_EQ(map.GetCurrentColorScheme(), nullptr);
    EXPECT_TRUE(map.GetCurrentScheme().IsEmpty());
}

TEST(CKrColorSchemeMap, FindsItsSchemesByTheirExactNames)
{
    CKrColorSchemeMap map;
    CKrColorSchemeBase * const dark = AddScheme(map, s_dark);
    CKrColorSchemeBase * const light = AddScheme(map, s_light);
    CKrColorSchemeBase * const nameless = AddScheme(map, CString());
    EXPECT_EQ(map.GetColorScheme(s_dark), dark);
    EXPECT_EQ(map.GetColorScheme(s_light), light);
    EXPECT_EQ(map.GetColorScheme(CString()), nameless);
    EXPECT_EQ(map.GetColorScheme(OLESTR("DARK")), nullptr);
    EXPECT_EQ(map.GetColorScheme(OLESTR("Dark ")), nullptr);
}

TEST(CKrColorSchemeMap, GoesByTheKeyAndNotByTheNameOfTheScheme)
{
    CKrColorSchemeMap map;
    AddScheme(map, s_dark)->SetName(s_light);
    EXPECT_NE(map.GetColorScheme(s_dark), nullptr);
    EXPECT_EQ(map.GetColorScheme(s_light), nullptr);
}

TEST(CKrColorSchemeMap, SearchesTheInheritedMapsFromNearToFar)
{
    CKrColorSchemeMap far;
    CKrColorSchemeMap middle;
    CKrColorSchemeMap near;
    near.SetInheritedSchemeMap(&middle);
    middle.SetInheritedSchemeMap(&far);
    CKrColorSchemeBase * const farDark = AddScheme(far, s_dark);
    EXPECT_EQ(near.GetColorScheme(s_dark), farDark);
    EXPECT_EQ(near.GetColorScheme(s_light), nullptr);
    CKrColorSchemeBase * const middleDark = AddScheme(middle, s_dark);
    EXPECT_EQ(near.GetColorScheme(s_dark), middleDark);
    CKrColorSchemeBase * const nearDark = AddScheme(near, s_dark);
    EXPECT_EQ(near.GetColorScheme(s_dark), nearDark);
    EXPECT_EQ(middle.GetColorScheme(s_dark), middleDark);
    EXPECT_EQ(far.GetColorScheme(s_dark), farDark);
}

TEST(CKrColorSchemeMap, LetsTheInheritedMapFillANameThatHoldsNull)
{
    CKrColorSchemeMap shared;
    CKrColorSchemeBase * const dark = AddScheme(shared, s_dark);
    CKrColorSchemeMap map;
    map.SetInheritedSchemeMap(&shared);
    map.SetNULL(s_dark);
    EXPECT_EQ(map.GetCount(), 1u);
    EXPECT_EQ(map.GetColorScheme(s_dark), dark);
    shared.SetNULL(s_dark);
    EXPECT_EQ(map.GetColorScheme(s_dark), nullptr);
}

TEST(CKrColorSchemeMap, NullEndsTheInheritance)
{
    CKrColorSchemeMap shared;
    AddScheme(shared, s_dark);
    CKrColorSchemeMap map;
    map.SetInheritedSchemeMap(&shared);
    EXPECT_NE(map.GetColorScheme(s_dark), nullptr);
    map.SetInheritedSchemeMap(nullptr);
    EXPECT_EQ(map.GetColorScheme(s_dark), nullptr);
}

TEST(CKrColorSchemeMap, TakesAnyNameForTheCurrentOne)
{
    CKrColorSchemeMap map;
    map.SetCurrentScheme(s_light);
    EXPECT_EQ(map.GetCurrentScheme(), s_light);
    EXPECT_EQ(map.GetCurrentColorScheme(), nullptr);
    CKrColorSchemeBase * const light = AddScheme(map, s_light);
    EXPECT_EQ(map.GetCurrentColorScheme(), light);
    map.DeleteObject(s_light);
    EXPECT_EQ(map.GetCurrentScheme(), s_light);
    EXPECT_EQ(map.GetCurrentColorScheme(), nullptr);
}

TEST(CKrColorSchemeMap, UsesItsOwnCurrentNameInInheritedMaps)
{
    CKrColorSchemeMap shared;
    AddScheme(shared, s_dark);
    CKrColorSchemeBase * const light = AddScheme(shared, s_light);
    shared.SetCurrentScheme(s_dark);
    CKrColorSchemeMap map;
    map.SetInheritedSchemeMap(&shared);
    EXPECT_EQ(map.GetCurrentColorScheme(), nullptr);
    map.SetCurrentScheme(s_light);
    EXPECT_EQ(map.GetCurrentColorScheme(), light);
}

TEST(CKrColorSchemeMap, RemembersOneCurrentName)
{
    CKrColorSchemeMap map;
    map.SetCurrentScheme(s_dark);
    map.BackupCurrentScheme();
    map.SetCurrentScheme(s_light);
    map.RestoreBackupScheme();
    EXPECT_EQ(map.GetCurrentScheme(), s_dark);
    map.SetCurrentScheme(s_light);
    map.RestoreBackupScheme();
    EXPECT_EQ(map.GetCurrentScheme(), s_dark) << "the name stays remembered";
    map.SetCurrentScheme(s_light);
    map.BackupCurrentScheme();
    map.SetCurrentScheme(CString());
    map.RestoreBackupScheme();
    EXPECT_EQ(map.GetCurrentScheme(), s_light) << "a second time replaces the first";
}

TEST(CKrColorSchemeMap, RestoringWithoutABackupEmptiesTheCurrentName)
{
    CKrColorSchemeMap map;
    map.SetCurrentScheme(s_dark);
    map.RestoreBackupScheme();
    EXPECT_TRUE(map.GetCurrentScheme().IsEmpty());
}

TEST(CKrColorSchemeMap, DeletesItsSchemesAndNotThoseOfTheInheritedMap)
{
    CKrColorSchemeMap shared;
    AddScheme(shared, s_light);
    {
        CKrColorSchemeMap map;
        map.SetInheritedSchemeMap(&shared);
        AddScheme(map, s_dark);
        AddScheme(map, s_light);
        EXPECT_EQ(Scheme::Living(), 3);
    }
    EXPECT_EQ(Scheme::Living(), 1);
    EXPECT_NE(shared.GetColorScheme(s_light), nullptr);
    shared.Clear();
    EXPECT_EQ(Scheme::Living(), 0);
}

TEST(CKrColorSchemeMap, OffersTheOperationsOfAnOwnerMap)
{
    CKrColorSchemeMap map;
    CKrColorSchemeBase * const light = AddScheme(map, s_light);
    CKrColorSchemeBase * const dark = AddScheme(map, s_dark);
    EXPECT_EQ(map.GetObjectAt(0), dark) << "in the order of the names";
    EXPECT_EQ(map.GetObjectAt(1), light);
    std::unique_ptr<CKrColorSchemeBase> const removed(map.RemoveObject(s_light));
    EXPECT_EQ(removed.get(), light);
    EXPECT_EQ(map.GetColorScheme(s_light), nullptr);
    map.SetAllNULL();
    EXPECT_EQ(Scheme::Living(), 1);
    EXPECT_EQ(map.GetMap().size(), 1u);
    EXPECT_EQ(map.GetColorScheme(s_dark), nullptr);
}

TEST(CKrColorSchemeMap, ACopyHoldsTheSameSchemesAndGivesThemUpBeforeItsEnd)
{
    CKrColorSchemeMap shared;
    CKrColorSchemeBase * const light = AddScheme(shared, s_light);
    CKrColorSchemeMap source;
    CKrColorSchemeBase * const dark = AddScheme(source, s_dark);
    source.SetInheritedSchemeMap(&shared);
    source.SetCurrentScheme(s_light);
    source.BackupCurrentScheme();
    source.SetCurrentScheme(s_dark);
    {
        CKrColorSchemeMap copy(source);
        EXPECT_EQ(Scheme::Living(), 2);
        EXPECT_EQ(copy.GetColorScheme(s_dark), dark);
        EXPECT_EQ(copy.GetColorScheme(s_light), light);
        EXPECT_EQ(copy.GetCurrentColorScheme(), dark);
        copy.RestoreBackupScheme();
        EXPECT_EQ(copy.GetCurrentScheme(), s_light);
        EXPECT_EQ(source.GetCurrentScheme(), s_dark);
        copy.GetMap().clear();
    }
    EXPECT_EQ(Scheme::Living(), 2);
    EXPECT_EQ(source.GetColorScheme(s_dark), dark);
}

TEST(CKrColorSchemeMap, AssigningDropsTheSchemesOfTheTargetWithoutDeletingThem)
{
    CKrColorSchemeMap shared;
    CKrColorSchemeMap source;
    CKrColorSchemeBase * const dark = AddScheme(source, s_dark);
    source.SetInheritedSchemeMap(&shared);
    source.SetCurrentScheme(s_dark);
    source.BackupCurrentScheme();
    CKrColorSchemeMap target;
    std::unique_ptr<CKrColorSchemeBase> const dropped(AddScheme(target, s_light));
    EXPECT_EQ(&(target = source), &target);
    EXPECT_EQ(Scheme::Living(), 2);
    EXPECT_EQ(target.GetCount(), 1u);
    EXPECT_EQ(target.GetCurrentColorScheme(), dark);
    target.SetCurrentScheme(s_light);
    CKrColorSchemeBase * const light = AddScheme(shared, s_light);
    EXPECT_EQ(target.GetCurrentColorScheme(), light) << "from the inherited map";
    target.RestoreBackupScheme();
    EXPECT_EQ(target.GetCurrentScheme(), s_dark);
    target.GetMap().clear();
}

TEST(CKrColorSchemeMap, AssigningItselfHasNoEffect)
{
    CKrColorSchemeMap map;
    CKrColorSchemeBase * const dark = AddScheme(map, s_dark);
    map.SetCurrentScheme(s_dark);
    map = static_cast<CKrColorSchemeMap const &>(map);
    EXPECT_EQ(map.GetCurrentColorScheme(), dark);
    EXPECT_EQ(Scheme::Living(), 1);
}

TEST(CKrColorSchemeMap, StaysAsItWasWhenMemoryRunsOutInAnAssignment)
{
    CKrColorSchemeMap source;
    AddScheme(source, s_dark);
    AddScheme(source, s_light);
    source.SetCurrentScheme(s_light);
    std::size_t const failures = kr::test::FailEveryAllocation(
        [&]
        {
            CKrColorSchemeMap target;
            target.SetCurrentScheme(s_dark);
            try
            {
                target = source;
            }
            catch (std::bad_alloc const &)
            {
                EXPECT_EQ(target.GetCount(), 0u);
                EXPECT_EQ(target.GetCurrentScheme(), s_dark);
                throw;
            }
            target.GetMap().clear();
        },
        [] { EXPECT_THROW(throw, std::bad_alloc); });
    EXPECT_EQ(failures, 2u);
    EXPECT_EQ(Scheme::Living(), 2);
}
