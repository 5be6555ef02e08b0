#include "host/MainWindow.h"

#include "adapters/qt/HostObjects.h"
#include "adapters/qt/Strings.h"
#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "entry/C_Version.h"
#include "host/Login.h"
#include "host/SampleDatabase.h"
#include "host/Trace.h"
#include "ui/Constants.h"
#include "ui/Desktop.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStatusBar>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace kvx::host {

using adapters::qt::FromQt;
using adapters::qt::ToQt;
using adapters::qt::Wrap;

namespace {

// An operation's place among those of its name: WaldortSimple stands in the menu three times.
const Operation& NthOperation(std::string_view name, std::size_t which)
{
    const Operation* last = nullptr;
    for (const Operation& operation : Operations()) {
        if (operation.Name() != name) continue;
        last = &operation;
        if (which-- == 0) break;
    }
    return *last;
}

QLineEdit* Box(const char* name, int maxLength = 0)
{
    auto* box = new QLineEdit;
    box->setObjectName(QLatin1String(name));
    if (maxLength > 0) box->setMaxLength(maxLength);
    return box;
}

// A label left of a box (or any widget), which its letter leads to.
void AddLabelled(QGridLayout& grid, int row, int column, const QString& caption, QWidget* box, int columns = 1)
{
    auto* label = new QLabel(caption);
    label->setBuddy(box);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(label, row, column);
    grid.addWidget(box, row, column + 1, 1, columns);
}

QHBoxLayout* AtTheRight(std::initializer_list<QPushButton*> buttons)
{
    auto* row = new QHBoxLayout;
    row->addStretch();
    for (QPushButton* button : buttons)
        row->addWidget(button);
    return row;
}

QString Bold(const QString& text)
{
    return QStringLiteral("<b>%1</b>").arg(text.toHtmlEscaped());
}

}  // namespace

MainWindow::MainWindow(Options options, Session session) : options_(std::move(options))
{
    setObjectName(QStringLiteral("Korvex"));
    setWindowTitle(QStringLiteral("Korvex"));

    auto* left = new QVBoxLayout;
    left->addWidget(BuildStand());
    left->addWidget(BuildOrder());
    auto* below = new QHBoxLayout;
    below->addWidget(BuildList(), 3);
    below->addWidget(BuildValue(), 2);
    left->addLayout(below, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(BuildArguments());
    right->addWidget(BuildOutcome(), 1);

    auto* central = new QWidget;
    auto* columns = new QHBoxLayout(central);
    columns->addLayout(left, 3);
    columns->addLayout(right, 2);
    setCentralWidget(central);

    BuildStatements();
    BuildMenus();
    BuildStatusBar();
    UseSession(std::move(session));

    headline_->setText(Text({"Wählen Sie mit <b>F2</b> einen Waldort, oder einen anderen Aufruf aus den Menüs.",
                             "Pick a stand with <b>F2</b>, or another call from the menus."}));
    // In characters, so that a large font gets a large window.
    const QFontMetrics metrics = fontMetrics();
    resize(metrics.averageCharWidth() * 165, metrics.height() * 46);
}

QString MainWindow::Text(const Words& words) const
{
    return ToQt(words.In(options_.English()));
}

void MainWindow::BuildMenus()
{
    QMenu* menu = nullptr;
    QString title;
    for (const Operation& operation : Operations()) {
        if (const QString wanted = Text(operation.menu); wanted != title) {
            title = wanted;
            menu = menuBar()->addMenu(title);
        }
        QAction* action = menu->addAction(Text(operation.caption));
        action->setShortcut(QKeySequence(ToQt(operation.shortcut)));
        action->setStatusTip(ToQt(operation.Name()) + QStringLiteral(" – ") + Text(operation.help));
        connect(action, &QAction::triggered, this, [this, &operation] { Run(operation); });
    }

    // The first menu also ends the host.
    QMenu* first = menuBar()->actions().constFirst()->menu();
    first->addSeparator();
    QAction* quit = first->addAction(Text({"&Beenden", "&Quit"}));
    quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(quit, &QAction::triggered, this, &QWidget::close);

    QMenu* view = menuBar()->addMenu(Text({"&Ansicht", "&View"}));
    for (QDockWidget* dock : findChildren<QDockWidget*>())
        view->addAction(dock->toggleViewAction());
    QAction* clear = view->addAction(Text({"Anweisungen &leeren", "&Clear statements"}));
    connect(clear, &QAction::triggered, this, [this] { statementText_->clear(); });

    QMenu* help = menuBar()->addMenu(Text({"&Hilfe", "&Help"}));
    QAction* about = help->addAction(Text({"Ü&ber Korvex", "&About Korvex"}));
    connect(about, &QAction::triggered, this, [this] { ShowAbout(); });
}

QPushButton* MainWindow::CallButton(const Words& caption, std::string_view operation, std::size_t which)
{
    const Operation& called = NthOperation(operation, which);
    auto* button = new QPushButton(Text(caption));
    button->setStatusTip(ToQt(called.Name()) + QStringLiteral(" – ") + Text(called.help));
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, &called] { Run(called); });
    return button;
}

