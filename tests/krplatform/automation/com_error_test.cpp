#include <krplatform/automation/com_error.h>

#include "tests/krplatform/automation/make_variant.h"
#include "tests/krplatform/automation/thrown_result.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/text.h"

#include <krplatform/system/systemmessage.h>

#include <gtest/gtest.h>

#include <string>

using namespace kr::test;

namespace
{

constexpr HRESULT Code(std::uint32_t code) { return kr::detail::HresultFromCode(code); }

// What an automation object tells of a failure; lives on the stack and counts references from 0.
class CountedErrorInfo final : public IErrorInfo
{
public:
    HRESULT QueryInterface(REFIID, void **) override { return E_NOINTERFACE; }
    ULONG AddRef() override { return ++references; }
    ULONG Release() override { return --references; }
    HRESULT GetGUID(GUID *) override { return E_NOTIMPL; }
    HRESULT GetSource(BSTR * source) override { return HandOut(OLESTR("source"), source); }
    HRESULT GetDescription(BSTR * description) override { return HandOut(OLESTR("description"), description); }
    HRESULT GetHelpFile(BSTR *) override { return E_NOTIMPL; }
    HRESULT GetHelpContext(DWORD *) override { return E_NOTIMPL; }

    ULONG references = 0;
    HRESULT result = S_OK;

private:
    HRESULT HandOut(WCHAR const * text, BSTR * out) const
    {
        *out = SUCCEEDED(result) ? SysAllocString(text) : nullptr;
        return result;
    }
};

// The system's message with its line end, or empty text.
std::string SystemMessage(HRESULT result)
{
    WCHAR text[1024];
    DWORD const length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                        static_cast<DWORD>(result), 0, text, 1024, nullptr);
    return Narrow({text, length});
}

std::string MessageOf(HRESULT result) { return Narrow(_com_error(result).ErrorMessage()); }

} // namespace

TEST(ComError, KeepsItsResult)
{
    EXPECT_EQ(_com_error(E_FAIL).Error(), E_FAIL);
    EXPECT_EQ(_com_error(S_OK).Error(), S_OK);
}

TEST(ComError, TellsNothingWithoutAnObject)
{
    _com_error const error(Code(0x8004FFFF));
    EXPECT_EQ(error.ErrorInfo(), nullptr);
    EXPECT_EQ(error.Description().length(), 0u);
    EXPECT_EQ(static_cast<WCHAR const *>(error.Description()), nullptr);
    EXPECT_EQ(error.Source().length(), 0u);
}

TEST(ComError, TellsWhatTheObjectTells)
{
    CountedErrorInfo info;
    _com_error const error(E_FAIL, &info, true);
    EXPECT_EQ(Narrow(error.Description()), "description");
    EXPECT_EQ(Narrow(error.Source()), "source");
    info.result = E_NOTIMPL;
    EXPECT_EQ(static_cast<WCHAR const *>(error.Description()), nullptr);
    EXPECT_EQ(static_cast<WCHAR const *>(error.Source()), nullptr);
}

TEST(ComError, TakesOverOrAddsOneReference)
{
    CountedErrorInfo info;
    {
        _com_error const added(E_FAIL, &info, true);
        EXPECT_EQ(info.references, 1u);
        info.AddRef();
        _com_error const taken(E_FAIL, &info);
        EXPECT_EQ(info.references, 2u);
    }
    EXPECT_EQ(info.references, 0u);
}

TEST(ComError, CopiesCountReferences)
{
    CountedErrorInfo info;
    {
        _com_error const error(E_FAIL, &info, true);
        _com_error copy(error);
        EXPECT_EQ(info.references, 2u);
        copy = error;
        EXPECT_EQ(info.references, 2u);
        _com_error & itself = copy;
        copy = itself;
        EXPECT_EQ(info.references, 2u);
        EXPECT_EQ(copy.Error(), E_FAIL);
        EXPECT_EQ(Narrow(copy.Description()), "description");
        copy = _com_error(E_POINTER);
        EXPECT_EQ(info.references, 1u);
        EXPECT_EQ(copy.Error(), E_POINTER);
    }
    EXPECT_EQ(info.references, 0u);
}

TEST(ComError, HandsOutItsObjectWithAReference)
{
    CountedErrorInfo info;
    {
        _com_error const error(E_FAIL, &info, true);
        EXPECT_EQ(error.ErrorInfo(), &info);
        EXPECT_EQ(info.references, 2u);
        info.Release();
    }
    EXPECT_EQ(info.references, 0u);
}

