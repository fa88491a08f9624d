#include <krplatform/automation/com_ptr.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/thrown_result.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

using namespace kr::test;

static_assert(sizeof(IDispatchPtr) == sizeof(IDispatch *));
static_assert(std::is_nothrow_move_constructible_v<IDispatchPtr>);
static_assert(std::is_nothrow_copy_constructible_v<IDispatchPtr>);

namespace
{

// Hands out a reference, as functions with an output pointer do.
void HandOut(CountedObject & object, IDispatch ** pointer)
{
    object.AddRef();
    *pointer = &object;
}

} // namespace

TEST(ComPtr, AddsOneReferenceAndReleasesIt)
{
    CountedObject object;
    {
        IDispatchPtr const pointer(&object);
        EXPECT_EQ(object.References(), 1u);
        EXPECT_EQ(pointer.GetInterfacePtr(), &object);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(ComPtr, TakesOverAReferenceWhereAsked)
{
    CountedObject object;
    object.AddRef();
    {
        IDispatchPtr const taken(&object, false);
        EXPECT_EQ(object.References(), 1u);
        IDispatchPtr const added(&object, true);
        EXPECT_EQ(object.References(), 2u);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(ComPtr, CopiesCountAndMovesDoNot)
{
    CountedObject object;
    {
        IDispatchPtr first(&object);
        IDispatchPtr const copy(first);
        EXPECT_EQ(object.References(), 2u);
        IDispatchPtr const moved(std::move(first));
        EXPECT_EQ(object.References(), 2u);
        EXPECT_EQ(first, nullptr);
        EXPECT_EQ(object.Added(), 2u);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(ComPtr, AssignmentReleasesTheOldObject)
{
    CountedObject object;
    CountedObject other;
    IDispatchPtr pointer(&object);
    IDispatchPtr const otherPointer(&other);
    pointer = otherPointer;
    EXPECT_EQ(object.References(), 0u);
    EXPECT_EQ(other.References(), 2u);
    pointer = &object;
    EXPECT_EQ(object.References(), 1u);
    EXPECT_EQ(other.References(), 1u);
    pointer = IDispatchPtr(&other);
    EXPECT_EQ(object.References(), 0u);
    EXPECT_EQ(other.References(), 2u);
    pointer = nullptr;
    EXPECT_EQ(other.References(), 1u);
}

TEST(ComPtr, AssigningItselfKeepsTheReference)
{
    CountedObject object;
    IDispatchPtr pointer(&object);
    IDispatchPtr & itself = pointer;
    pointer = itself;
    EXPECT_EQ(object.References(), 1u);
    pointer = std::move(itself);
    EXPECT_EQ(object.References(), 1u);
    EXPECT_EQ(pointer, &object);
    pointer = pointer.GetInterfacePtr();
    EXPECT_EQ(object.References(), 1u);
}

TEST(ComPtr, IsNullWithoutAnObject)
{
    IDispatchPtr const none;
    IDispatchPtr const null(nullptr);
    IDispatchPtr const fromNull(static_cast<IDispatch *>(nullptr));
    IDispatchPtr const copy(none);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(null, nullptr);
    EXPECT_EQ(fromNull, nullptr);
    EXPECT_EQ(copy, nullptr);
    EXPECT_FALSE(none);
}

TEST(ComPtr, ReachesTheObject)
{
    CountedObject object;
    IDispatchPtr const pointer(&object);
    EXPECT_EQ(pointer->GetTypeInfoCount(nullptr), E_NOTIMPL);
    EXPECT_EQ(&*pointer, &object);
    IDispatch * const plain = pointer;
    EXPECT_EQ(plain, &object);
    EXPECT_TRUE(pointer);
    EXPECT_EQ(object.References(), 1u);
}

TEST(ComPtr, UsingNullThrowsInvalidPointer)
{
    IDispatchPtr const none;
    EXPECT_EQ(ThrownComError([&] { none->AddRef(); }), E_POINTER);
    EXPECT_EQ(ThrownComError([&] { static_cast<void>(*none); }), E_POINTER);
}

TEST(ComPtr, ComparesPlainPointers)
{
    CountedObject object;
    CountedObject other;
    IDispatchPtr const pointer(&object);
    EXPECT_TRUE(pointer == IDispatchPtr(&object));
    EXPECT_FALSE(pointer == IDispatchPtr(&other));
    EXPECT_TRUE(pointer != IDispatchPtr());
}

TEST(ComPtr, GivesItsAddressEmptied)
{
    CountedObject object;
    CountedObject other;
    IDispatchPtr pointer(&object);
    HandOut(other, &pointer);
    EXPECT_EQ(object.References(), 0u);
    EXPECT_EQ(other.References(), 1u);
    EXPECT_EQ(pointer, &other);
}

TEST(ComPtr, AttachesDetachesAndReleases)
{
    CountedObject object;
    CountedObject other;
    object.AddRef();
    IDispatchPtr pointer(&other);
    pointer.Attach(&object);
    EXPECT_EQ(other.References(), 0u);
    EXPECT_EQ(object.References(), 1u);

    IDispatch * const detached = pointer.Detach();
    EXPECT_EQ(detached, &object);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(object.References(), 1u);

    pointer.Attach(detached);
    pointer.Release();
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(object.References(), 0u);
    pointer.Release();
}

TEST(ComPtr, SwapsWithoutCounting)
{
    CountedObject object;
    IDispatchPtr left(&object);
    IDispatchPtr right;
    left.Swap(right);
    EXPECT_EQ(left, nullptr);
    EXPECT_EQ(right, &object);
    EXPECT_EQ(object.Added(), 1u);
}

TEST(ComPtr, IsNullBeforeTheObjectIsReleased)
{
    CountedObject object;
    IDispatchPtr pointer(&object);
    IDispatch * seen = &object;
    object.onRelease = [&] { seen = pointer; };
    pointer.Release();
    EXPECT_EQ(seen, nullptr);
}

TEST(ComPtr, LivesInContainers)
{
    CountedObject object;
    {
        std::vector<IDispatchPtr> pointers(3, IDispatchPtr(&object));
        EXPECT_EQ(object.References(), 3u);
        pointers.erase(pointers.begin());
        EXPECT_EQ(object.References(), 2u);
    }
    EXPECT_EQ(object.References(), 0u);
}

TEST(ComPtrQuery, FindsAnInterface)
{
    CountedObject object;
    IUnknownPtr identity;
    EXPECT_EQ(identity.QueryFrom(&object), S_OK);
    EXPECT_EQ(identity, &object);
    EXPECT_EQ(object.References(), 1u);

    IDispatchPtr dispatch;
    EXPECT_EQ(dispatch.QueryFrom(identity), S_OK);
    EXPECT_EQ(dispatch, &object);
    EXPECT_EQ(dispatch.QueryFrom(dispatch), S_OK);
    EXPECT_EQ(object.References(), 2u);
}

TEST(ComPtrQuery, GivesNullWhereTheObjectHasNone)
{
    CountedObject object;
    IErrorInfoPtr pointer;
    EXPECT_EQ(pointer.QueryFrom(&object), E_NOINTERFACE);
    EXPECT_EQ(pointer, nullptr);

    IDispatchPtr dispatch(&object);
    EXPECT_EQ(dispatch.QueryFrom(nullptr), E_NOINTERFACE);
    EXPECT_EQ(dispatch, nullptr);
    EXPECT_EQ(object.References(), 0u);
}

TEST(ComPtrQuery, ThrowsOtherFailures)
{
    CountedObject object;
    object.queryResult = E_FAIL;
    IDispatchPtr pointer(&object);
    EXPECT_EQ(ThrownComError([&] { pointer.QueryFrom(&object); }), E_FAIL);
    EXPECT_EQ(pointer, nullptr);
    EXPECT_EQ(object.References(), 0u);
}

TEST(ComInterfaces, HaveThePlatformsIdentifiers)
{
    GUID const dispatch = {0x00020400, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    GUID const unknown = {0, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
    EXPECT_TRUE(IID_IDispatch == dispatch);
    EXPECT_TRUE(IID_IUnknown == unknown);
    EXPECT_TRUE(kr::detail::interfaceId<IDispatch> == dispatch);
    EXPECT_TRUE(kr::detail::interfaceId<IUnknown> == unknown);
    EXPECT_TRUE(kr::detail::interfaceId<IErrorInfo> == IID_IErrorInfo);
}

TEST(ComInterfaces, AnswerNotImplementedUnlessOverridden)
{
    CountedObject object;
    IDispatch & dispatch = object;
    EXPECT_EQ(dispatch.GetTypeInfoCount(nullptr), E_NOTIMPL);
    EXPECT_EQ(dispatch.GetTypeInfo(0, 0, nullptr), E_NOTIMPL);
    EXPECT_EQ(dispatch.GetIDsOfNames(IID_IUnknown, nullptr, 0, 0, nullptr), E_NOTIMPL);
    EXPECT_EQ(dispatch.Invoke(0, IID_IUnknown, 0, 0, nullptr, nullptr, nullptr, nullptr), E_NOTIMPL);
}