// The stand as a host's document would show it: everything c_Waldort.Waldort hands over.
QGroupBox* MainWindow::BuildStand()
{
    auto* group = new QGroupBox(Text({"Waldort", "Stand"}));
    auto* grid = new QGridLayout;
    auto* key = new QGridLayout;
    key->setHorizontalSpacing(6);
    for (std::size_t i = 0; i < keyBoxes_.size(); ++i) {
        const std::string name = "WO" + std::to_string(i + 1);
        keyBoxes_[i] = Box(("txt" + name).c_str());
        keyBoxes_[i]->setAccessibleName(ToQt(name));
        auto* label = new QLabel(ToQt(name));
        label->setBuddy(keyBoxes_[i]);
        key->addWidget(label, 0, static_cast<int>(i));
        key->addWidget(keyBoxes_[i], 1, static_cast<int>(i));
        boxes_.txtWO[i] = Wrap(keyBoxes_[i]);
    }
    auto* keyLabel = new QLabel(Text({"Schlüsse&l", "&Key"}));
    keyLabel->setAlignment(Qt::AlignRight | Qt::AlignBottom);
    keyLabel->setContentsMargins(0, 0, 0, 4);
    keyLabel->setBuddy(keyBoxes_[0]);
    grid->addWidget(keyLabel, 0, 0);
    grid->addLayout(key, 0, 1, 1, 5);

    QLineEdit* name = Box("txtLangname");
    QLineEdit* district = Box("txtGemarkung");
    QLineEdit* parcel = Box("txtFlurstueck");
    QLineEdit* plot = Box("txtParzelle");
    QLineEdit* area = Box("txtFlaeche");
    QLineEdit* age = Box("txtAlter");
    QLineEdit* species = Box("txtHolzart");
    for (QLineEdit* number : {area, age})
        number->setAlignment(Qt::AlignRight);
    AddLabelled(*grid, 1, 0, Text({"La&ngname", "&Long name"}), name, 5);
    AddLabelled(*grid, 2, 0, Text({"&Gemarkung", "Cadastral &district"}), district);
    AddLabelled(*grid, 2, 2, Text({"Fl&urstück", "La&nd parcel"}), parcel);
    AddLabelled(*grid, 2, 4, Text({"Parz&elle", "&Plot"}), plot);
    AddLabelled(*grid, 3, 0, Text({"&Fläche (ha)", "A&rea (ha)"}), area);
    AddLabelled(*grid, 3, 2, Text({"Alte&r (Jahre)", "A&ge (years)"}), age);
    AddLabelled(*grid, 3, 4, Text({"Hauptholzart", "Main species"}), species);
    for (const int column : {1, 3, 5})
        grid->setColumnStretch(column, 1);

    boxes_.txtLangname = Wrap(name);
    boxes_.txtGemarkung = Wrap(district);
    boxes_.txtFlurstueck = Wrap(parcel);
    boxes_.txtParzelle = Wrap(plot);
    boxes_.txtFlaeche = Wrap(area);
    boxes_.txtAlter = Wrap(age);
    boxes_.txtHolzart = Wrap(species);

    auto* empty = new QPushButton(Text({"Leeren", "Clear"}));
    empty->setAutoDefault(false);
    connect(empty, &QPushButton::clicked, this, [group] {
        for (QLineEdit* box : group->findChildren<QLineEdit*>())
            box->clear();
    });
    auto* layout = new QVBoxLayout(group);
    layout->addLayout(grid);
    layout->addLayout(AtTheRight({empty, CallButton({"Id zum Schlüssel", "Id of the key"}, "c_Waldort.Waldort_ID"),
                                  CallButton({"Wählen …", "Pick …"}, "c_Waldort.Waldort")}));
    return group;
}

