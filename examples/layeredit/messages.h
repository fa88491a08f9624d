// What the program tells its user: message ids, and the records that carry them.
#pragma once

#include <krcore/diagnostics/krerror.h>
#include <krcore/diagnostics/krmessagepool.h>
#include <krplatform/text/cstring.h>

namespace layeredit
{

/// The thousands of an id say what it does to the exit status; see `ExitStatusOf`.
enum MessageId : unsigned int
{
    eNoteDamagedBehind = 1000,
    eNoteCutOffBehind,
    eNoteReferences,
    eNoteNearestIndex,
    eNoteLineWeight,
    eNoteUnknownPage,
    eNoteEncodingUnused,
    eNoteByteOrderMark,
    eNoteNoColor,
    eNoteNoTrace,

    eEmptyFile = 2000,
    eBinaryDrawing,
    eDwgDrawing,
    eUtf16Text,
    eNoDrawing,
    eBadCode,
    eCutOff,
    eOpenTable,
    eBadNumber,
    eNoName,
    eNoFile,
    eNoFolder,
    eLostFileName,
    eCannotRead,
    eCannotWrite,
    eChangedMeanwhile,

    eBadCall = 3000,
    eNoEquals,
    eUnknownProperty,
    eFixedProperty,
    eBadValue,
    eSetTwice,
    eNoSelection,
    eUnknownEncoding,

    eNoLayer = 4000,

    eTooOld = 5000,
    eCurrentLayer,
    eNoLineType,
    eNoLayerLineType,
    eNeverPlotted,
    eTooLong,
    eNoApplication,
    eNoApplicationTable,
    eNoHandle
};

enum ExitStatus : int
{
    eDone = 0,
    eRefused = 1,
    eWrongCall = 2,
    eNothingMatches = 3,
    eNotHeld = 4
};

/// The texts of all ids; the arguments are formatted into them by the rules of `CString::Format`.
CKrMessagePool const & Messages();

/// 0 for a note; 1 for what is no message of this program, such as an exception.
ExitStatus ExitStatusOf(CKrError const & error);

/// Pushes the message onto the process's error stack, a note as a warning. Always false, so that an operation may end with it.
bool PushMessage(MessageId id, CString const & message);

template <class... Arguments>
bool Tell(MessageId id, Arguments const &... arguments)
{
    CString format;
    Messages().GetMessageW(id, format);
    CString message;
    message.Format(format, arguments...);
    return PushMessage(id, message);
}

/// The same for a failure of the system, whose code is the last error: "... : <the system's message>".
bool TellSystemFailure(MessageId id, CString const & name);

/// Writes the errors of the process's stack to standard error, the oldest first, and takes them off it; notes only unless `quiet`.
/// The highest exit status of them.
ExitStatus FlushMessages(bool quiet);

} // namespace layeredit
