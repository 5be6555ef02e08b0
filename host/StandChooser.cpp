#include "host/StandChooser.h"

#include "adapters/qt/Strings.h"
#include "ado/Recordset.h"
#include "basic/Convert.h"
#include "basic/Error.h"
#include "basic/Text.h"
#include "host/Trace.h"
#include "host/Words.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStringListModel>
#include <QVBoxLayout>

#include <vector>

namespace kvx::host {

using adapters::qt::FromQt;
using adapters::qt::ToQt;

namespace {

constexpr std::size_t kAddressParts = 4, kLevels = 6, kTexts = 5;

struct Offer {
    std::vector<std::string> keys;  // "Harz/ 04/ III", what the user sees and may type
    std::string current;
};

std::string SeparatorOf(const ado::Connection& connection)
{
    ado::Recordset row;
    row.Open("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'DSW_SEPARATOR'", connection);
    const std::string text = row.Eof() ? std::string() : basic::ToText(row[0].Value());
    return text.empty() ? "|" : text;
}

// The library hands over address and levels in one text; the address is that of the level it begins with.
struct Address {
    std::string text;
    std::int32_t level = 0;
};

Address FindAddress(const ado::Connection& connection, const std::string& path)
{
    Address found;
    ado::Recordset rows;
    rows.Open("SELECT ID, ADR_DSW FROM ACCESS_LEVELS WHERE ADR_DSW IS NOT NULL", connection);
    for (; !rows.Eof(); rows.MoveNext()) {
        const std::string text = basic::ToText(rows["ADR_DSW"].Value());
        if (text.size() > found.text.size() && basic::StartsWith(path, text))
            found = {text, basic::CLng(rows["ID"].Value())};
    }
    return found;
}

std::vector<std::string> ReadKeys(const ado::Connection& connection, std::int32_t level)
{
    std::vector<std::string> keys;
    std::string sees = "ID_ACCESS_LEVELS IS NULL";
    if (level != 0) sees = "(" + sees + " OR ID_ACCESS_LEVELS = " + std::to_string(level) + ")";
    ado::Recordset rows;
    rows.Open("SELECT WO1,WO2,WO3,WO4,WO5,WO6 FROM WALDORT WHERE ISNULL(DISABLE,0) = 0 AND " + sees +
                  " ORDER BY WO1,WO2,WO3,WO4,WO5,WO6",
              connection, ado::adOpenForwardOnly, ado::adLockReadOnly);
    for (; !rows.Eof(); rows.MoveNext()) {
        std::string key;
        bool gap = false;  // levels of the outside application have no gaps
        for (std::size_t i = 0; i < kLevels; ++i) {
            const std::string part = basic::ToText(rows[i].Value());
            if (part.empty())
                gap = true;
            else if (gap)
                key.clear();
            else
                key.append(key.empty() ? "" : "/ ").append(part);
        }
        if (!key.empty() && (keys.empty() || keys.back() != key)) keys.push_back(std::move(key));
    }
    return keys;
}

// @return empty on Cancel
std::string Choose(const Offer& offer, bool english)
{
    const auto words = [english](const Words& text) { return ToQt(text.In(english)); };
    QDialog dialog(QApplication::activeWindow());
    dialog.setObjectName(QStringLiteral("DSW2"));
    dialog.setWindowTitle(words({"DSW2 – Waldort wählen", "DSW2 – choose a stand"}));

    QStringList keys;
    for (const std::string& key : offer.keys)
        keys << ToQt(key);
    QStringListModel model(keys);
    QSortFilterProxyModel found;
    found.setSourceModel(&model);
    found.setFilterCaseSensitivity(Qt::CaseInsensitive);

    auto* search = new QLineEdit;
    search->setObjectName(QStringLiteral("search"));
    search->setClearButtonEnabled(true);
    auto* list = new QListView;
    list->setObjectName(QStringLiteral("list"));
    list->setModel(&found);
    list->setUniformItemSizes(true);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    auto* key = new QLineEdit(ToQt(offer.current));
    key->setObjectName(QStringLiteral("key"));
    auto* hint = new QLabel(words({"Ein Schlüssel, der nicht in der Liste steht, wird als Waldort angelegt.",
                                   "A key that is not in the list becomes a new stand."}));
    hint->setWordWrap(true);

    auto* buttons = new QDialogButtonBox;
    QPushButton* ok = buttons->addButton(words({"OK", "OK"}), QDialogButtonBox::AcceptRole);
    buttons->addButton(words({"Abbrechen", "Cancel"}), QDialogButtonBox::RejectRole);
    ok->setDefault(true);
    const auto allowOk = [ok](const QString& text) { ok->setEnabled(!text.trimmed().isEmpty()); };
    allowOk(key->text());

    QObject::connect(search, &QLineEdit::textChanged, &found, &QSortFilterProxyModel::setFilterFixedString);
    QObject::connect(key, &QLineEdit::textChanged, ok, allowOk);
    QObject::connect(list->selectionModel(), &QItemSelectionModel::currentChanged, key,
                     [key](const QModelIndex& now) { key->setText(now.data().toString()); });
    QObject::connect(list, &QListView::doubleClicked, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto* above = new QFormLayout;
    above->addRow(words({"&Suchen", "&Find"}), search);
    auto* below = new QFormLayout;
    below->addRow(words({"S&chlüssel", "&Key"}), key);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addLayout(above);
    layout->addWidget(list, 1);
    layout->addLayout(below);
    layout->addWidget(hint);
    layout->addWidget(buttons);
    dialog.resize(dialog.fontMetrics().averageCharWidth() * 64, dialog.fontMetrics().height() * 28);

    if (const qsizetype at = keys.indexOf(ToQt(offer.current)); at >= 0) {
        const QModelIndex index = found.mapFromSource(model.index(static_cast<int>(at)));
        list->setCurrentIndex(index);
        list->scrollTo(index, QAbstractItemView::PositionAtCenter);
    }
    search->setFocus();
    return dialog.exec() == QDialog::Accepted ? FromQt(key->text()) : std::string();
}

class StandChooser final : public basic::Object {
public:
    explicit StandChooser(std::function<const Session&()> session) : session_(std::move(session)) {}

    std::string TypeName() const override { return "n_choose_os"; }
    basic::Variant Get(std::string_view member, std::span<const basic::Variant>) override
    {
        basic::RaiseNoMember(TypeName(), member);
    }
    void Put(std::string_view member, const basic::Variant&, std::span<const basic::Variant>) override
    {
        basic::RaiseNoMember(TypeName(), member);
    }

    // of_show(INI file, user, password, structure, address + levels): address + levels chosen; empty on Cancel.
    basic::Variant Call(std::string_view member, std::span<basic::Variant> args) override
    {
        if (!basic::SameName(member, "of_show")) basic::RaiseNoMember(TypeName(), member);
        if (args.size() != kTexts) basic::Raise(basic::kErrInvalidCall);
        const HostStatements own;
        const KvxVar& kvxvar = session_().kvxvar;
        const std::string separator = SeparatorOf(kvxvar.dbAdo);
        const std::string path = basic::ToText(args[4]);
        const Address address = FindAddress(kvxvar.dbAdo, path);

        Offer offer{ReadKeys(kvxvar.dbAdo, address.level), {}};
        std::string levels = path.substr(address.text.size());
        if (basic::StartsWith(levels, separator)) levels.erase(0, separator.size());
        offer.current = basic::Replace(levels, separator, "/ ");

        const std::string chosen = Choose(offer, kvxvar.strLanguage == "ENGLISH");
        if (chosen.empty()) return "";
        std::vector<std::string> parts = basic::Split(address.text, separator);
        parts.resize(kAddressParts);
        for (const std::string& level : basic::Split(chosen, "/"))
            parts.push_back(basic::Trim(level));
        return basic::Join(parts, separator);
    }

private:
    std::function<const Session&()> session_;
};

}  // namespace

basic::ObjectRef MakeStandChooser(std::function<const Session&()> session)
{
    return std::make_shared<StandChooser>(std::move(session));
}

}  // namespace kvx::host