QGroupBox* MainWindow::BuildOrder()
{
    auto* group = new QGroupBox(Text({"Arbeitsauftrag", "Work order"}));
    auto* grid = new QGridLayout(group);
    QLineEdit* stand = Box("txtAuftragWaldort");
    QLineEdit* id = Box("txtAuftragId");
    QLineEdit* area = Box("txtAuftragFlaeche");
    id->setReadOnly(true);
    for (QLineEdit* number : {id, area}) {
        number->setAlignment(Qt::AlignRight);
        number->setMaximumWidth(fontMetrics().averageCharWidth() * 18);
    }
    AddLabelled(*grid, 0, 0, Text({"Wald&ort", "St&and"}), stand, 5);
    AddLabelled(*grid, 1, 0, Text({"Id", "Id"}), id);
    AddLabelled(*grid, 1, 2, Text({"Fläche (ha)", "Area (ha)"}), area);
    grid->setColumnStretch(4, 1);
    grid->addWidget(CallButton({"Wählen …", "Pick …"}, "c_Waldort.WaldortArbeits"), 1, 5);
    boxes_.txtAuftragWaldort = Wrap(stand);
    boxes_.txtAuftragId = Wrap(id);
    boxes_.txtAuftragFlaeche = Wrap(area);
    return group;
}

QGroupBox* MainWindow::BuildList()
{
    auto* group = new QGroupBox(Text({"Waldortliste", "List of stands"}));
    auto* layout = new QVBoxLayout(group);
    list_ = new QListWidget;
    list_->setObjectName(QStringLiteral("lstWaldorte"));
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    layout->addWidget(list_);
    auto* remove = new QPushButton(Text({"Entfernen", "Remove"}));
    remove->setAutoDefault(false);
    connect(remove, &QPushButton::clicked, this, [this] { qDeleteAll(list_->selectedItems()); });
    layout->addLayout(AtTheRight({remove, CallButton({"Hinzufügen …", "Add …"}, "c_Waldort.WaldortId", 1)}));
    boxes_.lstWaldorte = Wrap(list_);
    return group;
}

QGroupBox* MainWindow::BuildValue()
{
    auto* group = new QGroupBox(Text({"Baumart", "Tree species"}));
    auto* layout = new QVBoxLayout(group);
    auto* grid = new QGridLayout;
    species_ = new QComboBox;
    species_->setObjectName(QStringLiteral("cmbWert"));
    QLineEdit* value = Box("txtWert");
    AddLabelled(*grid, 0, 0, Text({"Einträge", "Entries"}), species_);
    AddLabelled(*grid, 1, 0, Text({"Gewählt", "Chosen"}), value);
    grid->setColumnStretch(1, 1);
    layout->addLayout(grid);
    layout->addStretch();
    layout->addLayout(AtTheRight({CallButton({"Aus Liste …", "From list …"}, "c_Message.MessageBoxCmb")}));
    boxes_.cmbWert = Wrap(species_);
    boxes_.txtWert = Wrap(value);
    return group;
}

QGroupBox* MainWindow::BuildArguments()
{
    auto* group = new QGroupBox(Text({"Vorgaben für die Aufrufe", "Arguments of the calls"}));
    auto* grid = new QGridLayout(group);
    level_ = new QComboBox;
    level_->setObjectName(QStringLiteral("cmbLevel"));
    connect(level_, &QComboBox::activated, this, [this] { arguments_.ID_AL = level_->currentData().toInt(); });
    root_ = new QSpinBox;
    root_->setObjectName(QStringLiteral("spinRoot"));
    root_->setMaximum(std::numeric_limits<std::int32_t>::max());
    root_->setSpecialValueText(Text({"0 – ganzer Baum", "0 – whole tree"}));
    connect(root_, &QSpinBox::valueChanged, this, [this](int value) { arguments_.ID_WALDORT_Root = value; });
    AddLabelled(*grid, 0, 0, QStringLiteral("ID_AL"), level_);
    AddLabelled(*grid, 1, 0, QStringLiteral("ID_WALDORT_Root"), root_);
    grid->setColumnStretch(1, 1);
    return group;
}

