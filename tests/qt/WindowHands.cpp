#include "qt/WindowHands.h"

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/GridArea.h"
#include "adapters/qt/Keys.h"
#include "adapters/qt/QtDesktop.h"
#include "adapters/qt/TabStrip.h"
#include "adapters/qt/TreeArea.h"
#include "basic/Convert.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"
#include "ui/DataGrid.h"
#include "ui/ListView.h"
#include "ui/SSTab.h"
#include "ui/TreeView.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDateEdit>
#include <QMouseEvent>
#include <QPointer>

namespace kvx::test {

using namespace adapters::qt;
namespace {

Qt::KeyboardModifiers ModifiersOf(std::int16_t shift)
{
    Qt::KeyboardModifiers modifiers;
    if ((shift & ui::vbShiftMask) != 0) modifiers |= Qt::ShiftModifier;
    if ((shift & ui::vbCtrlMask) != 0) modifiers |= Qt::ControlModifier;
    return modifiers;
}

void Mouse(QEvent::Type type, const QPointer<QWidget>& widget, const QPoint& at, std::int16_t shift = 0)
{
    if (widget.isNull()) return;
    const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), button, held, ModifiersOf(shift));
    QApplication::sendEvent(widget, &event);
}

void ClickAt(QWidget* widget, const QPoint& at, std::int16_t shift = 0)
{
    const QPointer<QWidget> target(widget);
    Mouse(QEvent::MouseButtonPress, target, at, shift);
    Mouse(QEvent::MouseButtonRelease, target, at, shift);
}

// The second press and release, after a click.
void ClickAgainAt(QWidget* widget, const QPoint& at)
{
    const QPointer<QWidget> target(widget);
    Mouse(QEvent::MouseButtonDblClick, target, at);
    Mouse(QEvent::MouseButtonRelease, target, at);
}

// Where a click on the control as such hits what it is for: the little box of a check box, not the blank beside it.
QPoint HotSpot(const QWidget& widget)
{
    const bool button = qobject_cast<const QAbstractButton*>(&widget) != nullptr;
    return {button ? std::min(8, widget.width() / 2) : widget.width() / 2, widget.height() / 2};
}

// A click into a list, tree or grid needs a place in it; as a click on the whole it is only told.
bool HasPlaces(const ui::Control& control)
{
    const std::string_view kind = control.TypeName();
    return kind != "CommandButton" && kind != "CheckBox" && kind != "OptionButton" && kind != "TextBox" &&
           kind != "Label" && kind != "Frame" && kind != "Image" && kind != "PictureBox";
}

}  // namespace

QWidget* WindowHands::WidgetOf(ui::Control& control) const
{
    FormWindow* window = desktop_.WindowOf(control.Owner());
    if (window != nullptr) window->ShowChanges();
    return desktop_.WidgetOf(control);
}

template <class W>
W* WindowHands::WidgetAs(ui::Control& control) const
{
    return dynamic_cast<W*>(WidgetOf(control));
}

bool WindowHands::Focus(ui::Control& control)
{
    const FormWindow* window = desktop_.WindowOf(control.Owner());
    const ControlView* view = window == nullptr ? nullptr : window->ViewOf(control);
    if (view == nullptr || view->FocusWidget() == nullptr) return Hands::Focus(control);
    if (control.Owner().ActiveControl() == &control || !window->isActiveWindow()) return Hands::Focus(control);
    view->FocusWidget()->setFocus(Qt::OtherFocusReason);
    return control.Owner().Visible() && control.Owner().ActiveControl() == &control;
}

void WindowHands::Click(ui::Control& control)
{
    QWidget* widget = WidgetOf(control);
    if (widget == nullptr || HasPlaces(control)) {
        Hands::Click(control);
        return;
    }
    ClickAt(widget, HotSpot(*widget));
}

