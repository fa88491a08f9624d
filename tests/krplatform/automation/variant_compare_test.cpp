#include <krplatform/automation/colevariant.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <limits>

using namespace kr::test;

namespace
{

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// A class that reads as nearly everything, as clients' values do.
class ConvertingVariant : public COleVariant
{
public:
    using COleVariant::COleVariant;

    operator bool() const { return true; }
    operator short() const { return 1; }
    operator int() const { return 1; }
    operator long() const { return 1; }
    operator float() const { return 1; }
    operator double() const { return 1; }
    operator void *() const { return nullptr; }
    operator IDispatch *() const { return nullptr; }
    operator CString() const { return {}; }
};

struct BitsRow
{
    char const * name;
    int leftTag;
    ULONGLONG left;
    int rightTag;
    ULONGLONG right;
    bool isEqual;
};

// clang-format off
constexpr BitsRow bitsRows[] = {
    // name                          left                            right                           equal
    { "EMPTY",                       VT_EMPTY,      1,               VT_EMPTY,      2,               true  },
    { "NULL",                        VT_NULL,       1,               VT_NULL,       2,               true  },
    { "EMPTY and NULL",              VT_EMPTY,      0,               VT_NULL,       0,               false },
    { "I1",                          VT_I1,         0x0100,          VT_I1,         0xFF00,          true  },  // one byte counts
    { "I1, others",                  VT_I1,         1,               VT_I1,         2,               false },
    { "UI1",                         VT_UI1,        0x01FF,          VT_UI1,        0x02FF,          true  },
    { "I2",                          VT_I2,         0x1FFFF,         VT_I2,         0x2FFFF,         true  },  // two bytes count
    { "I2, others",                  VT_I2,         0x0100,          VT_I2,         0x0200,          false },
    { "UI2",                         VT_UI2,        0x1FFFF,         VT_UI2,        0x2FFFF,         true  },
    { "BOOL",                        VT_BOOL,       0x1FFFF,         VT_BOOL,       0x2FFFF,         true  },
    { "BOOL, true by other numbers", VT_BOOL,       0xFFFF,          VT_BOOL,       1,               false },
    { "I4",                          VT_I4,         0x1FFFFFFFF,     VT_I4,         0x2FFFFFFFF,     true  },  // four bytes count
    { "I4, others",                  VT_I4,         0x01000000,      VT_I4,         0x02000000,      false },
    { "UI4",                         VT_UI4,        0x1FFFFFFFF,     VT_UI4,        0x2FFFFFFFF,     true  },
    { "INT",                         VT_INT,        0x1FFFFFFFF,     VT_INT,        0x2FFFFFFFF,     true  },
    { "UINT",                        VT_UINT,       0x1FFFFFFFF,     VT_UINT,       0x2FFFFFFFF,     true  },
    { "ERROR",                       VT_ERROR,      0x180020005,     VT_ERROR,      0x280020005,     true  },
    { "I8",                          VT_I8,         5,               VT_I8,         5,               true  },
    { "I8, others in the top byte",  VT_I8,         1ull << 56,      VT_I8,         2ull << 56,      false },
    { "UI8, others in the top byte", VT_UI8,        1ull << 56,      VT_UI8,        2ull << 56,      false },
    { "CY",                          VT_CY,         10000,           VT_CY,         10000,           true  },
    { "CY, others in the top byte",  VT_CY,         1ull << 56,      VT_CY,         2ull << 56,      false },
    { "I4 and UI4",                  VT_I4,         5,               VT_UI4,        5,               false },
    { "I4 and INT",                  VT_I4,         5,               VT_INT,        5,               false },
    { "BLOB",                        VT_BLOB,       5,               VT_BLOB,       5,               true  },  // by its eight bytes
    { "BLOB, others in the top byte",VT_BLOB,       1ull << 56,      VT_BLOB,       2ull << 56,      false },
    { "VARIANT alone",               VT_VARIANT,    5,               VT_VARIANT,    5,               true  },
    { "VARIANT alone, others",       VT_VARIANT,    5,               VT_VARIANT,    6,               false },
    { "BYREF",                       VT_BYREF|VT_R8,8,               VT_BYREF|VT_R8,8,               true  },  // by pointer
    { "BYREF, others",               VT_BYREF|VT_R8,8,               VT_BYREF|VT_R8,16,              false },
    { "unknown tag",                 15,            5,               15,            5,               true  },
    { "unknown tag, others",         15,            1ull << 56,      15,            2ull << 56,      false },
};

struct NumberRow
{
    double left;
    double right;
    bool isEqual;
};

constexpr NumberRow numberRows[] = {
    {  2.5,         2.5,         true  },
    {  2.5,         2.75,        false },
    {  0.0,        -0.0,         true  },
    {  notANumber,  notANumber,  false },
    {  notANumber,  2.5,         false },
};
// clang-format on

SAFEARRAY * MakeNumbers(std::initializer_list<double> numbers, LONG lowerBound = 0)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_R8, lowerBound, static_cast<ULONG>(numbers.size()));
    std::copy(numbers.begin(), numbers.end(), static_cast<double *>(array->pvData));
    return array;
}

