#pragma once

#include <QKeyCombination>
#include <QKeySequence>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

class QKeyEvent;

namespace kvx::adapters::qt {

/// Key code of KeyDown and KeyUp, as the classic platform numbers keys; 0 = a key that it has no number for.
std::int16_t KeyCodeOf(const QKeyEvent& event);
std::int16_t ShiftMaskOf(Qt::KeyboardModifiers modifiers);

/// Characters that a key types, as KeyPress sees them: 8, 13, 27, Ctrl + letter as 1 to 26, else code points.
/// Empty for keys without one (arrows, Delete, function keys, Ctrl alone).
std::vector<std::int32_t> CharactersOf(const QKeyEvent& event);

/// Which of copy, cut, paste, select all, undo and redo a key is, or UnknownKey. In text boxes no KeyPress filter sees
/// them, so that a number can be pasted into a box that lets digits only through.
QKeySequence::StandardKey ClipboardKeyOf(const QKeyEvent& event);

/// One key stroke: a key with modifiers and the text it types.
struct KeyStroke {
    int key = 0;
    Qt::KeyboardModifiers modifiers;
    char32_t character = 0;  ///< 0 = none
};

/// The stroke that gives these numbers to KeyDown and KeyPress. @param character 0 = a key without one
KeyStroke StrokeOf(std::int16_t keyCode, std::int16_t shift, std::int32_t character);

/// Reads "{TAB}", "{LEFT 3}", "+{END}", "^c", "+(ab)", "~", "{+}" and plain characters.
/// @throws basic::Error 5: an unknown name in braces, or a bracket that is not closed
std::vector<KeyStroke> ParseKeys(std::string_view keys);

/// Presses and releases a key at the widget that has the focus then.
void PressKey(const KeyStroke& stroke);

}  // namespace kvx::adapters::qt
