#include "tests/reference/exact_decimal.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace kr::test
{

namespace
{

/// A natural number in groups of nine digits, the lowest first.
using Groups = std::vector<std::uint32_t>;

constexpr std::uint64_t s_base = 1'000'000'000;

Groups MakeGroups(std::uint64_t number)
{
    Groups groups;
    for (; number != 0; number /= s_base)
        groups.push_back(static_cast<std::uint32_t>(number % s_base));
    return groups;
}

void Multiply(Groups & groups, std::uint32_t factor)
{
    std::uint64_t carry = 0;
    for (std::uint32_t & group : groups)
    {
        carry += std::uint64_t{group} * factor;
        group = static_cast<std::uint32_t>(carry % s_base);
        carry /= s_base;
    }
    if (carry != 0)
        groups.push_back(static_cast<std::uint32_t>(carry));
}

/// Multiplies by `factor` to the power of `exponent`.
void MultiplyByPower(Groups & groups, std::uint32_t factor, int exponent)
{
    std::uint32_t power = 1;
    for (int index = 0; index < exponent; ++index)
    {
        power *= factor;
        if (std::uint64_t{power} * factor > s_base) // a carry stays below one group
        {
            Multiply(groups, power);
            power = 1;
        }
    }
    Multiply(groups, power);
}

std::string DigitsOf(Groups const & groups)
{
    std::string digits;
    for (auto group = groups.rbegin(); group != groups.rend(); ++group)
    {
        std::string const nine = std::to_string(s_base + *group);
        digits += nine.substr(1);
    }
    return digits;
}

} // namespace

ExactDecimal MakeDecimal(std::string digits, int exponent)
{
    int const pointBehind = static_cast<int>(digits.size()) + exponent;
    std::size_t const first = digits.find_first_not_of('0');
    if (first == std::string::npos)
        return {};
    digits.erase(0, first);
    digits.erase(digits.find_last_not_of('0') + 1);
    return {digits, pointBehind - static_cast<int>(first)};
}

ExactDecimal Expand(std::uint64_t significand, int exponent)
{
    Groups groups = MakeGroups(significand);
    if (exponent >= 0)
    {
        MultiplyByPower(groups, 2, exponent);
        return MakeDecimal(DigitsOf(groups), 0);
    }
    // 2 ^ -n is 5 ^ n / 10 ^ n
    MultiplyByPower(groups, 5, -exponent);
    return MakeDecimal(DigitsOf(groups), exponent);
}

ExactDecimal Expand(double magnitude)
{
    int exponent = 0;
    double const significand = std::frexp(magnitude, &exponent);
    return Expand(static_cast<std::uint64_t>(std::ldexp(significand, 53)), exponent - 53);
}

ExactDecimal RoundTo(ExactDecimal const & decimal, std::size_t count)
{
    if (decimal.digits.size() <= count)
        return decimal;
    bool const roundsUp = decimal.digits[count] >= '5';
    std::string digits = "0" + decimal.digits.substr(0, count);
    for (std::size_t index = count; roundsUp; --index)
    {
        if (digits[index] != '9')
        {
            ++digits[index];
            break;
        }
        digits[index] = '0';
    }
    return MakeDecimal(digits, decimal.exponent - static_cast<int>(count));
}

int Compare(ExactDecimal const & left, ExactDecimal const & right)
{
    if (left.digits.empty() || right.digits.empty())
        return static_cast<int>(!left.digits.empty()) - static_cast<int>(!right.digits.empty());
    if (left.exponent != right.exponent)
        return left.exponent < right.exponent ? -1 : 1;
    return left.digits.compare(right.digits);
}

} // namespace kr::test
