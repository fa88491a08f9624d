// What owns objects by pointer, and the plain values that can be owned so.
#pragma once

#include <krcore/foundation/krlistownerobject.h>
#include <krcore/foundation/krmapownerobject.h>
#include <krcore/foundation/krownermap.h>
#include <krcore/foundation/krownervector.h>
#include <krcore/foundation/krvalueobjects.h>
