#include "adapters/odbc/Select.h"

#include <algorithm>
#include <array>

namespace kvx::adapters::odbc {
namespace {

struct Token {
    enum class Kind { Word, QuotedName, Text, Number, Symbol };
    Kind kind = Kind::Symbol;
    std::size_t begin = 0, end = 0;
    std::string text;  // a word in upper case, a quoted name without its quotes, a symbol
};
using Tokens = std::vector<Token>;

bool IsWordCharacter(char character)
{
    return (character >= '0' && character <= '9') || (character >= 'A' && character <= 'Z') ||
           (character >= 'a' && character <= 'z') || character == '_' || character == '#' || character == '@' ||
           character == '$' || static_cast<unsigned char>(character) >= 0x80;
}

bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

// The end of a text or name in quotes that begins at the position; the quote doubled is part of it.
std::size_t QuoteEnd(std::string_view text, std::size_t position, char close)
{
    for (++position; position < text.size(); ++position) {
        if (text[position] != close) continue;
        if (position + 1 < text.size() && text[position + 1] == close)
            ++position;
        else
            return position + 1;
    }
    return text.size();
}

Tokens Split(std::string_view text)
{
    Tokens tokens;
    std::size_t at = 0;
    const auto add = [&](Token::Kind kind, std::size_t end, std::string value) {
        tokens.push_back({kind, at, end, std::move(value)});
        at = end;
    };
    while (at < text.size()) {
        const char character = text[at];
        if (character == ' ' || character == '\t' || character == '\r' || character == '\n') {
            ++at;
        } else if (text.substr(at, 2) == "/*") {
            const std::size_t end = text.find("*/", at + 2);
            at = end == std::string_view::npos ? text.size() : end + 2;
        } else if (text.substr(at, 2) == "--") {
            at = std::min(text.find('\n', at), text.size());
        } else if (character == '\'') {
            add(Token::Kind::Text, QuoteEnd(text, at, '\''), {});
        } else if (character == '"' || character == '`' || character == '[') {
            const std::size_t end = QuoteEnd(text, at, character == '[' ? ']' : character);
            add(Token::Kind::QuotedName, end, std::string(text.substr(at + 1, end - at - 2)));
        } else if (IsDigit(character)) {
            std::size_t end = at;
            while (end < text.size() && (IsWordCharacter(text[end]) || text[end] == '.'))
                ++end;
            add(Token::Kind::Number, end, std::string(text.substr(at, end - at)));
        } else if (IsWordCharacter(character)) {
            std::size_t end = at;
            while (end < text.size() && IsWordCharacter(text[end]))
                ++end;
            add(Token::Kind::Word, end, Upper(text.substr(at, end - at)));
        } else {
            add(Token::Kind::Symbol, at + 1, std::string(1, character));
        }
    }
    return tokens;
}

template <std::size_t Size>
bool IsOneOf(const Token& token, const std::array<std::string_view, Size>& words)
{
    return token.kind == Token::Kind::Word && std::ranges::find(words, token.text) != words.end();
}

constexpr std::array<std::string_view, 7> kJoins = {"INNER", "LEFT", "RIGHT", "FULL", "CROSS", "OUTER", "JOIN"};
constexpr std::array<std::string_view, 11> kTails = {"WHERE",     "GROUP", "HAVING", "ORDER", "UNION", "EXCEPT",
                                                     "INTERSECT", "MINUS", "LIMIT",  "FETCH", "FOR"};
constexpr std::array<std::string_view, 4> kCompounds = {"UNION", "EXCEPT", "INTERSECT", "MINUS"};
constexpr std::array<std::string_view, 12> kNoAliases = {"END", "NULL", "ON",    "WITH",  "WHEN",  "THEN",
                                                         "AND", "OR",   "WHERE", "INNER", "USING", "SET"};
constexpr std::array<std::string_view, 5> kAggregates = {"COUNT", "MAX", "MIN", "SUM", "AVG"};

// Reads tokens [begin, end) of one text.
class Reader {
public:
    Reader(std::string_view text, const Tokens& tokens) : text_(text), tokens_(tokens) {}

