#include "adapters/qt/GridArea.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionFocusRect>
#include <QStyleOptionHeader>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

constexpr int kMargin = 4;  // between a cell's edge and its text
constexpr int kEdge = 4;    // reach of the mouse around the edge of a column's head

// What a grid shows whose control is gone.
class NoSource final : public GridSource {
public:
    int Rows() const override { return 0; }
    int Columns() const override { return 0; }
    int ColumnWidth(int) const override { return 1; }
    int RowHeight(int) const override { return 1; }
    bool HasFocusFrame(int, int) const override { return false; }
    GridCell Cell(int, int) const override { return {}; }
    int CurrentRow() const override { return -1; }
    void Pressed(int, int, Qt::KeyboardModifiers) override {}
};

}  // namespace

GridArea::GridArea(GridSource& source, QWidget* parent) : QAbstractScrollArea(parent), source_(&source)
{
    viewport()->setBackgroundRole(QPalette::Base);
    viewport()->setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
}

void GridArea::SourceGone()
{
    static NoSource nothing;
    source_ = &nothing;
    resizing_ = -1;
}

// --- geometry

int GridArea::FixedWidth() const
{
    int width = 0;
    for (int column = 0; column < source_->FixedColumns(); ++column)
        width += source_->ColumnWidth(column);
    return width;
}

int GridArea::FixedHeight() const
{
    int height = 0;
    for (int row = 0; row < source_->FixedRows(); ++row)
        height += source_->RowHeight(row);
    return height;
}

int GridArea::TopRow() const
{
    return source_->FixedRows() + verticalScrollBar()->value();
}

int GridArea::LeftColumn() const
{
    return source_->ScrollsByColumn() ? source_->FixedColumns() + horizontalScrollBar()->value()
                                      : source_->FixedColumns();
}

int GridArea::ContentWidth() const
{
    int width = 0;
    for (int column = source_->FixedColumns(); column < source_->Columns(); ++column)
        width += source_->ColumnWidth(column);
    return width;
}

int GridArea::ColumnLeft(int column) const
{
    int x = 0;
    if (column < source_->FixedColumns()) {
        for (int i = 0; i < column; ++i)
            x += source_->ColumnWidth(i);
        return x;
    }
    x = FixedWidth();
    if (!source_->ScrollsByColumn()) x -= horizontalScrollBar()->value();
    for (int i = LeftColumn(); i < column; ++i)
        x += source_->ColumnWidth(i);
    for (int i = column; i < LeftColumn(); ++i)
        x -= source_->ColumnWidth(i);
    return x;
}

int GridArea::RowTop(int row) const
{
    int y = 0;
    if (row < source_->FixedRows()) {
        for (int i = 0; i < row; ++i)
            y += source_->RowHeight(i);
        return y;
    }
    y = FixedHeight();
    const int top = TopRow();
    if (source_->UniformRows()) return y + (row - top) * source_->RowHeight(row);
    for (int i = top; i < row; ++i)
        y += source_->RowHeight(i);
    for (int i = row; i < top; ++i)
        y -= source_->RowHeight(i);
    return y;
}

// The row that stands on top when the last one is just in sight.
int GridArea::LastTopRow() const
{
    const int rows = source_->Rows();
    const int fixed = source_->FixedRows();
    if (rows <= fixed) return fixed;
    int room = viewport()->height() - FixedHeight();
    if (source_->UniformRows()) {
        const int page = std::max(1, room / std::max(1, source_->RowHeight(fixed)));
        return std::max(fixed, rows - page);
    }
    int row = rows;
    while (row > fixed && room >= source_->RowHeight(row - 1))
        room -= source_->RowHeight(--row);
    return std::clamp(row, fixed, rows - 1);
}

int GridArea::LastLeftColumn() const
{
    const int fixed = source_->FixedColumns();
    int room = viewport()->width() - FixedWidth();
    int column = source_->Columns();
    while (column > fixed && room >= source_->ColumnWidth(column - 1))
        room -= source_->ColumnWidth(--column);
    return std::clamp(column, fixed, std::max(fixed, source_->Columns() - 1));
}

int GridArea::RowsPerPage() const
{
    const int row = std::min(source_->FixedRows(), source_->Rows() - 1);
    const int height = row < 0 ? fontMetrics().height() : std::max(1, source_->RowHeight(row));
    return std::max(1, (viewport()->height() - FixedHeight()) / height);
}

void GridArea::Relayout()
{
    QScrollBar* down = verticalScrollBar();
    down->setRange(0, LastTopRow() - source_->FixedRows());
    down->setPageStep(RowsPerPage());
    down->setSingleStep(1);
    QScrollBar* across = horizontalScrollBar();
    if (source_->ScrollsByColumn()) {
        across->setRange(0, LastLeftColumn() - source_->FixedColumns());
        across->setPageStep(1);
    } else {
        const int room = viewport()->width() - FixedWidth();
        across->setRange(0, std::max(0, ContentWidth() - room));
        across->setPageStep(std::max(1, room));
        across->setSingleStep(std::max(1, fontMetrics().averageCharWidth() * 4));
    }
    viewport()->update();
}

