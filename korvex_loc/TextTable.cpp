#include "korvex_loc/TextTable.h"

#include "basic/Text.h"
#include "korvex_loc/EmbeddedTexts.h"

#include <algorithm>
#include <cassert>

namespace kvx::loc {

namespace {

// Takes the text up to the next such character off; all of it when there is none.
std::string_view TakeUpTo(std::string_view& text, char end)
{
    const std::size_t at = text.find(end);
    const std::string_view piece = text.substr(0, at);
    text = at == std::string_view::npos ? std::string_view() : text.substr(at + 1);
    return piece;
}

}  // namespace

TextTable::TextTable(std::string_view file, std::size_t keyColumns)
{
    std::string_view header = TakeUpTo(file, '\n');
    for (std::size_t column = 0; !header.empty(); ++column) {
        const std::string_view name = TakeUpTo(header, '\t');
        if (column >= keyColumns) languages_.push_back(name);
    }
    while (!file.empty()) {
        const std::string_view line = TakeUpTo(file, '\n');
        std::string_view rest = line;
        for (std::size_t column = 0; column < keyColumns; ++column)
            TakeUpTo(rest, '\t');
        assert(rest.data() != nullptr && "a line has fewer columns than the header");
        rows_.push_back({line.substr(0, static_cast<std::size_t>(rest.data() - line.data()) - 1), words_.size()});
        for (std::size_t word = 0; word < languages_.size(); ++word)
            words_.push_back(TakeUpTo(rest, '\t'));
    }
    std::ranges::sort(rows_, {}, &Row::key);
}

std::span<const TextTable::Row> TextTable::RowsFrom(std::string_view keyStart) const
{
    const auto first = std::ranges::lower_bound(rows_, keyStart, {}, &Row::key);
    const auto last =
        std::find_if_not(first, rows_.end(), [&](const Row& row) { return row.key.starts_with(keyStart); });
    return {first, last};
}

std::string_view TextTable::Word(const Row& row, std::string_view language) const
{
    const auto column = [this](std::string_view name) {
        return std::ranges::find_if(languages_,
                                    [&](std::string_view l) { return basic::SameTextIgnoringCase(l, name); });
    };
    auto found = column(language);
    if (found == languages_.end()) found = column("ENGLISH");
    return words_[row.firstWord + static_cast<std::size_t>(found - languages_.begin())];
}

std::optional<std::string_view> TextTable::Find(std::string_view key, std::string_view language) const
{
    const auto row = std::ranges::lower_bound(rows_, key, {}, &Row::key);
    if (row == rows_.end() || row->key != key) return std::nullopt;
    return Word(*row, language);
}

const TextTable& Catalogue()
{
    static const TextTable table(kCatalogueFile, 1);
    return table;
}

const TextTable& Captions()
{
    static const TextTable table(kCaptionsFile, 2);
    return table;
}

const TextTable& ColumnHeadings()
{
    static const TextTable table(kColumnsFile, 1);
    return table;
}

}  // namespace kvx::loc
