// A point in space.
#pragma once

#include <krgeom/export.h>

/// Three coordinates. A new object is all zero.
class KRGEOM_API CKrPoint3
{
public:
    CKrPoint3() noexcept = default;
    CKrPoint3(double newX, double newY, double newZ) noexcept;
    CKrPoint3(CKrPoint3 const &) noexcept = default;
    CKrPoint3 & operator=(CKrPoint3 const &) noexcept = default;
    virtual ~CKrPoint3();

    /// Coordinate 0 to 2; any other index gives z.
    double operator[](unsigned int index) const noexcept;

    friend bool operator==(CKrPoint3 const & left, CKrPoint3 const & right) noexcept
    {
        return left.x == right.x && left.y == right.y && left.z == right.z;
    }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
