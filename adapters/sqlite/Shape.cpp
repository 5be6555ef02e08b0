#include "adapters/sqlite/Shape.h"

#include <algorithm>

namespace kvx::adapters::sqlite {
namespace {

// More values than that come in lists of ids: each such text is a shape of its own and not worth keeping.
constexpr std::size_t kMostLifted = 100;

constexpr char kTextMark = '\x01', kIntegerMark = '\x02', kNumberMark = '\x03';

}  // namespace

void Shaper::Run(std::string_view text)
{
    Tokenize(text, tokens_);
    statements_.clear();
    lifted_.clear();
    open_ = false;
    frames_.assign(1, {Region::Fixed, Bracket::Other});
    const std::vector<Token>& tokens = tokens_.tokens;
    if (tokens_.broken) {  // an apostrophe in a value: the engine shall say so
        current_ = {.last = tokens.size() - 1};
        statements_.push_back(current_);
        return;
    }
    for (std::size_t i = 0; tokens[i].kind != TokenKind::End; ++i) {
        switch (tokens[i].kind) {
        case TokenKind::Word:
            if (tokens[i].word != Keyword::Other)
                OnWord(i);
            else if (!open_)
                Begin(i, StatementKind::Other);
            break;
        case TokenKind::Open: OnOpen(i); break;
        case TokenKind::Close: OnClose(); break;
        case TokenKind::Semicolon:
            if (!takesAll_ && open_) Finish(i);
            break;
        case TokenKind::Text:
        case TokenKind::Integer:
        case TokenKind::Number:
            if (!open_)
                Begin(i, StatementKind::Other);
            else if (frames_.back().region == Region::Free && MayLift(i))
                Lift(i);
            break;
        default:
            if (!open_) Begin(i, StatementKind::Other);
            break;
        }
    }
    if (open_) Finish(tokens.size() - 1);
}

void Shaper::Begin(std::size_t token, StatementKind kind)
{
    if (open_) Finish(token);
    current_ = {.kind = kind, .first = token, .firstLifted = lifted_.size()};
    open_ = true;
    hasSource_ = hasSet_ = takesAll_ = false;
    frames_.assign(1, {kind == StatementKind::Select ? Region::List : Region::Fixed, Bracket::Other});
}

void Shaper::Finish(std::size_t token)
{
    current_.last = token;
    current_.lastLifted = lifted_.size();
    if (current_.kind == StatementKind::If && current_.body == 0) current_.body = token;
    if (current_.lastLifted - current_.firstLifted > kMostLifted) {
        TakeBack(current_);
        current_.lastLifted = current_.firstLifted;
    }
    statements_.push_back(current_);
    open_ = false;
    takesAll_ = false;
    frames_.assign(1, {Region::Fixed, Bracket::Other});
}

void Shaper::TakeBack(const Statement& statement)
{
    for (std::size_t i = statement.firstLifted; i < lifted_.size(); ++i) {
        Token& token = tokens_.tokens[lifted_[i]];
        token.lifted = token.negative = false;
    }
    lifted_.resize(statement.firstLifted);
}

// A word that begins a statement when it stands outside of brackets.
void Shaper::OnStatementWord(std::size_t i, StatementKind kind)
{
    if (frames_.size() > 1 || takesAll_) return;
    if (open_ && i > 0) {
        const Keyword before = WordAt(i - 1);
        if (before == Keyword::On && current_.kind == StatementKind::Create) return;    // ON DELETE CASCADE
        if (current_.kind == StatementKind::Create && i == current_.first + 1) return;  // CREATE DEFAULT ...
        if (WordAt(current_.first) == Keyword::Alter && kind == StatementKind::Create && IsBehindAlterTable(i)) return;
        if (current_.kind == StatementKind::If && current_.body == 0) {
            current_.body = i;
            hasSource_ = hasSet_ = false;
            return;
        }
    }
    Begin(i, kind);
    if (kind == StatementKind::Create && tokens_.tokens[i + 1].kind == TokenKind::Word) {
        constexpr std::string_view kWithBody[] = {"proc", "procedure", "view", "function", "trigger"};
        const std::string_view what = tokens_.Text(i + 1);
        takesAll_ = std::ranges::any_of(kWithBody, [&](std::string_view word) { return SameText(word, what); });
    }
}

// ALTER TABLE dbo.T ALTER COLUMN ..., ALTER TABLE T DROP COLUMN ...
bool Shaper::IsBehindAlterTable(std::size_t i) const
{
    for (std::size_t k = current_.first + 2; k < i; ++k)
        if (!tokens_.tokens[k].IsName() && tokens_.tokens[k].kind != TokenKind::Dot) return false;
    return i == current_.first + 3 || (i > current_.first + 3 && tokens_.tokens[i - 2].kind == TokenKind::Dot);
}

void Shaper::OnWord(std::size_t i)
{
    Frame& frame = frames_.back();
    const bool top = frames_.size() == 1;
    switch (WordAt(i)) {
    case Keyword::Select: {
        if (top && !takesAll_) {
            const Keyword before = i > 0 ? WordAt(i - 1) : Keyword::Other;
            const bool compound = before == Keyword::Union || before == Keyword::All || before == Keyword::Except ||
                                  (i > 0 && SameText(tokens_.Text(i - 1), "intersect"));
            const bool source = open_ && !hasSource_ &&
                                (current_.kind == StatementKind::Insert || current_.kind == StatementKind::Other);
            const bool bodyOfIf = open_ && current_.kind == StatementKind::If &&
                                  (current_.body == 0 || WordAt(current_.body) == Keyword::Insert) && !hasSource_;
            if (bodyOfIf && current_.body == 0) {
                current_.body = i;
            } else if (!open_ || !(compound || source || bodyOfIf)) {
                Begin(i, StatementKind::Select);
                return;
            }
            hasSource_ = true;
        }
        if (frame.region != Region::Fixed || (top && current_.kind == StatementKind::Insert))
            frame.region = Region::List;
        break;
    }
    case Keyword::Insert: OnStatementWord(i, StatementKind::Insert); break;
    case Keyword::Update: OnStatementWord(i, StatementKind::Update); break;
    case Keyword::Delete: OnStatementWord(i, StatementKind::Delete); break;
    case Keyword::Exec:
    case Keyword::Execute: OnStatementWord(i, StatementKind::Exec); break;
    case Keyword::Create:
    case Keyword::Alter:
    case Keyword::Drop:
    case Keyword::Truncate: OnStatementWord(i, StatementKind::Create); break;
    case Keyword::If: OnStatementWord(i, StatementKind::If); break;
    case Keyword::Print:
    case Keyword::Use: OnStatementWord(i, StatementKind::Setting); break;
    case Keyword::Begin:
    case Keyword::Commit:
    case Keyword::Rollback: OnStatementWord(i, StatementKind::Transaction); break;
    case Keyword::Declare:
    case Keyword::While: OnStatementWord(i, StatementKind::Other); break;
    case Keyword::Set:
        if (!top || takesAll_) break;
        if (open_ && current_.kind == StatementKind::Create) {  // ON DELETE SET NULL
            if (WordAt(i - 1) == Keyword::Delete || WordAt(i - 1) == Keyword::Update) break;
        }
        if (open_ && !hasSet_ &&
            (current_.kind == StatementKind::Update || (current_.kind == StatementKind::If && current_.body != 0))) {
            hasSet_ = true;
            if (current_.kind == StatementKind::Update) frame.region = Region::Free;
        } else {
            OnStatementWord(i, StatementKind::Setting);
        }
        break;
    case Keyword::Values:
        if (top) hasSource_ = true;
        if (top && open_ && current_.kind == StatementKind::Insert) frame.region = Region::Free;
        break;
    case Keyword::From:
    case Keyword::Where:
    case Keyword::Having:
        if (frame.region != Region::Fixed || (top && open_ && current_.kind == StatementKind::Delete))
            frame.region = Region::Free;
        else if (top && !open_)
            Begin(i, StatementKind::Other);
        break;
    case Keyword::Group:
    case Keyword::Order:
    case Keyword::Limit:
        if (frame.region != Region::Fixed) frame.region = Region::List;
        break;
    case Keyword::Union:
    case Keyword::Except: tokens_.hasUnion = true; [[fallthrough]];
    default:
        if (!open_) Begin(i, StatementKind::Other);
        break;
    }
}

void Shaper::OnOpen(std::size_t i)
{
    if (!open_) Begin(i, StatementKind::Other);
    const Frame& outer = frames_.back();
    Frame inner{outer.region == Region::Free ? Region::Free : Region::Fixed, Bracket::Other};
    switch (i > 0 ? WordAt(i - 1) : Keyword::Other) {
    case Keyword::In:
    case Keyword::Values: inner.bracket = Bracket::Values; break;
    case Keyword::Isnull:
    case Keyword::Nvl: inner.bracket = Bracket::Replace; break;
    default:
        // Further rows behind VALUES.
        if (frames_.size() == 1 && hasSource_ && i > 0 && tokens_.tokens[i - 1].kind == TokenKind::Comma &&
            current_.kind == StatementKind::Insert)
            inner.bracket = Bracket::Values;
        break;
    }
    frames_.push_back(inner);
}

void Shaper::OnClose()
{
    if (frames_.size() > 1) frames_.pop_back();
}

bool Shaper::MayLift(std::size_t i) const
{
    const Token& token = tokens_.tokens[i];
    if (token.kind != TokenKind::Text) return MayLiftNumber(i);
    switch (WordAt(i - 1)) {
    case Keyword::Like:
    case Keyword::Escape:
    case Keyword::As:
    case Keyword::Collate: return false;
    default: return true;
    }
}

// A number counts as a value only where nothing but a value can stand: behind a comparison, in a list, as what ISNULL
// gives instead. Lengths, styles and row counts belong to the shape.
bool Shaper::MayLiftNumber(std::size_t i) const
{
    const Token& token = tokens_.tokens[i];
    if (token.end - token.begin > 18) return false;
    const std::string_view digits = tokens_.Text(token);
    if (token.kind == TokenKind::Number && digits.find_first_not_of("0123456789.") != std::string_view::npos)
        return false;
    std::size_t before = i - 1;
    const char sign = tokens_.Operator(before);
    if ((sign == '-' || sign == '+') && before > 0) --before;
    if (tokens_.IsComparison(before)) return before > 0 && WordAt(before - 1) != Keyword::Rownum;
    const TokenKind kind = tokens_.tokens[before].kind;
    if (kind != TokenKind::Comma && kind != TokenKind::Open) return false;
    const Bracket bracket = frames_.back().bracket;
    return bracket == Bracket::Values || (bracket == Bracket::Replace && kind == TokenKind::Comma);
}

void Shaper::Lift(std::size_t i)
{
    Token& token = tokens_.tokens[i];
    token.lifted = true;
    token.negative = token.IsNumber() && tokens_.Operator(i - 1) == '-';
    lifted_.push_back(static_cast<std::uint32_t>(i));
}

void Shaper::AppendShape(const Statement& statement, std::string& shape) const
{
    if (statement.first == statement.last) return;
    std::size_t position = tokens_.tokens[statement.first].begin;
    for (std::size_t i = statement.firstLifted; i < statement.lastLifted; ++i) {
        const Token& token = tokens_.tokens[lifted_[i]];
        shape.append(tokens_.text, position, token.begin - position);
        shape += token.kind == TokenKind::Text      ? kTextMark
                 : token.kind == TokenKind::Integer ? kIntegerMark
                                                    : kNumberMark;
        position = token.end;
    }
    shape.append(tokens_.text, position, tokens_.tokens[statement.last - 1].end - position);
}

}  // namespace kvx::adapters::sqlite
