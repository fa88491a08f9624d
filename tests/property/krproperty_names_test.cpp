// Searching by name among many children, where the node keeps an index of their names.
#include <krcore/property/krproperty.h>

#include <krcore/property/krnameindex.h>

#include "tests/property/counted_property.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/memory_failure.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <random>
#include <unordered_map>

using kr::test::AddCounted;
using kr::test::CountedProperty;
using kr::test::ExpectLinked;
using kr::test::FailNthAllocation;
using kr::test::LiveAllocations;

namespace
{

CString Name(unsigned int number)
{
    CString name;
    name.Format(OLESTR("n%u"), number);
    return name;
}

void AddNumbered(CKrProperty & node, unsigned int count)
{
    for (unsigned int number = 0; number < count; ++number)
        AddCounted(node, Name(number));
}

/// The obvious search.
int IndexOf(CKrProperty const & node, CString const & name)
{
    for (unsigned int index = 0; index < node.GetSubPropertyCount(); ++index)
    {
        if (node.GetSubPropertyAt(index)->GetName() == name)
            return static_cast<int>(index);
    }
    return -1;
}

/// Asks for a name, wherever it is expected, and compares the answers with the obvious one.
void ExpectFound(CKrProperty const & node, CString const & name)
{
    int const index = IndexOf(node, name);
    CKrProperty * const found = node.GetSubPropertyAt(static_cast<unsigned int>(index));
    ASSERT_EQ(node.FindSubPropertyIndex(name), index);
    ASSERT_EQ(node.GetSubProperty(name), found);
    for (unsigned int expected = 0; expected <= node.GetSubPropertyCount(); ++expected)
        ASSERT_EQ(node.GetSubProperty(name, expected), found) << "expected at " << expected;
}

/// The same for many names, often enough that a wide node makes its index.
void ExpectFound(CKrProperty const & node, unsigned int names)
{
    for (int round = 0; round < 10; ++round)
    {
        for (unsigned int number = 0; number <= names; ++number)
        {
            SCOPED_TRACE(number);
            ExpectFound(node, Name(number));
        }
    }
}

void SearchLast(CKrProperty const & node, CString const & name, int times)
{
    for (int time = 0; time < times; ++time)
        EXPECT_EQ(node.FindSubPropertyIndex(name), static_cast<int>(node.GetSubPropertyCount()) - 1);
}

} // namespace

TEST(NameIndex, FindsTheFirstOfEqualNamesAndRegardsCase)
{
    kr::detail::NameIndex index;
    EXPECT_TRUE(index.TryAppend(OLESTR("a"), 0));
    EXPECT_TRUE(index.TryAppend(OLESTR("b"), 1));
    EXPECT_TRUE(index.TryAppend(OLESTR("a"), 2));
    EXPECT_TRUE(index.TryAppend(CString(), 3));
    EXPECT_EQ(index.Find(OLESTR("a")), 0);
    EXPECT_EQ(index.Find(OLESTR("b")), 1);
    EXPECT_EQ(index.Find(CString()), 3);
    EXPECT_EQ(index.Find(OLESTR("A")), -1);
}

TEST(NameIndex, KnowsWhetherANameStandsTwice)
{
    kr::detail::NameIndex index;
    EXPECT_TRUE(index.AreDistinct());
    index.TryAppend(OLESTR("a"), 0);
    index.TryAppend(OLESTR("A"), 1);
    EXPECT_TRUE(index.AreDistinct());
    index.TryAppend(OLESTR("a"), 2);
    EXPECT_FALSE(index.AreDistinct());
    index.TryAppend(OLESTR("b"), 3);
    EXPECT_FALSE(index.AreDistinct());
}

