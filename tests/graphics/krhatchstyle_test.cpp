#include <krcore/graphics/krstyles.h>

#include "tests/graphics/color_fields.h"
#include "tests/support/failing_allocator.h"

#include <krplatform/base/cexception.h>

#include <gtest/gtest.h>

#include <type_traits>

using kr::test::ColorFields;
using kr::test::FieldsOf;

namespace
{

void ExpectDefaults(CKrHatchStyle const & hatch)
{
    EXPECT_EQ(hatch.m_strPattern, OLESTR("SOLID"));
    EXPECT_EQ(hatch.m_strSecondName, OLESTR(""));
    EXPECT_EQ(hatch.m_dScale, 1.0);
    EXPECT_EQ(hatch.m_dAngle, 0.0);
    EXPECT_FALSE(hatch.m_bFirst);
    EXPECT_FALSE(hatch.m_bSecond);
    EXPECT_EQ(FieldsOf(hatch.m_color), (ColorFields{CKrColor::eColorSpaceIndex, 0, 0, 0, 256}));
    EXPECT_EQ(hatch.m_color.Format(false), OLESTR("BYLAYER"));
    EXPECT_EQ(hatch.m_strLayer, OLESTR("0"));
}

void ExpectChanged(CKrHatchStyle const & hatch)
{
    EXPECT_EQ(hatch.m_strPattern, OLESTR("ANSI31"));
    EXPECT_EQ(hatch.m_strSecondName, OLESTR("second"));
    EXPECT_EQ(hatch.m_dScale, 2.5);
    EXPECT_EQ(hatch.m_dAngle, 45.0);
    EXPECT_TRUE(hatch.m_bFirst);
    EXPECT_TRUE(hatch.m_bSecond);
    EXPECT_TRUE(hatch.m_color == CKrColor(3));
    EXPECT_EQ(hatch.m_strLayer, OLESTR("Walls"));
}

} // namespace

TEST(CKrHatchStyle, StartsSolidByLayerOnLayer0) { ExpectDefaults(CKrHatchStyle()); }

TEST(CKrHatchStyle, IsDestroyedThroughAPointerToIt) { EXPECT_TRUE(std::has_virtual_destructor_v<CKrHatchStyle>); }

TEST(CKrHatchStyle, CopiesAllFields)
{
    CKrHatchStyle source;
    source.m_strPattern = OLESTR("ANSI31");
    source.m_strSecondName = OLESTR("second");
    source.m_dScale = 2.5;
    source.m_dAngle = 45.0;
    source.m_bFirst = true;
    source.m_bSecond = true;
    source.m_color = CKrColor(3);
    source.m_strLayer = OLESTR("Walls");

    CKrHatchStyle const copy(source);
    CKrHatchStyle assigned;
    assigned = source;
    source = CKrHatchStyle();
    ExpectDefaults(source);
    ExpectChanged(copy);
    ExpectChanged(assigned);
    CKrHatchStyle & same = assigned;
    assigned = same;
    ExpectChanged(assigned);
}

TEST(CKrHatchStyle, ThrowsWithoutMemoryAndLeavesNothingBehind)
{
    std::size_t const failures = kr::test::FailEveryAllocation([] { ExpectDefaults(CKrHatchStyle()); },
                                                               []
                                                               {
                                                                   try
                                                                   {
                                                                       throw;
                                                                   }
                                                                   catch (CMemoryException * exception)
                                                                   {
                                                                       exception->Delete();
                                                                   }
                                                               });
    EXPECT_GE(failures, 2u); // the pattern, the layer
}
