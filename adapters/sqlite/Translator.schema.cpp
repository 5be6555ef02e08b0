#include "adapters/sqlite/Translator.h"

#include <algorithm>

namespace kvx::adapters::sqlite {
namespace {

std::string Quoted(std::string_view text)
{
    std::string result = "'";
    for (char c : text)
        result.append(c == '\'' ? 2 : 1, c);
    return result + "'";
}

std::string Check(std::string_view kind, std::string_view what, std::string_view condition)
{
    return " CONSTRAINT " + Bracketed(std::string(kind) + " " + std::string(what)) + " CHECK (" +
           std::string(condition) + ")";
}

// SQLite takes any value for any column; these checks refuse what SQL Server refuses. Their names tell the errors
// apart.
std::string TypeChecks(const DeclaredType& type, const std::string& table, const std::string& column)
{
    const std::string what = table + "." + column, name = Bracketed(column);
    const auto isNumber = [&](std::string_view kinds) {
        return Check("KVX_TYPE", what, "typeof(" + name + ") IN (" + std::string(kinds) + ")");
    };
    const auto between = [&](std::string_view low, std::string_view high) {
        return Check("KVX_RANGE", what, name + " BETWEEN " + std::string(low) + " AND " + std::string(high));
    };
    constexpr std::string_view kWhole = "'integer','null'", kNumbers = "'integer','real','null'";
    switch (type.type) {
    case ado::adInteger: return isNumber(kWhole) + between("-2147483648", "2147483647");
    case ado::adSmallInt: return isNumber(kWhole) + between("-32768", "32767");
    case ado::adUnsignedTinyInt: return isNumber(kWhole) + between("0", "255");
    case ado::adBigInt: return isNumber(kWhole);
    case ado::adBoolean: return Check("KVX_TYPE", what, name + " IN (0,1)");
    case ado::adSingle:
    case ado::adDouble: return isNumber(kNumbers);
    case ado::adCurrency: return isNumber(kNumbers);
    case ado::adNumeric: {
        const std::string limit = "1e" + std::to_string(type.precision - type.scale);
        return isNumber(kNumbers) + Check("KVX_RANGE", what, "abs(" + name + ") < " + limit);
    }
    case ado::adDBTimeStamp: return Check("KVX_TYPE", what, "kvx_isdate(" + name + ")");
    case ado::adVarChar:
    case ado::adVarWChar:
    case ado::adChar:
    case ado::adWChar: {
        const std::string size = std::to_string(type.definedSize);
        return Check("KVX_LENGTH", what + " " + size, "length(" + name + ") <= " + size);
    }
    default: return {};
    }
}

std::string KeepAsText(const DeclaredType& type)
{
    if (type.IsText()) return " COLLATE KVX";
    return type.IsDate() ? " text COLLATE KVX_DATE" : std::string();
}

}  // namespace

// The parts of a CREATE TABLE that decide about its key.
struct Translator::KeyParts {
    std::string table;
    std::string identity;              // the column that the database numbers
    std::vector<std::string> primary;  // columns of the primary key
};

void Translator::TranslateCreate()
{
    const Keyword word = At(First()).word;
    const bool creates = word == Keyword::Create;
    std::size_t what = First() + 1;
    while (what < Last() && (At(what).Is(Keyword::Unique) || IsWord(what, "clustered") || IsWord(what, "nonclustered")))
        ++what;
    if (what >= Last()) {
        Walk(First(), Last(), Clause::None);
    } else if (word == Keyword::Truncate) {
        std::size_t next = 0;
        result_.sql = "DELETE FROM " + Bracketed(analysis_.ReadName(std::min(First() + 2, Last()), Last(), next));
    } else if (IsWord(what, "procedure") || At(what).Is(Keyword::Proc)) {
        TranslateProcedure(what);
    } else if (At(what).Is(Keyword::Table) && creates) {
        TranslateCreateTable();
    } else if (At(what).Is(Keyword::Table) && word == Keyword::Alter) {
        TranslateAlterTable();
    } else if (At(what).Is(Keyword::Index)) {
        TranslateIndex(what);
    } else if (IsWord(what, "trigger") && creates) {
        TranslateTrigger(what);
    } else if (At(what).Is(Keyword::Table) || At(what).Is(Keyword::View)) {
        Walk(First(), Last(), Clause::None);
    } else {
        RaiseConstruct(std::string(Text(First())) + " " + std::string(Text(what)));
    }
}

void Translator::TranslateProcedure(std::size_t what)
{
    std::size_t i = what + 1;
    if (i >= Last() || !At(i).IsName()) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    const std::string name = analysis_.ReadName(i, Last(), i);
    constexpr std::string_view kTable = "CREATE TABLE IF NOT EXISTS KORVEX_PROCEDURE (NAME TEXT NOT NULL PRIMARY KEY "
                                        "COLLATE NOCASE, BODY TEXT NOT NULL)";
    if (At(First()).Is(Keyword::Drop)) {
        result_.sql = kTable;
        result_.more.push_back("DELETE FROM KORVEX_PROCEDURE WHERE NAME = " + Quoted(name));
        return;
    }
    if (i >= Last() || !At(i).Is(Keyword::As)) RaiseConstruct("A procedure with parameters");
    if (i + 1 >= Last()) RaiseConstruct("A procedure without statements");
    const std::uint32_t begin = At(i + 1).begin;
    const std::string_view body = tokens_.text.substr(begin, At(Last() - 1).end - begin);
    const bool replaces = At(First()).Is(Keyword::Alter);
    result_.sql = kTable;
    result_.more.push_back((replaces ? "REPLACE INTO" : "INSERT INTO") +
                           (" KORVEX_PROCEDURE (NAME, BODY) VALUES (" + Quoted(name) + ", " + Quoted(body) + ")"));
}

// The one trigger that schemas need: after a delete, a key that fills itself goes on behind the highest one that is
// left.
void Translator::TranslateTrigger(std::size_t what)
{
    std::size_t i = what + 1;
    if (i >= Last() || !At(i).IsName()) RaiseConstruct("A trigger without a name");
    const std::string name = analysis_.ReadName(i, Last(), i);
    if (i + 1 >= Last() || !At(i).Is(Keyword::On) || !At(i + 1).IsName()) RaiseConstruct("A trigger without a table");
    const std::string table = analysis_.ReadName(i + 1, Last(), i);
    const bool afterDelete = i + 2 < Last() && (IsWord(i, "after") || IsWord(i, "for")) &&
                             At(i + 1).Is(Keyword::Delete) && At(i + 2).Is(Keyword::As);
    bool reseeds = false;
    for (std::size_t at = i; afterDelete && at < Last(); ++at)
        reseeds = reseeds || (IsWord(at, "checkident") && IsWord(at - 1, "dbcc"));
    if (!reseeds) RaiseConstruct("A trigger that does more than DBCC CHECKIDENT after a delete");
    result_.sql = "CREATE TRIGGER " + Bracketed(name) + " AFTER DELETE ON " + Bracketed(table) +
                  " BEGIN UPDATE sqlite_sequence SET seq = (SELECT COALESCE(MAX(rowid), 0) FROM " + Bracketed(table) +
                  ") WHERE name = " + Quoted(table) + "; END";
}

std::vector<Range> Translator::Definitions(std::size_t open) const
{
    std::vector<Range> result;
    const std::size_t close = tokens_.BehindClose(open) - 1;
    std::size_t begin = open + 1;
    for (std::size_t i = begin; i <= close; ++i) {
        if (At(i).kind == TokenKind::Open)
            i = tokens_.BehindClose(i) - 1;
        else if (At(i).kind == TokenKind::Comma || i == close) {
            if (i > begin) result.push_back({begin, i});
            begin = i + 1;
        }
    }
    return result;
}

bool Translator::IsConstraint(Range definition) const
{
    const Token& token = At(definition.first);
    return token.Is(Keyword::Primary) || token.Is(Keyword::Unique) || token.Is(Keyword::Check) ||
           (token.kind == TokenKind::Word &&
            (IsWord(definition.first, "constraint") || IsWord(definition.first, "foreign")));
}

void Translator::TranslateCreateTable()
{
    std::size_t open = First() + 2;
    KeyParts key;
    if (open < Last() && At(open).IsName()) key.table = analysis_.ReadName(open, Last(), open);
    if (open >= Last() || At(open).kind != TokenKind::Open) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    const std::vector<Range> definitions = Definitions(open);
    for (Range definition : definitions) {
        if (!IsConstraint(definition)) {
            for (std::size_t i = definition.first; i < definition.last; ++i)
                if (IsWord(i, "identity")) key.identity = Unquote(Text(definition.first));
            continue;
        }
        const std::size_t primary = analysis_.Find(definition, Keyword::Primary);
        for (std::size_t i = primary; i < definition.last; ++i)
            if (At(i).IsName() && (At(i - 1).kind == TokenKind::Open || At(i - 1).kind == TokenKind::Comma))
                key.primary.push_back(Unquote(Text(i)));
    }
    Append("CREATE TABLE " + Bracketed(key.table) + " (");
    bool first = true;
    for (Range definition : definitions) {
        // The key that the database counts up stands with its column.
        const bool dropped = IsConstraint(definition) && !key.identity.empty() && key.primary.size() == 1 &&
                             SameText(key.primary[0], key.identity) &&
                             analysis_.Find(definition, Keyword::Primary) != definition.last;
        if (dropped) continue;
        Append(first ? "\n    " : ",\n    ");
        first = false;
        if (IsConstraint(definition))
            WriteConstraint(definition, !key.identity.empty());
        else
            WriteColumn(definition, key);
    }
    Append("\n)");
}

// CONSTRAINT name PRIMARY KEY CLUSTERED (ID ASC) WITH (..) ON [PRIMARY]
void Translator::WriteConstraint(Range definition, bool hasIdentity)
{
    StartAt(definition.first);
    for (std::size_t i = definition.first; i < definition.last;) {
        if (IsWord(i, "clustered") || IsWord(i, "nonclustered")) {
            StartBehind(i++);
        } else if (At(i).Is(Keyword::Primary) && hasIdentity) {  // SQLite's own primary key is the counted column
            Replace(i, "UNIQUE");
            StartBehind(i + 1);
            i += 2;
        } else if (At(i).Is(Keyword::With) || (At(i).Is(Keyword::On) && At(i + 1).kind == TokenKind::Name)) {
            return;
        } else if (At(i).kind == TokenKind::Open) {
            const std::size_t behind = tokens_.BehindClose(i);
            Walk(i, behind, Clause::Where);
            i = behind;
        } else {
            i = OnWordOrName(i, definition.last);
        }
    }
}

std::size_t Translator::OnWordOrName(std::size_t i, std::size_t last)
{
    frames_.push_back({});
    const std::size_t next = At(i).kind == TokenKind::Word   ? OnWord(i, last)
                             : At(i).kind == TokenKind::Name ? OnName(i, last)
                                                             : (Copy(i), i + 1);
    frames_.pop_back();
    return next;
}

void Translator::WriteColumn(Range definition, const KeyParts& key)
{
    const std::string name = Unquote(Text(definition.first));
    std::size_t i = definition.first + 1;
    if (i >= definition.last) {  // a computed column, or nothing we know
        RaiseConstruct("The column " + name + " without a type");
    }
    if (At(i).Is(Keyword::As)) RaiseConstruct("The computed column " + name);
    const std::uint32_t typeBegin = At(i).begin;
    std::size_t behindType = i;
    analysis_.ReadName(i, definition.last, behindType);
    if (IsWord(behindType, "precision")) ++behindType;
    if (behindType < definition.last && At(behindType).kind == TokenKind::Open)
        behindType = tokens_.BehindClose(behindType);
    std::string typeText(tokens_.text.substr(typeBegin, At(behindType - 1).end - typeBegin));
    if (typeText.front() == '[') {  // [nvarchar](25)
        const std::size_t close = typeText.find(']');
        typeText = typeText.substr(1, close - 1) + typeText.substr(close + 1);
    }
    const DeclaredType type = ParseDeclaredType(typeText);
    const bool identity = SameText(name, key.identity);
    if (SameText(typeText, "integer")) typeText = "int";                             // SQLite makes more of that word
    if (typeText.find('(') != std::string::npos && IsWord(behindType - 2, "max")) {  // SQLite takes numbers only
        typeText = type.type == ado::adLongVarWChar ? "ntext" : type.IsText() ? "text" : "image";
    }
    Append(Bracketed(name) + " " + (identity ? "INTEGER PRIMARY KEY AUTOINCREMENT" : typeText + KeepAsText(type)));
    bool notNull = false, isKey = false;
    for (i = behindType; i < definition.last;) {
        const Token& token = At(i);
        const bool last = i + 1 >= definition.last;
        if (IsWord(i, "identity")) {
            i = !last && At(i + 1).kind == TokenKind::Open ? tokens_.BehindClose(i + 1) : i + 1;
        } else if (token.Is(Keyword::Not) && !last && At(i + 1).Is(Keyword::Null)) {
            notNull = true;
            i += 2;
        } else if (token.Is(Keyword::Null) || IsWord(i, "clustered") || IsWord(i, "nonclustered")) {
            ++i;
        } else if (token.Is(Keyword::Collate)) {
            i += 2;
        } else if (token.Is(Keyword::Primary)) {
            isKey = true;
            i += 2;
        } else if (IsWord(i, "constraint")) {
            i += 2;  // names of column constraints mean nothing here
        } else if (token.Is(Keyword::Default)) {
            i = WriteDefault(i + 1, definition.last);
        } else if (token.Is(Keyword::On) && !last && At(i + 1).kind == TokenKind::Name) {
            i += 2;  // a file group
        } else if (token.Is(Keyword::With) && !last && At(i + 1).kind == TokenKind::Open) {
            i = tokens_.BehindClose(i + 1);
        } else if (token.kind == TokenKind::Open) {
            const std::size_t behind = tokens_.BehindClose(i);
            StartAt(i);
            Walk(i, behind, Clause::Where);
            i = behind;
        } else {  // UNIQUE, CHECK, REFERENCES t (c) ON DELETE CASCADE
            Append(" ");
            StartAt(i);
            i = OnWordOrName(i, definition.last);
        }
    }
    const bool inKey =
        isKey || std::ranges::any_of(key.primary, [&](const std::string& k) { return SameText(k, name); });
    if (!identity && (notNull || inKey)) Append(" NOT NULL");
    if (isKey && !identity) Append(key.identity.empty() ? " PRIMARY KEY" : " UNIQUE");
    if (!identity) Append(TypeChecks(type, key.table, name));
}

// A literal, a call or something in brackets; SQLite wants brackets around anything but a literal.
std::size_t Translator::WriteDefault(std::size_t first, std::size_t last)
{
    std::size_t end = first;
    if (end < last && At(end).kind == TokenKind::Operator) ++end;
    if (end < last && At(end).kind == TokenKind::Open) {
        end = tokens_.BehindClose(end);
    } else {
        ++end;
        if (end < last && At(end).kind == TokenKind::Open) end = tokens_.BehindClose(end);
    }
    end = std::min(end, last);
    Append(" DEFAULT (");
    StartAt(first);
    Walk(first, end, Clause::Where);
    Append(")");
    return end;
}

void Translator::TranslateAlterTable()
{
    KeyParts key;
    std::size_t i = First() + 2;
    if (i < Last() && At(i).IsName()) key.table = analysis_.ReadName(i, Last(), i);
    const std::string head = "ALTER TABLE " + Bracketed(key.table);
    while (i < Last() && (At(i).Is(Keyword::With) || IsWord(i, "check") || IsWord(i, "nocheck")))
        ++i;
    if (i + 1 >= Last() || !At(i).Is(Keyword::Add)) {
        if (i + 2 < Last() && At(i).Is(Keyword::Drop) && IsWord(i + 1, "column")) {
            Append(head + " DROP COLUMN " + Bracketed(Unquote(Text(i + 2))));
            return;
        }
        RaiseConstruct("ALTER TABLE .. " + (i < Last() ? std::string(Text(i)) : std::string()));
    }
    ++i;
    const Range rest{i, Last()};
    if (IsConstraint(rest)) {
        const std::string name = IsWord(i, "constraint") ? Unquote(Text(i + 1)) : key.table + "_KEY";
        const std::size_t primary = analysis_.Find(rest, Keyword::Primary),
                          unique = analysis_.Find(rest, Keyword::Unique);
        if (primary == Last() && unique == Last()) RaiseConstruct("ALTER TABLE .. ADD CONSTRAINT");
        std::size_t open = std::min(primary, unique);
        while (open < Last() && At(open).kind != TokenKind::Open)
            ++open;
        if (open == Last()) RaiseConstruct("ALTER TABLE .. ADD CONSTRAINT");
        Append("CREATE UNIQUE INDEX " + Bracketed(key.table + "." + name) + " ON " + Bracketed(key.table) + " ");
        StartAt(open);
        Walk(open, tokens_.BehindClose(open), Clause::None);
        return;
    }
    std::vector<std::string> statements;
    for (std::size_t begin = i; begin < Last();) {
        std::size_t end = begin;
        while (end < Last() && At(end).kind != TokenKind::Comma)
            end = At(end).kind == TokenKind::Open ? tokens_.BehindClose(end) : end + 1;
        Append(head + " ADD COLUMN ");
        WriteColumn({begin, end}, key);
        statements.push_back(writer_.Take());
        begin = end + 1;
    }
    result_.sql = std::move(statements.front());
    result_.more.assign(std::make_move_iterator(statements.begin() + 1), std::make_move_iterator(statements.end()));
}

// Names of indexes belong to their table there, to the database here.
void Translator::TranslateIndex(std::size_t what)
{
    std::size_t i = what + 1;
    if (i >= Last() || !At(i).IsName()) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    if (At(First()).Is(Keyword::Drop)) {
        std::string name = Unquote(Text(i)), table;
        if (i + 2 < Last() && At(i + 1).kind == TokenKind::Dot) {
            table = name;
            name = Unquote(Text(i + 2));
        } else if (i + 2 < Last() && At(i + 1).Is(Keyword::On)) {
            table = analysis_.ReadName(i + 2, Last(), i);
        }
        result_.sql = "DROP INDEX " + Bracketed(table + "." + name);
        return;
    }
    const std::string name = Unquote(Text(i));
    const std::size_t on = i + 1;
    std::size_t open = on + 1;
    if (on + 1 >= Last() || !At(on).Is(Keyword::On) || !At(on + 1).IsName()) {
        Walk(First(), Last(), Clause::None);
        return;
    }
    const std::string table = analysis_.ReadName(on + 1, Last(), open);
    const bool unique = analysis_.Find({First(), what}, Keyword::Unique) != what;
    Append(std::string("CREATE ") + (unique ? "UNIQUE " : "") + "INDEX " + Bracketed(table + "." + name) + " ON " +
           Bracketed(table) + " ");
    if (open >= Last() || At(open).kind != TokenKind::Open) return;  // the engine will miss the columns
    std::size_t behind = tokens_.BehindClose(open);
    StartAt(open);
    Walk(open, behind - 1, Clause::None);
    if (IsWord(behind, "include") && At(behind + 1).kind == TokenKind::Open) {
        const std::size_t end = tokens_.BehindClose(behind + 1);
        if (!unique) {  // columns that the index only carries along
            Append(", ");
            StartAt(behind + 2);
            Walk(behind + 2, end - 1, Clause::None);
        }
        behind = end;
    }
    Append(")");
    if (behind < Last() && At(behind).Is(Keyword::Where)) {
        Append(" ");
        StartAt(behind);
        const std::size_t with =
            std::min(analysis_.Find({behind, Last()}, Keyword::With), analysis_.Find({behind, Last()}, Keyword::On));
        Walk(behind, with, Clause::Where);
    }
}

// A line that holds only GO ends a batch, unless it stands inside a literal or a comment.
std::vector<std::string_view> SplitBatches(std::string_view script)
{
    std::vector<std::string_view> batches;
    std::size_t begin = 0;
    const auto isGo = [](std::string_view line) {
        while (!line.empty() && (line.back() == '\r' || line.back() == ' ' || line.back() == '\t'))
            line.remove_suffix(1);
        while (!line.empty() && (line.front() == ' ' || line.front() == '\t'))
            line.remove_prefix(1);
        return SameText(line, "go");
    };
    enum class In { Text, Literal, Brackets, Comment } in = In::Text;
    std::size_t line = 0;
    for (std::size_t i = 0; i <= script.size(); ++i) {
        const char c = i < script.size() ? script[i] : '\n';
        const char next = i + 1 < script.size() ? script[i + 1] : '\0';
        switch (in) {
        case In::Literal:
            if (c == '\'') in = In::Text;  // a doubled one opens the literal again at once
            break;
        case In::Brackets:
            if (c == ']') in = In::Text;
            break;
        case In::Comment:
            if (c == '*' && next == '/') {
                in = In::Text;
                ++i;
            }
            break;
        case In::Text:
            if (c == '\'') in = In::Literal;
            if (c == '[') in = In::Brackets;
            if (c == '/' && next == '*') {
                in = In::Comment;
                ++i;
            }
            if (c == '-' && next == '-') {
                const std::size_t end = script.find('\n', i);
                i = (end == std::string_view::npos ? script.size() : end) - 1;
            }
            if (c == '\n') {
                if (isGo(script.substr(line, std::min(i, script.size()) - line))) {
                    batches.push_back(script.substr(begin, line - begin));
                    begin = std::min(i + 1, script.size());
                }
            }
            break;
        }
        if (c == '\n') line = i + 1;
    }
    if (begin < script.size()) batches.push_back(script.substr(begin));
    return batches;
}

}  // namespace kvx::adapters::sqlite
