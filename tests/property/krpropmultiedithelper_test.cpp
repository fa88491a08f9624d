#include <krcore/property/krpropmultiedithelper.h>

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>
#include <vector>

namespace
{

CString const s_category(OLESTR("General"));
CString const s_varied(OLESTR("Kr.VariedMode"));

/// Lets the test see what is kept for derived classes.
class Open : public CKrPropMultiEditHelper
{
public:
    using CKrPropMultiEditHelper::CKrPropMultiEditHelper;
    using CKrPropMultiEditHelperBase::PrepareProperty;
    using CKrPropMultiEditHelperBase::PreparePropSet;
    using CKrPropMultiEditHelperBase::UpdateProperty;
    using CKrPropMultiEditHelperBase::UpdatePropSet;

    CKrPropertySet const & Reference() const { return m_referenceSet; }
    std::size_t SpareCount() const { return m_spareSets.size(); }
    bool IsFromFirst() const { return m_mainSetFromFirst; }
    bool HasCommonStruct() const { return m_commonStruct; }
    void SetChanged() { m_changed = true; }
};

CKrPropertySet MakeSet(CString const & name, CKrVariant const & value)
{
    CKrPropertySet set;
    set.AddProperty(new CKrProperty(name, CString(), CKrProperty::ePropInt, value, true, true), s_category);
    return set;
}

CKrPropertySet MakeSet(int value) { return MakeSet(OLESTR("x"), CKrVariant(value)); }

CKrProperty & X(CKrPropertySet & set) { return *set.GetProperty(OLESTR("x"), s_category); }

bool IsVaried(CKrProperty const & property)
{
    CKrVariant const mark = property.GetAttribute(s_varied);
    return mark.IsBool() && static_cast<bool>(mark);
}

/// The marked properties of the main set, by their names.
CString Varied(CKrPropertySet const & set)
{
    CString names;
    for (unsigned int category = 0; category < set.GetCountCategories(); ++category)
    {
        CKrProperty const & node = *set.GetCategoryAt(category);
        if (IsVaried(node))
            names += OLESTR("[") + node.GetName() + OLESTR("]");
        for (unsigned int index = 0; index < node.GetSubPropertyCount(); ++index)
        {
            if (IsVaried(*node.GetSubPropertyAt(index)))
                names += node.GetSubPropertyAt(index)->GetName();
        }
    }
    return names;
}

/// Three sets with one property, x.
class CKrPropMultiEditHelperTest : public testing::Test
{
protected:
    void Fill(int first, int second, int third)
    {
        sets = {MakeSet(first), MakeSet(second), MakeSet(third)};
        for (CKrPropertySet & set : sets)
            helper.AddPropertySet(&set);
    }
    CKrProperty & Main() { return X(helper.GetMainPropertySet()); }

    std::array<CKrPropertySet, 3> sets;
    Open helper;
};

class ThrowingClone : public CKrProperty
{
public:
    CKrProperty * Clone() const override { throw std::runtime_error("no clone"); }
};

} // namespace

TEST_F(CKrPropMultiEditHelperTest, StartsEmpty)
{
    EXPECT_TRUE(helper.GetMainPropertySet().IsEmpty());
    EXPECT_TRUE(helper.Reference().IsEmpty());
    EXPECT_EQ(helper.SpareCount(), 0u);
    EXPECT_FALSE(helper.HasCommonStruct());
    EXPECT_FALSE(helper.HasChanged());
    EXPECT_TRUE(helper.IsFromFirst());
}

TEST_F(CKrPropMultiEditHelperTest, PreparesNothingWithoutSets)
{
    helper.GetMainPropertySet() = MakeSet(7);
    EXPECT_FALSE(helper.PrepareEdit());
    EXPECT_EQ(Main().GetInt(), 7);
    EXPECT_TRUE(helper.Reference().IsEmpty());
    EXPECT_TRUE(helper.Update());
}

TEST_F(CKrPropMultiEditHelperTest, IgnoresANullSet)
{
    helper.AddPropertySet(static_cast<CKrPropertySet *>(nullptr));
    EXPECT_FALSE(helper.PrepareEdit());
}

