#include <krplatform/linux/environment_snapshot.h>

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

using kr::detail::EnvironmentSnapshot;

namespace
{

constexpr char const * variable = "KR_SNAPSHOT_TEST";

/// Puts the environment in another's place for a while.
class OtherEnvironment
{
public:
    explicit OtherEnvironment(char ** other) : m_old(environ) { environ = other; }
    ~OtherEnvironment() { environ = m_old; }
    OtherEnvironment(OtherEnvironment const &) = delete;
    OtherEnvironment & operator=(OtherEnvironment const &) = delete;

private:
    char ** m_old;
};

/// That many variables, and the null that ends them.
std::vector<char *> MakeVariables(std::size_t count, std::string & text)
{
    std::vector<char *> variables(count, text.data());
    variables.push_back(nullptr);
    return variables;
}

} // namespace

TEST(EnvironmentSnapshot, IsCurrentUntilAVariableComesChangesOrGoes)
{
    unsetenv(variable);
    EnvironmentSnapshot snapshot;
    EXPECT_FALSE(snapshot.IsCurrent()); // none was taken
    ASSERT_TRUE(snapshot.Take());
    EXPECT_TRUE(snapshot.IsCurrent());
    setenv(variable, "one", 1);
    EXPECT_FALSE(snapshot.IsCurrent());
    ASSERT_TRUE(snapshot.Take());
    setenv(variable, "two", 1);
    EXPECT_FALSE(snapshot.IsCurrent());
    ASSERT_TRUE(snapshot.Take());
    unsetenv(variable);
    EXPECT_FALSE(snapshot.IsCurrent());
}

TEST(EnvironmentSnapshot, IsCurrentAgainWhereTheEnvironmentIs)
{
    std::string first = "A=1", second = "B=2";
    char * variables[] = {first.data(), second.data(), nullptr};
    OtherEnvironment const other(variables);
    EnvironmentSnapshot snapshot;
    ASSERT_TRUE(snapshot.Take());
    std::swap(variables[0], variables[1]);
    EXPECT_FALSE(snapshot.IsCurrent());
    std::swap(variables[0], variables[1]);
    EXPECT_TRUE(snapshot.IsCurrent());
}

TEST(EnvironmentSnapshot, ReadsNothingBehindAShorterEnvironment)
{
    std::string text = "A=1";
    std::vector<char *> variables = MakeVariables(3, text);
    OtherEnvironment const other(variables.data());
    EnvironmentSnapshot snapshot;
    ASSERT_TRUE(snapshot.Take());
    variables[1] = nullptr;
    variables[2] = text.data();
    EXPECT_FALSE(snapshot.IsCurrent());
}

TEST(EnvironmentSnapshot, IsNotTakenOfAnEmptyEnvironment)
{
    char * none[] = {nullptr};
    EnvironmentSnapshot snapshot;
    ASSERT_TRUE(snapshot.Take());
    {
        OtherEnvironment const other(none);
        EXPECT_FALSE(snapshot.Take());
        EXPECT_FALSE(snapshot.IsCurrent());
    }
    {
        OtherEnvironment const other(nullptr);
        EXPECT_FALSE(snapshot.Take());
        EXPECT_FALSE(snapshot.IsCurrent());
    }
    EXPECT_FALSE(snapshot.IsCurrent()); // the one before is forgotten
}

TEST(EnvironmentSnapshot, IsNotTakenOfMoreThanItHolds)
{
    std::string text = "A=1";
    for (std::size_t const count : {255u, 256u, 1000u})
    {
        std::vector<char *> variables = MakeVariables(count, text);
        OtherEnvironment const other(variables.data());
        EnvironmentSnapshot snapshot;
        EXPECT_EQ(snapshot.Take(), count < 256) << count;
        EXPECT_EQ(snapshot.IsCurrent(), count < 256) << count;
    }
}
