#pragma once

#include "adapters/qt/TreeRows.h"
#include "ui/Node.h"

#include <QAbstractScrollArea>
#include <QLineEdit>
#include <QTimer>

#include <functional>

namespace kvx::ui {
class TreeView;
}

namespace kvx::adapters::qt {

class TreeArea;

/// What the user did in the tree.
class TreeUser {
public:
    virtual ~TreeUser() = default;
    virtual void Clicked(const ui::Node& node) = 0;  ///< icon or label
    virtual void ClickedBeside() = 0;
    virtual void NodeDoubleClicked(const ui::Node& node) = 0;
    virtual void Toggled(const ui::Node& node) = 0;
    virtual void Checked(const ui::Node& node) = 0;
    virtual void ClickedAgain(const ui::Node& node) = 0;  ///< the label that was selected already, some time ago
    virtual void Edited() = 0;                            ///< the editor's text or mark
    virtual void EditEnded(bool accept) = 0;
    virtual void EditLeftByTab(bool backwards) = 0;
    virtual void EditKey(int key) = 0;  ///< one that ends the edit goes down
};

/// The editor of a label: keeps every key to itself.
class LabelEditor final : public QLineEdit {
public:
    LabelEditor(TreeUser& user, QWidget* parent);
    void Close();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    TreeUser& user_;
    bool closing_ = false;
};

/// A tree drawn from the control's own nodes: all rows are equally high, and only those in sight are asked for.
class TreeArea final : public QAbstractScrollArea {
public:
    TreeArea(ui::TreeView& tree, TreeUser& user, QWidget* parent);

    TreeRows& Rows() { return rows_; }
    TreeUser& User() const { return user_; }
    /// The control; nullptr once it is gone.
    ui::TreeView* Tree() const { return tree_; }
    void TreeGone();

    void Relayout();
    int TopRow() const;
    int RowsPerPage() const;
    void ShowRow(int row);

    int RowAt(int y) const;  ///< counted over all rows; may lie behind the last
    QRect RowRect(int row) const;
    QRect LabelRect(int row, const ui::Node& node) const;
    QRect ExpanderRect(int row, const ui::Node& node) const;  ///< empty without children

    /// Puts an editor over the label, all of its text marked.
    void OpenEditor(const ui::Node& node);
    void CloseEditor();
    LabelEditor* Editor() const { return editor_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    int RowHeight() const;
    int Indent() const;
    QRect CheckRect(int row, const ui::Node& node) const;
    void PaintRow(QPainter& painter, int row, const ui::Node& node);
    void PlaceEditor();

    ui::TreeView* tree_;
    TreeUser& user_;
    TreeRows rows_;
    LabelEditor* editor_ = nullptr;
    QTimer secondClick_;
    ui::Node clickedAgain_;
    int widest_ = 0;
};

}  // namespace kvx::adapters::qt
