#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kvx::ui {

/// A text with a caret and a mark, and what keys do to it: the heart of text boxes, combo boxes and label edits.
/// Positions count characters (code points).
class TextEdit {
public:
    const std::string& Text() const { return text_; }
    void SetText(std::string_view text);  ///< caret to the start, nothing marked

    std::int32_t SelStart() const { return start_; }
    std::int32_t SelLength() const { return length_; }
    std::string SelText() const;
    void Select(std::int32_t start, std::int32_t length);  ///< clipped to the text
    void SelectAll();

    /// Replaces what is marked (or inserts at the caret); the caret stands behind it.
    /// @param maxLength  of the whole text; what does not fit is cut off; 0 = no limit
    void Insert(std::string_view text, std::int32_t maxLength);

    /// Caret keys, Delete. @param readOnly  nothing is deleted
    /// @return false: not a key of an editor
    bool KeyDown(std::int16_t keyCode, std::int16_t shift, bool readOnly);
    /// Backspace and characters. @return false: not a character of an editor
    bool KeyPress(std::int32_t key, std::int32_t maxLength, bool readOnly, bool multiLine);

private:
    void DeleteMarked();
    std::string text_;
    std::int32_t start_ = 0, length_ = 0;
    bool caretAtStart_ = false;  ///< which end of the mark moves with Shift + arrow
};

}  // namespace kvx::ui
