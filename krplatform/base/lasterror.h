// The last error of the calling thread, as the functions of the system leave it.
#pragma once

#include <krplatform/base/hresult.h>
#include <krplatform/export.h>

/// The code of the calling thread's last failure. Functions that succeed may leave it as it was.
KRPLATFORM_API DWORD GetLastError();
KRPLATFORM_API void SetLastError(DWORD code);
