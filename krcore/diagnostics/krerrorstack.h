// The process's stack of error lists.
#pragma once

#include <krcore/diagnostics/krerror.h>
#include <krcore/export.h>

#include <deque>
#include <memory>
#include <vector>

/// A stack of error lists, each with the least level that it keeps; only the topmost is read or written. There is one stack per
/// process, made on first use and reached by `GetObjectW`; threads that share it take turns by themselves.
///
///     CKrErrorStack * stack = CKrErrorStack::GetObjectW(true);
///     stack->PushError(CKrError::IdError(1500));          -> true
///     stack->FillMessages(pool, false);
///     stack->ReportErrors(false, true, false, 0);         shows the newest failure first, its causes after it
class KRCORE_API CKrErrorStack
{
public:
    /// One empty list of least level `eError`.
    CKrErrorStack();
    CKrErrorStack(CKrErrorStack const & other);
    CKrErrorStack & operator=(CKrErrorStack const & other);
    virtual ~CKrErrorStack();

    /// The process's stack; if there is none, a new one with `create`, otherwise null.
    static CKrErrorStack * GetObjectW(bool create);
    /// Makes `stack` the process's stack and takes ownership. Where there is one already and `overwrite` is not set nothing happens,
    /// and the caller keeps `stack`. A replaced stack is destroyed; null leaves none.
    static void SetObject(CKrErrorStack * stack, bool overwrite);

    /// Keeps a copy as the newest error; false, and nothing kept, below the list's least level.
    bool PushError(CKrError const & error);
    /// Removes the newest error; false if there is none.
    bool PopError();
    /// The newest error, or null; valid until the list changes.
    CKrError * GetLastError();
    /// The error at that place, the oldest at 0, or null.
    CKrError * GetErrorAt(unsigned int index);
    unsigned int GetErrorCount() const;
    bool IsEmpty() const;

    /// At least 1.
    unsigned int GetStackCount() const;
    /// Puts a new list on top; always true.
    bool PushNewStack(CKrError::ELevel level);
    /// Drops the top list with its errors; false if only one is left.
    bool PopStack();
    /// Drops the errors of the top list; always true.
    bool ClearStack();
    /// Drops all lists but the bottom one; always true. Deliberate: the bottom list keeps its errors.
    bool Clear();

    /// `CKrError::FillMessage` on the errors of the top list, newest first, or on the newest alone; always true.
    bool FillMessages(CKrMessagePool const & pool, bool lastOnly);
    bool FillMessages(HINSTANCE module, bool lastOnly);

    /// The texts of the top list, newest first, empty ones left out, with line ends between them; with `lastOnly` that of the newest,
    /// even if it is empty.
    CString GetFormattedMessage(bool lastOnly, bool second, bool location) const;
    /// Shows the text in a box, with the stop icon unless `style` has one, and returns the answer; empty text shows nothing and gives 0.
    virtual int ReportErrors(bool lastOnly, bool second, bool location, unsigned int style) const;
    /// The block for the trace file.
    virtual CString GetTraceMessage() const;

private:
    std::deque<std::vector<CKrError>> m_stacks;
    std::deque<CKrError::ELevel> m_levels;

    static std::unique_ptr<CKrErrorStack> s_pCKrErrorStackStatic;
};

/// Puts a new list on the process's stack for as long as it lives. The errors in it are lost at the end unless they were read before.
class KRCORE_API CKrPushErrorStack
{
public:
    explicit CKrPushErrorStack(CKrError::ELevel level = CKrError::eError);
    /// Deliberate: pushes nothing, yet the copy's destructor pops.
    CKrPushErrorStack(CKrPushErrorStack const & other);
    /// Does nothing.
    CKrPushErrorStack & operator=(CKrPushErrorStack const & other);
    virtual ~CKrPushErrorStack();
};
