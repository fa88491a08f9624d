// Errors, exceptions, messages and the trace where memory runs out.
#include <krcore/diagnostics/krcriticalexception.h>
#include <krcore/diagnostics/krerror.h>
#include <krcore/diagnostics/krerrorstack.h>
#include <krcore/diagnostics/krexception_guard.h>
#include <krcore/diagnostics/krmessagepool.h>
#include <krcore/diagnostics/krtrace.h>
#include <krplatform/system/messagebox.h>

#include "tests/memory/failing_rows.h"

#include <utility>

using namespace kr::test;

namespace
{

CString const none;
CString const message(OLESTR("a message of some length, which is not kept in place"));
CString const file(OLESTR("reader.cpp"));
CString const group(OLESTR("layers"));
CString const other(OLESTR("others"));

constexpr unsigned either = throwsMemory | throwsBadAlloc;
constexpr unsigned int resource = 101; // a text of this program

CKrError MakeError(CString const & text)
{
    CKrError error = CKrError::StringError(text);
    error.SetSecondMessage(text);
    error.AddLocation(file, 12);
    return error;
}

/// Nobody is asked while one lives.
class NoBox
{
public:
    NoBox() : m_former(AfxSetMessageBoxHandler([](WCHAR const *, unsigned int, unsigned int) { return IDOK; })) {}
    ~NoBox() { AfxSetMessageBoxHandler(m_former); }
    NoBox(NoBox const &) = delete;
    NoBox & operator=(NoBox const &) = delete;

private:
    AfxMessageBoxHandler m_former;
};

} // namespace

TEST(CKrErrorMemory, KeepsTheError)
{
    constexpr HRESULT unknown = kr::detail::HresultFromCode(0xA0001234);
    static _com_error comError(unknown);
    auto const stateOf = [](CKrError const & error)
    { return Described(error.GetErrorMessage(), error.GetSecondMessage(), error.GetFormattedMessage(true, true)); };
    NoBox const silent;
    // clang-format off
    ExpectRows([] { return MakeError(message); }, stateOf, std::vector<Row<CKrError>>{
        { "AddLocation",         throwsMemory, kept, [](CKrError & error) { error.AddLocation(OLESTR("writer.cpp"), 7); } },
        { "GetFormattedMessage", throwsMemory, kept, [](CKrError & error) { error.GetFormattedMessage(true, true); } },
        { "GetTraceMessage",     throwsMemory, kept, [](CKrError & error) { error.GetTraceMessage(); } },
        { "ReportError",         throwsMemory, kept, [](CKrError & error) { error.ReportError(true, true, 0); } },
        { "= and copy",          takesNone,    kept, [](CKrError & error) { CKrError const copy(error); error = copy; } },
    });
    ExpectRows({
        { "of numbers",          takesNone,    kept, [](Nothing) { CKrError::IdError(1); CKrError::ComError(2); CKrError::SystemError(5); } },
        { "of a text",           takesNone,    kept, [](Nothing) { CKrError::StringError(message); } },
        { "of a com error",      takesNone,    kept, [](Nothing) { CKrError::IdError(comError); CKrError::ComError(comError); } },
        { "SetLastError",        throwsBadAlloc, kept, [](Nothing)
          {
              CKrError::SetLastError(CKrError::IdError(5), true);
              CKrError::ClearLastError();
          } },
    });
    // clang-format on
}

TEST(CKrErrorMemory, AnswersOrThrowsWhereAMessageCannotBeFetched)
{
    static CKrMessagePool const & pool = []() -> CKrMessagePool const &
    {
        static CKrMessagePool made;
        made.AddMessageGroup(group, nullptr, false, false);
        return made;
    }();
    auto const stateOf = [](CKrError const & error) { return Described(error.GetErrorMessage()); };
    // clang-format off
    ExpectRows([] { return CKrError::IdError(resource); }, stateOf, std::vector<Row<CKrError>>{
        { "FillMessage pool",   throwsMemory, kept, [](CKrError & error) { return error.FillMessage(pool); } },
        { "FillMessage module", throwsMemory, kept, [](CKrError & error) { return error.FillMessage(nullptr); } },
    });
    // the system's function tells of it by its answer, and then there is no message
    ExpectRows([] { return CKrError::SystemError(5); }, stateOf, std::vector<Row<CKrError>>{
        { "FillMessage system", throwsMemory | tellsIt, kept, [](CKrError & error) { return error.FillMessage(nullptr); } },
    });
    // clang-format on
}

