#pragma once

#include <QAbstractScrollArea>
#include <QColor>

#include <functional>
#include <optional>

namespace kvx::adapters::qt {

/// How one cell looks.
struct GridCell {
    QString text;
    QColor back, fore;  ///< invalid = the palette's
    bool bold = false;
    bool selected = false;
    bool head = false;  ///< drawn as a head of column or row
    Qt::Alignment alignment = Qt::AlignLeft | Qt::AlignVCenter;
    std::optional<bool> check;
};

/// What a grid shows: rows and columns counted from 0, the fixed ones first. Nothing is copied into the widget; it asks
/// for the cells in sight when it paints.
class GridSource {
public:
    virtual ~GridSource() = default;
    virtual int Rows() const = 0;
    virtual int Columns() const = 0;
    virtual int FixedRows() const { return 0; }
    virtual int FixedColumns() const { return 0; }
    virtual int ColumnWidth(int column) const = 0;  ///< pixels
    virtual int RowHeight(int row) const = 0;       ///< pixels
    virtual bool UniformRows() const { return true; }
    virtual bool ScrollsByColumn() const { return false; }
    virtual bool GridLines() const { return false; }
    virtual bool HasFocusFrame(int row, int column) const = 0;
    virtual GridCell Cell(int row, int column) const = 0;
    virtual int CurrentRow() const = 0;  ///< -1 = none

    // What the user did.
    virtual void Pressed(int row, int column, Qt::KeyboardModifiers modifiers) = 0;
    virtual void CheckPressed(int row) { static_cast<void>(row); }
    virtual void HeadPressed(int column) { static_cast<void>(column); }
    virtual bool CanResize(int column) const { return static_cast<void>(column), false; }
    virtual void Resized(int column, int width) { static_cast<void>(column), static_cast<void>(width); }
    virtual void Scrolled() {}
};

/// Rows and columns of texts, drawn in the desktop's style; as quick with a million rows as with ten.
class GridArea final : public QAbstractScrollArea {
public:
    GridArea(GridSource& source, QWidget* parent);

    GridSource& Source() const { return *source_; }
    void SourceGone();  ///< the grid is empty from now on

    /// Number or size of rows or columns changed: scroll bars follow, everything is painted anew.
    void Relayout();
    /// First row and column in sight below and behind the fixed ones, counted from 0 over all.
    int TopRow() const;
    int LeftColumn() const;
    void ScrollToRow(int row);  ///< to the top, if there are enough rows
    void ScrollToColumn(int column);
    void ShowRow(int row);  ///< scrolls as little as needed
    void ShowColumn(int column);
    int RowsPerPage() const;  ///< whole rows in sight, fixed ones not counted

    QRect CellRect(int row, int column) const;  ///< within the viewport; empty when scrolled out
    int RowAt(int y) const;                     ///< -1 = none
    int ColumnAt(int x) const;                  ///< -1 = none

    /// Cells that screen readers are told of: those in sight.
    QRect CellsInSight() const;  ///< columns left .. right, rows top .. bottom

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    int FixedWidth() const;
    int FixedHeight() const;
    int ColumnLeft(int column) const;
    int RowTop(int row) const;
    int ContentWidth() const;
    int LastTopRow() const;
    int LastLeftColumn() const;
    void PaintCell(QPainter& painter, const QRect& rect, int row, int column) const;
    QRect CheckRect(const QRect& cell) const;
    int EdgeAt(const QPoint& point) const;  // column whose right edge can be dragged there, -1 = none

    GridSource* source_;
    int resizing_ = -1;
    int resizeFrom_ = 0;
};

}  // namespace kvx::adapters::qt