TEST(NameIndex, FindsAllOfManyNamesAndNoOthers)
{
    kr::detail::NameIndex index;
    EXPECT_EQ(index.Find(Name(0)), -1);
    for (int number = 0; number < 10000; ++number)
        ASSERT_TRUE(index.TryAppend(Name(static_cast<unsigned int>(number)), number));
    for (int number = 0; number < 10000; ++number)
        ASSERT_EQ(index.Find(Name(static_cast<unsigned int>(number))), number);
    EXPECT_EQ(index.Find(Name(10000)), -1);
    EXPECT_TRUE(index.AreDistinct());
}

TEST(NameIndex, TellsNamesApartWhoseHashesAreTheSame)
{
    std::unordered_map<std::uint32_t, unsigned int> numbers; // by as much of a hash as the index keeps
    unsigned int first = 0, second = 0;
    for (unsigned int number = 0; second == 0 && number < 1000000; ++number)
    {
        auto const hash = static_cast<std::uint32_t>(std::hash<CString>()(Name(number)));
        if (auto const [place, isNew] = numbers.try_emplace(hash, number); !isNew)
        {
            first = place->second;
            second = number;
        }
    }
    ASSERT_NE(second, 0u);
    kr::detail::NameIndex index;
    EXPECT_TRUE(index.TryAppend(Name(first), 0));
    EXPECT_EQ(index.Find(Name(second)), -1);
    EXPECT_TRUE(index.TryAppend(Name(second), 1));
    EXPECT_TRUE(index.AreDistinct());
    EXPECT_EQ(index.Find(Name(first)), 0);
    EXPECT_EQ(index.Find(Name(second)), 1);
}

TEST(NameIndex, SaysWhenMemoryRunsOutAndKeepsWhatItHas)
{
    kr::detail::NameIndex index;
    CString const name = OLESTR("a");
    {
        FailNthAllocation const fail(1);
        EXPECT_FALSE(index.TryAppend(name, 0));
        EXPECT_TRUE(fail.HasFailed());
    }
    EXPECT_EQ(index.Find(name), -1);
    EXPECT_TRUE(index.TryAppend(name, 0));
    bool fits = true;
    for (unsigned int number = 0; fits && number < 10000; ++number)
    {
        CString const next = Name(number);
        FailNthAllocation const fail(1);
        fits = index.TryAppend(next, static_cast<int>(number) + 1);
    }
    EXPECT_FALSE(fits);
    EXPECT_EQ(index.Find(name), 0);
    EXPECT_EQ(index.Find(Name(0)), 1);
}

TEST(NameIndex, IsWorthMakingForManyChildrenThatAreSearchedOften)
{
    EXPECT_FALSE(kr::detail::NameIndex::IsWorthMaking(31, 1000));
    EXPECT_TRUE(kr::detail::NameIndex::IsWorthMaking(32, 128));
    EXPECT_FALSE(kr::detail::NameIndex::IsWorthMaking(32, 127));
    EXPECT_FALSE(kr::detail::NameIndex::IsWorthMaking(1000, 3999));
}

TEST(CKrPropertyNames, AreFoundWhereTheyAreExpectedAndElsewhere)
{
    for (unsigned int const count : {3u, 100u})
    {
        CKrProperty node;
        AddNumbered(node, count);
        for (int round = 0; round < 10; ++round)
        {
            for (unsigned int index = 0; index < count; ++index)
            {
                CString const name = Name(index);
                CKrProperty * const expected = node.GetSubPropertyAt(index);
                ASSERT_EQ(node.GetSubProperty(name, index), expected);
                ASSERT_EQ(node.GetSubProperty(name, index + 1), expected);
                ASSERT_EQ(node.GetSubProperty(name, count), expected);
                ASSERT_EQ(node.GetSubProperty(name, 4000000000u), expected);
            }
            ASSERT_EQ(node.GetSubProperty(Name(count), 0), nullptr);
        }
    }
}

