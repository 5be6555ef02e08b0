#include "adapters/sqlite/Connection.h"
#include "adapters/sqlite/Errors.h"

#include <sqlite3.h>

namespace kvx::adapters::sqlite {
namespace {

std::string TextAt(sqlite3_stmt* statement, int column)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return text == nullptr ? std::string()
                           : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
}

bool NextRow(sqlite3* database, sqlite3_stmt* statement)
{
    const int result = sqlite3_step(statement);
    Check(database, result);
    return result == SQLITE_ROW;
}

}  // namespace

const TableDef* Connection::FindTable(std::string_view name)
{
    if (lastTable_ != nullptr && SameText(lastTable_->name, name)) return lastTable_;
    std::string key = LowerAscii(name);
    if (const auto found = tables_.find(key); found != tables_.end()) return lastTable_ = found->second.get();
    const StatementPtr find =
        Prepare(database_.get(),
                "SELECT name, type FROM sqlite_master WHERE type IN ('table', 'view') AND name = ?1 "
                "COLLATE NOCASE",
                false);
    sqlite3_bind_text(find.get(), 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
    if (!NextRow(database_.get(), find.get())) return nullptr;
    auto table = std::make_unique<TableDef>();
    table->name = TextAt(find.get(), 0);
    table->isView = TextAt(find.get(), 1) == "view";
    const StatementPtr columns = Prepare(database_.get(), "PRAGMA table_info(" + Bracketed(table->name) + ")", false);
    while (NextRow(database_.get(), columns.get())) {
        TableColumn column;
        column.name = TextAt(columns.get(), 1);
        const std::string declared = TextAt(columns.get(), 2);
        column.type = ParseDeclaredType(declared);
        const bool inKey = sqlite3_column_int(columns.get(), 5) != 0;
        // The schema translation spells INTEGER nowhere else.
        column.identity = inKey && SameText(declared, "integer");
        column.nullable = sqlite3_column_int(columns.get(), 3) == 0 && !column.identity;
        table->columns.push_back(std::move(column));
    }
    return lastTable_ = tables_.emplace(std::move(key), std::move(table)).first->second.get();
}

bool Connection::HasProcedure(std::string_view name)
{
    const std::string key = LowerAscii(name);
    if (procedures_.contains(key)) return true;
    LoadProcedures();
    return procedures_.contains(key);
}

void Connection::LoadProcedures()
{
    procedures_.clear();
    if (sqlite3_table_column_metadata(database_.get(), nullptr, "KORVEX_PROCEDURE", nullptr, nullptr, nullptr, nullptr,
                                      nullptr, nullptr) != SQLITE_OK)
        return;
    const StatementPtr all = Prepare(database_.get(), "SELECT NAME, BODY FROM KORVEX_PROCEDURE", false);
    while (NextRow(database_.get(), all.get()))
        procedures_[LowerAscii(TextAt(all.get(), 0))] = TextAt(all.get(), 1);
}

}  // namespace kvx::adapters::sqlite
