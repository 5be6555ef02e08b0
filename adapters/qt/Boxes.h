#pragma once

#include <QString>

#include <cstdint>

class QPushButton;
class QWidget;

namespace kvx::adapters::qt {

/// Language of the buttons that the desktop itself brings.
enum class ButtonLanguage : std::uint8_t { German, English };

/// The classic message box: plain text, buttons, icon and default button by flags. Esc and the close box answer Cancel
/// where there is such a button and OK where there is only that; else they do nothing.
/// @return vbOK .. vbNo
std::int32_t ShowMessageBox(QWidget* parent, ButtonLanguage language, const QString& prompt, std::int32_t flags,
                            const QString& title);

/// One line of text, 254 characters at most. @return the text on OK; empty on Cancel
QString ShowInputBox(QWidget* parent, ButtonLanguage language, const QString& prompt, const QString& title,
                     const QString& text);

/// The button that answers so, of a message box made here; used by scripted users. nullptr: it has none
QPushButton* MessageBoxButton(const QWidget& messageBox, std::int32_t answer);

}  // namespace kvx::adapters::qt
