#include "qt/ScriptedDesktop.h"

#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Keys.h"
#include "adapters/qt/Strings.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>

#include <exception>

namespace kvx::test {

using namespace adapters::qt;

ScriptedDesktop::ScriptedDesktop()
{
    windows_.ShareForms(*this);
}

ScriptedDesktop::~ScriptedDesktop() = default;

void ScriptedDesktop::Settle()
{
    // Twice: closing a window posts its end.
    windows_.DoEvents();
    windows_.DoEvents();
    HeadlessDesktop::Settle();
}

void ScriptedDesktop::Stroke(std::int16_t keyCode, std::int16_t shift, std::int32_t character)
{
    PressKey(StrokeOf(keyCode, shift, character));
}

// --- forms

void ScriptedDesktop::FormShown(ui::Form& form)
{
    HeadlessDesktop::FormShown(form);
    windows_.FormShown(form);
}

void ScriptedDesktop::RunModal(ui::Form& form)
{
    // The script runs from the dialog's own event loop, as the user's actions do. What it throws goes round Qt.
    std::exception_ptr thrown;
    QMetaObject::invokeMethod(
        &context_,
        [this, &form, &thrown] {
            try {
                HeadlessDesktop::RunModal(form);
            } catch (...) {
                thrown = std::current_exception();
                form.Hide();
            }
        },
        Qt::QueuedConnection);
    windows_.RunModal(form);
    if (thrown != nullptr) std::rethrow_exception(thrown);
}

void ScriptedDesktop::FormUnloaded(ui::Form& form)
{
    windows_.FormUnloaded(form);
}

// --- boxes: the list of answers says which button, the real box is pressed

std::int32_t ScriptedDesktop::MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title)
{
    const std::int32_t answer = HeadlessDesktop::MessageBox(prompt, flags, title);
    QMetaObject::invokeMethod(
        &context_,
        [this, answer] {
            QWidget* box = QApplication::activeModalWidget();
            QPushButton* button = box == nullptr ? nullptr : MessageBoxButton(*box, answer);
            if (button != nullptr)
                button->click();
            else
                Fail("The message box on the screen has no button " + std::to_string(answer));
        },
        Qt::QueuedConnection);
    return windows_.MessageBox(prompt, flags, title);
}

std::string ScriptedDesktop::InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText)
{
    const std::string text = HeadlessDesktop::InputBox(prompt, title, defaultText);
    const bool ok = Boxes().back().button == ui::vbOK;
    QMetaObject::invokeMethod(
        &context_,
        [text, ok] {
            QWidget* box = QApplication::activeModalWidget();
            if (box == nullptr) return;
            box->findChild<QLineEdit*>()->setText(ToQt(text));
            const auto* buttons = box->findChild<QDialogButtonBox*>();
            for (QAbstractButton* button : buttons->buttons())
                if ((buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) == ok) {
                    button->click();
                    return;
                }
        },
        Qt::QueuedConnection);
    return windows_.InputBox(prompt, title, defaultText);
}

// --- message loop

void ScriptedDesktop::Post(std::function<void()> work)
{
    windows_.Post(std::move(work));
}

void ScriptedDesktop::SendKeys(std::string_view keys)
{
    windows_.SendKeys(keys);
}

void ScriptedDesktop::SetMousePointer(std::int16_t pointer)
{
    HeadlessDesktop::SetMousePointer(pointer);
    windows_.SetMousePointer(pointer);
}

}  // namespace kvx::test