TEST(CKrPropertyNames, StandForTheFirstOfEqualOnesAlsoWhereAnotherIsExpected)
{
    for (unsigned int const count : {8u, 100u})
    {
        CKrProperty node;
        AddNumbered(node, count);
        node.AddSubProperty(new CKrProperty(Name(7), CString(), true, true));
        for (int round = 0; round < 1000; ++round)
            ASSERT_EQ(node.GetSubProperty(Name(7), count), node.GetSubPropertyAt(7));
        delete node.RemoveSubProperty(Name(7));
        for (int round = 0; round < 1000; ++round)
            ASSERT_EQ(node.GetSubProperty(Name(7), count - 1), node.GetSubPropertyAt(count - 1));
    }
}

TEST(CKrPropertyNames, OfAFewAreFoundInAnyOrderOfQuestions)
{
    // Of four children, of which two have one name, by all orders of six questions.
    CKrProperty node;
    for (unsigned int const number : {0u, 1u, 1u, 2u})
        AddCounted(node, Name(number));
    for (unsigned int questions = 0; questions < 4096; ++questions)
    {
        SCOPED_TRACE(questions);
        for (unsigned int shift = 0; shift < 12; shift += 2)
        {
            CString const name = Name(questions >> shift & 3);
            ASSERT_EQ(node.FindSubPropertyIndex(name), IndexOf(node, name));
            ASSERT_EQ(node.GetSubProperty(Name(1), 2), node.GetSubPropertyAt(1));
        }
        node.ShiftSubProperty(0, 0); // what was learnt is forgotten
    }
}

TEST(CKrPropertyNames, AreIndexedOnceAWideNodeIsSearchedOften)
{
    CKrProperty narrow, wide;
    AddNumbered(narrow, 31);
    AddNumbered(wide, 32);
    CString const lastOfNarrow = Name(30), lastOfWide = Name(31);
    std::size_t const before = LiveAllocations();
    SearchLast(narrow, lastOfNarrow, 100);
    EXPECT_EQ(LiveAllocations(), before);
    SearchLast(wide, lastOfWide, 2);
    EXPECT_EQ(LiveAllocations(), before);
    SearchLast(wide, lastOfWide, 10);
    EXPECT_GT(LiveAllocations(), before);
}

TEST(CKrPropertyNames, AreNotIndexedWhileTheChildrenChangeBetweenSearches)
{
    CKrProperty node;
    AddNumbered(node, 100);
    CString const last = Name(99);
    std::size_t const before = LiveAllocations();
    for (int time = 0; time < 20; ++time)
    {
        SearchLast(node, last, 2);
        std::unique_ptr<CKrProperty> child(node.RemoveSubProperty(last));
        EXPECT_EQ(LiveAllocations(), before);
        node.AddSubProperty(child.release());
    }
}

