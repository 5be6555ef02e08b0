#include "adapters/qt/Keys.h"

#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "ui/Constants.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

#include <string>

namespace kvx::adapters::qt {
namespace {

struct KeyRow {
    std::string_view name;  // in SendKeys; empty = not sendable by name
    int key;
    std::int16_t code;
    char32_t character;
};

// clang-format off
constexpr KeyRow kKeys[] = {
    {"TAB",       Qt::Key_Tab,       ui::vbKeyTab,      '\t'},
    {"",          Qt::Key_Backtab,   ui::vbKeyTab,      0},
    {"ENTER",     Qt::Key_Return,    ui::vbKeyReturn,   '\r'},
    {"",          Qt::Key_Enter,     ui::vbKeyReturn,   '\r'},
    {"ESC",       Qt::Key_Escape,    ui::vbKeyEscape,   27},
    {"ESCAPE",    Qt::Key_Escape,    ui::vbKeyEscape,   27},
    {"BACKSPACE", Qt::Key_Backspace, ui::vbKeyBack,     '\b'},
    {"BS",        Qt::Key_Backspace, ui::vbKeyBack,     '\b'},
    {"BKSP",      Qt::Key_Backspace, ui::vbKeyBack,     '\b'},
    {"DELETE",    Qt::Key_Delete,    ui::vbKeyDelete,   0},
    {"DEL",       Qt::Key_Delete,    ui::vbKeyDelete,   0},
    {"INSERT",    Qt::Key_Insert,    ui::vbKeyInsert,   0},
    {"INS",       Qt::Key_Insert,    ui::vbKeyInsert,   0},
    {"HOME",      Qt::Key_Home,      ui::vbKeyHome,     0},
    {"END",       Qt::Key_End,       ui::vbKeyEnd,      0},
    {"PGUP",      Qt::Key_PageUp,    ui::vbKeyPageUp,   0},
    {"PGDN",      Qt::Key_PageDown,  ui::vbKeyPageDown, 0},
    {"LEFT",      Qt::Key_Left,      ui::vbKeyLeft,     0},
    {"UP",        Qt::Key_Up,        ui::vbKeyUp,       0},
    {"RIGHT",     Qt::Key_Right,     ui::vbKeyRight,    0},
    {"DOWN",      Qt::Key_Down,      ui::vbKeyDown,     0},
    {"",          Qt::Key_Shift,     ui::vbKeyShift,    0},
    {"",          Qt::Key_Control,   ui::vbKeyControl,  0},
    {"",          Qt::Key_Alt,       ui::vbKeyMenu,     0},
    {"",          Qt::Key_Space,     ui::vbKeySpace,    ' '},
};
// clang-format on

struct SignKey {
    int key;
    std::int16_t code, keypadCode;
};

// Where the classic keyboard has the signs.
constexpr SignKey kSigns[] = {
    {Qt::Key_Plus, 187, 107},  {Qt::Key_Minus, 189, 109}, {Qt::Key_Asterisk, 187, 106},
    {Qt::Key_Slash, 191, 111}, {Qt::Key_Comma, 188, 110}, {Qt::Key_Period, 190, 110},
};

[[noreturn]] void RaiseBadKeys()
{
    basic::Raise(basic::kErrInvalidCall);
}

KeyStroke CharacterStroke(char32_t character)
{
    KeyStroke stroke;
    stroke.character = character;
    const char32_t upper = basic::UpperCharacter(character);
    stroke.key = upper < 0x100 ? static_cast<int>(upper) : 0;
    if (character == '\n' || character == '\r') stroke = {Qt::Key_Return, {}, '\r'};
    if (character == '\t') stroke = {Qt::Key_Tab, {}, '\t'};
    return stroke;
}

// "TAB", "LEFT 3", "F2", "+": what stands between braces.
void AddNamed(std::vector<KeyStroke>& strokes, std::string_view name, Qt::KeyboardModifiers modifiers)
{
    std::size_t count = 1;
    if (const std::size_t blank = name.rfind(' '); blank != std::string_view::npos && blank > 0) {
        count = static_cast<std::size_t>(basic::Val(name.substr(blank + 1)));
        name = name.substr(0, blank);
    }
    KeyStroke stroke;
    const std::string upper = basic::UCase(name);
    for (const KeyRow& row : kKeys)
        if (!row.name.empty() && row.name == upper) stroke = {row.key, {}, row.character};
    if (stroke.key == 0 && upper.size() >= 2 && upper[0] == 'F' && basic::IsNumeric(upper.substr(1)))
        stroke.key = Qt::Key_F1 + static_cast<int>(basic::Val(upper.substr(1))) - 1;
    if (stroke.key == 0 && basic::Len(name) == 1) {
        std::string_view rest = name;
        stroke = CharacterStroke(basic::NextCharacter(rest));
    }
    if (stroke.key == 0 && stroke.character == 0) RaiseBadKeys();
    stroke.modifiers = modifiers;
    strokes.insert(strokes.end(), count, stroke);
}

// Who gets a key: the list that is open, else the dialog in front; a window manager may not have activated it yet.
QWidget* KeyTarget()
{
    for (QWidget* window :
         {QApplication::activePopupWidget(), QApplication::activeModalWidget(), QApplication::activeWindow()})
        if (window != nullptr) return window->focusWidget() != nullptr ? window->focusWidget() : window;
    return nullptr;
}

}  // namespace

std::int16_t KeyCodeOf(const QKeyEvent& event)
{
    const int key = event.key();
    for (const KeyRow& row : kKeys)
        if (row.key == key) return row.code;
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier) && key <= Qt::Key_9;
        return static_cast<std::int16_t>(keypad ? 96 + key - Qt::Key_0 : key);
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F16) return static_cast<std::int16_t>(ui::vbKeyF1 + key - Qt::Key_F1);
    const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
    for (const SignKey& sign : kSigns)
        if (sign.key == key) return keypad ? sign.keypadCode : sign.code;
    return 0;
}

