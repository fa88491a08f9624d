#include <krcore/diagnostics/krerror.h>

#include "tests/diagnostics/message_box.h"
#include "tests/diagnostics/spoken_failure.h"
#include "tests/support/virtual_slot.h"

#include <krcore/diagnostics/krmessagepool.h>
#include <krplatform/automation/com_error.h>
#include <krplatform/system/messagebox.h>

#include <gtest/gtest.h>

#include <type_traits>

using namespace kr::test;

static_assert(std::has_virtual_destructor_v<CKrError>);

namespace
{

class CKrErrorTest : public testing::Test
{
protected:
    ~CKrErrorTest() override { CKrError::ClearLastError(); }
};

CKrError WithTexts(WCHAR const * message, WCHAR const * second, bool located)
{
    CKrError error = CKrError::StringError(message);
    error.SetSecondMessage(second);
    if (located)
        error.AddLocation(OLESTR("f"), 3);
    return error;
}

} // namespace

TEST_F(CKrErrorTest, HasTheNumbersOfItsKindsAndLevels)
{
    EXPECT_EQ(CKrError::eUndefined, 0);
    EXPECT_EQ(CKrError::eIdError, 1);
    EXPECT_EQ(CKrError::eComError, 2);
    EXPECT_EQ(CKrError::eStringError, 3);
    EXPECT_EQ(CKrError::eSystemError, 4);
    EXPECT_EQ(CKrError::eInformation, 0);
    EXPECT_EQ(CKrError::eWarning, 1);
    EXPECT_EQ(CKrError::eError, 2);
}

TEST_F(CKrErrorTest, HasItsVirtualOperationsInTheAgreedOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CKrError::ReportError), 2u); // behind the two of the destructor
    EXPECT_EQ(VirtualSlotOf(&CKrError::GetFormattedMessage), 3u);
    EXPECT_EQ(VirtualSlotOf(&CKrError::GetTraceMessage), 4u);
}

TEST_F(CKrErrorTest, IsMadeWithKindNumberAndMessage)
{
    SpokenFailure spoken(OLESTR("told"));
    _com_error silent(E_FAIL);
    _com_error told(E_FAIL, &spoken, true);
    // clang-format off
    struct { char const * what; CKrError error; CKrError::EType type; unsigned int id; WCHAR const * message; } const rows[] = {
        { "nothing",           CKrError(),                              CKrError::eUndefined,   0,          OLESTR("")     },
        { "id",                CKrError::IdError(1500),                 CKrError::eIdError,     1500,       OLESTR("")     },
        { "HRESULT",           CKrError::ComError(0x80004005L),         CKrError::eComError,    0x80004005, OLESTR("")     },
        { "silent HRESULT",    CKrError::ComError(silent),              CKrError::eComError,    0x80004005, OLESTR("")     },
        { "told HRESULT",      CKrError::ComError(told),                CKrError::eComError,    0x80004005, OLESTR("told") },
        { "told id",           CKrError::IdError(told),                 CKrError::eIdError,     0x4005,     OLESTR("told") },
        { "text",              CKrError::StringError(OLESTR("x")),      CKrError::eStringError, 0,          OLESTR("x")    },
        { "code",              CKrError::SystemError(2),                CKrError::eSystemError, 2,          OLESTR("")     },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(row.error.GetType(), row.type);
        EXPECT_EQ(row.error.GetErrorID(), row.id);
        EXPECT_EQ(row.error.GetErrorMessage(), row.message);
        EXPECT_EQ(row.error.GetLevel(), CKrError::eError);
        EXPECT_EQ(row.error.GetSecondMessage(), OLESTR(""));
    }
}

TEST_F(CKrErrorTest, TakesTheLowWordOfAnHresultWithItsSign)
{
    _com_error error(static_cast<HRESULT>(0x8004FFFF));
    EXPECT_EQ(CKrError::IdError(error).GetErrorID(), 0xFFFFFFFFu);
}

TEST_F(CKrErrorTest, CopiesAllFields)
{
    CKrError error = WithTexts(OLESTR("m"), OLESTR("s"), true);
    error.SetLevel(CKrError::eWarning);
    CKrError const copy(error);
    CKrError assigned;
    assigned = error;
    CKrError const & alias = assigned;
    assigned = alias;
    for (CKrError const & each : {copy, assigned})
    {
        EXPECT_EQ(each.GetLevel(), CKrError::eWarning);
        EXPECT_EQ(each.GetFormattedMessage(true, true), OLESTR("m\ns\nf(3): "));
    }
}

TEST_F(CKrErrorTest, HoldsOneLocation)
{
    CKrError error = CKrError::StringError(CString());
    error.AddLocation(OLESTR("first"), 1);
    error.AddLocation(OLESTR("second"), -2);
    EXPECT_EQ(error.GetFormattedMessage(false, true), OLESTR("second(-2): "));
    error.AddLocation(OLESTR("100%d"), 4294967301L); // the low 32 bits
    EXPECT_EQ(error.GetFormattedMessage(false, true), OLESTR("100%d(5): "));
}