TEST_F(CKrPropMultiEditHelperTest, TakesListsOfSets)
{
    sets = {MakeSet(1), MakeSet(1), MakeSet(2)};
    Open listed(std::vector<CKrPropertySet *>{&sets[0], &sets[1]});
    ASSERT_TRUE(listed.PrepareEdit());
    EXPECT_EQ(Varied(listed.GetMainPropertySet()), OLESTR(""));
    listed.AddPropertySet(std::vector<CKrPropertySet *>{&sets[2]}); // appended
    ASSERT_TRUE(listed.PrepareEdit());
    EXPECT_EQ(Varied(listed.GetMainPropertySet()), OLESTR("x"));
    EXPECT_EQ(X(listed.GetMainPropertySet()).GetInt(), 1);
}

TEST_F(CKrPropMultiEditHelperTest, MarksNothingForOneSet)
{
    CKrPropertySet set = MakeSet(3);
    helper.AddPropertySet(&set);
    EXPECT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR(""));
    EXPECT_FALSE(Main().HasAttribute(s_varied));
    EXPECT_EQ(Main().GetInt(), 3);
    EXPECT_NE(&Main(), &X(set)); // a copy
}

TEST_F(CKrPropMultiEditHelperTest, MarksWhatDiffersFromTheFirstSetInAnyOther)
{
    // clang-format off
    struct { int first; int second; int third; bool varied; } const rows[] = {
        { 1, 1, 1, false },
        { 1, 1, 2, true  },
        { 1, 2, 1, true  },
        { 1, 2, 2, true  },
        { 1, 2, 3, true  },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(std::to_string(row.first) + std::to_string(row.second) + std::to_string(row.third));
        std::array<CKrPropertySet, 3> values = {MakeSet(row.first), MakeSet(row.second), MakeSet(row.third)};
        CKrPropMultiEditHelper edit({&values[0], &values[1], &values[2]});
        EXPECT_TRUE(edit.PrepareEdit());
        EXPECT_EQ(IsVaried(X(edit.GetMainPropertySet())), row.varied);
        EXPECT_EQ(X(edit.GetMainPropertySet()).GetInt(), row.first);
        for (CKrPropertySet & set : values)
            EXPECT_FALSE(X(set).HasAttribute(s_varied)); // only the main set is marked
    }
}

TEST_F(CKrPropMultiEditHelperTest, ComparesValuesWithTheirTypes)
{
    // clang-format off
    struct { char const * what; CKrVariant first; CKrVariant second; bool varied; } const rows[] = {
        { "texts",           CKrVariant(OLESTR("a")), CKrVariant(OLESTR("a")), false },
        { "texts by case",   CKrVariant(OLESTR("a")), CKrVariant(OLESTR("A")), true  },
        { "long and double", CKrVariant(1),           CKrVariant(1.0),         true  },   // the payloads' types differ
        { "long and text",   CKrVariant(1),           CKrVariant(OLESTR("1")), true  },
        { "both empty",      CKrVariant(),            CKrVariant(),            false },
        { "empty and zero",  CKrVariant(),            CKrVariant(0),           true  },
        { "colour and long", CKrVariant(CKrColor(3)), CKrVariant(-3),          false },   // the payload counts, not the tag
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        CKrPropertySet first = MakeSet(OLESTR("x"), row.first);
        CKrPropertySet second = MakeSet(OLESTR("x"), row.second);
        CKrPropMultiEditHelper edit({&first, &second});
        EXPECT_TRUE(edit.PrepareEdit());
        EXPECT_EQ(IsVaried(X(edit.GetMainPropertySet())), row.varied);
    }
}

TEST_F(CKrPropMultiEditHelperTest, TakesCategoriesIntoAccountAndNotTheRoot)
{
    Fill(1, 1, 1);
    sets[1].GetRootProperty().SetValue(CKrVariant(5));
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_FALSE(IsVaried(helper.GetMainPropertySet().GetRootProperty()));
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR("")); // categories are equally empty
    sets[2].GetCategory(s_category)->SetValue(CKrVariant(5));
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR("[General]"));
}

