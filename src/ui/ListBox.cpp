#include "ui/ListBox.h"

#include "ui/Desktop.h"
#include "ui/MemberRows.h"

#include <algorithm>

namespace kvx::ui {
namespace {

std::size_t Place(std::int32_t index)
{
    return static_cast<std::size_t>(index);
}

}  // namespace

ListBox::ListBox(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<ListBox>& ListBox::Members()
{
    using namespace rows;
    using T = ListBox;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Text, &T::SetText>("Text"),
        ReadWrite<T, &T::Text, &T::SetText>(""),
        ReadWrite<T, &T::ListIndex, &T::SetListIndex>("ListIndex"),
        ReadOnly<T, &T::ListCount>("ListCount"),
        Indexed<T, &T::List, &T::SetList>("List"),
        Indexed<T, &T::ItemData, &T::SetItemData>("ItemData"),
        Indexed<T, &T::Selected, &T::SetSelected>("Selected"),
        ReadOnly<T, &T::SelCount>("SelCount"),
        ReadOnly<T, &T::MultiSelect>("MultiSelect"),
        ReadOnly<T, &T::NewIndex>("NewIndex"),
        ReadOnly<T, &T::Sorted>("Sorted"),
        ReadWrite<T, &T::TopIndex, &T::SetTopIndex>("TopIndex"),
        {.name = "AddItem",
         .call =
             [](T& box, std::span<Variant> args) {
                 box.AddItem(basic::CStr(Required(args, 0)), args.size() > 1 ? basic::CLng(args[1]) : -1);
                 return Variant{};
             }},
        {.name = "RemoveItem", .call = Call1<T, &T::RemoveItem>},
        Method<T, &T::Clear>("Clear"),
    };
    static constexpr basic::MemberTable<T> kTable{"ListBox", kRows};
    return kTable;
}

void ListBox::Reset()
{
    Control::Reset();
    items_ = {};
    selected_.clear();
    listIndex_ = -1;
    topIndex_ = anchor_ = 0;
    multiSelect_ = vbMultiSelectNone;
}

void ListBox::SetList(std::int32_t index, std::string_view text)
{
    items_.SetText(index, text);
    Notify(Change::Items);
}

void ListBox::AddItem(std::string_view text, std::int32_t index)
{
    const std::int32_t place = items_.Add(text, index);
    selected_.insert(selected_.begin() + place, false);
    if (listIndex_ >= place) ++listIndex_;
    Notify(Change::Items);
}

void ListBox::RemoveItem(std::int32_t index)
{
    items_.Remove(index);
    selected_.erase(selected_.begin() + index);
    if (index == listIndex_)
        listIndex_ = -1;
    else if (index < listIndex_)
        --listIndex_;
    topIndex_ = std::clamp(topIndex_, 0, std::max(0, items_.Count() - 1));
    Notify(Change::Items);
}

void ListBox::Clear()
{
    items_.Clear();
    selected_.clear();
    listIndex_ = -1;
    topIndex_ = anchor_ = 0;
    Notify(Change::Items);
}

bool ListBox::Choose(std::int32_t index)
{
    const bool changed = index != listIndex_;
    listIndex_ = index;
    if (changed) Notify(Change::Selection);
    return changed;
}

void ListBox::SetListIndex(std::int32_t index)
{
    if (index < -1 || index >= items_.Count()) basic::Raise(basic::kErrInvalidProperty);
    if (Choose(index)) Click.Raise();
}

void ListBox::SetText(std::string_view text)
{
    std::int32_t index = 0;
    while (index < ListCount() && List(index) != text)
        ++index;
    SetListIndex(index < ListCount() ? index : -1);
}

std::string ListBox::Text() const
{
    return items_.Text(listIndex_);
}

bool ListBox::Selected(std::int32_t index) const
{
    if (index < 0 || index >= items_.Count()) basic::Raise(basic::kErrInvalidIndex);
    return multiSelect_ == vbMultiSelectNone ? index == listIndex_ : selected_[Place(index)];
}

void ListBox::SetSelected(std::int32_t index, bool selected)
{
    if (Selected(index) == selected) return;
    if (multiSelect_ == vbMultiSelectNone) {
        SetListIndex(selected ? index : -1);
        return;
    }
    selected_[Place(index)] = selected;
    Notify(Change::Selection);
    Click.Raise();
}

std::int32_t ListBox::SelCount() const
{
    if (multiSelect_ == vbMultiSelectNone) return listIndex_ >= 0 ? 1 : 0;
    return static_cast<std::int32_t>(std::count(selected_.begin(), selected_.end(), true));
}

void ListBox::SetMultiSelect(std::int16_t mode)
{
    if (mode < vbMultiSelectNone || mode > vbMultiSelectExtended) basic::Raise(basic::kErrInvalidProperty);
    multiSelect_ = mode;
    Notify(Change::Look);
}

void ListBox::SetTopIndex(std::int32_t index)
{
    if (index < 0 || (index >= items_.Count() && index > 0)) basic::Raise(basic::kErrInvalidProperty);
    topIndex_ = index;
    Notify(Change::Look);
}

std::int32_t ListBox::ItemHeight() const
{
    return CurrentDesktop().TextHeight("A");
}

void ListBox::UserSelectItem(std::int32_t index, std::int16_t shift)
{
    if (index < 0 || index >= items_.Count()) return;
    if (multiSelect_ == vbMultiSelectNone) {
        Choose(index);
        Click.Raise();
        return;
    }
    const bool toggle = multiSelect_ == vbMultiSelectSimple || (shift & vbCtrlMask) != 0;
    if (multiSelect_ == vbMultiSelectExtended && (shift & vbShiftMask) != 0) {
        for (std::int32_t i = 0; i < items_.Count(); ++i)
            selected_[Place(i)] = i >= std::min(anchor_, index) && i <= std::max(anchor_, index);
    } else {
        const bool on = !toggle || !selected_[Place(index)];
        if (!toggle) std::fill(selected_.begin(), selected_.end(), false);
        selected_[Place(index)] = on;
        anchor_ = index;
    }
    listIndex_ = index;
    Notify(Change::Selection);
    Click.Raise();
}

bool ListBox::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    if (items_.Count() == 0) return false;
    std::int32_t to = 0;
    switch (keyCode) {
    case vbKeyUp: to = listIndex_ - 1; break;
    case vbKeyDown: to = listIndex_ + 1; break;
    case vbKeyHome: break;
    case vbKeyEnd: to = items_.Count() - 1; break;
    default: return false;
    }
    to = std::clamp(to, 0, items_.Count() - 1);
    if (to == listIndex_) return true;
    if (multiSelect_ == vbMultiSelectSimple)
        Choose(to);  // the arrows carry the frame only; the blank bar selects
    else
        UserSelectItem(to, shift);
    return true;
}

bool ListBox::DefaultKeyPress(std::int32_t key)
{
    if (multiSelect_ == vbMultiSelectSimple && key == vbKeySpace) {
        UserSelectItem(listIndex_);
        return listIndex_ >= 0;
    }
    const std::int32_t index = key >= vbKeySpace ? items_.FindByCharacter(key, listIndex_) : -1;
    if (index >= 0 && index != listIndex_) {
        if (multiSelect_ == vbMultiSelectSimple)
            Choose(index);
        else
            UserSelectItem(index);
    }
    return index >= 0;
}

}  // namespace kvx::ui
