#include "adapters/qt/HostObject.h"
#include "adapters/qt/HostObjects.h"
#include "ui/Constants.h"

#include <QHeaderView>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <vector>

// A QTreeWidget stands for two kinds of the classic platform: with a header it is a list view in report style, without
// one a tree view. Keys and tags are kept at the items; the widget keeps their order.
namespace kvx::adapters::qt {
namespace {

using basic::Variant;

constexpr int kKeyRole = Qt::UserRole;
constexpr int kTagRole = Qt::UserRole + 1;

enum class Kind : std::uint8_t { Column, ListItem, Node };

// Items of a kind in their order; nodes in the order of display.
std::vector<QTreeWidgetItem*> Items(QTreeWidget& tree)
{
    std::vector<QTreeWidgetItem*> items;
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it)
        items.push_back(*it);
    return items;
}

int CountOf(QTreeWidget& tree, Kind kind)
{
    if (kind == Kind::Column) return tree.columnCount();
    if (kind == Kind::ListItem) return tree.topLevelItemCount();
    return static_cast<int>(Items(tree).size());
}

QTreeWidgetItem* ItemAt(QTreeWidget& tree, Kind kind, int position)
{
    if (kind == Kind::ListItem) return tree.topLevelItem(position);
    return Items(tree)[static_cast<std::size_t>(position)];
}

QString KeyAt(QTreeWidget& tree, Kind kind, int position)
{
    if (kind == Kind::Column) return tree.headerItem()->data(position, kKeyRole).toString();
    return ItemAt(tree, kind, position)->data(0, kKeyRole).toString();
}

// Place of a key, -1 = none. An empty key is nobody's.
int PositionOfKey(QTreeWidget& tree, Kind kind, const QString& key)
{
    const int count = CountOf(tree, kind);
    for (int i = 0; i < count && !key.isEmpty(); ++i)
        if (KeyAt(tree, kind, i) == key) return i;
    return -1;
}

// Index (from 1) or key of an element. @throws Error 35600: no such index, 35601: no such key
int Position(QTreeWidget& tree, Kind kind, const Variant& which)
{
    if (which.IsText()) {
        const int position = PositionOfKey(tree, kind, TextOf(which));
        if (position < 0) basic::Raise(basic::kErrNodeNotFound);
        return position;
    }
    const int index = basic::CLng(which);
    if (index < 1 || index > CountOf(tree, kind)) basic::Raise(basic::kErrNodeIndex);
    return index - 1;
}

void CheckNewKey(QTreeWidget& tree, Kind kind, const QString& key)
{
    if (PositionOfKey(tree, kind, key) >= 0) basic::Raise(basic::kErrNodeKeyExists);
    if (!key.isEmpty() && basic::IsNumeric(FromQt(key))) basic::Raise(basic::kErrNodeKeyInvalid);
}

Variant TextArgument(Args args, std::size_t index)
{
    return index < args.size() && !args[index].IsEmpty() ? args[index] : Variant("");
}

// One column. It is addressed by its place: the widget has no object for it.
class HostColumn final : public basic::Object {
public:
    HostColumn(QTreeWidget* tree, int column) : tree_(tree), column_(column) {}

    std::string TypeName() const override { return "ColumnHeader"; }
    Variant Get(std::string_view member, Args) override
    {
        QTreeWidget& tree = Tree();
        if (member.empty() || basic::SameName(member, "Text")) return FromQt(tree.headerItem()->text(column_));
        if (basic::SameName(member, "Key")) return FromQt(tree.headerItem()->data(column_, kKeyRole).toString());
        if (basic::SameName(member, "Tag")) return FromQt(tree.headerItem()->data(column_, kTagRole).toString());
        if (basic::SameName(member, "Index")) return column_ + 1;
        if (basic::SameName(member, "Width")) return tree.columnWidth(column_) * ui::kTwipsPerPixel;
        basic::RaiseNoMember(TypeName(), member);
    }
    void Put(std::string_view member, const Variant& value, Args) override
    {
        QTreeWidget& tree = Tree();
        if (member.empty() || basic::SameName(member, "Text")) {
            tree.headerItem()->setText(column_, TextOf(value));
        } else if (basic::SameName(member, "Key")) {
            if (TextOf(value) != KeyAt(tree, Kind::Column, column_)) CheckNewKey(tree, Kind::Column, TextOf(value));
            tree.headerItem()->setData(column_, kKeyRole, TextOf(value));
        } else if (basic::SameName(member, "Tag")) {
            tree.headerItem()->setData(column_, kTagRole, TextOf(value));
        } else if (basic::SameName(member, "Width")) {
            tree.setColumnWidth(column_, basic::CLng(value) / ui::kTwipsPerPixel);
        } else {
            basic::RaiseNoMember(TypeName(), member);
        }
    }
    Variant Call(std::string_view member, std::span<Variant> args) override { return Get(member, args); }

private:
    QTreeWidget& Tree() const
    {
        if (tree_.isNull() || column_ >= tree_->columnCount()) basic::Raise(basic::kErrObjectNotSet);
        return *tree_;
    }
    QPointer<QTreeWidget> tree_;
    int column_;
};

// A row of the list, or a node of the tree. The host may delete it at any time: it is looked for before each use.
class HostItem final : public basic::Object {
public:
    HostItem(QTreeWidget* tree, Kind kind, QTreeWidgetItem* item) : tree_(tree), kind_(kind), item_(item) {}

