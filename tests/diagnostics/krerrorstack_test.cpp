#include <krcore/diagnostics/krerrorstack.h>

#include "tests/diagnostics/message_box.h"
#include "tests/support/failing_allocator.h"
#include "tests/support/virtual_slot.h"

#include <krcore/diagnostics/krmessagepool.h>

#include <gtest/gtest.h>

using namespace kr::test;

namespace
{

CKrError WithLevel(CKrError error, CKrError::ELevel level)
{
    error.SetLevel(level);
    return error;
}

class CKrErrorStackTest : public testing::Test
{
protected:
    CKrErrorStackTest() { CKrErrorStack::SetObject(nullptr, true); }
    ~CKrErrorStackTest() override { CKrErrorStack::SetObject(nullptr, true); }

    void PushTexts(std::initializer_list<WCHAR const *> texts)
    {
        for (WCHAR const * text : texts)
            stack.PushError(CKrError::StringError(text));
    }

    CKrErrorStack stack;
};

struct CountedStack : CKrErrorStack
{
    CountedStack() { ++living; }
    ~CountedStack() override { --living; }
    static inline int living = 0;
};

} // namespace

TEST_F(CKrErrorStackTest, HasItsVirtualOperationsInTheAgreedOrder)
{
    EXPECT_EQ(VirtualSlotOf(&CKrErrorStack::ReportErrors), 2u); // behind the two of the destructor
    EXPECT_EQ(VirtualSlotOf(&CKrErrorStack::GetTraceMessage), 3u);
}

TEST_F(CKrErrorStackTest, KeepsErrorsAndNothingBelowAtStart)
{
    EXPECT_EQ(stack.GetStackCount(), 1u);
    EXPECT_TRUE(stack.IsEmpty());
    EXPECT_FALSE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eWarning)));
    EXPECT_FALSE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eInformation)));
    EXPECT_EQ(stack.GetErrorCount(), 0u);
    EXPECT_TRUE(stack.PushError(CKrError::IdError(1)));
    EXPECT_EQ(stack.GetErrorCount(), 1u);
}

TEST_F(CKrErrorStackTest, GivesTheOldestAtZeroAndTheNewestLast)
{
    PushTexts({OLESTR("old"), OLESTR("new")});
    EXPECT_EQ(stack.GetErrorAt(0)->GetErrorMessage(), OLESTR("old"));
    EXPECT_EQ(stack.GetErrorAt(1)->GetErrorMessage(), OLESTR("new"));
    EXPECT_EQ(stack.GetErrorAt(2), nullptr);
    EXPECT_EQ(stack.GetLastError()->GetErrorMessage(), OLESTR("new"));
    EXPECT_TRUE(stack.PopError());
    EXPECT_EQ(stack.GetLastError()->GetErrorMessage(), OLESTR("old"));
    EXPECT_TRUE(stack.PopError());
    EXPECT_FALSE(stack.PopError());
    EXPECT_EQ(stack.GetLastError(), nullptr);
    EXPECT_EQ(stack.GetErrorAt(0), nullptr);
}

TEST_F(CKrErrorStackTest, NestsAListWithALevelOfItsOwn)
{
    PushTexts({OLESTR("below")});
    EXPECT_TRUE(stack.PushNewStack(CKrError::eInformation));
    EXPECT_EQ(stack.GetStackCount(), 2u);
    EXPECT_TRUE(stack.IsEmpty()); // the list below is not looked at
    EXPECT_TRUE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eWarning)));
    EXPECT_TRUE(stack.PopStack());
    EXPECT_EQ(stack.GetErrorCount(), 1u);
    EXPECT_EQ(stack.GetLastError()->GetErrorMessage(), OLESTR("below"));
    EXPECT_FALSE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eWarning))); // its level is back
    EXPECT_FALSE(stack.PopStack());
    EXPECT_EQ(stack.GetErrorCount(), 1u);
}

TEST_F(CKrErrorStackTest, ClearsTheTopListOrAllButTheBottomOne)
{
    PushTexts({OLESTR("bottom")});
    stack.PushNewStack(CKrError::eError);
    PushTexts({OLESTR("top")});
    EXPECT_TRUE(stack.ClearStack());
    EXPECT_TRUE(stack.IsEmpty());
    EXPECT_EQ(stack.GetStackCount(), 2u);
    EXPECT_TRUE(stack.Clear());
    EXPECT_EQ(stack.GetStackCount(), 1u);
    EXPECT_EQ(stack.GetErrorCount(), 1u); // the bottom list keeps its errors
    EXPECT_TRUE(stack.Clear());
    EXPECT_EQ(stack.GetErrorCount(), 1u);
}

