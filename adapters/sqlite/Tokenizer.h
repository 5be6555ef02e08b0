#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Takes T-SQL texts apart. Users' texts stand inside literals and may look like statements, so everything else in this
// folder works on tokens and never searches the text.
namespace kvx::adapters::sqlite {

enum class TokenKind : std::uint8_t {
    End,
    Word,      ///< identifier or keyword
    Name,      ///< [identifier] or "identifier"
    Text,      ///< 'literal' or N'literal'
    Integer,   ///< 12
    Number,    ///< 12.5, 1E3, 0x1F
    Operator,  ///< one or two characters: = <> <= + || ...
    Comma,
    Dot,
    Open,
    Close,
    Semicolon,
    Variable,   ///< @name, @@name
    Parameter,  ///< ? :name $name #name: nothing of ours, SQLite would take some for a parameter
    Broken,     ///< a literal, bracket or comment that nobody closes; reaches to the end of the text
};

/// The words that steer a translation; any other is Other.
enum class Keyword : std::uint8_t {
    Other,
    Add,
    All,
    Alter,
    And,
    As,
    Asc,
    Avg,
    Begin,
    Between,
    By,
    Case,
    Cast,
    Check,
    Collate,
    Commit,
    Convert,
    Count,
    Create,
    Cross,
    Dbo,
    Declare,
    Default,
    Delete,
    Desc,
    Distinct,
    Drop,
    Else,
    End,
    Escape,
    Except,
    Exec,
    Execute,
    Exists,
    From,
    Full,
    Getdate,
    Go,
    Group,
    Having,
    If,
    Ifnull,
    In,
    Index,
    Inner,
    Insert,
    Into,
    Is,
    Isnull,
    Join,
    Key,
    Left,
    Like,
    Limit,
    Max,
    Min,
    Not,
    Null,
    Nvl,
    On,
    Or,
    Order,
    Outer,
    Percent,
    Primary,
    Print,
    Proc,
    Right,
    Rollback,
    Rownum,
    Save,
    Select,
    Set,
    Sum,
    Table,
    Then,
    Top,
    Tran,
    Truncate,
    Union,
    Unique,
    Update,
    Use,
    Values,
    View,
    When,
    Where,
    While,
    With,
};

struct Token {
    TokenKind kind = TokenKind::End;
    Keyword word = Keyword::Other;
    bool lifted = false;    ///< a literal whose value is bound when the statement runs
    bool negative = false;  ///< a lifted number with a minus before it
    std::uint32_t begin = 0;
    std::uint32_t end = 0;

    bool Is(Keyword keyword) const { return word == keyword; }
    bool IsName() const { return kind == TokenKind::Word || kind == TokenKind::Name; }
    bool IsNumber() const { return kind == TokenKind::Integer || kind == TokenKind::Number; }
};

/// The tokens of one text; comments and blanks lie between them. An End token stands last.
struct TokenList {
    std::string_view text;
    std::vector<Token> tokens;
    bool broken = false;    ///< the last token before End is Broken
    bool hasUnion = false;  ///< somewhere stands UNION or EXCEPT

    std::string_view Text(const Token& token) const { return text.substr(token.begin, token.end - token.begin); }
    std::string_view Text(std::size_t index) const { return Text(tokens[index]); }
    char Operator(std::size_t index) const  ///< first character of an operator, else 0
    {
        return tokens[index].kind == TokenKind::Operator ? text[tokens[index].begin] : '\0';
    }
    bool IsComparison(std::size_t index) const  ///< = <> != < > <= >=
    {
        const char c = Operator(index);
        return c == '=' || c == '<' || c == '>' || c == '!';
    }
    /// The index behind the bracket that closes the one at index; the End token when nobody closes it.
    std::size_t BehindClose(std::size_t index) const;
};

/// Fills the list anew; its memory is used again.
void Tokenize(std::string_view text, TokenList& list);

/// An identifier without its brackets or quotes.
std::string Unquote(std::string_view name);
/// The characters of a literal, '' read as one apostrophe.
std::string LiteralText(std::string_view literal);
/// The name in brackets, so that SQLite takes it whatever it is.
std::string Bracketed(std::string_view name);

/// ASCII case is ignored.
bool SameText(std::string_view a, std::string_view b);
bool StartsWithText(std::string_view text, std::string_view start);
std::string LowerAscii(std::string_view text);

}  // namespace kvx::adapters::sqlite
