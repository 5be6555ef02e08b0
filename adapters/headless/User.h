#pragma once

#include "adapters/headless/HeadlessDesktop.h"
#include "basic/Variant.h"
#include "ui/Form.h"
#include "ui/Node.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::adapters::headless {

/// What a person can do to one form: everything by control names, keys and places. What cannot be done (no such
/// control, not reachable, not of that kind) is a failure of the desktop, and nothing happens.
class User {
public:
    User(HeadlessDesktop& desktop, ui::Form& form) : desktop_(desktop), form_(form) {}

    ui::Form& Form() const { return form_; }

    // --- keys ---
    void Keys(std::string_view keys);  ///< as SendKeys takes them, "12,5{ENTER}"
    /// Moves the focus to the control and types the text, every character as it stands.
    void Type(std::string_view control, std::string_view text);
    void Tab(bool backwards = false);
    void CtrlAlone();  ///< pressed and released: key code 17

    // --- mouse ---
    void Focus(std::string_view control);  ///< clicks into it without any reaction of its own
    void Click(std::string_view control);
    void DblClick(std::string_view control);
    void CloseBox();
    void Resize(std::int32_t widthTwips, std::int32_t heightTwips);
    void Drag(std::string_view source, std::string_view target, std::int32_t xTwips, std::int32_t yTwips);

    // --- lists ---
    /// An item of a combo box, list box or file list, by text or by index from 0.
    void Pick(std::string_view control, std::string_view text);
    void Pick(std::string_view control, std::int32_t index, std::int16_t shift = 0);
    /// A row of a list view, by key, or by number from 1.
    void PickRow(std::string_view listView, std::string_view key);
    void PickRow(std::string_view listView, std::int32_t index, std::int16_t shift = 0);
    void ToggleCheck(std::string_view listView, std::string_view key);  ///< the check box of a row
    void ToggleCheck(std::string_view listView, std::int32_t index);
    void ClickColumn(std::string_view listView, std::int32_t index);
    void SelectTab(std::string_view tabStrip, std::int16_t tab);
    void SetDate(std::string_view picker, basic::Date date);

    // --- trees: a path is the texts from below the top node on; {} = the top node ---
    using Path = std::vector<std::string>;
    /// Nothing when there is no such node (and a failure is kept).
    ui::Node FindNode(std::string_view tree, const Path& path);
    void Select(std::string_view tree, const Path& path);
    void Expand(std::string_view tree, const Path& path, bool expanded = true);
    void CheckNode(std::string_view tree, const Path& path, bool checked);
    /// Starts an edit of the selected node's label if none is going on, types the text over it, and ends with Enter.
    void EditLabel(std::string_view tree, std::string_view text);

    // --- grids: rows and columns from 0 ---
    void ClickCell(std::string_view grid, std::int32_t row, std::int32_t col);
    void DblClickCell(std::string_view grid, std::int32_t row, std::int32_t col);

    // --- what can be seen ---
    /// A late-bound property of a control: Read("txtName"), Read("List1", "List", {0}).
    basic::Variant Read(std::string_view control, std::string_view member = "",
                        const std::vector<basic::Variant>& args = {});
    std::string Text(std::string_view control, std::string_view member = "");  ///< the same as text
    std::vector<std::string> Lines(std::string_view list);                     ///< texts of a list, combo or file list
    bool CanReach(std::string_view control);                                   ///< in sight and enabled
    std::string FocusedControl() const;                                        ///< full name; empty = none

private:
    ui::Control* Find(std::string_view control);
    template <class T>
    T* FindAs(std::string_view control);
    /// The control in sight, with the focus moved to it.
    template <class T>
    T* Reach(std::string_view control);
    void Act(const std::function<void(Hands&)>& action);
    void Fail(std::string_view what, std::string_view control);
    HeadlessDesktop& desktop_;
    ui::Form& form_;
};

}  // namespace kvx::adapters::headless
