#pragma once

#include "adapters/sqlite/Tokenizer.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// The library composes every statement anew, with the values in the text. What remains when the values of comparisons,
// assignments and inserts are taken out is the statement's shape: translated and prepared once, run many times.
namespace kvx::adapters::sqlite {

enum class StatementKind : std::uint8_t {
    Select,
    Insert,
    Update,
    Delete,
    Create,  ///< CREATE, ALTER, DROP, TRUNCATE: anything that changes the schema
    Exec,
    If,
    Setting,      ///< SET NOCOUNT ON, USE, PRINT: says nothing to this engine
    Transaction,  ///< BEGIN TRAN, COMMIT, ROLLBACK
    Other,        ///< goes to the engine as it is
};

/// One statement of a text, as token indexes.
struct Statement {
    StatementKind kind = StatementKind::Other;
    std::size_t first = 0;
    std::size_t last = 0;         ///< behind the last token
    std::size_t body = 0;         ///< If: the first token behind the condition
    std::size_t firstLifted = 0;  ///< into Shaper::Lifted
    std::size_t lastLifted = 0;
};

/// Takes a text apart: tokens, statements, and which literals are lifted. Used again for one text after the other.
class Shaper {
public:
    /// @param text  must live as long as what is read here
    void Run(std::string_view text);

    const TokenList& Tokens() const { return tokens_; }
    const std::vector<Statement>& Statements() const { return statements_; }
    const std::vector<std::uint32_t>& Lifted() const { return lifted_; }  ///< token indexes, ascending

    /// The statement's text with a mark of its kind for each lifted value.
    void AppendShape(const Statement& statement, std::string& shape) const;

private:
    enum class Region : std::uint8_t { Fixed, List, Free };  // Fixed: nothing inside is lifted
    enum class Bracket : std::uint8_t { Other, Values, Replace };
    struct Frame {
        Region region;
        Bracket bracket;
    };

    void Begin(std::size_t token, StatementKind kind);
    void Finish(std::size_t token);
    void OnWord(std::size_t i);
    void OnStatementWord(std::size_t i, StatementKind kind);
    bool IsBehindAlterTable(std::size_t i) const;
    void OnOpen(std::size_t i);
    void OnClose();
    bool MayLift(std::size_t i) const;
    bool MayLiftNumber(std::size_t i) const;
    void Lift(std::size_t i);
    void TakeBack(const Statement& statement);
    Keyword WordAt(std::size_t i) const { return tokens_.tokens[i].word; }

    TokenList tokens_;
    std::vector<Statement> statements_;
    std::vector<std::uint32_t> lifted_;
    std::vector<Frame> frames_;
    Statement current_;
    bool open_ = false;       // a statement has begun
    bool hasSource_ = false;  // INSERT: its VALUES or SELECT was seen; WITH: its SELECT
    bool hasSet_ = false;     // UPDATE: its SET was seen
    bool takesAll_ = false;   // the rest belongs to this statement: a procedure, a view
};

}  // namespace kvx::adapters::sqlite
