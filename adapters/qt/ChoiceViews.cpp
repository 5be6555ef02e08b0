#include "adapters/qt/ControlView.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Positions.h"
#include "adapters/qt/Strings.h"
#include "basic/Convert.h"
#include "basic/Locale.h"
#include "ui/ComboBox.h"
#include "ui/DTPicker.h"

#include <QComboBox>
#include <QDateEdit>
#include <QKeyEvent>
#include <QLineEdit>
#include <QWheelEvent>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

// Turning the wheel over a form scrolls it; it must not choose another species by accident.
class QuietCombo final : public QComboBox {
public:
    using QComboBox::QComboBox;
    std::function<void()> beforePopup;
    bool locked = false;

    void showPopup() override
    {
        if (locked) return;
        if (beforePopup) beforePopup();
        QComboBox::showPopup();
    }

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class QuietDate final : public QDateEdit {
public:
    using QDateEdit::QDateEdit;

protected:
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

class ComboView final : public ControlView {
public:
    ComboView(FormWindow& window, ui::ComboBox& combo, QWidget* parent)
        : ControlView(window, combo), combo_(combo), box_(new QuietCombo(parent))
    {
        SetWidget(box_);
        box_->setFocusPolicy(Qt::TabFocus);
        box_->setInsertPolicy(QComboBox::NoInsert);
        box_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        box_->setMaxVisibleItems(16);
        if (combo.Style() != ui::vbComboDropDownList) {
            box_->setEditable(true);
            box_->setCompleter(nullptr);
            QLineEdit* edit = box_->lineEdit();
            edit->setFocusPolicy(Qt::NoFocus);
            window.Watch(edit, this);
            QObject::connect(edit, &QLineEdit::textChanged, &window, [this] { Edited(); });
            QObject::connect(edit, &QLineEdit::cursorPositionChanged, &window, [this] { Selected(); });
            QObject::connect(edit, &QLineEdit::selectionChanged, &window, [this] { Selected(); });
        }
        window.Watch(box_, this);
        QObject::connect(box_, &QComboBox::activated, &window, [this](int index) {
            Act([this, index] { combo_.UserPick(index); });
            Changed(ui::Change::Selection);  // a locked box shows its own choice again
        });
        box_->beforePopup = [this] {
            Act([this] { combo_.DropDown.Raise(); });
            Window().ShowChanges();
        };
    }

    QWidget* FocusWidget() const override { return box_; }
    bool EditsText() const override { return box_->isEditable(); }
    bool LeavesToControl(const QKeyEvent& event) const override
    {
        const int key = event.key();
        return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
    }
    bool HandlesKey(const QKeyEvent& event) override
    {
        const bool alt = event.modifiers().testFlag(Qt::AltModifier);
        const bool opens = event.key() == Qt::Key_F4 || (alt && event.key() == Qt::Key_Down);
        if (opens) box_->showPopup();
        return opens;
    }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Look)) {
            box_->locked = combo_.Locked();
            if (box_->isEditable()) box_->lineEdit()->setReadOnly(combo_.Locked());
        }
        if (Has(changes, ui::Change::Items)) FillItems();
        if (box_->currentIndex() != combo_.ListIndex()) box_->setCurrentIndex(combo_.ListIndex());
        if (box_->isEditable()) {
            const QString text = ToQt(combo_.Text());
            box_->lineEdit()->setMaxLength(
                combo_.MaxLength() == 0 ? 32767 : std::max(static_cast<int>(text.size()), combo_.MaxLength()));
            if (box_->lineEdit()->text() != text) box_->lineEdit()->setText(text);
            ShowMark(text);
        }
    }

    void ApplyColours() override
    {
        const QPalette inherited = Window().palette();
        QPalette palette = inherited;
        if (combo_.BackColor() != ui::kColorWindow)
            palette.setColor(QPalette::Base, ToQtColor(combo_.BackColor(), inherited));
        else if (IsBlocked())
            palette.setColor(QPalette::Base, inherited.color(QPalette::Window));
        box_->setPalette(palette);
    }