void GridArea::ScrollToRow(int row)
{
    verticalScrollBar()->setValue(row - source_->FixedRows());
}

void GridArea::ScrollToColumn(int column)
{
    if (source_->ScrollsByColumn()) horizontalScrollBar()->setValue(column - source_->FixedColumns());
}

void GridArea::ShowRow(int row)
{
    if (row < source_->FixedRows() || row >= source_->Rows()) return;
    if (row < TopRow()) {
        ScrollToRow(row);
        return;
    }
    while (row > TopRow() && RowTop(row) + source_->RowHeight(row) > viewport()->height()) {
        const int below = source_->UniformRows() ? std::max(1, row - TopRow() - RowsPerPage() + 1) : 1;
        const int before = TopRow();
        ScrollToRow(before + below);
        if (TopRow() == before) return;
    }
}

void GridArea::ShowColumn(int column)
{
    if (column < source_->FixedColumns() || column >= source_->Columns()) return;
    const int left = ColumnLeft(column);
    const int right = left + source_->ColumnWidth(column);
    if (source_->ScrollsByColumn()) {
        if (column < LeftColumn()) ScrollToColumn(column);
        while (column > LeftColumn() && ColumnLeft(column) + source_->ColumnWidth(column) > viewport()->width()) {
            const int before = LeftColumn();
            ScrollToColumn(before + 1);
            if (LeftColumn() == before) return;
        }
    } else if (left < FixedWidth()) {
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + left - FixedWidth());
    } else if (right > viewport()->width()) {
        const int by = std::min(right - viewport()->width(), left - FixedWidth());
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + by);
    }
}

QRect GridArea::CellRect(int row, int column) const
{
    const bool rowIn = row < source_->FixedRows() || row >= TopRow();
    const bool columnIn = column < source_->FixedColumns() || column >= LeftColumn();
    if (!rowIn || !columnIn) return {};
    return {ColumnLeft(column), RowTop(row), source_->ColumnWidth(column), source_->RowHeight(row)};
}

int GridArea::RowAt(int y) const
{
    const int rows = source_->Rows();
    if (y < 0) return -1;
    int top = 0;
    for (int row = 0; row < source_->FixedRows() && row < rows; ++row) {
        top += source_->RowHeight(row);
        if (y < top) return row;
    }
    if (rows <= source_->FixedRows()) return -1;
    if (source_->UniformRows()) {
        const int row = TopRow() + (y - top) / std::max(1, source_->RowHeight(source_->FixedRows()));
        return row < rows ? row : -1;
    }
    for (int row = TopRow(); row < rows && top <= viewport()->height(); ++row) {
        top += source_->RowHeight(row);
        if (y < top) return row;
    }
    return -1;
}

int GridArea::ColumnAt(int x) const
{
    for (int column = 0; column < source_->FixedColumns(); ++column)
        if (x < ColumnLeft(column) + source_->ColumnWidth(column)) return column;
    for (int column = LeftColumn(); column < source_->Columns(); ++column)
        if (x < ColumnLeft(column) + source_->ColumnWidth(column)) return column;
    return -1;
}

QRect GridArea::CellsInSight() const
{
    const int columns = source_->Columns();
    int bottom = RowAt(viewport()->height() - 1);
    if (bottom < 0) bottom = source_->Rows() - 1;
    int right = ColumnAt(viewport()->width() - 1);
    if (right < 0) right = columns - 1;
    return QRect(QPoint(LeftColumn(), TopRow()), QPoint(right, bottom));
}

// --- drawing

QRect GridArea::CheckRect(const QRect& cell) const
{
    const int size = style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, this);
    return {cell.left() + kMargin, cell.top() + (cell.height() - size) / 2, size, size};
}