TEST(CKrErrorStackMemory, KeepsTheLists)
{
    static CKrErrorStack const & others = []() -> CKrErrorStack const &
    {
        static CKrErrorStack made;
        made.PushError(MakeError(other));
        made.PushNewStack(CKrError::eError);
        made.PushError(MakeError(other));
        return made;
    }();
    static CKrMessagePool const & pool = []() -> CKrMessagePool const &
    {
        static CKrMessagePool made;
        made.AddMessageGroup(group, nullptr, false, false);
        return made;
    }();
    static CKrError const pushed = MakeError(other);
    auto const make = []
    {
        CKrErrorStack stack;
        stack.PushError(MakeError(message));
        stack.PushError(CKrError::IdError(resource));
        return stack;
    };
    auto const stateOf = [](CKrErrorStack const & stack)
    { return Described(stack.GetStackCount(), stack.GetErrorCount(), stack.GetFormattedMessage(false, true, true)); };
    NoBox const silent;
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrErrorStack>>{
        { "=",                   throwsBadAlloc, kept,   [](CKrErrorStack & stack) { stack = others; } },
        { "copy",                throwsBadAlloc, kept,   [](CKrErrorStack & stack) { CKrErrorStack const copy(stack); } },
        { "PushError",           throwsBadAlloc, kept,   [](CKrErrorStack & stack) { stack.PushError(pushed); } },
        { "PushNewStack",        throwsBadAlloc, partly, [](CKrErrorStack & stack)
          {
              while (stack.GetStackCount() < 200) // until both lists need another block
                  stack.PushNewStack(CKrError::eWarning);
          } },
        { "FillMessages pool",   throwsMemory,   kept,   [](CKrErrorStack & stack) { stack.FillMessages(pool, false); } },
        { "FillMessages module", throwsMemory,   kept,   [](CKrErrorStack & stack) { stack.FillMessages(nullptr, true); } },
        { "GetFormattedMessage", throwsMemory,   kept,   [](CKrErrorStack & stack) { stack.GetFormattedMessage(false, true, true); } },
        { "ReportErrors",        throwsMemory,   kept,   [](CKrErrorStack & stack) { stack.ReportErrors(false, true, true, 0); } },
        { "GetTraceMessage",     throwsMemory,   kept,   [](CKrErrorStack & stack) { stack.GetTraceMessage(); } },
    });
    // clang-format on
}

TEST(CKrErrorStackMemory, LeavesNoneForTheProcess)
{
    struct Process
    {
        Process() { CKrErrorStack::SetObject(nullptr, true); }
        ~Process() { CKrErrorStack::SetObject(nullptr, true); }
        Process(Process const &) = delete;
        Process & operator=(Process const &) = delete;
    };
    auto const stateOf = [](Process const &)
    {
        CKrErrorStack const * const stack = CKrErrorStack::GetObjectW(false);
        return Described(stack != nullptr, stack ? stack->GetStackCount() : 0);
    };
    // clang-format off
    ExpectRows([] { return Process(); }, stateOf, std::vector<Row<Process>>{
        { "GetObjectW",        throwsBadAlloc, kept,   [](Process &) { CKrErrorStack::GetObjectW(true); } },
        { "CKrPushErrorStack", throwsBadAlloc, partly, [](Process &) { CKrPushErrorStack const pushed; } },
    });
    // clang-format on
}

