#include <krgeom/krpoint3.h>

CKrPoint3::CKrPoint3(double newX, double newY, double newZ) noexcept : x(newX), y(newY), z(newZ) {}

CKrPoint3::~CKrPoint3() = default;

double CKrPoint3::operator[](unsigned int index) const noexcept { return index == 0 ? x : index == 1 ? y : z; }
