#include "ui/ListItem.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "ui/ListView.h"

#include <algorithm>

namespace kvx::ui {
namespace {

void RaiseIfNumeric(std::string_view key)
{
    if (!key.empty() && basic::IsNumeric(key)) basic::Raise(basic::kErrNodeKeyInvalid);
}

}  // namespace

// --- rows ---

std::int32_t ListItem::Index() const
{
    if (list_ == nullptr) return 0;
    list_->ListItems().Renumber();
    return index_;
}

void ListItem::SetKey(std::string_view key)
{
    if (key == key_) return;
    RaiseIfNumeric(key);
    if (list_ != nullptr) {
        if (!key.empty() && list_->ListItems().Find(key) != nullptr) basic::Raise(basic::kErrNodeKeyExists);
        auto& keys = list_->ListItems().keys_;
        if (!key_.empty()) keys.erase(key_);
        if (!key.empty()) keys.emplace(key, this);
    }
    key_ = key;
}

void ListItem::SetText(std::string_view text)
{
    text_ = text;
    if (list_ != nullptr) list_->Changed(*this);
}

const std::string& ListItem::SubItems(std::int32_t n) const
{
    static const std::string kNothing;
    if (n < 1 || (list_ != nullptr && n >= list_->ColumnHeaders().Count())) basic::Raise(basic::kErrInvalidProperty);
    const auto place = static_cast<std::size_t>(n - 1);
    return place < subItems_.size() ? subItems_[place] : kNothing;
}

void ListItem::SetSubItems(std::int32_t n, std::string_view text)
{
    SubItems(n);
    const auto place = static_cast<std::size_t>(n - 1);
    if (place >= subItems_.size()) subItems_.resize(place + 1);
    subItems_[place] = text;
    if (list_ != nullptr) list_->Changed(*this);
}

void ListItem::SetChecked(bool checked)
{
    checked_ = checked;
    if (list_ != nullptr) list_->Changed(*this);
}

void ListItem::SetSelected(bool selected)
{
    if (list_ == nullptr || selected == selected_) return;
    if (selected && !list_->MultiSelect()) {
        list_->SetSelectedItem(this);
        return;
    }
    selected_ = selected;
    if (!selected && list_->SelectedItem() == this && !list_->MultiSelect()) list_->SetSelectedItem(nullptr);
    list_->Changed(*this);
}

void ListItem::SetForeColor(Color color)
{
    foreColor_ = color;
    if (list_ != nullptr) list_->Changed(*this);
}

void ListItem::SetBold(bool bold)
{
    bold_ = bold;
    if (list_ != nullptr) list_->Changed(*this);
}

std::int32_t ListItem::Top() const
{
    if (list_ == nullptr) return 0;
    return list_->HeaderHeight() + (Index() - list_->TopIndex()) * list_->RowHeight();
}

std::int32_t ListItem::Height() const
{
    return list_ == nullptr ? 0 : list_->RowHeight();
}

void ListItem::EnsureVisible()
{
    if (list_ != nullptr) list_->Show(Index());
}

ListItem& ListItems::Add(std::int32_t index, std::string_view key, std::string_view text)
{
    if (index < 0 || index > Count() + 1) basic::Raise(basic::kErrNodeIndex);
    RaiseIfNumeric(key);
    if (!key.empty() && Find(key) != nullptr) basic::Raise(basic::kErrNodeKeyExists);
    std::shared_ptr<ListItem> item{new ListItem{list_}};
    item->self_ = item;
    item->key_ = key;
    item->text_ = text;
    std::size_t place = index == 0 ? items_.size() : static_cast<std::size_t>(index - 1);
    if (list_.Sorted()) place = list_.SortedPlace(*item);
    if (!key.empty()) keys_.emplace(key, item.get());
    // Numbers stay right as long as rows come at the end.
    item->index_ = static_cast<std::int32_t>(place) + 1;
    if (place < items_.size()) numbered_ = false;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(place), item);
    list_.Inserted(static_cast<std::int32_t>(place));
    return *item;
}

ListItem& ListItems::operator[](std::int32_t index) const
{
    if (index < 1 || index > Count()) basic::Raise(basic::kErrNodeIndex);
    return *items_[static_cast<std::size_t>(index - 1)];
}

ListItem& ListItems::operator[](std::string_view key) const
{
    ListItem* item = Find(key);
    if (item == nullptr) basic::Raise(basic::kErrNodeNotFound);
    return *item;
}

