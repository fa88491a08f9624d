#include <krcore/foundation/krwrappedobj.h>

#include "tests/krplatform/automation/counted_object.h"

#include <krplatform/automation/com_error.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <type_traits>

using kr::test::CountedObject;

namespace
{

/// An object with two dispatch pointers: its own and that of a part, which names the whole as its identity.
class Part final : public IDispatch
{
public:
    explicit Part(CountedObject & whole) : m_whole(whole) {}
    HRESULT QueryInterface(REFIID iid, void ** object) override { return m_whole.QueryInterface(iid, object); }
    ULONG AddRef() override { return m_whole.AddRef(); }
    ULONG Release() override { return m_whole.Release(); }

private:
    CountedObject & m_whole;
};

class Derived : public CKrWrappedObj
{
public:
    explicit Derived(int id) : CKrWrappedObj(id) {}
};

CKrWrappedObj Disp(IDispatch * object) { return CKrWrappedObj::ObjDisp(object); }
CKrWrappedObj Name(WCHAR const * name) { return CKrWrappedObj::ObjName(name); }

} // namespace

static_assert(std::has_virtual_destructor_v<CKrWrappedObj>);
static_assert(!std::is_constructible_v<CKrWrappedObj, int>);
static_assert(!std::is_constructible_v<CKrWrappedObj, void *>);
static_assert(!std::is_constructible_v<CKrWrappedObj, CString>);
static_assert(!std::is_constructible_v<CKrWrappedObj, IDispatchPtr>);
static_assert(std::has_virtual_destructor_v<CKrWrappedObjList>);
static_assert(std::is_base_of_v<std::vector<CKrWrappedObj>, CKrWrappedObjList>);

TEST(CKrWrappedObj, HoldsTheFieldOfItsTypeAndTheDefaultsOfTheOthers)
{
    CountedObject object;
    int target = 0;
    struct Row
    {
        CKrWrappedObj handle;
        CKrWrappedObj::EObjType type;
        int number;
        bool isEmpty;
        IDispatch * disp;
        void * pointer;
        int id;
        WCHAR const * name;
    };
    // clang-format off
    Row const rows[] = {
        // handle                             type                      number empty  disp     pointer  id  name
        { CKrWrappedObj(),                    CKrWrappedObj::eObjEmpty, 0,     true,  nullptr, nullptr, -1, OLESTR("")  },
        { Disp(&object),                      CKrWrappedObj::eObjDisp,  1,     false, &object, nullptr, -1, OLESTR("")  },
        { Disp(nullptr),                      CKrWrappedObj::eObjDisp,  1,     false, nullptr, nullptr, -1, OLESTR("")  },
        { CKrWrappedObj::ObjPtr(&target),     CKrWrappedObj::eObjPtr,   2,     false, nullptr, &target, -1, OLESTR("")  },
        { CKrWrappedObj::ObjPtr(nullptr),     CKrWrappedObj::eObjPtr,   2,     false, nullptr, nullptr, -1, OLESTR("")  },
        { CKrWrappedObj::ObjId(3),            CKrWrappedObj::eObjId,    3,     false, nullptr, nullptr, 3,  OLESTR("")  },
        { Name(OLESTR("x")),                  CKrWrappedObj::eObjName,  4,     false, nullptr, nullptr, -1, OLESTR("x") },
        { Name(OLESTR("")),                   CKrWrappedObj::eObjName,  4,     false, nullptr, nullptr, -1, OLESTR("")  },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(&row - rows);
        EXPECT_EQ(row.handle.GetType(), row.type);
        EXPECT_EQ(static_cast<int>(row.type), row.number);
        EXPECT_EQ(row.handle.IsEmpty(), row.isEmpty);
        EXPECT_EQ(row.handle.GetObjDisp().GetInterfacePtr(), row.disp);
        EXPECT_EQ(row.handle.GetObjPtr(), row.pointer);
        EXPECT_EQ(row.handle.GetObjId(), row.id);
        EXPECT_EQ(row.handle.GetObjName(), row.name);
    }
}

