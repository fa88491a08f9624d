// Lists and changes the layers of DXF drawings; every other byte of them stays as it is.
#include "drawing_file.h"
#include "messages.h"
#include "progress.h"
#include "session.h"

#include <krcore/diagnostics/krerrorstack.h>
#include <krcore/diagnostics/krtrace.h>
#include <krcore/files/krfilename.h>
#include <krplatform/system/environment.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>

namespace
{

using namespace layeredit;

std::optional<CString> FromEnvironment(WCHAR const * name)
{
    WCHAR * value = nullptr;
    _wdupenv_s(&value, nullptr, name);
    std::unique_ptr<WCHAR, decltype(&std::free)> const owner(value, &std::free);
    return value ? std::optional<CString>(value) : std::nullopt;
}

bool HasColors()
{
    return IsOutputTerminal() && !FromEnvironment(OLESTR("NO_COLOR")) &&
           FromEnvironment(OLESTR("TERM")).value_or(CString()) != OLESTR("dumb");
}

/// Comes before everything else that traces: the first call makes the trace, on or off.
void StartTrace(CString const & name)
{
    if (name.IsEmpty())
        return;
    CKrFileName fileName;
    if (!MakeFileName(name, fileName))
        return;
    CKrTrace::GetObjectW(fileName.GetFullName(true), CString());
    if (!fileName.IsExisting())
        Tell(eNoteNoTrace, name);
}

/// A list is of all drawings; a change or a grid has none.
int WorkOnAll(Options const & options)
{
    bool const lists = options.set.empty() && !options.grid;
    LayerList list(std::cout, lists ? options.format : Format::Table, HasColors());
    ExitStatus highest = eDone;
    for (CString const & title : options.drawings)
        highest = std::max(highest, WorkOn(title, options, list));
    list.Finish();
    return highest;
}

} // namespace

int main(int count, char ** arguments)
{
    CKrPushErrorStack const messages(CKrError::eInformation); // the bottom list of the stack keeps no notes
    Options options;
    if (std::optional<int> const status = ReadOptions(count, arguments, options))
    {
        FlushMessages(false);
        return *status;
    }
    StartTrace(options.traceFile);
    FlushMessages(options.quiet);
    return WorkOnAll(options);
}
