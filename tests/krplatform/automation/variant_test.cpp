#include <krplatform/automation/variant.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/automation/plain_tags.h>

#include <gtest/gtest.h>

#include <cstring>

using namespace kr::test;

namespace
{

constexpr ULONGLONG someBits = 0x0123456789ABCDEF;

struct TagRow
{
    char const * name;
    int tag;
};

// clang-format off
constexpr TagRow plainTags[] = {
    { "EMPTY",   VT_EMPTY   },
    { "NULL",    VT_NULL    },
    { "I2",      VT_I2      },
    { "I4",      VT_I4      },
    { "R4",      VT_R4      },
    { "R8",      VT_R8      },
    { "CY",      VT_CY      },
    { "DATE",    VT_DATE    },
    { "ERROR",   VT_ERROR   },
    { "BOOL",    VT_BOOL    },
    { "VARIANT", VT_VARIANT },      // alone it is carried, as a blob is
    { "I1",      VT_I1      },
    { "UI1",     VT_UI1     },
    { "UI2",     VT_UI2     },
    { "UI4",     VT_UI4     },
    { "I8",      VT_I8      },
    { "UI8",     VT_UI8     },
    { "INT",     VT_INT     },
    { "UINT",    VT_UINT    },
    { "BLOB",    VT_BLOB    },
};

constexpr TagRow unknownTags[] = {
    { "14",                       14                           },
    { "15",                       15                           },
    { "VOID",                     VT_VOID                      },
    { "PTR",                      VT_PTR                       },
    { "64",                       64                           },
    { "66",                       66                           },
    { "BYREF I4",                 VT_BYREF | VT_I4             },
    { "BYREF VARIANT",            VT_BYREF | VT_VARIANT        },
    { "BYREF ARRAY of I4",        VT_BYREF | VT_ARRAY | VT_I4  },
    { "ARRAY of EMPTY",           VT_ARRAY | VT_EMPTY          },
    { "ARRAY of NULL",            VT_ARRAY | VT_NULL           },
    { "ARRAY of BLOB",            VT_ARRAY | VT_BLOB           },
    { "flag 1000",                0x1000 | VT_I4               },
    { "flag 8000",                0x8000 | VT_I4               },
    { "ARRAY of I4 and 8000",     0xA000 | VT_I4               },
};
// clang-format on

void ExpectSameBits(VARIANT const & value, VARIANT const & expected)
{
    EXPECT_EQ(value.vt, expected.vt);
    EXPECT_EQ(value.ullVal, expected.ullVal);
}

SAFEARRAY * MakeTexts()
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_BSTR, 0, 2);
    for (LONG index = 0; index < 2; ++index)
    {
        BSTR const text = MakeText(index ? OLESTR("second") : OLESTR("first"));
        EXPECT_EQ(SafeArrayPutElement(array, &index, text), S_OK);
        SysFreeString(text);
    }
    return array;
}

} // namespace

TEST(VariantInit, MakesEmptyWithoutReadingTheOldValue)
{
    VARIANT value;
    std::memset(&value, 0xCC, sizeof value);
    VariantInit(&value);
    ExpectSameBits(value, MakeBits(VT_EMPTY, 0));

    std::memset(&value, 0xCC, sizeof value);
    AfxVariantInit(&value);
    ExpectSameBits(value, MakeBits(VT_EMPTY, 0));
}

TEST(VariantInit, IgnoresNull)
{
    VariantInit(nullptr);
    AfxVariantInit(nullptr);
}

TEST(VariantClear, LeavesEmptyWhateverOwnsNothing)
{
    for (TagRow const & row : plainTags)
    {
        SCOPED_TRACE(row.name);
        VARIANT value = MakeBits(row.tag, someBits); // Deliberate: what a blob points at is not freed
        EXPECT_EQ(VariantClear(&value), S_OK);
        ExpectSameBits(value, MakeBits(VT_EMPTY, 0));
    }
}

