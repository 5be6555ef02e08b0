#pragma once

#include "adapters/sqlite/Types.h"

#include <string>
#include <string_view>
#include <vector>

// What the translation must know about a database.
namespace kvx::adapters::sqlite {

struct TableColumn {
    std::string name;
    DeclaredType type;
    bool nullable = true;
    bool identity = false;  ///< the database gives the value
};

struct TableDef {
    std::string name;
    std::vector<TableColumn> columns;
    bool isView = false;

    const TableColumn* Find(std::string_view column) const;  ///< case is ignored; nullptr: no such column
};

class Schema {
public:
    virtual ~Schema() = default;
    virtual const TableDef* FindTable(std::string_view name) = 0;  ///< or a view; case is ignored; nullptr: none
    virtual bool HasProcedure(std::string_view name) = 0;
};

}  // namespace kvx::adapters::sqlite
