#pragma once

#include "session/SiblingClasses.h"

namespace kvx::loc {

/// Checks typed keys of the grid workspaces and the find dialog; fills and exports lists.
class Wagon final : public c_Wagon {
public:
    /// The statement's first column is the key; a column ID goes to the first box's Tag, the named one into the second
    /// box, the key itself into the first and the third. Boxes that are Nothing are passed over.
    /// @param flag    what an unknown key does: 0 = nothing; else the first box's Tag and the second box are emptied,
    ///                since the caller is making a record and would store the id of the key that stood there before
    /// @param column  empty or not among the columns: the second box stays
    /// @param text    carried for callers' sake, changes nothing
    bool CheckOrderNumber(const KvxVar& kvxvar, std::int16_t flag, std::string_view statement,
                          const basic::ObjectRef& box1, const basic::ObjectRef& box2, std::string_view column,
                          const basic::ObjectRef& keyBox, std::string_view text) override;

    /// "EXPORTLV": fills the list box with the fields of a timber list that can be exported, ItemData is the field's
    /// id. Any other name: writes the list view, grid or list box into a table file in the user's documents and opens
    /// it.
    /// @param argument1  language of the field names, "DEUTSCH" or "ENGLISH"; anything else: the machine's
    /// @param argument2  carried for callers' sake, changes nothing
    /// @throws basic::Error 438: an object that is no list
    void ExportListView(const basic::ObjectRef& list, std::string_view name, const basic::Variant& argument1,
                        const basic::Variant& argument2) override;
};

} // namespace kvx::loc