TEST(CKrExceptionMemory, KeepsTheException)
{
    static CKrException const another(message, file, 7, CKrException::eLevelLow);
    auto const make = []
    {
        CKrException exception(message, file, 12, CKrException::eLevelNormal);
        return exception;
    };
    auto const stateOf = [](CKrException const & exception)
    { return Described(exception.GetLevel(), exception.GetErrorMessage(true)); };
    NoBox const silent;
    // clang-format off
    ExpectRows(make, stateOf, std::vector<Row<CKrException>>{
        { "=",               throwsMemory, kept, [](CKrException & exception) { exception = another; } },
        { "copy",            throwsMemory, kept, [](CKrException & exception) { CKrException const copy(exception); } },
        { "AddMessage",      throwsMemory, kept, [](CKrException & exception) { exception.AddMessage(other); } },
        { "AddPath",         throwsMemory, kept, [](CKrException & exception) { exception.AddPath(file, 13); } },
        { "GetErrorMessage", throwsMemory, kept, [](CKrException & exception) { exception.GetErrorMessage(true); } },
        { "GetTraceMessage", throwsMemory, kept, [](CKrException & exception) { exception.GetTraceMessage(); } },
        { "ReportError",     throwsMemory, kept, [](CKrException & exception) { exception.ReportError(0, true); } },
        { "what",            tellsIt,      kept, [](CKrException & exception) { return *exception.what() != 0; } },
    });
    ExpectRows({
        { "CKrException",         throwsMemory, kept, [](Nothing) { CKrException const made(message, file, 7, CKrException::eLevelLow); } },
        { "CKrCriticalException", throwsMemory, kept, [](Nothing) { CKrCriticalException const made(message, file, 7); } },
        { "what",                 tellsIt,      kept, [](Nothing)
          {
              static CKrCriticalException const made(message, file, 7);
              return *made.what() != 0;
          } },
        { "FormatText",           throwsMemory, kept, [](Nothing) { CKrException::FormatText(OLESTR("%s: %d"), file.GetString(), 7); } },
        { "FormatText resource",  throwsMemory, kept, [](Nothing) { CKrException::FormatText(100L, file.GetString()); } },
        { "location",             throwsMemory, kept, [](Nothing) { kr::detail::SourceLocation{"reader", 7}.ToString(); } },
        { "ThrowException",       either,       kept, [](Nothing)
          {
              try
              {
                  (new CKrException(message, file, 7, CKrException::eLevelLow))->ThrowException();
              }
              catch (CKrException const &)
              {
              }
          } },
    });
    // clang-format on
}

TEST(GuardMemory, ThrowsTheMemoryExceptionInPlaceOfWhatItWouldMake)
{
    auto const guarded = [](auto raise)
    {
        try
        {
            try
            {
                raise();
            }
            KR_CATCH_ALL_TEXT("reader", 12, "while reading")
        }
        catch (CKrException const &)
        {
        }
    };
    static CKrException const exception(message, file, 7, CKrException::eLevelLow);
    static CKrCriticalException const critical(message, file, 7);
    // clang-format off
    ExpectRows({
        { "CKrException",         throwsMemory | goesOn, kept, [guarded](Nothing) { guarded([] { throw exception; }); } },
        { "CKrCriticalException", throwsMemory | goesOn, kept, [guarded](Nothing) { guarded([] { throw critical; }); } },
        { "CException *",         throwsMemory | goesOn, kept, [guarded](Nothing) { guarded([] { AfxThrowOleException(E_FAIL); }); } },
        { "_com_error",           throwsMemory, kept, [guarded](Nothing) { guarded([] { throw _com_error(E_FAIL); }); } },
        { "std::exception",       throwsMemory, kept, [guarded](Nothing) { guarded([] { throw std::bad_alloc(); }); } },
        { "anything",             throwsMemory, kept, [guarded](Nothing) { guarded([] { throw 7; }); } },
    });
    // clang-format on
}

namespace
{

/// With a group of its own texts, and one of the program's that keeps what it fetches.
class Pool
{
public:
    Pool()
    {
        pool.AddMessageGroup(group);
        pool.AddMessage(1, message, group);
        pool.AddMessageGroup(other, nullptr, true, true);
        pool.AddMessage(resource, none, other);
    }

    CKrMessagePool pool;
    CString text = file;
};

std::string StateOf(Pool const & subject)
{
    CString found;
    std::string state = Described(subject.text);
    for (unsigned int id : {1u, 2u, 3u, resource})
        state += Described(subject.pool.GetMessageW(id, group, found), subject.pool.GetMessageW(id, found), found);
    return state;
}

} // namespace

