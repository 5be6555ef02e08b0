#pragma once

#include "ui/ControlOf.h"
#include "ui/ItemList.h"

#include <vector>

namespace kvx::ui {

constexpr std::int16_t vbMultiSelectNone = 0;
constexpr std::int16_t vbMultiSelectSimple = 1;    ///< a click toggles one item
constexpr std::int16_t vbMultiSelectExtended = 2;  ///< Shift and Ctrl as in file lists

/// A list of texts to choose from.
class ListBox final : public ControlOf<ListBox> {
public:
    ListBox(Form& form, std::string_view name);
    std::string_view TypeName() const override { return "ListBox"; }
    static const basic::MemberTable<ListBox>& Members();

    std::int32_t ListCount() const { return items_.Count(); }
    const std::string& List(std::int32_t index) const { return items_.Text(index); }  ///< "" out of range
    void SetList(std::int32_t index, std::string_view text);
    std::int32_t ItemData(std::int32_t index) const { return items_.Data(index); }  ///< @throws basic::Error 381
    void SetItemData(std::int32_t index, std::int32_t data) { items_.SetData(index, data); }
    std::int32_t NewIndex() const { return items_.NewIndex(); }
    void AddItem(std::string_view text, std::int32_t index = -1);
    /// Choice and numbers of the items behind follow; raises nothing. @throws basic::Error 5
    void RemoveItem(std::int32_t index);
    void Clear();
    bool Sorted() const { return items_.Sorted(); }
    void SetSorted(bool sorted) { items_.SetSorted(sorted); }

    /// The chosen item; with multiple choice the one with the focus frame. -1 = none.
    std::int32_t ListIndex() const { return listIndex_; }
    /// Raises Click on a change. @throws basic::Error 380: out of range
    void SetListIndex(std::int32_t index);
    std::string Text() const;                             ///< the chosen item's; "" when none is
    void SetText(std::string_view text);                  ///< chooses the first item with the text, else none
    bool Selected(std::int32_t index) const;              ///< @throws basic::Error 381
    void SetSelected(std::int32_t index, bool selected);  ///< raises Click on a change. @throws basic::Error 381
    std::int32_t SelCount() const;
    std::int16_t MultiSelect() const { return multiSelect_; }
    void SetMultiSelect(std::int16_t mode);
    std::int32_t TopIndex() const { return topIndex_; }
    void SetTopIndex(std::int32_t index);  ///< @throws basic::Error 380
    std::int32_t ItemHeight() const;       ///< one line, twips

    void Reset() override;

    // --- what the user did ---
    /// Clicked or moved to an item. Click follows on a change, and for a mouse click in any case.
    /// @param shift  vbShiftMask, vbCtrlMask for extended choice
    void UserSelectItem(std::int32_t index, std::int16_t shift = 0);
    /// Scrolled; no event.
    void UserScroll(std::int32_t topIndex) { topIndex_ = topIndex; }
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;
    bool DefaultKeyPress(std::int32_t key) override;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    bool Choose(std::int32_t index);
    ItemList items_;
    std::vector<bool> selected_;  ///< multiple choice only
    std::int32_t listIndex_ = -1, topIndex_ = 0, anchor_ = 0;
    std::int16_t multiSelect_ = vbMultiSelectNone;
};

}  // namespace kvx::ui