void WindowHands::DblClick(ui::Control& control)
{
    QWidget* widget = WidgetOf(control);
    if (auto* grid = dynamic_cast<GridArea*>(widget); grid != nullptr && grid->Source().CurrentRow() >= 0) {
        grid->ShowRow(grid->Source().CurrentRow());
        const QRect cell = grid->CellRect(grid->Source().CurrentRow(), grid->LeftColumn());
        ClickAgainAt(grid->viewport(), QPoint(cell.left() + cell.width() / 2, cell.center().y()));
    } else if (widget == nullptr || HasPlaces(control)) {
        Hands::DblClick(control);
    } else {
        ClickAgainAt(widget, HotSpot(*widget));
    }
}

void WindowHands::CtrlAlone(ui::Form&)
{
    PressKey({Qt::Key_Control, Qt::NoModifier, 0});
}

void WindowHands::CloseBox(ui::Form& form)
{
    if (FormWindow* window = desktop_.WindowOf(form); window != nullptr) window->close();
}

void WindowHands::Resize(ui::Form& form, std::int32_t widthTwips, std::int32_t heightTwips)
{
    FormWindow* window = desktop_.WindowOf(form);
    if (window == nullptr) return;
    const Scale& scale = window->GetScale();
    window->setMinimumSize(0, 0);
    window->setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    window->resize(scale.X(widthTwips - form.Width() + form.ScaleWidth()),
                   scale.Y(heightTwips - form.Height() + form.ScaleHeight()));
}

void WindowHands::Drag(ui::Control& from, ui::Control& to, std::int32_t xTwips, std::int32_t yTwips)
{
    auto* source = WidgetAs<GridArea>(from);
    QWidget* target = WidgetOf(to);
    const FormWindow* window = desktop_.WindowOf(from.Owner());
    if (source == nullptr || target == nullptr || source->Source().CurrentRow() < 0) {
        Hands::Drag(from, to, xTwips, yTwips);
        return;
    }
    const QPointer<QWidget> viewport(source->viewport());
    const QPoint start = source->CellRect(source->Source().CurrentRow(), 0).center();
    const QPoint drop(window->GetScale().X(xTwips), window->GetScale().Y(yTwips));
    const QPoint end = viewport->mapFromGlobal(target->mapToGlobal(drop));
    Mouse(QEvent::MouseButtonPress, viewport, start);
    Mouse(QEvent::MouseMove, viewport, start + QPoint(0, QApplication::startDragDistance() + 1));
    Mouse(QEvent::MouseMove, viewport, end);
    Mouse(QEvent::MouseButtonRelease, viewport, end);
}

void WindowHands::PressCell(GridArea& area, int row, int column, std::int16_t shift)
{
    if (row >= area.Source().FixedRows()) area.ShowRow(row);
    if (column >= area.Source().FixedColumns()) area.ShowColumn(column);
    const QRect cell = area.CellRect(row, column);
    // Right of the middle: a check box may stand at the left.
    ClickAt(area.viewport(), QPoint(cell.left() + cell.width() * 2 / 3, cell.center().y()), shift);
}

void WindowHands::PickItem(ui::Control& list, std::int32_t index, std::int16_t shift)
{
    QWidget* widget = WidgetOf(list);
    if (auto* combo = qobject_cast<QComboBox*>(widget); combo != nullptr) {
        combo->showPopup();
        combo->view()->setCurrentIndex(combo->model()->index(index, combo->modelColumn()));
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QApplication::sendEvent(combo->view(), &enter);
    } else if (auto* area = dynamic_cast<GridArea*>(widget); area != nullptr) {
        PressCell(*area, index, 0, shift);
    } else {
        Hands::PickItem(list, index, shift);
    }
}

void WindowHands::PickRow(ui::ListView& list, ui::ListItem& item, std::int16_t shift)
{
    if (auto* area = WidgetAs<GridArea>(list); area != nullptr)
        PressCell(*area, item.Index() - 1 + area->Source().FixedRows(), 0, shift);
}

