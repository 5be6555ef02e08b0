#pragma once

#include "ado/StatementObserver.h"
#include "host/Operations.h"

#include <QMainWindow>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QTreeWidget;

namespace kvx::host {

/// The host's window: its own boxes, a menu entry for every public operation, what came back from the last call, and
/// the statements sent so far.
class MainWindow final : public QMainWindow {
public:
    MainWindow(Options options, Session session);

    /// Calls an operation and shows what came back.
    const Outcome& Run(const Operation& operation);
    const Outcome& LastOutcome() const { return outcome_; }
    /// Adds a statement to the dock.
    void ShowStatement(const ado::StatementRecord& record);

    const Session& CurrentSession() const { return session_; }
    const Boxes& HostBoxes() const { return boxes_; }
    Arguments& CallArguments() { return arguments_; }
    /// Makes call arguments that were set from outside visible.
    void ShowArguments();

    /// Works as another client from now on.
    void UseClient(std::string_view client);
    void UseOracle(bool oracle);  ///< the dialect of the library's statements

    /// Chooses the file that is shown next; the user is asked when it is empty.
    std::string fileToShow;

private:
    QString Text(const Words& words) const;
    void BuildMenus();
    QGroupBox* BuildStand();
    QGroupBox* BuildOrder();
    QGroupBox* BuildList();
    QGroupBox* BuildValue();
    QGroupBox* BuildArguments();
    QGroupBox* BuildOutcome();
    void BuildStatements();
    void BuildStatusBar();
    QPushButton* CallButton(const Words& caption, std::string_view operation, std::size_t which = 0);

    void UseSession(Session session);
    void Reconnect(const std::string& connectionString);
    void FillLevels();
    void FillSpecies();
    void ShowOutcome(const Operation& operation, std::int64_t milliseconds, int statements);
    std::string AskFile();
    void ShowAbout();

    Options options_;
    Session session_;
    Boxes boxes_;
    Arguments arguments_;
    Outcome outcome_;
    int statements_ = 0;

    std::array<QLineEdit*, 6> keyBoxes_{};
    QListWidget* list_ = nullptr;
    QComboBox* species_ = nullptr;
    QComboBox* level_ = nullptr;
    QSpinBox* root_ = nullptr;
    QLabel* headline_ = nullptr;
    QTreeWidget* values_ = nullptr;
    QPlainTextEdit* statementText_ = nullptr;
    QLabel *user_ = nullptr, *levelName_ = nullptr, *client_ = nullptr, *database_ = nullptr;
};

}  // namespace kvx::host