TEST_F(CKrErrorTest, JoinsTheTextsThatAreAskedForAndThere)
{
    // clang-format off
    struct { CKrError error; bool second, location; WCHAR const * text; } const rows[] = {
        { WithTexts(OLESTR("m"), OLESTR("s"), true),  false, false, OLESTR("m")           },
        { WithTexts(OLESTR("m"), OLESTR("s"), true),  true,  false, OLESTR("m\ns")        },
        { WithTexts(OLESTR("m"), OLESTR("s"), true),  false, true,  OLESTR("m\nf(3): ")   },
        { WithTexts(OLESTR("m"), OLESTR("s"), true),  true,  true,  OLESTR("m\ns\nf(3): ") },
        { WithTexts(OLESTR("m"), OLESTR(""), true),   true,  true,  OLESTR("m\nf(3): ")   },
        { WithTexts(OLESTR(""), OLESTR("s"), false),  true,  true,  OLESTR("s")           },   // no line end in front
        { WithTexts(OLESTR(""), OLESTR(""), true),    true,  true,  OLESTR("f(3): ")      },
        { WithTexts(OLESTR(""), OLESTR(""), false),   true,  true,  OLESTR("")            },
    };
    // clang-format on
    for (auto const & row : rows)
        EXPECT_EQ(row.error.GetFormattedMessage(row.second, row.location), row.text);
}

TEST_F(CKrErrorTest, FramesItsTextsForTheTrace)
{
    CKrError error = CKrError::ComError(-5L);
    error.SetErrorMessage(OLESTR("m"));
    error.SetSecondMessage(OLESTR("s"));
    EXPECT_EQ(error.GetTraceMessage(), OLESTR("\n*** ErrorBegin ***\nError-ID : -5\nm\ns\n*** ErrorEnd ***\n\n"));
}

TEST_F(CKrErrorTest, AsksItsVirtualOperationsForTheTexts)
{
    struct Derived : CKrError
    {
        CString GetFormattedMessage(bool second, bool location) const override
        {
            return second ? OLESTR("both") : location ? OLESTR("located") : OLESTR("plain");
        }
    } const derived;
    EXPECT_EQ(derived.GetTraceMessage(), OLESTR("\n*** ErrorBegin ***\nError-ID : 0\nboth\n*** ErrorEnd ***\n\n"));
    MessageBoxRecorder boxes(IDYES);
    derived.ReportError(false, true, 0);
    EXPECT_EQ(boxes.Text(), OLESTR("located"));
}

TEST_F(CKrErrorTest, ShowsABoxWithTheIconOfItsLevelUnlessTheStyleHasOne)
{
    // clang-format off
    struct { int level; unsigned int style, shown; } const rows[] = {
        { CKrError::eInformation, 0,    0x40 },
        { CKrError::eWarning,     0,    0x30 },
        { CKrError::eError,       0,    0x10 },
        { 7,                      0,    0x10 },   // any other level
        { CKrError::eError,       0x04, 0x14 },
        { CKrError::eError,       0x20, 0x20 },   // the style's own icon stays
        { CKrError::eInformation, 0x34, 0x34 },
    };
    // clang-format on
    MessageBoxRecorder boxes(IDYES);
    for (auto const & row : rows)
    {
        CKrError error = WithTexts(OLESTR("m"), OLESTR("s"), true);
        error.SetLevel(static_cast<CKrError::ELevel>(row.level));
        EXPECT_EQ(error.ReportError(true, false, row.style), IDYES);
        EXPECT_EQ(boxes.Text(), OLESTR("m\ns"));
        EXPECT_EQ(boxes.Style(), row.shown);
        EXPECT_EQ(boxes.HelpContext(), 0u);
    }
}

TEST_F(CKrErrorTest, ShowsEmptyTextToo)
{
    MessageBoxRecorder boxes(IDYES);
    EXPECT_EQ(CKrError().ReportError(true, true, 0), IDYES);
    EXPECT_EQ(boxes.Shown(), 1);
}

TEST_F(CKrErrorTest, FillsTheMessageOfAnIdFromAPoolOrAModule)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(CString());
    pool.AddMessage(7, OLESTR("seven"), CString());
    CKrError error = CKrError::IdError(7);
    EXPECT_TRUE(error.FillMessage(pool));
    EXPECT_EQ(error.GetErrorMessage(), OLESTR("seven"));
    CKrError missing = CKrError::IdError(8);
    EXPECT_FALSE(missing.FillMessage(pool));
    EXPECT_EQ(missing.GetErrorMessage(), OLESTR(""));

    CKrError resource = CKrError::IdError(101);
    EXPECT_TRUE(resource.FillMessage(HINSTANCE{}));
    EXPECT_EQ(resource.GetErrorMessage(), OLESTR("plain"));
    CKrError none = CKrError::IdError(999);
    EXPECT_FALSE(none.FillMessage(HINSTANCE{}));
}

