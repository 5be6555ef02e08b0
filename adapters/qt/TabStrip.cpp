#include "adapters/qt/TabStrip.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionTab>
#include <QStyleOptionTabWidgetFrame>

#include <algorithm>

namespace kvx::adapters::qt {

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

QRect TabStrip::TabRect(int tab) const
{
    if (!tabs_[static_cast<std::size_t>(tab)].visible) return {};
    const int rows = RowCount();
    const int row = (tab / perRow_ - current_ / perRow_ - 1 + rows) % rows;
    const int inRow = tab % perRow_;
    if (rows > 1) {
        const int left = width() * inRow / perRow_;
        return {left, row * RowHeight(), width() * (inRow + 1) / perRow_ - left, RowHeight()};
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
            // Some styles let the chosen tab run into its page.
            painter.setClipRect(option.rect.adjusted(-2, 0, 2, 1));
            style()->drawControl(QStyle::CE_TabBarTab, &option, &painter, this);
        }
}

void TabStrip::mousePressEvent(QMouseEvent* event)
{
    const int tab = TabAt(event->position().toPoint());
    if (tab >= 0 && event->button() == Qt::LeftButton && tabs_[static_cast<std::size_t>(tab)].enabled && chosen)
        chosen(tab);
}

}  // namespace kvx::adapters::qt