// Takes over the values.
SAFEARRAY * MakeVariants(std::initializer_list<VARIANT> values)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(values.size()));
    std::copy(values.begin(), values.end(), static_cast<VARIANT *>(array->pvData));
    return array;
}

SAFEARRAY * MakeTexts(std::initializer_list<std::basic_string_view<WCHAR>> texts)
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_BSTR, 0, static_cast<ULONG>(texts.size()));
    BSTR * place = static_cast<BSTR *>(array->pvData);
    for (std::basic_string_view<WCHAR> const text : texts)
        *place++ = text.data() ? MakeText(text) : nullptr;
    return array;
}

bool AreEqual(SAFEARRAY * left, SAFEARRAY * right)
{
    Cleared const one(MakeArrayVariant(left));
    Cleared const other(MakeArrayVariant(right));
    EXPECT_EQ(*one == *other, *other == *one);
    return *one == *other;
}

bool AreEqual(VARIANT left, VARIANT right)
{
    Cleared const one(left);
    Cleared const other(right);
    EXPECT_EQ(*one == *other, *other == *one);
    return *one == *other;
}

} // namespace

TEST(VariantCompare, ComparesTheBytesOfTheValueAlone)
{
    for (BitsRow const & row : bitsRows)
    {
        SCOPED_TRACE(row.name);
        VARIANT const left = MakeBits(row.leftTag, row.left);
        VARIANT const right = MakeBits(row.rightTag, row.right);
        EXPECT_EQ(left == right, row.isEqual);
        EXPECT_EQ(right == left, row.isEqual);
        EXPECT_EQ(left != right, !row.isEqual);
        EXPECT_TRUE(left == left);
    }
}

TEST(VariantCompare, ComparesRealsAsNumbers)
{
    for (NumberRow const & row : numberRows)
    {
        SCOPED_TRACE(testing::Message() << row.left << " and " << row.right);
        EXPECT_EQ(MakeR8(row.left) == MakeR8(row.right), row.isEqual);

        VARIANT left = MakeR8(row.left);
        VARIANT right = MakeR8(row.right);
        left.vt = right.vt = VT_DATE;
        EXPECT_EQ(left == right, row.isEqual);

        left = right = MakeBits(VT_R4, 0);
        left.fltVal = static_cast<float>(row.left);
        right.fltVal = static_cast<float>(row.right);
        left.wReserved1 = 7;
        EXPECT_EQ(left == right, row.isEqual);

        EXPECT_EQ(AreEqual(MakeNumbers({1.0, row.left}), MakeNumbers({1.0, row.right})), row.isEqual);
    }
}

TEST(VariantCompare, ALongIsNoDouble)
{
    EXPECT_FALSE(COleVariant(5L) == COleVariant(5.0));
    EXPECT_FALSE(COleVariant(5L) == COleVariant(short{5}));
}