    std::optional<Select> ReadSelect(std::size_t begin, std::size_t end) const;

private:
    bool Is(std::size_t index, std::string_view text) const
    {
        return tokens_[index].text == text &&
               (tokens_[index].kind == Token::Kind::Word || tokens_[index].kind == Token::Kind::Symbol);
    }
    bool IsName(std::size_t index) const
    {
        return tokens_[index].kind == Token::Kind::Word || tokens_[index].kind == Token::Kind::QuotedName;
    }
    std::string Written(std::size_t index) const
    {
        const Token& token = tokens_[index];
        if (token.kind == Token::Kind::QuotedName) return token.text;
        return std::string(text_.substr(token.begin, token.end - token.begin));
    }
    // The bracket that closes the one at the index; end when there is none.
    std::size_t Close(std::size_t index, std::size_t end) const
    {
        int depth = 0;
        for (; index < end; ++index) {
            if (Is(index, "(")) ++depth;
            if (Is(index, ")") && --depth == 0) return index;
        }
        return end;
    }
    // The first token outside brackets for which the test holds.
    template <class Test>
    std::size_t Find(std::size_t begin, std::size_t end, Test test) const
    {
        int depth = 0;
        for (std::size_t index = begin; index < end; ++index) {
            if (depth == 0 && test(index)) return index;
            if (Is(index, "(")) ++depth;
            if (Is(index, ")")) --depth;
        }
        return end;
    }
    SelectItem ReadItem(std::size_t begin, std::size_t end) const;
    SelectItem ReadExpression(std::size_t begin, std::size_t end) const;
    bool ReadTables(std::size_t begin, std::size_t end, std::vector<SelectTable>& tables) const;
    bool IsJoin(std::size_t index, std::size_t end) const
    {
        return IsOneOf(tokens_[index], kJoins) && (index + 1 == end || !Is(index + 1, "("));
    }

