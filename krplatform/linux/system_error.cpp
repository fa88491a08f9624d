#include <krplatform/base/lasterror.h>
#include <krplatform/linux/system_error.h>
#include <krplatform/system/errorcodes.h>

#include <cerrno>

namespace kr::detail
{

namespace
{

struct SystemError
{
    int number;
    DWORD code;
};

// clang-format off
constexpr SystemError s_errors[] = {
    { ENOENT,       ERROR_FILE_NOT_FOUND        },
    { ENOTDIR,      ERROR_PATH_NOT_FOUND        },
    { EACCES,       ERROR_ACCESS_DENIED         },
    { EPERM,        ERROR_ACCESS_DENIED         },
    { EISDIR,       ERROR_ACCESS_DENIED         },
    { EROFS,        ERROR_WRITE_PROTECT         },
    { EBADF,        ERROR_INVALID_HANDLE        },
    { EINVAL,       ERROR_INVALID_PARAMETER     },
    { ENOMEM,       ERROR_NOT_ENOUGH_MEMORY     },
    { EMFILE,       ERROR_TOO_MANY_OPEN_FILES   },
    { ENFILE,       ERROR_TOO_MANY_OPEN_FILES   },
    { EWOULDBLOCK,  ERROR_SHARING_VIOLATION     },  // of a lock that another holds
    { ETXTBSY,      ERROR_SHARING_VIOLATION     },  // writing to a program that runs
    { EBUSY,        ERROR_BUSY                  },
    { EEXIST,       ERROR_ALREADY_EXISTS        },
    { ENOSPC,       ERROR_DISK_FULL             },
    { EDQUOT,       ERROR_DISK_QUOTA_EXCEEDED   },
    { EFBIG,        ERROR_FILE_TOO_LARGE        },
    { ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE  },
    { ELOOP,        ERROR_CANT_RESOLVE_FILENAME },
    { ENXIO,        ERROR_BAD_UNIT              },
    { ENODEV,       ERROR_BAD_UNIT              },
    { EIO,          ERROR_IO_DEVICE             },
    { EPIPE,        ERROR_BROKEN_PIPE           },
    { EOPNOTSUPP,   ERROR_NOT_SUPPORTED         },
    { ENOSYS,       ERROR_NOT_SUPPORTED         },
};
// clang-format on

} // namespace

DWORD CodeOfSystemError(int number)
{
    for (SystemError const & error : s_errors)
    {
        if (error.number == number)
            return error.code;
    }
    return ERROR_GEN_FAILURE;
}

void SetLastErrorFromSystem() { SetLastError(CodeOfSystemError(errno)); }

} // namespace kr::detail
