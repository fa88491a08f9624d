#include <krcore/diagnostics/krexception_guard.h>

#include <krcore/diagnostics/krcriticalexception.h>

#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/automation/com_error.h>
#include <krplatform/base/cexception.h>
#include <krplatform/codepage/codepage.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>
#include <typeinfo>

namespace
{

/// A platform exception that counts its living objects and looks at what it is asked for.
class PlatformException : public CException
{
public:
    explicit PlatformException(std::basic_string<WCHAR> message) : m_message(std::move(message)) { ++s_living; }
    ~PlatformException() override { --s_living; }

    BOOL GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext) const override
    {
        EXPECT_EQ(size, 255u);
        EXPECT_EQ(helpContext, nullptr);
        std::size_t const length = std::min<std::size_t>(m_message.size(), size - 1);
        m_message.copy(text, length);
        text[length] = 0;
        return !m_message.empty();
    }

    static inline int s_living = 0;

private:
    std::basic_string<WCHAR> m_message;
};

/// Tells nothing and leaves the buffer as it is.
class SilentPlatformException : public CException
{
public:
    BOOL GetErrorMessage(WCHAR *, UINT, UINT *) const override { return FALSE; }
};

class ClientException : public CKrException
{
public:
    ClientException() : CKrException(OLESTR("client"), OLESTR("c"), 1, eLevelLow) {}
};

class WithoutWhat : public std::exception
{
public:
    char const * what() const noexcept override { return nullptr; }
};

char s_narrow[] = "narrow";

void ThrowNothing() {}
void ThrowCritical() { throw CKrCriticalException(OLESTR("crit"), OLESTR("c"), 1); }
void ThrowKrException() { throw CKrException(OLESTR("kr"), OLESTR("k"), 2, CKrException::eLevelLow); }
void ThrowEmptyKrException() { throw CKrException(); }
void ThrowPlatform() { throw new PlatformException(OLESTR("mfc")); }
void ThrowLongPlatform() { throw new PlatformException(std::basic_string<WCHAR>(400, OLESTR('x'))); }
void ThrowSilentPlatform() { throw new SilentPlatformException; }
void ThrowNullPlatform() { throw static_cast<CException *>(nullptr); }
void ThrowNullPointer() { throw nullptr; }
void ThrowMemory() { AfxThrowMemoryException(); }
void ThrowComError() { throw _com_error(static_cast<HRESULT>(0x80040205u)); }
void ThrowUnknownComError() { throw _com_error(static_cast<HRESULT>(0x8ABC0001u)); }
void ThrowStandard() { throw std::runtime_error("std"); }
void ThrowBadAlloc() { throw std::bad_alloc(); }
void ThrowWithoutWhat() { throw WithoutWhat(); }
void ThrowNarrow() { throw static_cast<char *>(s_narrow); }
void ThrowNullNarrow() { throw static_cast<char *>(nullptr); }
void ThrowConstNarrow() { throw "literal"; }
void ThrowInt() { throw 5; }
void ThrowKrPointer()
{
    static CKrException exception;
    throw &exception;
}

using Operation = void (*)();

void Guarded(Operation operation)
{
    try
    {
        operation();
    }
    KR_CATCH_ALL("g", 7)
}

void GuardedWithText(Operation operation)
{
    try
    {
        operation();
    }
    KR_CATCH_ALL_TEXT("g", 7, "text")
}

void GuardedWithEmptyText(Operation operation)
{
    try
    {
        operation();
    }
    KR_CATCH_ALL_TEXT("g", 7, "")
}

CString const s_cutMessage = OLESTR("MFC_EXCEPTION::") + CString(OLESTR('x'), 254);

struct Row
{
    Operation throwIt;
    WCHAR const * message; ///< without the text of the guard
    bool hasLineEnd;       ///< whether the guard without a text adds a line end
    CKrException::ELevel level;
    WCHAR const * locations; ///< that it had before it met the guard
};

constexpr CKrException::ELevel low = CKrException::eLevelLow;
constexpr CKrException::ELevel normal = CKrException::eLevelNormal;
constexpr CKrException::ELevel critical = CKrException::eLevelCritical;

