// Automation values where memory runs out.
#include <krplatform/automation/bstr_t.h>
#include <krplatform/automation/colesafearray.h>
#include <krplatform/automation/colevariant.h>
#include <krplatform/automation/com_error.h>
#include <krplatform/base/cexception.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/memory/failing_rows.h"
#include "tests/support/text.h"

#include <utility>

using namespace kr::test;

namespace
{

constexpr WCHAR const * letters = OLESTR("some letters");

/// The value as a text; for arrays its elements.
std::string StateOf(VARIANT const & value)
{
    if (value.vt == VT_BSTR)
        return Narrow(TextOf(value.bstrVal)) + "|";
    if (!(value.vt & VT_ARRAY) || !value.parray)
        return Described(value.vt, value.llVal);
    LONG lower = 0, upper = 0;
    SafeArrayGetLBound(value.parray, 1, &lower);
    SafeArrayGetUBound(value.parray, 1, &upper);
    std::string text = Described(value.vt, SafeArrayGetDim(value.parray), lower, upper, value.parray->cLocks);
    if (value.vt != (VT_ARRAY | VT_BSTR) || SafeArrayGetDim(value.parray) != 1)
        return text;
    auto const * const elements = static_cast<BSTR const *>(value.parray->pvData);
    for (LONG index = 0; index <= upper - lower; ++index)
        text += Narrow(TextOf(elements[index])) + "|";
    return text;
}

SAFEARRAY * MakeTexts()
{
    SAFEARRAY * const array = SafeArrayCreateVector(VT_BSTR, 0, 2);
    auto * const elements = static_cast<BSTR *>(array->pvData);
    elements[0] = MakeText(OLESTR("one"));
    elements[1] = MakeText(OLESTR("two"));
    return array;
}

VARIANT const & Texts()
{
    static Cleared const texts(MakeArrayVariant(MakeTexts()));
    return *texts;
}

VARIANT const & Word()
{
    static Cleared const word(MakeTextVariant(letters));
    return *word;
}

struct Value
{
    VARIANT value{};

    Value() = default;
    explicit Value(VARIANT start) : value(start) {}
    Value(Value const &) = delete;
    Value & operator=(Value const &) = delete;
    ~Value() { VariantClear(&value); }

    operator VARIANT *() { return &value; }
};

std::string StateOf(Value const & subject) { return StateOf(subject.value); }

/// Whether it is a success; the only failure is want of memory.
bool Succeeds(HRESULT result)
{
    EXPECT_TRUE(result == S_OK || result == E_OUTOFMEMORY) << std::hex << result;
    return result == S_OK;
}

constexpr SAFEARRAYBOUND threeFromOne = {3, 1};
constexpr LONG first[] = {0};

} // namespace

TEST(VariantMemory, AnswersWithTheResult)
{
    static VARIANT const number = MakeR8(2.5);
    static VARIANT const date = []
    {
        VARIANT made = MakeR8(44197.75);
        made.vt = VT_DATE;
        return made;
    }();
    // clang-format off
    ExpectRows([] { return Value(MakeTextVariant(OLESTR("25"))); }, [](Value const & value) { return StateOf(value); },
               std::vector<Row<Value>>{
        { "VariantCopy text",    tellsIt, kept, [](VARIANT * value) { return Succeeds(VariantCopy(value, &Word())); } },
        { "VariantCopy array",   tellsIt, kept, [](VARIANT * value) { return Succeeds(VariantCopy(value, &Texts()) ); } },
        { "VariantChangeType",   tellsIt, kept, [](VARIANT * value) { return Succeeds(VariantChangeType(value, &number, 0, VT_BSTR)); } },
        { "VariantChangeTypeEx", tellsIt, kept, [](VARIANT * value) { return Succeeds(VariantChangeTypeEx(value, &date, 1031, 0, VT_BSTR)); } },
        { "the same type",       tellsIt, kept, [](VARIANT * value) { return Succeeds(VariantChangeType(value, &Word(), 0, VT_BSTR)); } },
    });
    // clang-format on
}

