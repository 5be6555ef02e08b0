#include "adapters/qt/HostObjects.h"
#include "basic/Convert.h"
#include "basic/Error.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTreeWidget>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace kvx::adapters::qt {
namespace {

using basic::ObjectRef;
using basic::Variant;

std::string Text(const Variant& value)
{
    return basic::ToText(value);
}
std::int32_t Number(const Variant& value)
{
    return basic::CLng(value);
}

Variant Get(const ObjectRef& object, std::string_view member, std::vector<Variant> args = {})
{
    return object->Get(member, args);
}
void Put(const ObjectRef& object, std::string_view member, const Variant& value, std::vector<Variant> args = {})
{
    object->Put(member, value, args);
}
void Call(const ObjectRef& object, std::string_view member, std::vector<Variant> args = {})
{
    object->Call(member, args);
}
std::int32_t ErrorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const basic::Error& error) {
        return error.Number;
    }
    return 0;
}

TEST(HostLineEdit, TextIsReadAndWrittenUnderAnyCase)
{
    QLineEdit box(QString::fromUtf8("Eiche"));
    const ObjectRef object = Wrap(&box);
    EXPECT_EQ(Text(Get(object, "TEXT")), "Eiche");
    Put(object, "text", "Weißbuche");
    EXPECT_EQ(box.text(), QString::fromUtf8("Weißbuche"));
    EXPECT_EQ(object->TypeName(), "TextBox");
}

TEST(HostLineEdit, TheTagIsSharedByAllWrappersOfTheBox)
{
    QLineEdit box;
    Put(Wrap(&box), "Tag", "17");
    EXPECT_EQ(Text(Get(Wrap(&box), "Tag")), "17");
}

TEST(HostLineEdit, TheSelectionCanBeSet)
{
    QLineEdit box(QStringLiteral("Nordhang"));
    const ObjectRef object = Wrap(&box);
    Put(object, "SelStart", std::int32_t{4});
    Put(object, "SelLength", std::int32_t{99});
    EXPECT_EQ(box.selectedText(), QStringLiteral("hang"));
    EXPECT_EQ(ErrorOf([&] { Put(object, "SelStart", std::int32_t{-1}); }), basic::kErrInvalidProperty);
}

TEST(HostLineEdit, AMemberThatTextBoxesLackIsError438)
{
    QLineEdit box;
    EXPECT_EQ(ErrorOf([&] { Get(Wrap(&box), "ListCount"); }), basic::kErrMemberNotFound);
    EXPECT_EQ(ErrorOf([&] { Call(Wrap(&box), "AddItem", {"x"}); }), basic::kErrMemberNotFound);
}

TEST(HostLineEdit, ABoxThatIsGoneIsError91)
{
    auto box = std::make_unique<QLineEdit>();
    const ObjectRef object = Wrap(box.get());
    box.reset();
    EXPECT_EQ(ErrorOf([&] { Get(object, "Text"); }), basic::kErrObjectNotSet);
    EXPECT_EQ(ErrorOf([&] { Put(object, "Text", "x"); }), basic::kErrObjectNotSet);
}

TEST(HostLineEdit, NoWidgetIsNothing)
{
    EXPECT_EQ(Wrap(static_cast<QLineEdit*>(nullptr)), nullptr);
}

TEST(HostLineEdit, ADisabledBoxRefusesTheFocus)
{
    QLineEdit box;
    const ObjectRef object = Wrap(&box);
    Put(object, "Enabled", false);
    EXPECT_FALSE(box.isEnabled());
    EXPECT_EQ(ErrorOf([&] { Call(object, "SetFocus"); }), basic::kErrInvalidCall);
}

TEST(HostTextEdit, LinesEndInBothCharacters)
{
    QPlainTextEdit box(QStringLiteral("a\nb"));
    const ObjectRef object = Wrap(&box);
    EXPECT_EQ(Text(Get(object, "Text")), "a\r\nb");
    Put(object, "Text", "c\r\nd");
    EXPECT_EQ(box.toPlainText(), QStringLiteral("c\nd"));
}

TEST(HostComboBox, ItemsComeInWithoutBeingChosen)
{
    QComboBox box;
    const ObjectRef object = Wrap(&box);
    Call(object, "AddItem", {"Buche"});
    Call(object, "AddItem", {"Ahorn", std::int32_t{0}});
    EXPECT_EQ(Number(Get(object, "ListIndex")), -1);
    EXPECT_EQ(Number(Get(object, "NewIndex")), 0);
    EXPECT_EQ(Number(Get(object, "ListCount")), 2);
    EXPECT_EQ(Text(Get(object, "List", {std::int32_t{0}})), "Ahorn");
    EXPECT_EQ(Text(Get(object, "List", {std::int32_t{9}})), "");
}