TEST(VariantCompare, ComparesTextByExactContent)
{
    std::basic_string_view<WCHAR> const withZero(OLESTR("a\0b"), 3);
    std::basic_string_view<WCHAR> const withOtherEnd(OLESTR("a\0c"), 3);
    EXPECT_TRUE(AreEqual(MakeTextVariant(OLESTR("Wall")), MakeTextVariant(OLESTR("Wall"))));
    EXPECT_FALSE(AreEqual(MakeTextVariant(OLESTR("Wall")), MakeTextVariant(OLESTR("wall"))));
    EXPECT_FALSE(AreEqual(MakeTextVariant(OLESTR("Wall")), MakeTextVariant(OLESTR("Walls"))));
    EXPECT_TRUE(AreEqual(MakeTextVariant(withZero), MakeTextVariant(withZero)));
    EXPECT_FALSE(AreEqual(MakeTextVariant(withZero), MakeTextVariant(withOtherEnd)));
    EXPECT_FALSE(AreEqual(MakeTextVariant(withZero), MakeTextVariant(OLESTR("a"))));
}

TEST(VariantCompare, ComparesTextOfOddBytes)
{
    VARIANT left = MakeBits(VT_BSTR, 0);
    VARIANT right = left;
    left.bstrVal = SysAllocStringByteLen("abc", 3);
    right.bstrVal = SysAllocStringByteLen("abd", 3);
    EXPECT_FALSE(AreEqual(left, right));
}

TEST(VariantCompare, NoTextIsEmptyText)
{
    EXPECT_TRUE(AreEqual(MakeBits(VT_BSTR, 0), MakeTextVariant({})));
    EXPECT_TRUE(AreEqual(MakeBits(VT_BSTR, 0), MakeBits(VT_BSTR, 0)));
    EXPECT_FALSE(AreEqual(MakeBits(VT_BSTR, 0), MakeTextVariant(OLESTR("a"))));
    EXPECT_TRUE(AreEqual(MakeTexts({{}}), MakeTexts({OLESTR("")})));
}

TEST(VariantCompare, ComparesReferencesByPointer)
{
    CountedObject object;
    CountedObject other;
    for (int const tag : {VT_DISPATCH, VT_UNKNOWN})
    {
        VARIANT left = MakeBits(tag, 0);
        VARIANT right = left;
        EXPECT_TRUE(left == right);
        left.pdispVal = &object;
        EXPECT_FALSE(left == right);
        right.pdispVal = &other;
        EXPECT_FALSE(left == right);
        right.pdispVal = &object;
        EXPECT_TRUE(left == right);
    }
    EXPECT_EQ(object.Added(), 0u);
}

TEST(VariantCompare, ComparesArraysElementByElement)
{
    EXPECT_TRUE(AreEqual(MakeNumbers({1, 2, 3}), MakeNumbers({1, 2, 3})));
    EXPECT_FALSE(AreEqual(MakeNumbers({1, 2, 3}), MakeNumbers({1, 2, 4})));
    EXPECT_FALSE(AreEqual(MakeNumbers({1, 2, 3}), MakeNumbers({1, 2})));
    EXPECT_TRUE(AreEqual(MakeNumbers({}), MakeNumbers({})));
    EXPECT_TRUE(AreEqual(MakeTexts({OLESTR("a"), OLESTR("b")}), MakeTexts({OLESTR("a"), OLESTR("b")})));
    EXPECT_FALSE(AreEqual(MakeTexts({OLESTR("a"), OLESTR("b")}), MakeTexts({OLESTR("a"), OLESTR("B")})));
}

TEST(VariantCompare, ComparesLowerBounds)
{
    EXPECT_TRUE(AreEqual(MakeNumbers({1, 2}, 5), MakeNumbers({1, 2}, 5)));
    EXPECT_FALSE(AreEqual(MakeNumbers({1, 2}, 5), MakeNumbers({1, 2}, 6)));
    EXPECT_FALSE(AreEqual(MakeNumbers({}, 5), MakeNumbers({}, 6)));
}

TEST(VariantCompare, ComparesDimensions)
{
    SAFEARRAYBOUND const flat[] = {{6, 0}};
    SAFEARRAYBOUND const wide[] = {{2, 0}, {3, 0}};
    SAFEARRAYBOUND const high[] = {{3, 0}, {2, 0}};
    EXPECT_TRUE(AreEqual(SafeArrayCreate(VT_I4, 2, wide), SafeArrayCreate(VT_I4, 2, wide)));
    EXPECT_FALSE(AreEqual(SafeArrayCreate(VT_I4, 2, wide), SafeArrayCreate(VT_I4, 2, high)));
    EXPECT_FALSE(AreEqual(SafeArrayCreate(VT_I4, 2, wide), SafeArrayCreate(VT_I4, 1, flat)));
}

