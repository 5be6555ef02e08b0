#include "adapters/sqlite/Tokenizer.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

namespace kvx::adapters::sqlite {
namespace {

constexpr std::uint8_t kBlank = 1, kInside = 2, kLetter = 3, kDigit = 4;

constexpr std::array<std::uint8_t, 256> MakeClasses()
{
    std::array<std::uint8_t, 256> classes{};
    for (unsigned char c : {' ', '\t', '\r', '\n', '\f', '\v'})
        classes[c] = kBlank;
    for (unsigned c = 'a'; c <= 'z'; ++c)
        classes[c] = classes[c - 32] = kLetter;
    for (unsigned c = '0'; c <= '9'; ++c)
        classes[c] = kDigit;
    for (unsigned c = 0x80; c < 0x100; ++c)
        classes[c] = kLetter;  // umlauts in names
    classes['_'] = kLetter;
    for (unsigned char c : {'#', '$', '@'})
        classes[c] = kInside;
    return classes;
}
constexpr auto kClasses = MakeClasses();

constexpr std::uint8_t ClassOf(char c)
{
    return kClasses[static_cast<unsigned char>(c)];
}

// Up to eight letters of a word in one number, the first lowest, case folded. Characters that are no letters stay apart
// from letters.
constexpr std::uint64_t WordKey(std::string_view word)
{
    std::uint64_t key = 0;
    for (std::size_t i = word.size(); i-- > 0;)
        key = key << 8 | (static_cast<unsigned char>(word[i]) | 0x20u);
    return key;
}

// The same of a word inside a text, without a loop when eight bytes can be read at once.
std::uint64_t WordKeyAt(const char* word, std::size_t size, std::size_t readable)
{
    if (std::endian::native != std::endian::little || readable < 8) return WordKey({word, size});
    std::uint64_t key = 0;
    std::memcpy(&key, word, 8);
    key |= 0x2020202020202020u;
    return size == 8 ? key : key & ((std::uint64_t{1} << size * 8) - 1);
}

struct KeywordEntry {
    std::uint64_t key;
    Keyword keyword;
};

constexpr auto MakeKeywords()
{
    using enum Keyword;
    std::array entries{
        KeywordEntry{WordKey("add"), Add},
        KeywordEntry{WordKey("all"), All},
        KeywordEntry{WordKey("alter"), Alter},
        KeywordEntry{WordKey("and"), And},
        KeywordEntry{WordKey("as"), As},
        KeywordEntry{WordKey("asc"), Asc},
        KeywordEntry{WordKey("avg"), Avg},
        KeywordEntry{WordKey("begin"), Begin},
        KeywordEntry{WordKey("between"), Between},
        KeywordEntry{WordKey("by"), By},
        KeywordEntry{WordKey("case"), Case},
        KeywordEntry{WordKey("cast"), Cast},
        KeywordEntry{WordKey("check"), Check},
        KeywordEntry{WordKey("collate"), Collate},
        KeywordEntry{WordKey("commit"), Commit},
        KeywordEntry{WordKey("convert"), Convert},
        KeywordEntry{WordKey("count"), Count},
        KeywordEntry{WordKey("create"), Create},
        KeywordEntry{WordKey("cross"), Cross},
        KeywordEntry{WordKey("dbo"), Dbo},
        KeywordEntry{WordKey("declare"), Declare},
        KeywordEntry{WordKey("default"), Default},
        KeywordEntry{WordKey("delete"), Delete},
        KeywordEntry{WordKey("desc"), Desc},
        KeywordEntry{WordKey("distinct"), Distinct},
        KeywordEntry{WordKey("drop"), Drop},
        KeywordEntry{WordKey("else"), Else},
        KeywordEntry{WordKey("end"), End},
        KeywordEntry{WordKey("escape"), Escape},
        KeywordEntry{WordKey("except"), Except},
        KeywordEntry{WordKey("exec"), Exec},
        KeywordEntry{WordKey("execute"), Execute},
        KeywordEntry{WordKey("exists"), Exists},
        KeywordEntry{WordKey("from"), From},
        KeywordEntry{WordKey("full"), Full},
        KeywordEntry{WordKey("getdate"), Getdate},
        KeywordEntry{WordKey("go"), Go},
        KeywordEntry{WordKey("group"), Group},
        KeywordEntry{WordKey("having"), Having},
        KeywordEntry{WordKey("if"), If},
        KeywordEntry{WordKey("ifnull"), Ifnull},
        KeywordEntry{WordKey("in"), In},
        KeywordEntry{WordKey("index"), Index},
        KeywordEntry{WordKey("inner"), Inner},
        KeywordEntry{WordKey("insert"), Insert},
        KeywordEntry{WordKey("into"), Into},
        KeywordEntry{WordKey("is"), Is},
        KeywordEntry{WordKey("isnull"), Isnull},
        KeywordEntry{WordKey("join"), Join},
        KeywordEntry{WordKey("key"), Key},
        KeywordEntry{WordKey("left"), Left},
        KeywordEntry{WordKey("like"), Like},
        KeywordEntry{WordKey("limit"), Limit},
        KeywordEntry{WordKey("max"), Max},
        KeywordEntry{WordKey("min"), Min},
        KeywordEntry{WordKey("not"), Not},
        KeywordEntry{WordKey("null"), Null},
        KeywordEntry{WordKey("nvl"), Nvl},
        KeywordEntry{WordKey("on"), On},
        KeywordEntry{WordKey("or"), Or},
        KeywordEntry{WordKey("order"), Order},
        KeywordEntry{WordKey("outer"), Outer},
        KeywordEntry{WordKey("percent"), Percent},
        KeywordEntry{WordKey("primary"), Primary},
        KeywordEntry{WordKey("print"), Print},
        KeywordEntry{WordKey("proc"), Proc},
        KeywordEntry{WordKey("right"), Right},
        KeywordEntry{WordKey("rollback"), Rollback},
        KeywordEntry{WordKey("rownum"), Rownum},
        KeywordEntry{WordKey("save"), Save},
        KeywordEntry{WordKey("select"), Select},
        KeywordEntry{WordKey("set"), Set},
        KeywordEntry{WordKey("sum"), Sum},
        KeywordEntry{WordKey("table"), Table},
        KeywordEntry{WordKey("then"), Then},
        KeywordEntry{WordKey("top"), Top},
        KeywordEntry{WordKey("tran"), Tran},
        KeywordEntry{WordKey("truncate"), Truncate},
        KeywordEntry{WordKey("union"), Union},
        KeywordEntry{WordKey("unique"), Unique},
        KeywordEntry{WordKey("update"), Update},
        KeywordEntry{WordKey("use"), Use},
        KeywordEntry{WordKey("values"), Values},
        KeywordEntry{WordKey("view"), View},
        KeywordEntry{WordKey("when"), When},
        KeywordEntry{WordKey("where"), Where},
        KeywordEntry{WordKey("while"), While},
        KeywordEntry{WordKey("with"), With},
    };
    return entries;
}
constexpr auto kKeywordList = MakeKeywords();

constexpr std::size_t kSlots = 512;

constexpr std::size_t SlotOf(std::uint64_t key)
{
    return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15ull) >> 55);
}

