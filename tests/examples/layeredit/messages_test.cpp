#include <examples/layeredit/messages.h>

#include <krcore/diagnostics/krerrorstack.h>

#include <gtest/gtest.h>

namespace layeredit
{

TEST(Messages, TheHighestStatusCountsWhateverComesLastAndTheStackIsEmptyAfterwards)
{
    CKrPushErrorStack const errors(CKrError::eInformation);
    EXPECT_EQ(FlushMessages(true), eDone);
    EXPECT_FALSE(Tell(eNoName, OLESTR("a"), 1L));
    Tell(eNoteByteOrderMark, OLESTR("a"));
    testing::internal::CaptureStderr();
    EXPECT_EQ(FlushMessages(true), eRefused);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "a, line 1: the drawing is damaged: a layer has no name; repair the record or save the drawing anew.\n");
    EXPECT_TRUE(CKrErrorStack::GetObjectW(true)->IsEmpty());
}

TEST(Messages, EachRangeOfIdsHasItsStatusAndWhatIsNoMessageIsARefusal)
{
    EXPECT_EQ(ExitStatusOf(CKrError::IdError(eNoteNoTrace)), eDone);
    EXPECT_EQ(ExitStatusOf(CKrError::IdError(eEmptyFile)), eRefused);
    EXPECT_EQ(ExitStatusOf(CKrError::IdError(eBadCall)), eWrongCall);
    EXPECT_EQ(ExitStatusOf(CKrError::IdError(eNoLayer)), eNothingMatches);
    EXPECT_EQ(ExitStatusOf(CKrError::IdError(eTooOld)), eNotHeld);
    EXPECT_EQ(ExitStatusOf(CKrError::StringError(OLESTR("thrown"))), eRefused);
    EXPECT_EQ(ExitStatusOf(CKrError::SystemError(5)), eRefused);
}

TEST(Messages, EveryIdHasAText)
{
    struct Range
    {
        unsigned int first;
        unsigned int last;
    };
    for (Range const & range :
         {Range{eNoteDamagedBehind, eNoteNoTrace}, Range{eEmptyFile, eChangedMeanwhile},
          Range{eBadCall, eUnknownEncoding}, Range{eNoLayer, eNoLayer}, Range{eTooOld, eNoHandle}})
        for (unsigned int id = range.first; id <= range.last; ++id)
        {
            CString text;
            EXPECT_TRUE(Messages().GetMessageW(id, text)) << id;
            EXPECT_FALSE(text.IsEmpty()) << id;
        }
}

} // namespace layeredit