TEST(HostComboBox, ANumberIsKeptWithEachItem)
{
    QComboBox box;
    const ObjectRef object = Wrap(&box);
    Call(object, "AddItem", {"Buche"});
    EXPECT_EQ(Number(Get(object, "ItemData", {std::int32_t{0}})), 0);
    Put(object, "ItemData", std::int32_t{4711}, {Get(object, "NewIndex")});
    EXPECT_EQ(Number(Get(object, "ItemData", {std::int32_t{0}})), 4711);
    EXPECT_EQ(ErrorOf([&] { Get(object, "ItemData", {std::int32_t{1}}); }), basic::kErrInvalidIndex);
}

TEST(HostComboBox, RemovingTheChosenItemLeavesNoChoice)
{
    QComboBox box;
    box.addItems({QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    const ObjectRef object = Wrap(&box);
    Put(object, "ListIndex", std::int32_t{1});
    Call(object, "RemoveItem", {std::int32_t{1}});
    EXPECT_EQ(box.currentIndex(), -1);
    Put(object, "ListIndex", std::int32_t{1});
    Call(object, "RemoveItem", {std::int32_t{0}});
    EXPECT_EQ(box.currentIndex(), 0);
    EXPECT_EQ(box.currentText(), QStringLiteral("c"));
    EXPECT_EQ(ErrorOf([&] { Call(object, "RemoveItem", {std::int32_t{5}}); }), basic::kErrInvalidCall);
}

TEST(HostComboBox, TheTextOfAListMustBeAnItem)
{
    QComboBox box;
    box.addItems({QStringLiteral("Buche"), QStringLiteral("Eiche")});
    const ObjectRef object = Wrap(&box);
    Put(object, "Text", "EICHE");
    EXPECT_EQ(box.currentIndex(), 1);
    EXPECT_EQ(ErrorOf([&] { Put(object, "Text", "Tanne"); }), basic::kErrReadOnlyProperty);
    box.setEditable(true);
    Put(object, "Text", "Tanne");
    EXPECT_EQ(box.currentText(), QStringLiteral("Tanne"));
}

TEST(HostComboBox, ClearEmptiesTheTextToo)
{
    QComboBox box;
    box.setEditable(true);
    box.addItem(QStringLiteral("a"));
    Call(Wrap(&box), "Clear");
    EXPECT_EQ(box.count(), 0);
    EXPECT_EQ(box.currentText(), QString());
}

TEST(HostListWidget, AnItemIsChosenByIndexAndBySelected)
{
    QListWidget list;
    const ObjectRef object = Wrap(&list);
    for (const char* name : {"eins", "zwei", "drei"})
        Call(object, "AddItem", {name});
    Put(object, "ListIndex", std::int32_t{2});
    EXPECT_TRUE(basic::CBool(Get(object, "Selected", {std::int32_t{2}})));
    EXPECT_EQ(Text(Get(object, "Text")), "drei");
    Put(object, "Selected", true, {std::int32_t{0}});
    EXPECT_EQ(list.currentRow(), 0);
    Put(object, "Selected", false, {std::int32_t{0}});
    EXPECT_EQ(Number(Get(object, "ListIndex")), -1);
    EXPECT_EQ(ErrorOf([&] { Put(object, "ListIndex", std::int32_t{3}); }), basic::kErrInvalidProperty);
}

TEST(HostListWidget, SeveralItemsCanBeSelectedWhereTheListAllowsIt)
{
    QListWidget list;
    list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    const ObjectRef object = Wrap(&list);
    for (const char* name : {"eins", "zwei", "drei"})
        Call(object, "AddItem", {name});
    Put(object, "Selected", true, {std::int32_t{0}});
    Put(object, "Selected", true, {std::int32_t{2}});
    EXPECT_EQ(Number(Get(object, "SelCount")), 2);
}

TEST(HostListWidget, RemovingTheChosenItemLeavesNoChoice)
{
    QListWidget list;
    list.addItems({QStringLiteral("a"), QStringLiteral("b")});
    const ObjectRef object = Wrap(&list);
    Put(object, "ListIndex", std::int32_t{0});
    Call(object, "RemoveItem", {std::int32_t{0}});
    EXPECT_EQ(Number(Get(object, "ListIndex")), -1);
    EXPECT_EQ(list.selectedItems().size(), 0);
    EXPECT_EQ(Number(Get(object, "NewIndex")), -1);
}

TEST(HostCheckBox, TrueIsNoValueOfACheckBox)
{
    QCheckBox box;
    const ObjectRef object = Wrap(static_cast<QAbstractButton*>(&box));
    EXPECT_EQ(object->TypeName(), "CheckBox");
    Put(object, "Value", std::int16_t{1});
    EXPECT_TRUE(box.isChecked());
    EXPECT_EQ(ErrorOf([&] { Put(object, "Value", true); }), basic::kErrInvalidProperty);
}

TEST(HostListView, ColumnsAreFoundByIndexAndKey)
{
    QTreeWidget list;
    list.setColumnCount(1);
    const ObjectRef object = Wrap(&list);
    EXPECT_EQ(object->TypeName(), "ListView");
    const ObjectRef columns = Get(object, "ColumnHeaders").ToObject();
    const ObjectRef first = Get(object, "ColumnHeaders", {std::int32_t{1}}).ToObject();
    Put(first, "Key", "C00117");
    Put(first, "Text", "Menge");
    Put(first, "Width", std::int32_t{1500});
    EXPECT_EQ(list.columnWidth(0), 100);
    Call(columns, "Add", {basic::Empty{}, "C00218", "Preis", std::int32_t{1440}});
    EXPECT_EQ(Number(Get(columns, "Count")), 2);
    EXPECT_EQ(Text(Get(Get(columns, "Item", {"C00218"}).ToObject(), "Text")), "Preis");
    EXPECT_EQ(ErrorOf([&] { Call(columns, "Add", {basic::Empty{}, "C00218", "x"}); }), basic::kErrNodeKeyExists);
    Call(columns, "Remove", {std::int32_t{1}});
    EXPECT_EQ(list.headerItem()->text(0), QStringLiteral("Preis"));
    EXPECT_EQ(ErrorOf([&] { Get(columns, "Item", {std::int32_t{2}}); }), basic::kErrNodeIndex);
}

TEST(HostListView, RowsKeepKeyTextAndSubItems)
{
    QTreeWidget list;
    list.setColumnCount(2);
    const ObjectRef rows = Get(Wrap(&list), "ListItems").ToObject();
    std::vector<Variant> arguments{basic::Empty{}, "L7", "Liste 7"};
    Variant added = rows->Call("Add", arguments);
    Put(added.ToObject(), "SubItems", "offen", {std::int32_t{1}});
    EXPECT_EQ(list.topLevelItem(0)->text(1), QStringLiteral("offen"));
    Put(added.ToObject(), "Checked", true);
    EXPECT_EQ(list.topLevelItem(0)->checkState(0), Qt::Checked);
    Call(rows, "Clear");
    EXPECT_EQ(ErrorOf([&] { Get(added.ToObject(), "Text"); }), basic::kErrObjectNotSet);
}

TEST(HostListView, ATreeWithoutHeaderHasNodes)
{
    QTreeWidget tree;
    tree.setHeaderHidden(true);
    auto* top = new QTreeWidgetItem(&tree, {QStringLiteral("Forstamt")});
    new QTreeWidgetItem(top, {QStringLiteral("Revier")});
    const ObjectRef object = Wrap(&tree);
    EXPECT_EQ(object->TypeName(), "TreeView");
    EXPECT_EQ(Number(Get(Get(object, "Nodes").ToObject(), "Count")), 2);
    const ObjectRef second = Get(object, "Nodes", {std::int32_t{2}}).ToObject();
    Put(second, "Bold", true);
    EXPECT_TRUE(top->child(0)->font(0).bold());
}

TEST(HostArray, ElementsCountFromZero)
{
    QLineEdit a(QStringLiteral("A")), b(QStringLiteral("B"));
    const ObjectRef array = WrapArray({Wrap(&a), Wrap(&b)});
    EXPECT_EQ(Number(Get(array, "LBound")), 0);
    EXPECT_EQ(Number(Get(array, "UBound")), 1);
    EXPECT_EQ(Text(Get(Get(array, "", {std::int32_t{1}}).ToObject(), "Text")), "B");
    EXPECT_EQ(ErrorOf([&] { Get(array, "Item", {std::int32_t{2}}); }), basic::kErrControlArrayElement);
}

}  // namespace
}  // namespace kvx::adapters::qt
