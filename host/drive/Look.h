#pragma once

#include "host/drive/Json.h"

#include <cstdint>

namespace kvx::ui {
class Control;
class Form;
class Node;
class TreeView;
}  // namespace kvx::ui

// What can be seen of a dialog, for a driver.
namespace kvx::host::drive {

/// Name, caption and controls of a form that is shown.
Json LookAtForm(const ui::Form& form);
/// One control: name, kind, text, and what its kind adds (list index, tab, date, number of rows ...).
Json LookAtControl(ui::Control& control);
/// The rows of a list, list view or grid. @throws Fault wrong-kind
Json LookAtRows(ui::Control& control, std::int32_t from, std::int32_t count);
/// The nodes below one; below Nothing the top nodes. @param levels  how deep
Json LookAtNodes(ui::TreeView& tree, const ui::Node& above, std::int32_t levels);

}  // namespace kvx::host::drive
