#include <krcore/foundation/krclass.h>

#include <krcore/foundation/krowner.h>
#include <krcore/property/krevent.h>
#include <krcore/property/krproperty.h>

#include "tests/support/text.h"
#include "tests/support/virtual_slot.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <type_traits>

namespace
{

struct DescriptorRow
{
    WCHAR const * name;
    std::unique_ptr<CKrClass> const & holder;
    CKrClass * (*cls)();
};

// clang-format off
DescriptorRow const s_descriptors[] = {
    { OLESTR("CKrClass"),            CKrClass::s_pCls,            CKrClass::Cls            },
    { OLESTR("CKrEventHandler"),     CKrEventHandler::s_pCls,     CKrEventHandler::Cls     },
    { OLESTR("CKrStringObject"),     CKrStringObject::s_pCls,     CKrStringObject::Cls     },
    { OLESTR("CKrStringListObject"), CKrStringListObject::s_pCls, CKrStringListObject::Cls },
    { OLESTR("CKrVariantObject"),    CKrVariantObject::s_pCls,    CKrVariantObject::Cls    },
    { OLESTR("CKrListOwnerObject"),  CKrListOwnerObject::s_pCls,  CKrListOwnerObject::Cls  },
    { OLESTR("CKrMapOwnerObject"),   CKrMapOwnerObject::s_pCls,   CKrMapOwnerObject::Cls   },
    { OLESTR("CKrProperty"),         CKrProperty::s_pCls,         CKrProperty::Cls         },
    { OLESTR("CKrObject"),           CKrObject::s_pCls,           CKrObject::Cls           },
};
// clang-format on

/// A client's static object: the descriptors are there before it, and still there after it.
struct StaticObject
{
    StaticObject() : readyAtStart(CKrObject::Cls() && CKrObject::Cls()->ClsName() == OLESTR("CKrObject")) {}
    ~StaticObject()
    {
        if (!CKrClass::Cls() || CKrClass::Cls()->ClsName() != OLESTR("CKrClass"))
            std::_Exit(EXIT_FAILURE); // fails whichever test this process runs
    }
    bool const readyAtStart;
};

StaticObject const s_object;

/// Calls the operation on any pointer, also a null one, which neither warnings nor the sanitizer may see.
__attribute__((no_sanitize("undefined"), noinline)) bool IsDerivedFrom(CKrClass const * receiver, CKrClass const * cls)
{
    return receiver->CKrClass::IsDerivedFrom(cls);
}

CKrClass const * volatile s_null = nullptr;

} // namespace

TEST(CKrClass, HasItsVirtualOperationsInTheAgreedOrder)
{
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrClass::IsA), 2u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrClass::ClsName), 3u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrClass::ClsVersion), 5u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrClass::IsDerivedFrom), 6u);
}

TEST(CKrClass, DescriptorsAreReadyBeforeTheStaticObjectsOfAClient) { EXPECT_TRUE(s_object.readyAtStart); }

TEST(CKrClass, DescriptorsHaveTheNameOfTheirClassAndVersionOne)
{
    for (DescriptorRow const & row : s_descriptors)
    {
        SCOPED_TRACE(kr::test::Narrow(row.name));
        ASSERT_NE(row.cls(), nullptr);
        EXPECT_EQ(row.cls(), row.holder.get());
        EXPECT_EQ(row.cls()->ClsName(), row.name);
        EXPECT_EQ(row.cls()->ClsVersion(), 1u);
    }
}

TEST(CKrClass, DescriptorsOfTheLibraryHaveNoBase)
{
    for (DescriptorRow const & row : s_descriptors)
    {
        SCOPED_TRACE(kr::test::Narrow(row.name));
        EXPECT_EQ(row.cls()->GetBaseCls(), nullptr);
    }
}

TEST(CKrClass, DescriptorsOfTheLibraryAreDerivedFromThemselvesOnly)
{
    for (DescriptorRow const & row : s_descriptors)
    {
        for (DescriptorRow const & other : s_descriptors)
        {
            SCOPED_TRACE(kr::test::Narrow(row.name) + " from " + kr::test::Narrow(other.name));
            EXPECT_EQ(row.cls()->IsDerivedFrom(other.cls()), &row == &other);
        }
    }
}

