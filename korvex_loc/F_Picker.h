#pragma once

#include "ado/RowBlock.h"
#include "session/KvxVar.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/ListView.h"
#include "ui/TextBox.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::loc {

/// The rows of a SELECT, one of which the user picks: by the list, or by typing a part of what is shown in it. Enter
/// and a double click pick, Esc and the close box leave the value as it was. Lives for one call.
class F_Picker final : public ui::Form {
public:
    F_Picker();

    /// @param title    empty: the heading of the first column shown
    /// @param current  value of the first column that is selected at the start
    /// @param mask     one digit a column: 1 = hidden, 0 or missing = shown. With all hidden the first is shown
    /// @return first column of the picked row; current when none was picked
    std::string Run(const KvxVar& kvxvar, std::string_view select, std::string_view title, std::string_view current,
                    std::string_view mask);

private:
    ui::Label lblFilter{*this, "lblFilter"};
    ui::TextBox txtFilter{*this, "txtFilter"};
    ui::ListView ListView1{*this, "ListView1"};
    ui::Button btnOK{*this, "btnOK"}, btnCancel{*this, "btnCancel"};

    ado::RowBlock rows;
    std::vector<std::string> columnNames;
    std::vector<bool> numberColumns;
    std::vector<std::size_t> shownColumns; // places in the rows
    std::vector<std::size_t> shownRows;    // of the list's items, in their order
    std::string strFilter;                 // what shownRows were found by, in small letters
    std::size_t selectedRow = 0;
    std::string strResult;

    void Design() override;
    void Wire();
    void txtFilter_Change();
    void txtFilter_KeyDown(std::int16_t& KeyCode, std::int16_t Shift);
    void ListView1_ItemClick(ui::ListItem& Item);
    void ListView1_DblClick();
    void btnOK_Click();
    void btnCancel_Click();

    void ReadRows(const KvxVar& kvxvar, std::string_view select, std::string_view mask);
    void ShowColumns(const KvxVar& kvxvar);
    void ShowRows();
    void SelectItem(std::int32_t index);
    bool Matches(std::size_t row, std::string_view filter) const;
    std::string CellText(std::size_t column, std::size_t row) const;
};

} // namespace kvx::loc
