#include "ui/FormTest.h"

#include "basic/Convert.h"
#include "ui/FlexGrid.h"
#include "ui/TextBox.h"

namespace kvx::ui::testing {
namespace {

class GridForm : public TestForm {
public:
    GridForm()
    {
        const auto at = [this] { return " " + std::to_string(grid.Row()) + "," + std::to_string(grid.Col()); };
        grid.LeaveCell.Connect([this, at] { log.push_back("LeaveCell" + at()); });
        grid.EnterCell.Connect([this, at] { log.push_back("EnterCell" + at()); });
        Watch(grid.SelChange, "SelChange");
        Watch(grid.RowColChange, "RowColChange");
        Watch(grid.Scroll, "Scroll");
        Watch(grid.Click, "Click");
        design = [this] {
            grid.SetRows(5);
            grid.SetCols(4);
            grid.SetWidth(4000);
            grid.SetHeight(2000);
        };
    }
    FlexGrid grid{*this, "grid"};
    TextBox box{*this, "box"};
};

class FlexGrids : public FormTest {
protected:
    void SetUp() override
    {
        form.Load();
        form.log.clear();
    }
    GridForm form;
    FlexGrid& grid = form.grid;
};

TEST_F(FlexGrids, StartsWithTwoRowsTwoColumnsAndOneFixedOfEach)
{
    form.design = [] {};
    form.Unload();
    form.Load();
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 1);
}

TEST_F(FlexGrids, TextMatrixMovesNothingAndChecksItsPlace)
{
    grid.SetTextMatrix(3, 2, "12,5");
    EXPECT_EQ(grid.TextMatrix(3, 2), "12,5");
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(form.log, Log{});
    EXPECT_EQ(ErrorOf([&] { grid.SetTextMatrix(5, 0, "x"); }), 381);
    EXPECT_EQ(ErrorOf([&] { grid.TextMatrix(0, -1); }), 381);
    EXPECT_EQ(ErrorOf([&] { grid.SetRow(5); }), 30009);
    EXPECT_EQ(ErrorOf([&] { grid.SetCol(4); }), 30010);
}

TEST_F(FlexGrids, FixedRowsStayBelowRowsAndAnEmptyBodyIsAccepted)
{
    EXPECT_EQ(ErrorOf([&] { grid.SetFixedRows(5); }), 30016);
    grid.SetRows(1);
    EXPECT_EQ(grid.Rows(), 1);
    EXPECT_EQ(ErrorOf([&] { grid.SetRows(0); }), 30016);
    grid.SetFixedRows(0);
    grid.SetRows(0);
    EXPECT_EQ(grid.Rows(), 0);
}

TEST_F(FlexGrids, AChangeOfTheCellLeavesMovesAndEnters)
{
    grid.SetRow(2);
    EXPECT_EQ(form.log, (Log{"LeaveCell 1,1", "SelChange", "EnterCell 2,1", "RowColChange"}));
}

TEST_F(FlexGrids, RowAndColInCodeMoveTwiceAndTheSameValueNotAtAll)
{
    grid.SetRow(3);
    grid.SetCol(2);
    grid.SetCol(2);
    Log cells;
    for (const std::string& entry : form.log)
        if (entry.find("Cell") != std::string::npos) cells.push_back(entry);
    EXPECT_EQ(cells, (Log{"LeaveCell 1,1", "EnterCell 3,1", "LeaveCell 3,1", "EnterCell 3,2"}));
}

TEST_F(FlexGrids, LosingTheFocusLeavesNoCell)
{
    Run(form, [&](User& user) {
        user.Focus("grid");
        form.log.clear();
        user.Focus("box");
    });
    EXPECT_EQ(form.log, Log{});
}

TEST_F(FlexGrids, AClickMovesFirstAndComesAlsoOnTheSameCell)
{
    form.Watch(grid.GotFocus, "GotFocus");
    Run(form, [&](User& user) {
        user.Focus("box");
        form.log.clear();
        user.ClickCell("grid", 2, 2);
        EXPECT_EQ(form.log, (Log{"GotFocus", "LeaveCell 1,1", "SelChange", "EnterCell 2,2", "RowColChange", "Click"}));
        form.log.clear();
        user.ClickCell("grid", 2, 2);
        EXPECT_EQ(form.log, Log{"Click"});
        user.ClickCell("grid", 0, 3);
        EXPECT_EQ(grid.Row(), 2) << "a fixed cell moves nothing";
        EXPECT_EQ(grid.MouseRow(), 0);
    });
}

TEST_F(FlexGrids, ArrowKeysMoveWithinTheBody)
{
    Run(form, [&](User& user) {
        user.Focus("grid");
        user.Keys("{UP}{LEFT}{DOWN}{RIGHT}");
        EXPECT_EQ(grid.Row(), 2);
        EXPECT_EQ(grid.Col(), 2);
    });
}

TEST_F(FlexGrids, TheCellsPlaceCountsFromTheGridsCorner)
{
    grid.SetColWidth(0, 300);
    grid.SetColWidth(1, 1000);
    grid.SetRow(2);
    grid.SetCol(2);
    EXPECT_EQ(grid.CellLeft(), 1300);
    EXPECT_EQ(grid.CellWidth(), grid.ColWidth(2));
    EXPECT_EQ(grid.CellTop(), grid.RowHeight(0) + grid.RowHeight(1));
    EXPECT_EQ(grid.CellHeight(), grid.RowHeight(2));
}

TEST_F(FlexGrids, AskingForThePlaceScrollsTheCellIntoSight)
{
    grid.SetRows(100);
    grid.SetRow(50);
    form.log.clear();
    const std::int32_t top = grid.CellTop();
    EXPECT_EQ(form.log, Log{"Scroll"});
    EXPECT_GT(grid.TopRow(), 1);
    EXPECT_LE(top + grid.CellHeight(), grid.Height());
    grid.SetRow(1);
    EXPECT_EQ(grid.CellTop(), grid.RowHeight(0));
}

TEST_F(FlexGrids, MinusOneIsTheDefaultSizeAndZeroHides)
{
    const std::int32_t width = grid.ColWidth(1), height = grid.RowHeight(1);
    grid.SetColWidth(1, 0);
    grid.SetRowHeight(1, 0);
    EXPECT_EQ(grid.ColWidth(1), 0);
    EXPECT_EQ(grid.RowHeight(1), 0);
    grid.SetColWidth(1, -1);
    grid.SetRowHeight(1, -1);
    EXPECT_EQ(grid.ColWidth(1), width);
    EXPECT_EQ(grid.RowHeight(1), height);
}

TEST_F(FlexGrids, AlignmentSaysWhereATextStands)
{
    grid.SetTextMatrix(1, 1, "12");
    grid.SetTextMatrix(1, 2, "Eiche");
    EXPECT_TRUE(grid.AlignsRight(1, 1));
    EXPECT_FALSE(grid.AlignsRight(1, 2));
    grid.SetColAlignment(2, flexAlignRightCenter);
    EXPECT_TRUE(grid.AlignsRight(1, 2));
    grid.SetColAlignment(1, flexAlignLeftCenter);
    EXPECT_FALSE(grid.AlignsRight(1, 1));
    EXPECT_EQ(ErrorOf([&] { grid.SetColAlignment(1, 10); }), 380);
}

TEST_F(FlexGrids, RowsComeWithTabsAndGo)
{
    grid.AddItem("a\tb\tc", 1);
    EXPECT_EQ(grid.TextMatrix(1, 2), "c");
    EXPECT_EQ(grid.Rows(), 6);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.TextMatrix(1, 2), "");
    EXPECT_EQ(ErrorOf([&] { grid.RemoveItem(0); }), 30016);
}

TEST_F(FlexGrids, WholeRowsAreMarkedWhenTheModeSaysSo)
{
    grid.SetSelectionMode(flexSelectionByRow);
    grid.SetRow(2);
    EXPECT_EQ(grid.RowSel(), 2);
    EXPECT_EQ(grid.ColSel(), 3);
}

TEST_F(FlexGrids, LateBindingTakesTwoIndexes)
{
    const basic::ObjectRef object = grid.Object();
    EXPECT_EQ(object->TypeName(), "MSFlexGrid");
    const std::vector<basic::Variant> cell{std::int32_t{2}, std::int32_t{3}};
    object->Put("TextMatrix", "x", cell);
    EXPECT_EQ(basic::CStr(object->Get("TextMatrix", cell)), "x");
    object->Put("Row", std::int32_t{2});
    object->Put("Col", std::int32_t{3});
    EXPECT_EQ(basic::CStr(object->Get("Text")), "x");
    EXPECT_EQ(ErrorOf([&] { object->Put("CellTop", std::int32_t{1}); }), 383);
}

}  // namespace
}  // namespace kvx::ui::testing
