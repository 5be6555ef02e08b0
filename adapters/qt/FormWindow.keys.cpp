#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Keys.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>

namespace kvx::adapters::qt {

void FormWindow::keyPressEvent(QKeyEvent* event)
{
    // No widget has the focus, or it had no use for the key. Esc and Enter were the form's before; nothing is left to
    // do.
    if (focusWidget() == nullptr || focusWidget() == this) KeyPressed(*event, nullptr);
    event->accept();
}

void FormWindow::keyReleaseEvent(QKeyEvent* event)
{
    if (focusWidget() == nullptr || focusWidget() == this) KeyReleased(*event);
    event->accept();
}

// What a key does: Ctrl alone counts when it comes up again, so that Ctrl+V is no Ctrl; Tab moves on; the clipboard's
// keys go straight into text fields; all others ask KeyDown, then KeyPress, then the control itself.
// @return true: the widget does not see the key
bool FormWindow::KeyPressed(QKeyEvent& event, ControlView* at)
{
    if (native_) return false;
    if (form_ == nullptr) return true;
    const int key = event.key();
    keysDown_.insert(key);
    if (key == Qt::Key_Control) {
        if (!event.isAutoRepeat()) ctrlAlone_ = (event.modifiers() & (Qt::ShiftModifier | Qt::AltModifier)) == 0;
        return true;
    }
    ctrlAlone_ = false;
    if (key == Qt::Key_Shift || key == Qt::Key_Alt || key == Qt::Key_Meta || key == Qt::Key_AltGr) return true;

    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    const bool ctrl = event.modifiers().testFlag(Qt::ControlModifier);
    if ((key == Qt::Key_Tab || key == Qt::Key_Backtab) && !ctrl && !alt) {
        const bool backwards = key == Qt::Key_Backtab || event.modifiers().testFlag(Qt::ShiftModifier);
        Act([&] { form_->UserTab(backwards); });
        return true;
    }
    if (alt && !ctrl && key > Qt::Key_Space && key < Qt::Key_Escape) {
        keysDown_.remove(key);
        Act([&] { form_->UserMnemonic(static_cast<char32_t>(key)); });
        return true;
    }
    if (at != nullptr && at->HandlesKey(event)) return true;

    const std::int16_t code = KeyCodeOf(event);
    const std::int16_t shift = ShiftMaskOf(event.modifiers());
    bool reacts = true;
    if (code != 0) Act([&] { reacts = form_->UserKeyDown(code, shift); });
    if (form_ == nullptr || !form_->Visible()) return true;
    if (const QKeySequence::StandardKey clipboard = ClipboardKeyOf(event);
        at != nullptr && at->EditsText() && clipboard != QKeySequence::UnknownKey) {
        if (!reacts || form_->ActiveControl() != at->Model()) return true;
        return at->HandlesClipboard(clipboard);
    }

    const std::vector<std::int32_t> characters = CharactersOf(event);
    if (characters.empty() || alt) {
        const ui::Control* active = form_->ActiveControl();
        if (!reacts || active == nullptr || (at != nullptr && at->Model() != active)) return true;
        if (at != nullptr && at->EditsText() && !at->LeavesToControl(event)) return false;
        bool used = false;
        Act([&] { used = form_->ActiveControl()->DefaultKeyDown(code, shift); });
        if (!used && at != nullptr && form_ != nullptr) at->ReactToKey(code, shift);
        return true;
    }
    bool handled = true;
    for (const std::int32_t character : characters) {
        handled = CharacterTyped(character, at, characters.size() == 1);
        if (form_ == nullptr || !form_->Visible()) return true;
    }
    return handled;
}

// @param soleCharacter  the key types nothing else: it may go into the widget as it is
// @return true: the widget does not see the key
bool FormWindow::CharacterTyped(std::int32_t character, ControlView* at, bool soleCharacter)
{
    std::int32_t result = 0;
    Act([&] { result = form_->UserKeyPress(character); });
    if (result == 0 || form_ == nullptr || !form_->Visible()) return true;
    ui::Control* active = form_->ActiveControl();
    ControlView* target = active == nullptr ? nullptr : viewOf_.value(active);
    if (target == nullptr) return true;
    if (!target->EditsText()) {
        Act([&] { active->DefaultKeyPress(result); });
        return true;
    }
    // KeyDown may have moved the focus: the character goes to where the focus is now.
    if (target == at && result == character && soleCharacter) return false;
    SendCharacter(*target, result);
    return true;
}

void FormWindow::SendCharacter(const ControlView& to, std::int32_t character)
{
    if (to.FocusWidget() == nullptr) return;
    const auto code = static_cast<char32_t>(character);
    const int key = character == '\b'   ? static_cast<int>(Qt::Key_Backspace)
                    : character == '\r' ? static_cast<int>(Qt::Key_Return)
                                        : 0;
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString::fromUcs4(&code, 1));
    native_ = true;
    QApplication::sendEvent(to.FocusWidget(), &event);
    native_ = false;
}

bool FormWindow::KeyReleased(QKeyEvent& event)
{
    if (native_) return false;
    if (form_ == nullptr || event.isAutoRepeat() || !keysDown_.remove(event.key())) return true;
    if (event.key() == Qt::Key_Control) {
        if (!std::exchange(ctrlAlone_, false)) return true;
        Act([&] { form_->UserKeyDown(ui::vbKeyControl, ui::vbCtrlMask); });
        if (form_ != nullptr && form_->Visible()) Act([&] { form_->UserKeyUp(ui::vbKeyControl, 0); });
        return true;
    }
    const std::int16_t code = KeyCodeOf(event);
    if (code == 0 || code == ui::vbKeyShift || code == ui::vbKeyMenu) return true;
    Act([&] { form_->UserKeyUp(code, ShiftMaskOf(event.modifiers())); });
    return true;
}

// Composed letters ("é" typed as accent and letter) do not come as keys; the filters see them all the same.
bool FormWindow::TextComposed(QInputMethodEvent& event, ControlView* at)
{
    if (event.commitString().isEmpty() || at == nullptr || !at->EditsText()) return false;
    std::u32string passed;
    for (const char32_t character : event.commitString().toStdU32String()) {
        std::int32_t result = 0;
        Act([&] { result = form_->UserKeyPress(static_cast<std::int32_t>(character)); });
        if (form_ == nullptr || !form_->Visible()) return true;
        if (result != 0) passed.push_back(static_cast<char32_t>(result));
    }
    event.setCommitString(QString::fromStdU32String(passed), event.replacementStart(), event.replacementLength());
    return false;
}

}  // namespace kvx::adapters::qt