TEST(CKrMessagePoolMemory, KeepsThePool)
{
    // clang-format off
    ExpectRows([] { return Pool(); }, [](Pool const & pool) { return StateOf(pool); }, std::vector<Row<Pool>>{
        { "AddMessageGroup",          throwsBadAlloc, kept, [](Pool & p) { p.pool.AddMessageGroup(file); } },
        { "AddMessageGroup default",  either,         kept, [](Pool & p) { p.pool.AddMessageGroup(none); } },
        { "AddMessageGroup module",   throwsBadAlloc, kept, [](Pool & p) { p.pool.AddMessageGroup(file, nullptr, true, true); } },
        { "AddMessageGroup database", throwsBadAlloc, kept, [](Pool & p) { p.pool.AddMessageGroup(file, none, none, true, true); } },
        { "AddMessage",               throwsBadAlloc, kept, [](Pool & p) { p.pool.AddMessage(2, message, group); } },
        { "AddMessage module",        either,         kept, [](Pool & p) { p.pool.AddMessage(100, message, other); } },
        { "MapID",                    throwsBadAlloc, kept, [](Pool & p) { p.pool.MapID(3, 1, group); } },
        { "SetIDRange",               throwsBadAlloc, kept, [](Pool & p) { p.pool.SetIDRange(1, 9, group); } },
        { "GetMessageW",              throwsMemory,   kept, [](Pool & p) { return p.pool.GetMessageW(1, p.text); } },
        { "RemoveMessage",            takesNone,      kept, [](Pool & p) { p.pool.RemoveMessage(1, group); } },
        { "RemoveMessageGroup",       takesNone,      kept, [](Pool & p) { p.pool.RemoveMessageGroup(group); } },
        { "RemoveMessageGroup default", throwsMemory, kept, [](Pool & p) { p.pool.RemoveMessageGroup(none); } },
    });
    ExpectRows({
        { "LoadResourceString", throwsMemory, kept, [](Nothing) { CString text; return CKrMessagePool::LoadResourceString(resource, nullptr, text); } },
    });
    // clang-format on
}

TEST(CKrMessagePoolMemory, KeepsTheOutputOfAFetching)
{
    auto const stateOf = [](Pool const & subject) { return Described(subject.text); };
    struct All : Pool
    {
        All() { pool.AddMessageGroup(file, nullptr, false, true); }
    };
    // clang-format off
    ExpectRows([] { return All(); }, stateOf, std::vector<Row<All>>{
        { "GetMessageW of a listed one", throwsMemory, kept, [](All & p) { return p.pool.GetMessageW(resource, other, p.text); } },
        { "GetMessageW of any other",    either,       kept, [](All & p) { return p.pool.GetMessageW(resource, file, p.text); } },
        { "LoadAllMessages",             throwsMemory, kept, [](All & p) { p.pool.LoadAllMessages(other); } },
    });
    // clang-format on
}

TEST(CKrTraceMemory, ThrowsAndWritesNothing)
{
    static CKrTrace & trace = []() -> CKrTrace &
    {
        static CKrTrace made(OLESTR("/dev/null"), none);
        return made;
    }();
    static CKrErrorStack const & stack = []() -> CKrErrorStack const &
    {
        static CKrErrorStack made;
        made.PushError(MakeError(message));
        return made;
    }();
    static CKrError const error = MakeError(message);
    static CKrException const exception(message, file, 7, CKrException::eLevelNormal);
    static CString const path(OLESTR("C:\\kr\\reader.cpp"));
    NoBox const silent;
    // clang-format off
    ExpectRows({
        { "a text",       throwsBadAlloc, kept, [](Nothing) { trace.Trace(message, true); } },
        { "a location",   throwsBadAlloc, kept, [](Nothing) { trace.Trace(message, file, 12); } },
        { "a path",       either,         kept, [](Nothing) { trace.Trace(message, path, 12); } },
        { "an error",     either,         kept, [](Nothing) { trace.Trace(error, true); } },
        { "a stack",      either,         kept, [](Nothing) { trace.Trace(stack); } },
        { "an exception", either,         kept, [](Nothing) { trace.Trace(exception, true); } },
        { "a copy",       takesNone,      kept, [](Nothing) { CKrTrace const copy(trace); } },
    });
    // clang-format on
}

TEST(CKrTraceMemory, LeavesNoneForTheProcess)
{
    struct Process
    {
        Process() { CKrTrace::SetObject(nullptr, true); }
        ~Process() { CKrTrace::SetObject(nullptr, true); }
        Process(Process const &) = delete;
        Process & operator=(Process const &) = delete;
    };
    static CString const variable(OLESTR("KR_TRACE_OF_NOBODY"));
    auto const stateOf = [](Process const &) { return Described(CKrTrace::GetObjectW(false) != nullptr); };
    // clang-format off
    ExpectRows([] { return Process(); }, stateOf, std::vector<Row<Process>>{
        { "GetObjectW",      throwsBadAlloc, kept, [](Process &) { CKrTrace::GetObjectW(true); } },
        { "GetObjectW name", throwsBadAlloc | goesOn, kept, [](Process &) { CKrTrace::GetObjectW(file, variable); } },
    });
    // clang-format on
}
