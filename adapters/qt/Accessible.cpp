#include "adapters/qt/Accessible.h"

#include "adapters/qt/GridArea.h"
#include "adapters/qt/Strings.h"
#include "adapters/qt/TreeArea.h"
#include "ui/TreeView.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <map>
#include <utility>

namespace kvx::adapters::qt {
namespace {

using Place = std::pair<int, int>;  // row, column

// A widget whose cells are told one by one: those in sight, which is what a reader can point at. Rows out of sight come
// into sight when the user moves to them.
class CellsAccessible : public QAccessibleWidget {
public:
    using QAccessibleWidget::QAccessibleWidget;
    ~CellsAccessible() override { Forget(); }

    virtual QRect InSight() const = 0;  // columns across, rows down
    virtual QString CellText(Place place) const = 0;
    virtual QRect CellArea(Place place) const = 0;  // within the viewport
    virtual QAccessible::Role CellRole(Place place) const = 0;
    virtual QAccessible::State CellState(Place place) const = 0;
    virtual Place Current() const = 0;  // row -1 = none
    virtual void Press(Place place) = 0;

    QAbstractScrollArea* Area() const { return static_cast<QAbstractScrollArea*>(widget()); }

    int childCount() const override
    {
        const QRect cells = InSight();
        return cells.isValid() ? cells.width() * cells.height() : 0;
    }
    QAccessibleInterface* child(int index) const override
    {
        const QRect cells = InSight();
        if (index < 0 || index >= childCount()) return nullptr;
        return CellAt({cells.top() + index / cells.width(), cells.left() + index % cells.width()});
    }
    int IndexOf(Place place) const
    {
        const QRect cells = InSight();
        if (!cells.contains(place.second, place.first)) return -1;
        return (place.first - cells.top()) * cells.width() + place.second - cells.left();
    }
    QAccessibleInterface* focusChild() const override
    {
        const Place current = Current();
        return IndexOf(current) < 0 ? nullptr : CellAt(current);
    }
    QAccessibleInterface* childAt(int x, int y) const override
    {
        const QPoint at = Area()->viewport()->mapFromGlobal(QPoint(x, y));
        for (int i = 0; i < childCount(); ++i) {
            const QRect cells = InSight();
            const Place place{cells.top() + i / cells.width(), cells.left() + i % cells.width()};
            if (CellArea(place).contains(at)) return CellAt(place);
        }
        return nullptr;
    }
    int indexOfChild(const QAccessibleInterface* cell) const override;

protected:
    QAccessibleInterface* CellAt(Place place) const;
    void Forget()
    {
        for (const auto& [place, id] : cells_)
            QAccessible::deleteAccessibleInterface(id);
        cells_.clear();
    }

private:
    static constexpr std::size_t kRemembered = 4096;
    mutable std::map<Place, QAccessible::Id> cells_;
};

class CellAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    CellAccessible(const CellsAccessible& owner, Place place)
        : owner_(const_cast<CellsAccessible&>(owner)), place_(place)
    {
    }