    std::string TypeName() const override { return kind_ == Kind::ListItem ? "ListItem" : "Node"; }
    Variant Get(std::string_view member, Args args) override
    {
        const QTreeWidgetItem& item = Item();
        if (member.empty() || basic::SameName(member, "Text")) return FromQt(item.text(0));
        if (basic::SameName(member, "Key")) return FromQt(item.data(0, kKeyRole).toString());
        if (basic::SameName(member, "Tag")) return FromQt(item.data(0, kTagRole).toString());
        if (basic::SameName(member, "Checked")) return item.checkState(0) == Qt::Checked;
        if (basic::SameName(member, "Selected")) return item.isSelected();
        if (basic::SameName(member, "Bold")) return item.font(0).bold();
        if (kind_ == Kind::Node && basic::SameName(member, "Expanded")) return item.isExpanded();
        if (kind_ == Kind::ListItem && basic::SameName(member, "SubItems")) return FromQt(item.text(SubItem(args)));
        basic::RaiseNoMember(TypeName(), member);
    }
    void Put(std::string_view member, const Variant& value, Args args) override
    {
        QTreeWidgetItem& item = Item();
        if (member.empty() || basic::SameName(member, "Text")) {
            item.setText(0, TextOf(value));
        } else if (basic::SameName(member, "Key")) {
            if (TextOf(value) != item.data(0, kKeyRole).toString()) CheckNewKey(*tree_, kind_, TextOf(value));
            item.setData(0, kKeyRole, TextOf(value));
        } else if (basic::SameName(member, "Tag")) {
            item.setData(0, kTagRole, TextOf(value));
        } else if (basic::SameName(member, "Checked")) {
            item.setCheckState(0, basic::CBool(value) ? Qt::Checked : Qt::Unchecked);
        } else if (basic::SameName(member, "Selected")) {
            item.setSelected(basic::CBool(value));
        } else if (basic::SameName(member, "Bold")) {
            QFont font = item.font(0);
            font.setBold(basic::CBool(value));
            item.setFont(0, font);
        } else if (kind_ == Kind::Node && basic::SameName(member, "Expanded")) {
            item.setExpanded(basic::CBool(value));
        } else if (kind_ == Kind::ListItem && basic::SameName(member, "SubItems")) {
            item.setText(SubItem(args), TextOf(value));
        } else {
            basic::RaiseNoMember(TypeName(), member);
        }
    }
    Variant Call(std::string_view member, std::span<Variant> args) override { return Get(member, args); }

private:
    QTreeWidgetItem& Item() const
    {
        if (!tree_.isNull())
            for (QTreeWidgetItem* item : Items(*tree_))
                if (item == item_) return *item;
        basic::Raise(basic::kErrObjectNotSet);
    }
    int SubItem(Args args) const
    {
        const int column = IndexOf(args);
        if (column < 1 || column >= tree_->columnCount()) basic::Raise(basic::kErrInvalidProperty);
        return column;
    }
    QPointer<QTreeWidget> tree_;
    Kind kind_;
    QTreeWidgetItem* item_;
};

// ColumnHeaders, ListItems or Nodes: counted from 1, found by key too.
class HostCollection final : public basic::Object {
public:
    HostCollection(QTreeWidget* tree, Kind kind) : tree_(tree), kind_(kind) {}

    std::string TypeName() const override
    {
        return kind_ == Kind::Column ? "ColumnHeaders" : kind_ == Kind::ListItem ? "ListItems" : "Nodes";
    }
    Variant Get(std::string_view member, Args args) override
    {
        QTreeWidget& tree = Tree();
        if (basic::SameName(member, "Count")) return CountOf(tree, kind_);
        if ((member.empty() || basic::SameName(member, "Item")) && !args.empty())
            return Element(Position(tree, kind_, args[0]));
        basic::RaiseNoMember(TypeName(), member);
    }
    void Put(std::string_view member, const Variant&, Args) override { basic::RaiseNoMember(TypeName(), member); }
    Variant Call(std::string_view member, std::span<Variant> args) override
    {
        QTreeWidget& tree = Tree();
        if (basic::SameName(member, "Clear")) {
            if (kind_ == Kind::Column)
                tree.setColumnCount(0);
            else
                tree.clear();
            return {};
        }
        if (basic::SameName(member, "Remove") && !args.empty()) {
            Remove(Position(tree, kind_, args[0]));
            return {};
        }
        if (basic::SameName(member, "Add") && kind_ != Kind::Node) return Add(args);
        return Get(member, args);
    }

private:
    QTreeWidget& Tree() const
    {
        if (tree_.isNull()) basic::Raise(basic::kErrObjectNotSet);
        return *tree_;
    }

