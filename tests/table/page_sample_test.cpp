// The samples of docs/table.md and of the header.
#include <krcore/table/krtabledata.h>

#include <gtest/gtest.h>

TEST(TablePage, SampleGivesWhatItSays)
{
    CKrTableData table;
    CString const width = table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);
    CString const height = table.AddColumn(OLESTR("Height"), OLESTR("Hoehe"), nullptr);
    EXPECT_EQ(width, OLESTR("Width_#0#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), OLESTR("Breite 2"), nullptr), OLESTR("Width_#1#"));

    table.InsertRow(0, {OLESTR("0.35"), OLESTR("2.1")});
    table.AddColumnValue(height, OLESTR("2.5"));
    unsigned int rows = 0;
    unsigned int columns = 0;
    EXPECT_FALSE(table.GetSize(rows, columns));
    EXPECT_EQ(rows, 0u);
    EXPECT_EQ(columns, 3u);

    table.FillMissingValues(OLESTR("-"));
    std::vector<CString> row;
    table.GetRowData(1, row);
    EXPECT_EQ(row, (std::vector<CString>{OLESTR("-"), OLESTR("2.5"), OLESTR("-")}));

    table.RemoveColumn(width);
    EXPECT_EQ(table.GetInternalName(width), OLESTR("#NO_ENTRY#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), CString(), nullptr), OLESTR("Width_#0#"));
}

TEST(TablePage, SampleOfTheHeaderGivesWhatItSays)
{
    CKrTableData table;
    CString const width = table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr);
    EXPECT_EQ(width, OLESTR("Width_#0#"));
    EXPECT_EQ(table.AddColumn(OLESTR("Width"), OLESTR("Breite"), nullptr), OLESTR("Width_#1#"));
    table.AddColumnValue(width, OLESTR("0.35"));
    EXPECT_EQ(table.GetColumnValue(width, 0), OLESTR("0.35"));
    EXPECT_EQ(table.GetInternalName(OLESTR("Height_#0#")), OLESTR("#NO_ENTRY#"));
}
