// What a process builds once, at its first use, is no part of what an operation takes.
#include "tests/support/failing_allocator.h"

#include <gtest/gtest.h>

namespace
{

class FirstUse : public testing::Environment
{
public:
    void SetUp() override { kr::test::BuildTablesOfFirstUse(); }
};

[[maybe_unused]] testing::Environment * const s_firstUse = testing::AddGlobalTestEnvironment(new FirstUse);

} // namespace
