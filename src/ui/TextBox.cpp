#include "ui/TextBox.h"

#include "basic/Text.h"
#include "ui/Desktop.h"
#include "ui/MemberRows.h"

#include <algorithm>

namespace kvx::ui {

TextBox::TextBox(Form& form, std::string_view name) : ControlOf(form, name)
{
    Reset();
}

const basic::MemberTable<TextBox>& TextBox::Members()
{
    using namespace rows;
    using T = TextBox;
    static constexpr basic::Member<T> kRows[] = {
        ReadWrite<T, &T::Text, &T::SetText>("Text"),
        ReadWrite<T, &T::Text, &T::SetText>(""),
        ReadWrite<T, &T::SelStart, &T::SetSelStart>("SelStart"),
        ReadWrite<T, &T::SelLength, &T::SetSelLength>("SelLength"),
        ReadWrite<T, &T::SelText, &T::SetSelText>("SelText"),
        ReadWrite<T, &T::MaxLength, &T::SetMaxLength>("MaxLength"),
        ReadWrite<T, &T::Locked, &T::SetLocked>("Locked"),
        ReadWrite<T, &T::PasswordChar, &T::SetPasswordChar>("PasswordChar"),
        ReadOnly<T, &T::MultiLine>("MultiLine"),
        ReadOnly<T, &T::ScrollBars>("ScrollBars"),
        ReadWrite<T, &T::Alignment, &T::SetAlignment>("Alignment"),
    };
    static constexpr basic::MemberTable<T> kTable{"TextBox", kRows};
    return kTable;
}

void TextBox::Reset()
{
    Control::Reset();
    edit_ = {};
    undoText_.clear();
    passwordChar_.clear();
    maxLength_ = 0;
    locked_ = multiLine_ = false;
    scrollBars_ = alignment_ = 0;
}

void TextBox::SetText(std::string_view text)
{
    const std::string before = edit_.Text();
    edit_.SetText(maxLength_ > 0 ? basic::Left(text, maxLength_) : std::string{text});
    undoText_ = edit_.Text();
    Finish(before);
}

// Tells window and handlers of what has happened to the text.
bool TextBox::Finish(const std::string& before)
{
    const bool changed = before != edit_.Text();
    Notify(changed ? ui::Change::Text : ui::Change::Selection);
    if (changed) Change.Raise();
    return changed;
}

void TextBox::SetSelStart(std::int32_t start)
{
    if (start < 0) basic::Raise(basic::kErrInvalidProperty);
    edit_.Select(start, 0);
    Notify(ui::Change::Selection);
}

void TextBox::SetSelLength(std::int32_t length)
{
    if (length < 0) basic::Raise(basic::kErrInvalidProperty);
    edit_.Select(edit_.SelStart(), length);
    Notify(ui::Change::Selection);
}

void TextBox::SetSelText(std::string_view text)
{
    const std::string before = edit_.Text();
    edit_.Insert(text, maxLength_);
    Finish(before);
}

void TextBox::SetMaxLength(std::int32_t length)
{
    if (length < 0) basic::Raise(basic::kErrInvalidProperty);
    maxLength_ = length;
    Notify(ui::Change::Look);
}

void TextBox::SetLocked(bool locked)
{
    locked_ = locked;
    Notify(ui::Change::Look);
}

void TextBox::SetPasswordChar(std::string_view character)
{
    passwordChar_ = basic::Left(character, 1);
    Notify(ui::Change::Look);
}

void TextBox::SetMultiLine(bool multiLine)
{
    multiLine_ = multiLine;
    Notify(ui::Change::Look);
}

void TextBox::SetScrollBars(std::int16_t bars)
{
    scrollBars_ = bars;
    Notify(ui::Change::Look);
}

void TextBox::SetAlignment(std::int16_t alignment)
{
    if (alignment < 0 || alignment > 2) basic::Raise(basic::kErrInvalidProperty);
    alignment_ = alignment;
    Notify(ui::Change::Look);
}

void TextBox::UserEdit(std::string_view newText, std::int32_t selStart, std::int32_t selLength)
{
    const std::string before = edit_.Text();
    if (locked_) {
        Notify(ui::Change::Text);
        return;
    }
    std::string text{newText};
    if (const std::size_t lineEnd = text.find_first_of("\r\n"); !multiLine_ && lineEnd != std::string::npos) {
        // Pasted: of what came in before the cursor, one line stays.
        const std::string head = text.substr(0, lineEnd);
        const std::int32_t kept = basic::Len(head);
        text = head + basic::Mid(text, std::max(selStart, kept) + 1);
        std::erase_if(text, [](char c) { return c == '\r' || c == '\n'; });
        selStart = kept;
    }
    // A text assigned before the limit was lowered may be longer; only what comes in anew is cut.
    const std::int32_t limit = std::max(maxLength_, std::min(basic::Len(before), basic::Len(text)));
    edit_.SetText(maxLength_ > 0 ? basic::Left(text, limit) : text);
    edit_.Select(selStart, selLength);
    if (edit_.Text() != newText) Notify(ui::Change::Text);
    if (before != edit_.Text()) undoText_ = before;
    Finish(before);
}

void TextBox::UserSelect(std::int32_t start, std::int32_t length)
{
    edit_.Select(start, length);
}

void TextBox::UserCopy()
{
    // What is hidden on the screen must not be readable by pasting it elsewhere.
    if (edit_.SelLength() > 0 && passwordChar_.empty()) CurrentDesktop().SetClipboardText(edit_.SelText());
}

void TextBox::UserCut()
{
    if (edit_.SelLength() == 0 || !passwordChar_.empty()) return;
    UserCopy();
    if (locked_) return;
    undoText_ = edit_.Text();
    edit_.Insert("", maxLength_);
    Finish(undoText_);
}

void TextBox::UserPaste()
{
    if (locked_) return;
    std::string text = CurrentDesktop().ClipboardText();
    if (!multiLine_) text.erase(std::min(text.find_first_of("\r\n"), text.size()));
    const std::string before = edit_.Text();
    undoText_ = before;
    edit_.Insert(text, maxLength_);
    Finish(before);
}

void TextBox::UserUndo()
{
    if (locked_) return;
    const std::string before = edit_.Text();
    edit_.SetText(undoText_);
    edit_.SelectAll();
    undoText_ = before;
    Finish(before);
}

bool TextBox::DefaultKeyDown(std::int16_t keyCode, std::int16_t shift)
{
    const std::string before = edit_.Text();
    const bool used = edit_.KeyDown(keyCode, shift, locked_);
    if (used && before != edit_.Text()) undoText_ = before;
    if (used) Finish(before);
    return used;
}

bool TextBox::DefaultKeyPress(std::int32_t key)
{
    const std::string before = edit_.Text();
    const bool used = edit_.KeyPress(key, maxLength_, locked_, multiLine_);
    if (used && before != edit_.Text()) undoText_ = before;
    if (used) Finish(before);
    return used;
}

}  // namespace kvx::ui