TEST_F(CKrPropMultiEditHelperTest, WalksDeeperLevelsToo)
{
    Fill(1, 1, 1);
    for (int place = 0; place < 3; ++place)
    {
        CKrProperty * const child = new CKrProperty(OLESTR("deep"), CString(), CKrProperty::ePropInt, true, true);
        child->SetInt(place);
        X(sets[static_cast<std::size_t>(place)]).AddSubProperty(child);
    }
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_FALSE(IsVaried(Main()));
    CKrProperty & deep = *Main().GetSubProperty(OLESTR("deep"));
    EXPECT_TRUE(IsVaried(deep));
    deep.SetInt(9);
    deep.SetModified(true); // its parent is not flagged
    helper.Update();
    for (CKrPropertySet & set : sets)
        EXPECT_EQ(X(set).GetSubProperty(OLESTR("deep"))->GetInt(), 9);
}

TEST_F(CKrPropMultiEditHelperTest, KeepsTheMainSetAsItWasBeforeTheMarks)
{
    Fill(1, 2, 2);
    ASSERT_TRUE(helper.PrepareEdit());
    CKrProperty const & reference = *helper.Reference().GetProperty(OLESTR("x"), s_category);
    EXPECT_EQ(reference.GetInt(), 1);
    EXPECT_FALSE(reference.HasAttribute(s_varied));
    EXPECT_NE(&reference, &Main());
}

TEST_F(CKrPropMultiEditHelperTest, StartsAfreshWithEachPreparation)
{
    Fill(1, 2, 2);
    ASSERT_TRUE(helper.PrepareEdit());
    Main().SetModified(true);
    X(sets[1]).SetInt(1);
    X(sets[2]).SetInt(1);
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_FALSE(IsVaried(Main()));
    EXPECT_FALSE(Main().IsModified());
}

TEST_F(CKrPropMultiEditHelperTest, KeepsMarksAndFlagsOfAMainSetOfTheCaller)
{
    Fill(1, 1, 1);
    CKrPropertySet const given = MakeSet(5);
    helper.SetMainPropertySet(given);
    EXPECT_FALSE(helper.IsFromFirst());
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Main().GetInt(), 5);
    EXPECT_TRUE(IsVaried(Main())); // compared with the main set, never with one another
    Main().SetModified(true);
    helper.Update();
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_TRUE(IsVaried(Main())); // though all are equal by now
    EXPECT_TRUE(Main().IsModified());
    X(sets[0]).SetInt(8);
    helper.Update(); // carried again
    EXPECT_EQ(X(sets[0]).GetInt(), 5);
    EXPECT_FALSE(given.GetProperty(OLESTR("x"), s_category)->HasAttribute(s_varied)); // a copy was taken
}

TEST_F(CKrPropMultiEditHelperTest, ComparesNothingThatHasAValueForTheMark)
{
    Fill(1, 2, 2);
    CKrPropertySet given = MakeSet(5);
    X(given).SetAttribute(s_varied, CKrVariant(false));
    helper.SetMainPropertySet(given);
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_FALSE(IsVaried(Main())); // whatever the value is
    Main().SetAttribute(s_varied, CKrVariant());
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_TRUE(IsVaried(Main())); // an invalid one counts as none
}

TEST_F(CKrPropMultiEditHelperTest, SkipsWhatASetLacks)
{
    Fill(1, 1, 1);
    sets[1] = MakeSet(OLESTR("y"), CKrVariant(9));
    sets[2] = CKrPropertySet();
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR(""));
    Main().SetInt(4);
    Main().SetModified(true);
    EXPECT_TRUE(helper.Update());
    EXPECT_EQ(X(sets[0]).GetInt(), 4);
    EXPECT_EQ(sets[1].GetProperty(OLESTR("y"), s_category)->GetInt(), 9);
    EXPECT_FALSE(sets[1].GetProperty(OLESTR("y"), s_category)->IsModified());
    EXPECT_TRUE(sets[2].IsEmpty()); // nothing is made
}