TEST(VariantCompare, ComparesElementTypes)
{
    EXPECT_FALSE(AreEqual(SafeArrayCreateVector(VT_I4, 0, 2), SafeArrayCreateVector(VT_UI4, 0, 2)));
    VARIANT mislabelled = MakeArrayVariant(SafeArrayCreateVector(VT_I4, 0, 2));
    mislabelled.vt = VT_ARRAY | VT_UI4;
    EXPECT_FALSE(AreEqual(mislabelled, MakeArrayVariant(SafeArrayCreateVector(VT_UI4, 0, 2))));
}

TEST(VariantCompare, AnArrayThatIsNullEqualsOnlyAnother)
{
    VARIANT const none = MakeBits(VT_ARRAY | VT_R8, 0);
    EXPECT_TRUE(none == none);
    EXPECT_FALSE(AreEqual(none, MakeArrayVariant(MakeNumbers({}))));
}

TEST(VariantCompare, ComparesVariantsInArraysByValue)
{
    auto const makeNested = [](std::basic_string_view<WCHAR> text) {
        return MakeVariants({MakeR8(1), MakeTextVariant(text), MakeArrayVariant(MakeNumbers({1, 2}))});
    };
    EXPECT_TRUE(AreEqual(makeNested(OLESTR("a")), makeNested(OLESTR("a"))));
    EXPECT_FALSE(AreEqual(makeNested(OLESTR("a")), makeNested(OLESTR("b"))));
    EXPECT_FALSE(AreEqual(MakeVariants({MakeR8(1)}), MakeVariants({MakeBits(VT_I4, 1)})));
    EXPECT_FALSE(AreEqual(MakeVariants({MakeArrayVariant(MakeNumbers({1, 2}))}),
                          MakeVariants({MakeArrayVariant(MakeNumbers({1, 3}))})));
}

TEST(VariantCompare, ComparesReferencesInArraysByPointer)
{
    CountedObject object;
    SAFEARRAY * const left = SafeArrayCreateVector(VT_DISPATCH, 0, 1);
    SAFEARRAY * const right = SafeArrayCreateVector(VT_DISPATCH, 0, 1);
    LONG const index = 0;
    EXPECT_EQ(SafeArrayPutElement(left, &index, static_cast<IDispatch *>(&object)), S_OK);
    Cleared const one(MakeArrayVariant(left));
    Cleared const other(MakeArrayVariant(right));
    EXPECT_FALSE(*one == *other);
    EXPECT_EQ(SafeArrayPutElement(right, &index, static_cast<IDispatch *>(&object)), S_OK);
    EXPECT_TRUE(*one == *other);
}

TEST(VariantCompare, MeansTheSameForEveryClassOfVariants)
{
    VARIANT const plain = MakeBits(VT_I4, 5);
    COleVariant const value(5L);
    ConvertingVariant const converting(5L);
    EXPECT_TRUE(plain == value);
    EXPECT_TRUE(value == plain);
    EXPECT_TRUE(value == value);
    EXPECT_TRUE(converting == plain);
    EXPECT_TRUE(plain == converting);
    EXPECT_TRUE(converting == value);
    EXPECT_TRUE(value == converting);
    EXPECT_TRUE(converting == converting);

    // Every one of its conversions gives the same for both, and still the values differ.
    ConvertingVariant const other(6L);
    EXPECT_FALSE(converting == other);
    EXPECT_TRUE(converting != other);
    EXPECT_TRUE(value != other);
    EXPECT_TRUE(other != value);
    EXPECT_TRUE(plain != other);
    EXPECT_TRUE(other != plain);
}

TEST(VariantCompare, TakesValuesThatAreNotConst)
{
    VARIANT plain = MakeBits(VT_I4, 5);
    COleVariant value(5L);
    ConvertingVariant converting(5L);
    EXPECT_TRUE(plain == value);
    EXPECT_TRUE(value == converting);
    EXPECT_TRUE(converting == plain);
    EXPECT_FALSE(converting != converting);
}