TEST(SafeArrayMemory, AnswersWithTheResultOrNull)
{
    static constexpr SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 0}};
    struct Array : Value
    {
        Array() : Value(MakeArrayVariant(MakeTexts())) {}

        bool Take(SAFEARRAY * array)
        {
            if (!array)
                return false;
            VariantClear(&value);
            value = MakeArrayVariant(array);
            return true;
        }
    };
    // clang-format off
    ExpectRows([] { return Array(); }, [](Array const & array) { return StateOf(array); }, std::vector<Row<Array>>{
        { "SafeArrayCreate",       tellsIt, kept, [](Array & array) { return array.Take(SafeArrayCreate(VT_I4, 2, bounds)); } },
        { "SafeArrayCreateVector", tellsIt, kept, [](Array & array) { return array.Take(SafeArrayCreateVector(VT_I4, 1, 3)); } },
        { "SafeArrayRedim",        tellsIt, kept, [](Array & array) { return Succeeds(SafeArrayRedim(array.value.parray, &threeFromOne)); } },
        { "SafeArrayPutElement",   tellsIt, kept, [](Array & array) { return Succeeds(SafeArrayPutElement(array.value.parray, first, Word().bstrVal)); } },
        { "SafeArrayCopy",         tellsIt, kept, [](Array & array)
          {
              SAFEARRAY * copy = nullptr;
              bool const succeeded = Succeeds(SafeArrayCopy(array.value.parray, &copy));
              EXPECT_EQ(copy != nullptr, succeeded);
              SafeArrayDestroy(copy);
              return succeeded;
          } },
        { "SafeArrayGetElement",   tellsIt, kept, [](Array & array)
          {
              BSTR element = nullptr;
              bool const succeeded = Succeeds(SafeArrayGetElement(array.value.parray, first, &element));
              EXPECT_EQ(element != nullptr, succeeded);
              SysFreeString(element);
              return succeeded;
          } },
    });
    // clang-format on
}

TEST(SafeArrayMemory, AnswersWithTheResultForVariantsInside)
{
    struct Variants : Value
    {
        Variants() : Value(MakeArrayVariant(SafeArrayCreateVector(VT_VARIANT, 0, 2)))
        {
            SafeArrayPutElement(value.parray, first, &Word());
        }
    };
    auto const stateOf = [](Variants const & array)
    { return StateOf(static_cast<VARIANT const *>(array.value.parray->pvData)[0]); };
    // clang-format off
    ExpectRows([] { return Variants(); }, stateOf, std::vector<Row<Variants>>{
        { "SafeArrayPutElement", tellsIt, kept, [](Variants & array) { return Succeeds(SafeArrayPutElement(array.value.parray, first, &Texts())); } },
        { "SafeArrayGetElement", tellsIt, kept, [](Variants & array)
          {
              Value element;
              return Succeeds(SafeArrayGetElement(array.value.parray, first, &element.value));
          } },
        { "SafeArrayCopy",       tellsIt, kept, [](Variants & array)
          {
              SAFEARRAY * copy = nullptr;
              bool const succeeded = Succeeds(SafeArrayCopy(array.value.parray, &copy));
              SafeArrayDestroy(copy);
              return succeeded;
          } },
    });
    // clang-format on
}

TEST(COleVariantMemory, KeepsTheValue)
{
    static COleVariant const word(Word());
    static CString const text(letters);
    static COleVariant number(2.5);
    // clang-format off
    ExpectRows([] { return COleVariant(25.0); }, [](VARIANT const & value) { return StateOf(value); }, std::vector<Row<COleVariant>>{
        { "= VARIANT",          throwsMemory, kept, [](COleVariant & value) { value = Word(); } },
        { "= COleVariant",      throwsMemory, kept, [](COleVariant & value) { value = word; } },
        { "= array",            throwsMemory, kept, [](COleVariant & value) { value = Texts(); } },
        { "= units",            throwsMemory, kept, [](COleVariant & value) { value = letters; } },
        { "= CString",          throwsMemory, kept, [](COleVariant & value) { value = text; } },
        { "ChangeType",         throwsMemory, kept, [](COleVariant & value) { value.ChangeType(VT_BSTR); } },
        { "ChangeType of other", throwsMemory, kept, [](COleVariant & value) { value.ChangeType(VT_BSTR, &number); } },
    });
    ExpectRows({
        { "VARIANT",     throwsMemory, kept, [](Nothing) { COleVariant const made(Word()); } },
        { "VARIANT *",   throwsMemory, kept, [](Nothing) { COleVariant const made(&Texts()); } },
        { "COleVariant", throwsMemory, kept, [](Nothing) { COleVariant const made(word); } },
        { "units",       throwsMemory, kept, [](Nothing) { COleVariant const made(letters); } },
        { "CString",     throwsMemory, kept, [](Nothing) { COleVariant const made(text); } },
    });
    // clang-format on
}

