#include "adapters/sqlite/Analysis.h"

#include <algorithm>
#include <charconv>

namespace kvx::adapters::sqlite {
namespace {

bool IsJoinWord(Keyword word)
{
    switch (word) {
    case Keyword::Join:
    case Keyword::Left:
    case Keyword::Right:
    case Keyword::Inner:
    case Keyword::Outer:
    case Keyword::Full:
    case Keyword::Cross:
    case Keyword::On:
    case Keyword::Where:
    case Keyword::Group:
    case Keyword::Order:
    case Keyword::Having:
    case Keyword::Union:
    case Keyword::Except:
    case Keyword::With:
    case Keyword::Limit:
    case Keyword::Set: return true;
    default: return false;
    }
}

bool EndsFrom(Keyword word)
{
    switch (word) {
    case Keyword::Where:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Order:
    case Keyword::Limit:
    case Keyword::Union:
    case Keyword::Except: return true;
    default: return false;
    }
}

// Which of two types an operation on both gives: the one that holds more.
int Rank(const DeclaredType& type)
{
    switch (type.type) {
    case ado::adBoolean: return 1;
    case ado::adUnsignedTinyInt: return 2;
    case ado::adSmallInt: return 3;
    case ado::adInteger: return 4;
    case ado::adBigInt: return 5;
    case ado::adNumeric: return 6;
    case ado::adCurrency: return 7;
    case ado::adSingle: return 8;
    case ado::adDouble: return 9;
    case ado::adDBTimeStamp: return 10;
    default: return 0;
    }
}

// Digits of a whole number type beside a numeric one.
DeclaredType AsNumeric(const DeclaredType& type)
{
    if (type.type == ado::adNumeric) return type;
    return NumericType(type.type == ado::adBoolean ? 1 : type.precision, 0);
}

DeclaredType CombineTexts(const DeclaredType& a, const DeclaredType& b, bool joined)
{
    const bool wide = a.IsWide() || b.IsWide();
    const std::int64_t both =
        joined ? std::int64_t{a.definedSize} + b.definedSize : std::max(a.definedSize, b.definedSize);
    return TextType(static_cast<std::size_t>(std::min<std::int64_t>(both, wide ? 4000 : 8000)), wide);
}

DeclaredType Combine(const DeclaredType& a, const DeclaredType& b, char operation)
{
    if (a.IsText() && b.IsText()) return CombineTexts(a, b, operation == '+' || operation == '|');
    if (a.IsText()) return b;
    if (b.IsText()) return a;
    const DeclaredType& larger = Rank(a) >= Rank(b) ? a : b;
    if (larger.type != ado::adNumeric || operation == '\0') return larger;
    const DeclaredType x = AsNumeric(a), y = AsNumeric(b);
    const int scale = std::max(x.scale, y.scale);
    const int whole = std::max(x.precision - x.scale, y.precision - y.scale);
    switch (operation) {
    case '*': return NumericType(x.precision + y.precision + 1, x.scale + y.scale);
    case '/': {
        const int places = std::max(6, x.scale + y.precision + 1);
        return NumericType(x.precision - x.scale + y.scale + places, places);
    }
    case '%': return larger;
    default: return NumericType(whole + scale + 1, scale);
    }
}

}  // namespace

const TableColumn* TableDef::Find(std::string_view column) const
{
    const auto found = std::ranges::find_if(columns, [&](const TableColumn& c) { return SameText(c.name, column); });
    return found == columns.end() ? nullptr : &*found;
}

std::size_t Analysis::Find(Range range, Keyword keyword) const
{
    std::size_t depth = 0;
    for (std::size_t i = range.first; i < range.last; ++i) {
        const Token& token = At(i);
        if (token.kind == TokenKind::Open) ++depth;
        if (token.kind == TokenKind::Close && depth > 0) --depth;
        if (depth == 0 && token.word == keyword) return i;
    }
    return range.last;
}

std::string Analysis::ReadName(std::size_t index, std::size_t last, std::size_t& next) const
{
    while (index + 2 < last && At(index).IsName() && At(index + 1).kind == TokenKind::Dot && At(index + 2).IsName())
        index += 2;
    next = index + 1;
    return Unquote(tokens_.Text(index));
}

std::string_view Analysis::NameOf(std::size_t index, std::string& buffer) const
{
    if (At(index).kind == TokenKind::Word) return tokens_.Text(index);
    buffer = Unquote(tokens_.Text(index));
    return buffer;
}

SelectParts Analysis::Parts(std::size_t select, std::size_t last) const
{
    SelectParts parts;
    parts.items.reserve(8);
    std::size_t i = select + 1;
    if (i < last && (At(i).Is(Keyword::Distinct) || At(i).Is(Keyword::All)))
        parts.distinct = At(i++).Is(Keyword::Distinct);
    if (i + 1 < last && At(i).Is(Keyword::Top)) {
        if (At(i + 1).IsNumber()) i += 2;
        if (At(i).Is(Keyword::Top) && At(i + 1).kind == TokenKind::Open) i = tokens_.BehindClose(i + 1);
    }
    bool inFrom = false;
    std::size_t item = i;
    const auto endItem = [&] {
        if (!inFrom && i > item) parts.items.push_back({item, i});
        item = i + 1;
    };
    for (; i < last; ++i) {
        const Token& token = At(i);
        if (token.kind == TokenKind::Open) {
            i = tokens_.BehindClose(i) - 1;
            continue;
        }
        if (token.kind == TokenKind::Comma) {
            endItem();
            continue;
        }
        if (token.kind == TokenKind::Close || token.kind == TokenKind::Semicolon || EndsFrom(token.word)) break;
        if (token.Is(Keyword::From) && !inFrom) {
            endItem();
            inFrom = true;
            parts.from.first = i + 1;
        }
    }
    endItem();
    if (inFrom) parts.from.last = i;
    return parts;
}

bool Analysis::IsCompound(std::size_t select, std::size_t last) const
{
    for (std::size_t i = select; i < last; ++i) {
        const Token& token = At(i);
        if (token.kind == TokenKind::Open)
            i = tokens_.BehindClose(i) - 1;
        else if (token.kind == TokenKind::Close || token.kind == TokenKind::Semicolon)
            return false;
        else if (token.Is(Keyword::Union) || token.Is(Keyword::Except))
            return true;
    }
    return false;
}

std::vector<Source> Analysis::Sources(Range from, const Scope* outer) const
{
    std::vector<Source> sources;
    bool expected = true;  // a table may stand here
    const auto readAlias = [&](std::size_t i, Source& source) {
        if (i < from.last && At(i).Is(Keyword::As)) ++i;
        if (i < from.last && At(i).IsName() && !IsJoinWord(At(i).word)) source.alias = Unquote(tokens_.Text(i++));
        return i;
    };
    for (std::size_t i = from.first; i < from.last;) {
        const Token& token = At(i);
        if (token.kind == TokenKind::Open && expected && At(i + 1).Is(Keyword::Select)) {
            const std::size_t behind = tokens_.BehindClose(i);
            Source source;
            if (auto columns = Columns(i + 1, behind - 1, outer)) source.columns = std::move(*columns);
            i = readAlias(behind, source);
            sources.push_back(std::move(source));
            expected = false;
        } else if (token.kind == TokenKind::Open && !expected) {
            i = tokens_.BehindClose(i);  // a condition
        } else if (token.IsName() && expected && !IsJoinWord(token.word)) {
            Source source;
            std::size_t next = i;
            source.table = ReadName(i, from.last, next);
            source.alias = source.table;
            source.definition = schema_.FindTable(source.table);
            i = readAlias(next, source);
            sources.push_back(std::move(source));
            expected = false;
        } else {
            if (token.Is(Keyword::Join) || token.kind == TokenKind::Comma) expected = true;
            ++i;
        }
    }
    return sources;
}

Scope Analysis::WholeScope(Range statement) const
{
    Scope scope;
    for (std::size_t i = statement.first; i + 1 < statement.last; ++i) {
        switch (At(i).word) {
        case Keyword::From:
        case Keyword::Join:
        case Keyword::Into:
        case Keyword::Update: {
            if (!At(i + 1).IsName()) break;
            std::size_t next = 0;
            Source source;
            source.table = ReadName(i + 1, statement.last, next);
            source.alias = source.table;
            if (next < statement.last && At(next).Is(Keyword::As)) ++next;
            if (next < statement.last && At(next).IsName() && !IsJoinWord(At(next).word))
                source.alias = Unquote(tokens_.Text(next));
            source.definition = schema_.FindTable(source.table);
            if (source.definition != nullptr) scope.sources.push_back(std::move(source));
            break;
        }
        default: break;
        }
    }
    return scope;
}

std::vector<Range> Analysis::SplitAtCommas(Range range) const
{
    std::vector<Range> parts;
    std::size_t begin = range.first;
    for (std::size_t i = range.first; i < range.last; ++i) {
        if (At(i).kind == TokenKind::Open) {
            i = tokens_.BehindClose(i) - 1;
        } else if (At(i).kind == TokenKind::Comma) {
            parts.push_back({begin, i});
            begin = i + 1;
        }
    }
    if (begin < range.last) parts.push_back({begin, range.last});
    return parts;
}

bool Analysis::IsPlainColumn(Range range) const
{
    for (std::size_t i = range.first; i < range.last; ++i) {
        const bool name = (i - range.first) % 2 == 0;
        if (name ? !At(i).IsName() : At(i).kind != TokenKind::Dot) return false;
    }
    return range.Size() % 2 == 1 && !At(range.first).Is(Keyword::Null);
}

bool Analysis::FindColumn(Range name, const Scope& scope, ResultColumn& result) const
{
    std::string columnBuffer, tableBuffer;
    const std::string_view column = NameOf(name.last - 1, columnBuffer);
    const std::string_view table = name.Size() > 2 ? NameOf(name.last - 3, tableBuffer) : std::string_view();
    for (const Scope* level = &scope; level != nullptr; level = level->outer) {
        for (const Source& source : level->sources) {
            if (!table.empty() && !SameText(table, source.alias)) continue;
            if (source.definition != nullptr) {
                if (const TableColumn* found = source.definition->Find(column)) {
                    result.type = found->type;
                    result.table = source.definition;
                    result.column = found;
                    return true;
                }
                continue;
            }
            const auto found =
                std::ranges::find_if(source.columns, [&](const ResultColumn& c) { return SameText(c.name, column); });
            if (found != source.columns.end()) {
                result.type = found->type;
                result.table = found->table;
                result.column = found->column;
                return true;
            }
        }
    }
    return false;
}

std::optional<std::vector<ResultColumn>> Analysis::Columns(std::size_t select, std::size_t last,
                                                           const Scope* outer) const
{
    const SelectParts parts = Parts(select, last);
    Scope scope{Sources(parts.from, outer), outer};
    std::vector<ResultColumn> result;
    result.reserve(parts.items.size());
    const auto spread = [&](const Source& source) {
        if (source.definition == nullptr) {
            result.insert(result.end(), source.columns.begin(), source.columns.end());
            return !source.columns.empty();
        }
        for (const TableColumn& c : source.definition->columns)
            result.push_back({c.name, c.type, source.definition, &c});
        return true;
    };
    for (Range item : parts.items) {
        if (tokens_.Operator(item.last - 1) == '*' && (item.Size() == 1 || At(item.last - 2).kind == TokenKind::Dot)) {
            const std::string table = item.Size() == 1 ? std::string() : Unquote(tokens_.Text(item.last - 3));
            for (const Source& source : scope.sources) {
                if (!table.empty() && !SameText(table, source.alias)) continue;
                if (!spread(source)) return std::nullopt;
            }
            continue;
        }
        ResultColumn column;
        // "x AS NAME", "x NAME"
        if (item.Size() > 2 && At(item.last - 2).Is(Keyword::As)) {
            column.name = At(item.last - 1).kind == TokenKind::Text ? LiteralText(tokens_.Text(item.last - 1))
                                                                    : Unquote(tokens_.Text(item.last - 1));
            item.last -= 2;
        } else if (item.Size() > 1 && At(item.last - 1).IsName() && !At(item.last - 1).Is(Keyword::End) &&
                   !At(item.last - 1).Is(Keyword::Null) && At(item.last - 2).kind != TokenKind::Dot &&
                   At(item.last - 2).kind != TokenKind::Operator && !At(item.last - 2).Is(Keyword::Collate)) {
            column.name = Unquote(tokens_.Text(item.last - 1));
            item.last -= 1;
        }
        if (IsPlainColumn(item)) {
            if (column.name.empty()) column.name = Unquote(tokens_.Text(item.last - 1));
            if (!FindColumn(item, scope, column)) return std::nullopt;
        } else {
            column.type = TypeOf(item, scope).value_or(TextType(4000, true));
        }
        result.push_back(std::move(column));
    }
    return result;
}

std::optional<DeclaredType> Analysis::TypeOfLiteral(const Token& token) const
{
    const std::string_view text = tokens_.Text(token);
    switch (token.kind) {
    case TokenKind::Text: return TextType(CountCharacters(LiteralText(text)), text.front() != '\'');
    case TokenKind::Integer: {
        const std::size_t zeros = std::min(text.find_first_not_of('0'), text.size());
        const std::size_t digits = std::max<std::size_t>(text.size() - zeros, 1);
        const bool fits = digits < 10 || (digits == 10 && text.substr(zeros) <= "2147483647");
        return fits ? IntType() : NumericType(static_cast<int>(digits), 0);
    }
    case TokenKind::Number: {
        const std::size_t point = text.find('.');
        if (text.find_first_not_of("0123456789.") != std::string_view::npos) return ParseDeclaredType("float");
        const auto decimals = static_cast<int>(text.size() - point - 1);
        return NumericType(std::max(static_cast<int>(text.size()) - 1, 1), decimals);
    }
    case TokenKind::Word:
        if (token.Is(Keyword::Null)) return IntType();
        return std::nullopt;
    default: return std::nullopt;
    }
}

// "+ - * / % ||" outside of brackets and CASE; a comparison or a logical word makes a truth value.
std::optional<DeclaredType> Analysis::TypeOfOperation(Range expression, const Scope& scope, bool& isOperation) const
{
    std::vector<Range> operands;
    char operation = '\0';
    std::size_t begin = expression.first;
    std::size_t cases = 0;
    for (std::size_t i = expression.first; i < expression.last; ++i) {
        const Token& token = At(i);
        if (token.kind == TokenKind::Open) {
            i = tokens_.BehindClose(i) - 1;
            continue;
        }
        if (token.Is(Keyword::Case)) ++cases;
        if (token.Is(Keyword::End) && cases > 0) --cases;
        if (cases > 0) continue;
        switch (token.word) {
        case Keyword::And:
        case Keyword::Or:
        case Keyword::Not:
        case Keyword::Is:
        case Keyword::In:
        case Keyword::Like:
        case Keyword::Between:
        case Keyword::Exists: isOperation = true; return IntType();
        default: break;
        }
        if (token.kind != TokenKind::Operator) continue;
        if (tokens_.IsComparison(i)) {
            isOperation = true;
            return IntType();
        }
        if (i == begin) {  // a sign
            begin = i + 1;
            continue;
        }
        operands.push_back({begin, i});
        if (operation == '\0') operation = tokens_.Operator(i);
        begin = i + 1;
    }
    if (operands.empty() && begin == expression.first) return std::nullopt;
    isOperation = true;
    operands.push_back({begin, expression.last});
    std::optional<DeclaredType> result;
    for (Range operand : operands) {
        if (operand.Size() == 1 && At(operand.first).Is(Keyword::Null)) continue;
        const std::optional<DeclaredType> type = TypeOf(operand, scope);
        if (!type) continue;
        result = result ? Combine(*result, *type, operation) : *type;
    }
    return result;
}

std::optional<DeclaredType> Analysis::TypeOfCase(Range expression, const Scope& scope) const
{
    std::optional<DeclaredType> result;
    std::size_t cases = 0;
    std::size_t begin = 0;
    const auto take = [&](std::size_t end) {
        if (begin == 0 || (end == begin + 1 && At(begin).Is(Keyword::Null))) return;
        if (const auto type = TypeOf({begin, end}, scope)) {
            result = !result                              ? *type
                     : result->IsText() && type->IsText() ? CombineTexts(*result, *type, false)
                                                          : Combine(*result, *type, '\0');
        }
    };
    for (std::size_t i = expression.first; i < expression.last; ++i) {
        const Token& token = At(i);
        if (token.kind == TokenKind::Open) {
            i = tokens_.BehindClose(i) - 1;
            continue;
        }
        if (token.Is(Keyword::Case)) ++cases;
        if (cases != 1) {
            if (token.Is(Keyword::End)) --cases;
            continue;
        }
        if (token.Is(Keyword::When) || token.Is(Keyword::Else) || token.Is(Keyword::End)) take(i);
        if (token.Is(Keyword::Then) || token.Is(Keyword::Else)) begin = i + 1;
        if (token.Is(Keyword::When)) begin = 0;
        if (token.Is(Keyword::End)) --cases;
    }
    return result;
}

DeclaredType Analysis::ReadType(Range range) const
{
    if (range.IsEmpty()) return IntType();
    const std::uint32_t begin = At(range.first).begin;
    return ParseDeclaredType(tokens_.text.substr(begin, At(range.last - 1).end - begin));
}

std::optional<DeclaredType> Analysis::TypeOfCall(Range expression, const Scope& scope) const
{
    const std::string name = LowerAscii(tokens_.Text(expression.first));
    const std::vector<Range> arguments = SplitAtCommas({expression.first + 2, expression.last - 1});
    const auto argument = [&](std::size_t i) {
        return i < arguments.size() ? TypeOf(arguments[i], scope) : std::nullopt;
    };
    if (name == "isnull" || name == "nvl" || name == "ifnull" || name == "nullif" || name == "max" || name == "min" ||
        name == "abs" || name == "round")
        return argument(0);
    if (name == "coalesce") {
        std::optional<DeclaredType> result;
        for (std::size_t i = 0; i < arguments.size(); ++i)
            if (const auto type = argument(i)) result = result ? Combine(*result, *type, '\0') : *type;
        return result;
    }
    if (name == "sum" || name == "avg") {
        const auto type = argument(0);
        if (!type) return std::nullopt;
        if (type->type == ado::adNumeric)
            return NumericType(38, name == "avg" ? std::max<int>(type->scale, 6) : type->scale);
        return type->IsWhole() && type->type != ado::adBigInt ? IntType() : *type;
    }
    if (name == "left" || name == "right" || name == "substring") {
        auto type = argument(0);
        if (!type || !type->IsText()) return TextType(8000, false);
        if (arguments.back().Size() == 1 && At(arguments.back().first).kind == TokenKind::Integer) {
            int size = type->definedSize;
            const std::string_view digits = tokens_.Text(arguments.back().first);
            std::from_chars(digits.data(), digits.data() + digits.size(), size);
            return TextType(static_cast<std::size_t>(std::min(size, type->definedSize)), type->IsWide());
        }
        return TextType(static_cast<std::size_t>(std::min(type->definedSize, 8000)), type->IsWide());
    }
    if (name == "upper" || name == "lower" || name == "ltrim" || name == "rtrim" || name == "trim" ||
        name == "replace") {
        const auto type = argument(0);
        return type && type->IsText() ? *type : TextType(8000, false);
    }
    if (name == "count" || name == "len" || name == "charindex" || name == "year" || name == "month" || name == "day" ||
        name == "exists")
        return IntType();
    if (name == "getdate") return DateTimeType();
    if (name == "scope_identity") return NumericType(38, 0);
    if (name == "cast") {
        const std::size_t as = Find({expression.first + 2, expression.last - 1}, Keyword::As);
        return ReadType({as + 1, expression.last - 1});
    }
    if (name == "convert" && !arguments.empty()) return ReadType(arguments[0]);
    return std::nullopt;
}

std::optional<DeclaredType> Analysis::TypeOf(Range expression, const Scope& scope) const
{
    while (expression.Size() > 2 && At(expression.first).kind == TokenKind::Open &&
           tokens_.BehindClose(expression.first) == expression.last) {
        expression = {expression.first + 1, expression.last - 1};
        if (At(expression.first).Is(Keyword::Select)) {
            const auto columns = Columns(expression.first, expression.last, &scope);
            if (!columns || columns->empty()) return std::nullopt;
            return columns->front().type;
        }
    }
    if (expression.IsEmpty()) return std::nullopt;
    if (expression.Size() > 2 && At(expression.last - 2).Is(Keyword::Collate)) expression.last -= 2;
    if (expression.Size() == 1) {
        if (const auto literal = TypeOfLiteral(At(expression.first))) return literal;
        if (At(expression.first).kind == TokenKind::Variable) return NumericType(38, 0);
    }
    if (IsPlainColumn(expression)) {
        ResultColumn column;
        return FindColumn(expression, scope, column) ? std::optional(column.type) : std::nullopt;
    }
    bool isOperation = false;
    const auto operation = TypeOfOperation(expression, scope, isOperation);
    if (isOperation) return operation;
    if (At(expression.first).Is(Keyword::Case)) return TypeOfCase(expression, scope);
    if (expression.Size() > 2 && At(expression.first).kind == TokenKind::Word &&
        At(expression.first + 1).kind == TokenKind::Open)
        return TypeOfCall(expression, scope);
    return std::nullopt;
}

}  // namespace kvx::adapters::sqlite