std::int16_t ShiftMaskOf(Qt::KeyboardModifiers modifiers)
{
    int mask = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) mask |= ui::vbShiftMask;
    if (modifiers.testFlag(Qt::ControlModifier)) mask |= ui::vbCtrlMask;
    if (modifiers.testFlag(Qt::AltModifier)) mask |= ui::vbAltMask;
    return static_cast<std::int16_t>(mask);
}

std::vector<std::int32_t> CharactersOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (key == Qt::Key_Delete || key == Qt::Key_Tab || key == Qt::Key_Backtab) return {};
    if (event.modifiers().testFlag(Qt::ControlModifier) && !event.modifiers().testFlag(Qt::AltModifier) &&
        key >= Qt::Key_A && key <= Qt::Key_Z)
        return {key - Qt::Key_A + 1};
    std::vector<std::int32_t> characters;
    for (const char32_t character : event.text().toStdU32String())
        characters.push_back(static_cast<std::int32_t>(character == '\n' ? '\r' : character));
    return characters;
}

QKeySequence::StandardKey ClipboardKeyOf(const QKeyEvent& event)
{
    for (const QKeySequence::StandardKey key : {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste,
                                                QKeySequence::SelectAll, QKeySequence::Undo, QKeySequence::Redo})
        if (event.matches(key)) return key;
    return QKeySequence::UnknownKey;
}

KeyStroke StrokeOf(std::int16_t keyCode, std::int16_t shift, std::int32_t character)
{
    KeyStroke stroke;
    stroke.character = static_cast<char32_t>(character);
    if ((shift & ui::vbShiftMask) != 0) stroke.modifiers |= Qt::ShiftModifier;
    if ((shift & ui::vbCtrlMask) != 0) stroke.modifiers |= Qt::ControlModifier;
    if ((shift & ui::vbAltMask) != 0) stroke.modifiers |= Qt::AltModifier;
    const bool letter =
        (keyCode >= Qt::Key_A && keyCode <= Qt::Key_Z) || (keyCode >= Qt::Key_0 && keyCode <= Qt::Key_9);
    if (letter) stroke.key = keyCode;
    for (const KeyRow& row : kKeys)
        if (stroke.key == 0 && row.code == keyCode) stroke.key = row.key;
    for (const SignKey& sign : kSigns)
        if (stroke.key == 0 && sign.code == keyCode) stroke.key = sign.key;
    if (stroke.key == 0 && keyCode >= ui::vbKeyF1 && keyCode < ui::vbKeyF1 + 16)
        stroke.key = Qt::Key_F1 + keyCode - ui::vbKeyF1;
    return stroke;
}

std::vector<KeyStroke> ParseKeys(std::string_view keys)
{
    std::vector<KeyStroke> strokes;
    Qt::KeyboardModifiers next, group;  // for the next key, and for those in brackets
    while (!keys.empty()) {
        const char32_t character = basic::NextCharacter(keys);
        if (character == '+') {
            next |= Qt::ShiftModifier;
            continue;
        }
        if (character == '^') {
            next |= Qt::ControlModifier;
            continue;
        }
        if (character == '%') {
            next |= Qt::AltModifier;
            continue;
        }
        if (character == '(') {
            group = next;
            next = {};
            continue;
        }
        if (character == ')') {
            group = {};
            continue;
        }
        if (character == '{') {
            const std::size_t end = keys.find('}', 1);  // from 1: "{}}" is the brace itself
            if (end == std::string_view::npos) RaiseBadKeys();
            AddNamed(strokes, keys.substr(0, end), next | group);
            keys.remove_prefix(end + 1);
        } else {
            KeyStroke stroke = CharacterStroke(character == '~' ? U'\r' : character);
            stroke.modifiers = next | group;
            strokes.push_back(stroke);
        }
        next = {};
    }
    return strokes;
}

void PressKey(const KeyStroke& stroke)
{
    KeyStroke typed = stroke;
    if (typed.modifiers.testFlag(Qt::ShiftModifier)) {
        typed.character = basic::UpperCharacter(typed.character);
        if (typed.key == Qt::Key_Tab) typed.key = Qt::Key_Backtab;
    }
    QString text;
    if (typed.character != 0) text = QString::fromUcs4(&typed.character, 1);
    if (typed.modifiers & (Qt::ControlModifier | Qt::AltModifier)) text.clear();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* target = KeyTarget();  // again for the release: the press may have moved the focus
        if (target == nullptr) return;
        QKeyEvent event(type, typed.key, typed.modifiers, text);
        QApplication::sendEvent(target, &event);
    }
}

}  // namespace kvx::adapters::qt
