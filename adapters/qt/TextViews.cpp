#include "adapters/qt/ControlView.h"
#include "adapters/qt/FormWindow.h"
#include "adapters/qt/Positions.h"
#include "adapters/qt/Strings.h"
#include "ui/TextBox.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QTextOption>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

constexpr int kNoLimit = 32767;

// Shading of a box that is not grey but cannot be reached, as its frame is disabled.
void ColourField(QWidget& field, const ControlView& view, const QPalette& inherited)
{
    const ui::Control& control = *view.Model();
    QPalette palette = inherited;
    if (control.BackColor() != ui::kColorWindow)
        palette.setColor(QPalette::Base, ToQtColor(control.BackColor(), inherited));
    else if (view.IsBlocked())
        palette.setColor(QPalette::Base, inherited.color(QPalette::Window));
    if (control.ForeColor() != ui::kColorWindowText && control.ForeColor() != ui::kColorButtonText)
        palette.setColor(QPalette::Text, ToQtColor(control.ForeColor(), inherited));
    field.setPalette(palette);
}

Qt::Alignment AlignmentOf(std::int16_t alignment)
{
    return alignment == 1 ? Qt::AlignRight : alignment == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
}

// The clipboard's keys do in a window what they do for the control: a password is not copied, a paste into one line
// ends at the line end, and undo takes the last step back.
bool UseClipboard(FormWindow& window, ui::TextBox& box, QKeySequence::StandardKey key)
{
    const auto act = [&](void (ui::TextBox::*step)()) { window.Act([&] { (box.*step)(); }); };
    switch (key) {
    case QKeySequence::Copy: act(&ui::TextBox::UserCopy); return true;
    case QKeySequence::Cut: act(&ui::TextBox::UserCut); return true;
    case QKeySequence::Paste: act(&ui::TextBox::UserPaste); return true;
    case QKeySequence::Undo: act(&ui::TextBox::UserUndo); return true;
    case QKeySequence::Redo: return true;
    default: return false;
    }
}

// One line of text.
class LineView final : public ControlView {
public:
    LineView(FormWindow& window, ui::TextBox& box, QWidget* parent)
        : ControlView(window, box), box_(box), edit_(new QLineEdit(parent))
    {
        SetWidget(edit_);
        edit_->setTextMargins(1, 0, 1, 0);
        edit_->setFocusPolicy(Qt::TabFocus);
        window.Watch(edit_, this);
        QObject::connect(edit_, &QLineEdit::textChanged, &window, [this] { Edited(); });
        QObject::connect(edit_, &QLineEdit::cursorPositionChanged, &window, [this] { Selected(); });
        QObject::connect(edit_, &QLineEdit::selectionChanged, &window, [this] { Selected(); });
    }

    bool EditsText() const override { return true; }
    bool ClicksByMouse() const override { return true; }
    bool HandlesClipboard(QKeySequence::StandardKey key) override { return UseClipboard(Window(), box_, key); }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Look)) {
            edit_->setEchoMode(box_.PasswordChar().empty() ? QLineEdit::Normal : QLineEdit::Password);
            edit_->setAlignment(AlignmentOf(box_.Alignment()) | Qt::AlignVCenter);
            edit_->setReadOnly(box_.Locked());
        }
        if (!Has(changes, ui::Change::Text) && !Has(changes, ui::Change::Selection) && !Has(changes, ui::Change::Look))
            return;
        const QString text = ToQt(box_.Text());
        // A limit that came later does not cut what is there.
        const int own = static_cast<int>(text.size());
        edit_->setMaxLength(box_.MaxLength() == 0 ? kNoLimit : std::max(own, box_.MaxLength()));
        if (edit_->text() != text) edit_->setText(text);
        ShowMark(text);
    }
    void ApplyColours() override { ColourField(*edit_, *this, Window().palette()); }

private:
    void ShowMark(const QString& text)
    {
        const int start = UnitsOf(text, box_.SelStart());
        const int end = UnitsOf(text, box_.SelStart() + box_.SelLength());
        const int shownStart = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
        const int shownLength = static_cast<int>(edit_->selectedText().size());
        if (shownStart == start && shownLength == end - start) return;
        if (end > start)
            edit_->setSelection(start, end - start);
        else
            edit_->setCursorPosition(start);
    }

    std::pair<std::int32_t, std::int32_t> Mark() const
    {
        const QString text = edit_->text();
        if (!edit_->hasSelectedText()) return {CharactersOf(text, edit_->cursorPosition()), 0};
        const int start = edit_->selectionStart();
        return {CharactersOf(text, start), CharactersOf(edit_->selectedText(), edit_->selectionLength())};
    }

    void Edited()
    {
        if (showing_ || Model() == nullptr) return;
        const std::pair<std::int32_t, std::int32_t> mark = Mark();
        const std::string text = FromQt(edit_->text());
        Act([&] { box_.UserEdit(text, mark.first, mark.second); });
    }

    void Selected()
    {
        if (showing_ || Model() == nullptr || FromQt(edit_->text()) != box_.Text()) return;
        const auto [start, length] = Mark();
        box_.UserSelect(start, length);
    }

    ui::TextBox& box_;
    QLineEdit* edit_;
};

