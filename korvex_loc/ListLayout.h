#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Column widths of list views, data grids and flex grids, kept in LAYOUTS for each user, layout name and control.
/// COLUMN_TEXT holds "width=column" pairs with ";" between them. A column is known by its key, field or heading, in a
/// flex grid by its number, so that a layout survives new columns.
class ListLayout final : public c_ListLayout {
public:
    /// Columns that the layout does not know keep their width; nothing changes when there is no layout.
    /// @throws basic::Error 13: a control without columns
    void LoadLayout(const KvxVar& kvxvar, std::string_view layout, ui::Control& control) override;
    void SaveLayout(const KvxVar& kvxvar, std::string_view layout, ui::Control& control) override;
};

} // namespace kvx::loc