TEST(CKrPropertyNames, AreForgottenWithEachChange)
{
    // clang-format off
    struct Row { char const * what; void (*change)(CKrProperty &); };
    Row const rows[] = {
        { "rename",      [](CKrProperty & node) { node.GetSubPropertyAt(7)->SetName(node.GetSubPropertyAt(8)->GetName()); } },
        { "copy to",     [](CKrProperty & node) { node.GetSubPropertyAt(7)->Copy(*node.GetSubPropertyAt(9)); }              },
        { "deep copy to", [](CKrProperty & node) { node.GetSubPropertyAt(7)->DeepCopy(*node.GetSubPropertyAt(9)); }         },
        { "assign to",   [](CKrProperty & node) { *node.GetSubPropertyAt(7) = *node.GetSubPropertyAt(9); }                  },
        { "shift",       [](CKrProperty & node) { node.ShiftSubProperty(3, 20); }                                           },
        { "sort",        [](CKrProperty & node) { node.SortByDescription(false); }                                          },
        { "remove",      [](CKrProperty & node) { delete node.RemoveSubProperty(OLESTR("n5")); }                            },
        { "remove last", [](CKrProperty & node) { delete node.RemoveSubProperty(OLESTR("n39")); }                           },
        { "delete",      [](CKrProperty & node) { node.DeleteSubProperty(OLESTR("n0")); }                                   },
        { "delete all",  [](CKrProperty & node) { node.DeleteSubProperties(); }                                             },
        { "delete all and add", [](CKrProperty & node) { node.DeleteSubProperties(); AddNumbered(node, 33); }               },
        { "insert",      [](CKrProperty & node) { node.InsertSubProperty(4, new CountedProperty(OLESTR("n20"))); }          },
        { "append",      [](CKrProperty & node) { AddCounted(node, OLESTR("n40")); }                                        },
        { "append a second of a name", [](CKrProperty & node) { AddCounted(node, OLESTR("n20")); }                          },
        { "deep copy",   [](CKrProperty & node) { node.DeepCopy(CKrProperty(*node.GetSubPropertyAt(0))); }                  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        for (unsigned int const count : {12u, 40u}) // without an index, and with one
        {
            SCOPED_TRACE(row.what);
            CKrProperty node;
            AddNumbered(node, count);
            ExpectFound(node, 41);
            row.change(node);
            ExpectFound(node, 41);
            ExpectLinked(node);
        }
    }
    EXPECT_EQ(CountedProperty::Living(), 0);
}

TEST(CKrPropertyNames, AreFoundWhenNoMemoryIsLeft)
{
    CKrProperty node;
    AddNumbered(node, 64); // as many as the first index has room for
    CString const last = Name(63), added = Name(64);
    for (std::size_t n = 1; n < 60; ++n)
    {
        FailNthAllocation const fail(n);
        for (int time = 0; time < 20; ++time)
            ASSERT_EQ(node.FindSubPropertyIndex(last), 63);
        node.GetSubPropertyAt(0)->SetName(node.GetSubPropertyAt(0)->GetName()); // so that the index is made anew
    }
    // A child that the index has no room for is found as well.
    SearchLast(node, last, 20);
    auto child = std::make_unique<CountedProperty>(added);
    node.InsertSubProperty(64, new CountedProperty(OLESTR("room")));
    delete node.RemoveSubProperty(OLESTR("room"));
    SearchLast(node, last, 20);
    {
        FailNthAllocation const fail(1);
        node.AddSubProperty(child.release()); // the list has room
        EXPECT_TRUE(fail.HasFailed());
    }
    EXPECT_EQ(node.FindSubPropertyIndex(added), 64);
    ExpectFound(node, 65);
}

TEST(CKrPropertyNames, AreFoundAsByTheObviousSearchThroughAnyChanges)
{
    std::mt19937 random(20210315);
    auto const below = [&random](unsigned int limit) { return static_cast<unsigned int>(random() % limit); };
    constexpr unsigned int names = 60;
    for (unsigned int const width : {6u, 36u})
    {
        CKrProperty node;
        AddNumbered(node, width);
        for (int step = 0; step < 600; ++step)
        {
            SCOPED_TRACE(step);
            unsigned int const count = node.GetSubPropertyCount();
            CString const name = Name(below(names));
            switch (below(6))
            {
            case 0:
                AddCounted(node, name);
                break;
            case 1:
                node.InsertSubProperty(below(count + 1), new CountedProperty(name));
                break;
            case 2:
                if (count > width - 6) // stays around that width; around 32 the index begins
                    node.DeleteSubProperty(name);
                break;
            case 3:
                if (CKrProperty * const child = node.GetSubPropertyAt(below(count + 1)))
                    child->SetName(name);
                break;
            case 4:
                node.ShiftSubProperty(below(count + 1), static_cast<int>(below(9)) - 4);
                break;
            default:
                if (CKrProperty const * const last = node.GetSubPropertyAt(count - 1))
                    node.DeleteSubProperty(last->GetName());
                break;
            }
            for (unsigned int number = 0; number < names; ++number)
                ASSERT_NO_FATAL_FAILURE(ExpectFound(node, Name(number)));
        }
        ExpectLinked(node);
    }
}