// clang-format off
Row const s_rows[] = {
    // thrown                message                                         end?   level     location before
    { ThrowCritical,         OLESTR("crit"),                                 true,  critical, OLESTR("\nc(1): ") },
    { ThrowKrException,      OLESTR("kr"),                                   false, low,      OLESTR("\nk(2): ") },
    { ThrowEmptyKrException, OLESTR(""),                                     false, normal,   OLESTR("") },
    { ThrowPlatform,         OLESTR("MFC_EXCEPTION::mfc"),                   true,  normal,   OLESTR("") },
    // room for 254 characters and a zero
    { ThrowLongPlatform,     s_cutMessage,                                   true,  normal,   OLESTR("") },
    { ThrowSilentPlatform,   OLESTR("MFC_EXCEPTION::"),                      true,  normal,   OLESTR("") },
    { ThrowNullPlatform,     OLESTR("MFC_EXCEPTION::"),                      true,  normal,   OLESTR("") },
    // converts to any pointer, so to the first in the row
    { ThrowNullPointer,      OLESTR("MFC_EXCEPTION::"),                      true,  normal,   OLESTR("") },
    { ThrowMemory,           OLESTR("MFC_EXCEPTION::Out of memory."),        true,  normal,   OLESTR("") },
    { ThrowComError,         OLESTR("_EXCEPTION::IDispatch error #5"),       true,  normal,   OLESTR("") },
    { ThrowUnknownComError,  OLESTR("_EXCEPTION::Unknown error 0x8ABC0001"), true,  normal,   OLESTR("") },
    { ThrowStandard,         OLESTR("STL_EXCEPTION::std"),                   true,  normal,   OLESTR("") },
    { ThrowBadAlloc,         OLESTR("STL_EXCEPTION::std::bad_alloc"),        true,  normal,   OLESTR("") },
    { ThrowWithoutWhat,      OLESTR("STL_EXCEPTION::"),                      true,  normal,   OLESTR("") },
    { ThrowNarrow,           OLESTR("CHAR_EXCEPTION::narrow"),               true,  normal,   OLESTR("") },
    { ThrowNullNarrow,       OLESTR("CHAR_EXCEPTION::"),                     true,  normal,   OLESTR("") },
    // only char * is read
    { ThrowConstNarrow,      OLESTR("UNKNOWN_EXCEPTION"),                    true,  normal,   OLESTR("") },
    { ThrowInt,              OLESTR("UNKNOWN_EXCEPTION"),                    true,  normal,   OLESTR("") },
    // exceptions are caught by reference, not by pointer
    { ThrowKrPointer,        OLESTR("UNKNOWN_EXCEPTION"),                    true,  normal,   OLESTR("") },
};
// clang-format on

template <class Guard>
void CheckArrives(Guard guard, Row const & row, CString const & message)
{
    try
    {
        guard(row.throwIt);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & exception)
    {
        EXPECT_EQ(typeid(exception), typeid(CKrException));
        EXPECT_EQ(exception.GetErrorMessage(false), message);
        EXPECT_EQ(exception.GetErrorMessage(true), message + row.locations + OLESTR("\ng(7): "));
        EXPECT_EQ(exception.GetLevel(), row.level);
        EXPECT_TRUE(exception.ShouldReportToDebugwindow());
    }
    EXPECT_EQ(PlatformException::s_living, 0);
}

} // namespace

TEST(CatchAll, LetsNothingPassButACKrException)
{
    for (Row const & row : s_rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.message));
        CheckArrives(Guarded, row, row.message + CString(row.hasLineEnd ? OLESTR("\n") : OLESTR("")));
        CheckArrives(GuardedWithText, row, row.message + CString(OLESTR("\ntext")));
        CheckArrives(GuardedWithEmptyText, row, row.message + CString(OLESTR("\n")));
    }
}

TEST(CatchAll, LeavesAnOperationAloneThatThrowsNothing)
{
    EXPECT_NO_THROW(Guarded(ThrowNothing));
    EXPECT_NO_THROW(GuardedWithText(ThrowNothing));
}

TEST(CatchAll, PassesTheSameObjectOn)
{
    CKrException const * inside = nullptr;
    auto const operation = [&inside]
    {
        try
        {
            try
            {
                throw ClientException();
            }
            catch (ClientException & exception)
            {
                inside = &exception;
                throw;
            }
        }
        KR_CATCH_ALL_TEXT("g", 7, "text")
    };
    try
    {
        operation();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (ClientException & exception)
    {
        EXPECT_EQ(&exception, inside);
        EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("client\ntext\nc(1): \ng(7): "));
    }
}

TEST(CatchAll, ACriticalExceptionLosesItsClassAndKeepsItsLevel)
{
    try
    {
        Guarded(ThrowCritical);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrCriticalException &)
    {
        ADD_FAILURE() << "still a critical exception";
    }
    catch (CKrException & exception)
    {
        EXPECT_EQ(exception.GetLevel(), CKrException::eLevelCritical);
        EXPECT_STREQ(exception.what(), "crit\n") << "without the locations";
    }
}

