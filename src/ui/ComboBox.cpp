#include "ui/ComboBox.h"

#include "basic/Text.h"
#include "ui/Desktop.h"
#include "ui/MemberRows.h"

#include <algorithm>

namespace kvx::ui {

ComboBox::ComboBox(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<ComboBox>& ComboBox::Members()
{
    using namespace rows;
    using T = ComboBox;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Text, &T::SetText>("Text"),
        ReadWrite<T, &T::Text, &T::SetText>(""),
        ReadOnly<T, &T::Style>("Style"),
        ReadWrite<T, &T::ListIndex, &T::SetListIndex>("ListIndex"),
        ReadOnly<T, &T::ListCount>("ListCount"),
        Indexed<T, &T::List, &T::SetList>("List"),
        Indexed<T, &T::ItemData, &T::SetItemData>("ItemData"),
        ReadOnly<T, &T::NewIndex>("NewIndex"),
        ReadOnly<T, &T::Sorted>("Sorted"),
        {.name = "AddItem",
         .call =
             [](T& box, std::span<Variant> args) {
                 box.AddItem(basic::CStr(Required(args, 0)), args.size() > 1 ? basic::CLng(args[1]) : -1);
                 return Variant{};
             }},
        {.name = "RemoveItem", .call = Call1<T, &T::RemoveItem>},
        Method<T, &T::Clear>("Clear"),
        ReadWrite<T, &T::SelStart, &T::SetSelStart>("SelStart"),
        ReadWrite<T, &T::SelLength, &T::SetSelLength>("SelLength"),
        ReadOnly<T, &T::SelText>("SelText"),
        ReadWrite<T, &T::Locked, &T::SetLocked>("Locked"),
    };
    static constexpr basic::MemberTable<T> kTable{"ComboBox", kRows};
    return kTable;
}

void ComboBox::Reset()
{
    Control::Reset();
    items_ = {};
    edit_ = {};
    undoText_.clear();
    style_ = vbComboDropDown;
    listIndex_ = -1;
    maxLength_ = 0;
    locked_ = false;
}

void ComboBox::SetStyle(std::int16_t style)
{
    if (style < vbComboDropDown || style > vbComboDropDownList) basic::Raise(basic::kErrInvalidProperty);
    style_ = style;
    Notify(ui::Change::Look);
}

void ComboBox::SetText(std::string_view text)
{
    if (style_ == vbComboDropDownList) {
        const std::int32_t index = items_.FindExact(text);
        if (index < 0) basic::Raise(basic::kErrReadOnlyProperty);
        SetListIndex(index);
        return;
    }
    const std::string before = edit_.Text();
    edit_.SetText(maxLength_ > 0 ? basic::Left(text, maxLength_) : std::string{text});
    undoText_ = edit_.Text();
    if (before != edit_.Text()) listIndex_ = -1;
    Finish(before);
}

void ComboBox::Finish(const std::string& before)
{
    const bool changed = before != edit_.Text();
    Notify(changed ? ui::Change::Text : ui::Change::Selection);
    if (changed) Change.Raise();
}

// The text follows the choice without a Change: handlers of a choice listen to Click.
void ComboBox::Choose(std::int32_t index)
{
    const bool changed = index != listIndex_;
    listIndex_ = index;
    edit_.SetText(items_.Text(index));
    undoText_ = edit_.Text();
    Notify(ui::Change::Selection);
    if (changed) Click.Raise();
}

void ComboBox::SetListIndex(std::int32_t index)
{
    if (index < -1 || index >= items_.Count()) basic::Raise(basic::kErrInvalidProperty);
    Choose(index);
}

void ComboBox::SetList(std::int32_t index, std::string_view text)
{
    items_.SetText(index, text);
    if (index == listIndex_) edit_.SetText(text);
    Notify(ui::Change::Items);
}

void ComboBox::AddItem(std::string_view text, std::int32_t index)
{
    const std::int32_t place = items_.Add(text, index);
    if (listIndex_ >= place) ++listIndex_;
    Notify(ui::Change::Items);
}

void ComboBox::RemoveItem(std::int32_t index)
{
    items_.Remove(index);
    if (index == listIndex_) {
        listIndex_ = -1;
        edit_.SetText("");
    } else if (index < listIndex_) {
        --listIndex_;
    }
    Notify(ui::Change::Items);
}

void ComboBox::Clear()
{
    items_.Clear();
    edit_.SetText("");
    listIndex_ = -1;
    Notify(ui::Change::Items);
}

void ComboBox::SetSelStart(std::int32_t start)
{
    if (start < 0) basic::Raise(basic::kErrInvalidProperty);
    edit_.Select(start, 0);
    Notify(ui::Change::Selection);
}

void ComboBox::SetSelLength(std::int32_t length)
{
    if (length < 0) basic::Raise(basic::kErrInvalidProperty);
    edit_.Select(edit_.SelStart(), length);
    Notify(ui::Change::Selection);
}

void ComboBox::SetLocked(bool locked)
{
    locked_ = locked;
    Notify(ui::Change::Look);
}

void ComboBox::UserPick(std::int32_t index)
{
    if (locked_ || index < 0 || index >= items_.Count()) return;
    Choose(index);
    UserPicked.Raise();
}

void ComboBox::UserEdit(std::string_view newText, std::int32_t selStart, std::int32_t selLength)
{
    if (locked_ || style_ == vbComboDropDownList) {
        Notify(ui::Change::Text);
        return;
    }
    const std::string before = edit_.Text();
    edit_.SetText(maxLength_ > 0 ? basic::Left(newText, maxLength_) : std::string{newText});
    edit_.Select(selStart, selLength);
    if (before != edit_.Text()) {
        undoText_ = before;
        listIndex_ = -1;
    }
    Finish(before);
}

void ComboBox::UserSelect(std::int32_t start, std::int32_t length)
{
    edit_.Select(start, length);
}

void ComboBox::UserCopy()
{
    const std::string text = style_ == vbComboDropDownList ? edit_.Text() : edit_.SelText();
    if (!text.empty()) CurrentDesktop().SetClipboardText(text);
}

void ComboBox::UserCut()
{
    UserCopy();
    TextEdit shortened = edit_;
    shortened.Insert("", 0);
    if (edit_.SelLength() > 0) UserEdit(shortened.Text(), shortened.SelStart());
}

void ComboBox::UserPaste()
{
    std::string text = CurrentDesktop().ClipboardText();
    text.erase(std::min(text.find_first_of("\r\n"), text.size()));
    TextEdit longer = edit_;
    longer.Insert(text, maxLength_);
    UserEdit(longer.Text(), longer.SelStart());
}

void ComboBox::UserUndo()
{
    UserEdit(std::string{undoText_}, 0, basic::Len(undoText_));
}

bool ComboBox::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    const bool listOnly = style_ == vbComboDropDownList;
    const auto pick = [&](std::int32_t index) {
        index = std::clamp(index, 0, items_.Count() - 1);
        if (index != listIndex_) UserPick(index);
        return true;
    };
    if (items_.Count() > 0 && keyCode == vbKeyUp) return pick(listIndex_ - 1);
    if (items_.Count() > 0 && keyCode == vbKeyDown) return pick(listIndex_ + 1);
    if (listOnly && items_.Count() > 0 && keyCode == vbKeyHome) return pick(0);
    if (listOnly && items_.Count() > 0 && keyCode == vbKeyEnd) return pick(items_.Count() - 1);
    if (listOnly) return false;
    TextEdit edited = edit_;
    if (!edited.KeyDown(keyCode, shift, locked_)) return false;
    if (edited.Text() == edit_.Text()) {
        edit_ = edited;
        Notify(ui::Change::Selection);
    } else {
        UserEdit(edited.Text(), edited.SelStart(), edited.SelLength());
    }
    return true;
}

bool ComboBox::DefaultKeyPress(std::int32_t key)
{
    if (style_ == vbComboDropDownList) {
        const std::int32_t index = key >= vbKeySpace ? items_.FindByCharacter(key, listIndex_) : -1;
        if (index >= 0 && index != listIndex_) UserPick(index);
        return index >= 0;
    }
    TextEdit edited = edit_;
    if (!edited.KeyPress(key, maxLength_, locked_, false)) return false;
    if (edited.Text() != edit_.Text()) UserEdit(edited.Text(), edited.SelStart(), edited.SelLength());
    return true;
}

}  // namespace kvx::ui
