// All fields of a colour at once, to be compared and printed.
#pragma once

#include <krcore/graphics/krcolor.h>

#include <ostream>

namespace kr::test
{

struct ColorFields
{
    int space;
    int red;
    int green;
    int blue;
    int index;
    int alpha = 0;
    bool isAlpha = false;

    bool operator==(ColorFields const &) const = default;
};

inline ColorFields FieldsOf(CKrColor const & color)
{
    return {color.GetColorSpace(), color.GetRed(),   color.GetGreen(), color.GetBlue(),
            color.GetColorIndex(), color.GetAlpha(), color.IsAlpha()};
}

inline std::ostream & operator<<(std::ostream & stream, ColorFields const & fields)
{
    return stream << "space " << fields.space << ", RGB " << fields.red << ' ' << fields.green << ' ' << fields.blue
                  << ", index " << fields.index << ", alpha " << fields.alpha << (fields.isAlpha ? " set" : " not set");
}

} // namespace kr::test
