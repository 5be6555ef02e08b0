#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What a SELECT's own text tells about its columns. Few drivers name the table and column behind a result column (the
// free one for SQL Server, Oracle's and PostgreSQL's do not), and none tells the key of a row that is not selected.
namespace kvx::adapters::odbc {

struct Select;

struct SelectItem {
    enum class Kind { Star, Column, TextLiteral, NumberLiteral, Null, Function, SubSelect, Case, Other };
    Kind kind = Kind::Other;
    std::string qualifier;                    ///< A of A.NAME and A.*
    std::string name;                         ///< of the column, or of the function in upper case
    std::string alias;                        ///< as written; empty: none
    std::shared_ptr<const SelectItem> inner;  ///< first argument of a function, first result of a CASE
    std::shared_ptr<const Select> sub;        ///< a scalar sub-select
    std::size_t size = 0;                     ///< characters of a text literal
};

struct SelectTable {
    std::string name;                       ///< empty: a derived table
    std::string alias;                      ///< the name itself when there is none
    std::shared_ptr<const Select> derived;  ///< nothing: could not be followed, or a table
};

struct Select {
    std::vector<SelectItem> items;
    std::vector<SelectTable> tables;
    bool rowsAreRows = true;  ///< false: DISTINCT, GROUP BY, aggregates, UNION ...: no row of a table behind a row
    bool compound = false;    ///< UNION and the like; the first part's items
    std::size_t listEnd = 0;  ///< offset in the text where the list of items ends
};

/// Reads the text; nothing when it is no SELECT, several statements, or a form that cannot be followed.
std::optional<Select> ParseSelect(std::string_view text);

/// The first word of a text, in upper case, behind comments and blanks; and whether it is the only word.
std::string FirstWord(std::string_view text);
/// A text that is one name and nothing else; the name without brackets and quotes, blanks at the ends ignored.
std::optional<std::string> BareName(std::string_view text);

std::string Upper(std::string_view text);  ///< ASCII letters only

}  // namespace kvx::adapters::odbc
