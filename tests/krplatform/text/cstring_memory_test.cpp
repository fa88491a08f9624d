// What happens when memory runs out: CMemoryException * is thrown, the text stays as it was, nothing is left behind.
#include <krplatform/automation/variant.h>
#include <krplatform/base/cexception.h>
#include <krplatform/text/bstr.h>
#include <krplatform/text/cstring.h>

#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

namespace
{

struct Operation
{
    char const * name;
    std::function<void(CString &)> apply;
};

void CheckMemoryException()
{
    try
    {
        throw;
    }
    catch (CMemoryException * exception)
    {
        exception->Delete();
    }
}

/// Applies the operation to the text with every allocation failing in turn.
std::size_t FailEveryAllocationOf(Operation const & operation, CString const & original, bool isShared)
{
    return kr::test::FailEveryAllocation(
        [&]
        {
            CString text = isShared ? original : CString(original.GetString());
            try
            {
                operation.apply(text);
            }
            catch (...)
            {
                EXPECT_EQ(text, original);
                throw;
            }
        },
        CheckMemoryException);
}

CString const & LongText()
{
    static CString const text(OLESTR('x'), 300);
    return text;
}

} // namespace

TEST(CStringMemory, EveryOperationKeepsTheOldTextWhenMemoryRunsOut)
{
    // clang-format off
    Operation const operations[] = {
        { "Construct",       [](CString &) { CString const other(OLESTR("new text")); } },
        { "ConstructUnits",  [](CString &) { CString const other(OLESTR('x'), 9); } },
        { "ConstructNarrow", [](CString &) { CString const other("new text"); } },
        { "ConstructWide",   [](CString &) { CString const other(L"new text"); } },
        { "Assign",          [](CString & text) { text = LongText().GetString(); } },
        { "AssignUnit",      [](CString & text) { CString const copy(text); text = OLESTR('x'); } },
        { "AssignNarrow",    [](CString & text) { text = "new text"; } },
        { "Append",          [](CString & text) { text += LongText(); } },
        { "AppendNarrow",    [](CString & text) { text += "a narrow text that needs more room"; } },
        { "AppendChar",      [](CString & text) { text.AppendChar(OLESTR('x')); } },
        { "Plus",            [](CString & text) { text = text + OLESTR('-') + text + OLESTR("-") + LongText(); } },
        { "Concatenate",     [](CString & text) { CString::Concatenate(text, text, 2, OLESTR("abc"), 3); } },
        { "SetAt",           [](CString & text) { CString const copy(text); text.SetAt(0, OLESTR('x')); } },
        { "GetBuffer",       [](CString & text) { text.GetBuffer(400); } },
        { "GetBufferSet",    [](CString & text) { text.GetBufferSetLength(400); } },
        { "Preallocate",     [](CString & text) { text.Preallocate(400); } },
        { "FreeExtra",       [](CString & text) { text.Preallocate(400); text.FreeExtra(); } },
        { "Truncate",        [](CString & text) { CString const copy(text); text.Truncate(1); } },
        { "Parts",           [](CString & text) { text.Left(1); text.Right(1); text.Mid(1, 2); } },
        { "Spans",           [](CString & text) { text.SpanIncluding(OLESTR(" a")); text.SpanExcluding(OLESTR("c")); } },
        { "Tokenize",        [](CString & text) { int start = 0; text.Tokenize(OLESTR(" "), start); } },
        { "ReplaceText",     [](CString & text) { text.Replace(OLESTR("b"), LongText()); } },
        { "ReplaceUnit",     [](CString & text) { CString const copy(text); text.Replace(OLESTR('b'), OLESTR('x')); } },
        { "Remove",          [](CString & text) { CString const copy(text); text.Remove(OLESTR('b')); } },
        { "Insert",          [](CString & text) { text.Insert(1, LongText()); } },
        { "InsertItself",    [](CString & text) { text.Insert(1, text); } },
        { "Delete",          [](CString & text) { CString const copy(text); text.Delete(1); } },
        { "Trim",            [](CString & text) { CString const copy(text); text.Trim(); } },
        { "MakeUpper",       [](CString & text) { CString const copy(text); text.MakeUpper(); } },
        { "MakeReverse",     [](CString & text) { CString const copy(text); text.MakeReverse(); } },
        { "Format",          [](CString & text) { text.Format(OLESTR("%s%s%400d"), text, text, 5); } },
        { "FormatNarrow",    [](CString & text) { text.Format(OLESTR("%400S"), "abc"); } },
        { "AppendFormat",    [](CString & text) { text.AppendFormat(OLESTR("%400d"), 5); } },
        { "ToNarrow",        [](CString & text) { CStringA const narrow(text); } },
        { "AllocSysString",  [](CString & text) { SysFreeString(text.AllocSysString()); } },
    };
    // clang-format on
    CString const original(OLESTR(" abc abc "));
    LongText();
    for (Operation const & operation : operations)
    {
        SCOPED_TRACE(operation.name);
        EXPECT_GT(FailEveryAllocationOf(operation, original, true), 0u);
        EXPECT_GT(FailEveryAllocationOf(operation, original, false), 0u);
    }
}

TEST(CStringMemory, ConversionOfAVariantLeavesNothingBehind)
{
    VARIANT number;
    VariantInit(&number);
    number.vt = VT_I4;
    number.lVal = 12345;
    CString const warm(number);
    ASSERT_EQ(warm, OLESTR("12345"));
    EXPECT_GT(kr::test::FailEveryAllocation([&] { CString const text(number); }, CheckMemoryException), 0u);
}

TEST(CStringMemory, LengthsBeyondAllMemoryAreMemoryRunningOut)
{
    CString text(OLESTR("abc"));
    EXPECT_THROW(text.GetBuffer(INT_MAX), CMemoryException *);
    EXPECT_EQ(text, OLESTR("abc"));
}
