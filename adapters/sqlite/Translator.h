#pragma once

#include "adapters/sqlite/Analysis.h"
#include "adapters/sqlite/Translate.h"

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvx::adapters::sqlite {

/// @throws basic::Error 80040E14
[[noreturn]] void RaiseConstruct(std::string_view construct);

/// Copies a text token by token, leaves out and puts in. Tokens copied one behind the other are written at once.
class SqlWriter {
public:
    explicit SqlWriter(std::string_view text) : text_(text) {}

    void Copy(const Token& token) { copied_ = token.end; }  ///< with what stands before it
    /// Leaves the token out, but not what stands before it.
    void Skip(const Token& token)
    {
        copied_ = token.begin;
        ContinueAt(token.end);
    }
    void Append(std::string_view text)
    {
        Flush();
        sql_ += text;
    }
    /// What follows in the text begins at that place.
    void ContinueAt(std::size_t position)
    {
        Flush();
        written_ = copied_ = position;
    }
    std::string Take()
    {
        Flush();
        return std::exchange(sql_, {});
    }
    void Reserve(std::size_t size) { sql_.reserve(size); }

private:
    void Flush()
    {
        if (copied_ > written_) sql_.append(text_, written_, copied_ - written_);
        written_ = copied_;
    }

    std::string_view text_;
    std::string sql_;
    std::size_t written_ = 0, copied_ = 0;
};

/// Writes one statement anew. The parts: Translator.cpp what any statement may hold, Translator.statements.cpp the
/// kinds of statement, Translator.schema.cpp CREATE and ALTER.
class Translator {
public:
    Translator(const Shaper& shaper, const Statement& statement, Schema& schema, const TranslateOptions& options)
        : tokens_(shaper.Tokens()), statement_(statement), schema_(schema), options_(options),
          analysis_(tokens_, schema), writer_(tokens_.text)
    {
        result_.kind = statement.kind;
        lifts_ = !options.keepsValues || statement.kind != StatementKind::Select;
        if (lifts_) result_.parameters.resize(statement.lastLifted - statement.firstLifted);
    }

    Translation Run();

private:
    enum class Clause : std::uint8_t { None, List, From, Where, Group, Set, Values };

    /// A pair of brackets, or the statement itself.
    struct Frame {
        Clause clause = Clause::None;
        std::size_t open = 0;       // its bracket
        std::int64_t limit = -1;    // rows of TOP or ROWNUM, written where the SELECT ends; negative: none
        bool wrapped = false;       // the SELECT stands in a derived table of its own, for the sake of its limit
        bool joinsText = false;     // the + before joined texts
        bool replaces = false;      // ISNULL(
        std::string_view suffix{};  // written behind the closing bracket
    };

    // Translator.cpp
    void Walk(std::size_t first, std::size_t last, Clause clause);
    std::size_t OnWord(std::size_t i, std::size_t last);
    std::size_t OnSelect(std::size_t i, std::size_t last);
    std::size_t OnConvert(std::size_t i);
    std::size_t OnCast(std::size_t i);
    std::size_t OnCall(std::size_t i, std::string_view replacement, std::string_view suffix);
    std::size_t OnName(std::size_t i, std::size_t last);
    void OnClose(std::size_t i);
    void OnLiteral(std::size_t i);
    void OnPlus(std::size_t i);
    void EndSelect(Frame& frame);
    bool JoinsText(std::size_t plus) const;
    void CollateLeftSide(std::size_t comparison, std::size_t operand);
    std::string_view CollationOf(Range expression);
    Range OperandBefore(std::size_t i) const;
    Range OperandBehind(std::size_t i) const;
    const Scope& Names();

    // Translator.statements.cpp
    void TranslateSelect();
    void TranslateUpdate();
    void TranslateDelete();
    void TranslateInsert();
    void TranslateExec();
    void TranslateIf();
    void TranslateTransaction();
    void TranslateOther();
    bool TranslateLiteralChain();
    void NoteAssignment(Range value, const TableColumn* column);
    void NoteRow(Range values, const std::vector<const TableColumn*>& columns);
    void WalkAssignments(Range assignments, const TableDef* table);

    // Translator.schema.cpp
    void TranslateCreate();
    void TranslateProcedure(std::size_t what);
    void TranslateTrigger(std::size_t what);
    void TranslateCreateTable();
    void TranslateAlterTable();
    void TranslateIndex(std::size_t what);
    struct KeyParts;
    std::vector<Range> Definitions(std::size_t open) const;
    bool IsConstraint(Range definition) const;
    void WriteConstraint(Range definition, bool hasIdentity);
    void WriteColumn(Range definition, const KeyParts& key);
    std::size_t WriteDefault(std::size_t first, std::size_t last);
    std::size_t OnWordOrName(std::size_t i, std::size_t last);

    // Output.
    void Copy(std::size_t i)
    {
        writer_.Copy(At(i));
        collated_ = false;
    }
    void CopyRange(std::size_t first, std::size_t last)  // without translating it
    {
        if (first < last) Copy(last - 1);
    }
    void Skip(std::size_t i) { writer_.Skip(At(i)); }
    void Replace(std::size_t i, std::string_view text)
    {
        writer_.Skip(At(i));
        writer_.Append(text);
        collated_ = false;
    }
    void Append(std::string_view text) { writer_.Append(text); }
    void StartAt(std::size_t i) { writer_.ContinueAt(At(i).begin); }  // without what stands before it
    void StartBehind(std::size_t i) { writer_.ContinueAt(At(i).end); }

    const Token& At(std::size_t i) const { return tokens_.tokens[i]; }
    std::string_view Text(std::size_t i) const { return tokens_.Text(i); }
    bool IsWord(std::size_t i, std::string_view word) const
    {
        return At(i).kind == TokenKind::Word && SameText(Text(i), word);
    }
    std::size_t First() const { return statement_.first; }
    std::size_t Last() const { return statement_.last; }

    const TokenList& tokens_;
    const Statement& statement_;
    Schema& schema_;
    const TranslateOptions& options_;
    Analysis analysis_;
    Translation result_;
    std::vector<Frame> frames_;
    SqlWriter writer_;
    bool lifts_ = true;
    bool collated_ = false;  // the text so far ends with a collation
    std::size_t nextParameter_ = 0;
    std::map<std::size_t, std::string> converted_;  // assigned values that are not lifted, by token
    std::optional<Scope> names_;
    std::size_t rowKeysBefore_ = 0;  // the FROM that row keys go before
    std::string rowKeys_;
};

}  // namespace kvx::adapters::sqlite
