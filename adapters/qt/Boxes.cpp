#include "adapters/qt/Boxes.h"

#include "ui/Constants.h"

#include <QCloseEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <span>

namespace kvx::adapters::qt {
namespace {

constexpr const char* kAnswerProperty = "kvxAnswer";
constexpr int kInputLimit = 254;

struct Answer {
    std::int32_t value;
    const char* german;
    const char* english;
    QMessageBox::ButtonRole role;
};

// clang-format off
constexpr Answer kAnswers[] = {
    {ui::vbOK,     "OK",           "OK",      QMessageBox::AcceptRole},
    {ui::vbCancel, "Abbrechen",    "Cancel",  QMessageBox::RejectRole},
    {ui::vbAbort,  "&Abbrechen",   "&Abort",  QMessageBox::RejectRole},
    {ui::vbRetry,  "&Wiederholen", "&Retry",  QMessageBox::AcceptRole},
    {ui::vbIgnore, "&Ignorieren",  "&Ignore", QMessageBox::AcceptRole},
    {ui::vbYes,    "&Ja",          "&Yes",    QMessageBox::YesRole},
    {ui::vbNo,     "&Nein",        "&No",     QMessageBox::NoRole},
};
constexpr std::array<std::int32_t, 3> kButtons[] = {
    {ui::vbOK,    0,            0},
    {ui::vbOK,    ui::vbCancel, 0},
    {ui::vbAbort, ui::vbRetry,  ui::vbIgnore},
    {ui::vbYes,   ui::vbNo,     ui::vbCancel},
    {ui::vbYes,   ui::vbNo,     0},
    {ui::vbRetry, ui::vbCancel, 0},
};
// clang-format on

const Answer& RowOf(std::int32_t answer)
{
    return *std::ranges::find(kAnswers, answer, &Answer::value);
}

QString CaptionOf(std::int32_t answer, ButtonLanguage language)
{
    const Answer& row = RowOf(answer);
    return QString::fromUtf8(language == ButtonLanguage::German ? row.german : row.english);
}

QMessageBox::Icon IconOf(std::int32_t flags)
{
    switch (flags & 0x70) {
    case ui::vbCritical: return QMessageBox::Critical;
    case ui::vbQuestion: return QMessageBox::Question;
    case ui::vbExclamation: return QMessageBox::Warning;
    case ui::vbInformation: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

// A box that asks Yes or No has no way round the question.
class ClassicMessageBox final : public QMessageBox {
public:
    using QMessageBox::QMessageBox;
    bool canEscape = false;

protected:
    void keyPressEvent(QKeyEvent* event) override
    {
        if (event->key() == Qt::Key_Escape && !canEscape) return;
        QMessageBox::keyPressEvent(event);
    }
    void closeEvent(QCloseEvent* event) override
    {
        if (canEscape)
            QMessageBox::closeEvent(event);
        else
            event->ignore();
    }
};

}  // namespace

std::int32_t ShowMessageBox(QWidget* parent, ButtonLanguage language, const QString& prompt, std::int32_t flags,
                            const QString& title)
{
    ClassicMessageBox box(parent);
    box.setWindowTitle(title);
    box.setTextFormat(Qt::PlainText);
    box.setText(prompt);
    box.setIcon(IconOf(flags));

    const auto kind = static_cast<std::size_t>(flags & 0xF);
    const std::array<std::int32_t, 3>& answers = kButtons[kind < std::size(kButtons) ? kind : 0];
    const auto defaultIndex = static_cast<std::size_t>((flags >> 8) & 0x3);
    std::int32_t escape = 0;
    for (std::size_t i = 0; i < answers.size() && answers[i] != 0; ++i) {
        QPushButton* button = box.addButton(CaptionOf(answers[i], language), RowOf(answers[i]).role);
        button->setProperty(kAnswerProperty, answers[i]);
        if (i == 0 || i == defaultIndex) box.setDefaultButton(button);
        if (answers[i] == ui::vbCancel || answers[1] == 0) {
            escape = answers[i];
            box.setEscapeButton(button);
            box.canEscape = true;
        }
    }
    box.setWindowFlag(Qt::WindowCloseButtonHint, box.canEscape);
    box.exec();
    if (box.clickedButton() == nullptr) return escape;
    return box.clickedButton()->property(kAnswerProperty).toInt();
}

QString ShowInputBox(QWidget* parent, ButtonLanguage language, const QString& prompt, const QString& title,
                     const QString& text)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("InputBox"));
    dialog.setWindowTitle(title);
    auto* label = new QLabel(prompt);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    auto* edit = new QLineEdit(text);
    edit->setMaxLength(kInputLimit);
    edit->setMinimumWidth(label->fontMetrics().averageCharWidth() * 50);
    edit->selectAll();
    label->setBuddy(edit);
    auto* buttons = new QDialogButtonBox;
    QPushButton* ok = buttons->addButton(CaptionOf(ui::vbOK, language), QDialogButtonBox::AcceptRole);
    buttons->addButton(CaptionOf(ui::vbCancel, language), QDialogButtonBox::RejectRole);
    ok->setDefault(true);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(edit);
    layout->addSpacing(label->fontMetrics().height() / 2);
    layout->addWidget(buttons);
    edit->setFocus();
    return dialog.exec() == QDialog::Accepted ? edit->text() : QString();
}

QPushButton* MessageBoxButton(const QWidget& messageBox, std::int32_t answer)
{
    for (QPushButton* button : messageBox.findChildren<QPushButton*>())
        if (button->property(kAnswerProperty).toInt() == answer) return button;
    return nullptr;
}

}  // namespace kvx::adapters::qt