QGroupBox* MainWindow::BuildOutcome()
{
    auto* group = new QGroupBox(Text({"Zurückgegeben", "Came back"}));
    auto* layout = new QVBoxLayout(group);
    headline_ = new QLabel;
    headline_->setTextFormat(Qt::RichText);
    headline_->setWordWrap(true);
    headline_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    values_ = new QTreeWidget;
    values_->setObjectName(QStringLiteral("treeOutcome"));
    values_->setRootIsDecorated(false);
    values_->setAlternatingRowColors(true);
    values_->setHeaderLabels({Text({"Argument", "Argument"}), Text({"vorher", "before"}), Text({"nachher", "after"})});
    values_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    layout->addWidget(headline_);
    layout->addWidget(values_, 1);
    return group;
}

void MainWindow::BuildStatements()
{
    auto* dock = new QDockWidget(Text({"SQL-Anweisungen", "SQL statements"}), this);
    dock->setObjectName(QStringLiteral("dockStatements"));
    statementText_ = new QPlainTextEdit;
    statementText_->setReadOnly(true);
    statementText_->setLineWrapMode(QPlainTextEdit::NoWrap);
    statementText_->setMaximumBlockCount(1000);
    statementText_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    statementText_->setPlaceholderText(Text({"Was die Bibliothek an die Datenbank schickt, erscheint hier.",
                                             "What the library sends to the database appears here."}));
    dock->setWidget(statementText_);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {fontMetrics().height() * 9}, Qt::Vertical);
}

void MainWindow::BuildStatusBar()
{
    for (QLabel** label : {&user_, &levelName_, &client_, &database_}) {
        *label = new QLabel;
        (*label)->setContentsMargins(8, 0, 8, 0);
        statusBar()->addPermanentWidget(*label);
    }
}

void MainWindow::UseSession(Session session)
{
    session_ = std::move(session);
    const KvxVar& kvxvar = session_.kvxvar;
    arguments_ = {};
    arguments_.ID_AL = kvxvar.ID_ACCESS_LEVELS;

    const auto named = [](std::int32_t id, const std::string& name) {
        return name.empty() ? QString::number(id) : QStringLiteral("%1 (%2)").arg(ToQt(name)).arg(id);
    };
    const QString none = Text({"keine", "none"});
    user_->setText(Text({"Benutzer: ", "User: "}) + named(kvxvar.ID_USER, session_.userName));
    levelName_->setText(Text({"Stufe: ", "Level: "}) +
                        (kvxvar.ID_ACCESS_LEVELS == 0 ? none : named(kvxvar.ID_ACCESS_LEVELS, session_.levelName)));
    client_->setText(Text({"Mandant: ", "Client: "}) +
                     (kvxvar.g_Client.empty() ? Text({"–", "–"}) : ToQt(kvxvar.g_Client)) +
                     (kvxvar.bOracle != 0 ? QStringLiteral(" · Oracle") : QString()));
    database_->setText(Text({"Datenbank: ", "Database: "}) + ToQt(session_.databaseName));
    setWindowTitle(QStringLiteral("Korvex – %1").arg(ToQt(session_.databaseName)));

    const bool shortKeys = kvxvar.g_Client == "BB" || kvxvar.g_Client == "SACHSEN";
    for (QLineEdit* box : keyBoxes_)
        box->setMaxLength(shortKeys ? 6 : 25);
    FillLevels();
    FillSpecies();
    ShowArguments();
}

// Another installation's database may lack the tables: then the list has no more than what the session says.
void MainWindow::FillLevels()
{
    const HostStatements own;
    level_->clear();
    level_->addItem(Text({"0 – keine Stufe", "0 – no level"}), 0);
    try {
        ado::Recordset rows;
        rows.Open("SELECT ID, NAME FROM ACCESS_LEVELS ORDER BY ID", session_.kvxvar.dbAdo);
        for (; !rows.Eof(); rows.MoveNext()) {
            const std::int32_t id = basic::CLng(rows["ID"].Value());
            level_->addItem(QStringLiteral("%1 – %2").arg(id).arg(ToQt(basic::ToText(rows["NAME"].Value()))), id);
        }
    } catch (const basic::Error&) {
        return;
    }
}

void MainWindow::FillSpecies()
{
    const HostStatements own;
    species_->clear();
    try {
        ado::Recordset rows;
        rows.Open("SELECT HA FROM HOLZART ORDER BY HA", session_.kvxvar.dbAdo);
        for (; !rows.Eof(); rows.MoveNext())
            species_->addItem(ToQt(basic::ToText(rows["HA"].Value())));
    } catch (const basic::Error&) {
        return;
    }
}

