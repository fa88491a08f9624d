#include <krplatform/linux/system_error.h>

#include <krplatform/base/lasterror.h>
#include <krplatform/system/errorcodes.h>

#include <gtest/gtest.h>

#include <cerrno>

namespace
{

TEST(SystemError, HasTheCodeOfThePlatform)
{
    struct Row
    {
        int number;
        DWORD code;
    };
    // clang-format off
    Row const rows[] = {
        { ENOENT,       2    },
        { ENOTDIR,      3    },
        { EMFILE,       4    },
        { ENFILE,       4    },
        { EACCES,       5    },
        { EPERM,        5    },
        { EISDIR,       5    },
        { EBADF,        6    },
        { ENOMEM,       8    },
        { EROFS,        19   },
        { ENXIO,        20   },
        { ENODEV,       20   },
        { EWOULDBLOCK,  32   },
        { ETXTBSY,      32   },
        { EOPNOTSUPP,   50   },
        { ENOSYS,       50   },
        { EINVAL,       87   },
        { EPIPE,        109  },
        { ENOSPC,       112  },
        { EBUSY,        170  },
        { EEXIST,       183  },
        { ENAMETOOLONG, 206  },
        { EFBIG,        223  },
        { EIO,          1117 },
        { EDQUOT,       1295 },
        { ELOOP,        1921 },
        { EXDEV,        31   },  // no counterpart
        { 0,            31   },
        { -1,           31   },
    };
    // clang-format on
    for (Row const & row : rows)
    {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(kr::detail::CodeOfSystemError(row.number), row.code);
    }
}

TEST(SystemError, BecomesTheLastError)
{
    errno = ENOSPC;
    kr::detail::SetLastErrorFromSystem();
    EXPECT_EQ(GetLastError(), ERROR_DISK_FULL);
}

} // namespace
