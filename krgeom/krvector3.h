// A vector in space.
#pragma once

#include <krgeom/export.h>

/// Three coordinates. A new object is all zero.
class KRGEOM_API CKrVector3
{
public:
    CKrVector3() noexcept = default;
    CKrVector3(double newX, double newY, double newZ) noexcept;
    CKrVector3(CKrVector3 const &) noexcept = default;
    CKrVector3 & operator=(CKrVector3 const &) noexcept = default;
    virtual ~CKrVector3();

    /// Coordinate 0 to 2; any other index gives z.
    double operator[](unsigned int index) const noexcept;

    friend bool operator==(CKrVector3 const & left, CKrVector3 const & right) noexcept
    {
        return left.x == right.x && left.y == right.y && left.z == right.z;
    }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