TEST_F(CKrPropMultiEditHelperTest, PairsByPlaceWithACommonStructure)
{
    Fill(1, 1, 1);
    sets[1] = MakeSet(OLESTR("y"), CKrVariant(9));
    sets[2] = CKrPropertySet(); // shorter
    helper.SetCommonStruct(true);
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR("x"));
    Main().SetInt(4);
    Main().SetModified(true);
    EXPECT_TRUE(helper.Update());
    EXPECT_EQ(sets[1].GetProperty(OLESTR("y"), s_category)->GetInt(), 4);
    EXPECT_TRUE(sets[2].IsEmpty());
}

TEST_F(CKrPropMultiEditHelperTest, PairsTheFirstOfEqualNamesWithoutOne)
{
    Fill(1, 1, 1);
    for (CKrPropertySet & set : sets) // a second x, each with another value than the first
        set.CreateProperty(OLESTR("x"), CKrProperty::ePropInt, s_category)->SetInt(2);
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Varied(helper.GetMainPropertySet()),
              OLESTR("x")); // the second of the main set was compared with the first ones
    EXPECT_FALSE(IsVaried(Main()));
    helper.SetCommonStruct(true);
    ASSERT_TRUE(helper.PrepareEdit());
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR(""));
}

TEST_F(CKrPropMultiEditHelperTest, CarriesFlaggedValuesOnly)
{
    Fill(1, 2, 3);
    ASSERT_TRUE(helper.PrepareEdit());
    Main().SetInt(9);
    EXPECT_TRUE(helper.Update()); // not flagged: the value is lost for the sets
    EXPECT_EQ(X(sets[0]).GetInt(), 1);
    EXPECT_EQ(X(sets[1]).GetInt(), 2);
    EXPECT_EQ(X(sets[2]).GetInt(), 3);
    for (CKrPropertySet & set : sets)
        EXPECT_FALSE(X(set).IsModified());

    Main().SetModified(true);
    EXPECT_TRUE(helper.Update());
    for (CKrPropertySet & set : sets)
    {
        EXPECT_EQ(X(set).GetInt(), 9);
        EXPECT_TRUE(X(set).IsModified());
        EXPECT_FALSE(X(set).HasAttribute(s_varied));
    }
    EXPECT_TRUE(Main().IsModified());
    EXPECT_TRUE(IsVaried(Main()));     // the mark stays
    EXPECT_FALSE(helper.HasChanged()); // never set
}

TEST_F(CKrPropMultiEditHelperTest, CarriesWhatIsFlaggedOnAnyLevelAndNothingElse)
{
    // A property, two below it, and one below each of these; each may be flagged, by the bits of a number.
    auto const fill = [](CKrPropertySet & set, int value)
    {
        set.DeleteProperties();
        std::vector<CKrProperty *> nodes = {set.CreateProperty(OLESTR("x"), CKrProperty::ePropInt, s_category)};
        for (std::size_t const parent : {0u, 0u, 1u, 2u})
        {
            CString name;
            name.Format(OLESTR("n%d"), static_cast<int>(nodes.size()));
            nodes.push_back(new CKrProperty(name, CString(), CKrProperty::ePropInt, CKrVariant(0), true, true));
            nodes[parent]->AddSubProperty(nodes.back());
        }
        for (CKrProperty * const node : nodes)
            node->SetInt(value);
        return nodes;
    };
    for (bool const byPlace : {false, true})
    {
        for (unsigned int flags = 0; flags < 32; ++flags)
        {
            SCOPED_TRACE(flags);
            std::vector<CKrProperty *> const first = fill(sets[0], 1), second = fill(sets[1], 2);
            Open edit({&sets[0], &sets[1]});
            edit.SetCommonStruct(byPlace);
            std::vector<CKrProperty *> const main = fill(edit.GetMainPropertySet(), 7);
            for (unsigned int index = 0; index < main.size(); ++index)
                main[index]->SetModified((flags >> index & 1) != 0);
            EXPECT_TRUE(edit.Update());
            for (unsigned int index = 0; index < main.size(); ++index)
            {
                bool const isFlagged = main[index]->IsModified();
                EXPECT_EQ(first[index]->GetInt(), isFlagged ? 7 : 1) << index;
                EXPECT_EQ(second[index]->GetInt(), isFlagged ? 7 : 2) << index;
                EXPECT_EQ(first[index]->IsModified(), isFlagged) << index;
                EXPECT_EQ(second[index]->IsModified(), isFlagged) << index;
            }
        }
    }
}

