#include "adapters/qt/FormWindow.h"
#include "adapters/qt/GridArea.h"
#include "adapters/qt/QtDesktop.h"
#include "adapters/qt/TabStrip.h"
#include "adapters/qt/TreeArea.h"
#include "qt/DemoForm.h"
#include "ui/FlexGrid.h"
#include "ui/ListView.h"

#include <QAccessible>
#include <QApplication>
#include <QScrollBar>
#include <QTimer>

#include <gtest/gtest.h>

// Lists, grids and trees that are drawn here.
namespace kvx::test {
namespace {

using namespace adapters::qt;

void InWindow(ui::Form& form, const std::function<void(QtDesktop&)>& work)
{
    QtDesktop desktop;
    ui::SetCurrentDesktop(&desktop);
    QTimer::singleShot(0, [&] {
        work(desktop);
        form.Hide();
    });
    form.Show();
    ui::SetCurrentDesktop(nullptr);
}

class GridForm final : public ui::Form {
public:
    GridForm() : Form("GridForm") {}
    ui::FlexGrid MSFG{*this, "MSFG"};
    ui::TextBox txtEdit{*this, "txtEdit"};
    ui::ListView ListView1{*this, "ListView1"};

protected:
    void Design() override
    {
        SetSize(9000, 7000);
        MSFG.Move(120, 120, 8400, 2400);
        MSFG.SetRows(40);
        MSFG.SetCols(5);
        MSFG.SetFixedRows(2);
        for (std::int32_t row = 0; row < 40; ++row)
            for (std::int32_t col = 0; col < 5; ++col)
                MSFG.SetTextMatrix(row, col, std::to_string(row) + "/" + std::to_string(col));
        txtEdit.SetVisible(false);
        ListView1.Move(120, 2800, 8400, 3000);
        ListView1.SetViewStyle(ui::lvwReport);
        ListView1.ColumnHeaders().Add("C1", "Liste", 3000);
        ListView1.ColumnHeaders().Add("C2", "Menge", 1500);
        for (int i = 1; i <= 1000; ++i)
            ListView1.ListItems().Add("L" + std::to_string(i), "Zeile " + std::to_string(i));
    }
};

GridArea& AreaOf(QtDesktop& desktop, const ui::Control& control)
{
    return *dynamic_cast<GridArea*>(desktop.WidgetOf(control));
}

TEST(GridWindow, AnEditorLiesOverTheCellThatTheFormComputes)
{
    GridForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        form.MSFG.SetRow(4);
        form.MSFG.SetCol(3);
        form.txtEdit.Move(form.MSFG.Left() + form.MSFG.CellLeft(), form.MSFG.Top() + form.MSFG.CellTop(),
                          form.MSFG.CellWidth(), form.MSFG.CellHeight());
        form.txtEdit.SetVisible(true);
        desktop.DoEvents();
        GridArea& area = AreaOf(desktop, form.MSFG);
        const QRect cell = area.CellRect(4, 3);
        const QPoint corner = area.viewport()->mapTo(desktop.WindowOf(form), cell.topLeft());
        const QRect editor = desktop.WidgetOf(form.txtEdit)->geometry();
        EXPECT_LE((editor.topLeft() - corner).manhattanLength(), 6);
        EXPECT_NEAR(editor.width(), cell.width(), 3);
    });
}

TEST(GridWindow, FixedRowsStayWhileTheOthersScroll)
{
    GridForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        GridArea& area = AreaOf(desktop, form.MSFG);
        const QRect before = area.CellRect(1, 1);
        area.ScrollToRow(20);
        desktop.DoEvents();
        EXPECT_EQ(area.CellRect(1, 1), before);
        EXPECT_EQ(area.RowAt(before.center().y()), 1);
        EXPECT_EQ(area.RowAt(before.bottom() + 3), 20);
        EXPECT_EQ(form.MSFG.TopRow(), 20) << "the form knows what is in sight";
    });
}

TEST(GridWindow, TheLastRowCanBeScrolledWhollyIntoSight)
{
    GridForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        GridArea& area = AreaOf(desktop, form.ListView1);
        area.ShowRow(1000);
        const QRect last = area.CellRect(1000, 0);
        EXPECT_FALSE(last.isEmpty());
        EXPECT_LE(last.bottom(), area.viewport()->height());
        EXPECT_EQ(area.verticalScrollBar()->value(), area.verticalScrollBar()->maximum());
    });
}

