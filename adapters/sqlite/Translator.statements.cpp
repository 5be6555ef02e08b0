#include "adapters/sqlite/Translator.h"
#include "adapters/sqlite/Errors.h"

#include <algorithm>
#include <charconv>

namespace kvx::adapters::sqlite {
namespace {

// SQLite takes 500 SELECTs joined by UNION; longer chains of literals become one list of values.
constexpr std::size_t kLongChain = 400;

// Digits that give the same number again, or the text in apostrophes.
std::string LiteralOf(const Value& value)
{
    switch (value.kind) {
    case ado::Cell::Kind::Null: return "NULL";
    case ado::Cell::Kind::Integer: return std::to_string(value.integer);
    case ado::Cell::Kind::Real: {
        char digits[40];
        const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value.real);
        std::string text(digits, error == std::errc() ? end : digits);
        if (text.find_first_of(".e") == std::string::npos) text += ".0";
        return text;
    }
    case ado::Cell::Kind::Text: break;
    }
    std::string text = "'";
    for (char c : value.text)
        text.append(c == '\'' ? 2 : 1, c);
    return text + "'";
}

}  // namespace

Translation Translator::Run()
{
    if (statement_.first < statement_.last) {
        StartAt(First());
        writer_.Reserve(tokens_.text.size() + 32);
    }
    switch (statement_.kind) {
    case StatementKind::Select: TranslateSelect(); break;
    case StatementKind::Insert: TranslateInsert(); break;
    case StatementKind::Update: TranslateUpdate(); break;
    case StatementKind::Delete: TranslateDelete(); break;
    case StatementKind::Create: TranslateCreate(); break;
    case StatementKind::Exec: TranslateExec(); break;
    case StatementKind::If: TranslateIf(); break;
    case StatementKind::Setting: break;
    case StatementKind::Transaction: TranslateTransaction(); break;
    case StatementKind::Other: TranslateOther(); break;
    }
    if (result_.sql.empty()) result_.sql = writer_.Take();
    return std::move(result_);
}

void Translator::TranslateSelect()
{
    if (TranslateLiteralChain()) return;
    if (options_.withRowKeys) {
        const SelectParts parts = analysis_.Parts(First(), Last());
        const std::vector<Source> sources = analysis_.Sources(parts.from, nullptr);
        const bool grouped = analysis_.Find({First(), Last()}, Keyword::Group) != Last();
        const bool plain = !parts.distinct && !grouped && !analysis_.IsCompound(First(), Last()) && !sources.empty() &&
                           std::ranges::all_of(sources, [](const Source& source) {
                               return source.definition != nullptr && !source.definition->isView;
                           });
        if (plain) {
            rowKeysBefore_ = parts.from.first - 1;
            for (const Source& source : sources) {
                rowKeys_ += "," + Bracketed(source.alias) + ".rowid ";
                result_.rowKeyTables.push_back(source.definition->name);
            }
        }
    }
    Walk(First(), Last(), Clause::None);
}

// SELECT 'a' AS Files UNION ALL SELECT 'b' AS Files ...
bool Translator::TranslateLiteralChain()
{
    if (!tokens_.hasUnion || At(First() + 1).kind != TokenKind::Text) return false;
    std::vector<std::size_t> values;
    std::size_t i = First();
    std::string name;
    while (i + 1 < Last() && At(i).Is(Keyword::Select) && At(i + 1).kind == TokenKind::Text) {
        values.push_back(i + 1);
        i += 2;
        if (At(i).Is(Keyword::As)) ++i;
        if (i < Last() && At(i).IsName() && !At(i).Is(Keyword::Union) && !At(i).Is(Keyword::Order)) {
            if (values.size() == 1) name = Unquote(Text(i));
            ++i;
        }
        if (i + 1 >= Last() || !At(i).Is(Keyword::Union) || !At(i + 1).Is(Keyword::All)) break;
        i += 2;
    }
    if (values.size() < kLongChain || (i < Last() && !At(i).Is(Keyword::Order))) return false;
    Append("SELECT column1 AS " + Bracketed(name) + " FROM (VALUES ");
    for (std::size_t value : values) {
        StartAt(value);
        Append(value == values.front() ? "(" : ",(");
        OnLiteral(value);
        Append(")");
    }
    Append(")");
    if (i < Last()) {
        StartBehind(i - 1);
        Walk(i, Last(), Clause::Group);
    }
    return true;
}

// What becomes of a value that stands alone behind a column: "5", "-5", "'x'". A lifted one is converted whenever the
// statement runs, any other now and in the text.
void Translator::NoteAssignment(Range value, const TableColumn* column)
{
    if (column == nullptr || value.IsEmpty()) return;
    const Token& token = At(value.last - 1);
    const bool negative = value.Size() == 2 && tokens_.Operator(value.first) == '-';
    if (value.Size() != (negative ? 2u : 1u) || (!token.IsNumber() && token.kind != TokenKind::Text)) return;
    if (token.lifted) {
        std::size_t index = 0;
        for (std::size_t i = First(); i < value.last - 1; ++i)
            if (At(i).lifted) ++index;
        result_.parameters[index] = Assignment{column->type, column->name};
        return;
    }
    Value converted;
    std::string written(Text(value.last - 1));
    if (token.kind == TokenKind::Text) {
        converted.kind = ado::Cell::Kind::Text;
        converted.text = LiteralText(written);
        written.clear();
    } else {
        if (!ReadNumberLiteral(written, converted)) return;
        if (negative) {
            converted.integer = -converted.integer;
            converted.real = -converted.real;
            written.insert(0, 1, '-');
        }
    }
    ConvertForColumn(converted, written, column->type, column->name);
    if (negative) converted_[value.first] = "";
    converted_[value.last - 1] = LiteralOf(converted);
}

