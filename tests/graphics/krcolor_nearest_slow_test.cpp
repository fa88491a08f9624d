#include <krcore/graphics/krcolor.h>

#include "tests/graphics/naive_nearest.h"

#include <gtest/gtest.h>

TEST(CKrColorNearest, FindsTheSameRowAsTheNaiveSearchForEveryColour)
{
    kr::test::NaiveNearest const naive;
    for (int red = 0; red < 256; ++red)
        for (int green = 0; green < 256; ++green)
            for (int blue = 0; blue < 256; ++blue)
            {
                CKrColor const color(static_cast<unsigned long>(red | green << 8 | blue << 16));
                ASSERT_EQ(color.GetAsColorIndex(), naive.Find(red, green, blue)) << red << ' ' << green << ' ' << blue;
            }
}
