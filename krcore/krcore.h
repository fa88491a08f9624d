// Everything that KrCore offers.
#pragma once

#include <krcore/graphics/krcolor.h>
#include <krcore/graphics/krstyles.h>
#include <krgeom/krgeom.h>
#include <krplatform/krplatform.h>