// Several lines. The control's text has CR LF, the widget's LF only.
class LinesView final : public ControlView {
public:
    LinesView(FormWindow& window, ui::TextBox& box, QWidget* parent)
        : ControlView(window, box), box_(box), edit_(new QPlainTextEdit(parent))
    {
        SetWidget(edit_);
        edit_->setFocusPolicy(Qt::TabFocus);
        window.Watch(edit_, this);
        window.Watch(edit_->viewport(), this);
        QObject::connect(edit_, &QPlainTextEdit::textChanged, &window, [this] { Edited(); });
        QObject::connect(edit_, &QPlainTextEdit::cursorPositionChanged, &window, [this] { Selected(); });
        QObject::connect(edit_, &QPlainTextEdit::selectionChanged, &window, [this] { Selected(); });
    }

    bool EditsText() const override { return true; }
    bool ClicksByMouse() const override { return true; }
    bool HandlesClipboard(QKeySequence::StandardKey key) override { return UseClipboard(Window(), box_, key); }

protected:
    void Show(unsigned changes) override
    {
        if (Has(changes, ui::Change::Look)) {
            const std::int16_t bars = box_.ScrollBars();
            edit_->setHorizontalScrollBarPolicy((bars & 1) != 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
            edit_->setVerticalScrollBarPolicy((bars & 2) != 0 ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAsNeeded);
            edit_->setLineWrapMode((bars & 1) != 0 ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
            QTextOption option = edit_->document()->defaultTextOption();
            option.setAlignment(AlignmentOf(box_.Alignment()));
            edit_->document()->setDefaultTextOption(option);
            edit_->setReadOnly(box_.Locked());
        }
        if (Has(changes, ui::Change::Text) && FromQt(edit_->toPlainText()) != Plain())
            edit_->setPlainText(ToQt(Plain()));
        if (Has(changes, ui::Change::Text) || Has(changes, ui::Change::Selection)) ShowMark();
    }
    void ApplyColours() override { ColourField(*edit_, *this, Window().palette()); }

private:
    std::string Plain() const
    {
        std::string plain;
        for (const char c : box_.Text())
            if (c != '\r') plain.push_back(c);
        return plain;
    }
    static std::string WithReturns(const QString& plain)
    {
        std::string text;
        for (const char c : FromQt(plain)) {
            if (c == '\n') text.push_back('\r');
            text.push_back(c);
        }
        return text;
    }

    // Positions in the control's text count both characters of a line end.
    int WidgetPosition(std::int32_t characters) const
    {
        const QString full = ToQt(box_.Text());
        const int units = UnitsOf(full, characters);
        return units - static_cast<int>(full.left(units).count(QLatin1Char('\r')));
    }
    std::int32_t ControlPosition(int units) const
    {
        const QString plain = edit_->toPlainText();
        return CharactersOf(plain, units) + static_cast<std::int32_t>(plain.left(units).count(QLatin1Char('\n')));
    }

    void ShowMark()
    {
        QTextCursor cursor = edit_->textCursor();
        const int start = WidgetPosition(box_.SelStart());
        const int end = WidgetPosition(box_.SelStart() + box_.SelLength());
        if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
        cursor.setPosition(start);
        cursor.setPosition(end, QTextCursor::KeepAnchor);
        edit_->setTextCursor(cursor);
    }

    void Edited()
    {
        if (showing_ || Model() == nullptr) return;
        const std::string text = WithReturns(edit_->toPlainText());
        if (text == box_.Text()) return;
        const QTextCursor cursor = edit_->textCursor();
        const std::int32_t start = ControlPosition(cursor.selectionStart());
        const std::int32_t end = ControlPosition(cursor.selectionEnd());
        Act([&] { box_.UserEdit(text, start, end - start); });
    }

    void Selected()
    {
        if (showing_ || Model() == nullptr || FromQt(edit_->toPlainText()) != Plain()) return;
        const QTextCursor cursor = edit_->textCursor();
        const std::int32_t start = ControlPosition(cursor.selectionStart());
        box_.UserSelect(start, ControlPosition(cursor.selectionEnd()) - start);
    }

    ui::TextBox& box_;
    QPlainTextEdit* edit_;
};

}  // namespace

std::unique_ptr<ControlView> MakeTextView(FormWindow& window, ui::Control& control, QWidget* parent)
{
    auto* box = dynamic_cast<ui::TextBox*>(&control);
    if (box == nullptr) return nullptr;
    if (box->MultiLine()) return std::make_unique<LinesView>(window, *box, parent);
    return std::make_unique<LineView>(window, *box, parent);
}

}  // namespace kvx::adapters::qt
