#include "host/drive/ShownDriver.h"

#include "adapters/qt/Boxes.h"
#include "adapters/qt/Strings.h"
#include "ui/Form.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QSocketNotifier>
#include <QTimer>

#include <exception>
#include <utility>

namespace kvx::host::drive {

using adapters::qt::ToQt;

// --- lines

LinesBesideWindows::LinesBesideWindows(int descriptor)
    : DescriptorLines(descriptor), notifier_(std::make_unique<QSocketNotifier>(descriptor, QSocketNotifier::Read))
{
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        readable_ = true;
        notifier_->setEnabled(false);
    });
}

LinesBesideWindows::~LinesBesideWindows() = default;

std::optional<std::string> LinesBesideWindows::Next(const std::function<bool()>& over)
{
    constexpr int kTickMilliseconds = 50;
    QTimer wake;  // timers of the dialogs run by our clock
    wake.start(kTickMilliseconds);
    for (;;) {
        if (over()) return std::nullopt;
        if (std::optional<std::string> line = TakeLine()) return line;
        if (HasEnded()) return std::nullopt;
        if (std::exchange(readable_, false)) {
            const bool more = Read();
            notifier_->setEnabled(more);
            if (!more) return TakeLine();
            continue;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (idle) idle();
    }
}

// --- the desktop

ShownDriver::ShownDriver(Session session, std::function<Session(const std::string&)> reopen, LinesBesideWindows& input,
                         AnswerSink sink)
    : Driver(std::move(session), std::move(reopen), input, std::move(sink)), lines_(input)
{
    windows_.ShareForms(*this);
    windows_.SetLanguage(CurrentSession().kvxvar.strLanguage);
    clock_.start();
    lines_.idle = [this] {
        const std::int64_t passed = clock_.restart();
        if (passed > 0) Advance(passed);
        Settle();
    };
}

ShownDriver::~ShownDriver()
{
    lines_.idle = nullptr;
}

void ShownDriver::Settle()
{
    // Twice: closing a window posts its end.
    windows_.DoEvents();
    windows_.DoEvents();
    HeadlessDesktop::Settle();
}

void ShownDriver::Inside(std::function<void()> work)
{
    QMetaObject::invokeMethod(&context_, std::move(work), Qt::QueuedConnection);
}

void ShownDriver::FormShown(ui::Form& form)
{
    windows_.FormShown(form);
}

void ShownDriver::RunModal(ui::Form& form)
{
    // Messages are read inside the window's own loop, as a user's actions are. What is thrown goes round Qt.
    std::exception_ptr thrown;
    Inside([this, &form, &thrown] {
        try {
            Converse(form);
        } catch (...) {
            thrown = std::current_exception();
            form.Hide();
        }
    });
    windows_.RunModal(form);
    if (thrown != nullptr) std::rethrow_exception(thrown);
}

void ShownDriver::FormUnloaded(ui::Form& form)
{
    Driver::FormUnloaded(form);
    windows_.FormUnloaded(form);
}

std::int32_t ShownDriver::MessageBox(std::string_view prompt, std::int32_t flags, std::string_view title)
{
    Question question = Question::OfMessage(prompt, flags, title);
    Inside([this, &question] {
        const QPointer<QWidget> box = QApplication::activeModalWidget();
        Converse(question, [box] { return box.isNull() || !box->isVisible(); });
        if (!question.answered || box.isNull()) return;  // a person has pressed a button
        if (QPushButton* button = adapters::qt::MessageBoxButton(*box, question.button); button != nullptr)
            button->click();
    });
    return windows_.MessageBox(prompt, flags, title);
}

std::string ShownDriver::InputBox(std::string_view prompt, std::string_view title, std::string_view defaultText)
{
    Question question = Question::OfInput(prompt, title, defaultText);
    Inside([this, &question] {
        const QPointer<QWidget> box = QApplication::activeModalWidget();
        Converse(question, [box] { return box.isNull() || !box->isVisible(); });
        if (!question.answered || box.isNull()) return;
        const bool ok = question.button == ui::vbOK;
        if (ok) box->findChild<QLineEdit*>()->setText(ToQt(question.value.get<std::string>()));
        const auto* buttons = box->findChild<QDialogButtonBox*>();
        for (QAbstractButton* button : buttons->buttons())
            if ((buttons->buttonRole(button) == QDialogButtonBox::AcceptRole) == ok) {
                button->click();
                return;
            }
    });
    return windows_.InputBox(prompt, title, defaultText);
}

void ShownDriver::SetMousePointer(std::int16_t pointer)
{
    Driver::SetMousePointer(pointer);
    windows_.SetMousePointer(pointer);
}

}  // namespace kvx::host::drive
