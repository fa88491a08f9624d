#include <krplatform/base/cexception.h>

#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/system/messagebox.h>
#include <krplatform/system/systemmessage.h>

#include <gtest/gtest.h>

#include <string>

using namespace kr::test;

namespace
{

int s_destroyed = 0;

class ClientException : public CException
{
public:
    explicit ClientException(WCHAR const * message = nullptr, bool deletable = true)
        : CException(deletable), m_message(message ? message : OLESTR("")), m_hasMessage(message)
    {
    }
    ~ClientException() override { ++s_destroyed; }

    BOOL GetErrorMessage(WCHAR * text, UINT size, UINT * helpContext) const override
    {
        if (!m_hasMessage)
            return CException::GetErrorMessage(text, size, helpContext);
        text[m_message.copy(text, size - 1)] = 0;
        return TRUE;
    }

private:
    std::basic_string<WCHAR> m_message;
    bool m_hasMessage;
};

struct Box
{
    std::string text;
    unsigned int style = 77;
};
Box s_box;

int RememberBox(WCHAR const * text, unsigned int style, unsigned int)
{
    s_box = {Narrow(text), style};
    return IDCANCEL;
}

// Remembers message boxes while it lives.
class WithBoxes
{
public:
    WithBoxes() : m_old(AfxSetMessageBoxHandler(RememberBox)) { s_box = {}; }
    ~WithBoxes() { AfxSetMessageBoxHandler(m_old); }
    WithBoxes(WithBoxes const &) = delete;
    WithBoxes & operator=(WithBoxes const &) = delete;

private:
    AfxMessageBoxHandler m_old;
};

struct Message
{
    BOOL result;
    std::string text;
    UINT helpContext;
};

Message MessageOf(CException const & exception, UINT size = 255)
{
    WCHAR text[256] = OLESTR("old");
    UINT helpContext = 77;
    BOOL const result = exception.GetErrorMessage(text, size, &helpContext);
    return {result, Narrow(text), helpContext};
}

} // namespace

TEST(CException, IsFreedByDelete)
{
    std::size_t const before = LiveAllocations();
    s_destroyed = 0;
    (new ClientException)->Delete();
    EXPECT_EQ(s_destroyed, 1);
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(CException, IsNotFreedByDeleteWithoutMemoryOfItsOwn)
{
    s_destroyed = 0;
    {
        ClientException exception(nullptr, false);
        exception.Delete();
        EXPECT_EQ(s_destroyed, 0);
    }
    EXPECT_EQ(s_destroyed, 1);
}

TEST(CException, HasNoMessage)
{
    Message const message = MessageOf(ClientException());
    EXPECT_FALSE(message.result);
    EXPECT_EQ(message.text, "");
    EXPECT_EQ(message.helpContext, 0u);
}

TEST(CException, IsAnObjectOfThePlatform)
{
    ClientException const exception;
    EXPECT_TRUE(exception.IsKindOf(CObject::GetThisClass()));
}

TEST(CException, ReportsItsMessageInABox)
{
    WithBoxes const boxes;
    EXPECT_EQ(ClientException(OLESTR("It broke.")).ReportError(MB_ICONSTOP), IDCANCEL);
    EXPECT_EQ(s_box.text, "It broke.");
    EXPECT_EQ(s_box.style, MB_ICONSTOP);
}

TEST(CException, ReportsAnUnknownErrorWithoutAMessage)
{
    WithBoxes const boxes;
    EXPECT_EQ(ClientException().ReportError(), IDCANCEL);
    EXPECT_EQ(s_box.text, "Unknown error.");
    EXPECT_EQ(s_box.style, MB_OK);
}

TEST(CMemoryException, IsOneObjectThatNeedsNoMemory)
{
    CMemoryException * first = nullptr;
    for (int count = 0; count < 2; ++count)
    {
        FailNthAllocation const fail(1);
        try
        {
            AfxThrowMemoryException();
        }
        catch (CMemoryException * exception)
        {
            first = first ? first : exception;
            EXPECT_EQ(exception, first);
            exception->Delete();
            EXPECT_EQ(MessageOf(*exception).text, "Out of memory."); // still alive
        }
        EXPECT_FALSE(fail.HasFailed());
    }
    EXPECT_NE(first, nullptr);
}

TEST(CMemoryException, CutsItsMessageToTheRoom)
{
    struct Row
    {
        UINT size;
        BOOL result;
        char const * text;
    };
    // clang-format off
    constexpr Row rows[] = {
        { 255, TRUE,  "Out of memory." },
        { 15,  TRUE,  "Out of memory." },
        { 14,  TRUE,  "Out of memory"  },
        { 4,   TRUE,  "Out"            },
        { 1,   TRUE,  ""               },
        { 0,   FALSE, "old"            },   // no room for the zero
    };
    // clang-format on
    CMemoryException const exception(true);
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.size);
        Message const message = MessageOf(exception, row.size);
        EXPECT_EQ(message.result, row.result);
        EXPECT_EQ(message.text, row.text);
        EXPECT_EQ(message.helpContext, 0u);
    }
    EXPECT_FALSE(exception.GetErrorMessage(nullptr, 255));
    WCHAR text[20];
    EXPECT_TRUE(exception.GetErrorMessage(text, 20)); // without a help context
}

