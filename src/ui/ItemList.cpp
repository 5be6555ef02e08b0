#include "ui/ItemList.h"

#include "basic/Error.h"
#include "basic/Text.h"

#include <algorithm>

namespace kvx::ui {
namespace {

std::size_t Place(std::int32_t index)
{
    return static_cast<std::size_t>(index);
}

}  // namespace

const std::string& ItemList::Text(std::int32_t index) const
{
    static const std::string kNothing;
    return index < 0 || index >= Count() ? kNothing : items_[Place(index)].text;
}

void ItemList::SetText(std::int32_t index, std::string_view text)
{
    if (index < 0 || index >= Count()) basic::Raise(basic::kErrInvalidIndex);
    items_[Place(index)].text = text;
}

std::int32_t ItemList::Data(std::int32_t index) const
{
    if (index < 0 || index >= Count()) basic::Raise(basic::kErrInvalidIndex);
    return items_[Place(index)].data;
}

void ItemList::SetData(std::int32_t index, std::int32_t data)
{
    if (index < 0 || index >= Count()) basic::Raise(basic::kErrInvalidIndex);
    items_[Place(index)].data = data;
}

std::int32_t ItemList::Add(std::string_view text, std::int32_t index)
{
    if (index < -1 || index > Count()) basic::Raise(basic::kErrInvalidCall);
    if (index == -1) {
        index = Count();
        if (sorted_) {
            const std::string folded = basic::LCase(text);
            const auto behind =
                std::upper_bound(items_.begin(), items_.end(), folded, [](const std::string& a, const Item& b) {
                    return basic::StrCompare(a, basic::LCase(b.text)) < 0;
                });
            index = static_cast<std::int32_t>(behind - items_.begin());
        }
    }
    items_.insert(items_.begin() + index, Item{std::string{text}, 0});
    newIndex_ = index;
    return index;
}

void ItemList::Remove(std::int32_t index)
{
    if (index < 0 || index >= Count()) basic::Raise(basic::kErrInvalidCall);
    items_.erase(items_.begin() + index);
    newIndex_ = -1;
}

void ItemList::Clear()
{
    items_.clear();
    newIndex_ = -1;
}

std::int32_t ItemList::FindExact(std::string_view text) const
{
    const auto found = std::find_if(items_.begin(), items_.end(),
                                    [&](const Item& item) { return basic::SameTextIgnoringCase(item.text, text); });
    return found == items_.end() ? -1 : static_cast<std::int32_t>(found - items_.begin());
}

std::int32_t ItemList::FindByCharacter(std::int32_t key, std::int32_t after) const
{
    const char32_t wanted = basic::LowerCharacter(static_cast<char32_t>(key));
    for (std::int32_t step = 1; step <= Count(); ++step) {
        const std::int32_t index = (after + step) % Count();
        std::string_view text = items_[Place(index)].text;
        if (!text.empty() && basic::LowerCharacter(basic::NextCharacter(text)) == wanted) return index;
    }
    return -1;
}

}  // namespace kvx::ui
