#include <krcore/values/krattrlist.h>

#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/memory_failure.h"
#include "tests/support/text.h"

#include <krcore/diagnostics/krexception.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace kr::test;

namespace
{

// What the operation throws: "message|level|locations" of a `CKrException`, or nothing.
template <class Operation>
std::string ThrownBy(Operation operation)
{
    try
    {
        operation();
    }
    catch (CKrException const & exception)
    {
        return Narrow(exception.GetErrorMessage(true).View()) + "|" + std::to_string(exception.GetLevel());
    }
    return {};
}

} // namespace

TEST(CKrAttrData, IsEmptyAtStart)
{
    CKrAttrData const attribute;
    EXPECT_EQ(attribute.GetName(), OLESTR(""));
    EXPECT_EQ(attribute.GetDescription(), OLESTR(""));
    EXPECT_FALSE(attribute.GetValue().IsValid());
    EXPECT_EQ(attribute.GetRuntimeClass(), CObject::GetThisClass()) << "no dynamic class of its own";
}

TEST(CKrAttrData, TakesNameValueAndDescriptionInThatOrder)
{
    CKrAttrData attribute(OLESTR("n"), CKrVariant(5), OLESTR("d"));
    EXPECT_EQ(attribute.GetName(), OLESTR("n"));
    EXPECT_EQ(attribute.GetDescription(), OLESTR("d"));
    EXPECT_EQ(static_cast<int>(attribute.GetValue()), 5);
    attribute.SetValue(CKrVariant(OLESTR("x")));
    EXPECT_EQ(attribute.GetValueAsString(), OLESTR("x"));
    CKrAttrData copy(attribute);
    EXPECT_TRUE(copy == attribute);
    CKrAttrData assigned;
    assigned = attribute;
    EXPECT_EQ(assigned.GetDescription(), OLESTR("d"));
    CKrAttrData const & alias = assigned;
    assigned = alias;
    EXPECT_EQ(assigned.GetName(), OLESTR("n"));
}

TEST(CKrAttrData, ComparesNameAndValueAndNotTheDescription)
{
    CKrAttrData const attribute(OLESTR("n"), CKrVariant(5), OLESTR("d"));
    EXPECT_TRUE(attribute == CKrAttrData(OLESTR("n"), CKrVariant(5), OLESTR("other")));
    EXPECT_FALSE(attribute == CKrAttrData(OLESTR("N"), CKrVariant(5), OLESTR("d")));
    EXPECT_FALSE(attribute == CKrAttrData(OLESTR("n"), CKrVariant(5.0), OLESTR("d")));
}

TEST(CKrAttrData, GivesThePlatformsTextOfItsValue)
{
    EXPECT_EQ(CKrAttrData(OLESTR("n"), CKrVariant(true), CString()).GetValueAsString(), OLESTR("-1"));
    CKrAttrData const list(OLESTR("n"), CKrVariant(std::vector<long>{1}), CString());
    EXPECT_EQ(ThrownResult([&] { list.GetValueAsString(); }), DISP_E_TYPEMISMATCH);
}

TEST(CKrAttrList, HasAStaticRecordOfADynamicClass)
{
    CKrAttrList const list;
    CRuntimeClass * const record = list.GetRuntimeClass();
    EXPECT_EQ(record, &CKrAttrList::classCKrAttrList);
    EXPECT_EQ(record, CKrAttrList::GetThisClass());
    EXPECT_STREQ(record->m_lpszClassName, "CKrAttrList");
    EXPECT_EQ(record->m_nObjectSize, static_cast<int>(sizeof(CKrAttrList)));
    EXPECT_EQ(record->m_wSchema, 0xFFFFu);
    EXPECT_EQ(record->m_pfnCreateObject, nullptr);
    EXPECT_TRUE(list.IsKindOf(CObject::GetThisClass()));
}

TEST(CKrAttrList, ThrowsForAnIndexAtOrPastTheEnd)
{
    CKrAttrList list;
    EXPECT_EQ(ThrownBy([&] { list.At(0); }), "Attributindex ueberschreitet Map-size!\\u000A(0): |1");
    list.AddLong(OLESTR("a"), 1);
    EXPECT_NE(ThrownBy([&] { list.At(1); }), "");
    EXPECT_EQ(ThrownBy([&] { list.At(0); }), "");
}

TEST(CKrAttrList, GivesTheFirstEntryForANegativeIndex)
{
    CKrAttrList list;
    list.AddLong(OLESTR("a"), 1);
    list.AddLong(OLESTR("b"), 2);
    EXPECT_EQ(list.At(-1).GetName(), OLESTR("a"));
    EXPECT_NE(ThrownBy([] { CKrAttrList().At(-1); }), "");
}

