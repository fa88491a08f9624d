// Everything that KrCore offers.
#pragma once

#include <krgeom/krgeom.h>
#include <krplatform/krplatform.h>
