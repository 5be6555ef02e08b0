#pragma once

#include "ui/ControlOf.h"
#include "ui/ListItem.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ui {

constexpr std::int16_t lvwIcon = 0;
constexpr std::int16_t lvwSmallIcon = 1;
constexpr std::int16_t lvwList = 2;
constexpr std::int16_t lvwReport = 3;

/// What a window wants to know of a list view, besides View. Positions count from 0.
class ListViewListener {
public:
    virtual ~ListViewListener() = default;
    virtual void ItemsReset() = 0;
    virtual void ItemInserted(std::int32_t position) = 0;
    virtual void ItemRemoved(std::int32_t position) = 0;
    virtual void ItemChanged(std::int32_t position) = 0;  ///< text, check, selection, colour
    virtual void ColumnsChanged() = 0;
    virtual void EnsureVisible(std::int32_t position) = 0;
};

/// Rows of texts under column headers, with check boxes if wanted.
class ListView final : public ControlOf<ListView> {
public:
    ListView(Form& form, std::string_view name);
    ~ListView() override;
    std::string_view TypeName() const override { return "ListView"; }
    static const basic::MemberTable<ListView>& Members();

    ui::ListItems& ListItems() { return items_; }
    const ui::ListItems& ListItems() const { return items_; }
    ui::ColumnHeaders& ColumnHeaders() { return columns_; }
    const ui::ColumnHeaders& ColumnHeaders() const { return columns_; }

    ListItem* SelectedItem() { return selected_; }  ///< nullptr = none
    /// Selects it (and, without MultiSelect, no other); raises nothing. nullptr = none
    void SetSelectedItem(ListItem* item);

    std::int16_t View() const { return viewStyle_; }
    void SetViewStyle(std::int16_t style);
    bool Checkboxes() const { return checkboxes_; }
    void SetCheckboxes(bool checkboxes);
    bool FullRowSelect() const { return fullRowSelect_; }
    void SetFullRowSelect(bool full);
    bool MultiSelect() const { return multiSelect_; }
    void SetMultiSelect(bool multi);
    bool GridLines() const { return gridLines_; }
    void SetGridLines(bool lines);
    bool HideSelection() const { return hideSelection_; }
    void SetHideSelection(bool hide) { hideSelection_ = hide; }
    bool Sorted() const { return sorted_; }
    void SetSorted(bool sorted);                       ///< sorts now, and puts items added later in their places
    std::int16_t SortKey() const { return sortKey_; }  ///< 0 = text, n = sub-item n
    void SetSortKey(std::int16_t key);
    std::int16_t SortOrder() const { return sortOrder_; }  ///< 0 ascending, 1 descending
    void SetSortOrder(std::int16_t order);
    std::int32_t TopIndex() const { return topIndex_; }  ///< first row in sight, from 1
    std::int32_t HeaderHeight() const;                   ///< twips
    std::int32_t RowHeight() const;                      ///< twips

    void Reset() override;
    void SetListener(ListViewListener* listener) { listener_ = listener; }

    // --- what the user did ---
    /// Clicked or moved to an item: selection, ItemClick, Click. @param shift  Ctrl and Shift with MultiSelect
    void UserSelectItem(ListItem& item, std::int16_t shift = 0);
    void UserToggleCheck(ListItem& item);  ///< a click on the box: ItemCheck, without ItemClick
    void UserColumnClick(ColumnHeader& column);
    void UserResizeColumn(ColumnHeader& column, std::int32_t widthTwips);
    void UserScroll(std::int32_t topIndex) { topIndex_ = topIndex; }
    bool DefaultKeyDown(std::int16_t keyCode, std::int16_t shift) override;
    bool DefaultKeyPress(std::int32_t key) override;

    ui::Event<ListItem&> ItemClick;  ///< the user only
    ui::Event<ListItem&> ItemCheck;  ///< the user only
    ui::Event<ColumnHeader&> ColumnClick;

protected:
    Color DrawnBackColor() const override { return kColorWindow; }
    Color DrawnForeColor() const override { return kColorWindowText; }

private:
    friend class ui::ListItem;
    friend class ui::ListItems;
    friend class ui::ColumnHeader;
    friend class ui::ColumnHeaders;
    void Sort();
    std::string SortText(const ListItem& item) const;
    std::size_t SortedPlace(const ListItem& item) const;
    void Changed(const ListItem& item);
    void Inserted(std::int32_t position);
    void Removed(const ListItem& item, std::int32_t position);
    void Emptied();
    void ColumnsChanged();
    void Show(std::int32_t index);
    ui::ListItems items_{*this};
    ui::ColumnHeaders columns_{*this};
    ListViewListener* listener_ = nullptr;
    ListItem* selected_ = nullptr;
    std::int32_t topIndex_ = 1, anchor_ = 1;
    std::int16_t viewStyle_ = lvwIcon, sortKey_ = 0, sortOrder_ = 0;
    bool checkboxes_ = false, fullRowSelect_ = false, multiSelect_ = false, gridLines_ = false, hideSelection_ = true,
         sorted_ = false;
};

}  // namespace kvx::ui
