#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::ui {

/// Items of a list or combo box: texts with a number each.
class ItemList {
public:
    std::int32_t Count() const { return static_cast<std::int32_t>(items_.size()); }
    /// "" for an index out of range.
    const std::string& Text(std::int32_t index) const;
    void SetText(std::int32_t index, std::string_view text);  ///< @throws basic::Error 381
    std::int32_t Data(std::int32_t index) const;              ///< @throws basic::Error 381
    void SetData(std::int32_t index, std::int32_t data);      ///< @throws basic::Error 381
    std::int32_t NewIndex() const { return newIndex_; }       ///< -1 after a removal
    bool Sorted() const { return sorted_; }
    void SetSorted(bool sorted) { sorted_ = sorted; }

    /// @param index  -1 = at its sorted place, or at the end. @return where it went
    /// @throws basic::Error 5: behind the end
    std::int32_t Add(std::string_view text, std::int32_t index);
    void Remove(std::int32_t index);  ///< @throws basic::Error 5
    void Clear();

    /// The first item with this text, case ignored; -1 = none.
    std::int32_t FindExact(std::string_view text) const;
    /// The next item behind `after` (around the end) that begins with the character, case ignored; -1 = none.
    std::int32_t FindByCharacter(std::int32_t key, std::int32_t after) const;

private:
    struct Item {
        std::string text;
        std::int32_t data = 0;
    };
    std::vector<Item> items_;
    std::int32_t newIndex_ = -1;
    bool sorted_ = false;
};

}  // namespace kvx::ui
