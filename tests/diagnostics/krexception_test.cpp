#include <krcore/diagnostics/krexception.h>

#include "tests/diagnostics/message_box.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/virtual_slot.h"

#include <krplatform/automation/unknown.h>
#include <krplatform/base/cexception.h>
#include <krplatform/system/resource.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

namespace
{

CString const s_message(OLESTR("a"));
CString const s_file(OLESTR("f"));

CKrException Made() { return CKrException(s_message, s_file, 3, CKrException::eLevelNormal); }

/// Its texts and its answer are its own; living objects are counted.
class Derived : public CKrException
{
public:
    Derived() { ++s_living; }
    Derived(CString const & message, CString const & file, long line) : CKrException(message, file, line, eLevelLow)
    {
        ++s_living;
    }
    Derived(Derived const & other) : CKrException(other) { ++s_living; }
    ~Derived() override { --s_living; }
    Derived & operator=(Derived const &) = default;

    CString GetErrorMessage(bool withPath) const override
    {
        return (withPath ? OLESTR("derived with ") : OLESTR("derived ")) + CKrException::GetErrorMessage(withPath);
    }

    static inline int s_living = 0;
};

/// Cannot tell what happened.
class Speechless : public CKrException
{
public:
    explicit Speechless(bool byPointer) : m_byPointer(byPointer) {}
    CString GetErrorMessage(bool) const override
    {
        if (m_byPointer)
            AfxThrowOleException(E_FAIL);
        throw 1;
    }

private:
    bool m_byPointer;
};

/// Calls the operation on any pointer, also a null one, which neither warnings nor the sanitizer may see.
__attribute__((no_sanitize("undefined"), noinline)) void ThrowException(CKrException * exception)
{
    exception->CKrException::ThrowException();
}

CKrException * volatile s_null = nullptr;

} // namespace

TEST(CKrException, HasItsVirtualOperationsInTheAgreedOrder)
{
    EXPECT_TRUE((std::is_base_of_v<std::exception, CKrException>));
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrException::what), 2u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrException::ReportError), 3u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrException::GetErrorMessage), 4u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrException::GetTraceMessage), 5u);
    EXPECT_EQ(kr::test::VirtualSlotOf(&CKrException::ThrowException), 6u);
}

TEST(CKrException, HasLevelsWithTheirNumbers)
{
    EXPECT_EQ(sizeof(CKrException::ELevel), 4u);
    EXPECT_EQ(CKrException::eLevelLow, 0);
    EXPECT_EQ(CKrException::eLevelNormal, 1);
    EXPECT_EQ(CKrException::eLevelCritical, 2);
}

TEST(CKrException, StartsEmptyAtTheNormalLevel)
{
    CKrException const exception;
    EXPECT_EQ(exception.GetLevel(), CKrException::eLevelNormal);
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR(""));
    EXPECT_TRUE(exception.ShouldReportToDebugwindow());
    EXPECT_STREQ(exception.what(), "");
}

TEST(CKrException, TakesMessageLocationAndAnyLevel)
{
    for (int const number : {0, 1, 2, -7, 99})
    {
        SCOPED_TRACE(number);
        CKrException::ELevel const level = static_cast<CKrException::ELevel>(number);
        CKrException const exception(s_message, s_file, 3, level);
        EXPECT_EQ(exception.GetLevel(), level);
        EXPECT_EQ(exception.GetErrorMessage(false), OLESTR("a"));
        EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("a\nf(3): "));
        EXPECT_TRUE(exception.ShouldReportToDebugwindow());
    }
}

TEST(CKrException, ListsLocationsInTheOrderOfAdding)
{
    CKrException exception = Made();
    exception.AddPath(OLESTR("g"), 7);
    exception.AddPath(OLESTR(""), 0);
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("a\nf(3): \ng(7): \n(0): "));
    EXPECT_EQ(exception.GetErrorMessage(false), OLESTR("a"));
}

TEST(CKrException, AddsMessagesBehindALineEnd)
{
    CKrException exception = Made();
    exception.AddMessage(OLESTR("b"));
    EXPECT_EQ(exception.GetErrorMessage(false), OLESTR("a\nb"));
    exception.AddMessage(OLESTR(""));
    EXPECT_EQ(exception.GetErrorMessage(false), OLESTR("a\nb\n"));
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("a\nb\n\nf(3): "));
}

