#include <krcore/diagnostics/krtrace.h>

#include "tests/diagnostics/message_box.h"
#include "tests/support/child_process.h"
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <unistd.h>

using namespace kr::test;

namespace
{

constexpr char const * variable = "KR_TRACE_TEST";

class CKrTraceTest : public testing::Test
{
protected:
    CKrTraceTest() : path(std::filesystem::temp_directory_path() / ("krtrace." + std::to_string(getpid())))
    {
        unsetenv(variable);
        CKrTrace::SetObject(nullptr, true);
    }
    ~CKrTraceTest() override
    {
        CKrTrace::SetObject(nullptr, true);
        unsetenv(variable);
        std::filesystem::remove(path);
    }

    CString Name() const { return CString(path.c_str()); }
    std::string Written() const
    {
        std::ifstream file(path, std::ios::binary);
        std::ostringstream content;
        content << file.rdbuf();
        return content.str();
    }

    std::filesystem::path path;
};

/// An explicit instantiation may name what is private.
template <auto operation>
struct Private
{
    friend bool CheckTrace(CString const & name) { return operation(name); }
};
bool CheckTrace(CString const & name);
template struct Private<&CKrTrace::CheckTrace>;

/// The calls of the system that have written so far in this process; -1 where the system does not count them.
long CountWrites()
{
    std::ifstream stream("/proc/self/io");
    std::string name;
    for (long value; stream >> name >> value;)
    {
        if (name == "syscw:")
            return value;
    }
    return -1;
}

CKrException MakeException(CKrException::ELevel level) { return CKrException(OLESTR("a"), OLESTR("f"), 3, level); }

struct CountedTrace : CKrTrace
{
    CountedTrace() { ++living; }
    ~CountedTrace() override { --living; }
    static inline int living = 0;
};

} // namespace

TEST_F(CKrTraceTest, IsOffAndTouchesNoFileWithoutItsVariable)
{
    // clang-format off
    struct { char const * value; bool on; } const rows[] = {
        { nullptr,  false },
        { "",       false },
        { "true",   true  },
        { "TRUE",   false },
        { "1",      false },
        { "true ",  false },
        { " true",  false },
        { "truer",  false },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        SCOPED_TRACE(row.value ? row.value : "not set");
        std::filesystem::remove(path);
        if (row.value)
            setenv(variable, row.value, 1);
        CKrTrace trace(Name(), CString(variable));
        EXPECT_EQ(trace.IsOn(), row.on);
        trace.Trace(OLESTR("line"), true);
        EXPECT_EQ(std::filesystem::exists(path), row.on);
    }
}

TEST_F(CKrTraceTest, IsOnWithoutTheNameOfAVariable)
{
    CKrTrace const trace(Name(), CString());
    EXPECT_TRUE(trace.IsOn());
    EXPECT_EQ(Written(), "");
}

TEST_F(CKrTraceTest, CutsAnOlderFileToNothing)
{
    std::ofstream(path) << "old";
    CKrTrace const trace(Name(), CString());
    EXPECT_EQ(Written(), "");
}

TEST_F(CKrTraceTest, WritesEachLineAtOnce)
{
    CKrTrace trace(Name(), CString());
    trace.Trace(OLESTR("one"), true);
    EXPECT_EQ(Written(), "one\n");
    trace.Trace(OLESTR(""), false); // the flag has no effect
    EXPECT_EQ(Written(), "one\n\n");
    trace.Trace(OLESTR("a\nb"), true);
    EXPECT_EQ(Written(), "one\n\na\nb\n");
}

TEST_F(CKrTraceTest, WritesEachLineByOneCallOfTheSystem)
{
    if (CountWrites() < 0)
        GTEST_SKIP() << "the system does not count calls";
    CKrTrace trace(Name(), CString());
    long const before = CountWrites();
    trace.Trace(OLESTR("a plain line"), true);
    EXPECT_EQ(CountWrites(), before + 1);
    trace.Trace(OLESTR("W\u00E4nde\nand a second line"), true);
    EXPECT_EQ(CountWrites(), before + 2);
    trace.Trace(OLESTR("located"), OLESTR("krdll"), 270);
    EXPECT_EQ(CountWrites(), before + 3);
    trace.Trace(CKrError::IdError(5), false);
    EXPECT_EQ(CountWrites(), before + 4);
}