TEST(CKrAttrList, ThrowsForAMissingKeyAndStaysAsItWas)
{
    CKrAttrList list;
    std::string const message = "Attribute x nicht enthalten\\u000A(0): |1";
    EXPECT_EQ(ThrownBy([&] { list.GetAttr(OLESTR("x")); }), message);
    EXPECT_EQ(ThrownBy([&] { list.GetValue(OLESTR("x")); }), message);
    EXPECT_EQ(ThrownBy([&] { list.GetDescription(OLESTR("x")); }), message);
    EXPECT_EQ(ThrownBy([&] { list.SetValue(OLESTR("x"), CKrVariant(1)); }), message);
    EXPECT_EQ(list.size(), 0);
}

TEST(CKrAttrList, KeepsTheOrderOfKeysByCodeUnits)
{
    CKrAttrList list;
    for (WCHAR const * key : {OLESTR("b"), OLESTR("a"), OLESTR("B")})
        list.AddLong(key, 1);
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list.At(0).GetName(), OLESTR("B"));
    EXPECT_EQ(list.At(1).GetName(), OLESTR("a"));
    EXPECT_EQ(list.At(2).GetName(), OLESTR("b"));
}

TEST(CKrAttrList, IncludesByKeyAlone)
{
    CKrAttrList list;
    list.SetLong(OLESTR("x"), 5, OLESTR("d"));
    EXPECT_TRUE(list.Includes(OLESTR("x")));
    EXPECT_FALSE(list.Includes(OLESTR("X")));
    EXPECT_TRUE(list.Includes(CKrAttrData(OLESTR("x"), CKrVariant(9), OLESTR("other"))));
    list.ClearKey(OLESTR("missing"));
    EXPECT_EQ(list.size(), 1);
    list.ClearKey(OLESTR("x"));
    EXPECT_FALSE(list.Includes(OLESTR("x")));
}

TEST(CKrAttrList, ReplacesAValueAndKeepsItsDescription)
{
    CKrAttrList list;
    list.SetLong(OLESTR("x"), 5, OLESTR("d"));
    list.SetValue(OLESTR("x"), CKrVariant(OLESTR("new")));
    EXPECT_EQ(list.GetDescription(OLESTR("x")), OLESTR("d"));
    EXPECT_EQ(list.GetString(OLESTR("x"), CString()), OLESTR("new"));
}

TEST(CKrAttrList, OverwritesAnEntryWholly)
{
    CKrAttrList list;
    list.SetLong(OLESTR("x"), 5, OLESTR("d"));
    list.AddLong(OLESTR("x"), 1);
    EXPECT_EQ(list.GetDescription(OLESTR("x")), OLESTR(""));
    list.AddAttr(CKrAttrData(OLESTR("x"), CKrVariant(2), OLESTR("e")));
    EXPECT_EQ(list.GetDescription(OLESTR("x")), OLESTR("e"));
    EXPECT_EQ(list.size(), 1);
}

TEST(CKrAttrList, KeepsTheNameInsideAnEntryThatDiffersFromItsKey)
{
    CKrAttrList list;
    list.SetAttr(OLESTR("k"), CKrAttrData(OLESTR("n"), CKrVariant(1), OLESTR("d")));
    EXPECT_TRUE(list.Includes(OLESTR("k")));
    EXPECT_FALSE(list.Includes(OLESTR("n")));
    EXPECT_EQ(list.At(0).GetName(), OLESTR("n"));
}

TEST(CKrAttrList, AppendsAnotherListOverItsOwnEntries)
{
    CKrAttrList list;
    list.SetLong(OLESTR("a"), 1, OLESTR("own"));
    list.SetLong(OLESTR("b"), 2, OLESTR("own"));
    CKrAttrList other;
    other.SetLong(OLESTR("b"), 20, OLESTR("other"));
    other.SetLong(OLESTR("c"), 30, OLESTR("other"));
    list.AppendAttrList(other);
    EXPECT_EQ(list.size(), 3);
    EXPECT_EQ(list.GetLong(OLESTR("a"), 0), 1);
    EXPECT_EQ(list.GetLong(OLESTR("b"), 0), 20);
    EXPECT_EQ(list.GetDescription(OLESTR("b")), OLESTR("other"));
    list.AppendAttrList(list);
    EXPECT_EQ(list.size(), 3);
    CKrAttrList renamed;
    renamed.SetAttr(OLESTR("k"), CKrAttrData(OLESTR("n"), CKrVariant(4), CString()));
    list.AppendAttrList(renamed);
    EXPECT_TRUE(list.Includes(OLESTR("n"))) << "under the name inside";
    EXPECT_FALSE(list.Includes(OLESTR("k")));
}