ListItem* ListItems::Find(std::string_view key) const
{
    const auto found = keys_.find(std::string{key});
    return found == keys_.end() ? nullptr : found->second;
}

void ListItems::Remove(std::int32_t index)
{
    ListItem& item = (*this)[index];
    const std::shared_ptr<ListItem> alive = items_[static_cast<std::size_t>(index - 1)];
    if (!item.key_.empty()) keys_.erase(item.key_);
    items_.erase(items_.begin() + index - 1);
    numbered_ = numbered_ && index == Count() + 1;
    list_.Removed(item, index - 1);
    item.list_ = nullptr;
}

void ListItems::Remove(std::string_view key)
{
    Remove((*this)[key].Index());
}

void ListItems::Clear()
{
    for (const auto& item : items_)
        item->list_ = nullptr;
    items_.clear();
    keys_.clear();
    numbered_ = true;
    list_.Emptied();
}

void ListItems::Renumber() const
{
    if (numbered_) return;
    std::int32_t number = 0;
    for (const auto& item : items_)
        item->index_ = ++number;
    numbered_ = true;
}

// --- columns ---

std::int32_t ColumnHeader::Index() const
{
    if (list_ == nullptr) return 0;
    const auto& columns = list_->ColumnHeaders().columns_;
    const auto found = std::find_if(columns.begin(), columns.end(), [this](const auto& c) { return c.get() == this; });
    return static_cast<std::int32_t>(found - columns.begin()) + 1;
}

void ColumnHeader::SetKey(std::string_view key)
{
    if (key == key_) return;
    RaiseIfNumeric(key);
    if (list_ != nullptr && !key.empty())
        for (const auto& other : list_->ColumnHeaders().columns_)
            if (other->key_ == key) basic::Raise(basic::kErrNodeKeyExists);
    key_ = key;
}

void ColumnHeader::SetText(std::string_view text)
{
    text_ = text;
    if (list_ != nullptr) list_->ColumnsChanged();
}

void ColumnHeader::SetWidth(std::int32_t twips)
{
    if (twips < 0) basic::Raise(basic::kErrInvalidProperty);
    width_ = twips;
    if (list_ != nullptr) list_->ColumnsChanged();
}

std::int32_t ColumnHeader::Left() const
{
    std::int32_t left = 0;
    if (list_ == nullptr) return left;
    for (const auto& column : list_->ColumnHeaders().columns_) {
        if (column.get() == this) break;
        left += column->width_;
    }
    return left;
}

void ColumnHeader::SetAlignment(std::int16_t alignment)
{
    if (alignment < lvwColumnLeft || alignment > lvwColumnCenter) basic::Raise(basic::kErrInvalidProperty);
    alignment_ = alignment;
    if (list_ != nullptr) list_->ColumnsChanged();
}

ColumnHeader& ColumnHeaders::Add(std::int32_t index, std::string_view key, std::string_view text,
                                 std::int32_t widthTwips, std::int16_t alignment)
{
    if (index < 0 || index > Count() + 1) basic::Raise(basic::kErrNodeIndex);
    std::shared_ptr<ColumnHeader> column{new ColumnHeader{list_}};
    column->self_ = column;
    column->SetKey(key);
    column->text_ = text;
    if (widthTwips != -1) column->SetWidth(widthTwips);
    column->SetAlignment(alignment);
    columns_.insert(index == 0 ? columns_.end() : columns_.begin() + index - 1, column);
    list_.ColumnsChanged();
    return *column;
}

ColumnHeader& ColumnHeaders::operator[](std::int32_t index) const
{
    if (index < 1 || index > Count()) basic::Raise(basic::kErrNodeIndex);
    return *columns_[static_cast<std::size_t>(index - 1)];
}

ColumnHeader& ColumnHeaders::operator[](std::string_view key) const
{
    for (const auto& column : columns_)
        if (!key.empty() && column->key_ == key) return *column;
    basic::Raise(basic::kErrNodeNotFound);
}

void ColumnHeaders::Remove(std::int32_t index)
{
    (*this)[index].list_ = nullptr;
    columns_.erase(columns_.begin() + index - 1);
    list_.ColumnsChanged();
}

void ColumnHeaders::Remove(std::string_view key)
{
    Remove((*this)[key].Index());
}

void ColumnHeaders::Clear()
{
    for (const auto& column : columns_)
        column->list_ = nullptr;
    columns_.clear();
    list_.ColumnsChanged();
}

}  // namespace kvx::ui