// An open hash table made while compiling: most names of tables and columns miss at the first slot.
constexpr auto MakeTable()
{
    std::array<KeywordEntry, kSlots> table{};
    for (const KeywordEntry& entry : kKeywordList) {
        std::size_t slot = SlotOf(entry.key);
        while (table[slot].key != 0)
            slot = (slot + 1) % kSlots;
        table[slot] = entry;
    }
    return table;
}
constexpr auto kKeywordTable = MakeTable();

Keyword FindKeyword(std::uint64_t key)
{
    for (std::size_t slot = SlotOf(key); kKeywordTable[slot].key != 0; slot = (slot + 1) % kSlots)
        if (kKeywordTable[slot].key == key) return kKeywordTable[slot].keyword;
    return Keyword::Other;
}

class Scanner {
public:
    Scanner(std::string_view text, TokenList& list) : text_(text), list_(list) {}

    void Run()
    {
        const std::size_t size = text_.size();
        for (std::size_t i = 0; i < size;) {
            const std::uint8_t kind = ClassOf(text_[i]);
            if (kind == kBlank)
                ++i;
            else
                i = Next(i, kind);
        }
        Add(TokenKind::End, size, size);
    }

private:
    char At(std::size_t i) const { return i < text_.size() ? text_[i] : '\0'; }