private:
    void FillItems()
    {
        QStringList items;
        items.reserve(combo_.ListCount());
        for (std::int32_t i = 0; i < combo_.ListCount(); ++i)
            items.push_back(ToQt(combo_.List(i)));
        box_->clear();
        box_->addItems(items);
    }

    void ShowMark(const QString& text)
    {
        QLineEdit& edit = *box_->lineEdit();
        const int start = UnitsOf(text, combo_.SelStart());
        const int length = UnitsOf(text, combo_.SelStart() + combo_.SelLength()) - start;
        const int shown = edit.hasSelectedText() ? edit.selectionStart() : edit.cursorPosition();
        if (shown == start && static_cast<int>(edit.selectedText().size()) == length) return;
        if (length > 0)
            edit.setSelection(start, length);
        else
            edit.setCursorPosition(start);
    }

    std::pair<std::int32_t, std::int32_t> Mark() const
    {
        const QLineEdit& edit = *box_->lineEdit();
        const QString text = edit.text();
        if (!edit.hasSelectedText()) return {CharactersOf(text, edit.cursorPosition()), 0};
        return {CharactersOf(text, edit.selectionStart()), CharactersOf(edit.selectedText(), edit.selectionLength())};
    }

    // Picking from the list changes the field too; the pick itself is told by `activated`.
    void Edited()
    {
        if (showing_ || Model() == nullptr || box_->currentIndex() != combo_.ListIndex()) return;
        const auto [start, length] = Mark();
        const std::string text = FromQt(box_->lineEdit()->text());
        if (text != combo_.Text()) Act([&] { combo_.UserEdit(text, start, length); });
    }

    void Selected()
    {
        if (showing_ || Model() == nullptr || FromQt(box_->lineEdit()->text()) != combo_.Text()) return;
        const auto [start, length] = Mark();
        combo_.UserSelect(start, length);
    }

    ui::ComboBox& combo_;
    QuietCombo* box_;
};

class DateView final : public ControlView {
public:
    DateView(FormWindow& window, ui::DTPicker& picker, QWidget* parent)
        : ControlView(window, picker), picker_(picker), box_(new QuietDate(parent))
    {
        SetWidget(box_);
        box_->setFocusPolicy(Qt::TabFocus);
        box_->setKeyboardTracking(false);
        window.Watch(box_, this);
        if (auto* edit = box_->findChild<QLineEdit*>(); edit != nullptr) {
            edit->setFocusPolicy(Qt::NoFocus);
            window.Watch(edit, this);
        }
        QObject::connect(box_, &QDateEdit::dateChanged, &window, [this](QDate date) { Edited(date); });
    }

    bool EditsText() const override { return true; }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Look)) {
            const bool time = picker_.Format() == ui::dtpTime;
            box_->setCalendarPopup(!time && picker_.Format() != ui::dtpCustom);
            box_->setDisplayFormat(DisplayFormat());
        }
        box_->setDateRange(ToQtDate(picker_.MinDate()), ToQtDate(picker_.MaxDate()));
        box_->setDate(ToQtDate(picker_.Value()));
    }

private:
    static QDate ToQtDate(basic::Date date)
    {
        const basic::DateParts parts = basic::PartsOf(date);
        return QDate(parts.year, parts.month, parts.day);
    }

    QString DisplayFormat() const
    {
        switch (picker_.Format()) {
        case ui::dtpCustom: return ToQt(picker_.CustomFormat());
        case ui::dtpTime: return QStringLiteral("HH:mm:ss");
        case ui::dtpShortDate:
            return ToQt(basic::CurrentLocale().shortDateMask).replace(QLatin1Char('m'), QLatin1Char('M'));
        default: return ToQt(basic::CurrentLocale().longDateMask).replace(QLatin1Char('m'), QLatin1Char('M'));
        }
    }

    void Edited(QDate date)
    {
        if (showing_ || Model() == nullptr) return;
        basic::DateParts parts = basic::PartsOf(picker_.Value());  // the time of day stays
        parts.year = date.year();
        parts.month = date.month();
        parts.day = date.day();
        Act([&] { picker_.UserSetValue(basic::DateOf(parts)); });
    }

    ui::DTPicker& picker_;
    QuietDate* box_;
};

}  // namespace

std::unique_ptr<ControlView> MakeChoiceView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    if (auto* combo = dynamic_cast<ui::ComboBox*>(&control)) return std::make_unique<ComboView>(window, *combo, parent);
    if (auto* picker = dynamic_cast<ui::DTPicker*>(&control))
        return std::make_unique<DateView>(window, *picker, parent);
    return nullptr;
}

}  // namespace kvx::adapters::qt
