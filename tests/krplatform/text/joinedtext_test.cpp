#include <krplatform/text/joinedtext.h>

#include "tests/krplatform/automation/thrown_result.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

using kr::detail::JoinedText;
using kr::detail::TextView;
using kr::test::ThrownResult;

TEST(JoinedText, HasAllPiecesInTheirOrder)
{
    using namespace std::string_view_literals;
    std::vector<TextView> const pieces = {u"wall"sv, u""sv, TextView(), u"\0s"sv, u"wall"sv};
    CString const text = JoinedText(pieces);
    EXPECT_EQ(text.View(), u"wall\0swall"sv);
    EXPECT_EQ(text.GetString()[text.GetLength()], 0);
}

TEST(JoinedText, TakesNoStorageForNothing)
{
    EXPECT_EQ(JoinedText({}).GetString(), CString().GetString());
    std::vector<TextView> const pieces(3);
    EXPECT_EQ(JoinedText(pieces).GetString(), CString().GetString());
}

TEST(JoinedText, IsNeverLongerThanATextCanBe)
{
    CString const million(OLESTR(' '), 1 << 20);
    std::vector<TextView> const pieces(2048, million.View()); // 2^31 units, one more than a length counts
    EXPECT_EQ(ThrownResult([&] { JoinedText(pieces); }), E_OUTOFMEMORY);
}

} // namespace
