#pragma once

#include "basic/Variant.h"

#include <cstdint>

namespace kvx::ui {
class Control;
class DTPicker;
class Form;
class ListItem;
class ListView;
class Node;
class SSTab;
class TreeView;
}  // namespace kvx::ui

namespace kvx::adapters::headless {

/// How the scripted person touches controls: here by telling each what was done to it. A desktop with real windows
/// brings hands that press its mouse and keys instead. The controls are in sight, and the focus is where the touch
/// needs it; whatever is set off is carried out by the caller.
class Hands {
public:
    virtual ~Hands() = default;
    virtual bool Focus(ui::Control& control);     ///< false: the focus stayed
    virtual void Click(ui::Control& control);     ///< with the move of the focus
    virtual void DblClick(ui::Control& control);  ///< what comes after the first click
    virtual void CtrlAlone(ui::Form& form);
    virtual void CloseBox(ui::Form& form);
    virtual void Resize(ui::Form& form, std::int32_t widthTwips, std::int32_t heightTwips);
    virtual void Drag(ui::Control& from, ui::Control& to, std::int32_t xTwips, std::int32_t yTwips);
    virtual void PickItem(ui::Control& list, std::int32_t index, std::int16_t shift);
    virtual void PickRow(ui::ListView& list, ui::ListItem& item, std::int16_t shift);
    virtual void ToggleCheck(ui::ListView& list, ui::ListItem& item);
    virtual void ClickColumn(ui::ListView& list, std::int32_t index);
    virtual void SelectTab(ui::SSTab& strip, std::int16_t tab);
    virtual void SetDate(ui::DTPicker& picker, basic::Date date);
    virtual void ClickNode(ui::TreeView& tree, const ui::Node& node);
    virtual void ExpandNode(ui::TreeView& tree, const ui::Node& node, bool expanded);
    virtual void CheckNode(ui::TreeView& tree, const ui::Node& node, bool checked);
    virtual void StartEdit(ui::TreeView& tree);
    virtual void ClickCell(ui::Control& grid, std::int32_t row, std::int32_t col);
    /// What comes after the first click.
    virtual void DblClickCell(ui::Control& grid, std::int32_t row, std::int32_t col);
};

}  // namespace kvx::adapters::headless
