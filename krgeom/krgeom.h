// The points and vectors of the geometry library.
#pragma once

#include <krgeom/krpoint3.h>
#include <krgeom/krvector3.h>
