#include "adapters/qt/TreeArea.h"

#include "adapters/qt/ControlView.h"
#include "adapters/qt/Strings.h"
#include "ui/TreeView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionViewItem>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

constexpr int kMargin = 4;

}  // namespace

// --- the editor

LabelEditor::LabelEditor(TreeUser& user, QWidget* parent) : QLineEdit(parent), user_(user)
{
    setObjectName(QStringLiteral("LabelEditor"));
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (!closing_) user_.Edited();
    });
    connect(this, &QLineEdit::cursorPositionChanged, this, [this] {
        if (!closing_) user_.Edited();
    });
    connect(this, &QLineEdit::selectionChanged, this, [this] {
        if (!closing_) user_.Edited();
    });
}

void LabelEditor::Close()
{
    closing_ = true;
    hide();
    deleteLater();
}

bool LabelEditor::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
            user_.EditKey(key);
            user_.EditLeftByTab(key == Qt::Key_Backtab);
            return true;
        }
    }
    return QLineEdit::event(event);
}

void LabelEditor::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape) user_.EditKey(key);
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        user_.EditEnded(true);
    else if (key == Qt::Key_Escape)
        user_.EditEnded(false);
    else
        QLineEdit::keyPressEvent(event);
    event->accept();
}

void LabelEditor::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    if (!closing_ && event->reason() != Qt::PopupFocusReason) user_.EditEnded(true);
}

// --- geometry

TreeArea::TreeArea(ui::TreeView& tree, TreeUser& user, QWidget* parent)
    : QAbstractScrollArea(parent), tree_(&tree), user_(user), rows_(tree)
{
    viewport()->setBackgroundRole(QPalette::Base);
    setFocusPolicy(Qt::TabFocus);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    secondClick_.setSingleShot(true);
    connect(&secondClick_, &QTimer::timeout, this, [this] {
        if (tree_ != nullptr && clickedAgain_.IsThere()) user_.ClickedAgain(clickedAgain_);
    });
}

void TreeArea::TreeGone()
{
    tree_ = nullptr;
    secondClick_.stop();
    CloseEditor();
}

int TreeArea::RowHeight() const
{
    return fontMetrics().height() + 4;
}

int TreeArea::Indent() const
{
    return std::max(16, fontMetrics().height() + 2);
}

int TreeArea::TopRow() const
{
    return verticalScrollBar()->value();
}

int TreeArea::RowsPerPage() const
{
    return std::max(1, viewport()->height() / RowHeight());
}

void TreeArea::Relayout()
{
    if (tree_ == nullptr) return;
    QScrollBar* down = verticalScrollBar();
    down->setRange(0, std::max(0, rows_.Count() - RowsPerPage()));
    down->setPageStep(RowsPerPage());
    QScrollBar* across = horizontalScrollBar();
    across->setRange(0, std::max(0, widest_ - viewport()->width()));
    across->setPageStep(std::max(1, viewport()->width()));
    across->setSingleStep(Indent());
    viewport()->update();
    PlaceEditor();
}

void TreeArea::ShowRow(int row)
{
    if (row < 0) return;
    if (row < TopRow())
        verticalScrollBar()->setValue(row);
    else if (row >= TopRow() + RowsPerPage())
        verticalScrollBar()->setValue(row - RowsPerPage() + 1);
}

int TreeArea::RowAt(int y) const
{
    return TopRow() + y / RowHeight();
}

QRect TreeArea::RowRect(int row) const
{
    return {0, (row - TopRow()) * RowHeight(), viewport()->width(), RowHeight()};
}

QRect TreeArea::ExpanderRect(int row, const ui::Node& node) const
{
    if (node.Children() == 0) return {};
    const QRect line = RowRect(row);
    return {node.Level() * Indent() - horizontalScrollBar()->value(), line.top(), Indent(), line.height()};
}

QRect TreeArea::CheckRect(int row, const ui::Node& node) const
{
    if (!tree_->CheckBoxes()) return {};
    const int size = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
    const QRect line = RowRect(row);
    const int left = (node.Level() + 1) * Indent() - horizontalScrollBar()->value() + 2;
    return {left, line.top() + (line.height() - size) / 2, size, size};
}

QRect TreeArea::LabelRect(int row, const ui::Node& node) const
{
    const QRect line = RowRect(row);
    int left = (node.Level() + 1) * Indent() - horizontalScrollBar()->value();
    if (tree_->CheckBoxes()) left += style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this) + 4;
    QFont font = this->font();
    font.setBold(node.Bold() || font.bold());
    const int width = QFontMetrics(font).horizontalAdvance(ToQt(node.TextView())) + 2 * kMargin;
    return {left, line.top(), width, line.height()};
}

// --- drawing