TEST(CatchAll, APlatformExceptionIsFreedOnce)
{
    EXPECT_THROW(Guarded(ThrowPlatform), CKrException);
    EXPECT_EQ(PlatformException::s_living, 0);
    EXPECT_THROW(GuardedWithText(ThrowLongPlatform), CKrException);
    EXPECT_EQ(PlatformException::s_living, 0);
}

TEST(CatchAll, ReadsNarrowTextInTheCodePageOfTheThread)
{
    WCHAR euro[8] = {};
    ASSERT_GT(MultiByteToWideChar(CP_THREAD_ACP, 0, "\x80", -1, euro, 8), 0);
    struct Row
    {
        Operation throwIt;
        WCHAR const * start;
    };
    // clang-format off
    Row const rows[] = {
        { [] { throw std::runtime_error("\x80"); }, OLESTR("STL_EXCEPTION::")  },
        { [] { static char text[] = "\x80"; throw static_cast<char *>(text); }, OLESTR("CHAR_EXCEPTION::") },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.start));
        try
        {
            Guarded(row.throwIt);
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (CKrException & exception)
        {
            EXPECT_EQ(exception.GetErrorMessage(false), row.start + CString(euro) + OLESTR("\n"));
        }
    }
}

TEST(CatchAll, TakesFileAndTextInAnyForm)
{
    CString const file(OLESTR("file"));
    std::function<void()> const operations[] = {
        []
        {
            try
            {
                throw 1;
            }
            KR_CATCH_ALL_TEXT("file", 12, "text")
        },
        []
        {
            try
            {
                throw 1;
            }
            KR_CATCH_ALL_TEXT(OLESTR("file"), 12L, OLESTR("text"))
        },
        [&file]
        {
            try
            {
                throw 1;
            }
            KR_CATCH_ALL_TEXT(file, 12, CString(OLESTR("te")) + OLESTR("xt"))
        },
    };
    for (std::size_t index = 0; index < std::size(operations); ++index)
    {
        SCOPED_TRACE(index);
        try
        {
            operations[index]();
            ADD_FAILURE() << "nothing was thrown";
        }
        catch (CKrException & exception)
        {
            EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("UNKNOWN_EXCEPTION\ntext\nfile(12): "));
        }
    }
}

namespace
{

int Innermost(int number)
{
    try
    {
        if (number == 0)
            throw std::runtime_error("no number");
        return number;
    }
    KR_CATCH_ALL("inner", 10)
}

int Middle(int number)
{
    try
    {
        return 2 * Innermost(number);
    }
    KR_CATCH_ALL_TEXT("middle", 20, "in the middle")
}

int Outermost(int number)
{
    try
    {
        return 1 + Middle(number);
    }
    KR_CATCH_ALL("outer", 30)
}

} // namespace

TEST(CatchAll, ReturnsTheValueOfAnOperationThatSucceeds) { EXPECT_EQ(Outermost(3), 7); }

TEST(CatchAll, ListsThreeGuardsInnermostFirst)
{
    try
    {
        Outermost(0);
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & exception)
    {
        EXPECT_EQ(exception.GetTraceMessage(), OLESTR("\n*** ExceptionBegin ***\n"
                                                      "STL_EXCEPTION::no number\n"
                                                      "\n"
                                                      "in the middle\n"
                                                      "inner(10): \n"
                                                      "middle(20): \n"
                                                      "outer(30): \n"
                                                      "*** ExceptionEnd ***\n\n"));
    }
}

TEST(CatchAll, TreatsACriticalExceptionAsAPlainOneFromTheSecondGuardOn)
{
    auto const outer = []
    {
        try
        {
            Guarded(ThrowCritical);
        }
        KR_CATCH_ALL("outer", 30)
    };
    try
    {
        outer();
        ADD_FAILURE() << "nothing was thrown";
    }
    catch (CKrException & exception)
    {
        EXPECT_EQ(exception.GetErrorMessage(true), OLESTR("crit\n\nc(1): \ng(7): \nouter(30): "));
    }
}

TEST(CatchAll, RaisesTheMemoryExceptionAndLeavesNothingBehindWhenMemoryRunsOut)
{
    for (Row const & row : s_rows)
    {
        SCOPED_TRACE(kr::test::Narrow(row.message));
        for (void (*const guard)(Operation) : {Guarded, GuardedWithText})
        {
            auto const operation = [&]
            {
                try
                {
                    guard(row.throwIt);
                }
                catch (CKrException &)
                {
                }
            };
            operation(); // now the platform has what it keeps after a first use
            // the failure happens inside the operation or inside the guard; the latter raises the memory exception
            kr::test::FailEveryAllocation(operation, [] { EXPECT_THROW(throw, CMemoryException *); });
            EXPECT_EQ(PlatformException::s_living, 0);
        }
    }
}