TEST_F(CKrTraceTest, PutsTimeAndLocationInFront)
{
    // clang-format off
    struct { WCHAR const * file; long number; char const * shown; } const rows[] = {
        { OLESTR("krdll"),        270,         "krdll                         (270)" },   // 30 characters
        { OLESTR("a\\b\\c.txt"),  270,         "c.txt                         (270)" },
        { OLESTR("\\c.txt"),      270,         "\\c.txt                        (270)" },   // its only backslash is the first character
        { OLESTR("a/b"),          270,         "a/b                           (270)" },   // no separator
        { OLESTR("a\\"),          270,         "                              (270)" },
        { OLESTR(""),             0,           "                              (0)"   },
        { OLESTR("%s"),           -1,          "%s                            (-1)"  },
        { OLESTR("krdll"),        4294967301L, "krdll                         (5)"   },   // the low 32 bits
        { OLESTR("a-name-of-thirty-characters-xx"),    270, "a-name-of-thirty-characters-xx(270)"    },
        { OLESTR("a-name-that-is-longer-than-thirty"), 270, "a-name-that-is-longer-than-thirty(270)" },
    };
    // clang-format on
    for (auto const & row : rows)
    {
        CKrTrace trace(Name(), CString());
        trace.Trace(OLESTR("text"), row.file, row.number);
        std::string line = Written();
        ASSERT_GT(line.size(), 8u);
        for (std::size_t const digit : {0u, 1u, 3u, 4u, 6u, 7u}) // the time
        {
            EXPECT_TRUE(line[digit] >= '0' && line[digit] <= '9') << line;
            line[digit] = '0';
        }
        EXPECT_EQ(line, std::string("00:00:00-") + row.shown + ": \ttext\n");
    }
}

TEST_F(CKrTraceTest, DISABLED_TellsTheTimeOfTheUsersZone)
{
    auto const clock = []
    {
        std::time_t const now = std::time(nullptr) + (5 * 60 + 30) * 60; // the zone that the other test sets
        std::tm fields{};
        gmtime_r(&now, &fields);
        char text[9] = "";
        std::strftime(text, sizeof text, "%H:%M:%S", &fields);
        return std::string(text);
    };
    CKrTrace trace(Name(), CString());
    std::string const before = clock();
    trace.Trace(OLESTR("text"), OLESTR("file"), 1);
    std::string const after = clock();
    std::string const written = Written().substr(0, 8);
    EXPECT_TRUE(before <= after ? before <= written && written <= after : written >= before || written <= after)
        << before << " " << written << " " << after;
}