// The table's name in front of an assigned column goes; SQLite wants it bare.
void Translator::WalkAssignments(Range assignments, const TableDef* table)
{
    std::size_t i = assignments.first;
    while (i < assignments.last) {
        std::size_t end = i;
        while (end < assignments.last && At(end).kind != TokenKind::Comma)
            end = At(end).kind == TokenKind::Open ? tokens_.BehindClose(end) : end + 1;
        end = std::min(end, assignments.last);
        std::size_t behindName = i;
        const std::string column = At(i).IsName() ? analysis_.ReadName(i, end, behindName) : std::string();
        if (behindName < end && tokens_.Operator(behindName) == '=') {
            if (behindName - 1 > i) {  // qualified
                Skip(i);
                StartAt(behindName - 1);
            }
            NoteAssignment({behindName + 1, end}, table != nullptr ? table->Find(column) : nullptr);
            i = behindName - 1;
        }
        Walk(i, std::min(end + 1, assignments.last), Clause::Set);
        i = end + 1;
    }
}

void Translator::TranslateUpdate()
{
    const Range all{First() + 1, Last()};
    const std::size_t set = analysis_.Find(all, Keyword::Set);
    if (set == Last() || !At(First() + 1).IsName()) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    std::size_t behindName = 0;
    const std::string target = analysis_.ReadName(First() + 1, Last(), behindName);
    const std::size_t from = analysis_.Find({set, Last()}, Keyword::From);
    const std::size_t where = analysis_.Find({set, Last()}, Keyword::Where);
    std::string table = target;
    const Source* own = nullptr;
    std::vector<Source> sources;
    if (from != Last()) {
        sources = analysis_.Sources({from + 1, where}, nullptr);
        const auto found = std::ranges::find_if(sources, [&](const Source& source) {
            return SameText(source.alias, target) || SameText(source.table, target);
        });
        if (found != sources.end()) own = &*found;
        if (own != nullptr) table = own->table;
    }
    const TableDef* definition = schema_.FindTable(table);
    if (own == nullptr) {
        Walk(First(), set + 1, Clause::None);
        WalkAssignments({set + 1, std::min(from, where)}, definition);
        Walk(std::min(from, where), Last(), Clause::Where);
        return;
    }
    // The rows are found by the join, and changed by their row ids: SQLite would join the table to itself.
    const std::string alias = Bracketed(own->alias);
    Append("UPDATE " + Bracketed(table) + (SameText(own->alias, table) ? "" : " AS " + alias));
    StartAt(set);
    Append(" ");
    Copy(set);
    WalkAssignments({set + 1, std::min(from, where)}, definition);
    Append(" WHERE " + alias + ".rowid IN (SELECT " + alias + ".rowid");
    Walk(from, Last(), Clause::List);
    Append(")");
}

void Translator::TranslateDelete()
{
    std::size_t name = First() + 1;
    if (At(name).Is(Keyword::From)) ++name;
    if (!At(name).IsName()) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    std::size_t behindName = 0;
    const std::string target = analysis_.ReadName(name, Last(), behindName);
    if (behindName < Last() && At(behindName).Is(Keyword::From)) {
        const std::size_t where = analysis_.Find({behindName, Last()}, Keyword::Where);
        const std::vector<Source> sources = analysis_.Sources({behindName + 1, where}, nullptr);
        const auto own = std::ranges::find_if(sources, [&](const Source& source) {
            return SameText(source.alias, target) || SameText(source.table, target);
        });
        if (own != sources.end()) {
            const std::string alias = Bracketed(own->alias);
            Append("DELETE FROM " + Bracketed(own->table) + " WHERE rowid IN (SELECT " + alias + ".rowid");
            StartBehind(behindName - 1);
            Walk(behindName, Last(), Clause::List);
            Append(")");
            return;
        }
    }
    Copy(First());
    if (name == First() + 1) Append(" FROM");
    Walk(First() + 1, Last(), Clause::None);
}

void Translator::NoteRow(Range values, const std::vector<const TableColumn*>& columns)
{
    std::size_t index = 0;
    std::size_t begin = values.first;
    for (std::size_t i = values.first; i <= values.last && index < columns.size(); ++i) {
        if (i < values.last && At(i).kind == TokenKind::Open) {
            i = tokens_.BehindClose(i) - 1;
        } else if (i == values.last || At(i).kind == TokenKind::Comma) {
            NoteAssignment({begin, i}, columns[index++]);
            begin = i + 1;
        }
    }
}

