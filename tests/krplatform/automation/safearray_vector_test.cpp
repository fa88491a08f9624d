// The facts on arrays, and on variants that hold them, that the platform's own functions answered.
#include <krplatform/automation/safearray.h>

#include "tests/krplatform/automation/counted_object.h"
#include "tests/krplatform/automation/make_variant.h"
#include "tests/support/text.h"
#include "tests/support/vectors.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

using namespace kr::test;

namespace
{

struct Answer
{
    HRESULT result;
    std::string value = "-";
};

struct NamedTag
{
    char const * name;
    VARTYPE tag;
};

// clang-format off
constexpr NamedTag namedTags[] = {
    { "EMPTY",   VT_EMPTY   }, { "NULL",     VT_NULL     }, { "I2",    VT_I2    }, { "I4",   VT_I4   },
    { "R4",      VT_R4      }, { "R8",       VT_R8       }, { "CY",    VT_CY    }, { "DATE", VT_DATE },
    { "BSTR",    VT_BSTR    }, { "DISPATCH", VT_DISPATCH }, { "ERROR", VT_ERROR }, { "BOOL", VT_BOOL },
    { "VARIANT", VT_VARIANT }, { "UNKNOWN",  VT_UNKNOWN  }, { "I1",    VT_I1    }, { "UI1",  VT_UI1  },
    { "UI2",     VT_UI2     }, { "UI4",      VT_UI4      }, { "I8",    VT_I8    }, { "UI8",  VT_UI8  },
    { "INT",     VT_INT     }, { "UINT",     VT_UINT     }, { "BLOB",  VT_BLOB  },
};
// clang-format on

VARTYPE TagOf(std::string const & name)
{
    for (NamedTag const & row : namedTags)
    {
        if (row.name == name)
            return row.tag;
    }
    ADD_FAILURE() << "no tag " << name;
    return VT_EMPTY;
}

// An array that is destroyed at the end, whatever locks are left.
class Array
{
public:
    explicit Array(std::vector<SAFEARRAYBOUND> const & bounds, VARTYPE element = VT_I4)
        : m_array(SafeArrayCreate(element, static_cast<UINT>(bounds.size()), bounds.data()))
    {
    }
    ~Array()
    {
        while (SUCCEEDED(SafeArrayUnlock(m_array))) {}
        SafeArrayDestroy(m_array);
    }
    Array(Array const &) = delete;
    Array & operator=(Array const &) = delete;