TEST_F(CKrPropMultiEditHelperTest, LeavesTheFlagOfATargetThatIsEqual)
{
    Fill(1, 4, 4);
    X(sets[2]).SetModified(true);
    ASSERT_TRUE(helper.PrepareEdit());
    Main().SetInt(4);
    Main().SetModified(true);
    helper.Update();
    EXPECT_TRUE(X(sets[0]).IsModified());
    EXPECT_FALSE(X(sets[1]).IsModified());
    EXPECT_TRUE(X(sets[2]).IsModified());
}

TEST_F(CKrPropMultiEditHelperTest, CarriesTheValueAsItIsWhateverTheTargetsType)
{
    Fill(1, 1, 1);
    X(sets[1]).SetType(CKrProperty::ePropString);
    ASSERT_TRUE(helper.PrepareEdit());
    Main().SetModified(true);
    helper.Update();
    EXPECT_EQ(X(sets[1]).GetValue().GetType(), CKrVariant::eLong);
    EXPECT_EQ(X(sets[1]).GetType(), CKrProperty::ePropString);
}

TEST_F(CKrPropMultiEditHelperTest, NeverUpdatesTheRoot)
{
    Fill(1, 1, 1);
    ASSERT_TRUE(helper.PrepareEdit());
    CKrProperty & root = helper.GetMainPropertySet().GetRootProperty();
    root.SetValue(CKrVariant(5));
    root.SetModified(true);
    helper.Update();
    EXPECT_FALSE(sets[0].GetRootProperty().GetValue().IsValid());
    EXPECT_FALSE(sets[0].GetRootProperty().IsModified());
}

TEST_F(CKrPropMultiEditHelperTest, IsCopiedDeeplyWithItsListOfSets)
{
    Fill(1, 2, 2);
    ASSERT_TRUE(helper.PrepareEdit());
    helper.SetChanged();
    helper.SetCommonStruct(true);
    helper.SetMainPropertySet(CKrPropertySet(helper.GetMainPropertySet()));
    Open const copy(helper);
    Open assigned;
    assigned = helper;
    Main().SetInt(7);
    for (Open const * const other : {&copy, static_cast<Open const *>(&assigned)})
    {
        EXPECT_EQ(other->GetMainPropertySet().GetProperty(OLESTR("x"), s_category)->GetInt(), 1);
        EXPECT_EQ(Varied(other->GetMainPropertySet()), OLESTR("x"));
        EXPECT_EQ(other->Reference().GetProperty(OLESTR("x"), s_category)->GetInt(), 1);
        EXPECT_TRUE(other->HasChanged()); // a copy takes what the source says
        EXPECT_TRUE(other->HasCommonStruct());
        EXPECT_FALSE(other->IsFromFirst());
    }
    X(assigned.GetMainPropertySet()).SetInt(6);
    X(assigned.GetMainPropertySet()).SetModified(true);
    assigned.Update();
    EXPECT_EQ(X(sets[0]).GetInt(), 6);
    EXPECT_EQ(Main().GetInt(), 7);
}

