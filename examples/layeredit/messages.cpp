#include "messages.h"

#include "encoding.h"

#include <krcore/diagnostics/krerrorstack.h>
#include <krcore/diagnostics/krtrace.h>
#include <krplatform/base/lasterror.h>

#include <algorithm>
#include <iostream>

namespace layeredit
{

namespace
{

struct Group
{
    WCHAR const * name;
    unsigned int first;
    unsigned int last;
    ExitStatus status;
};

struct Message
{
    unsigned int id;
    WCHAR const * text;
};

// clang-format off

constexpr Group s_groups[] = {
    { OLESTR("notes"),    1000, 1999, eDone           },
    { OLESTR("drawings"), 2000, 2999, eRefused        },
    { OLESTR("calls"),    3000, 3999, eWrongCall      },
    { OLESTR("matches"),  4000, 4999, eNothingMatches },
    { OLESTR("layers"),   5000, 5999, eNotHeld        },
};

constexpr Message s_messages[] = {
    { eNoteDamagedBehind,  OLESTR("%s, line %ld: note: the drawing is damaged behind its layer table (\"%s\" stands where a group code should); the layers are sound, the rest stays as it is.") },
    { eNoteCutOffBehind,   OLESTR("%s, line %ld: note: the drawing is cut off behind its layer table, there is no EOF; the layers are sound, but look for a whole copy.") },
    { eNoteReferences,     OLESTR("%s: note: layers that come from references are left out (%d); --xref changes them too.") },
    { eNoteNearestIndex,   OLESTR("%s: note: %s has no true colour; %s becomes the nearest index, %s.") },
    { eNoteLineWeight,     OLESTR("%s: note: %s is none of the 24 line weights; %s is taken.") },
    { eNoteUnknownPage,    OLESTR("%s: note: the code page \"%s\" is unknown, texts are read as code page %u; --encoding tells another.") },
    { eNoteEncodingUnused, OLESTR("%s: note: --encoding is not used, the drawing says by itself that its texts are %s.") },
    { eNoteByteOrderMark,  OLESTR("%s: note: the drawing begins with a byte order mark, so its texts are read as UTF-8.") },
    { eNoteNoColor,        OLESTR("%s, line %ld: note: the layer \"%s\" has the colour %d, which is none for a layer; it counts as 7.") },
    { eNoteNoTrace,        OLESTR("layeredit: note: the trace file \"%s\" cannot be written; the work goes on without it.") },

    { eEmptyFile,          OLESTR("%s: the file is empty; look for a whole copy.") },
    { eBinaryDrawing,      OLESTR("%s: this is a binary DXF drawing; save it as ASCII DXF.") },
    { eDwgDrawing,         OLESTR("%s: this is a DWG drawing; save it as ASCII DXF.") },
    { eUtf16Text,          OLESTR("%s: this is text in UTF-16, which no drawing is; save the drawing anew as ASCII DXF.") },
    { eNoDrawing,          OLESTR("%s, line %ld: this is no DXF drawing, which begins with a SECTION (\"%s\" stands there); give another file.") },
    { eBadCode,            OLESTR("%s, line %ld: the drawing is damaged: \"%s\" stands where a group code should; repair the line or save the drawing anew.") },
    { eCutOff,             OLESTR("%s, line %ld: the drawing is cut off before the end of its layer table; look for a whole copy.") },
    { eOpenTable,          OLESTR("%s, line %ld: the drawing is damaged: the layer table is not ended where %s stands; save the drawing anew.") },
    { eBadNumber,          OLESTR("%s, line %ld: the drawing is damaged: group %d of a layer is \"%s\", which is no number for it; repair the line or save the drawing anew.") },
    { eNoName,             OLESTR("%s, line %ld: the drawing is damaged: a layer has no name; repair the record or save the drawing anew.") },
    { eNoFile,             OLESTR("%s: this is no regular file; give the name of a drawing.") },
    { eNoFolder,           OLESTR("%s: the folder is not there; make it first.") },
    { eLostFileName,       OLESTR("%s: the name cannot be held as a file name (a colon or backslash in it, or a point at its end); rename it.") },
    { eCannotRead,         OLESTR("%s: the file cannot be read: %s") },
    { eCannotWrite,        OLESTR("%s: the file cannot be written: %s") },
    { eChangedMeanwhile,   OLESTR("%s: the file was changed by another program meanwhile, nothing was written; try again.") },

    { eBadCall,            OLESTR("layeredit: %s; layeredit --help tells the options.") },
    { eNoEquals,           OLESTR("layeredit: \"%s\" should read PROPERTY=VALUE.") },
    { eUnknownProperty,    OLESTR("layeredit: \"%s\" is no property; a layer has %s.") },
    { eFixedProperty,      OLESTR("layeredit: %s cannot be set.") },
    { eBadValue,           OLESTR("layeredit: %s cannot be \"%s\"; it is %s.") },
    { eSetTwice,           OLESTR("layeredit: %s is set twice.") },
    { eNoSelection,        OLESTR("layeredit: --set needs --layer, --not or --all.") },
    { eUnknownEncoding,    OLESTR("layeredit: the code page \"%s\" is unknown; give a word such as ANSI_932, or its number.") },

    { eNoLayer,            OLESTR("%s: no layer matches (the drawing has %d); a call without options lists them all.") },

    { eTooOld,             OLESTR("%s: %s has no %s, nothing was written; save the drawing as %s or later.") },
    { eCurrentLayer,       OLESTR("%s: the layer \"%s\" is the current one and cannot be frozen, nothing was written; take it out by --not, or make another one current.") },
    { eNoLineType,         OLESTR("%s: the line type \"%s\" is not in the drawing, nothing was written; load it there first.") },
    { eNoLayerLineType,    OLESTR("%s: the line type \"%s\" is none for a layer, nothing was written; take another one.") },
    { eNeverPlotted,       OLESTR("%s: the layer \"%s\" is never plotted, nothing was written; take it out by --not.") },
    { eTooLong,            OLESTR("%s: the description takes %d bytes in this drawing, which holds 255, nothing was written; shorten it.") },
    { eNoApplication,      OLESTR("%s: a description needs the application AcAecLayerStandard, which the drawing lacks, nothing was written; --add-appid registers it.") },
    { eNoApplicationTable, OLESTR("%s: the drawing has no table of applications, which a description needs, nothing was written; save it anew.") },
    { eNoHandle,           OLESTR("%s: no free handle is known for the application that a description needs, nothing was written; repair the drawing first.") },
};

// clang-format on

/// A pool is not copied (its copies share their groups), so it is filled in place.
struct FilledPool
{
    FilledPool()
    {
        for (Group const & group : s_groups)
        {
            pool.AddMessageGroup(group.name);
            pool.SetIDRange(group.first, group.last, group.name);
            for (Message const & message : s_messages)
                if (message.id >= group.first && message.id <= group.last)
                    pool.AddMessage(message.id, message.text, group.name);
        }
    }