TEST(ComError, NumbersTheErrorsOfInterfaces)
{
    struct Row
    {
        HRESULT result;
        WORD number;
    };
    // clang-format off
    constexpr Row rows[] = {
        { Code(0x800401FF), 0      },
        { Code(0x80040200), 0      },
        { Code(0x80040201), 1      },
        { Code(0x80040205), 5      },
        { Code(0x8004FFFF), 0xFDFF },
        { Code(0x80050000), 0      },
        { Code(0x00040205), 0      },
        { E_FAIL,           0      },
        { S_OK,             0      },
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(_com_error(row.result).WCode(), row.number) << row.result;
}

TEST(ComErrorMessage, IsTheSystemsWithoutItsLineEnd)
{
    for (HRESULT const result :
         {E_FAIL, E_OUTOFMEMORY, E_INVALIDARG, DISP_E_TYPEMISMATCH, DISP_E_OVERFLOW, E_NOINTERFACE})
    {
        SCOPED_TRACE(result);
        std::string const system = SystemMessage(result);
        std::string const message = MessageOf(result);
        EXPECT_GT(message.size(), 5u);
        EXPECT_EQ(message + "\\u000D\\u000A", system);
    }
}

TEST(ComErrorMessage, IsANumberWhereTheSystemHasNone)
{
    struct Row
    {
        HRESULT result;
        char const * message;
    };
    // clang-format off
    constexpr Row rows[] = {
        { Code(0x80040200), "IDispatch error #0"       },   // the first number of an interface
        { Code(0x80040205), "IDispatch error #5"       },
        { Code(0x80040E14), "IDispatch error #3092"    },
        { Code(0x80043039), "IDispatch error #11833"   },
        { Code(0x8004FFFE), "IDispatch error #65022"   },
        { Code(0x8004FFFF), "IDispatch error #65023"   },
        { Code(0xA0001234), "Unknown error 0xA0001234" },
        { Code(0x8ABCDEF0), "Unknown error 0x8ABCDEF0" },
        { Code(0x0ABCDEF0), "Unknown error 0xABCDEF0"  },   // no leading zeros
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.message);
        ASSERT_EQ(SystemMessage(row.result), "");
        EXPECT_EQ(MessageOf(row.result), row.message);
    }
}

TEST(ComErrorMessage, IsMadeOnceAndSharedByCopies)
{
    _com_error const error(Code(0xA0001234));
    WCHAR const * const message = error.ErrorMessage();
    std::size_t const before = AllAllocations();
    EXPECT_EQ(error.ErrorMessage(), message);
    _com_error const copy(error);
    EXPECT_EQ(copy.ErrorMessage(), message);
    EXPECT_EQ(AllAllocations(), before);
}

TEST(ComErrorThrow, IssueThrowsTheResult)
{
    try
    {
        _com_issue_error(E_POINTER);
    }
    catch (_com_error const & error)
    {
        EXPECT_EQ(error.Error(), E_POINTER);
        EXPECT_EQ(error.ErrorInfo(), nullptr);
    }
}

TEST(ComErrorThrow, RaiseTakesTheObjectOver)
{
    CountedErrorInfo info;
    info.AddRef();
    try
    {
        _com_raise_error(E_POINTER, &info);
    }
    catch (_com_error const & error)
    {
        EXPECT_EQ(error.Error(), E_POINTER);
        EXPECT_EQ(Narrow(error.Description()), "description");
        EXPECT_EQ(info.references, 1u);
    }
    EXPECT_EQ(info.references, 0u);
    EXPECT_EQ(ThrownComError([] { _com_raise_error(E_FAIL); }), E_FAIL);
}

TEST(ComErrorMemory, LeaksNothingWhenItRunsOut)
{
    BuildTablesOfFirstUse();
    CountedErrorInfo info;
    _com_error const error(E_FAIL, &info, true);
    auto const check = [] { EXPECT_EQ(ThrownComError([] { throw; }), E_OUTOFMEMORY); };
    EXPECT_EQ(FailEveryAllocation([&] { static_cast<void>(error.Source()); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([] { _com_error(E_FAIL).ErrorMessage(); }, check), 2u);
    EXPECT_EQ(FailEveryAllocation([] { _com_error(Code(0xA0001234)).ErrorMessage(); }, check), 2u);
}