TEST(CKrAttrList, CopiesDeeply)
{
    CKrAttrList list;
    list.AddLong(OLESTR("a"), 1);
    CKrAttrList copy(list);
    copy.AddLong(OLESTR("a"), 2);
    EXPECT_EQ(list.GetLong(OLESTR("a"), 0), 1);
    CKrAttrList assigned;
    assigned.AddLong(OLESTR("z"), 1);
    assigned = list;
    EXPECT_FALSE(assigned.Includes(OLESTR("z")));
    CKrAttrList const & alias = assigned;
    assigned = alias;
    EXPECT_EQ(assigned.size(), 1);
    EXPECT_EQ(assigned.GetLong(OLESTR("a"), 0), 1);
    assigned.clear();
    EXPECT_EQ(assigned.size(), 0);
}

TEST(CKrAttrList, GivesTheDefaultForAMissingKeyAndAddsNothing)
{
    CKrAttrList const list;
    int pointed = 0;
    EXPECT_TRUE(list.GetBool(OLESTR("x"), true));
    EXPECT_EQ(list.GetDouble(OLESTR("x"), 1.5), 1.5);
    EXPECT_EQ(list.GetLong(OLESTR("x"), 5), 5);
    EXPECT_EQ(list.GetString(OLESTR("x"), OLESTR("d")), OLESTR("d"));
    EXPECT_EQ(list.GetPtr(OLESTR("x"), &pointed), &pointed);
    EXPECT_EQ(list.size(), 0);
}

TEST(CKrAttrList, ReadsEntriesByThePlatformsRules)
{
    CKrAttrList list;
    list.SetBool(OLESTR("bool"), true, OLESTR("d"));
    list.SetDouble(OLESTR("double"), 2.5, OLESTR("d"));
    list.SetLong(OLESTR("long"), 7, OLESTR("d"));
    list.SetString(OLESTR("text"), OLESTR("17"), OLESTR("d"));
    EXPECT_TRUE(list.GetBool(OLESTR("bool"), false));
    EXPECT_TRUE(list.GetBool(OLESTR("long"), false)); // every number but 0
    EXPECT_EQ(list.GetLong(OLESTR("bool"), 0), -1);   // the platform's true
    EXPECT_EQ(list.GetString(OLESTR("bool"), CString()), OLESTR("-1"));
    EXPECT_EQ(list.GetDouble(OLESTR("double"), 0), 2.5);
    EXPECT_EQ(list.GetLong(OLESTR("double"), 0), 2);
    EXPECT_EQ(list.GetLong(OLESTR("text"), 0), 17);
    EXPECT_EQ(list.GetDouble(OLESTR("text"), 0), 17.0);
    EXPECT_TRUE(list.GetAttr(OLESTR("text")).GetValue().IsString()); // reading changes nothing
    for (WCHAR const * key : {OLESTR("bool"), OLESTR("double"), OLESTR("long"), OLESTR("text")})
        EXPECT_EQ(list.GetDescription(key), OLESTR("d"));
}

TEST(CKrAttrList, TakesOnlyAllBitsSetForTrue)
{
    CKrVariant odd(true);
    odd.boolVal = 1;
    CKrAttrList list;
    list.AddAttr(CKrAttrData(OLESTR("x"), odd, CString()));
    EXPECT_FALSE(list.GetBool(OLESTR("x"), true));
}

