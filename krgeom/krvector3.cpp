#include <krgeom/krvector3.h>

CKrVector3::CKrVector3(double newX, double newY, double newZ) noexcept : x(newX), y(newY), z(newZ) {}

CKrVector3::~CKrVector3() = default;

double CKrVector3::operator[](unsigned int index) const noexcept { return index == 0 ? x : index == 1 ? y : z; }