TEST_F(CKrErrorTest, FillsTheMessageOfASystemErrorFromTheSystem)
{
    CKrMessagePool const pool;
    CKrError byPool = CKrError::SystemError(2);
    EXPECT_TRUE(byPool.FillMessage(pool));
    CKrError byModule = CKrError::SystemError(2);
    EXPECT_TRUE(byModule.FillMessage(HINSTANCE{}));
    EXPECT_EQ(byPool.GetErrorMessage(), byModule.GetErrorMessage());
    EXPECT_EQ(byPool.GetErrorMessage().Right(2), OLESTR("\r\n")); // the line end stays
    CKrError unknown = CKrError::SystemError(0x1FFFFFFF);
    EXPECT_FALSE(unknown.FillMessage(pool));
    EXPECT_EQ(unknown.GetErrorMessage(), OLESTR(""));
}

TEST_F(CKrErrorTest, NeverOverwritesAMessage)
{
    CKrMessagePool const pool;
    for (CKrError error : {CKrError(), CKrError::IdError(101), CKrError::SystemError(2), CKrError::ComError(5L)})
    {
        error.SetErrorMessage(OLESTR("mine"));
        EXPECT_TRUE(error.FillMessage(pool));
        EXPECT_TRUE(error.FillMessage(HINSTANCE{}));
        EXPECT_EQ(error.GetErrorMessage(), OLESTR("mine"));
    }
}

TEST_F(CKrErrorTest, FindsNoMessageForOtherKinds)
{
    CKrMessagePool const pool;
    for (CKrError error : {CKrError(), CKrError::StringError(CString()), CKrError::ComError(5L)})
    {
        EXPECT_FALSE(error.FillMessage(pool));
        EXPECT_FALSE(error.FillMessage(HINSTANCE{}));
    }
}

TEST_F(CKrErrorTest, TellsKindsByNumberWithZeroForAny)
{
    // clang-format off
    struct { CKrError error; bool id5, anyId, system5, anySystem; } const rows[] = {
        { CKrError::IdError(5),              true,  true,  false, false },
        { CKrError::IdError(6),              false, true,  false, false },
        { CKrError::SystemError(5),          false, false, true,  true  },
        { CKrError::SystemError(6),          false, false, false, true  },
        { CKrError::ComError(5L),            false, false, false, false },
        { CKrError::StringError(CString()),  false, false, false, false },
        { CKrError(),                        false, false, false, false },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        EXPECT_EQ(row.error.IsIdError(5), row.id5);
        EXPECT_EQ(row.error.IsIdError(0), row.anyId);
        EXPECT_EQ(row.error.IsSystemError(5), row.system5);
        EXPECT_EQ(row.error.IsSystemError(0), row.anySystem);
        EXPECT_EQ(row.error.IsSystemError(0x100000005ul), row.system5); // the low 32 bits
        EXPECT_EQ(row.error.IsSystemError(0x100000000ul), row.anySystem);
    }
}

TEST_F(CKrErrorTest, ComparesLevelAndKindThenNumberOrText)
{
    EXPECT_TRUE(CKrError::IdError(5) == CKrError::IdError(5));
    EXPECT_FALSE(CKrError::IdError(5) == CKrError::IdError(6));
    EXPECT_FALSE(CKrError::IdError(5) == CKrError::ComError(5L));
    CKrError named = CKrError::IdError(5);
    named.SetErrorMessage(OLESTR("text"));
    EXPECT_TRUE(named == CKrError::IdError(5)); // texts do not count
    CKrError warning = CKrError::IdError(5);
    warning.SetLevel(CKrError::eWarning);
    EXPECT_FALSE(warning == CKrError::IdError(5));
    CKrError text = CKrError::StringError(OLESTR("x"));
    text.SetSecondMessage(OLESTR("other"));
    EXPECT_TRUE(text == CKrError::StringError(OLESTR("x")));
    EXPECT_FALSE(text == CKrError::StringError(OLESTR("X")));
}

TEST_F(CKrErrorTest, ComparesWithANumberWhateverTheKindButText)
{
    EXPECT_TRUE(CKrError::ComError(5L) == 5ul);
    EXPECT_TRUE(CKrError::IdError(5) == 5ul);
    EXPECT_TRUE(CKrError::SystemError(5) == 5ul);
    EXPECT_TRUE(CKrError() == 0ul);
    EXPECT_FALSE(CKrError::IdError(5) == 6ul);
    EXPECT_FALSE(CKrError::StringError(OLESTR("x")) == 0ul);
}

TEST_F(CKrErrorTest, KeepsTheFirstLastErrorUnlessToldOtherwise)
{
    EXPECT_EQ(CKrError::GetLastError(), nullptr);
    CKrError::SetLastError(CKrError::IdError(1), false);
    CKrError::SetLastError(CKrError::IdError(2), false);
    ASSERT_NE(CKrError::GetLastError(), nullptr);
    EXPECT_EQ(CKrError::GetLastError()->GetErrorID(), 1u);
    CKrError::SetLastError(CKrError::IdError(3), true);
    EXPECT_EQ(CKrError::GetLastError()->GetErrorID(), 3u);
    CKrError::SetLastError(*CKrError::GetLastError(), true);
    EXPECT_EQ(CKrError::GetLastError()->GetErrorID(), 3u);
    CKrError::ClearLastError();
    EXPECT_EQ(CKrError::GetLastError(), nullptr);
    CKrError::ClearLastError();
}