TEST(CKrAttrList, RaisesThePlatformsFailureForAValueOfTheWrongKind)
{
    CKrAttrList list;
    list.AddString(OLESTR("x"), OLESTR("abc"));
    EXPECT_EQ(ThrownResult([&] { list.GetLong(OLESTR("x"), 5); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ThrownResult([&] { list.GetDouble(OLESTR("x"), 5); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(ThrownResult([&] { list.GetBool(OLESTR("x"), true); }), DISP_E_TYPEMISMATCH);
    list.AddAttr(CKrAttrData(OLESTR("y"), CKrVariant(std::vector<long>{1}), CString()));
    EXPECT_EQ(ThrownResult([&] { list.GetString(OLESTR("y"), CString()); }), DISP_E_TYPEMISMATCH);
}

TEST(CKrAttrList, RaisesThePlatformsFailureForAnyPointerThatIsThere)
{
    int pointed = 0;
    CKrAttrList list;
    list.AddPtr(OLESTR("x"), &pointed);
    EXPECT_EQ(ThrownResult([&] { list.GetPtr(OLESTR("x"), nullptr); }), DISP_E_BADVARTYPE);
    EXPECT_EQ(ThrownResult([&] { list.GetPtrAdd(OLESTR("y"), &pointed, OLESTR("d")); }), DISP_E_BADVARTYPE);
    EXPECT_TRUE(list.Includes(OLESTR("y"))); // the default was stored first
    EXPECT_EQ(list.GetDescription(OLESTR("y")), OLESTR("d"));
    EXPECT_EQ(static_cast<void *>(list.GetValue(OLESTR("x"))), &pointed);
    list.SetPtr(OLESTR("x"), nullptr, OLESTR("e"));
    EXPECT_EQ(list.GetDescription(OLESTR("x")), OLESTR("e"));
}

TEST(CKrAttrList, WritesTheDefaultWhenItIsFirstAskedFor)
{
    CKrAttrList list;
    EXPECT_EQ(list.GetLongAdd(OLESTR("x"), 5, OLESTR("d")), 5);
    EXPECT_EQ(list.size(), 1);
    EXPECT_EQ(list.GetDescription(OLESTR("x")), OLESTR("d"));
    EXPECT_EQ(list.GetLongAdd(OLESTR("x"), 9, OLESTR("e")), 5);
    EXPECT_EQ(list.GetDescription(OLESTR("x")), OLESTR("d"));
    EXPECT_TRUE(list.GetBoolAdd(OLESTR("b"), true, OLESTR("d")));
    EXPECT_EQ(list.GetDoubleAdd(OLESTR("f"), 1.5, OLESTR("d")), 1.5);
    EXPECT_EQ(list.GetStringAdd(OLESTR("s"), OLESTR("t"), OLESTR("d")), OLESTR("t"));
    EXPECT_TRUE(list.GetBoolAdd(OLESTR("b"), false, OLESTR("e"))) << "what is there stays";
    EXPECT_EQ(list.GetDoubleAdd(OLESTR("f"), 2.5, OLESTR("e")), 1.5);
    EXPECT_EQ(list.GetStringAdd(OLESTR("s"), OLESTR("u"), OLESTR("e")), OLESTR("t"));
    EXPECT_EQ(list.size(), 4);
    EXPECT_TRUE(list.GetValue(OLESTR("b")).IsBool());
    EXPECT_TRUE(list.GetValue(OLESTR("f")).IsDouble());
    EXPECT_TRUE(list.GetValue(OLESTR("s")).IsString());
}

TEST(CKrAttrList, AddsWithoutADescription)
{
    CKrAttrList list;
    list.AddBool(OLESTR("b"), true);
    list.AddDouble(OLESTR("f"), 1.5);
    list.AddLong(OLESTR("l"), 7);
    list.AddString(OLESTR("s"), OLESTR("t"));
    list.AddPtr(OLESTR("p"), nullptr);
    for (int index = 0; index < list.size(); ++index)
        EXPECT_EQ(list.At(index).GetDescription(), OLESTR(""));
}

TEST(CKrAttrList, LeaksNothingAndStaysAsItWasWhereMemoryRunsOut)
{
    CString const key(OLESTR("x"));
    CString const text(OLESTR("text"));
    auto const isMemoryFailure = [] { ExpectWantOfMemory(); };
    CKrAttrList filled;
    filled.SetString(key, text, text);
    EXPECT_GE(FailEveryAllocation([&] { CKrAttrList copy(filled); }, isMemoryFailure), 2u);
    EXPECT_GE(FailEveryAllocation([&] { CKrAttrData const made(key, text, text); }, isMemoryFailure), 1u);
    CKrAttrList assigned;
    assigned.AddLong(OLESTR("own"), 7);
    auto const isOld = [&assigned]
    {
        ASSERT_EQ(assigned.size(), 1);
        EXPECT_EQ(assigned.GetLong(OLESTR("own"), 0), 7);
    };
    std::size_t const failures = FailUntilItPasses([&] { assigned = filled; }, isOld);
    EXPECT_EQ(failures, 2u) << "the entry and its value";
    EXPECT_EQ(assigned.GetString(key, CString()), text);
    EXPECT_GE(FailEveryAllocation(
                  [&]
                  {
                      CKrAttrList list;
                      try
                      {
                          list.SetString(key, text, text);
                      }
                      catch (...)
                      {
                          EXPECT_EQ(list.size(), 0);
                          throw;
                      }
                  },
                  isMemoryFailure),
              2u);
}
