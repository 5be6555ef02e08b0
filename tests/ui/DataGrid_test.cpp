#include "ui/FormTest.h"

#include "ado/FakeDriver.h"
#include "basic/Convert.h"
#include "ui/DataControl.h"
#include "ui/DataGrid.h"

namespace kvx::ui::testing {
namespace {

using ado::testing::AddTrees;
using ado::testing::FakeDatabase;
using ado::testing::kNoTrees;
using ado::testing::kTrees;

class TreesForm : public TestForm {
public:
    TreesForm()
    {
        Watch(data.MoveComplete, "MoveComplete");
        grid.RowColChange.Connect(
            [this](const basic::Variant&, std::int32_t col) { log.push_back("RowColChange " + std::to_string(col)); });
        Watch(grid.Click, "Click");
        design = [this] {
            data.SetConnectionString("Provider=Fake");
            data.SetRecordSource(kTrees);
            grid.SetDataSource(&data);
            grid.SetHeight(2400);
        };
    }
    DataControl data{*this, "data"};
    DataGrid grid{*this, "grid"};
};

class DataGrids : public FormTest {
protected:
    void SetUp() override
    {
        AddTrees(database);
        form.Load();
    }
    FakeDatabase database;
    TreesForm form;
    DataControl& data = form.data;
    DataGrid& grid = form.grid;
};

TEST_F(DataGrids, TheDataControlOpensAClientCursorWithBookmarksOnItsOwnConnection)
{
    data.Refresh();
    EXPECT_EQ(data.Recordset().CursorLocation(), ado::adUseClient);
    EXPECT_EQ(data.Recordset().CursorType(), ado::adOpenStatic);
    EXPECT_EQ(data.Recordset().LockType(), ado::adLockOptimistic);
    EXPECT_EQ(data.Recordset().RecordCount(), 3);
    EXPECT_EQ(database.liveConnections, 1);
    data.Refresh();
    EXPECT_EQ(database.liveConnections, 1) << "the connection is kept";
}

TEST_F(DataGrids, RefreshStartsAgainOnTheFirstRow)
{
    data.Refresh();
    data.Recordset().MoveLast();
    data.Refresh();
    EXPECT_EQ(basic::CLng(data.Recordset()["ID"].Value()), 1);
    data.SetRecordSource(kNoTrees);
    data.Refresh();
    EXPECT_TRUE(data.Recordset().Eof());
}

TEST_F(DataGrids, BadSqlRaisesInRefreshAndTheOldRowsAreGone)
{
    data.Refresh();
    data.SetRecordSource("SELEC");
    EXPECT_EQ(ErrorOf([&] { data.Refresh(); }), ado::kErrStatement);
    EXPECT_EQ(grid.RowCount(), 0);
    EXPECT_EQ(grid.Columns().Count(), 0);
}

TEST_F(DataGrids, MoveCompleteComesForRefreshMovesAndFindAlsoWithoutRows)
{
    data.Refresh();
    EXPECT_EQ(form.log, Log{"MoveComplete"});
    data.Recordset().MoveNext();
    EXPECT_GE(form.log.size(), 2u);
    form.log.clear();
    data.Recordset().Find("ID = 3");
    EXPECT_FALSE(form.log.empty());
    form.log.clear();
    data.SetRecordSource(kNoTrees);
    data.Refresh();
    EXPECT_EQ(form.log, Log{"MoveComplete"});
}

TEST_F(DataGrids, InMoveCompleteOfARefreshTheColumnsAreTheNewOnes)
{
    std::int32_t columns = 0;
    data.MoveComplete.Connect([&] { columns = grid.Columns().Count(); });
    data.Refresh();
    EXPECT_EQ(columns, 3);
}

TEST_F(DataGrids, RowsWithoutBookmarksAreError7004)
{
    data.SetCursorLocation(ado::adUseServer);
    data.SetCursorType(ado::adOpenForwardOnly);
    data.SetLockType(ado::adLockReadOnly);
    EXPECT_EQ(ErrorOf([&] { data.Refresh(); }), 7004);
}

TEST_F(DataGrids, RebindingForgetsWhatWasSetOnTheColumns)
{
    data.Refresh();
    grid.Columns()["NAME"].SetCaption("Baumart");
    grid.Columns()["NAME"].SetVisible(false);
    grid.Columns()["HEIGHT"].SetNumberFormat("0.00");
    data.Refresh();
    EXPECT_EQ(grid.Columns()["NAME"].Caption(), "NAME");
    EXPECT_TRUE(grid.Columns()["NAME"].Visible());
    EXPECT_EQ(grid.Columns()["HEIGHT"].NumberFormat(), "");
}

TEST_F(DataGrids, ColumnsAreFoundByNumberAndName)
{
    data.Refresh();
    EXPECT_EQ(grid.Columns()[1].DataField(), "NAME");
    EXPECT_EQ(grid.Columns()["name"].ColIndex(), 1);
    EXPECT_EQ(ErrorOf([&] { grid.Columns()[3]; }), 9);
    EXPECT_EQ(ErrorOf([&] { grid.Columns()[std::string_view{"AGE"}]; }), 9);
    EXPECT_EQ(ErrorOf([&] { grid.Columns()[0].SetWidth(-1); }), 380);
}

TEST_F(DataGrids, ColumnTextIsThatOfTheCurrentRowAndEmptyWithoutRows)
{
    data.Refresh();
    grid.Columns()["HEIGHT"].SetNumberFormat("0");
    EXPECT_EQ(grid.Columns()["HEIGHT"].Text(), "22");
    EXPECT_EQ(basic::CDbl(grid.Columns()["HEIGHT"].Value()), 21.5);
    data.Recordset().MoveLast();
    EXPECT_EQ(grid.Columns()["NAME"].Text(), "Kiefer");
    EXPECT_EQ(grid.Columns()["HEIGHT"].Text(), "");
    data.SetRecordSource(kNoTrees);
    data.Refresh();
    EXPECT_EQ(grid.Columns()["ID"].Text(), "");
}

TEST_F(DataGrids, CellsOfOtherRowsAreReadWithoutMoving)
{
    data.Refresh();
    form.log.clear();
    EXPECT_EQ(grid.CellText(2, 1), "Kiefer");
    EXPECT_EQ(grid.CellText(0, 1), "Eiche");
    EXPECT_EQ(grid.CurrentRow(), 0);
    EXPECT_EQ(form.log, Log{});
}

TEST_F(DataGrids, AClickedRowMovesTheRecordsetThenTellsTheGrid)
{
    data.Refresh();
    Run(form, [&](User& user) {
        form.log.clear();
        user.ClickCell("grid", 2, 1);
        EXPECT_EQ(grid.Columns()["NAME"].Text(), "Kiefer");
        EXPECT_EQ(form.log.front(), "MoveComplete");
        EXPECT_EQ(form.log[form.log.size() - 2], "RowColChange 0");
        EXPECT_EQ(form.log.back(), "Click");
        user.Keys("{UP}");
        EXPECT_EQ(grid.Columns()["NAME"].Text(), "Fichte");
    });
}

TEST_F(DataGrids, AMoveByCodeScrollsTheGridAlong)
{
    data.SetLockType(ado::adLockReadOnly);
    auto& rows = database.answers[kTrees].rows;
    for (int i = 4; i <= 100; ++i)
        rows.push_back({ado::testing::Int(i), "Baum", 1.0});
    data.Refresh();
    data.Recordset().MoveLast();
    EXPECT_EQ(grid.CurrentRow(), 99);
    EXPECT_EQ(grid.Row(), grid.VisibleRows() - 1);
    data.Recordset().MoveFirst();
    EXPECT_EQ(grid.FirstRow(), 0);
}

TEST_F(DataGrids, ALongListShowsItsFirstRowsAndTheRestComesFromTheMessageLoop)
{
    data.SetLockType(ado::adLockReadOnly);
    auto& rows = database.answers[kTrees].rows;
    for (int i = 4; i <= 5000; ++i)
        rows.push_back({ado::testing::Int(i), "Baum", 1.0});
    data.Refresh();
    EXPECT_EQ(grid.RowsHere(), 200);
    EXPECT_EQ(grid.CellText(2, 1), "Kiefer");
    EXPECT_EQ(grid.RowsHere(), 200);
    desktop.DoEvents();
    EXPECT_EQ(grid.RowsHere(), 5000);
    EXPECT_EQ(database.liveStatements, 0);
}

TEST_F(DataGrids, WhoCountsTheRowsWaitsForAll)
{
    data.SetLockType(ado::adLockReadOnly);
    auto& rows = database.answers[kTrees].rows;
    for (int i = 4; i <= 1000; ++i)
        rows.push_back({ado::testing::Int(i), "Baum", 1.0});
    data.Refresh();
    EXPECT_EQ(grid.RowCount(), 1000);
}

TEST_F(DataGrids, TheRestOfAListThatWasReplacedIsNotRead)
{
    data.SetLockType(ado::adLockReadOnly);
    auto& rows = database.answers[kTrees].rows;
    for (int i = 4; i <= 1000; ++i)
        rows.push_back({ado::testing::Int(i), "Baum", 1.0});
    data.Refresh();
    data.SetRecordSource(kNoTrees);
    data.Refresh();
    desktop.DoEvents();
    EXPECT_EQ(grid.RowCount(), 0);
    EXPECT_EQ(database.steps, 201 + 1);
}

TEST_F(DataGrids, AResizeCanBeRefused)
{
    data.Refresh();
    grid.ColResize.Connect([](std::int32_t col, bool& cancel) { cancel = col == 0; });
    grid.UserResizeColumn(0, 300);
    grid.UserResizeColumn(1, 300);
    EXPECT_EQ(grid.Columns()[0].Width(), 1440);
    EXPECT_EQ(grid.Columns()[1].Width(), 300);
}

TEST_F(DataGrids, UnloadingTheFormClosesRowsAndConnection)
{
    data.Refresh();
    form.Unload();
    EXPECT_EQ(database.liveConnections, 0);
    EXPECT_EQ(grid.DataSource(), nullptr);
}

TEST_F(DataGrids, LateBindingReachesColumnsAndRecordset)
{
    data.Refresh();
    const basic::Variant name{"NAME"};
    const basic::ObjectRef columns = grid.Object()->Get("Columns").ToObject();
    EXPECT_EQ(basic::CLng(columns->Get("Count")), 3);
    EXPECT_EQ(basic::CStr(columns->Get("Item", {&name, 1}).ToObject()->Get("Text")), "Eiche");
    EXPECT_FALSE(basic::CBool(data.Object()->Get("Recordset").ToObject()->Get("EOF")));
}

}  // namespace
}  // namespace kvx::ui::testing
