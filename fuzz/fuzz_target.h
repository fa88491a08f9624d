// What every fuzz target defines.
#pragma once

#include "fuzz/fuzz_input.h"
#include "fuzz/law.h"

namespace kr::fuzz
{

/// Reads one input and checks the laws. Returns with nothing left behind: no memory, no changed setting.
void CheckLaws(FuzzInput input);

} // namespace kr::fuzz