TEST_F(CKrTraceTest, TellsTheTimeOfTheUsersZone)
{
    ChildResult const result = RunTestInChild("CKrTraceTest.DISABLED_TellsTheTimeOfTheUsersZone", {{"TZ", "KRT-5:30"}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

TEST_F(CKrTraceTest, DISABLED_WritesInAWesternCodePage)
{
    CKrTrace trace(Name(), CString());
    trace.Trace(OLESTR("W\u00E4nd\u00FC"), true);
    EXPECT_EQ(Written(), "W\xE4nd\xFC\n");
    trace.Trace(OLESTR("\u0100\u3042\xD800"), true); // a best fit, and the default character
    EXPECT_EQ(Written(), "W\xE4nd\xFC\nA??\n");
}

TEST_F(CKrTraceTest, WritesInAWesternCodePage)
{
    ChildResult const result =
        RunTestInChild("CKrTraceTest.DISABLED_WritesInAWesternCodePage", {{"LC_ALL", "de_DE.ISO-8859-1"}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

TEST_F(CKrTraceTest, DISABLED_WritesWhatFitsTwoBytesInUtf8)
{
    CKrTrace trace(Name(), CString());
    trace.Trace(OLESTR("\u00E4\u20AC"), true);
    EXPECT_EQ(Written(), "\xC3\xA4?\n");
    trace.Trace(OLESTR("\u00FC"), OLESTR("W\u00E4nde"), 1);
    std::string const padding(25, ' '); // of 30 characters, not bytes
    EXPECT_EQ(Written().substr(13), "W\xC3\xA4nde" + padding + "(1): \t\xC3\xBC\n");
}

TEST_F(CKrTraceTest, WritesWhatFitsTwoBytesInUtf8)
{
    ChildResult const result =
        RunTestInChild("CKrTraceTest.DISABLED_WritesWhatFitsTwoBytesInUtf8", {{"LC_ALL", "de_DE.UTF-8"}});
    EXPECT_EQ(result.exitStatus, 0) << result.output;
}

TEST_F(CKrTraceTest, WritesAndShowsErrors)
{
    MessageBoxRecorder boxes(IDYES);
    CKrError error = CKrError::IdError(5);
    error.SetErrorMessage(OLESTR("m"));
    error.SetSecondMessage(OLESTR("s"));
    error.AddLocation(OLESTR("f"), 1);
    CKrTrace trace(Name(), CString());
    trace.Trace(error, false);
    EXPECT_EQ(Written(), "\n*** ErrorBegin ***\nError-ID : 5\nm\ns\nf(1): \n*** ErrorEnd ***\n\n\n");
    EXPECT_EQ(boxes.Shown(), 0);
    trace.Trace(error, true);
    EXPECT_EQ(boxes.Shown(), 1);
    EXPECT_EQ(boxes.Text(), OLESTR("m\nf(1): ")); // the location, but no second message
    EXPECT_EQ(boxes.Style(), 0x10u);
    trace.SetReportError(false);
    trace.Trace(error, true);
    EXPECT_EQ(boxes.Shown(), 1);
}

TEST_F(CKrTraceTest, WritesErrorStacks)
{
    CKrErrorStack stack;
    stack.PushError(CKrError::StringError(OLESTR("x")));
    CKrTrace(Name(), CString()).Trace(stack);
    EXPECT_EQ(Written(), "\n*** ErrorStackBegin ***\nx\n*** ErrorStackEnd ***\n\n\n");
}

TEST_F(CKrTraceTest, WritesAndShowsExceptionsFromItsLevelOn)
{
    MessageBoxRecorder boxes(IDYES);
    CKrTrace trace(Name(), CString());
    EXPECT_EQ(trace.GetErrorLevel(), CKrException::eLevelLow);
    trace.Trace(MakeException(CKrException::eLevelNormal), false);
    std::string const block = "\n*** ExceptionBegin ***\na\nf(3): \n*** ExceptionEnd ***\n\n\n";
    EXPECT_EQ(Written(), block);
    EXPECT_EQ(boxes.Shown(), 0);

    trace.SetErrorLevel(CKrException::eLevelCritical);
    trace.SetReportAllExceptions(true);
    trace.Trace(MakeException(CKrException::eLevelNormal), true);
    EXPECT_EQ(Written(), block); // neither written nor shown
    EXPECT_EQ(boxes.Shown(), 0);
    trace.Trace(MakeException(CKrException::eLevelCritical), false);
    EXPECT_EQ(Written(), block + block);
    EXPECT_EQ(boxes.Shown(), 1); // all exceptions are reported
    EXPECT_EQ(boxes.Text(), OLESTR("a"));
    EXPECT_EQ(boxes.Style(), 0u);

    trace.SetReportAllExceptions(false);
    trace.Trace(MakeException(CKrException::eLevelCritical), true);
    EXPECT_EQ(boxes.Shown(), 2);
    trace.SetReportError(false);
    trace.Trace(MakeException(CKrException::eLevelCritical), true);
    EXPECT_EQ(boxes.Shown(), 2);
}

TEST_F(CKrTraceTest, HasItsFlagsAtStart)
{
    CKrTrace const trace(Name(), CString());
    EXPECT_TRUE(trace.GetReportError());
    EXPECT_FALSE(trace.GetReportAllExceptions());
}

TEST_F(CKrTraceTest, ShowsNothingWhileItIsOff)
{
    MessageBoxRecorder boxes(IDYES);
    CKrTrace * const off = CKrTrace::GetObjectW(true);
    EXPECT_FALSE(off->IsOn());
    off->SetReportAllExceptions(true);
    off->Trace(CKrError::IdError(1), true);
    off->Trace(MakeException(CKrException::eLevelCritical), true);
    off->Trace(CKrErrorStack());
    off->Trace(OLESTR("text"), OLESTR("file"), 1);
    EXPECT_EQ(boxes.Shown(), 0);
}

TEST_F(CKrTraceTest, LosesItsLinesSilentlyWhereTheFileCannotBeOpenedOrWritten)
{
    MessageBoxRecorder boxes(IDYES);
    CKrTrace missing(OLESTR("/no such folder/trace"), CString());
    EXPECT_TRUE(missing.IsOn());
    missing.Trace(OLESTR("lost"), true);
    CKrTrace full(OLESTR("/dev/full"), CString());
    EXPECT_TRUE(full.IsOn());
    full.Trace(OLESTR("lost"), true);
    EXPECT_EQ(boxes.Shown(), 0);
}

TEST_F(CKrTraceTest, IsOffAndSaysSoWhereOpeningTheFileThrows)
{
    MessageBoxRecorder boxes(IDYES);
    CString const name = Name(), none;
    int failures = 0;
    for (std::size_t n = 1;; ++n)
    {
        FailNthAllocation const fail(n);
        try
        {
            CKrTrace const trace(name, none);
            EXPECT_EQ(trace.IsOn(), !fail.HasFailed());
            if (!fail.HasFailed())
                break;
        }
        catch (std::bad_alloc const &) // of the stream's own storage
        {
            continue;
        }
        EXPECT_EQ(boxes.Shown(), ++failures);
        EXPECT_EQ(boxes.Text(), OLESTR("can\u00B4t open trace file"));
        EXPECT_EQ(boxes.Style(), 0u);
        EXPECT_EQ(boxes.HelpContext(), 0u);
    }
    EXPECT_GT(failures, 0);
}

TEST_F(CKrTraceTest, IsSwitchedOnByExactlyTrue)
{
    EXPECT_FALSE(CheckTrace(CString(variable))) << "not set";
    for (char const * const value : {"", "TRUE", "1", "true ", " true", "truea"})
    {
        setenv(variable, value, 1);
        EXPECT_FALSE(CheckTrace(CString(variable))) << value;
    }
    setenv(variable, "true", 1);
    EXPECT_TRUE(CheckTrace(CString(variable)));
    EXPECT_FALSE(CheckTrace(CString())) << "no name is no variable";
}

TEST_F(CKrTraceTest, IsOneForTheProcess)
{
    EXPECT_EQ(CKrTrace::GetObjectW(false), nullptr);
    CKrTrace * const trace = CKrTrace::GetObjectW(Name(), CString());
    EXPECT_TRUE(trace->IsOn());
    EXPECT_EQ(CKrTrace::GetObjectW(OLESTR("/other"), CString()), trace); // the arguments are ignored
    EXPECT_EQ(CKrTrace::GetObjectW(true), trace);
    EXPECT_EQ(CKrTrace::GetObjectW(false), trace);
}

TEST_F(CKrTraceTest, StaysOffIfItIsFirstAskedForWithoutAFile)
{
    CKrTrace * const trace = CKrTrace::GetObjectW(true);
    EXPECT_EQ(CKrTrace::GetObjectW(Name(), CString()), trace);
    EXPECT_FALSE(trace->IsOn());
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(CKrTraceTest, IsReplacedOnlyIfToldSo)
{
    auto * const first = new CountedTrace;
    CKrTrace::SetObject(first, false);
    CountedTrace kept;
    CKrTrace::SetObject(&kept, false); // the caller keeps it
    EXPECT_EQ(CKrTrace::GetObjectW(false), first);
    CKrTrace::SetObject(first, true);
    EXPECT_EQ(CountedTrace::living, 2);
    CKrTrace::SetObject(nullptr, true);
    EXPECT_EQ(CountedTrace::living, 1);
    EXPECT_EQ(CKrTrace::GetObjectW(false), nullptr);
}

TEST_F(CKrTraceTest, SharesItsFileWithACopy)
{
    auto trace = std::make_unique<CKrTrace>(Name(), CString());
    trace->SetErrorLevel(CKrException::eLevelCritical);
    trace->SetReportError(false);
    trace->SetReportAllExceptions(true);
    CKrTrace copy(*trace);
    CountedTrace assigned;
    assigned.CKrTrace::operator=(*trace);
    for (CKrTrace const * const each : {&copy, static_cast<CKrTrace *>(&assigned)})
    {
        EXPECT_EQ(each->GetErrorLevel(), CKrException::eLevelCritical);
        EXPECT_FALSE(each->GetReportError());
        EXPECT_TRUE(each->GetReportAllExceptions());
        EXPECT_TRUE(each->IsOn());
    }
    trace->Trace(OLESTR("one"), true);
    trace.reset();
    copy.Trace(OLESTR("two"), true);
    assigned.Trace(OLESTR("three"), true);
    EXPECT_EQ(Written(), "one\ntwo\nthree\n");
}
