#pragma once

#include "ado/StatementObserver.h"

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// The tests of the dialogs, run on a database server instead of the embedded engine.
namespace kvx::test {

using WordPairs = std::vector<std::pair<std::string_view, std::string_view>>;

/// The text with every word of the first kind replaced by its partner, in their order.
std::string Replaced(std::string text, const WordPairs& words);

/// What a server needs to carry the sample's tables.
struct ServerSetting {
    std::function<std::string()> newDatabase;  ///< @return connection string of an empty one
    WordPairs schemaWords;                     ///< SQL Server's words of host/sample/schema.sql and the engine's
    WordPairs rowWords;                        ///< the same for rows and for statements of the tests themselves
    std::vector<std::string> extra;            ///< statements behind the schema: the procedure
    /// Statements that empty all tables and start their keys at 1 again. @param tables  and those of them with such a
    /// key
    std::function<std::vector<std::string>(const std::vector<std::string>& tables,
                                           const std::vector<std::string>& counting)>
        emptyAll;
};

/// Lets every Scenario of this program live on the server. Tables are made once and emptied between scenarios.
void UseServer(ServerSetting setting);

/// The next scenario gets a new database: the server was away.
void MakeDatabaseAnew();

/// What is known not to go on an engine, with the reasons: a file of lines "test <tab> name <tab> reason" and
/// "statement <tab> shape <tab> number <tab> reason". In a shape every text is ? and every number #.
class KnownDifferences {
public:
    explicit KnownDifferences(const std::string& file);
    struct Statement {
        std::int32_t number;
        std::string reason;
    };
    std::map<std::string, std::string> tests;
    std::map<std::string, Statement> statements;
};

/// The shape of a statement: texts as ?, numbers as #, lists of them as one.
std::string ShapeOf(std::string_view text);

/// Runs all tests of the program. Whatever differs from the known differences fails: a test or statement that fails
/// without being known, and a known one that does not fail any more.
/// @return 0 = as known
int RunOnServer(const KnownDifferences& known);

}  // namespace kvx::test
