// Codes of the last error that the functions for files, modules and messages set, beside those of hresult.h.
#pragma once

#include <krplatform/base/hresult.h>

// clang-format off
constexpr DWORD ERROR_TOO_MANY_OPEN_FILES   = 4;
constexpr DWORD ERROR_WRITE_PROTECT         = 19;
constexpr DWORD ERROR_BAD_UNIT              = 20;
constexpr DWORD ERROR_GEN_FAILURE           = 31;
constexpr DWORD ERROR_NOT_SUPPORTED         = 50;
constexpr DWORD ERROR_BROKEN_PIPE           = 109;
constexpr DWORD ERROR_INVALID_NAME          = 123;
constexpr DWORD ERROR_BUSY                  = 170;
constexpr DWORD ERROR_ALREADY_EXISTS        = 183;
constexpr DWORD ERROR_FILENAME_EXCED_RANGE  = 206;
constexpr DWORD ERROR_FILE_TOO_LARGE        = 223;
constexpr DWORD ERROR_MR_MID_NOT_FOUND      = 317;
constexpr DWORD ERROR_IO_DEVICE             = 1117;
constexpr DWORD ERROR_DISK_QUOTA_EXCEEDED   = 1295;
constexpr DWORD ERROR_CANT_RESOLVE_FILENAME = 1921;
// clang-format on