TEST(GridWindow, AColumnIsAsWideAsTheFormSays)
{
    GridForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        GridArea& area = AreaOf(desktop, form.ListView1);
        EXPECT_EQ(area.CellRect(0, 1).width(), desktop.WindowOf(form)->GetScale().X(1500));
        form.ListView1.ColumnHeaders()[2].SetWidth(3000);
        desktop.DoEvents();
        EXPECT_EQ(area.CellRect(0, 1).width(), desktop.WindowOf(form)->GetScale().X(3000));
    });
}

TEST(GridWindow, PageDownGoesOnByAPage)
{
    GridForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        form.ListView1.SetFocus();
        form.ListView1.SetSelectedItem(&form.ListView1.ListItems()[1]);
        desktop.DoEvents();
        desktop.SendKeys("{PGDN}");
        desktop.DoEvents();
        EXPECT_GE(form.ListView1.SelectedItem()->Index(), AreaOf(desktop, form.ListView1).RowsPerPage() - 1);
    });
}

TEST(TreeWindow, ScreenReadersHearTheNodesInSight)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        form.TreeView1.SetSelectedItem(form.TreeView1.Find("K\r\nOst"));
        desktop.DoEvents();
        QAccessibleInterface* tree = QAccessible::queryAccessibleInterface(desktop.WidgetOf(form.TreeView1));
        ASSERT_NE(tree, nullptr);
        EXPECT_EQ(tree->role(), QAccessible::Tree);
        ASSERT_EQ(tree->childCount(), 4);
        EXPECT_EQ(tree->child(2)->text(QAccessible::Name), QStringLiteral("Ost"));
        EXPECT_TRUE(tree->child(2)->state().selected);
        EXPECT_TRUE(tree->child(2)->state().collapsed);
        EXPECT_EQ(tree->indexOfChild(tree->child(2)), 2);
    });
}

TEST(TreeWindow, ScreenReadersHearCellsWithTheirColumn)
{
    GridForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(desktop.WidgetOf(form.ListView1));
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(list->child(0)->text(QAccessible::Name), QStringLiteral("Liste: Zeile 1"));
    });
}

TEST(TreeWindow, TheSelectedNodeIsScrolledIntoSight)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        const ui::Node top = form.TreeView1.FirstTop();
        for (int i = 0; i < 300; ++i)
            form.TreeView1.AddChild(top, "x" + std::to_string(i), "x");
        form.TreeView1.SetSelectedItem(form.TreeView1.Find("K\r\nx250"));
        desktop.DoEvents();
        auto* area = dynamic_cast<TreeArea*>(desktop.WidgetOf(form.TreeView1));
        const int row = area->Rows().RowOf(form.TreeView1.SelectedItem());
        EXPECT_GE(row, area->TopRow());
        EXPECT_LT(row, area->TopRow() + area->RowsPerPage());
    });
}

TEST(TreeWindow, TheEditorShowsTheOfferedTextWhollyMarked)
{
    DemoForm form;
    InWindow(form, [&](QtDesktop& desktop) {
        form.TreeView1.SetFocus();
        form.TreeView1.SetSelectedItem(form.TreeView1.Find("K\r\nOst"));
        form.TreeView1.StartLabelEdit("Neuer Waldort");
        desktop.DoEvents();
        auto* area = dynamic_cast<TreeArea*>(desktop.WidgetOf(form.TreeView1));
        ASSERT_NE(area->Editor(), nullptr);
        EXPECT_EQ(area->Editor()->selectedText(), QStringLiteral("Neuer Waldort"));
        EXPECT_TRUE(area->Editor()->hasFocus());
        form.TreeView1.UserEndEdit(false);
        EXPECT_EQ(area->Editor(), nullptr);
    });
}

TEST(TabWindow, TheRowOfTheChosenTabStandsLowest)
{
    TabStrip strip(nullptr);
    strip.resize(500, 200);
    std::vector<TabStrip::Tab> tabs(7, TabStrip::Tab{QStringLiteral("x")});
    strip.SetTabs(tabs, 5, 6);
    EXPECT_GT(strip.TabRect(6).top(), strip.TabRect(0).top());
    strip.SetTabs(tabs, 5, 0);
    EXPECT_GT(strip.TabRect(0).top(), strip.TabRect(6).top());
    EXPECT_EQ(strip.TabAt(strip.TabRect(3).center()), 3);
}

}  // namespace
}  // namespace kvx::test
