// What a fuzz target holds against the library: a law, true for every input.
#pragma once

namespace kr::fuzz
{

/// Prints the law that does not hold, and ends the process so that the engine, or the test, keeps the input.
[[noreturn]] void BreakLaw(char const * law, char const * file, int line);

} // namespace kr::fuzz

#define KR_LAW(...) ((__VA_ARGS__) ? static_cast<void>(0) : kr::fuzz::BreakLaw(#__VA_ARGS__, __FILE__, __LINE__))