void Translator::TranslateInsert()
{
    std::size_t name = First() + 1;
    if (At(name).Is(Keyword::Into)) ++name;
    if (!At(name).IsName()) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    std::size_t i = 0;
    const std::string table = analysis_.ReadName(name, Last(), i);
    const TableDef* definition = schema_.FindTable(table);
    Copy(First());
    if (name == First() + 1) Append(" INTO");
    Walk(First() + 1, i, Clause::None);
    std::vector<const TableColumn*> columns;
    if (i < Last() && At(i).kind == TokenKind::Open && !At(i + 1).Is(Keyword::Select)) {
        const std::size_t behind = tokens_.BehindClose(i);
        for (std::size_t k = i + 1; k < behind - 1; ++k) {
            if (!At(k).IsName()) continue;
            const std::string column = analysis_.ReadName(k, behind, k);
            columns.push_back(definition != nullptr ? definition->Find(column) : nullptr);
        }
        Walk(i, behind, Clause::None);
        i = behind;
    } else if (definition != nullptr && i < Last() && !At(i).Is(Keyword::Default)) {
        // Without a list of columns the values leave out the one that the database gives itself.
        std::string list;
        bool hasIdentity = false;
        for (const TableColumn& column : definition->columns) {
            hasIdentity = hasIdentity || column.identity;
            if (column.identity) continue;
            columns.push_back(&column);
            list += (list.empty() ? "" : ",") + Bracketed(column.name);
        }
        if (hasIdentity) Append(" (" + list + ")");
    }
    if (i < Last() && At(i).Is(Keyword::Exec)) RaiseConstruct("INSERT .. EXEC");
    if (i < Last() && At(i).Is(Keyword::Values)) {
        for (std::size_t k = i + 1; k < Last(); ++k) {
            if (At(k).kind != TokenKind::Open) continue;
            const std::size_t behind = tokens_.BehindClose(k);
            NoteRow({k + 1, behind - 1}, columns);
            k = behind - 1;
        }
    }
    Walk(i, Last(), i < Last() && At(i).Is(Keyword::Values) ? Clause::Values : Clause::None);
}

void Translator::TranslateExec()
{
    std::size_t behind = Last();
    if (First() + 1 < Last() && At(First() + 1).IsName()) result_.sql = analysis_.ReadName(First() + 1, Last(), behind);
    if (result_.sql.empty()) RaiseConstruct("EXEC without the name of a procedure");
    if (behind < Last()) RaiseConstruct("EXEC with parameters");
}

void Translator::TranslateIf()
{
    const std::size_t otherwise = analysis_.Find({statement_.body, Last()}, Keyword::Else);
    std::size_t cases = 0;
    for (std::size_t i = statement_.body; i < otherwise; ++i) {
        if (At(i).Is(Keyword::Case)) ++cases;
        if (At(i).Is(Keyword::End)) --cases;
    }
    if (otherwise != Last() && cases == 0) RaiseConstruct("IF .. ELSE");
    if (statement_.body == Last()) RaiseConstruct("IF without a statement");
    if (At(statement_.body).Is(Keyword::Begin)) RaiseConstruct("BEGIN .. END");
    StartBehind(First());
    Append("SELECT 1 WHERE");
    Walk(First() + 1, statement_.body, Clause::Where);
    result_.condition = writer_.Take();
}

void Translator::TranslateTransaction()
{
    const Keyword word = At(First()).word;
    if (word == Keyword::Begin) {
        if (First() + 1 == Last() || !StartsWithText(Text(First() + 1), "tran")) RaiseConstruct("BEGIN .. END");
        result_.sql = "BEGIN IMMEDIATE";  // a lock taken later could come too late for the rows read before
    } else {
        result_.sql = word == Keyword::Commit ? "COMMIT" : "ROLLBACK";
    }
}

void Translator::TranslateOther()
{
    if (tokens_.broken) {
        if (Text(tokens_.tokens.size() - 2).starts_with("/*"))  // the engine would take the end of the text for its end
            throw MakeError(ado::kErrStatement, "Missing end comment mark '*/'.");
        result_.sql = tokens_.text;
        return;
    }
    // One bare name: a table's rows, or a procedure.
    if (options_.tableAllowed && First() < Last() && At(First()).IsName()) {
        std::size_t behind = 0;
        const std::string name = analysis_.ReadName(First(), Last(), behind);
        if (behind == Last()) {
            if (schema_.HasProcedure(name)) {
                result_.kind = StatementKind::Exec;
                result_.sql = name;
                return;
            }
            if (schema_.FindTable(name) != nullptr) {
                result_.kind = StatementKind::Select;
                result_.sql = "SELECT * FROM " + Bracketed(name);
                return;
            }
        }
    }
    if (At(First()).Is(Keyword::Declare)) RaiseConstruct("DECLARE");
    if (At(First()).Is(Keyword::While)) RaiseConstruct("WHILE");
    Walk(First(), Last(), Clause::None);
}

Translation Translate(const Shaper& shaper, const Statement& statement, Schema& schema, const TranslateOptions& options)
{
    return Translator(shaper, statement, schema, options).Run();
}

}  // namespace kvx::adapters::sqlite