    std::size_t Add(TokenKind kind, std::size_t begin, std::size_t end, Keyword word = Keyword::Other)
    {
        list_.tokens.push_back({.kind = kind,
                                .word = word,
                                .lifted = false,
                                .negative = false,
                                .begin = static_cast<std::uint32_t>(begin),
                                .end = static_cast<std::uint32_t>(end)});
        return end;
    }

    std::size_t AddBroken(std::size_t begin)
    {
        list_.broken = true;
        return Add(TokenKind::Broken, begin, text_.size());
    }

    std::size_t Next(std::size_t i, std::uint8_t kind)
    {
        const char c = text_[i];
        if (kind == kLetter) {
            if ((c == 'N' || c == 'n') && At(i + 1) == '\'') return Quoted(i, i + 1, '\'', TokenKind::Text);
            return Word(i);
        }
        if (kind == kDigit) return Number(i);
        switch (c) {
        case '\'': return Quoted(i, i, '\'', TokenKind::Text);
        case '"': return Quoted(i, i, '"', TokenKind::Name);
        case '[': return Quoted(i, i, ']', TokenKind::Name);
        case ',': return Add(TokenKind::Comma, i, i + 1);
        case '(': return Add(TokenKind::Open, i, i + 1);
        case ')': return Add(TokenKind::Close, i, i + 1);
        case ';': return Add(TokenKind::Semicolon, i, i + 1);
        case '.': return ClassOf(At(i + 1)) == kDigit && !FollowsName() ? Number(i) : Add(TokenKind::Dot, i, i + 1);
        case '-':
            if (At(i + 1) == '-') {
                const std::size_t end = text_.find('\n', i);
                return end == std::string_view::npos ? text_.size() : end + 1;
            }
            break;
        case '/':
            if (At(i + 1) == '*') {
                const std::size_t end = text_.find("*/", i + 2);
                return end == std::string_view::npos ? AddBroken(i) : end + 2;
            }
            break;
        case '@':
        case '#':
        case ':':
        case '$':
        case '?': {
            std::size_t end = i + 1;
            while (At(end) == '@' || ClassOf(At(end)) >= kLetter)
                ++end;
            return Add(c == '@' ? TokenKind::Variable : TokenKind::Parameter, i, end);
        }
        default: break;
        }
        const char next = At(i + 1);
        const bool two = (next == '=' && (c == '<' || c == '>' || c == '!' || c == '=')) || (c == '<' && next == '>') ||
                         (c == '|' && next == '|') || (next == c && (c == '<' || c == '>'));
        return Add(TokenKind::Operator, i, i + (two ? 2 : 1));
    }

    bool FollowsName() const { return !list_.tokens.empty() && list_.tokens.back().IsName(); }

    std::size_t Word(std::size_t begin)
    {
        const char* const first = text_.data() + begin;
        const char* const end = text_.data() + text_.size();
        const char* p = first;
        while (p != end && ClassOf(*p) >= kLetter)
            ++p;
        const auto size = static_cast<std::size_t>(p - first);
        if (p != end && ClassOf(*p) == kInside) {  // allowed inside names
            while (p != end && ClassOf(*p) >= kInside)
                ++p;
            return Add(TokenKind::Word, begin, static_cast<std::size_t>(p - text_.data()));
        }
        const bool mayBeKeyword = size > 1 && size <= 8;
        return Add(TokenKind::Word, begin, begin + size,
                   mayBeKeyword ? FindKeyword(WordKeyAt(first, size, text_.size() - begin)) : Keyword::Other);
    }

