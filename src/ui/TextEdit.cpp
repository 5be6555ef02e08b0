#include "ui/TextEdit.h"

#include "basic/Text.h"
#include "ui/Constants.h"

#include <algorithm>

namespace kvx::ui {
namespace {

// Byte position of a character.
std::size_t ByteAt(std::string_view text, std::int32_t character)
{
    std::string_view rest = text;
    for (; character > 0 && !rest.empty(); --character)
        basic::NextCharacter(rest);
    return text.size() - rest.size();
}

}  // namespace

void TextEdit::SetText(std::string_view text)
{
    text_ = text;
    start_ = length_ = 0;
    caretAtStart_ = false;
}

std::string TextEdit::SelText() const
{
    const std::size_t from = ByteAt(text_, start_), to = ByteAt(text_, start_ + length_);
    return text_.substr(from, to - from);
}

void TextEdit::Select(std::int32_t start, std::int32_t length)
{
    const std::int32_t size = basic::Len(text_);
    start_ = std::clamp(start, 0, size);
    length_ = std::clamp(length, 0, size - start_);
    caretAtStart_ = false;
}

void TextEdit::SelectAll()
{
    Select(0, basic::Len(text_));
}

void TextEdit::DeleteMarked()
{
    const std::size_t from = ByteAt(text_, start_), to = ByteAt(text_, start_ + length_);
    text_.erase(from, to - from);
    length_ = 0;
}

void TextEdit::Insert(std::string_view text, std::int32_t maxLength)
{
    DeleteMarked();
    std::string fitting{text};
    if (maxLength > 0) fitting = basic::Left(text, std::max(0, maxLength - basic::Len(text_)));
    text_.insert(ByteAt(text_, start_), fitting);
    start_ += basic::Len(fitting);
}

bool TextEdit::KeyDown(std::int16_t keyCode, std::int16_t shift, bool readOnly)
{
    const std::int32_t size = basic::Len(text_), end = start_ + length_;
    const bool marking = (shift & vbShiftMask) != 0;
    const auto moveCaret = [&](std::int32_t to) {
        const std::int32_t fixed = caretAtStart_ ? end : start_;
        to = std::clamp(to, 0, size);
        if (!marking) {
            Select(to, 0);
            return;
        }
        start_ = std::min(fixed, to);
        length_ = std::max(fixed, to) - start_;
        caretAtStart_ = to < fixed;
    };
    const std::int32_t caret = caretAtStart_ ? start_ : end;
    switch (keyCode) {
    case vbKeyLeft: moveCaret(!marking && length_ > 0 ? start_ : caret - 1); return true;
    case vbKeyRight: moveCaret(!marking && length_ > 0 ? end : caret + 1); return true;
    case vbKeyHome: moveCaret(0); return true;
    case vbKeyEnd: moveCaret(size); return true;
    case vbKeyDelete:
        if (readOnly) return true;
        if (length_ == 0 && start_ < size) length_ = 1;
        DeleteMarked();
        return true;
    default: return false;
    }
}

bool TextEdit::KeyPress(std::int32_t key, std::int32_t maxLength, bool readOnly, bool multiLine)
{
    if (key == vbKeyBack) {
        if (readOnly) return true;
        if (length_ == 0 && start_ > 0) {
            --start_;
            length_ = 1;
        }
        DeleteMarked();
        return true;
    }
    if (key == vbKeyReturn) {
        if (multiLine && !readOnly) Insert("\r\n", maxLength);
        return multiLine;
    }
    if (key < vbKeySpace) return false;
    if (!readOnly) {
        std::string character;
        basic::AppendCharacter(character, static_cast<char32_t>(key));
        Insert(character, maxLength);
    }
    return true;
}

}  // namespace kvx::ui