TEST(VariantClear, FreesTextAndHasNoEffectASecondTime)
{
    std::size_t const before = LiveAllocations();
    VARIANT value = MakeTextVariant(OLESTR("text"));
    EXPECT_EQ(LiveAllocations(), before + 1);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(LiveAllocations(), before);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST(VariantClear, ReleasesOneReference)
{
    for (int const tag : {VT_DISPATCH, VT_UNKNOWN})
    {
        CountedObject object;
        object.AddRef();
        object.AddRef();
        VARIANT value = MakeBits(tag, 0);
        value.pdispVal = &object;
        EXPECT_EQ(VariantClear(&value), S_OK);
        EXPECT_EQ(value.vt, VT_EMPTY);
        EXPECT_EQ(object.References(), 1u);
    }
}

TEST(VariantClear, TakesReferencesTextsAndArraysThatAreNull)
{
    for (int const tag : {+VT_DISPATCH, +VT_UNKNOWN, +VT_BSTR, VT_ARRAY | VT_I4, VT_ARRAY | VT_VARIANT})
    {
        SCOPED_TRACE(tag);
        VARIANT value = MakeBits(tag, 0);
        EXPECT_EQ(VariantClear(&value), S_OK);
        EXPECT_EQ(value.vt, VT_EMPTY);
    }
}

TEST(VariantClear, FreesAnArrayWithItsElements)
{
    std::size_t const before = LiveAllocations();
    VARIANT value = MakeArrayVariant(MakeTexts());
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(value.vt, VT_EMPTY);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(VariantClear, LeavesALockedArray)
{
    SAFEARRAY * const array = MakeTexts();
    SafeArrayLock(array);
    VARIANT value = MakeArrayVariant(array);
    EXPECT_EQ(VariantClear(&value), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(value.vt, VT_ARRAY | VT_BSTR);
    EXPECT_EQ(value.parray, array);
    SafeArrayUnlock(array);
    EXPECT_EQ(VariantClear(&value), S_OK);
}

TEST(VariantClear, LeavesUnknownTagsAndReferencesToVariants)
{
    for (TagRow const & row : unknownTags)
    {
        SCOPED_TRACE(row.name);
        VARIANT value = MakeBits(row.tag, someBits);
        EXPECT_EQ(VariantClear(&value), DISP_E_BADVARTYPE);
        ExpectSameBits(value, MakeBits(row.tag, someBits));
    }
}

TEST(VariantClear, IsEmptyBeforeTheObjectIsReleased)
{
    CountedObject object;
    object.AddRef();
    VARIANT value = MakeBits(VT_DISPATCH, 0);
    value.pdispVal = &object;
    VARTYPE seen = VT_NULL;
    object.onRelease = [&] { seen = value.vt; };
    EXPECT_EQ(VariantClear(&value), S_OK);
    EXPECT_EQ(seen, VT_EMPTY);
}

TEST(VariantClear, RefusesNull) { EXPECT_EQ(VariantClear(nullptr), E_INVALIDARG); }

TEST(VariantCopy, CopiesTheBitsOfWhateverOwnsNothing)
{
    for (TagRow const & row : plainTags)
    {
        SCOPED_TRACE(row.name);
        VARIANT const source = MakeBits(row.tag, someBits);
        VARIANT copy = MakeBits(VT_I4, 1);
        EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
        ExpectSameBits(copy, source);
    }
}

TEST(VariantCopy, CopiesTextWithZerosInside)
{
    std::basic_string_view<WCHAR> const text(OLESTR("a\0b"), 3);
    Cleared source(MakeTextVariant(text));
    Cleared copy(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(VariantCopy(copy.Get(), source.Get()), S_OK);
    EXPECT_EQ(copy->vt, VT_BSTR);
    EXPECT_NE(copy->bstrVal, source->bstrVal);
    EXPECT_EQ(Narrow(TextOf(copy->bstrVal)), Narrow(text));
}

TEST(VariantCopy, CopiesTextOfOddBytes)
{
    Cleared source(MakeBits(VT_BSTR, 0));
    source->bstrVal = SysAllocStringByteLen("abc", 3);
    Cleared copy(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(VariantCopy(copy.Get(), source.Get()), S_OK);
    EXPECT_EQ(SysStringByteLen(copy->bstrVal), 3u);
    EXPECT_EQ(std::memcmp(copy->bstrVal, "abc", 3), 0);
}

TEST(VariantCopy, MakesAnEmptyTextOfNoText)
{
    VARIANT const source = MakeBits(VT_BSTR, 0);
    Cleared copy(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(VariantCopy(copy.Get(), &source), S_OK);
    EXPECT_EQ(copy->vt, VT_BSTR);
    ASSERT_NE(copy->bstrVal, nullptr);
    EXPECT_EQ(SysStringLen(copy->bstrVal), 0u);
}

TEST(VariantCopy, AddsAReference)
{
    for (int const tag : {VT_DISPATCH, VT_UNKNOWN})
    {
        CountedObject object;
        VARIANT source = MakeBits(tag, 0);
        source.pdispVal = &object;
        {
            Cleared copy(MakeBits(VT_EMPTY, 0));
            EXPECT_EQ(VariantCopy(copy.Get(), &source), S_OK);
            EXPECT_EQ(copy->pdispVal, &object);
            EXPECT_EQ(object.References(), 1u);
        }
        EXPECT_EQ(object.References(), 0u);
    }
}

TEST(VariantCopy, KeepsTheTagOfAReferenceOrArrayThatIsNull)
{
    for (int const tag : {+VT_DISPATCH, +VT_UNKNOWN, VT_ARRAY | VT_I4})
    {
        VARIANT const source = MakeBits(tag, 0);
        VARIANT copy = MakeBits(VT_I4, someBits);
        EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
        ExpectSameBits(copy, source);
    }
}

TEST(VariantCopy, CopiesArraysDeeply)
{
    Cleared source(MakeArrayVariant(MakeTexts()));
    Cleared copy(MakeBits(VT_EMPTY, 0));
    EXPECT_EQ(VariantCopy(copy.Get(), source.Get()), S_OK);
    EXPECT_EQ(copy->vt, VT_ARRAY | VT_BSTR);
    ASSERT_NE(copy->parray, source->parray);
    BSTR const * const texts = static_cast<BSTR const *>(source->parray->pvData);
    BSTR const * const copies = static_cast<BSTR const *>(copy->parray->pvData);
    EXPECT_NE(copies[0], texts[0]);
    EXPECT_EQ(Narrow(copies[0]), "first");
    EXPECT_EQ(Narrow(copies[1]), "second");
}

TEST(VariantCopy, ReleasesWhatTheDestinationHeld)
{
    CountedObject object;
    object.AddRef();
    VARIANT copy = MakeBits(VT_DISPATCH, 0);
    copy.pdispVal = &object;
    VARIANT const source = MakeBits(VT_I4, 5);
    EXPECT_EQ(VariantCopy(&copy, &source), S_OK);
    EXPECT_EQ(object.References(), 0u);
    ExpectSameBits(copy, source);
}

TEST(VariantCopy, LeavesTheDestinationIfTheSourceCannotBeCopied)
{
    Cleared copy(MakeTextVariant(OLESTR("old")));
    for (TagRow const & row : unknownTags)
    {
        SCOPED_TRACE(row.name);
        VARIANT const source = MakeBits(row.tag, someBits);
        EXPECT_EQ(VariantCopy(copy.Get(), &source), DISP_E_BADVARTYPE);
        EXPECT_EQ(Narrow(copy->bstrVal), "old");
    }
}

TEST(VariantCopy, LeavesADestinationThatCannotBeCleared)
{
    Cleared source(MakeTextVariant(OLESTR("new")));
    SAFEARRAY * const array = MakeTexts();
    Cleared locked(MakeArrayVariant(array));
    SafeArrayLock(array);
    std::size_t const before = LiveAllocations();
    EXPECT_EQ(VariantCopy(locked.Get(), source.Get()), DISP_E_ARRAYISLOCKED);
    EXPECT_EQ(locked->parray, array);
    SafeArrayUnlock(array);

    VARIANT unknown = MakeBits(VT_BYREF | VT_I4, someBits);
    EXPECT_EQ(VariantCopy(&unknown, source.Get()), DISP_E_BADVARTYPE);
    ExpectSameBits(unknown, MakeBits(VT_BYREF | VT_I4, someBits));
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(VariantCopy, OntoItselfChangesNothing)
{
    Cleared text(MakeTextVariant(OLESTR("text")));
    BSTR const pointer = text->bstrVal;
    EXPECT_EQ(VariantCopy(text.Get(), text.Get()), S_OK);
    EXPECT_EQ(text->bstrVal, pointer);

    VARIANT unknown = MakeBits(VT_PTR, someBits);
    EXPECT_EQ(VariantCopy(&unknown, &unknown), DISP_E_BADVARTYPE);
    ExpectSameBits(unknown, MakeBits(VT_PTR, someBits));
}

TEST(VariantCopy, TakesAnElementOfTheArrayInTheDestination)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_VARIANT, 0, 1);
    VARIANT * const element = static_cast<VARIANT *>(array->pvData);
    *element = MakeTextVariant(OLESTR("inside"));
    Cleared value(MakeArrayVariant(array));
    EXPECT_EQ(VariantCopy(value.Get(), element), S_OK);
    EXPECT_EQ(value->vt, VT_BSTR);
    EXPECT_EQ(Narrow(value->bstrVal), "inside");
}

TEST(VariantCopy, RefusesNull)
{
    VARIANT value = MakeBits(VT_I4, 1);
    EXPECT_EQ(VariantCopy(nullptr, &value), E_INVALIDARG);
    EXPECT_EQ(VariantCopy(&value, nullptr), E_INVALIDARG);
    EXPECT_EQ(value.lVal, 1);
}

TEST(VariantCopy, LosesNothingWhenMemoryRunsOut)
{
    Cleared text(MakeTextVariant(OLESTR("text")));
    Cleared texts(MakeArrayVariant(MakeTexts()));
    for (VARIANT const * source : {text.Get(), texts.Get()})
    {
        HRESULT result = S_OK;
        auto const copyIt = [&]
        {
            VARIANT target = MakeBits(VT_I4, 7);
            result = VariantCopy(&target, source);
            if (FAILED(result))
                ExpectSameBits(target, MakeBits(VT_I4, 7));
            else
                VariantClear(&target);
        };
        std::size_t const failures = FailEveryAllocation(copyIt, [] { FAIL() << "VariantCopy never throws"; });
        EXPECT_EQ(failures, source->vt == VT_BSTR ? 1u : 4u); // descriptor, data and two texts
        FailNthAllocation const fail(1);
        copyIt();
        EXPECT_EQ(result, E_OUTOFMEMORY);
    }
}

TEST(IsPlainTag, IsTrueForWhatOwnsNothingAlone)
{
    for (TagRow const & row : plainTags)
        EXPECT_TRUE(kr::detail::IsPlainTag(static_cast<VARTYPE>(row.tag))) << row.name;
    for (TagRow const & row : unknownTags)
        EXPECT_FALSE(kr::detail::IsPlainTag(static_cast<VARTYPE>(row.tag))) << row.name;
    for (int const tag : {+VT_BSTR, +VT_DISPATCH, +VT_UNKNOWN, VT_ARRAY | VT_I4, VT_ARRAY | VT_BLOB})
        EXPECT_FALSE(kr::detail::IsPlainTag(static_cast<VARTYPE>(tag))) << tag;
}