TEST(CKrException, AnEmptyTextAddedToAnEmptyMessageIsALineEnd)
{
    CKrException exception;
    exception.AddMessage(OLESTR(""));
    EXPECT_EQ(exception.GetErrorMessage(false), OLESTR("\n"));
}

TEST(CKrException, FramesItsTextForATrace)
{
    EXPECT_EQ(Made().GetTraceMessage(), OLESTR("\n*** ExceptionBegin ***\na\nf(3): \n*** ExceptionEnd ***\n\n"));
    EXPECT_EQ(CKrException().GetTraceMessage(), OLESTR("\n*** ExceptionBegin ***\n\n*** ExceptionEnd ***\n\n"));
}

TEST(CKrException, AsksADerivedClassForItsMessage)
{
    Derived const exception(s_message, s_file, 3);
    EXPECT_STREQ(exception.what(), "derived a");
    EXPECT_EQ(exception.GetTraceMessage(),
              OLESTR("\n*** ExceptionBegin ***\nderived with a\nf(3): \n*** ExceptionEnd ***\n\n"));
    kr::test::MessageBoxRecorder const box(IDOK);
    exception.ReportError(0, false);
    EXPECT_EQ(box.Text(), OLESTR("derived a"));
}

TEST(CKrException, ReportsInAMessageBoxWithoutAddingAnIcon)
{
    kr::test::MessageBoxRecorder const box(IDCANCEL);
    EXPECT_EQ(Made().ReportError(MB_YESNO, true), IDCANCEL);
    EXPECT_EQ(box.Text(), OLESTR("a\nf(3): "));
    EXPECT_EQ(box.Style(), MB_YESNO);
    EXPECT_EQ(box.HelpContext(), 0u);
    Made().ReportError(MB_ICONSTOP, false);
    EXPECT_EQ(box.Text(), OLESTR("a"));
    EXPECT_EQ(box.Style(), MB_ICONSTOP);
    CKrException().ReportError(MB_OK, true);
    EXPECT_EQ(box.Text(), OLESTR("")) << "empty text is shown as well";
    EXPECT_EQ(box.Shown(), 3);
}

TEST(CKrException, CopiesAllFields)
{
    CKrException const exception(s_message, s_file, 3, CKrException::eLevelLow);
    CKrException copy(exception);
    CKrException assigned;
    EXPECT_EQ(&(assigned = exception), &assigned);
    for (CKrException const * const made : {&copy, &assigned})
    {
        EXPECT_EQ(made->GetLevel(), CKrException::eLevelLow);
        EXPECT_EQ(made->GetErrorMessage(true), OLESTR("a\nf(3): "));
        EXPECT_TRUE(made->ShouldReportToDebugwindow());
    }
    copy.AddPath(OLESTR("g"), 7);
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("a\nf(3): "));
    CKrException & same = copy;
    copy = same;
    EXPECT_EQ(copy.GetErrorMessage(true), OLESTR("a\nf(3): \ng(7): "));
}

TEST(CKrException, WhatIsTheMessageWithoutLocations)
{
    CKrException const exception = Made();
    std::exception const & base = exception;
    EXPECT_STREQ(base.what(), "a");
}

TEST(CKrException, WhatOfAnotherExceptionReplacesTheText)
{
    std::string const first = Made().what();
    CKrException const other(OLESTR("b"), s_file, 3, CKrException::eLevelNormal);
    EXPECT_EQ(first, "a");
    EXPECT_STREQ(other.what(), "b");
    Derived const derived(OLESTR("c"), s_file, 3);
    EXPECT_STREQ(derived.what(), "derived c") << "a derived class without a what of its own shares the text";
    EXPECT_STREQ(other.what(), "b");
}

TEST(CKrException, WhatIsEmptyWhereTheMessageCannotBeMade)
{
    std::size_t const before = kr::test::LiveAllocations();
    EXPECT_STREQ(Speechless(true).what(), "");
    EXPECT_STREQ(Speechless(false).what(), "");
    EXPECT_EQ(kr::test::LiveAllocations(), before) << "what was caught is freed";
    CKrException const exception = Made();
    {
        kr::test::FailNthAllocation const fail(1);
        EXPECT_STREQ(exception.what(), "");
    }
    EXPECT_STREQ(exception.what(), "a");
}