TEST_F(CKrPropMultiEditHelperTest, IsCopiedWithWhatTheRootOfItsMainSetHas)
{
    Fill(1, 2, 2);
    CKrPropertySet main(sets[0]);
    main.GetRootProperty().SetCtrlType(CKrAssCtrl::ePasswordCtrl);
    main.GetRootProperty().SetAttribute(OLESTR("Scale"), CKrVariant(50));
    helper.SetMainPropertySet(main);
    Open assigned;
    assigned = helper;
    CKrProperty const & root = assigned.GetMainPropertySet().GetRootProperty();
    EXPECT_EQ(root.GetCtrlType(), CKrAssCtrl::ePasswordCtrl);
    EXPECT_EQ(root.GetAttribute(OLESTR("Scale")).GetAsString(), OLESTR("50"));
}

TEST_F(CKrPropMultiEditHelperTest, CarriesFromAnyNodeForASubclass)
{
    Fill(1, 2, 2);
    CKrPropertySet main(sets[0]);
    X(main).SetInt(7);
    EXPECT_TRUE(helper.UpdateProperty(X(main), X(sets[1])));
    EXPECT_EQ(X(sets[1]).GetInt(), 2); // not flagged
    X(main).SetModified(true);
    EXPECT_TRUE(helper.UpdateProperty(X(main), X(sets[1])));
    EXPECT_EQ(X(sets[1]).GetInt(), 7);
    EXPECT_TRUE(helper.UpdateProperty(*main.GetCategoryAt(0), *sets[2].GetCategoryAt(0)));
    EXPECT_EQ(X(sets[2]).GetInt(), 7);
}

TEST_F(CKrPropMultiEditHelperTest, StaysItselfWhenAssignedToItself)
{
    Fill(1, 2, 2);
    ASSERT_TRUE(helper.PrepareEdit());
    Open & same = helper;
    helper = same;
    EXPECT_EQ(Main().GetInt(), 1);
    EXPECT_EQ(Varied(helper.GetMainPropertySet()), OLESTR("x"));
    Main().SetInt(5);
    Main().SetModified(true);
    helper.Update();
    EXPECT_EQ(X(sets[1]).GetInt(), 5);
}

TEST_F(CKrPropMultiEditHelperTest, ThrowsWhatACloneThrowsAsItIs)
{
    Fill(1, 1, 1);
    sets[0].AddProperty(new ThrowingClone, s_category);
    EXPECT_THROW(helper.PrepareEdit(), std::runtime_error); // copying stands outside the guard
    EXPECT_TRUE(helper.GetMainPropertySet().IsEmpty());
}

TEST(CKrSimplePropMultiEditHelper, LeavesTheLoopToTheCaller)
{
    CKrPropertySet first = MakeSet(1);
    CKrPropertySet second = MakeSet(2);
    CKrSimplePropMultiEditHelper edit;
    edit.SetMainPropertySet(first);
    EXPECT_TRUE(edit.Prepare(first));
    EXPECT_FALSE(IsVaried(X(edit.GetMainPropertySet())));
    EXPECT_TRUE(edit.Prepare(second));
    EXPECT_TRUE(IsVaried(X(edit.GetMainPropertySet())));
    EXPECT_TRUE(edit.Prepare(first)); // a mark stays
    EXPECT_TRUE(IsVaried(X(edit.GetMainPropertySet())));

    X(edit.GetMainPropertySet()).SetInt(5);
    X(edit.GetMainPropertySet()).SetModified(true);
    EXPECT_TRUE(edit.Update(second));
    EXPECT_EQ(X(second).GetInt(), 5);
    EXPECT_EQ(X(first).GetInt(), 1); // not asked
    EXPECT_FALSE(edit.HasChanged());
}

TEST(CKrSimplePropMultiEditHelper, DoesNothingToAnEmptySetOrWithAnEmptyMainSet)
{
    CKrPropertySet set = MakeSet(1);
    CKrPropertySet empty;
    CKrSimplePropMultiEditHelper edit;
    EXPECT_TRUE(edit.Prepare(set));
    EXPECT_TRUE(edit.Update(set));
    EXPECT_TRUE(edit.GetMainPropertySet().IsEmpty());
    edit.SetMainPropertySet(set);
    EXPECT_TRUE(edit.Prepare(empty));
    EXPECT_TRUE(edit.Update(empty));
    EXPECT_TRUE(empty.IsEmpty());
}
