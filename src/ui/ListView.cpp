#include "ui/ListView.h"

#include "basic/Error.h"
#include "basic/Text.h"
#include "ui/Desktop.h"

#include <algorithm>

namespace kvx::ui {

ListView::ListView(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

ListView::~ListView()
{
    // Late-bound rows and columns may outlive the list.
    listener_ = nullptr;
    items_.Clear();
    columns_.Clear();
}

void ListView::Reset()
{
    Control::Reset();
    items_.Clear();
    columns_.Clear();
    viewStyle_ = lvwIcon;
    sortKey_ = sortOrder_ = 0;
    checkboxes_ = fullRowSelect_ = multiSelect_ = gridLines_ = sorted_ = false;
    hideSelection_ = true;
}

std::int32_t ListView::HeaderHeight() const
{
    return viewStyle_ == lvwReport ? CurrentDesktop().TextHeight("A") + 4 * kTwipsPerPixel : 0;
}

std::int32_t ListView::RowHeight() const
{
    return CurrentDesktop().TextHeight("A") + 4 * kTwipsPerPixel;
}

void ListView::SetSelectedItem(ListItem* item)
{
    if (item != nullptr && item->list_ != this) basic::Raise(basic::kErrInvalidCall);
    if (!multiSelect_ && selected_ != nullptr && selected_ != item) {
        selected_->selected_ = false;
        Changed(*selected_);
    }
    selected_ = item;
    if (item != nullptr) {
        item->selected_ = true;
        Changed(*item);
    }
    Notify(Change::Selection);
}

void ListView::SetViewStyle(std::int16_t style)
{
    if (style < lvwIcon || style > lvwReport) basic::Raise(basic::kErrInvalidProperty);
    viewStyle_ = style;
    Notify(Change::Look);
}

void ListView::SetCheckboxes(bool checkboxes)
{
    checkboxes_ = checkboxes;
    Notify(Change::Look);
}

void ListView::SetFullRowSelect(bool full)
{
    fullRowSelect_ = full;
    Notify(Change::Look);
}

void ListView::SetMultiSelect(bool multi)
{
    multiSelect_ = multi;
    Notify(Change::Look);
}

void ListView::SetGridLines(bool lines)
{
    gridLines_ = lines;
    Notify(Change::Look);
}

void ListView::SetSorted(bool sorted)
{
    sorted_ = sorted;
    Sort();
}

void ListView::SetSortKey(std::int16_t key)
{
    if (key < 0) basic::Raise(basic::kErrInvalidProperty);
    sortKey_ = key;
    Sort();
}

void ListView::SetSortOrder(std::int16_t order)
{
    if (order < 0 || order > 1) basic::Raise(basic::kErrInvalidProperty);
    sortOrder_ = order;
    Sort();
}

std::string ListView::SortText(const ListItem& item) const
{
    const auto place = static_cast<std::size_t>(sortKey_);
    if (sortKey_ == 0) return basic::LCase(item.text_);
    return place <= item.subItems_.size() ? basic::LCase(item.subItems_[place - 1]) : std::string{};
}

void ListView::Sort()
{
    if (!sorted_) return;
    std::vector<std::pair<std::string, std::shared_ptr<ListItem>>> rows;
    for (const auto& item : items_.items_)
        rows.emplace_back(SortText(*item), item);
    std::stable_sort(rows.begin(), rows.end(), [this](const auto& a, const auto& b) {
        const int order = basic::StrCompare(a.first, b.first);
        return sortOrder_ == 0 ? order < 0 : order > 0;
    });
    for (std::size_t i = 0; i < rows.size(); ++i)
        items_.items_[i] = std::move(rows[i].second);
    items_.numbered_ = false;
    if (listener_ != nullptr) listener_->ItemsReset();
}

std::size_t ListView::SortedPlace(const ListItem& item) const
{
    const std::string text = SortText(item);
    const auto& rows = items_.items_;
    const auto behind = std::find_if(rows.begin(), rows.end(), [&](const auto& row) {
        const int order = basic::StrCompare(SortText(*row), text);
        return sortOrder_ == 0 ? order > 0 : order < 0;
    });
    return static_cast<std::size_t>(behind - rows.begin());
}

void ListView::Changed(const ListItem& item)
{
    if (listener_ != nullptr) listener_->ItemChanged(item.Index() - 1);
}

void ListView::ColumnsChanged()
{
    if (listener_ != nullptr) listener_->ColumnsChanged();
}

void ListView::Inserted(std::int32_t position)
{
    if (listener_ != nullptr) listener_->ItemInserted(position);
}

void ListView::Removed(const ListItem& item, std::int32_t position)
{
    if (selected_ == &item) selected_ = nullptr;
    topIndex_ = std::clamp(topIndex_, 1, std::max(1, items_.Count()));
    if (listener_ != nullptr) listener_->ItemRemoved(position);
}

void ListView::Emptied()
{
    selected_ = nullptr;
    topIndex_ = anchor_ = 1;
    if (listener_ != nullptr) listener_->ItemsReset();
}

void ListView::Show(std::int32_t index)
{
    const std::int32_t inSight = std::max(1, (Height() - HeaderHeight()) / RowHeight());
    topIndex_ = std::clamp(topIndex_, std::max(1, index - inSight + 1), index);
    if (listener_ != nullptr) listener_->EnsureVisible(index - 1);
}

void ListView::UserSelectItem(ListItem& item, std::int16_t shift)
{
    if (item.list_ != this) return;
    // A handler may take the row out, or unload the form, while it is being told of it.
    const std::shared_ptr<ListItem> alive = item.self_.lock();
    if (multiSelect_) {
        const std::int32_t index = item.Index();
        const bool range = (shift & vbShiftMask) != 0, toggle = (shift & vbCtrlMask) != 0;
        for (const auto& other : items_.items_) {
            const std::int32_t at = other->Index();
            bool on = other.get() == &item;
            if (range) on = at >= std::min(anchor_, index) && at <= std::max(anchor_, index);
            if (toggle && !range) on = other.get() == &item ? !other->selected_ : other->selected_;
            if (on == other->selected_) continue;
            other->selected_ = on;
            Changed(*other);
        }
        if (!range) anchor_ = index;
        selected_ = &item;
        Notify(Change::Selection);
    } else {
        SetSelectedItem(&item);
    }
    ItemClick.Raise(item);
    Click.Raise();
}

void ListView::UserToggleCheck(ListItem& item)
{
    if (!checkboxes_ || item.list_ != this) return;
    const std::shared_ptr<ListItem> alive = item.self_.lock();
    item.SetChecked(!item.Checked());
    ItemCheck.Raise(item);
}

void ListView::UserColumnClick(ColumnHeader& column)
{
    const std::shared_ptr<ColumnHeader> alive = column.self_.lock();
    ColumnClick.Raise(column);
}

void ListView::UserResizeColumn(ColumnHeader& column, std::int32_t widthTwips)
{
    column.SetWidth(std::max(0, widthTwips));
}

bool ListView::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    if (items_.Count() == 0) return false;
    std::int32_t to = selected_ != nullptr ? selected_->Index() : 0;
    switch (keyCode) {
    case vbKeyUp: --to; break;
    case vbKeyDown: ++to; break;
    case vbKeyHome: to = 1; break;
    case vbKeyEnd: to = items_.Count(); break;
    default: return false;
    }
    ListItem& item = items_[std::clamp(to, 1, items_.Count())];
    if (&item == selected_) return true;
    Show(item.Index());
    UserSelectItem(item, static_cast<std::int16_t>(shift & vbShiftMask));
    return true;
}

bool ListView::DefaultKeyPress(std::int32_t key)
{
    if (key != vbKeySpace || !checkboxes_ || selected_ == nullptr) return false;
    UserToggleCheck(*selected_);
    return true;
}

}  // namespace kvx::ui
