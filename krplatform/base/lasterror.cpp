#include <krplatform/base/lasterror.h>

namespace
{

thread_local DWORD s_lastError = ERROR_SUCCESS;

} // namespace

DWORD GetLastError() { return s_lastError; }

void SetLastError(DWORD code) { s_lastError = code; }
