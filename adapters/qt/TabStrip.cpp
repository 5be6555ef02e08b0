#include "adapters/qt/TabStrip.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionTab>
#include <QStyleOptionTabWidgetFrame>
#include <QToolTip>

#include <algorithm>
#include <numeric>

namespace kvx::adapters::qt {

namespace {
constexpr int kTabPadding = 12;  // pixels, both sides of the words
constexpr int kNarrowest = 75;   // percent: narrower words cannot be read
}  // namespace

TabStrip::TabStrip(QWidget* parent) : QWidget(parent) {}

void TabStrip::SetTabs(std::vector<Tab> tabs, int perRow, int current)
{
    tabs_ = std::move(tabs);
    perRow_ = std::max(1, perRow);
    current_ = current;
    QStringList names;
    for (const Tab& tab : tabs_)
        if (tab.visible) names.push_back(tab.caption);
    setAccessibleDescription(names.join(QStringLiteral(", ")));
    if (current >= 0 && current < static_cast<int>(tabs_.size()))
        setAccessibleName(tabs_[static_cast<std::size_t>(current)].caption);
    update();
}

int TabStrip::RowHeight() const
{
    return fontMetrics().height() + 10;
}

int TabStrip::RowCount() const
{
    return std::max(1, (static_cast<int>(tabs_.size()) + perRow_ - 1) / perRow_);
}

// Evenly, as long as all words fit; else by what each needs, with words drawn narrower where the row is too short.
TabStrip::RowLayout TabStrip::LayOutRow(int row) const
{
    const int first = row * perRow_;
    const int count = std::min(perRow_, static_cast<int>(tabs_.size()) - first);
    const int room = width() * count / perRow_;
    std::vector<int> words;
    for (int i = 0; i < count; ++i)
        words.push_back(fontMetrics().horizontalAdvance(tabs_[static_cast<std::size_t>(first + i)].caption));
    const int all = std::accumulate(words.begin(), words.end(), 0);
    const int padding = kTabPadding * count;

    RowLayout layout;
    const bool even = *std::ranges::max_element(words) + kTabPadding <= width() / perRow_;
    if (!even && all + padding > room) layout.stretch = std::max(kNarrowest, 100 * (room - padding) / std::max(1, all));
    const int spare = room - padding - all * layout.stretch / 100;
    int before = 0;
    for (int i = 0; i <= count; ++i) {
        layout.edges.push_back(even ? width() * i / perRow_
                                    : kTabPadding * i + before * layout.stretch / 100 + spare * i / count);
        if (i < count) before += words[static_cast<std::size_t>(i)];
    }
    return layout;
}

QRect TabStrip::TabRect(int tab) const
{
    if (!tabs_[static_cast<std::size_t>(tab)].visible) return {};
    const int rows = RowCount();
    const int row = (tab / perRow_ - current_ / perRow_ - 1 + rows) % rows;
    if (rows > 1) {
        const std::vector<int> edges = LayOutRow(tab / perRow_).edges;
        const auto inRow = static_cast<std::size_t>(tab % perRow_);
        return {edges[inRow], row * RowHeight(), edges[inRow + 1] - edges[inRow], RowHeight()};
    }
    // A single row: as wide as the words need, shared evenly when there are too many.
    int left = 2;
    int wanted = 2;
    for (int i = 0; i < static_cast<int>(tabs_.size()); ++i) {
        const int width = fontMetrics().horizontalAdvance(tabs_[static_cast<std::size_t>(i)].caption) + 26;
        if (i < tab) left += width;
        wanted += width;
    }
    const int own = fontMetrics().horizontalAdvance(tabs_[static_cast<std::size_t>(tab)].caption) + 26;
    if (wanted <= width()) return {left, 0, own, RowHeight()};
    const int count = static_cast<int>(tabs_.size());
    return {width() * tab / count, 0, width() / count, RowHeight()};
}

int TabStrip::TabAt(const QPoint& point) const
{
    for (int tab = 0; tab < static_cast<int>(tabs_.size()); ++tab)
        if (TabRect(tab).contains(point)) return tab;
    return -1;
}

void TabStrip::InitOption(QStyleOptionTab& option, int tab) const
{
    const Tab& info = tabs_[static_cast<std::size_t>(tab)];
    option.initFrom(this);
    option.state &= ~QStyle::State_HasFocus;
    option.rect = TabRect(tab);
    option.text = info.caption;
    option.shape = QTabBar::RoundedNorth;
    option.position = QStyleOptionTab::Middle;
    if (!info.enabled) option.state &= ~QStyle::State_Enabled;
    if (tab == current_) {
        option.state |= QStyle::State_Selected;
        if (hasFocus()) option.state |= QStyle::State_HasFocus;
    }
}

void TabStrip::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    frame.rect = rect().adjusted(0, RowCount() * RowHeight() - 1, 0, 0);
    frame.shape = QTabBar::RoundedNorth;
    frame.lineWidth = 1;
    style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
    // The chosen one last: it overlaps its neighbours.
    for (const bool chosenOne : {false, true})
        for (int tab = 0; tab < static_cast<int>(tabs_.size()); ++tab) {
            if ((tab == current_) != chosenOne || !tabs_[static_cast<std::size_t>(tab)].visible) continue;
            QStyleOptionTab option;
            InitOption(option, tab);
            QFont narrow = font();
            if (RowCount() > 1) narrow.setStretch(LayOutRow(tab / perRow_).stretch);
            painter.setFont(narrow);
            option.fontMetrics = QFontMetrics(narrow);
            // Some styles let the chosen tab run into its page.
            painter.setClipRect(option.rect.adjusted(-2, 0, 2, 1));
            style()->drawControl(QStyle::CE_TabBarTabShape, &option, &painter, this);
            // The words by our own hand: styles leave more room at their sides than a full row has.
            const QRect inside = option.rect.adjusted(3, 1, -3, 0);
            style()->drawItemText(&painter, inside, Qt::AlignCenter | Qt::TextShowMnemonic, option.palette,
                                  isEnabled() && tabs_[static_cast<std::size_t>(tab)].enabled,
                                  option.fontMetrics.elidedText(option.text, Qt::ElideRight, inside.width()),
                                  QPalette::WindowText);
            if (!option.state.testFlag(QStyle::State_HasFocus)) continue;
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.rect = inside.adjusted(0, 3, 0, -3);
            style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
        }
}

// A caption that was cut can still be read.
bool TabStrip::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int tab = TabAt(help->pos());
    QToolTip::showText(help->globalPos(), tab < 0 ? QString() : tabs_[static_cast<std::size_t>(tab)].caption, this);
    return true;
}

void TabStrip::mousePressEvent(QMouseEvent* event)
{
    const int tab = TabAt(event->position().toPoint());
    if (tab >= 0 && event->button() == Qt::LeftButton && tabs_[static_cast<std::size_t>(tab)].enabled && chosen)
        chosen(tab);
}

}  // namespace kvx::adapters::qt