    bool isValid() const override { return owner_.isValid(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return owner_.window(); }
    QAccessibleInterface* parent() const override { return &owner_; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name || kind == QAccessible::Value ? owner_.CellText(place_) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override
    {
        const QRect area = owner_.CellArea(place_);
        return area.isEmpty() ? QRect() : QRect(owner_.Area()->viewport()->mapToGlobal(area.topLeft()), area.size());
    }
    QAccessible::Role role() const override { return owner_.CellRole(place_); }
    QAccessible::State state() const override { return owner_.CellState(place_); }
    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& name) override
    {
        if (name == pressAction()) owner_.Press(place_);
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

    Place GetPlace() const { return place_; }

private:
    CellsAccessible& owner_;
    Place place_;
};

QAccessibleInterface* CellsAccessible::CellAt(Place place) const
{
    if (const auto found = cells_.find(place); found != cells_.end())
        return QAccessible::accessibleInterface(found->second);
    if (cells_.size() >= kRemembered) const_cast<CellsAccessible*>(this)->Forget();
    auto* cell = new CellAccessible(*this, place);
    cells_.emplace(place, QAccessible::registerAccessibleInterface(cell));
    return cell;
}

int CellsAccessible::indexOfChild(const QAccessibleInterface* cell) const
{
    const auto* own = dynamic_cast<const CellAccessible*>(cell);
    return own == nullptr ? -1 : IndexOf(own->GetPlace());
}

// Lists and grids.
class GridAccessible final : public CellsAccessible {
public:
    explicit GridAccessible(GridArea& area)
        : CellsAccessible(&area, area.Source().Columns() == 1 && area.Source().FixedRows() == 0 ? QAccessible::List
                                                                                                : QAccessible::Table),
          area_(area)
    {
    }
    QRect InSight() const override { return area_.CellsInSight(); }
    QString CellText(Place place) const override
    {
        if (!Exists(place)) return {};
        const GridCell cell = area_.Source().Cell(place.first, place.second);
        if (place.first < area_.Source().FixedRows() || area_.Source().FixedRows() == 0) return cell.text;
        // A cell is read with the head of its column.
        const QString head = area_.Source().Cell(0, place.second).text;
        return head.isEmpty() ? cell.text : head + QStringLiteral(": ") + cell.text;
    }
    QRect CellArea(Place place) const override
    {
        return Exists(place) ? area_.CellRect(place.first, place.second) : QRect();
    }
    QAccessible::Role CellRole(Place) const override
    {
        return role() == QAccessible::List ? QAccessible::ListItem : QAccessible::Cell;
    }
    QAccessible::State CellState(Place place) const override
    {
        QAccessible::State state;
        if (!Exists(place)) {
            state.invalid = true;
            return state;
        }
        const GridCell cell = area_.Source().Cell(place.first, place.second);
        state.selectable = state.focusable = true;
        state.selected = cell.selected;
        state.focused = area_.hasFocus() && place == Current();
        state.checkable = cell.check.has_value();
        state.checked = cell.check.value_or(false);
        return state;
    }
    Place Current() const override { return {area_.Source().CurrentRow(), area_.LeftColumn()}; }
    void Press(Place place) override
    {
        if (Exists(place)) area_.Source().Pressed(place.first, place.second, Qt::NoModifier);
    }

private:
    bool Exists(Place place) const
    {
        return place.first < area_.Source().Rows() && place.second < area_.Source().Columns();
    }
    GridArea& area_;
};

class TreeAccessible final : public CellsAccessible {
public:
    explicit TreeAccessible(TreeArea& area) : CellsAccessible(&area, QAccessible::Tree), area_(area) {}

    QRect InSight() const override
    {
        if (area_.Tree() == nullptr) return {};
        const int last = std::min(area_.Rows().Count(), area_.TopRow() + area_.RowsPerPage()) - 1;
        return QRect(QPoint(0, area_.TopRow()), QPoint(0, last));
    }
    QString CellText(Place place) const override
    {
        const ui::Node node = NodeAt(place);
        return node == nullptr ? QString() : ToQt(node.TextView());
    }
    QRect CellArea(Place place) const override
    {
        const ui::Node node = NodeAt(place);
        return node == nullptr ? QRect() : area_.LabelRect(place.first, node);
    }
    QAccessible::Role CellRole(Place) const override { return QAccessible::TreeItem; }
    QAccessible::State CellState(Place place) const override
    {
        QAccessible::State state;
        const ui::Node node = NodeAt(place);
        if (node == nullptr) {
            state.invalid = true;
            return state;
        }
        state.selectable = state.focusable = true;
        state.selected = node.Selected();
        state.focused = node.Selected() && area_.hasFocus();
        state.expandable = node.Children() > 0;
        state.expanded = state.expandable && node.Expanded();
        state.collapsed = state.expandable && !node.Expanded();
        state.checkable = area_.Tree()->CheckBoxes();
        state.checked = state.checkable && node.Checked();
        return state;
    }
    Place Current() const override
    {
        return {area_.Tree() == nullptr ? -1 : area_.Rows().RowOf(area_.Tree()->SelectedItem()), 0};
    }
    void Press(Place place) override
    {
        const ui::Node node = NodeAt(place);
        if (node != nullptr) area_.User().Clicked(node);
    }

private:
    ui::Node NodeAt(Place place) const { return area_.Tree() == nullptr ? ui::Node{} : area_.Rows().At(place.first); }
    TreeArea& area_;
};

QAccessibleInterface* Make(const QString&, QObject* object)
{
    if (auto* grid = dynamic_cast<GridArea*>(object)) return new GridAccessible(*grid);
    if (auto* tree = dynamic_cast<TreeArea*>(object)) return new TreeAccessible(*tree);
    return nullptr;
}

}  // namespace

void InstallAccessibility()
{
    static bool installed = false;
    if (std::exchange(installed, true)) return;
    QAccessible::installFactory(Make);
}

void AnnounceCurrentRow(QWidget& area)
{
    if (!QAccessible::isActive() || !area.hasFocus()) return;
    const auto* cells = dynamic_cast<const CellsAccessible*>(QAccessible::queryAccessibleInterface(&area));
    if (cells == nullptr) return;
    const int index = cells->IndexOf(cells->Current());
    if (index < 0) return;
    QAccessibleEvent event(&area, QAccessible::Focus);
    event.setChild(index);
    QAccessible::updateAccessibility(&event);
}

}  // namespace kvx::adapters::qt
