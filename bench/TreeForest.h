#pragma once

#include "Stands.h"

#include "ado/Connection.h"
#include "session/KvxVar.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

// A forest with everything around it that the stand dialog reads, and the same statements for plain SQLite.
namespace kvx::bench {

/// Creates the tables that the stand dialog asks besides WALDORT, all of them small, and the procedure for new stands.
void MakeTablesAroundStands(const TemporaryDatabase& database);

/// A session on the database, with the sibling library.
KvxVar OpenSession(const TemporaryDatabase& database, std::string_view synchronous = "FULL");

/// Notes the texts of the statements of one connection, as the library composes them.
class StatementLog {
public:
    explicit StatementLog(ado::Connection connection);
    ~StatementLog();
    StatementLog(const StatementLog&) = delete;
    StatementLog& operator=(const StatementLog&) = delete;

    /// What came since the last call.
    std::vector<std::string> Take();

private:
    class Observer;
    ado::Connection connection_;
    std::shared_ptr<Observer> observer_;
};

/// The text as plain SQLite takes it.
std::string PlainText(std::string_view statement);

/// Runs texts one by one and reads all their rows. @param statements  as PlainText gives them
void RunTexts(sqlite3* database, const std::vector<std::string>& statements);

}  // namespace kvx::bench
