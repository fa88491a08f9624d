#include <examples/layeredit/progress.h>

#include <gtest/gtest.h>

#include <sstream>

namespace layeredit
{

namespace
{

using Time = std::chrono::steady_clock::time_point;

Time s_now;

Time Now() { return s_now; }

void Wait(int milliseconds) { s_now += std::chrono::milliseconds(milliseconds); }

} // namespace

TEST(Progress, ShowsNothingInTheFirstSecondAndThenTenLinesASecondAtMost)
{
    std::ostringstream terminal;
    {
        Progress progress(OLESTR("a.dxf"), &terminal, &Now);
        progress.Show(1, 10);
        Wait(999);
        progress.Show(2, 10);
        EXPECT_EQ(terminal.str(), "");
        Wait(1);
        progress.Show(3, 10);
        EXPECT_EQ(terminal.str(), "\ra.dxf: 30 %");
        Wait(99);
        progress.Show(4, 10);
        EXPECT_EQ(terminal.str(), "\ra.dxf: 30 %");
        Wait(1);
        progress.Show(10, 10);
        EXPECT_EQ(terminal.str(), "\ra.dxf: 30 %\ra.dxf: 100 %");
    }
    EXPECT_EQ(terminal.str(), "\ra.dxf: 30 %\ra.dxf: 100 %\r            \r"); // wiped out
}

TEST(Progress, IsSilentWithoutATerminalAndForNothing)
{
    {
        Progress progress(OLESTR("a.dxf"), nullptr, &Now);
        Wait(5000);
        progress.Show(1, 2);
    }
    std::ostringstream terminal;
    {
        Progress progress(OLESTR("a.dxf"), &terminal, &Now);
        Wait(5000);
        progress.Show(0, 0);
    }
    EXPECT_EQ(terminal.str(), "");
}

TEST(Progress, ReckonsWithSizesBeyond32Bits)
{
    std::ostringstream terminal;
    Progress progress(OLESTR("a.dxf"), &terminal, &Now);
    Wait(5000);
    progress.Show(9'000'000'000, 10'000'000'000);
    EXPECT_EQ(terminal.str(), "\ra.dxf: 90 %");
}

} // namespace layeredit