TEST(COleSafeArrayMemory, KeepsTheArray)
{
    static constexpr DWORD counts[] = {2, 3, 1, 1, 1};
    static constexpr SAFEARRAYBOUND bounds[] = {{2, 0}, {3, 0}};
    static constexpr LONG numbers[] = {1, 2, 3};
    static COleSafeArray const texts(Texts());
    static COleSafeArray const deep = []
    {
        COleSafeArray made;
        made.Create(VT_I4, 5, counts);
        return made;
    }();
    static constexpr long deepIndices[] = {0, 0, 0, 0, 0};
    // clang-format off
    ExpectRows([] { return COleSafeArray(Texts()); }, [](VARIANT const & value) { return StateOf(value); },
               std::vector<Row<COleSafeArray>>{
        { "= COleSafeArray", throwsMemory, kept, [](COleSafeArray & array) { array = deep; } },
        { "= VARIANT",       throwsMemory, kept, [](COleSafeArray & array) { array = static_cast<VARIANT const &>(deep); } },
        { "Create counts",   throwsMemory, kept, [](COleSafeArray & array) { array.Create(VT_I4, 2, counts); } },
        { "Create bounds",   throwsMemory, kept, [](COleSafeArray & array) { array.Create(VT_I4, 2, bounds); } },
        { "CreateOneDim",    throwsMemory, kept, [](COleSafeArray & array) { array.CreateOneDim(VT_I4, 3, numbers, 1); } },
        { "ResizeOneDim",    throwsMemory, kept, [](COleSafeArray & array) { array.ResizeOneDim(5); } },
        { "Redim",           throwsMemory, kept, [](COleSafeArray & array) { array.Redim(&threeFromOne); } },
        { "PutElement",      throwsMemory, kept, [](COleSafeArray & array) { array.PutElement(first, Word().bstrVal); } },
        { "GetElement",      throwsMemory, kept, [](COleSafeArray & array)
          {
              BSTR element = nullptr;
              array.GetElement(first, &element);
              SysFreeString(element);
          } },
    });
    ExpectRows({
        { "VARIANT *",       throwsMemory, kept, [](Nothing) { COleSafeArray const made(&Texts()); } },
        { "VARIANT",         throwsMemory, kept, [](Nothing) { COleSafeArray const made(Texts()); } },
        { "SAFEARRAY",       throwsMemory, kept, [](Nothing) { COleSafeArray const made(Texts().parray, VT_BSTR); } },
        { "COleSafeArray",   throwsMemory, kept, [](Nothing) { COleSafeArray const made(texts); } },
        { "many indices",    throwsMemory, kept, [](Nothing) { LONG element = 0; deep.GetElement(deepIndices, &element); } },
    });
    // clang-format on
}

TEST(BstrTMemory, KeepsTheText)
{
    static _bstr_t const other("floor");
    struct Shared
    {
        _bstr_t text;
        _bstr_t copy;
    };
    auto const make = []
    {
        _bstr_t const text(letters);
        return Shared{text, text};
    };
    auto const stateOf = [](Shared const & shared) { return Narrow(shared.text) + '|' + Narrow(shared.copy); };
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<Shared>>{
        { "= bytes",   throwsComError, kept, [](Shared & shared) { shared.text = "new"; } },
        { "= units",   throwsComError, kept, [](Shared & shared) { shared.text = OLESTR("new"); } },
        { "+=",        throwsComError, kept, [](Shared & shared) { shared.text += other; } },
        { "to bytes",  throwsComError, kept, [](Shared & shared) { static_cast<void>(static_cast<char const *>(shared.text)); } },
        { "Detach",    throwsComError, kept, [](Shared & shared) { SysFreeString(shared.text.Detach()); } },
        { "copy",      throwsComError, kept, [](Shared & shared) { SysFreeString(shared.text.copy()); } },
        { "+",         throwsComError, kept, [](Shared & shared) { static_cast<void>(shared.text + other); } },
    });
    ExpectRows({
        { "bytes",     throwsComError, kept, [](Nothing) { _bstr_t const made("wall"); } },
        { "units",     throwsComError, kept, [](Nothing) { _bstr_t const made(letters); } },
        { "BSTR copy", throwsComError, kept, [](Nothing) { _bstr_t const made(Word().bstrVal, true); } },
    });
    // clang-format on
}