    std::string_view text_;
    const Tokens& tokens_;
};

SelectItem Reader::ReadExpression(std::size_t begin, std::size_t end) const
{
    SelectItem item;
    if (begin >= end) return item;
    const Token& first = tokens_[begin];
    const std::size_t count = end - begin;
    if (count == 1) {
        if (Is(begin, "*")) item.kind = SelectItem::Kind::Star;
        if (first.kind == Token::Kind::Number) item.kind = SelectItem::Kind::NumberLiteral;
        if (first.kind == Token::Kind::Number && first.text.find('.') != std::string::npos)
            item.kind = SelectItem::Kind::Other;  // a decimal: the engine knows its digits
        if (first.kind == Token::Kind::Text) {
            item.kind = SelectItem::Kind::TextLiteral;
            const std::string_view inside = text_.substr(first.begin, first.end - first.begin);
            item.size = static_cast<std::size_t>(
                std::ranges::count_if(inside, [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
            item.size -= 2 + static_cast<std::size_t>(std::ranges::count(inside, '\'') - 2) / 2;
        }
        if (Is(begin, "NULL")) {
            item.kind = SelectItem::Kind::Null;
        } else if (IsName(begin)) {
            item.kind = SelectItem::Kind::Column;
            item.name = Written(begin);
        }
        return item;
    }
    // A.NAME, dbo.A.NAME, A.*
    bool dotted = count % 2 == 1;
    for (std::size_t index = begin; dotted && index < end; ++index)
        dotted = (index - begin) % 2 == 1 ? Is(index, ".") : IsName(index) || (index + 1 == end && Is(index, "*"));
    if (dotted) {
        item.kind = Is(end - 1, "*") ? SelectItem::Kind::Star : SelectItem::Kind::Column;
        item.qualifier = Written(end - 3);
        if (item.kind == SelectItem::Kind::Column) item.name = Written(end - 1);
        return item;
    }
    if (Is(begin, "(") && Close(begin, end) == end - 1) {
        if (!Is(begin + 1, "SELECT")) {
            item.inner = std::make_shared<SelectItem>(ReadExpression(begin + 1, end - 1));
            item.kind = SelectItem::Kind::Function;  // brackets around: computed, with the type of what is inside
            item.name = "(";
            return item;
        }
        item.kind = SelectItem::Kind::SubSelect;
        if (std::optional<Select> sub = ReadSelect(begin + 1, end - 1))
            item.sub = std::make_shared<Select>(std::move(*sub));
        return item;
    }
    if (first.kind == Token::Kind::Word && Is(begin + 1, "(") && Close(begin + 1, end) == end - 1) {
        item.kind = SelectItem::Kind::Function;
        item.name = first.text;
        const std::size_t comma = Find(begin + 2, end - 1, [this](std::size_t index) { return Is(index, ","); });
        item.inner = std::make_shared<SelectItem>(ReadExpression(begin + 2, comma));
        return item;
    }
    if (Is(begin, "CASE") && Is(end - 1, "END")) {
        item.kind = SelectItem::Kind::Case;
        const std::size_t then = Find(begin + 1, end, [this](std::size_t index) { return Is(index, "THEN"); });
        const std::size_t stop = Find(std::min(then + 1, end), end, [this](std::size_t index) {
            return Is(index, "WHEN") || Is(index, "ELSE") || Is(index, "END");
        });
        if (then < end) item.inner = std::make_shared<SelectItem>(ReadExpression(then + 1, stop));
    }
    return item;
}

SelectItem Reader::ReadItem(std::size_t begin, std::size_t end) const
{
    std::string alias;
    if (end - begin >= 3 && Is(end - 2, "AS") && IsName(end - 1)) {
        alias = Written(end - 1);
        end -= 2;
    } else if (end - begin >= 2 && IsName(end - 1) && !IsOneOf(tokens_[end - 1], kNoAliases)) {
        const Token& before = tokens_[end - 2];
        const bool ends = before.kind != Token::Kind::Symbol || before.text == ")";
        if (ends && !(before.kind == Token::Kind::Word && IsOneOf(before, kNoAliases) && before.text != "END" &&
                      before.text != "NULL")) {
            alias = Written(end - 1);
            end -= 1;
        }
    }
    SelectItem item = ReadExpression(begin, end);
    item.alias = std::move(alias);
    return item;
}

bool Reader::ReadTables(std::size_t begin, std::size_t end, std::vector<SelectTable>& tables) const
{
    std::size_t at = begin;
    while (at < end) {
        SelectTable table;
        bool group = false;
        if (Is(at, "(")) {
            const std::size_t close = Close(at, end);
            if (close == end) return false;
            if (Is(at + 1, "SELECT")) {
                if (std::optional<Select> derived = ReadSelect(at + 1, close))
                    table.derived = std::make_shared<Select>(std::move(*derived));
            } else {
                group = true;
                if (!ReadTables(at + 1, close, tables)) return false;
            }
            at = close + 1;
        } else if (IsName(at)) {
            table.name = Written(at++);
            while (at + 1 < end && Is(at, ".") && IsName(at + 1)) {
                table.name = Written(at + 1);
                at += 2;
            }
        } else {
            return false;
        }
        if (!group) {
            if (at < end && Is(at, "AS")) ++at;
            table.alias = table.name;
            if (at < end && IsName(at) && !IsJoin(at, end) && !IsOneOf(tokens_[at], kNoAliases))
                table.alias = Written(at++);
            tables.push_back(std::move(table));
        }
        at = Find(at, end, [&](std::size_t index) { return Is(index, ",") || IsJoin(index, end); });
        while (at < end && (Is(at, ",") || IsJoin(at, end)))
            ++at;
    }
    return true;
}

std::optional<Select> Reader::ReadSelect(std::size_t begin, std::size_t end) const
{
    if (begin >= end || !Is(begin, "SELECT")) return {};
    Select select;
    std::size_t at = begin + 1;
    while (at < end && (Is(at, "DISTINCT") || Is(at, "ALL") || Is(at, "TOP"))) {
        if (Is(at, "DISTINCT")) select.rowsAreRows = false;
        const bool top = Is(at, "TOP");
        ++at;
        if (top && at < end) at = Is(at, "(") ? Close(at, end) + 1 : at + 1;
    }
    const auto isTail = [this](std::size_t index) { return IsOneOf(tokens_[index], kTails); };
    const std::size_t from = Find(at, end, [&](std::size_t index) { return Is(index, "FROM") || isTail(index); });
    for (std::size_t start = at; start < from;) {
        const std::size_t comma = Find(start, from, [this](std::size_t index) { return Is(index, ","); });
        if (comma == start) return {};
        select.items.push_back(ReadItem(start, comma));
        if (select.items.back().kind == SelectItem::Kind::Function &&
            std::ranges::find(kAggregates, select.items.back().name) != kAggregates.end())
            select.rowsAreRows = false;
        start = comma + 1;
    }
    if (select.items.empty()) return {};
    select.listEnd = from < tokens_.size() ? tokens_[from].begin : text_.size();
    std::size_t tail = from;
    if (from < end && Is(from, "FROM")) {
        tail = Find(from + 1, end, isTail);
        if (!ReadTables(from + 1, tail, select.tables)) select.tables.clear();
    }
    const std::size_t grouped = Find(tail, end, [this](std::size_t index) {
        return IsOneOf(tokens_[index], kCompounds) || Is(index, "GROUP") || Is(index, "HAVING");
    });
    if (grouped < end) select.rowsAreRows = false;
    select.compound = Find(tail, end, [this](std::size_t i) { return IsOneOf(tokens_[i], kCompounds); }) < end;
    return select;
}

}  // namespace

std::string Upper(std::string_view text)
{
    std::string upper(text);
    for (char& character : upper)
        if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
    return upper;
}

std::optional<Select> ParseSelect(std::string_view text)
{
    Tokens tokens = Split(text);
    while (!tokens.empty() && tokens.back().text == ";" && tokens.back().kind == Token::Kind::Symbol)
        tokens.pop_back();
    for (const Token& token : tokens)
        if (token.kind == Token::Kind::Symbol && token.text == ";") return {};
    return Reader(text, tokens).ReadSelect(0, tokens.size());
}

std::string FirstWord(std::string_view text)
{
    // No need to split a long text for its first word.
    const Tokens tokens = Split(text.substr(0, 200));
    return tokens.empty() ? std::string() : tokens.front().text;
}

std::optional<std::string> BareName(std::string_view text)
{
    if (text.size() > 200) return {};
    const Tokens tokens = Split(text);
    if (tokens.size() != 1) return {};
    const Token& token = tokens.front();
    if (token.kind == Token::Kind::QuotedName) return token.text;
    if (token.kind == Token::Kind::Word) return std::string(text.substr(token.begin, token.end - token.begin));
    return {};
}

}  // namespace kvx::adapters::odbc