TEST(COleException, HasTheSystemsMessageForItsResult)
{
    COleException exception;
    EXPECT_EQ(exception.m_sc, S_OK);
    for (HRESULT const result : {E_FAIL, E_INVALIDARG, DISP_E_TYPEMISMATCH})
    {
        exception.m_sc = result;
        WCHAR text[255];
        DWORD const length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                            static_cast<DWORD>(result), 0, text, 255, nullptr);
        Message const message = MessageOf(exception);
        EXPECT_TRUE(message.result);
        EXPECT_EQ(message.text, Narrow({text, length}));
        EXPECT_EQ(MessageOf(exception, 4).text, message.text.substr(0, 3));
    }
}

TEST(COleException, HasNoMessageWhereTheSystemHasNone)
{
    COleException exception;
    exception.m_sc = kr::detail::HresultFromCode(0xA0001234);
    Message const message = MessageOf(exception);
    EXPECT_FALSE(message.result);
    EXPECT_EQ(message.text, "");
}

TEST(AfxThrowOleException, ThrowsANewExceptionWithTheResult)
{
    std::size_t const before = LiveAllocations();
    for (HRESULT const result : {E_FAIL, E_OUTOFMEMORY, S_OK})
    {
        try
        {
            AfxThrowOleException(result);
        }
        catch (COleException * exception)
        {
            EXPECT_EQ(exception->m_sc, result);
            exception->Delete();
        }
    }
    EXPECT_EQ(LiveAllocations(), before);
}

TEST(AfxThrowOleException, ThrowsTheMemoryExceptionWithoutMemory)
{
    FailNthAllocation const fail(1);
    EXPECT_THROW(AfxThrowOleException(E_FAIL), CMemoryException *);
    EXPECT_TRUE(fail.HasFailed());
}

TEST(AfxThrowOleException, IsCaughtAsTheRootOfExceptions)
{
    try
    {
        AfxThrowOleException(E_FAIL);
    }
    catch (CException * exception)
    {
        EXPECT_NE(dynamic_cast<COleException *>(exception), nullptr);
        exception->Delete();
    }
}

TEST(AtlThrow, ThrowsWhatTheResultMeans)
{
    EXPECT_THROW(AtlThrow(E_OUTOFMEMORY), CMemoryException *);
    try
    {
        AtlThrow(E_INVALIDARG);
    }
    catch (COleException * exception)
    {
        EXPECT_EQ(exception->m_sc, E_INVALIDARG);
        exception->Delete();
    }
}
