#pragma once

#include "ui/Form.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <deque>
#include <filesystem>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class QWidget;

namespace kvx::adapters::qt {
class QtDesktop;
}

namespace kvx::host {

class Stage;

/// A dialog that is open, and the hands of its user: everything goes by control name, through real windows and keys.
/// What cannot be done (no such control, it cannot be reached) is a failure of the tour, and the tour goes on.
class Dialog {
public:
    Dialog(Stage& stage, ui::Form& form) : stage_(stage), form_(form) {}

    void Click(std::string_view control);
    /// Puts the focus there, marks all that stands there and types over it.
    void Type(std::string_view control, std::string_view keys);
    void Focus(std::string_view control);
    /// Keys as SendKeys takes them, to whatever has the focus.
    void Keys(std::string_view keys);
    /// Clicks on the node under these texts below the root; the way to it is opened.
    void SelectNode(std::string_view tree, std::initializer_list<std::string_view> path);
    void SelectRow(std::string_view list, std::int32_t row);
    void Pick(std::string_view combo, std::int32_t row);
    void SelectTab(std::string_view tabs, std::int16_t tab);
    std::string Text(std::string_view control);
    /// Lets time pass, as a user does who looks at what came.
    void Wait(int milliseconds);
    /// Saves the picture "form-mode.png".
    void Picture(std::string_view mode);

private:
    ui::Control* Find(std::string_view control);
    void Act(const std::function<void()>& action);
    Stage& stage_;
    ui::Form& form_;
};

/// Where the tour plays: waits for the windows that a call opens, lets the user act in them, and keeps the record.
class Stage {
public:
    /// @param folder  gets the pictures and transcript.txt
    Stage(adapters::qt::QtDesktop& desktop, std::filesystem::path folder);

    // What will open next, said before it is opened. Windows come in this order; one that opens unannounced, or does
    // not come, is a failure.
    void Expect(std::string_view form, std::function<void(Dialog&)> act);
    /// A message box: its picture, if a name is given, and the button pressed.
    void ExpectMessage(std::int32_t answer, std::string_view picture = {});
    /// Any other window, by its object name; the act must end it.
    void ExpectWindow(std::string_view name, std::function<void(QWidget&)> act);

    /// Runs what opens the windows, and closes what it left open.
    void Play(std::string_view scene, const std::function<void()>& opens);

    void Picture(QWidget& window, std::string_view name);
    void Picture(const ui::Form& form, std::string_view mode);
    void Note(std::string_view line);  ///< into the transcript
    void Fail(std::string_view what);
    /// Lets windows settle: everything posted is done and painted.
    void Settle();

    adapters::qt::QtDesktop& Desktop() const { return desktop_; }
    const std::vector<std::string>& Failures() const { return failures_; }
    const std::vector<std::string>& Pictures() const { return pictures_; }

private:
    struct Expectation {
        std::string what;
        std::function<bool(QWidget&)> matches;
        std::function<void(QWidget&)> act;
    };
    void Watch();
    void Look();
    void CloseAll();
    void Save(const QImage& picture, const std::string& name);

    adapters::qt::QtDesktop& desktop_;
    std::filesystem::path folder_;
    QObject context_;
    bool watching_ = false;
    std::deque<Expectation> expected_;
    std::vector<QWidget*> acting_;  // windows whose act runs now, innermost last
    std::string scene_;
    std::ofstream transcript_;  // line by line, so that it tells how far a tour came
    std::vector<std::string> failures_, pictures_;
    int idleLooks_ = 0;
    std::vector<int> levels_;  // message loop in which each act runs
};

}  // namespace kvx::host
