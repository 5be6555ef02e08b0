#include "host/Stage.h"

#include "adapters/qt/Boxes.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Keys.h"
#include "adapters/qt/QtDesktop.h"
#include "adapters/qt/Strings.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "ui/ComboBox.h"
#include "ui/ListBox.h"
#include "ui/SSTab.h"
#include "ui/TreeView.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QThread>
#include <QTimer>

namespace kvx::host {

using adapters::qt::FormWindow;
using adapters::qt::FromQt;
using adapters::qt::ToQt;

namespace {
constexpr int kLookMilliseconds = 15;
constexpr int kPatienceLooks = 20'000 / kLookMilliseconds;  // a window that does not come will not come

std::string Describe(const QWidget& window)
{
    return FromQt(window.objectName()) + " \"" + FromQt(window.windowTitle()) + "\" " + std::to_string(window.width()) +
           " x " + std::to_string(window.height());
}
}  // namespace

// --- the user's hands

ui::Control* Dialog::Find(std::string_view control)
{
    ui::Control* found = form_.FindControl(control);
    if (found == nullptr) stage_.Fail(form_.Name() + " has no control " + std::string(control));
    return found;
}

void Dialog::Act(const std::function<void()>& action)
{
    FormWindow* window = stage_.Desktop().WindowOf(form_);
    if (window != nullptr)
        window->Act(action);
    else
        stage_.Fail(form_.Name() + " is not shown any more");
    stage_.Settle();
}

void Dialog::Click(std::string_view control)
{
    ui::Control* target = Find(control);
    if (target == nullptr) return;
    if (!target->IsReachable()) {
        stage_.Fail(form_.Name() + "." + std::string(control) + " cannot be clicked");
        return;
    }
    stage_.Note("  click " + std::string(control));
    Act([&] { form_.UserClickOn(*target); });
}

void Dialog::Focus(std::string_view control)
{
    ui::Control* target = Find(control);
    if (target == nullptr) return;
    Act([&] { form_.UserFocus(*target); });
    if (!target->HasFocus()) stage_.Fail(form_.Name() + "." + std::string(control) + " does not take the focus");
}

void Dialog::Type(std::string_view control, std::string_view keys)
{
    Focus(control);
    stage_.Note("  type into " + std::string(control) + ": " + std::string(keys));
    Keys("^a");
    Keys(keys);
}

void Dialog::Keys(std::string_view keys)
{
    for (const adapters::qt::KeyStroke& stroke : adapters::qt::ParseKeys(keys)) {
        adapters::qt::PressKey(stroke);
        stage_.Settle();
    }
}

void Dialog::Wait(int milliseconds)
{
    QElapsedTimer passed;
    passed.start();
    while (!passed.hasExpired(milliseconds)) {
        QThread::msleep(10);
        stage_.Settle();
    }
}

void Dialog::SelectNode(std::string_view tree, std::initializer_list<std::string_view> path)
{
    auto* view = dynamic_cast<ui::TreeView*>(Find(tree));
    if (view == nullptr) return;
    ui::Node node = view->FirstTop();
    std::string way;
    for (const std::string_view part : path) {
        way.append(way.empty() ? "" : "/ ").append(part);
        if (node) node = view->FindChild(node, part);
    }
    if (!node) {
        stage_.Fail(form_.Name() + "." + std::string(tree) + " has no node " + way);
        return;
    }
    stage_.Note("  select " + way);
    Act([&] {
        form_.UserFocus(*view);
        for (ui::Node above = node.Parent(); above; above = above.Parent())
            if (!above.Expanded()) view->UserExpand(above, true);
        node.EnsureVisible();
        view->UserClickNode(node);
    });
}

void Dialog::SelectRow(std::string_view list, std::int32_t row)
{
    ui::Control* control = Find(list);
    if (control == nullptr) return;
    stage_.Note("  select row " + std::to_string(row) + " of " + std::string(list));
    if (auto* box = dynamic_cast<ui::ListBox*>(control)) {
        Act([&] {
            form_.UserFocus(*box);
            box->UserSelectItem(row);
        });
    } else {
        // Lists of columns and tables: down from the row they stand on.
        Focus(list);
        if (row > 0) Keys("{DOWN " + std::to_string(row) + "}");
    }
}

void Dialog::Pick(std::string_view combo, std::int32_t row)
{
    auto* box = dynamic_cast<ui::ComboBox*>(Find(combo));
    if (box == nullptr) return;
    stage_.Note("  pick row " + std::to_string(row) + " of " + std::string(combo));
    Act([&] {
        form_.UserFocus(*box);
        box->UserPick(row);
    });
}

void Dialog::SelectTab(std::string_view tabs, std::int16_t tab)
{
    auto* strip = dynamic_cast<ui::SSTab*>(Find(tabs));
    if (strip == nullptr) return;
    stage_.Note("  select tab " + std::to_string(tab) + " of " + std::string(tabs));
    Act([&] {
        form_.UserFocus(*strip);
        strip->UserSelectTab(tab);
    });
}

std::string Dialog::Text(std::string_view control)
{
    ui::Control* target = Find(control);
    return target == nullptr ? std::string() : basic::ToText(target->GetMember("Text", {}));
}

void Dialog::Picture(std::string_view mode)
{
    stage_.Picture(form_, mode);
}

// --- the stage

Stage::Stage(adapters::qt::QtDesktop& desktop, std::filesystem::path folder)
    : desktop_(desktop), folder_(std::move(folder)), transcript_(folder_ / "transcript.txt", std::ios::binary)
{
}

void Stage::Expect(std::string_view form, std::function<void(Dialog&)> act)
{
    const std::string name(form);
    const auto formOf = [](QWidget& window) -> ui::Form* {
        const auto* shown = dynamic_cast<FormWindow*>(&window);
        return shown == nullptr ? nullptr : shown->Form();
    };
    expected_.push_back({name,
                         [name, formOf](QWidget& window) {
                             const ui::Form* shown = formOf(window);
                             return shown != nullptr && shown->Visible() && shown->Name() == name;
                         },
                         [this, formOf, act = std::move(act)](QWidget& window) {
                             Dialog dialog(*this, *formOf(window));
                             act(dialog);
                         }});
}

void Stage::ExpectMessage(std::int32_t answer, std::string_view picture)
{
    expected_.push_back({"a message", [](QWidget& window) { return dynamic_cast<QMessageBox*>(&window) != nullptr; },
                         [this, answer, name = std::string(picture)](QWidget& window) {
                             Note("  message: " + FromQt(dynamic_cast<QMessageBox&>(window).text()));
                             if (!name.empty()) Picture(window, name);
                             if (QPushButton* button = adapters::qt::MessageBoxButton(window, answer))
                                 button->click();
                             else
                                 Fail("the message has no such button");
                         }});
}

void Stage::ExpectWindow(std::string_view name, std::function<void(QWidget&)> act)
{
    expected_.push_back({std::string(name),
                         [name = ToQt(name)](QWidget& window) { return window.objectName() == name; }, std::move(act)});
}

// A new timer for every look: one whose handler is still running, because it has opened a window, does not fire.
void Stage::Watch()
{
    QTimer::singleShot(kLookMilliseconds, &context_, [this] {
        if (!watching_) return;
        Watch();
        Look();
    });
}

// Runs in whatever message loop is the innermost: that of a dialog, of a dialog above it, of a message box.
void Stage::Look()
{
    QWidget* window = QApplication::activeModalWidget();
    // A handler that lets the message loop turn (a progress bar does) has not opened its window for the user yet.
    const int level = QThread::currentThread()->loopLevel();
    if (window == nullptr || level <= (levels_.empty() ? 0 : levels_.back())) return;
    if (!acting_.empty() && acting_.back() == window) return;
    if (const auto* shown = dynamic_cast<FormWindow*>(window);
        shown != nullptr && (shown->Form() == nullptr || !shown->Form()->Visible()))
        return;

    if (expected_.empty() || !expected_.front().matches(*window)) {
        if (++idleLooks_ < 20) return;  // it may be on its way out
        Fail("unexpected window " + Describe(*window));
        CloseAll();
        return;
    }
    idleLooks_ = 0;
    const Expectation now = std::move(expected_.front());
    expected_.pop_front();
    Note("  opened " + Describe(*window));
    acting_.push_back(window);
    levels_.push_back(level);
    Settle();
    now.act(*window);
    levels_.pop_back();
    acting_.pop_back();
}

void Stage::Play(std::string_view scene, const std::function<void()>& opens)
{
    scene_ = scene;
    Note(std::string("\n") + std::string(scene));
    idleLooks_ = 0;
    // The user who never comes back: whatever is open then is closed, so that the tour ends in any case.
    QTimer patience;
    patience.setInterval(kLookMilliseconds * kPatienceLooks);
    QObject::connect(&patience, &QTimer::timeout, &patience, [this] {
        Fail(expected_.empty() ? std::string("a window was left open") : expected_.front().what + " did not open");
        CloseAll();
    });
    patience.start();
    watching_ = true;
    Watch();
    try {
        opens();
    } catch (const basic::Error& error) {
        Fail("error " + std::to_string(error.Number) + ": " + error.Description);
    }
    watching_ = false;
    Settle();
    for (const Expectation& missing : expected_)
        Fail(missing.what + " did not open");
    expected_.clear();
    if (QWidget* left = QApplication::activeModalWidget()) Fail("left open: " + Describe(*left));
    CloseAll();
}

void Stage::CloseAll()
{
    expected_.clear();
    const std::vector<ui::Form*> open = desktop_.ModalForms();
    if (QWidget* box = QApplication::activeModalWidget(); box != nullptr && dynamic_cast<FormWindow*>(box) == nullptr)
        dynamic_cast<QDialog*>(box) != nullptr ? dynamic_cast<QDialog*>(box)->done(0) : static_cast<void>(box->close());
    for (auto form = open.rbegin(); form != open.rend(); ++form)
        if ((*form)->IsLoaded()) (*form)->Unload();
}

void Stage::Settle()
{
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }
}

void Stage::Picture(QWidget& window, std::string_view name)
{
    Settle();
    Save(window.grab().toImage(), std::string(name));
}

void Stage::Picture(const ui::Form& form, std::string_view mode)
{
    Settle();
    Save(desktop_.Grab(form), form.Name() + "-" + std::string(mode));
}

void Stage::Save(const QImage& picture, const std::string& name)
{
    const std::filesystem::path file = folder_ / (name + ".png");
    if (picture.isNull() || !picture.save(ToQt(file.string()))) {
        Fail("the picture " + file.string() + " cannot be saved");
        return;
    }
    pictures_.push_back(name);
    Note("  picture " + name + ".png");
}

void Stage::Note(std::string_view line)
{
    transcript_ << line << std::endl;
}

void Stage::Fail(std::string_view what)
{
    failures_.push_back(scene_ + ": " + std::string(what));
    Note("  FAILED: " + std::string(what));
}

}  // namespace kvx::host