TEST(CKrWrappedObj, HoldsOneReferenceOnItsAutomationObject)
{
    CountedObject object;
    {
        CKrWrappedObj const handle = Disp(&object);
        EXPECT_EQ(object.References(), 1u);
        CKrWrappedObj const copy(handle);
        EXPECT_EQ(object.References(), 2u);
        CKrWrappedObj assigned;
        assigned = handle;
        EXPECT_EQ(object.References(), 3u);
        CKrWrappedObj & same = assigned;
        assigned = same;
        EXPECT_EQ(object.References(), 3u);
        EXPECT_EQ(assigned.GetObjDisp().GetInterfacePtr(), &object);
        assigned = CKrWrappedObj::ObjId(1);
        EXPECT_EQ(object.References(), 2u);
        EXPECT_EQ(assigned.GetObjDisp().GetInterfacePtr(), nullptr);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(CKrWrappedObj, CopiesTakeAllFields)
{
    Derived const derived(7);
    CKrWrappedObj const copy(derived);
    EXPECT_EQ(copy.GetType(), CKrWrappedObj::eObjId);
    EXPECT_EQ(copy.GetObjId(), 7);
    CKrWrappedObj assigned = Name(OLESTR("x"));
    EXPECT_EQ(&(assigned = copy), &assigned);
    EXPECT_EQ(assigned.GetType(), CKrWrappedObj::eObjId);
    EXPECT_EQ(assigned.GetObjId(), 7);
    EXPECT_TRUE(assigned.GetObjName().IsEmpty());
}

TEST(CKrWrappedObj, BothComparisonsGoByTheTypeOfTheLeftSideAlone)
{
    std::array<int, 2> places{};
    CKrWrappedObj const empty;
    CKrWrappedObj const none = CKrWrappedObj::ObjPtr(nullptr);
    CKrWrappedObj const first = CKrWrappedObj::ObjPtr(&places[0]);
    CKrWrappedObj const second = CKrWrappedObj::ObjPtr(&places[1]);
    CKrWrappedObj const three = CKrWrappedObj::ObjId(3);
    CKrWrappedObj const minusOne = CKrWrappedObj::ObjId(-1);
    CKrWrappedObj const minusTwo = CKrWrappedObj::ObjId(-2);
    struct Row
    {
        char const * what;
        CKrWrappedObj const & left;
        CKrWrappedObj const & right;
        bool isEqual;
        bool isLess;
    };
    CKrWrappedObj const a = Name(OLESTR("a"));
    CKrWrappedObj const b = Name(OLESTR("b"));
    CKrWrappedObj const upperA = Name(OLESTR("A"));
    CKrWrappedObj const upperB = Name(OLESTR("B"));
    CKrWrappedObj const noName = Name(OLESTR(""));
    CKrWrappedObj const otherThree = CKrWrappedObj::ObjId(3);
    CKrWrappedObj const noDisp = Disp(nullptr);
    // clang-format off
    Row const rows[] = {
        // what                                left       right      equal  less
        { "empty equals everything",           empty,     three,     true,  false },
        { "and nothing but -1 equals it",      three,     empty,     false, false },
        { "-1 does",                           minusOne,  empty,     true,  false },
        { "below -1",                          minusTwo,  empty,     false, true  },
        { "empty and empty",                   empty,     empty,     true,  false },
        { "numbers",                           three,     otherThree,true,  false },
        { "numbers have a sign",               minusOne,  three,     false, true  },
        { "a name has the number -1",          three,     b,         false, false },
        { "a number has no name",              b,         three,     false, false },
        { "the empty name",                    noName,    three,     true,  false },
        { "names in order",                    a,         b,         false, true  },
        { "names out of order",                b,         a,         false, false },
        { "case counts",                       a,         upperA,    false, false },
        { "upper case comes first",            upperB,    a,         false, true  },
        { "pointers in order",                 first,     second,    false, true  },
        { "pointers out of order",             second,    first,     false, false },
        { "null and a name's pointer",         none,      a,         true,  false },
        { "null below a pointer",              none,      first,     false, true  },
        { "no object and a number's object",   noDisp,    three,     true,  false },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.left == row.right, row.isEqual);
        EXPECT_EQ(row.left != row.right, !row.isEqual);
        EXPECT_EQ(row.left < row.right, row.isLess);
    }
}

TEST(CKrWrappedObj, AutomationObjectsAreEqualByPointerAndSortedByIdentity)
{
    std::array<CountedObject, 2> objects;
    Part partOfSecond(objects[1]);
    {
        CKrWrappedObj const null = Disp(nullptr);
        CKrWrappedObj const first = Disp(&objects[0]);
        CKrWrappedObj const second = Disp(&objects[1]);
        CKrWrappedObj const part = Disp(&partOfSecond);
        EXPECT_TRUE(first == Disp(&objects[0]));
        EXPECT_FALSE(first == second);
        EXPECT_FALSE(second == part);
        EXPECT_FALSE(second < part);
        EXPECT_FALSE(part < second);
        EXPECT_TRUE(first < second);
        EXPECT_TRUE(first < part); // also where the part stands in front of all
        EXPECT_FALSE(second < first);
        EXPECT_FALSE(part < first);
        EXPECT_TRUE(null < first);
        EXPECT_FALSE(first < null);
        EXPECT_FALSE(null < Disp(nullptr));
        EXPECT_FALSE(first < CKrWrappedObj::ObjId(3)); // which has no object
    }
    EXPECT_EQ(objects[0].References(), 0u);
    EXPECT_EQ(objects[1].References(), 0u);
}

TEST(CKrWrappedObj, AFailingQuestionForTheIdentityIsRaised)
{
    CountedObject object;
    CountedObject failing;
    failing.queryResult = E_FAIL;
    CKrWrappedObj const handle = Disp(&object);
    CKrWrappedObj const failingHandle = Disp(&failing);
    for (auto const & [left, right] : {std::pair(&handle, &failingHandle), std::pair(&failingHandle, &handle)})
    {
        try
        {
            static_cast<void>(*left < *right);
            FAIL() << "nothing was raised";
        }
        catch (_com_error const & error)
        {
            EXPECT_EQ(error.Error(), E_FAIL);
        }
    }
    EXPECT_FALSE(failingHandle < failingHandle); // nobody is asked
    EXPECT_FALSE(handle == failingHandle);
    EXPECT_EQ(object.References(), 1u);
}

TEST(CKrWrappedObjList, IsAVectorOfHandles)
{
    CountedObject object;
    CKrWrappedObjList list;
    list.DeleteAll();
    EXPECT_TRUE(list.empty());
    list.push_back(Name(OLESTR("b")));
    list.push_back(Name(OLESTR("a")));
    std::sort(list.begin(), list.end());
    EXPECT_EQ(list[0].GetObjName(), OLESTR("a"));
    list.push_back(Disp(&object));

    CKrWrappedObjList const copy(list);
    CKrWrappedObjList assigned;
    EXPECT_EQ(&(assigned = copy), &assigned);
    ASSERT_EQ(assigned.size(), 3u);
    EXPECT_EQ(assigned[1].GetObjName(), OLESTR("b"));
    EXPECT_EQ(object.References(), 3u);

    std::size_t const capacity = list.capacity();
    list.DeleteAll();
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.capacity(), capacity);
    EXPECT_EQ(object.References(), 2u);
}