    operator SAFEARRAY *() const { return m_array; }
    HRESULT Destroy()
    {
        HRESULT const result = SafeArrayDestroy(m_array);
        if (SUCCEEDED(result))
            m_array = nullptr;
        return result;
    }

private:
    SAFEARRAY * m_array;
};

Answer AskBound(HRESULT (*function)(SAFEARRAY const *, UINT, LONG *), SAFEARRAY * array, LONG dimension)
{
    LONG bound = 0;
    HRESULT const result = function(array, static_cast<UINT>(dimension), &bound);
    return {result, SUCCEEDED(result) ? std::to_string(bound) : "-"};
}

Answer AskElement(SAFEARRAY * array, LONG const * indices)
{
    LONG number = 0;
    HRESULT const result = SafeArrayGetElement(array, indices, &number);
    return {result, SUCCEEDED(result) ? std::to_string(number) : "-"};
}

HRESULT Access(SAFEARRAY * array, int times)
{
    void * data = nullptr;
    HRESULT result = S_OK;
    for (int count = 0; count < times; ++count)
        result = SafeArrayAccessData(array, &data);
    return result;
}

HRESULT Unaccess(SAFEARRAY * array, int times)
{
    HRESULT result = S_OK;
    for (int count = 0; count < times; ++count)
        result = SafeArrayUnaccessData(array);
    return result;
}

// "PutElement at 4" as "PutElement" and 4.
std::pair<std::string, LONG> SplitNumber(std::string const & question)
{
    std::size_t const blank = question.rfind(' ');
    if (blank == std::string::npos || question.find_first_of("0123456789", blank) == std::string::npos)
        return {question, 0};
    std::string operation = question.substr(0, blank);
    if (operation.ends_with(" at"))
        operation.resize(operation.size() - 3);
    return {operation, std::atoi(question.c_str() + blank)};
}

// The element at each index is 100 more than the index.
std::optional<Answer> AskVector(std::string const & question, ULONG count, LONG lowerBound)
{
    Array array({{count, lowerBound}});
    for (ULONG offset = 0; offset < count; ++offset)
    {
        LONG const index = lowerBound + static_cast<LONG>(offset);
        LONG const number = 100 + index;
        SafeArrayPutElement(array, &index, &number);
    }

    auto const [operation, number] = SplitNumber(question);
    if (operation == "GetLBound")
        return AskBound(SafeArrayGetLBound, array, number);
    if (operation == "GetUBound")
        return AskBound(SafeArrayGetUBound, array, number);
    if (operation == "dimensions")
        return Answer{S_OK, std::to_string(SafeArrayGetDim(array))};
    if (operation == "element size")
        return Answer{S_OK, std::to_string(SafeArrayGetElemsize(array))};
    if (operation == "GetElement")
        return AskElement(array, &number);
    if (operation == "PutElement")
        return Answer{SafeArrayPutElement(array, &number, &number)};
    if (operation == "Destroy")
        return Answer{array.Destroy()};
    if (operation == "AccessData")
        return Answer{Access(array, 1)};
    if (operation == "AccessData a second time")
        return Answer{Access(array, 2)};

    bool const isAccessedOnce = operation.find("while accessed") != std::string::npos;
    EXPECT_EQ(Access(array, isAccessedOnce ? 1 : 2), S_OK);
    if (operation == "Destroy while accessed")
        return Answer{array.Destroy()};
    if (operation == "PutElement while accessed")
        return Answer{SafeArrayPutElement(array, &number, &number)};
    if (operation == "locks")
        return Answer{S_OK, std::to_string(static_cast<SAFEARRAY *>(array)->cLocks)};
    if (operation == "UnaccessData")
        return Answer{Unaccess(array, 1)};
    if (operation == "UnaccessData second")
        return Answer{Unaccess(array, 2)};
    if (operation == "UnaccessData once too often")
        return Answer{Unaccess(array, 3)};
    return std::nullopt;
}

// Each element is ten times its first index and its second one.
std::optional<Answer> AskTable(std::string const & question, std::vector<SAFEARRAYBOUND> const & bounds)
{
    Array const array(bounds);
    auto const end = [&](std::size_t dimension)
    { return bounds[dimension].lLbound + static_cast<LONG>(bounds[dimension].cElements); };
    for (LONG first = bounds[0].lLbound; first < end(0); ++first)
    {
        for (LONG second = bounds[1].lLbound; second < end(1); ++second)
        {
            LONG const place[] = {first, second};
            LONG const number = 10 * first + second;
            SafeArrayPutElement(array, place, &number);
        }
    }

    LONG indices[2];
    if (std::sscanf(question.c_str(), "GetElement (%d,%d)", &indices[0], &indices[1]) == 2)
        return AskElement(array, indices);
    if (std::sscanf(question.c_str(), "PutElement (%d,%d)", &indices[0], &indices[1]) == 2)
        return Answer{SafeArrayPutElement(array, indices, indices)};
    auto const [operation, dimension] = SplitNumber(question);
    if (operation == "GetLBound")
        return AskBound(SafeArrayGetLBound, array, dimension);
    if (operation == "GetUBound")
        return AskBound(SafeArrayGetUBound, array, dimension);
    if (operation == "bounds of dimension")
    {
        Answer const lower = AskBound(SafeArrayGetLBound, array, dimension);
        Answer const upper = AskBound(SafeArrayGetUBound, array, dimension);
        return Answer{lower.result | upper.result, lower.value + ".." + upper.value};
    }
    if (question == "dimensions")
        return Answer{S_OK, std::to_string(SafeArrayGetDim(array))};
    if (question == "memory order after putting 10*first+second")
    {
        std::string order;
        for (ULONG index = 0; index < bounds[0].cElements * bounds[1].cElements; ++index)
            order += (index ? "," : "") +
                     std::to_string(static_cast<LONG *>(static_cast<SAFEARRAY *>(array)->pvData)[index]);
        return Answer{S_OK, order};
    }
    return std::nullopt;
}

Answer AskCreate(VARTYPE element)
{
    Array const array({{1, 0}}, element);
    if (!array)
        return {E_INVALIDARG, "no array"};
    return {S_OK, "element size " + std::to_string(SafeArrayGetElemsize(array))};
}

std::optional<Answer> AskText(std::string const & question)
{
    Array const array({{2, 0}}, VT_BSTR);
    LONG const index = 0;
    LONG const second = 1;
    BSTR const mine = MakeText(OLESTR("text"));
    Answer const put{SafeArrayPutElement(array, &index, mine)};
    BSTR const stored = *static_cast<BSTR *>(static_cast<SAFEARRAY *>(array)->pvData);
    bool const isSamePointer = stored == mine;
    SysFreeString(mine);

    BSTR read = nullptr;
    Answer const get{SafeArrayGetElement(array, question.find("null") == std::string::npos ? &index : &second, &read)};
    std::string const text = read ? Narrow(read) : "null";
    SysFreeString(read);
    if (question == "PutElement")
        return put;
    if (question == "GetElement")
        return get;
    if (question == "GetElement of a null element")
        return Answer{get.result, text};
    if (question == "stored pointer is the caller's")
        return Answer{S_OK, isSamePointer ? "1" : "0"};
    if (question == "PutElement of null")
        return Answer{SafeArrayPutElement(array, &index, nullptr)};
    return std::nullopt;
}

std::optional<Answer> AskVariant(std::string const & question)
{
    Array const array({{2, 0}}, VT_VARIANT);
    LONG const index = 0;
    Cleared mine(MakeTextVariant(OLESTR("text")));
    Answer const put{SafeArrayPutElement(array, &index, mine.Get())};
    mine->bstrVal[0] = OLESTR('b');
    Cleared read(MakeBits(VT_EMPTY, 0));
    Answer const get{SafeArrayGetElement(array, &index, read.Get())};
    if (question == "PutElement")
        return put;
    if (question == "GetElement")
        return get;
    if (question == "deep copy")
        return Answer{get.result, Narrow(read->bstrVal)};
    return std::nullopt;
}

std::optional<Answer> AskVariantFunction(std::string const & function, std::string const & object)
{
    VARIANT value{};
    SAFEARRAY * const array =
        object == "an array" || object == "an unlocked array" ? SafeArrayCreateVector(VT_I4, 0, 3) : nullptr;
    if (array)
        value = MakeArrayVariant(array);
    else if (object == "an array variant without array")
        value.vt = VT_ARRAY | VT_I4;
    else if (object == "a DISPATCH variant without object")
        value.vt = VT_DISPATCH;
    else
        return std::nullopt;

    Cleared source(value);
    Cleared copy(MakeBits(VT_EMPTY, 0));
    if (function == "Clear")
    {
        HRESULT const result = VariantClear(source.Get());
        return Answer{result, "vt " + std::to_string(source->vt)};
    }
    HRESULT const result = VariantCopy(copy.Get(), source.Get());
    if (array)
        return Answer{result, copy->parray != array && *copy == *source ? "deep" : "shallow"};
    return Answer{result, "vt " + std::to_string(copy->vt)};
}

std::optional<Answer> AskSingle(std::string const & question)
{
    if (question == "AccessData of no array")
    {
        void * data = nullptr;
        return Answer{SafeArrayAccessData(nullptr, &data)};
    }
    if (question == "Create with zero dimensions")
    {
        SAFEARRAYBOUND const bound = {1, 0};
        return Answer{SafeArrayCreate(VT_I4, 0, &bound) ? S_OK : E_INVALIDARG};
    }
    if (question == "SysStringLen of null")
        return Answer{S_OK, std::to_string(SysStringLen(nullptr))};
    return std::nullopt;
}

std::optional<Answer> Ask(std::string const & question)
{
    char const * const text = question.c_str();
    SAFEARRAYBOUND first{};
    SAFEARRAYBOUND second{};
    int rest = 0;
    std::sscanf(text, "I4 one dimension of %u from %d: %n", &first.cElements, &first.lLbound, &rest);
    if (rest)
        return AskVector(text + rest, first.cElements, first.lLbound);
    std::sscanf(text, "I4 two dimensions of %u and %u from %d: %n", &first.cElements, &second.cElements, &first.lLbound,
                &rest);
    if (rest)
        return AskTable(text + rest, {first, {second.cElements, first.lLbound}});
    std::sscanf(text, "I4 two dimensions of %u from %d and %u from %d: %n", &first.cElements, &first.lLbound,
                &second.cElements, &second.lLbound, &rest);
    if (rest)
        return AskTable(text + rest, {first, second});

    auto const after = [&](std::string_view beginning) { return question.substr(beginning.size()); };
    if (question.starts_with("Create of "))
        return AskCreate(TagOf(after("Create of ")));
    if (question.starts_with("BSTR element: "))
        return AskText(after("BSTR element: "));
    if (question.starts_with("VARIANT element: "))
        return AskVariant(after("VARIANT element: "));
    if (question.starts_with("VariantClear of "))
        return AskVariantFunction("Clear", after("VariantClear of "));
    if (question.starts_with("VariantCopy of "))
        return AskVariantFunction("Copy", after("VariantCopy of "));
    return AskSingle(question);
}

} // namespace

TEST(SafeArrayVectors, EveryAnswerIsThePlatforms)
{
    VectorFile const file("safearray");
    int asked = 0;
    for (VectorRow const & row : file.GetRows())
    {
        if (row.IsDoubtful())
            continue;
        SCOPED_TRACE(row.ToString());
        std::optional<Answer> const answer = Ask(row["case"]);
        ++asked;
        if (!answer)
        {
            ADD_FAILURE() << "a question that the test does not know";
            continue;
        }
        EXPECT_EQ(answer->result, row.GetHresult());
        EXPECT_EQ(answer->value, row["value"]);
    }
    EXPECT_GT(asked, 80);
}
