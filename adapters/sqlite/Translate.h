#pragma once

#include "adapters/sqlite/Schema.h"
#include "adapters/sqlite/Shape.h"
#include "ado/Driver.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// T-SQL into what SQLite takes, statement by statement, by small rules over tokens. What no rule names goes through as
// it stands, so that an error in it is the engine's own.
namespace kvx::adapters::sqlite {

/// Where a lifted value goes when it is assigned to a column; it is converted to the column's type before.
struct Assignment {
    DeclaredType type;
    std::string column;  ///< for messages
};

struct Translation {
    StatementKind kind = StatementKind::Other;
    std::string sql;        ///< lifted values are ?1, ?2 ... in the order of the text; Exec: the procedure's name
    std::string condition;  ///< If: a SELECT that gives a row when the statement shall run
    std::vector<std::optional<Assignment>> parameters;  ///< one a lifted value; nothing: compared, not assigned
    std::vector<std::string> rowKeyTables;              ///< of the row keys behind the visible columns
    std::vector<std::string> more;                      ///< further statements of a schema change
};

struct TranslateOptions {
    bool withRowKeys = false;
    bool tableAllowed = true;  ///< a text that is one bare name may mean a table or a procedure
    bool keepsValues = false;  ///< a SELECT that is used once: its values stay in the text
};

/// @throws basic::Error 80040E14 for a construct that SQLite would take for something else, naming it
Translation Translate(const Shaper& shaper, const Statement& statement, Schema& schema,
                      const TranslateOptions& options);

/// The batches of a script: parted by lines that hold only GO.
std::vector<std::string_view> SplitBatches(std::string_view script);

}  // namespace kvx::adapters::sqlite
