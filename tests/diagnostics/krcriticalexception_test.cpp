#include <krcore/diagnostics/krcriticalexception.h>

#include "tests/support/failing_allocator.h"

#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <typeinfo>

namespace
{

CString const s_message(OLESTR("a"));
CString const s_file(OLESTR("f"));

/// Reaches the default constructor.
class Derived : public CKrCriticalException
{
public:
    Derived() = default;
};

/// Calls the operation on any pointer, also a null one, which neither warnings nor the sanitizer may see.
__attribute__((no_sanitize("undefined"), noinline)) void ThrowException(CKrCriticalException * exception)
{
    exception->CKrCriticalException::ThrowException();
}

CKrCriticalException * volatile s_null = nullptr;

} // namespace

TEST(CKrCriticalException, AddsNothingToTheDataOfItsBase)
{
    EXPECT_TRUE((std::is_base_of_v<CKrException, CKrCriticalException>));
    EXPECT_EQ(sizeof(CKrCriticalException), sizeof(CKrException));
}

TEST(CKrCriticalException, IsOfTheCriticalLevel)
{
    CKrCriticalException const exception(s_message, s_file, 3);
    EXPECT_EQ(exception.GetLevel(), CKrException::eLevelCritical);
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("a\nf(3): "));
    EXPECT_EQ(exception.GetErrorMessage(false), OLESTR("a"));
    EXPECT_EQ(exception.GetTraceMessage(), OLESTR("\n*** ExceptionBegin ***\na\nf(3): \n*** ExceptionEnd ***\n\n"));
    EXPECT_TRUE(exception.ShouldReportToDebugwindow());
}

TEST(CKrCriticalException, IsOfTheNormalLevelWhenADerivedClassMakesItWithoutArguments)
{
    EXPECT_FALSE(std::is_default_constructible_v<CKrCriticalException>);
    Derived const exception;
    EXPECT_EQ(exception.GetLevel(), CKrException::eLevelNormal);
    EXPECT_EQ(exception.GetErrorMessage(true), OLESTR(""));
}

TEST(CKrCriticalException, CopiesAllFields)
{
    CKrCriticalException const exception(s_message, s_file, 3);
    CKrCriticalException const copy(exception);
    CKrCriticalException assigned(OLESTR("b"), OLESTR("g"), 7);
    EXPECT_EQ(&(assigned = exception), &assigned);
    EXPECT_EQ(copy.GetErrorMessage(true), OLESTR("a\nf(3): "));
    EXPECT_EQ(assigned.GetErrorMessage(true), OLESTR("a\nf(3): "));
    EXPECT_EQ(assigned.GetLevel(), CKrException::eLevelCritical);
}

TEST(CKrCriticalException, WhatHasTheLocations)
{
    CKrCriticalException const exception(s_message, s_file, 3);
    std::exception const & base = exception;
    EXPECT_STREQ(base.what(), "a\nf(3): ");
}

TEST(CKrCriticalException, KeepsTheTextOfWhatApartFromThatOfItsBase)
{
    CKrCriticalException const critical(s_message, s_file, 3);
    CKrException const plain(OLESTR("b"), s_file, 3, CKrException::eLevelNormal);
    char const * const text = critical.what();
    EXPECT_STREQ(plain.what(), "b");
    EXPECT_STREQ(text, "a\nf(3): ") << "still valid";
}

TEST(CKrCriticalException, WhatIsEmptyWhenMemoryRunsOut)
{
    CKrCriticalException const exception(s_message, s_file, 3);
    kr::test::FailNthAllocation const fail(1);
    EXPECT_STREQ(exception.what(), "");
}

TEST(CKrCriticalException, ThrowExceptionThrowsItsOwnClass)
{
    CKrException * const exception = new CKrCriticalException(s_message, s_file, 3);
    try
    {
        exception->ThrowException();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & thrown)
    {
        EXPECT_EQ(typeid(thrown), typeid(CKrCriticalException));
        EXPECT_EQ(thrown.GetLevel(), CKrException::eLevelCritical);
        EXPECT_EQ(thrown.GetErrorMessage(true), OLESTR("a\nf(3): "));
    }
}

TEST(CKrCriticalException, ThrowExceptionFreesTheObject)
{
    std::size_t const failures = kr::test::FailEveryAllocation(
        []
        {
            CKrCriticalException * const exception = new CKrCriticalException(s_message, s_file, 3);
            try
            {
                exception->ThrowException();
            }
            catch (CKrCriticalException &)
            {
            }
        },
        [] { EXPECT_ANY_THROW(throw); });
    EXPECT_GT(failures, 3u);
}

TEST(CKrCriticalException, ThrowExceptionOnANullPointerThrowsADefaultException)
{
    try
    {
        ThrowException(s_null);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrCriticalException & thrown)
    {
        EXPECT_EQ(thrown.GetLevel(), CKrException::eLevelNormal);
        EXPECT_EQ(thrown.GetErrorMessage(true), OLESTR(""));
    }
}
