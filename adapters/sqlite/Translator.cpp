#include "adapters/sqlite/Translator.h"

#include "adapters/sqlite/Errors.h"

#include <algorithm>
#include <charconv>

namespace kvx::adapters::sqlite {
namespace {

constexpr std::string_view kCollateText = " COLLATE KVX";
constexpr std::string_view kTextOfCall = " AS TEXT) COLLATE KVX";  // compared with a number, it is a text all the same
constexpr std::string_view kCollateDate = " COLLATE KVX_DATE";

std::int64_t ReadInteger(std::string_view digits)
{
    std::int64_t value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

bool IsFunction(const Token& token)
{
    if (token.kind != TokenKind::Word) return false;
    switch (token.word) {
    case Keyword::Other:
    case Keyword::Avg:
    case Keyword::Cast:
    case Keyword::Convert:
    case Keyword::Count:
    case Keyword::Getdate:
    case Keyword::Ifnull:
    case Keyword::Isnull:
    case Keyword::Left:
    case Keyword::Max:
    case Keyword::Min:
    case Keyword::Nvl:
    case Keyword::Right:
    case Keyword::Sum: return true;
    default: return false;
    }
}

// Words that no rule knows.
bool IsOrdinary(Keyword word)
{
    return word == Keyword::Other || word == Keyword::And || word == Keyword::Is || word == Keyword::Null ||
           word == Keyword::Or || word == Keyword::As;
}

// The end of a call, a sub-select, a CASE, or a literal: nothing that has a column's collation.
bool LosesCollation(const Token& last)
{
    return last.kind == TokenKind::Close || last.kind == TokenKind::Text || last.Is(Keyword::End);
}

bool IsHint(std::string_view word)
{
    constexpr std::string_view kHints[] = {"nolock",  "readuncommitted", "updlock",        "holdlock", "rowlock",
                                           "tablock", "readpast",        "readcommitted",  "paglock",  "tablockx",
                                           "xlock",   "serializable",    "repeatableread", "index"};
    for (std::string_view hint : kHints)
        if (SameText(hint, word)) return true;
    return false;
}

}  // namespace

void RaiseConstruct(std::string_view construct)
{
    throw MakeError(ado::kErrStatement, std::string(construct) + " is not available in the embedded database.");
}

const Scope& Translator::Names()
{
    if (!names_) names_ = analysis_.WholeScope({First(), Last()});
    return *names_;
}

void Translator::Walk(std::size_t first, std::size_t last, Clause clause)
{
    const std::size_t depth = frames_.size();
    if (depth == 0) frames_.reserve(8);
    frames_.push_back({.clause = clause});
    for (std::size_t i = first; i < last;) {
        const Token& token = At(i);
        switch (token.kind) {
        case TokenKind::Word:
            if (IsOrdinary(token.word) && At(i + 1).kind != TokenKind::Open)
                Copy(i++);  // by far the most words
            else
                i = OnWord(i, last);
            break;
        case TokenKind::Name: i = OnName(i, last); break;
        case TokenKind::Open:
            Copy(i);
            frames_.push_back(
                {.clause = frames_.back().clause == Clause::List ? Clause::None : frames_.back().clause, .open = i});
            ++i;
            break;
        case TokenKind::Close:
            if (frames_.size() > depth + 1)
                OnClose(i);
            else
                Copy(i);  // one too many: the engine will say so
            ++i;
            break;
        case TokenKind::Text:
        case TokenKind::Integer:
        case TokenKind::Number:
            if ((token.lifted && lifts_) || !converted_.empty() || tokens_.text[token.begin] > '9')
                OnLiteral(i);
            else
                Copy(i);
            ++i;
            break;
        case TokenKind::Operator:
            switch (tokens_.Operator(i)) {
            case '+': OnPlus(i); break;
            case '-':
                if ((At(i + 1).negative && lifts_) || converted_.contains(i))
                    Skip(i);  // the sign is part of the value
                else
                    Copy(i);
                break;
            case '=':
            case '<':
            case '>':
            case '!': {
                const bool assignment = frames_.back().clause == Clause::Set && frames_.size() == depth + 1;
                if (!assignment && i > first && LosesCollation(At(i - 1))) CollateLeftSide(i, i);
                Copy(i);
                break;
            }
            default: Copy(i); break;
            }
            ++i;
            break;
        case TokenKind::Comma:
            frames_.back().joinsText = false;
            Copy(i);
            ++i;
            break;
        case TokenKind::Variable:
            if (SameText(Text(i), "@@identity"))
                Replace(i, "last_insert_rowid()");
            else if (SameText(Text(i), "@@rowcount"))
                Replace(i, "changes()");
            else
                RaiseConstruct("The variable " + std::string(Text(i)));
            ++i;
            break;
        case TokenKind::Parameter:
            if (Text(i).front() != '#') RaiseConstruct("The parameter marker " + std::string(Text(i)));
            RaiseConstruct("The temporary table " + std::string(Text(i)));
        default: Copy(i++); break;
        }
    }
    EndSelect(frames_.back());
    frames_.resize(depth);
}

// Writes the limit of the SELECT that ends here.
void Translator::EndSelect(Frame& frame)
{
    if (frame.limit < 0) return;
    Append(" LIMIT " + std::to_string(frame.limit));
    if (frame.wrapped) Append(")");
    frame.limit = -1;
    frame.wrapped = false;
}

void Translator::OnClose(std::size_t i)
{
    Frame frame = frames_.back();
    frames_.pop_back();
    EndSelect(frame);
    Copy(i);
    if (frame.replaces) {
        // A replacement that is a number makes no text of a number column; then there is nothing to collate.
        const bool number = At(i - 1).IsNumber() && (At(i - 2).kind == TokenKind::Comma || At(i - 1).negative);
        if (!number) {
            std::size_t comma = frame.open + 1;
            while (comma < i && At(comma).kind != TokenKind::Comma)
                comma = At(comma).kind == TokenKind::Open ? tokens_.BehindClose(comma) : comma + 1;
            const std::string_view collation = CollationOf({frame.open + 1, comma});
            Append(collation);
            collated_ = !collation.empty();
        }
    }
    if (!frame.suffix.empty()) {
        Append(frame.suffix);
        collated_ = frame.suffix.ends_with("KVX");
    }
}

// What an expression compares by, once it has lost the collation of its column: nothing for numbers.
std::string_view Translator::CollationOf(Range expression)
{
    const std::optional<DeclaredType> type = analysis_.TypeOf(expression, Names());
    if (!type || type->IsText()) return kCollateText;
    return type->IsDate() ? kCollateDate : std::string_view();
}

void Translator::OnLiteral(std::size_t i)
{
    const Token& token = At(i);
    if (token.lifted && lifts_) {
        char parameter[16] = "?";
        const auto end = std::to_chars(parameter + 1, parameter + sizeof parameter, ++nextParameter_).ptr;
        Replace(i, {parameter, end});
    } else if (const auto converted = converted_.find(i); converted != converted_.end())
        Replace(i, converted->second);
    else if (token.kind == TokenKind::Text && Text(i).front() != '\'')
        Replace(i, Text(i).substr(1));  // N'..'
    else
        Copy(i);
}

std::size_t Translator::OnName(std::size_t i, std::size_t)
{
    const std::string_view name = Text(i);
    if (SameText(name, "[dbo]") && At(i + 1).kind == TokenKind::Dot) {
        Skip(i);
        StartBehind(i + 1);
        return i + 2;
    }
    if (name.front() == '[' && name.find("]]") != std::string_view::npos)
        Replace(i, Bracketed(Unquote(name)));
    else
        Copy(i);
    return i + 1;
}

Range Translator::OperandBefore(std::size_t i) const
{
    std::size_t first = i - 1;
    if (At(first).kind == TokenKind::Close) {
        std::size_t depth = 0;
        for (;; --first) {
            if (At(first).kind == TokenKind::Close) ++depth;
            if (At(first).kind == TokenKind::Open && --depth == 0) break;
            if (first == First()) return {i, i};
        }
        if (first > First() && IsFunction(At(first - 1))) --first;
    } else if (At(first).Is(Keyword::End)) {
        std::size_t depth = 0;
        for (;; --first) {
            if (At(first).Is(Keyword::End)) ++depth;
            if (At(first).Is(Keyword::Case) && --depth == 0) break;
            if (first == First()) return {i, i};
        }
    } else {
        while (first >= First() + 2 && At(first - 1).kind == TokenKind::Dot)
            first -= 2;
    }
    return {first, i};
}

Range Translator::OperandBehind(std::size_t i) const
{
    const std::size_t first = i + 1;
    std::size_t last = first + 1;
    if (At(first).kind == TokenKind::Open) {
        last = tokens_.BehindClose(first);
    } else if (At(first).Is(Keyword::Case)) {
        std::size_t depth = 0;
        for (last = first; last < Last(); ++last) {
            if (At(last).Is(Keyword::Case)) ++depth;
            if (At(last).Is(Keyword::End) && --depth == 0) break;
        }
        ++last;
    } else if (At(first).IsName()) {
        while (last + 1 < Last() && At(last).kind == TokenKind::Dot)
            last += 2;
        if (last < Last() && At(last).kind == TokenKind::Open) last = tokens_.BehindClose(last);
    }
    return {first, std::min(last, Last())};
}

// A literal on either side settles it; otherwise the types of both sides do.
bool Translator::JoinsText(std::size_t plus) const
{
    if (At(plus - 1).kind == TokenKind::Text || At(plus + 1).kind == TokenKind::Text) return true;
    if (At(plus - 1).IsNumber() || At(plus + 1).IsNumber()) return false;
    return frames_.back().joinsText;
}

void Translator::OnPlus(std::size_t i)
{
    if (i == First() || i + 1 >= Last()) {
        Copy(i);
        return;
    }
    bool joins = JoinsText(i);
    const TokenKind before = At(i - 1).kind;
    const bool binary = before == TokenKind::Close || before == TokenKind::Name || before == TokenKind::Word ||
                        before == TokenKind::Variable || before == TokenKind::Text;
    if (!joins && binary && !At(i - 1).IsNumber() && !At(i + 1).IsNumber()) {
        const auto left = analysis_.TypeOf(OperandBefore(i), Names());
        const auto right = analysis_.TypeOf(OperandBehind(i), Names());
        joins = (left && left->IsText() && (!right || right->IsText())) || (right && right->IsText() && !left);
    }
    if (!joins || !binary) {
        Copy(i);
        return;
    }
    // What is joined has no collation of its own; one on an operand reaches the result.
    const Clause clause = frames_.back().clause;
    const bool collate = !frames_.back().joinsText && clause != Clause::Set && clause != Clause::Values && !collated_;
    Skip(i);
    if (collate) Append(kCollateText);
    Append("||");
    frames_.back().joinsText = true;
}

// The left side decides how a comparison compares. Functions, sub-selects, CASE and literals have lost or never had the
// collation that all text columns have.
void Translator::CollateLeftSide(std::size_t comparison, std::size_t operand)
{
    if (operand <= First() || collated_) return;
    const Token& before = At(operand - 1);
    const Token& behind = At(comparison + 1);
    if (behind.IsNumber() || tokens_.Operator(comparison + 1) == '-') return;
    if (before.kind == TokenKind::Text) {
        if (behind.kind == TokenKind::Text) Append(kCollateText);
        return;
    }
    if (before.kind == TokenKind::Close || before.Is(Keyword::End)) Append(CollationOf(OperandBefore(operand)));
}

std::size_t Translator::OnCall(std::size_t i, std::string_view replacement, std::string_view suffix)
{
    Replace(i, replacement);
    Copy(i + 1);
    frames_.push_back({.clause = frames_.back().clause == Clause::List ? Clause::None : frames_.back().clause,
                       .open = i + 1,
                       .suffix = suffix});
    return i + 2;
}

std::size_t Translator::OnSelect(std::size_t i, std::size_t last)
{
    std::size_t next = i + 1;
    if (At(next).Is(Keyword::Distinct) || At(next).Is(Keyword::All)) ++next;
    std::size_t behindTop = next;
    std::int64_t limit = -1;
    if (At(next).Is(Keyword::Top)) {
        if (At(next + 1).kind == TokenKind::Integer) {
            limit = ReadInteger(Text(next + 1));
            behindTop = next + 2;
        } else if (At(next + 1).kind == TokenKind::Open && At(next + 2).kind == TokenKind::Integer &&
                   At(next + 3).kind == TokenKind::Close) {
            limit = ReadInteger(Text(next + 2));
            behindTop = next + 4;
        }
        if (limit >= 0 && At(behindTop).Is(Keyword::Percent)) RaiseConstruct("TOP .. PERCENT");
        if (limit >= 0 && At(behindTop).Is(Keyword::With)) RaiseConstruct("TOP .. WITH TIES");
    }
    if (limit >= 0) {
        // A limit counts for a whole UNION; one of its SELECTs alone must stand in brackets.
        const bool behindUnion = i > First() && (At(i - 1).Is(Keyword::Union) || At(i - 1).Is(Keyword::All) ||
                                                 At(i - 1).Is(Keyword::Except));
        if (behindUnion || (tokens_.hasUnion && analysis_.IsCompound(i, last))) {
            Skip(i);
            Append("SELECT * FROM (SELECT");
            frames_.back().wrapped = true;
        } else {
            Copy(i);
        }
        CopyRange(i + 1, next);
        for (std::size_t k = next; k < behindTop; ++k)
            StartBehind(k);
        frames_.back().limit = limit;
    } else {
        Copy(i);
        next = behindTop = i + 1;
    }
    frames_.back().clause = Clause::List;
    return behindTop;
}

std::size_t Translator::OnConvert(std::size_t i)
{
    const std::size_t behind = tokens_.BehindClose(i + 1);
    std::size_t comma = i + 2;
    while (comma < behind - 1 && At(comma).kind != TokenKind::Comma)
        comma = At(comma).kind == TokenKind::Open ? tokens_.BehindClose(comma) : comma + 1;
    if (comma >= behind - 1) {  // no type, or one argument only: not T-SQL's
        Copy(i);
        return i + 1;
    }
    const std::uint32_t begin = At(i + 2).begin;
    const std::string_view typeText = tokens_.text.substr(begin, At(comma - 1).end - begin);
    const DeclaredType type = ParseDeclaredType(typeText);
    const Clause inner = frames_.back().clause == Clause::List ? Clause::None : frames_.back().clause;
    if (type.IsDate()) {
        Replace(i, "kvx_date(");
        StartBehind(comma);
        Walk(comma + 1, behind - 1, inner);  // the style, if any, is its second argument
        Copy(behind - 1);
    } else {
        std::size_t style = comma + 1;
        while (style < behind - 1 && At(style).kind != TokenKind::Comma)
            style = At(style).kind == TokenKind::Open ? tokens_.BehindClose(style) : style + 1;
        Replace(i, "CAST(");
        StartBehind(comma);
        Walk(comma + 1, style, inner);
        Append(" AS " + std::string(typeText) + ")");
        StartBehind(behind - 1);
        if (type.IsText()) Append(kCollateText);
    }
    collated_ = type.IsText();
    return behind;
}

std::size_t Translator::OnCast(std::size_t i)
{
    const std::size_t behind = tokens_.BehindClose(i + 1);
    const std::size_t as = analysis_.Find({i + 2, behind - 1}, Keyword::As);
    if (as + 1 >= behind - 1) {
        Copy(i);
        return i + 1;
    }
    const std::uint32_t begin = At(as + 1).begin;
    const DeclaredType type = ParseDeclaredType(tokens_.text.substr(begin, At(behind - 2).end - begin));
    const Clause inner = frames_.back().clause == Clause::List ? Clause::None : frames_.back().clause;
    if (type.IsDate()) {
        Replace(i, "kvx_date");
        Copy(i + 1);
        Walk(i + 2, as, inner);
        StartBehind(behind - 2);
        Copy(behind - 1);
    } else {
        Copy(i);
        Copy(i + 1);
        Walk(i + 2, as, inner);
        CopyRange(as, behind);
        if (type.IsText()) Append(kCollateText);
    }
    collated_ = type.IsText();
    return behind;
}

std::size_t Translator::OnWord(std::size_t i, std::size_t last)
{
    const bool call = At(i + 1).kind == TokenKind::Open;
    Frame& frame = frames_.back();
    switch (At(i).word) {
    case Keyword::Other:
        if (call && IsWord(i, "scope_identity")) {
            Replace(i, "last_insert_rowid");
            return i + 1;
        }
        break;
    case Keyword::Cross:
    case Keyword::Outer:
        if (IsWord(i + 1, "apply")) RaiseConstruct("APPLY");
        break;
    case Keyword::Select: return OnSelect(i, last);
    case Keyword::From:
        if (frame.clause == Clause::List || frame.clause == Clause::None || frame.clause == Clause::Set)
            frame.clause = Clause::From;
        frame.joinsText = false;
        if (i == rowKeysBefore_ && !rowKeys_.empty()) Append(rowKeys_);
        break;
    case Keyword::Where:
    case Keyword::Having: frame.clause = Clause::Where; break;
    case Keyword::Group: frame.clause = Clause::Group; break;
    case Keyword::Order:
        frame.clause = Clause::Group;
        if (frame.wrapped) EndSelect(frame);
        break;
    case Keyword::Union:
    case Keyword::Except: EndSelect(frame); break;
    case Keyword::Isnull:
    case Keyword::Nvl:
        if (!call) break;
        i = OnCall(i, "IFNULL", {});
        frames_.back().replaces = true;
        return i;
    case Keyword::Left:
        if (call) return OnCall(i, "CAST(kvx_left", kTextOfCall);
        break;
    case Keyword::Right:
        if (call) return OnCall(i, "CAST(kvx_right", kTextOfCall);
        break;
    case Keyword::Convert:
        if (call) return OnConvert(i);
        break;
    case Keyword::Cast:
        if (call) return OnCast(i);
        break;
    case Keyword::In:
    case Keyword::Between:
        if (i > First() && !At(i - 1).Is(Keyword::Not)) CollateLeftSide(i, i);
        break;
    case Keyword::Not:
        if (At(i + 1).Is(Keyword::In) || At(i + 1).Is(Keyword::Between)) CollateLeftSide(i + 1, i);
        break;
    case Keyword::Into:
        if (frame.clause == Clause::List && statement_.kind == StatementKind::Select) RaiseConstruct("SELECT .. INTO");
        break;
    case Keyword::Rownum:
        if (tokens_.IsComparison(i + 1) && At(i + 2).kind == TokenKind::Integer) {
            const std::string_view operation = Text(i + 1);
            const std::int64_t rows = ReadInteger(Text(i + 2));
            frame.limit = operation == "<" ? std::max<std::int64_t>(rows - 1, 0) : rows;
            Replace(i, "1=1");
            StartBehind(i + 2);
            return i + 3;
        }
        break;
    case Keyword::Dbo:
        if (At(i + 1).kind != TokenKind::Dot) break;
        Skip(i);
        StartBehind(i + 1);
        return i + 2;
    case Keyword::Collate: {
        if (!At(i + 1).IsName()) break;
        const std::string name = Unquote(Text(i + 1));
        Copy(i);
        const bool own = SameText(name, "KVX") || SameText(name, "KVX_DATE") || SameText(name, "BINARY") ||
                         SameText(name, "NOCASE") || SameText(name, "RTRIM");
        const std::string lower = LowerAscii(name);
        const bool exact =
            lower.ends_with("_bin") || lower.ends_with("_bin2") || lower.find("_cs_") != std::string::npos;
        Replace(i + 1, own ? name : exact ? "BINARY" : "KVX");
        collated_ = true;
        return i + 2;
    }
    case Keyword::With:
        if (call && At(i + 2).kind == TokenKind::Word && IsHint(Text(i + 2))) {
            const std::size_t behind = tokens_.BehindClose(i + 1);
            Skip(i);
            StartBehind(behind - 1);
            return behind;
        }
        break;
    default: break;
    }
    Copy(i);
    return i + 1;
}

}  // namespace kvx::adapters::sqlite
