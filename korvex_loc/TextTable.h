#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kvx::loc {

/// A tab-separated file of words: a header line, leading columns that make the key, then one column a language.
class TextTable {
public:
    struct Row {
        std::string_view key; ///< the key columns as they stand in the file, a tab between them
        std::size_t firstWord = 0;
    };

    /// @param file        must outlive the table
    /// @param keyColumns  how many leading columns make the key
    TextTable(std::string_view file, std::size_t keyColumns);

    /// The languages in the order of the file.
    const std::vector<std::string_view>& Languages() const { return languages_; }
    /// All rows, by key.
    std::span<const Row> Rows() const { return rows_; }
    /// The rows whose key begins so.
    std::span<const Row> RowsFrom(std::string_view keyStart) const;

    /// The word of a row. A language without a column of its own reads English.
    std::string_view Word(const Row& row, std::string_view language) const;
    /// The word of a key; nothing when no row has it.
    std::optional<std::string_view> Find(std::string_view key, std::string_view language) const;

private:
    std::vector<std::string_view> languages_;
    std::vector<Row> rows_;
    std::vector<std::string_view> words_;
};

const TextTable& Catalogue();      ///< key: text id
const TextTable& Captions();       ///< key: form, tab, control
const TextTable& ColumnHeadings(); ///< key: column name in capitals

} // namespace kvx::loc