void MainWindow::ShowArguments()
{
    if (level_->findData(arguments_.ID_AL) < 0) level_->addItem(QString::number(arguments_.ID_AL), arguments_.ID_AL);
    level_->setCurrentIndex(level_->findData(arguments_.ID_AL));
    root_->setValue(arguments_.ID_WALDORT_Root);
}

void MainWindow::UseClient(std::string_view client)
{
    const Arguments arguments = arguments_;
    session_.kvxvar.g_Client = client;
    UseSession(Session(session_));
    arguments_ = arguments;
    ShowArguments();
}

void MainWindow::UseOracle(bool oracle)
{
    session_.kvxvar.bOracle = oracle ? -1 : 0;
}

void MainWindow::Reconnect(const std::string& connectionString)
{
    // Who logs in is the user, whatever the command line said about the first one.
    Options options = options_;
    options.user.reset();
    options.accessLevel.reset();
    try {
        UseSession(OpenSession(options, connectionString, session_.kvxvar.strAppPath));
    } catch (const StartError& error) {
        ui::CurrentDesktop().MessageBox(error.what(), ui::vbCritical, "Korvex");
    }
}

const Outcome& MainWindow::Run(const Operation& operation)
{
    const int before = statements_;
    QElapsedTimer clock;
    clock.start();
    outcome_ = Perform(operation, Call{session_, boxes_, arguments_, options_.English(), [this] { return AskFile(); },
                                       [this](const std::string& text) { Reconnect(text); }});
    ShowOutcome(operation, clock.elapsed(), statements_ - before);
    return outcome_;
}

void MainWindow::ShowOutcome(const Operation& operation, std::int64_t milliseconds, int statements)
{
    QString head = Bold(ToQt(operation.Name())) + QStringLiteral(" · ") +
                   Text({"%1 Anweisungen · %2 s", "%1 statements · %2 s"})
                       .arg(statements)
                       .arg(locale().toString(static_cast<double>(milliseconds) / 1000, 'f', 2));
    if (outcome_.error) {
        const basic::Error& error = *outcome_.error;
        head += QStringLiteral("<br><span style=\"color:#b00020\">%1 %2: %3</span>")
                    .arg(Text({"Fehler", "Error"}), ToQt(ErrorNumberText(error.Number)),
                         ToQt(error.Description).toHtmlEscaped());
    }
    headline_->setText(head);

    values_->clear();
    for (const Outcome::Line& line : outcome_.lines) {
        auto* item =
            new QTreeWidgetItem(values_, {line.name == kResult ? Text({"Ergebnis", "Result"}) : ToQt(line.name),
                                          ToQt(line.before), ToQt(line.after)});
        if (line.before == line.after) continue;
        QFont font = item->font(2);
        font.setBold(true);
        item->setFont(2, font);
    }
    statusBar()->showMessage(outcome_.error ? Text({"Fehlgeschlagen", "Failed"}) : Text({"Fertig", "Done"}), 5000);
}

void MainWindow::ShowStatement(const ado::StatementRecord& record)
{
    ++statements_;
    QString line = ToQt(TraceLine(record.text));
    if (!record.succeeded)
        line += QStringLiteral("   -- %1: %2")
                    .arg(ToQt(ErrorNumberText(record.errorNumber)), ToQt(TraceLine(record.errorDescription)));
    statementText_->appendPlainText(line);
}

std::string MainWindow::AskFile()
{
    if (!fileToShow.empty()) return fileToShow;
    return FromQt(QFileDialog::getOpenFileName(this, Text({"Textdatei zeigen", "Show a text file"}), QString(),
                                               Text({"Textdateien (*.txt *.log *.ini *.md);;Alle Dateien (*)",
                                                     "Text files (*.txt *.log *.ini *.md);;All files (*)"})));
}

void MainWindow::ShowAbout()
{
    std::string text = "Korvex Forms " + C_Version().DLL_Version() + "\n\n";
    text += Words{"Formulare und Stammdaten der Forstverwaltung.\n\nBenutzer der Beispieldatenbank (Kennwort „",
                  "Forms and master data of the forest administration.\n\nUsers of the sample database (password “"}
                .In(options_.English());
    text += kSamplePassword;
    text += Words{"“):", "”):"}.In(options_.English());
    for (const SampleUser& user : kSampleUsers)
        text.append("\n").append(user.name);
    ui::CurrentDesktop().MessageBox(text, ui::vbInformation, "Korvex");
}

}  // namespace kvx::host
