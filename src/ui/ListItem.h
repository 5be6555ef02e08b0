#pragma once

#include "basic/Object.h"
#include "ui/Constants.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace kvx::ui {

class ListView;

/// A row of a list view; stays at its address until it is removed.
class ListItem {
public:
    std::int32_t Index() const;  ///< from 1
    const std::string& Key() const { return key_; }
    void SetKey(std::string_view key);  ///< @throws basic::Error 35602, 35603
    const std::string& Text() const { return text_; }
    void SetText(std::string_view text);
    /// Text of column n + 1. @param n  from 1. @throws basic::Error 380: no such column
    const std::string& SubItems(std::int32_t n) const;
    void SetSubItems(std::int32_t n, std::string_view text);  ///< @throws basic::Error 380
    bool Checked() const { return checked_; }
    void SetChecked(bool checked);  ///< raises nothing
    bool Selected() const { return selected_; }
    /// Marks it; does not move SelectedItem with MultiSelect; raises nothing.
    void SetSelected(bool selected);
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string_view tag) { tag_ = tag; }
    Color ForeColor() const { return foreColor_; }
    void SetForeColor(Color color);
    bool Bold() const { return bold_; }
    void SetBold(bool bold);
    std::int32_t Top() const;     ///< twips, from the list's own top
    std::int32_t Height() const;  ///< twips
    void EnsureVisible();
    basic::ObjectRef Object();

private:
    friend class ListView;
    friend class ListItems;
    explicit ListItem(ListView& list) : list_(&list) {}
    ListView* list_;  // nullptr: was removed
    std::string key_, text_, tag_;
    std::vector<std::string> subItems_;
    Color foreColor_ = kColorWindowText;
    bool checked_ = false, selected_ = false, bold_ = false;
    mutable std::int32_t index_ = 0;
    std::weak_ptr<ListItem> self_;
};

/// The rows, from 1.
class ListItems {
public:
    explicit ListItems(ListView& list) : list_(list) {}
    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
    /// @param index  0 = at the end. @param key  empty = none
    /// @throws basic::Error 35600: bad index; 35602: key taken; 35603: key reads as a number
    ListItem& Add(std::int32_t index, std::string_view key, std::string_view text);
    ListItem& Add(std::string_view key, std::string_view text) { return Add(0, key, text); }
    ListItem& operator[](std::int32_t index) const;    ///< @throws basic::Error 35600
    ListItem& operator[](std::string_view key) const;  ///< @throws basic::Error 35601
    ListItem* Find(std::string_view key) const;        ///< nullptr = none
    void Remove(std::int32_t index);                   ///< @throws basic::Error 35600
    void Remove(std::string_view key);                 ///< @throws basic::Error 35601
    void Clear();
    basic::ObjectRef Object();

private:
    friend class ListView;
    friend class ListItem;
    void Renumber() const;
    ListView& list_;
    std::vector<std::shared_ptr<ListItem>> items_;
    std::unordered_map<std::string, ListItem*> keys_;
    mutable bool numbered_ = true;
};

constexpr std::int16_t lvwColumnLeft = 0;
constexpr std::int16_t lvwColumnRight = 1;
constexpr std::int16_t lvwColumnCenter = 2;

/// The head of a column.
class ColumnHeader {
public:
    std::int32_t Index() const;  ///< from 1
    const std::string& Key() const { return key_; }
    void SetKey(std::string_view key);  ///< @throws basic::Error 35602, 35603
    const std::string& Text() const { return text_; }
    void SetText(std::string_view text);
    std::int32_t Width() const { return width_; }
    void SetWidth(std::int32_t twips);  ///< @throws basic::Error 380: negative
    std::int32_t Left() const;          ///< twips
    std::int16_t Alignment() const { return alignment_; }
    void SetAlignment(std::int16_t alignment);
    std::int16_t SubItemIndex() const { return static_cast<std::int16_t>(Index() - 1); }
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string_view tag) { tag_ = tag; }
    basic::ObjectRef Object();

private:
    friend class ListView;
    friend class ColumnHeaders;
    explicit ColumnHeader(ListView& list) : list_(&list) {}
    ListView* list_;
    std::string key_, text_, tag_;
    std::int32_t width_ = 1440;
    std::int16_t alignment_ = lvwColumnLeft;
    std::weak_ptr<ColumnHeader> self_;
};

/// The columns, from 1.
class ColumnHeaders {
public:
    explicit ColumnHeaders(ListView& list) : list_(list) {}
    std::int32_t Count() const { return static_cast<std::int32_t>(columns_.size()); }
    /// @param index  0 = at the end. @param widthTwips  -1 = 1440
    /// @throws basic::Error 35600, 35602, 35603
    ColumnHeader& Add(std::int32_t index, std::string_view key, std::string_view text, std::int32_t widthTwips = -1,
                      std::int16_t alignment = lvwColumnLeft);
    ColumnHeader& Add(std::string_view key, std::string_view text, std::int32_t widthTwips = -1)
    {
        return Add(0, key, text, widthTwips);
    }
    ColumnHeader& operator[](std::int32_t index) const;    ///< @throws basic::Error 35600
    ColumnHeader& operator[](std::string_view key) const;  ///< @throws basic::Error 35601
    void Remove(std::int32_t index);                       ///< @throws basic::Error 35600
    void Remove(std::string_view key);
    void Clear();
    basic::ObjectRef Object();

private:
    friend class ListView;
    friend class ColumnHeader;
    ListView& list_;
    std::vector<std::shared_ptr<ColumnHeader>> columns_;
};

}  // namespace kvx::ui
