// Message boxes, and the hook that stands in for them.
#pragma once

#include <krplatform/base/types.h>
#include <krplatform/export.h>

// clang-format off
constexpr UINT MB_OK              = 0x00;
constexpr UINT MB_OKCANCEL        = 0x01;
constexpr UINT MB_YESNOCANCEL     = 0x03;
constexpr UINT MB_YESNO           = 0x04;
constexpr UINT MB_ICONSTOP        = 0x10;
constexpr UINT MB_ICONQUESTION    = 0x20;
constexpr UINT MB_ICONEXCLAMATION = 0x30;
constexpr UINT MB_ICONINFORMATION = 0x40;
constexpr UINT MB_ICONMASK        = 0xF0;

constexpr int IDOK     = 1;
constexpr int IDCANCEL = 2;
constexpr int IDYES    = 6;
constexpr int IDNO     = 7;
// clang-format on

/// Shows a box and returns the answer.
using AfxMessageBoxHandler = int (*)(WCHAR const * text, unsigned int style, unsigned int helpContext);

/// Installs a handler and returns the one before it. Null brings back the handler at start, which on Linux writes the
/// text as UTF-8 and a line end to standard error, needs no memory for it, and answers `IDOK`.
KRPLATFORM_API AfxMessageBoxHandler AfxSetMessageBoxHandler(AfxMessageBoxHandler handler);

/// Hands the text to the handler and returns its answer. A null text is empty text.
KRPLATFORM_API int AfxMessageBox(WCHAR const * text, UINT style = MB_OK, UINT helpContext = 0);
