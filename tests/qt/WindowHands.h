#pragma once

#include "adapters/headless/Hands.h"

#include <QPoint>
#include <QtGlobal>

class QWidget;

namespace kvx::adapters::qt {
class GridArea;
class QtDesktop;
}  // namespace kvx::adapters::qt

namespace kvx::test {

/// Hands at real windows: they press the mouse and keys of the widgets, and the widgets report it as for any user.
class WindowHands final : public adapters::headless::Hands {
public:
    explicit WindowHands(adapters::qt::QtDesktop& desktop) : desktop_(desktop) {}

    bool Focus(ui::Control& control) override;
    void Click(ui::Control& control) override;
    void DblClick(ui::Control& control) override;
    void CtrlAlone(ui::Form& form) override;
    void CloseBox(ui::Form& form) override;
    void Resize(ui::Form& form, std::int32_t widthTwips, std::int32_t heightTwips) override;
    void Drag(ui::Control& from, ui::Control& to, std::int32_t xTwips, std::int32_t yTwips) override;
    void PickItem(ui::Control& list, std::int32_t index, std::int16_t shift) override;
    void PickRow(ui::ListView& list, ui::ListItem& item, std::int16_t shift) override;
    void ToggleCheck(ui::ListView& list, ui::ListItem& item) override;
    void ClickColumn(ui::ListView& list, std::int32_t index) override;
    void SelectTab(ui::SSTab& strip, std::int16_t tab) override;
    void SetDate(ui::DTPicker& picker, basic::Date date) override;
    void ClickNode(ui::TreeView& tree, const ui::Node& node) override;
    void ExpandNode(ui::TreeView& tree, const ui::Node& node, bool expanded) override;
    void CheckNode(ui::TreeView& tree, const ui::Node& node, bool checked) override;
    void StartEdit(ui::TreeView& tree) override;
    void ClickCell(ui::Control& grid, std::int32_t row, std::int32_t col) override;
    void DblClickCell(ui::Control& grid, std::int32_t row, std::int32_t col) override;

private:
    QWidget* WidgetOf(ui::Control& control) const;
    template <class W>
    W* WidgetAs(ui::Control& control) const;
    void PressCell(adapters::qt::GridArea& area, int row, int column, std::int16_t shift);
    QPoint CellOf(ui::Control& grid, std::int32_t row, std::int32_t col) const;
    adapters::qt::QtDesktop& desktop_;
};

}  // namespace kvx::test