TEST(CKrClass, ADescriptorIsOfTheClassCKrClass)
{
    EXPECT_EQ(CKrClass::Cls()->IsA(), CKrClass::Cls());
    EXPECT_EQ(CKrStringObject::Cls()->IsA(), CKrClass::Cls());
    EXPECT_EQ(CKrObject::Cls()->IsA(), CKrClass::Cls());
    EXPECT_EQ(CKrClass::Cls()->IsA()->ClsName(), OLESTR("CKrClass"));
}

TEST(CKrClass, CloneOfADescriptorIsAPlainObject)
{
    std::unique_ptr<CKrObject> const clone(CKrClass::Cls()->Clone());
    EXPECT_EQ(clone->IsA(), CKrObject::Cls());
    EXPECT_EQ(CKrClass::Cast(clone.get()), nullptr);
}

TEST(CKrClass, StoresWhatItIsMadeOf)
{
    CKrClass base(OLESTR("Base"), 4, nullptr);
    CKrClass const derived(OLESTR("Derived"), 0xFFFFFFFFu, &base);
    EXPECT_EQ(derived.ClsName(), OLESTR("Derived"));
    EXPECT_EQ(derived.ClsVersion(), 0xFFFFFFFFu);
    EXPECT_EQ(derived.GetBaseCls(), &base);
    EXPECT_EQ(&derived.ClsName(), &derived.ClsName());
}

TEST(CKrClass, CopiesAllThreeFields)
{
    CKrClass base(OLESTR("Base"), 4, nullptr);
    CKrClass const derived(OLESTR("Derived"), 5, &base);
    CKrClass const copy(derived);
    CKrClass assigned(OLESTR("Other"), 6, nullptr);
    EXPECT_EQ(&(assigned = derived), &assigned);
    for (CKrClass const * const made : {&copy, &static_cast<CKrClass const &>(assigned)})
    {
        EXPECT_EQ(made->ClsName(), OLESTR("Derived"));
        EXPECT_EQ(made->ClsVersion(), 5u);
        EXPECT_EQ(made->GetBaseCls(), &base);
    }
    EXPECT_FALSE(copy.IsDerivedFrom(&derived)) << "a copy is another link";
}

TEST(CKrClass, IsDerivedFromEveryLinkAboveItAndNoneBelow)
{
    CKrClass root(OLESTR("Root"), 1, nullptr);
    CKrClass middle(OLESTR("Middle"), 1, &root);
    CKrClass const leaf(OLESTR("Leaf"), 1, &middle);
    CKrClass const stranger(OLESTR("Leaf"), 1, &middle);
    EXPECT_TRUE(leaf.IsDerivedFrom(&leaf));
    EXPECT_TRUE(leaf.IsDerivedFrom(&middle));
    EXPECT_TRUE(leaf.IsDerivedFrom(&root));
    EXPECT_FALSE(leaf.IsDerivedFrom(&stranger)) << "the name does not count";
    EXPECT_FALSE(root.IsDerivedFrom(&middle));
    EXPECT_FALSE(leaf.IsDerivedFrom(nullptr));
}

TEST(CKrClass, ANullReceiverIsDerivedFromNothing)
{
    EXPECT_FALSE(IsDerivedFrom(s_null, CKrObject::Cls()));
    EXPECT_FALSE(IsDerivedFrom(s_null, nullptr));
    EXPECT_TRUE(IsDerivedFrom(CKrObject::Cls(), CKrObject::Cls()));
}

TEST(CKrClass, CastGoesByTheBuiltInType)
{
    class Derived : public CKrClass
    {
    public:
        Derived() : CKrClass(OLESTR("Derived"), 1, nullptr) {}
        CKrClass * IsA() const override { return nullptr; }
    };
    Derived const derived;
    CKrStringObject const text(OLESTR("wall"));
    EXPECT_EQ(CKrClass::Cast(nullptr), nullptr);
    EXPECT_EQ(CKrClass::Cast(CKrObject::Cls()), CKrObject::Cls());
    EXPECT_EQ(CKrClass::Cast(&derived), &derived);
    EXPECT_EQ(CKrClass::Cast(&text), nullptr);
    EXPECT_TRUE((std::is_same_v<decltype(CKrClass::Cast(nullptr)), CKrClass const *>));
}