TEST_F(CKrErrorStackTest, JoinsTextsNewestFirst)
{
    PushTexts({OLESTR("old"), OLESTR(""), OLESTR("new")});
    stack.GetErrorAt(0)->SetSecondMessage(OLESTR("second"));
    stack.GetErrorAt(2)->AddLocation(OLESTR("f"), 1);
    EXPECT_EQ(stack.GetFormattedMessage(false, false, false), OLESTR("new\nold"));
    EXPECT_EQ(stack.GetFormattedMessage(false, true, true), OLESTR("new\nf(1): \nold\nsecond"));
    EXPECT_EQ(stack.GetFormattedMessage(true, true, false), OLESTR("new"));
    EXPECT_EQ(CKrErrorStack().GetFormattedMessage(false, true, true), OLESTR(""));
}

TEST_F(CKrErrorStackTest, TakesTheNewestAloneEvenIfItIsEmpty)
{
    PushTexts({OLESTR("old"), OLESTR("")});
    EXPECT_EQ(stack.GetFormattedMessage(true, true, true), OLESTR(""));
}

TEST_F(CKrErrorStackTest, FramesItsTextsForTheTrace)
{
    PushTexts({OLESTR("old"), OLESTR("new")});
    EXPECT_EQ(stack.GetTraceMessage(), OLESTR("\n*** ErrorStackBegin ***\nnew\nold\n*** ErrorStackEnd ***\n\n"));
}

TEST_F(CKrErrorStackTest, ShowsABoxWithTheStopIconWhateverTheLevels)
{
    MessageBoxRecorder boxes(IDYES);
    EXPECT_EQ(stack.ReportErrors(false, true, true, 0), 0); // nothing to show
    EXPECT_EQ(boxes.Shown(), 0);
    stack.PushNewStack(CKrError::eInformation);
    stack.PushError(WithLevel(CKrError::StringError(OLESTR("text")), CKrError::eInformation));
    EXPECT_EQ(stack.ReportErrors(false, true, true, 1), IDYES);
    EXPECT_EQ(boxes.Text(), OLESTR("text"));
    EXPECT_EQ(boxes.Style(), 0x11u);
    EXPECT_EQ(boxes.HelpContext(), 0u);
    stack.ReportErrors(true, true, true, 0x40);
    EXPECT_EQ(boxes.Style(), 0x40u);
}

TEST_F(CKrErrorStackTest, FillsTheMessagesOfTheTopList)
{
    CKrMessagePool pool;
    pool.AddMessageGroup(CString());
    pool.AddMessage(1, OLESTR("one"), CString());
    pool.AddMessage(2, OLESTR("two"), CString());
    stack.PushError(CKrError::IdError(1));
    stack.PushError(CKrError::IdError(2));
    EXPECT_TRUE(stack.FillMessages(pool, true));
    EXPECT_EQ(stack.GetErrorAt(0)->GetErrorMessage(), OLESTR(""));
    EXPECT_EQ(stack.GetErrorAt(1)->GetErrorMessage(), OLESTR("two"));
    EXPECT_TRUE(stack.FillMessages(pool, false));
    EXPECT_EQ(stack.GetErrorAt(0)->GetErrorMessage(), OLESTR("one"));
    stack.PushError(CKrError::IdError(101));
    EXPECT_TRUE(stack.FillMessages(HINSTANCE{}, false));
    EXPECT_EQ(stack.GetErrorAt(2)->GetErrorMessage(), OLESTR("plain"));
    EXPECT_TRUE(CKrErrorStack().FillMessages(pool, false));
}

TEST_F(CKrErrorStackTest, CopiesListsAndLevels)
{
    PushTexts({OLESTR("a")});
    stack.PushNewStack(CKrError::eInformation);
    CKrErrorStack copy(stack);
    CKrErrorStack assigned;
    assigned = stack;
    for (CKrErrorStack * each : {&copy, &assigned})
    {
        EXPECT_EQ(each->GetStackCount(), 2u);
        EXPECT_TRUE(each->PushError(WithLevel(CKrError::IdError(1), CKrError::eInformation)));
        EXPECT_TRUE(each->PopStack());
        EXPECT_EQ(each->GetErrorCount(), 1u);
    }
    EXPECT_TRUE(stack.IsEmpty());
}

