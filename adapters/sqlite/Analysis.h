#pragma once

#include "adapters/sqlite/Schema.h"
#include "adapters/sqlite/Tokenizer.h"
#include "ado/Driver.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a statement means, as far as the translation and the description of its fields need it. SQLite forgets the
// types of expressions, and names the inner table's column for a sub-select; so both are read from the text.
namespace kvx::adapters::sqlite {

/// Token indexes, the second behind the last.
struct Range {
    std::size_t first = 0;
    std::size_t last = 0;

    bool IsEmpty() const { return first >= last; }
    std::size_t Size() const { return last - first; }
};

/// The parts of a SELECT that tell its columns.
struct SelectParts {
    std::vector<Range> items;
    Range from;  ///< behind FROM; empty when there is none
    bool distinct = false;
};

/// A column as a SELECT gives it to the one around it.
struct ResultColumn {
    std::string name;
    DeclaredType type;
    const TableDef* table = nullptr;  ///< nothing for anything computed
    const TableColumn* column = nullptr;
};

/// A table or derived table behind FROM.
struct Source {
    std::string table;  ///< empty: derived
    std::string alias;  ///< as others call it; the table's name when it has none
    const TableDef* definition = nullptr;
    std::vector<ResultColumn> columns;  ///< of a derived table
};

/// The tables that names in a SELECT may mean; inner SELECTs see those of the outer ones too.
struct Scope {
    std::vector<Source> sources;
    const Scope* outer = nullptr;
};

class Analysis {
public:
    Analysis(const TokenList& tokens, Schema& schema) : tokens_(tokens), schema_(schema) {}

    /// Finds the parts of the SELECT at the token. @param last  behind the last token it may have
    SelectParts Parts(std::size_t select, std::size_t last) const;

    /// True when a UNION or EXCEPT follows in the same brackets.
    bool IsCompound(std::size_t select, std::size_t last) const;

    std::vector<Source> Sources(Range from, const Scope* outer) const;

    /// The columns of the SELECT at the token, stars spread out. Nothing when a table is unknown.
    std::optional<std::vector<ResultColumn>> Columns(std::size_t select, std::size_t last, const Scope* outer) const;

    /// The type of an expression; nothing when it can't be told.
    std::optional<DeclaredType> TypeOf(Range expression, const Scope& scope) const;

    /// All tables that the statement names anywhere, to look a name up without its place.
    Scope WholeScope(Range statement) const;

    /// The first token with the keyword outside of brackets; range.last when there is none.
    std::size_t Find(Range range, Keyword keyword) const;

    /// "dbo.WALDORT", "[WALDORT]": the name without owner and brackets, and in next the token behind it.
    std::string ReadName(std::size_t index, std::size_t last, std::size_t& next) const;

private:
    /// The name without its brackets, in the buffer if it has any.
    std::string_view NameOf(std::size_t index, std::string& buffer) const;
    bool FindColumn(Range name, const Scope& scope, ResultColumn& result) const;
    std::vector<Range> SplitAtCommas(Range range) const;
    std::optional<DeclaredType> TypeOfOperation(Range expression, const Scope& scope, bool& isOperation) const;
    std::optional<DeclaredType> TypeOfCall(Range expression, const Scope& scope) const;
    std::optional<DeclaredType> TypeOfCase(Range expression, const Scope& scope) const;
    std::optional<DeclaredType> TypeOfLiteral(const Token& token) const;
    DeclaredType ReadType(Range range) const;
    bool IsPlainColumn(Range range) const;
    const Token& At(std::size_t i) const { return tokens_.tokens[i]; }

    const TokenList& tokens_;
    Schema& schema_;
};

}  // namespace kvx::adapters::sqlite
