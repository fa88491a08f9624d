#include <krplatform/base/lasterror.h>

#include <gtest/gtest.h>

#include <thread>

TEST(LastError, StaysUntilItIsSetAgain)
{
    SetLastError(ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(GetLastError(), 2u);
    EXPECT_EQ(GetLastError(), 2u);
    SetLastError(0xFFFFFFFF);
    EXPECT_EQ(GetLastError(), 0xFFFFFFFF);
    SetLastError(ERROR_SUCCESS);
    EXPECT_EQ(GetLastError(), 0u);
}

TEST(LastError, BelongsToItsThread)
{
    SetLastError(ERROR_ACCESS_DENIED);
    DWORD seen = 77;
    std::thread(
        [&]
        {
            seen = GetLastError();
            SetLastError(ERROR_DISK_FULL);
        })
        .join();
    EXPECT_EQ(seen, ERROR_SUCCESS);
    EXPECT_EQ(GetLastError(), ERROR_ACCESS_DENIED);
    SetLastError(ERROR_SUCCESS);
}

TEST(LastError, CodesAreThePlatformsNumbers)
{
    struct Row
    {
        DWORD code;
        DWORD number;
    };
    // clang-format off
    constexpr Row rows[] = {
        { ERROR_SUCCESS,                 0    },
        { ERROR_FILE_NOT_FOUND,          2    },
        { ERROR_PATH_NOT_FOUND,          3    },
        { ERROR_ACCESS_DENIED,           5    },
        { ERROR_INVALID_HANDLE,          6    },
        { ERROR_NOT_ENOUGH_MEMORY,       8    },
        { ERROR_SHARING_VIOLATION,       32   },
        { ERROR_INVALID_PARAMETER,       87   },
        { ERROR_DISK_FULL,               112  },
        { ERROR_INSUFFICIENT_BUFFER,     122  },
        { ERROR_MOD_NOT_FOUND,           126  },
        { ERROR_PROC_NOT_FOUND,          127  },
        { ERROR_BAD_EXE_FORMAT,          193  },
        { ERROR_INVALID_FLAGS,           1004 },
        { ERROR_NO_UNICODE_TRANSLATION,  1113 },
        { ERROR_RESOURCE_NAME_NOT_FOUND, 1814 },
    };
    // clang-format on
    for (Row const & row : rows)
        EXPECT_EQ(row.code, row.number);
}