    CKrMessagePool pool;
};

} // namespace

CKrMessagePool const & Messages()
{
    static FilledPool const filled;
    return filled.pool;
}

ExitStatus ExitStatusOf(CKrError const & error)
{
    if (error.GetType() == CKrError::eIdError)
        for (Group const & group : s_groups)
            if (error.GetErrorID() >= group.first && error.GetErrorID() <= group.last)
                return group.status;
    return eRefused;
}

bool PushMessage(MessageId id, CString const & message)
{
    CKrError error = CKrError::IdError(id);
    error.SetLevel(ExitStatusOf(error) == eDone ? CKrError::eWarning : CKrError::eError);
    error.SetErrorMessage(message);
    CKrErrorStack::GetObjectW(true)->PushError(error);
    return false;
}

bool TellSystemFailure(MessageId id, CString const & name)
{
    CKrError system = CKrError::SystemError(GetLastError());
    system.FillMessage(Messages());
    CString reason = system.GetErrorMessage();
    return Tell(id, name, reason.Trim());
}

ExitStatus FlushMessages(bool quiet)
{
    CKrErrorStack & stack = *CKrErrorStack::GetObjectW(true);
    CKrTrace & trace = *CKrTrace::GetObjectW(true);
    ExitStatus highest = eDone;
    for (unsigned int index = 0; index < stack.GetErrorCount(); ++index)
    {
        CKrError const & error = *stack.GetErrorAt(index);
        trace.Trace(error, false);
        highest = std::max(highest, ExitStatusOf(error));
        if (!quiet || error.GetLevel() >= CKrError::eError)
            std::cerr << OnOneLine(error.GetErrorMessage()) << "\n";
    }
    stack.ClearStack();
    return highest;
}

} // namespace layeredit
