#pragma once

#include "basic/Object.h"

#include <vector>

class QAbstractButton;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QTreeWidget;

/// The host's own widgets as late-bound objects, with the members that the classic controls of that kind have.
/// A wrapper does not own its widget: once the widget is gone every use of the wrapper is error 91.
/// A member that the kind lacks is error 438. No widget (nullptr) gives Nothing. All wrappers of one widget share its
/// Tag and its NewIndex.
namespace kvx::adapters::qt {

basic::ObjectRef Wrap(QLineEdit* widget);       ///< "TextBox"
basic::ObjectRef Wrap(QPlainTextEdit* widget);  ///< "TextBox" with several lines
basic::ObjectRef Wrap(QLabel* widget);          ///< "Label"
/// "CheckBox", "OptionButton" or "CommandButton", by what the widget is.
basic::ObjectRef Wrap(QAbstractButton* widget);
/// "ComboBox": drop-down list, or with an edit field when it is editable.
basic::ObjectRef Wrap(QComboBox* widget);
/// "ListBox": the selection mode tells whether Selected(i) may hold for several items.
basic::ObjectRef Wrap(QListWidget* widget);
/// "ListView" in report style (ColumnHeaders, ListItems) when the header shows, else "TreeView" (Nodes). Widths are
/// twips, 15 a pixel.
basic::ObjectRef Wrap(QTreeWidget* widget);
/// A control array: LBound, UBound, Count, and Item(index) as the default member. @throws Error 340: no such element
basic::ObjectRef WrapArray(std::vector<basic::ObjectRef> elements);

}  // namespace kvx::adapters::qt
