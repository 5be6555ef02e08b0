#include "adapters/qt/HostObject.h"
#include "adapters/qt/HostObjects.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include <algorithm>

namespace kvx::adapters::qt {
namespace {

using basic::Variant;

// Where AddItem puts an item: at its index argument, else at the end. @throws Error 5: beyond the end
int InsertPosition(std::span<Variant> args, int count)
{
    if (args.size() < 2 || args[1].IsEmpty()) return count;
    const int index = basic::CLng(args[1]);
    if (index < 0 || index > count) basic::Raise(basic::kErrInvalidCall);
    return index;
}

int RemovePosition(std::span<Variant> args, int count)
{
    const int index = args.empty() ? -1 : basic::CLng(args[0]);
    if (index < 0 || index >= count) basic::Raise(basic::kErrInvalidCall);
    return index;
}

int NewListIndex(const Variant& value, int count)
{
    const int index = basic::CLng(value);
    if (index < -1 || index >= count) basic::Raise(basic::kErrInvalidProperty);
    return index;
}

int DataIndex(Args args, int count)
{
    const int index = IndexOf(args);
    if (index < 0 || index >= count) basic::Raise(basic::kErrInvalidIndex);
    return index;
}

Variant NewIndexOf(const QWidget& widget)
{
    const QVariant index = widget.property(kNewIndexProperty);
    return index.isValid() ? index.toInt() : -1;
}

// --- ComboBox. Qt selects the first item that comes in and a neighbour of the one that goes; the classic list keeps
//     "none", so the index is put back without a signal.

Variant AddToCombo(QComboBox& box, std::span<Variant> args)
{
    const QSignalBlocker quiet(box);
    const int index = InsertPosition(args, box.count());
    const int before = box.currentIndex();
    const QString typed = box.isEditable() ? box.currentText() : QString();
    box.insertItem(index, args.empty() ? QString() : TextOf(args[0]), 0);
    box.setCurrentIndex(before >= index ? before + 1 : before);
    if (box.isEditable()) box.setEditText(typed);
    box.setProperty(kNewIndexProperty, index);
    return {};
}

Variant RemoveFromCombo(QComboBox& box, std::span<Variant> args)
{
    const QSignalBlocker quiet(box);
    const int index = RemovePosition(args, box.count());
    const int before = box.currentIndex();
    const QString typed = box.isEditable() && before != index ? box.currentText() : QString();
    box.removeItem(index);
    box.setCurrentIndex(before == index ? -1 : before > index ? before - 1 : before);
    if (box.isEditable()) box.setEditText(typed);
    box.setProperty(kNewIndexProperty, -1);
    return {};
}

void PutComboText(QComboBox& box, const Variant& value, Args)
{
    const QString text = TextOf(value);
    if (box.isEditable()) {
        box.setEditText(text);
        return;
    }
    const int index = box.findText(text, Qt::MatchFixedString);
    if (index < 0) basic::Raise(basic::kErrReadOnlyProperty);
    box.setCurrentIndex(index);
}

// Of a box with an edit field only; a plain list has no caret.
QLineEdit& EditField(QComboBox& box)
{
    if (box.lineEdit() == nullptr) basic::Raise(basic::kErrInvalidCall);
    return *box.lineEdit();
}

// clang-format off
constexpr auto kGetComboText = [](QComboBox& w, Args) -> Variant { return FromQt(w.currentText()); };
constexpr basic::Member<QComboBox> kComboBox[] = {
    {.name = "Text", .get = kGetComboText, .put = PutComboText},
    {.name = "", .get = kGetComboText, .put = PutComboText},
    {.name = "AddItem", .call = AddToCombo},
    {.name = "RemoveItem", .call = RemoveFromCombo},
    {.name = "Clear", .call = [](QComboBox& w, std::span<Variant>) -> Variant {
        w.clear();
        w.clearEditText();
        w.setProperty(kNewIndexProperty, -1);
        return {};
    }},
    {.name = "List",
     .get = [](QComboBox& w, Args args) -> Variant { return FromQt(w.itemText(IndexOf(args))); },
     .put = [](QComboBox& w, const Variant& value, Args args) {
         w.setItemText(DataIndex(args, w.count()), TextOf(value));
     }},
    {.name = "ListCount", .get = [](QComboBox& w, Args) -> Variant { return w.count(); }},
    {.name = "ListIndex",
     .get = [](QComboBox& w, Args) -> Variant { return w.currentIndex(); },
     .put = [](QComboBox& w, const Variant& value, Args) {
         w.setCurrentIndex(NewListIndex(value, w.count()));
         if (w.isEditable() && w.currentIndex() < 0) w.clearEditText();
     }},
    {.name = "NewIndex", .get = [](QComboBox& w, Args) -> Variant { return NewIndexOf(w); }},
    {.name = "ItemData",
     .get = [](QComboBox& w, Args args) -> Variant { return w.itemData(DataIndex(args, w.count())).toInt(); },
     .put = [](QComboBox& w, const Variant& value, Args args) {
         w.setItemData(DataIndex(args, w.count()), basic::CLng(value));
     }},
    {.name = "SelStart",
     .get = [](QComboBox& w, Args) -> Variant { return EditField(w).cursorPosition(); },
     .put = [](QComboBox& w, const Variant& value, Args) { EditField(w).setCursorPosition(basic::CLng(value)); }},
    {.name = "SelLength",
     .get = [](QComboBox& w, Args) -> Variant {
         return static_cast<std::int32_t>(EditField(w).selectedText().size());
     },
     .put = [](QComboBox& w, const Variant& value, Args) {
         EditField(w).setSelection(EditField(w).cursorPosition(), basic::CLng(value));
     }},
};
// clang-format on

// --- ListBox

bool TakesSeveral(const QListWidget& list)
{
    return list.selectionMode() != QAbstractItemView::SingleSelection &&
           list.selectionMode() != QAbstractItemView::NoSelection;
}

void PutListIndex(QListWidget& list, const Variant& value, Args)
{
    const int index = NewListIndex(value, list.count());
    if (TakesSeveral(list)) {
        list.setCurrentRow(index, QItemSelectionModel::NoUpdate);
        return;
    }
    list.setCurrentRow(index);
    if (index < 0) list.clearSelection();
}

Variant AddToList(QListWidget& list, std::span<Variant> args)
{
    const int index = InsertPosition(args, list.count());
    auto* item = new QListWidgetItem(args.empty() ? QString() : TextOf(args[0]));
    item->setData(Qt::UserRole, 0);
    list.insertItem(index, item);
    list.setProperty(kNewIndexProperty, list.row(item));  // a sorted list decides itself
    return {};
}

Variant RemoveFromList(QListWidget& list, std::span<Variant> args)
{
    const int index = RemovePosition(args, list.count());
    const bool wasCurrent = list.currentRow() == index;
    const QSignalBlocker quiet(list);
    if (wasCurrent) list.setCurrentRow(-1, QItemSelectionModel::NoUpdate);
    delete list.takeItem(index);
    if (wasCurrent && !TakesSeveral(list)) list.setCurrentRow(-1);
    list.setProperty(kNewIndexProperty, -1);
    return {};
}

void PutSelected(QListWidget& list, const Variant& value, Args args)
{
    const int index = DataIndex(args, list.count());
    const bool select = basic::CBool(value);
    if (TakesSeveral(list))
        list.item(index)->setSelected(select);
    else if (select)
        list.setCurrentRow(index);
    else if (list.currentRow() == index)
        list.setCurrentRow(-1);
}

// clang-format off
constexpr auto kGetListText = [](QListWidget& w, Args) -> Variant {
    return w.currentItem() == nullptr ? std::string() : FromQt(w.currentItem()->text());
};
constexpr basic::Member<QListWidget> kListBox[] = {
    {.name = "Text", .get = kGetListText},
    {.name = "", .get = kGetListText},
    {.name = "AddItem", .call = AddToList},
    {.name = "RemoveItem", .call = RemoveFromList},
    {.name = "Clear", .call = [](QListWidget& w, std::span<Variant>) -> Variant {
        const QSignalBlocker quiet(w);
        w.clear();
        w.setProperty(kNewIndexProperty, -1);
        return {};
    }},
    {.name = "List",
     .get = [](QListWidget& w, Args args) -> Variant {
         const QListWidgetItem* item = w.item(IndexOf(args));
         return item == nullptr ? std::string() : FromQt(item->text());
     },
     .put = [](QListWidget& w, const Variant& value, Args args) {
         w.item(DataIndex(args, w.count()))->setText(TextOf(value));
     }},
    {.name = "ListCount", .get = [](QListWidget& w, Args) -> Variant { return w.count(); }},
    {.name = "ListIndex",
     .get = [](QListWidget& w, Args) -> Variant { return w.currentRow(); },
     .put = PutListIndex},
    {.name = "NewIndex", .get = [](QListWidget& w, Args) -> Variant { return NewIndexOf(w); }},
    {.name = "ItemData",
     .get = [](QListWidget& w, Args args) -> Variant {
         return w.item(DataIndex(args, w.count()))->data(Qt::UserRole).toInt();
     },
     .put = [](QListWidget& w, const Variant& value, Args args) {
         w.item(DataIndex(args, w.count()))->setData(Qt::UserRole, basic::CLng(value));
     }},
    {.name = "Selected",
     .get = [](QListWidget& w, Args args) -> Variant { return w.item(DataIndex(args, w.count()))->isSelected(); },
     .put = PutSelected},
    {.name = "SelCount",
     .get = [](QListWidget& w, Args) -> Variant { return static_cast<std::int32_t>(w.selectedItems().size()); }},
    {.name = "TopIndex",
     .get = [](QListWidget& w, Args) -> Variant { return std::max(0, w.indexAt(QPoint(1, 1)).row()); },
     .put = [](QListWidget& w, const Variant& value, Args) {
         const int index = basic::CLng(value);
         if (index < 0 || index >= w.count()) basic::Raise(basic::kErrInvalidProperty);
         w.scrollToItem(w.item(index), QAbstractItemView::PositionAtTop);
     }},
};
// clang-format on

}  // namespace

basic::ObjectRef Wrap(QComboBox* widget)
{
    if (widget == nullptr) return {};
    return std::make_shared<HostObject<QComboBox>>(widget, "ComboBox", kComboBox);
}

basic::ObjectRef Wrap(QListWidget* widget)
{
    if (widget == nullptr) return {};
    return std::make_shared<HostObject<QListWidget>>(widget, "ListBox", kListBox);
}

}  // namespace kvx::adapters::qt
