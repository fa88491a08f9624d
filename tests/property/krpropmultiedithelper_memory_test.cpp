// Editing several property sets as one where memory runs out.
#include <krcore/property/krpropmultiedithelper.h>

#include "tests/property/guarded_failures.h"

#include <gtest/gtest.h>

#include <array>
#include <vector>

using kr::test::FailEachAllocation;

namespace
{

CString const s_category(OLESTR("General"));

/// With one property, x.
CKrPropertySet MakeSet(CKrVariant const & value)
{
    CKrPropertySet set;
    set.AddProperty(new CKrProperty(OLESTR("x"), CString(), CKrProperty::ePropInt, value, true, true), s_category);
    return set;
}

CKrProperty & X(CKrPropertySet & set) { return *set.GetProperty(OLESTR("x"), s_category); }

} // namespace

TEST(CKrPropMultiEditHelperMemory, MarksUnderAGuard)
{
    std::size_t const failures = FailEachAllocation(
        OLESTR("krpropertyutils(157): "),
        []
        {
            CKrSimplePropMultiEditHelper edit;
            edit.SetMainPropertySet(MakeSet(CKrVariant(OLESTR("one"))));
            return edit;
        },
        [set = MakeSet(CKrVariant(2))](CKrSimplePropMultiEditHelper & edit) { EXPECT_TRUE(edit.Prepare(set)); });
    EXPECT_GT(failures, 0u);
}

TEST(CKrPropMultiEditHelperMemory, CarriesUnderAGuardAndLeavesWhatWasCarried)
{
    CKrSimplePropMultiEditHelper edit;
    edit.SetMainPropertySet(MakeSet(CKrVariant(OLESTR("a text to be copied"))));
    X(edit.GetMainPropertySet()).SetModified(true);
    std::size_t const failures = FailEachAllocation(
        OLESTR("krpropertyutils(196): "), [] { return MakeSet(CKrVariant(2)); },
        [&edit](CKrPropertySet & set) { EXPECT_TRUE(edit.Update(set)); },
        [](CKrPropertySet & set)
        {
            EXPECT_EQ(X(set).GetInt(), 2); // the old value stays
            EXPECT_FALSE(X(set).IsModified());
        });
    EXPECT_GT(failures, 0u);
}

TEST(CKrPropMultiEditHelperMemory, HasNoWayBackForSetsAlreadyCarried)
{
    std::array<CKrPropertySet, 3> sets;
    CKrPropMultiEditHelper helper({&sets[0], &sets[1], &sets[2]});
    helper.SetMainPropertySet(MakeSet(CKrVariant(OLESTR("a text"))));
    X(helper.GetMainPropertySet()).SetModified(true);
    bool stopped = false;
    for (std::size_t n = 1; !stopped; ++n)
    {
        sets = {MakeSet(CKrVariant(1)), MakeSet(CKrVariant(2)), MakeSet(CKrVariant(3))};
        try
        {
            kr::test::FailNthAllocation const fail(n);
            helper.Update();
            ASSERT_FALSE(fail.HasFailed());
            break;
        }
        catch (CKrException const &)
        {
            stopped = X(sets[0]).IsModified() && !X(sets[2]).IsModified();
        }
        catch (...) // before the first set, where the trace line is written
        {
            kr::test::ExpectWantOfMemory();
        }
    }
    EXPECT_TRUE(stopped);
}

TEST(CKrPropMultiEditHelperMemory, CarriesAllToASetBeforeAnythingToTheNext)
{
    constexpr WCHAR const * names[] = {OLESTR("a"), OLESTR("b"), OLESTR("c")};
    auto const fill = [&names](CKrPropertySet & set, CKrVariant const & value)
    {
        set.DeleteProperties();
        for (WCHAR const * const name : names)
            set.CreateProperty(name, s_category)->SetValue(value);
    };
    std::array<CKrPropertySet, 2> sets;
    CKrPropMultiEditHelper helper({&sets[0], &sets[1]});
    fill(helper.GetMainPropertySet(), CKrVariant(OLESTR("a text")));
    for (WCHAR const * const name : names)
        helper.GetMainPropertySet().GetProperty(name, s_category)->SetModified(true);
    std::vector<bool> expected(6, false);
    std::size_t carriedAtMost = 0;
    for (std::size_t n = 1; n < 100 && carriedAtMost < 6; ++n)
    {
        for (CKrPropertySet & set : sets)
            fill(set, CKrVariant(1));
        try
        {
            kr::test::FailNthAllocation const fail(n);
            helper.Update();
        }
        catch (CKrException const &)
        {
        }
        catch (...) // where the trace line is written
        {
            kr::test::ExpectWantOfMemory();
        }
        std::vector<bool> carried;
        for (CKrPropertySet const & set : sets)
        {
            for (WCHAR const * const name : names)
                carried.push_back(set.GetProperty(name, s_category)->IsModified());
        }
        // One more than before at the most, and that is the next in order.
        if (carriedAtMost < 6 && carried != expected)
            expected[carriedAtMost++] = true;
        ASSERT_EQ(carried, expected) << n;
    }
    EXPECT_EQ(carriedAtMost, 6u);
}
