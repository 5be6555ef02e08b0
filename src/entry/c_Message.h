#pragma once

#include "basic/Object.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace kvx {

/// The host's door to the list message box.
class c_Message {
public:
    /// Picks a value of a combo box in a list that is taller than the combo. Empty entries are not offered.
    /// @param strLabel  prompt above the list
    /// @param Parameter the current value: selected in the list, and the result on Cancel
    /// @param cmbBox    the host's combo box
    /// @return the line picked, empty when none was; Parameter on Cancel, Esc and the close box
    std::string MessageBoxCmb(std::string_view strLabel, std::string_view Parameter, const basic::ObjectRef& cmbBox);

    // A message that the host builds line by line: Clear, AddItem as often as needed, Show.
    void MessageBox_Clear();
    void MessageBox_AddItem(std::string_view s);
    std::int16_t MessageBox_ItemCount();
    /// Shows the lines; the list is empty afterwards.
    void MessageBox_Show(std::string_view strCaption);

    /// Shows a text file line by line. Line ends may be CR LF, CR or LF; the text UTF-8 or Windows-1252.
    /// @throws basic::Error 53: no such file; 76: no such folder; 75: it cannot be read
    void MessageBoxNL(std::string_view strLabel, std::string_view strFileName);
};

}  // namespace kvx