void TreeArea::PaintRow(QPainter& painter, int row, const ui::Node& node)
{
    const QRect label = LabelRect(row, node);
    widest_ = std::max(widest_, label.right() + horizontalScrollBar()->value() + kMargin);
    const QPalette& colours = palette();
    QColor text = colours.color(QPalette::Text);
    if (const ui::Color fore = node.ForeColor(); fore != ui::kColorWindowText && fore != tree_->ForeColor())
        text = ToQtColor(fore, colours);
    if (!isEnabled()) text = colours.color(QPalette::Disabled, QPalette::Text);
    QRect back = label;
    back.setRight(std::max(label.right(), viewport()->width()));
    if (node.Selected()) {
        const bool focus = hasFocus() || editor_ != nullptr;
        QColor highlight = colours.color(focus ? QPalette::Active : QPalette::Inactive, QPalette::Highlight);
        // Without the focus the choice fades; where the control wants it hidden it fades more, but the user who fills
        // in fields beside the tree still sees where he is.
        if (!focus) highlight.setAlphaF(tree_->HideSelection() ? 0.25f : 0.5f);
        painter.fillRect(back, highlight);
        // Grey on the bar cannot be read: a grey node's text is a paler one than that of the others.
        if (focus) text = colours.color(QPalette::HighlightedText);
        if (focus && node.ForeColor() == ui::kColorGrayText) text.setAlphaF(0.75f);
    }
    if (const QRect expander = ExpanderRect(row, node); !expander.isEmpty()) {
        QStyleOptionViewItem branch;
        branch.initFrom(this);
        branch.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver | QStyle::State_Selected);
        branch.state |= QStyle::State_Item | QStyle::State_Children;
        if (node.Expanded()) branch.state |= QStyle::State_Open;
        branch.rect = expander;
        style()->drawPrimitive(QStyle::PE_IndicatorBranch, &branch, &painter, this);
    }
    if (tree_->CheckBoxes()) {
        QStyleOptionButton box;
        box.initFrom(this);
        box.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
        box.state |= node.Checked() ? QStyle::State_On : QStyle::State_Off;
        box.rect = CheckRect(row, node);
        style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, this);
    }
    QFont font = this->font();
    font.setBold(node.Bold() || font.bold());
    painter.setFont(font);
    painter.setPen(text);
    painter.drawText(label.adjusted(kMargin, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     ToQt(node.TextView()));
}

void TreeArea::paintEvent(QPaintEvent*)
{
    if (tree_ == nullptr) return;
    QPainter painter(viewport());
    const int widest = widest_;
    const int end = std::min(rows_.Count(), RowAt(viewport()->height()) + 1);
    ui::Node node = rows_.At(TopRow());
    for (int row = TopRow(); row < end && node != nullptr; ++row, node = TreeRows::Below(node))
        PaintRow(painter, row, node);
    if (widest_ > widest)
        QMetaObject::invokeMethod(
            this, [this] { Relayout(); }, Qt::QueuedConnection);
}

void TreeArea::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    Relayout();
}

void TreeArea::scrollContentsBy(int, int)
{
    viewport()->update();
    PlaceEditor();
}

void TreeArea::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    viewport()->update();
}

void TreeArea::focusOutEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusOutEvent(event);
    viewport()->update();
}

// --- what the user does

void TreeArea::mousePressEvent(QMouseEvent* event)
{
    secondClick_.stop();
    if (event->button() != Qt::LeftButton || tree_ == nullptr) return;
    const QPoint at = event->position().toPoint();
    const int row = RowAt(at.y());
    const ui::Node node = rows_.At(row);
    if (node == nullptr) {
        user_.ClickedBeside();
    } else if (ExpanderRect(row, node).contains(at)) {
        user_.Toggled(node);
    } else if (CheckRect(row, node).contains(at)) {
        user_.Checked(node);
    } else {
        const bool again = node.Selected() && tree_->LabelEdit() == ui::tvwAutomatic && !tree_->IsEditing();
        user_.Clicked(node);
        clickedAgain_ = node;
        // Not at once: the second half of a double click is no wish to edit.
        if (again && tree_ != nullptr) secondClick_.start(QApplication::doubleClickInterval());
    }
}

void TreeArea::mouseDoubleClickEvent(QMouseEvent* event)
{
    secondClick_.stop();
    if (event->button() != Qt::LeftButton || tree_ == nullptr) return;
    const QPoint at = event->position().toPoint();
    const int row = RowAt(at.y());
    const ui::Node node = rows_.At(row);
    if (node == nullptr) return;
    if (ExpanderRect(row, node).contains(at) || CheckRect(row, node).contains(at))
        mousePressEvent(event);
    else
        user_.NodeDoubleClicked(node);
}

// --- label edit

void TreeArea::OpenEditor(const ui::Node& node)
{
    CloseEditor();
    Relayout();
    ShowRow(rows_.RowOf(node));
    editor_ = new LabelEditor(user_, viewport());
    editor_->setFont(font());
    editor_->setFrame(true);
    {
        const QSignalBlocker quiet(editor_);
        editor_->setText(ToQt(tree_->EditText()));
        editor_->selectAll();
    }
    editor_->setAccessibleName(accessibleName());
    PlaceEditor();
    editor_->show();
    editor_->setFocus(Qt::OtherFocusReason);
    connect(editor_, &QLineEdit::textChanged, this, [this] { PlaceEditor(); });
}

void TreeArea::CloseEditor()
{
    if (editor_ == nullptr) return;
    const bool hadFocus = editor_->hasFocus();
    std::exchange(editor_, nullptr)->Close();
    if (hadFocus) setFocus(Qt::OtherFocusReason);
    viewport()->update();
}

void TreeArea::PlaceEditor()
{
    if (editor_ == nullptr || tree_ == nullptr) return;
    const ui::Node node = tree_->EditedNode();
    const int row = rows_.RowOf(node);
    if (row < 0) return;
    QRect place = LabelRect(row, node);
    const int wanted = editor_->fontMetrics().horizontalAdvance(editor_->text()) + 6 * kMargin;
    place.setWidth(std::max({place.width(), wanted, editor_->fontMetrics().averageCharWidth() * 10}));
    place.setRight(std::max(place.left() + Indent(), std::min(place.right(), viewport()->width() - 1)));
    editor_->setGeometry(place.adjusted(0, -1, 0, 1));
}

}  // namespace kvx::adapters::qt