TEST(BstrTMemory, LeavesATextThatCannotBeTakenOverToTheCaller)
{
    struct Owner
    {
        BSTR text = SysAllocString(letters);
        _bstr_t taken;

        Owner() = default;
        Owner(Owner const &) = delete;
        Owner & operator=(Owner const &) = delete;
        ~Owner() { SysFreeString(text); }
    };
    auto const stateOf = [](Owner const & owner) { return Narrow(owner.text) + '|' + Narrow(owner.taken); };
    auto const take = [](Owner & owner)
    {
        owner.taken = _bstr_t(owner.text, false);
        owner.text = nullptr;
    };
    ExpectRows([] { return Owner(); }, stateOf, std::vector<Row<Owner>>{{"BSTR", throwsComError, kept, take}});
}

TEST(ComErrorMemory, ThrowsAnotherInItsPlace)
{
    // Hands out texts that were made before, so that its own memory takes no part.
    struct Told final : IErrorInfo
    {
        Told() = default;
        Told(Told const &) = delete;
        Told & operator=(Told const &) = delete;
        ~Told()
        {
            for (BSTR const text : texts)
                SysFreeString(text);
        }

        HRESULT QueryInterface(REFIID, void **) override { return E_NOINTERFACE; }
        ULONG AddRef() override { return 1; }
        ULONG Release() override { return 1; }
        HRESULT GetGUID(GUID *) override { return E_NOTIMPL; }
        HRESULT GetSource(BSTR * text) override { return Give(text); }
        HRESULT GetDescription(BSTR * text) override { return Give(text); }
        HRESULT GetHelpFile(BSTR *) override { return E_NOTIMPL; }
        HRESULT GetHelpContext(DWORD *) override { return E_NOTIMPL; }
        HRESULT Give(BSTR * text)
        {
            *text = std::exchange(texts[texts[0] ? 0 : 1], nullptr);
            return S_OK;
        }

        BSTR texts[2] = {SysAllocString(letters), SysAllocString(letters)};
    };
    static constexpr HRESULT ownOfAnInterface = kr::detail::HresultFromCode(0x80040205);
    static constexpr HRESULT unknown = kr::detail::HresultFromCode(0xA0001234);
    // clang-format off
    ExpectRows([] { return Told(); }, [](Told const &) { return std::string(); }, std::vector<Row<Told>>{
        { "Description",  throwsComError, kept, [](Told & told) { static_cast<void>(_com_error(E_FAIL, &told).Description()); } },
        { "Source",       throwsComError, kept, [](Told & told) { static_cast<void>(_com_error(E_FAIL, &told).Source()); } },
    });
    ExpectRows({
        { "message",      throwsComError, kept, [](Nothing) { _com_error(E_FAIL).ErrorMessage(); } },
        { "own message",  throwsComError, kept, [](Nothing) { _com_error(ownOfAnInterface).ErrorMessage(); } },
        { "unknown",      throwsComError, kept, [](Nothing) { _com_error(unknown).ErrorMessage(); } },
    });
    // clang-format on
}

TEST(CExceptionMemory, ThrowsTheMemoryExceptionInPlaceOfANewOne)
{
    auto const raised = [](auto raise)
    {
        try
        {
            raise();
        }
        catch (COleException * exception)
        {
            exception->Delete();
        }
    };
    // clang-format off
    ExpectRows({
        { "AfxThrowOleException", throwsMemory, kept, [raised](Nothing) { raised([] { AfxThrowOleException(E_FAIL); }); } },
        { "AtlThrow",             throwsMemory, kept, [raised](Nothing) { raised([] { AtlThrow(E_FAIL); }); } },
        { "COleException",        throwsBadAlloc, kept, [](Nothing) { (new COleException)->Delete(); } },
    });
    // clang-format on
}