void GridArea::PaintCell(QPainter& painter, const QRect& rect, int row, int column) const
{
    if (rect.width() <= 0 || rect.height() <= 0) return;
    const GridCell cell = source_->Cell(row, column);
    QRect inner = rect.adjusted(kMargin, 0, -kMargin, 0);
    QColor text = cell.fore.isValid() ? cell.fore : palette().color(QPalette::Text);
    if (!isEnabled()) text = palette().color(QPalette::Disabled, QPalette::Text);
    if (cell.head) {
        QStyleOptionHeader head;
        head.initFrom(this);
        head.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
        head.state |= QStyle::State_Raised | QStyle::State_Horizontal;
        head.rect = rect;
        head.orientation = Qt::Horizontal;
        head.section = column;
        head.position = QStyleOptionHeader::Middle;
        painter.save();
        style()->drawControl(QStyle::CE_HeaderSection, &head, &painter, this);
        painter.restore();
        text = palette().color(QPalette::ButtonText);
    } else if (cell.selected) {
        const QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
        painter.fillRect(rect, palette().color(group, QPalette::Highlight));
        text = palette().color(group, QPalette::HighlightedText);
    } else if (cell.back.isValid()) {
        painter.fillRect(rect, cell.back);
    }
    if (cell.check.has_value()) {
        QStyleOptionButton box;
        box.initFrom(this);
        box.state &= ~(QStyle::State_HasFocus | QStyle::State_MouseOver);
        box.state |= *cell.check ? QStyle::State_On : QStyle::State_Off;
        box.rect = CheckRect(rect);
        style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &box, &painter, this);
        inner.setLeft(box.rect.right() + kMargin);
    }
    if (source_->GridLines() && !cell.head) {
        QColor line = palette().color(QPalette::Text);
        line.setAlphaF(0.15f);
        painter.setPen(line);
        painter.drawLine(rect.topRight(), rect.bottomRight());
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
    }
    QFont font = this->font();
    font.setBold(cell.bold || font.bold());
    painter.setFont(font);
    painter.setPen(text);
    const QString shown = painter.fontMetrics().elidedText(cell.text, Qt::ElideRight, inner.width());
    painter.drawText(inner, static_cast<int>(cell.alignment) | Qt::TextSingleLine, shown);
    if (hasFocus() && source_->HasFocusFrame(row, column)) {
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect = rect;
        focus.state |= QStyle::State_KeyboardFocusChange;
        focus.backgroundColor = palette().color(QPalette::Base);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, this);
    }
}

void GridArea::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    const int width = viewport()->width();
    const int height = viewport()->height();
    const int fixedRows = std::min(source_->FixedRows(), source_->Rows());
    const int fixedColumns = std::min(source_->FixedColumns(), source_->Columns());

    const auto paintRow = [&](int row, int y) {
        const int rowHeight = source_->RowHeight(row);
        // Scrolled columns first; the fixed ones cover what slides below them.
        painter.setClipRect(FixedWidth(), y, width - FixedWidth(), rowHeight);
        int x = ColumnLeft(LeftColumn());
        for (int column = LeftColumn(); column < source_->Columns() && x < width; ++column) {
            const int columnWidth = source_->ColumnWidth(column);
            if (x + columnWidth > FixedWidth()) PaintCell(painter, {x, y, columnWidth, rowHeight}, row, column);
            x += columnWidth;
        }
        painter.setClipRect(0, y, width, rowHeight);
        for (int column = 0; column < fixedColumns; ++column)
            PaintCell(painter, {ColumnLeft(column), y, source_->ColumnWidth(column), rowHeight}, row, column);
    };
    int y = 0;
    for (int row = 0; row < fixedRows; ++row) {
        paintRow(row, y);
        y += source_->RowHeight(row);
    }
    for (int row = TopRow(); row < source_->Rows() && y < height; ++row) {
        paintRow(row, y);
        y += source_->RowHeight(row);
    }
}

// --- what the user does

void GridArea::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    Relayout();
}

void GridArea::scrollContentsBy(int, int)
{
    viewport()->update();
    source_->Scrolled();
}

int GridArea::EdgeAt(const QPoint& point) const
{
    const int row = RowAt(point.y());
    if (row < 0 || row >= source_->FixedRows()) return -1;
    for (int column = 0; column < source_->Columns(); ++column) {
        if (column >= source_->FixedColumns() && column < LeftColumn()) continue;
        const int right = ColumnLeft(column) + source_->ColumnWidth(column);
        if (std::abs(point.x() - right) <= kEdge && source_->CanResize(column)) return column;
    }
    return -1;
}

void GridArea::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = event->position().toPoint();
    resizing_ = EdgeAt(at);
    if (resizing_ >= 0) {
        resizeFrom_ = at.x() - source_->ColumnWidth(resizing_);
        return;
    }
    const int row = RowAt(at.y());
    const int column = ColumnAt(at.x());
    if (row < 0 || column < 0) return;
    const GridCell cell = source_->Cell(row, column);
    if (cell.check.has_value() && CheckRect(CellRect(row, column)).contains(at))
        source_->CheckPressed(row);
    else if (row < source_->FixedRows())
        source_->HeadPressed(column);
    else
        source_->Pressed(row, column, event->modifiers());
}

void GridArea::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = event->position().toPoint();
    if (resizing_ >= 0) {
        source_->Resized(resizing_, std::max(8, at.x() - resizeFrom_));
        return;
    }
    if (event->buttons() == Qt::NoButton) viewport()->setCursor(EdgeAt(at) >= 0 ? Qt::SplitHCursor : Qt::ArrowCursor);
}

void GridArea::mouseReleaseEvent(QMouseEvent*)
{
    resizing_ = -1;
}

}  // namespace kvx::adapters::qt