TEST(CKrException, ThrowExceptionFreesTheObjectAndThrowsACopy)
{
    Derived * const exception = new Derived(s_message, s_file, 3);
    try
    {
        exception->ThrowException();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & thrown)
    {
        EXPECT_EQ(Derived::s_living, 0);
        EXPECT_EQ(typeid(thrown), typeid(CKrException)) << "the class that throws, not that of the object";
        EXPECT_EQ(thrown.GetLevel(), CKrException::eLevelLow);
        EXPECT_EQ(thrown.GetErrorMessage(true), OLESTR("a\nf(3): "));
    }
}

TEST(CKrException, ThrowExceptionOnANullPointerThrowsADefaultException)
{
    try
    {
        ThrowException(s_null);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & thrown)
    {
        EXPECT_EQ(thrown.GetLevel(), CKrException::eLevelNormal);
        EXPECT_EQ(thrown.GetErrorMessage(true), OLESTR(""));
    }
}

TEST(CKrException, ThrowExceptionFreesTheObjectAlsoWhenMemoryRunsOut)
{
    std::size_t const failures = kr::test::FailEveryAllocation(
        []
        {
            Derived * const exception = new Derived(s_message, s_file, 3);
            try
            {
                exception->ThrowException();
            }
            catch (CKrException &)
            {
            }
        },
        [] { EXPECT_ANY_THROW(throw); });
    EXPECT_GT(failures, 3u);
    EXPECT_EQ(Derived::s_living, 0);
}

TEST(CKrException, FormatsTextByAGivenFormat)
{
    EXPECT_EQ(CKrException::FormatText(OLESTR("%s has %d layers, %.2f m"), s_message.GetString(), 3, 2.25),
              OLESTR("a has 3 layers, 2.25 m"));
    EXPECT_EQ(CKrException::FormatText(OLESTR("plain")), OLESTR("plain"));
    EXPECT_EQ(CKrException::FormatText(OLESTR("")), OLESTR(""));
    EXPECT_EQ(CKrException::FormatText(s_message), OLESTR("a"));
}

TEST(CKrException, FormatsTextByAStringResource)
{
    EXPECT_EQ(CKrException::FormatText(100L, s_message.GetString(), 3, 2.25), OLESTR("a has 3 layers, 2.25 m"));
    EXPECT_EQ(CKrException::FormatText(101), OLESTR("plain"));
    EXPECT_EQ(CKrException::FormatText(999), OLESTR("")) << "a missing resource";
}

TEST(CKrException, ANullFormatIsAnInvalidArgument)
{
    WCHAR const * const none = nullptr;
    try
    {
        CKrException::FormatText(none);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (COleException * exception)
    {
        EXPECT_EQ(exception->m_sc, E_INVALIDARG);
        exception->Delete();
    }
}

TEST(CKrException, RaisesTheMemoryExceptionWhenMemoryRunsOut)
{
    auto const check = [] { EXPECT_THROW(throw, CMemoryException *); };
    EXPECT_GT(kr::test::FailEveryAllocation([] { CKrException const exception = Made(); }, check), 0u);

    CKrException const exception = Made();
    EXPECT_GT(kr::test::FailEveryAllocation([&] { CKrException const copy(exception); }, check), 0u);
}

TEST(CKrException, StaysAsItWasWhenMemoryRunsOut)
{
    CKrException exception = Made();
    CKrException const other(OLESTR("other"), OLESTR("g"), 7, CKrException::eLevelLow);
    auto const check = [&exception]
    {
        EXPECT_THROW(throw, CMemoryException *);
        EXPECT_EQ(exception.GetLevel(), CKrException::eLevelNormal);
        EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("a\nf(3): "));
    };
    EXPECT_GT(kr::test::FailEveryAllocation([&] { exception.AddMessage(OLESTR("b")); }, check), 0u);
    exception = Made();
    EXPECT_GT(kr::test::FailEveryAllocation([&] { exception.AddPath(OLESTR("g"), 7); }, check), 0u);
    exception = Made();
    EXPECT_GT(kr::test::FailEveryAllocation([&] { exception = other; }, check), 0u);
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("other\ng(7): "));
}