void WindowHands::ToggleCheck(ui::ListView& list, ui::ListItem& item)
{
    auto* area = WidgetAs<GridArea>(list);
    if (area == nullptr) return;
    const int row = item.Index() - 1 + area->Source().FixedRows();
    area->ShowRow(row);
    const QRect cell = area->CellRect(row, 0);
    ClickAt(area->viewport(), QPoint(cell.left() + 9, cell.center().y()));
}

void WindowHands::ClickColumn(ui::ListView& list, std::int32_t index)
{
    auto* area = WidgetAs<GridArea>(list);
    if (area != nullptr && area->Source().FixedRows() > 0)
        PressCell(*area, 0, index - 1, 0);
    else
        Hands::ClickColumn(list, index);
}

void WindowHands::SelectTab(ui::SSTab& strip, std::int16_t tab)
{
    if (auto* widget = WidgetAs<TabStrip>(strip); widget != nullptr) ClickAt(widget, widget->TabRect(tab).center());
}

void WindowHands::SetDate(ui::DTPicker& picker, basic::Date date)
{
    const basic::DateParts parts = basic::PartsOf(date);
    if (auto* widget = WidgetAs<QDateEdit>(picker); widget != nullptr)
        widget->setDate(QDate(parts.year, parts.month, parts.day));
}

void WindowHands::ClickNode(ui::TreeView& tree, const ui::Node& node)
{
    auto* area = WidgetAs<TreeArea>(tree);
    if (area == nullptr) return;
    const int row = area->Rows().RowOf(node);
    area->ShowRow(row);
    ClickAt(area->viewport(), area->LabelRect(row, node).center());
}

void WindowHands::ExpandNode(ui::TreeView& tree, const ui::Node& node, bool expanded)
{
    auto* area = WidgetAs<TreeArea>(tree);
    if (area == nullptr || node.Expanded() == expanded || node.Children() == 0) return;
    const int row = area->Rows().RowOf(node);
    area->ShowRow(row);
    ClickAt(area->viewport(), area->ExpanderRect(row, node).center());
}

void WindowHands::CheckNode(ui::TreeView& tree, const ui::Node& node, bool checked)
{
    auto* area = WidgetAs<TreeArea>(tree);
    if (area == nullptr || node.Checked() == checked || !tree.CheckBoxes()) return;
    const int row = area->Rows().RowOf(node);
    area->ShowRow(row);
    const QRect label = area->LabelRect(row, node);
    ClickAt(area->viewport(), QPoint(label.left() - 9, label.center().y()));
}

void WindowHands::StartEdit(ui::TreeView&)
{
    PressKey({Qt::Key_F2, Qt::NoModifier, 0});
}

// Columns of a data grid that are hidden have no place in its window.
QPoint WindowHands::CellOf(ui::Control& grid, std::int32_t row, std::int32_t col) const
{
    auto* data = dynamic_cast<ui::DataGrid*>(&grid);
    if (data == nullptr) return {col, row};
    int column = 0;
    for (std::int32_t i = 0; i < col; ++i)
        if (data->Columns()[i].Visible() && data->Columns()[i].Width() > 0) ++column;
    return {column, row + 1};
}

void WindowHands::ClickCell(ui::Control& grid, std::int32_t row, std::int32_t col)
{
    const QPoint cell = CellOf(grid, row, col);
    if (auto* area = WidgetAs<GridArea>(grid); area != nullptr) PressCell(*area, cell.y(), cell.x(), 0);
}

void WindowHands::DblClickCell(ui::Control& grid, std::int32_t row, std::int32_t col)
{
    auto* area = WidgetAs<GridArea>(grid);
    if (area == nullptr) return;
    const QPoint cell = CellOf(grid, row, col);
    ClickAgainAt(area->viewport(), area->CellRect(cell.y(), cell.x()).center());
}

}  // namespace kvx::test
