// Everything that KrCore offers.
#pragma once

#include <krcore/diagnostics/krcriticalexception.h>
#include <krcore/diagnostics/krexception.h>
#include <krcore/diagnostics/krexception_guard.h>
#include <krcore/foundation/krclass.h>
#include <krcore/foundation/krnamedobject.h>
#include <krcore/foundation/krobject.h>
#include <krcore/foundation/krowner.h>
#include <krcore/graphics/krcolor.h>
#include <krcore/graphics/krstyles.h>
#include <krgeom/krgeom.h>
#include <krplatform/krplatform.h>