TEST_F(CKrErrorStackTest, StaysAsItWasWhereMemoryRunsOut)
{
    PushTexts({OLESTR("below")});
    stack.PushNewStack(CKrError::eInformation);
    PushTexts({OLESTR("top")});
    CKrErrorStack large;
    for (int count = 0; count < 300; ++count) // more than the stack has room for
        large.PushNewStack(CKrError::eWarning);
    auto const checkUnchanged = [&]
    {
        EXPECT_EQ(stack.GetStackCount(), 2u);
        EXPECT_EQ(stack.GetFormattedMessage(false, true, true), OLESTR("top"));
    };
    std::size_t const failures = FailEveryAllocation([&] { stack = large; }, checkUnchanged);
    EXPECT_GT(failures, 2u);
    EXPECT_EQ(stack.GetStackCount(), 301u);
    EXPECT_FALSE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eInformation)));
}

TEST_F(CKrErrorStackTest, GrowsByAListAndItsLevelOrByNeither)
{
    for (int count = 0; count < 300; ++count) // across the blocks of both
    {
        for (std::size_t n = 1;; ++n)
        {
            unsigned int const before = stack.GetStackCount();
            FailNthAllocation const fail(n);
            try
            {
                stack.PushNewStack(CKrError::eWarning);
                break;
            }
            catch (std::bad_alloc const &)
            {
                ASSERT_EQ(stack.GetStackCount(), before);
                ASSERT_FALSE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eInformation)));
            }
        }
    }
    EXPECT_EQ(stack.GetStackCount(), 301u);
    while (stack.PopStack()) {}
    EXPECT_FALSE(stack.PushError(WithLevel(CKrError::IdError(1), CKrError::eWarning))); // the first level is back
}

TEST_F(CKrErrorStackTest, ComesToLifeWhenItIsAskedForWithCreate)
{
    EXPECT_EQ(CKrErrorStack::GetObjectW(false), nullptr);
    CKrErrorStack * const made = CKrErrorStack::GetObjectW(true);
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(CKrErrorStack::GetObjectW(true), made);
    EXPECT_EQ(CKrErrorStack::GetObjectW(false), made);
}

TEST_F(CKrErrorStackTest, IsReplacedOnlyIfToldSo)
{
    auto first = new CountedStack;
    CKrErrorStack::SetObject(first, false);
    EXPECT_EQ(CKrErrorStack::GetObjectW(false), first);
    CountedStack kept;
    CKrErrorStack::SetObject(&kept, false); // the caller keeps it
    EXPECT_EQ(CKrErrorStack::GetObjectW(false), first);
    CKrErrorStack::SetObject(first, true); // the same object lives on
    EXPECT_EQ(CountedStack::living, 2);
    CKrErrorStack::SetObject(new CountedStack, true);
    EXPECT_EQ(CountedStack::living, 2); // the first is gone
    CKrErrorStack::SetObject(nullptr, true);
    EXPECT_EQ(CountedStack::living, 1);
    EXPECT_EQ(CKrErrorStack::GetObjectW(false), nullptr);
}

TEST_F(CKrErrorStackTest, IsNestedByAScopeGuard)
{
    CKrErrorStack * const process = CKrErrorStack::GetObjectW(true);
    {
        CKrPushErrorStack const guard;
        EXPECT_EQ(process->GetStackCount(), 2u);
        EXPECT_FALSE(process->PushError(WithLevel(CKrError::IdError(1), CKrError::eWarning)));
        {
            CKrPushErrorStack const inner(CKrError::eInformation);
            EXPECT_TRUE(process->PushError(WithLevel(CKrError::IdError(1), CKrError::eInformation)));
            EXPECT_EQ(process->GetStackCount(), 3u);
        }
        EXPECT_EQ(process->GetStackCount(), 2u);
    }
    EXPECT_EQ(process->GetStackCount(), 1u);
}

TEST_F(CKrErrorStackTest, LosesOneListTooManyByACopyOfTheGuard)
{
    CKrErrorStack * const process = CKrErrorStack::GetObjectW(true);
    process->PushNewStack(CKrError::eError);
    process->PushNewStack(CKrError::eError);
    {
        CKrPushErrorStack guard;
        CKrPushErrorStack copy(guard); // pushes nothing, yet pops
        copy = guard;
        EXPECT_EQ(process->GetStackCount(), 4u);
    }
    EXPECT_EQ(process->GetStackCount(), 2u);
}