    std::size_t Number(std::size_t begin)
    {
        std::size_t i = begin;
        if (text_[i] == '0' && (At(i + 1) | 0x20) == 'x') {
            i += 2;
            while (ClassOf(At(i)) == kDigit || ((At(i) | 0x20) >= 'a' && (At(i) | 0x20) <= 'f'))
                ++i;
            return Add(TokenKind::Number, begin, i);
        }
        bool whole = true;
        while (ClassOf(At(i)) == kDigit)
            ++i;
        if (At(i) == '.') {
            whole = false;
            ++i;
            while (ClassOf(At(i)) == kDigit)
                ++i;
        }
        if ((At(i) | 0x20) == 'e') {
            std::size_t exponent = i + 1;
            if (At(exponent) == '+' || At(exponent) == '-') ++exponent;
            if (ClassOf(At(exponent)) == kDigit) {
                whole = false;
                i = exponent;
                while (ClassOf(At(i)) == kDigit)
                    ++i;
            }
        }
        return Add(whole ? TokenKind::Integer : TokenKind::Number, begin, i);
    }

    // A doubled closing character stands for itself.
    std::size_t Quoted(std::size_t begin, std::size_t open, char close, TokenKind kind)
    {
        std::size_t i = open + 1;
        while (true) {
            const void* found = i < text_.size() ? std::memchr(text_.data() + i, close, text_.size() - i) : nullptr;
            if (found == nullptr) return AddBroken(begin);
            i = static_cast<std::size_t>(static_cast<const char*>(found) - text_.data()) + 1;
            if (At(i) != close) return Add(kind, begin, i);
            ++i;
        }
    }

    std::string_view text_;
    TokenList& list_;
};

constexpr char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

}  // namespace

void Tokenize(std::string_view text, TokenList& list)
{
    constexpr std::size_t kMostKept = 1 << 16;
    list.text = text;
    list.tokens.clear();
    if (list.tokens.capacity() > kMostKept) list.tokens.shrink_to_fit();  // after a list of very many ids
    list.broken = list.hasUnion = false;
    Scanner(text, list).Run();
}

std::size_t TokenList::BehindClose(std::size_t index) const
{
    std::size_t depth = 0;
    for (std::size_t i = index; tokens[i].kind != TokenKind::End; ++i) {
        if (tokens[i].kind == TokenKind::Open) ++depth;
        if (tokens[i].kind == TokenKind::Close && --depth == 0) return i + 1;
    }
    return tokens.size() - 1;
}

std::string Unquote(std::string_view name)
{
    if (name.size() < 2 || (name.front() != '[' && name.front() != '"')) return std::string(name);
    const char close = name.back();
    std::string result;
    for (std::size_t i = 1; i + 1 < name.size(); ++i) {
        result += name[i];
        if (name[i] == close) ++i;
    }
    return result;
}

std::string LiteralText(std::string_view literal)
{
    literal.remove_prefix(literal.front() == '\'' ? 1 : 2);
    literal.remove_suffix(1);
    std::string result;
    result.reserve(literal.size());
    for (std::size_t i = 0; i < literal.size(); ++i) {
        result += literal[i];
        if (literal[i] == '\'') ++i;
    }
    return result;
}

std::string Bracketed(std::string_view name)
{
    // SQLite knows no ] inside brackets; quotes can be doubled.
    if (name.find(']') == std::string_view::npos) return "[" + std::string(name) + "]";
    std::string quoted = "\"";
    for (char c : name)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + "\"";
}

bool SameText(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, [](char x, char y) { return Lower(x) == Lower(y); });
}

bool StartsWithText(std::string_view text, std::string_view start)
{
    return text.size() >= start.size() && SameText(text.substr(0, start.size()), start);
}

std::string LowerAscii(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        c = Lower(c);
    return result;
}

}  // namespace kvx::adapters::sqlite
