// The sample of the header.
#include <krcore/table/krtabledata.h>

#include <gtest/gtest.h>

TEST(TableHeaders, SampleOfTheHeaderGivesWhatItSays)
{
    CKrTableData table;
    CString const width = table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);
    EXPECT_EQ(width, OLESTR("Width_#0#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr), OLESTR("Width_#1#"));
    table.AddColumnValue(width, OLESTR("0.35"));
    EXPECT_EQ(table.GetColumnValue(width, 0), OLESTR("0.35"));
    EXPECT_EQ(table.GetInternalName(OLESTR("Height_#0#")), OLESTR("#NO_ENTRY#"));
}