    basic::ObjectRef Element(int position)
    {
        if (kind_ == Kind::Column) return std::make_shared<HostColumn>(tree_, position);
        return std::make_shared<HostItem>(tree_, kind_, ItemAt(*tree_, kind_, position));
    }

    // Columns to the right move up with their texts, widths and cells.
    void Remove(int position)
    {
        if (kind_ != Kind::Column) {
            delete ItemAt(*tree_, kind_, position);
            return;
        }
        const int last = tree_->columnCount() - 1;
        for (int column = position; column < last; ++column)
            CopyColumn(column + 1, column);
        tree_->setColumnCount(last);
    }

    void CopyColumn(int from, int to)
    {
        std::vector<QTreeWidgetItem*> items = Items(*tree_);
        items.push_back(tree_->headerItem());
        for (QTreeWidgetItem* item : items)
            for (int role : {static_cast<int>(Qt::DisplayRole), kKeyRole, kTagRole})
                item->setData(to, role, item->data(from, role));
        tree_->setColumnWidth(to, tree_->columnWidth(from));
    }

    // Add(index, key, text, width): an index left out is the end.
    basic::ObjectRef Add(Args args)
    {
        QTreeWidget& tree = *tree_;
        const int count = CountOf(tree, kind_);
        const int index = args.empty() || args[0].IsEmpty() ? count + 1 : basic::CLng(args[0]);
        if (index < 1 || index > count + 1) basic::Raise(basic::kErrNodeIndex);
        const QString key = TextOf(TextArgument(args, 1));
        CheckNewKey(tree, kind_, key);
        if (kind_ == Kind::ListItem) {
            auto* item = new QTreeWidgetItem({TextOf(TextArgument(args, 2))});
            item->setData(0, kKeyRole, key);
            tree.insertTopLevelItem(index - 1, item);
            return std::make_shared<HostItem>(&tree, kind_, item);
        }
        tree.setColumnCount(count + 1);
        for (int column = count; column >= index; --column)
            CopyColumn(column - 1, column);
        tree.headerItem()->setText(index - 1, TextOf(TextArgument(args, 2)));
        tree.headerItem()->setData(index - 1, kKeyRole, key);
        const std::int32_t width = args.size() > 3 && !args[3].IsEmpty() ? basic::CLng(args[3]) : 1440;
        tree.setColumnWidth(index - 1, width / ui::kTwipsPerPixel);
        return std::make_shared<HostColumn>(&tree, index - 1);
    }

    QPointer<QTreeWidget> tree_;
    Kind kind_;
};

// ColumnHeaders(3) is the third element, ColumnHeaders the collection.
template <Kind kKind>
Variant GetCollection(QTreeWidget& tree, Args args)
{
    auto collection = std::make_shared<HostCollection>(&tree, kKind);
    if (args.empty()) return basic::ObjectRef(std::move(collection));
    return collection->Get("", args);
}

template <Kind kKind>
Variant GetSelectedItem(QTreeWidget& tree, Args)
{
    if (tree.currentItem() == nullptr) return basic::ObjectRef();
    return basic::ObjectRef(std::make_shared<HostItem>(&tree, kKind, tree.currentItem()));
}

constexpr basic::Member<QTreeWidget> kListView[] = {
    {.name = "ColumnHeaders", .get = GetCollection<Kind::Column>},
    {.name = "ListItems", .get = GetCollection<Kind::ListItem>},
    {.name = "SelectedItem", .get = GetSelectedItem<Kind::ListItem>},
};
constexpr basic::Member<QTreeWidget> kTreeView[] = {
    {.name = "Nodes", .get = GetCollection<Kind::Node>},
    {.name = "SelectedItem", .get = GetSelectedItem<Kind::Node>},
};

}  // namespace

basic::ObjectRef Wrap(QTreeWidget* widget)
{
    if (widget == nullptr) return {};
    if (widget->isHeaderHidden()) return std::make_shared<HostObject<QTreeWidget>>(widget, "TreeView", kTreeView);
    return std::make_shared<HostObject<QTreeWidget>>(widget, "ListView", kListView);
}

}  // namespace kvx::adapters::qt
