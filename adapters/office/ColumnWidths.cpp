#include "adapters/office/ColumnWidths.h"

#include "basic/Text.h"

#include <algorithm>
#include <numeric>

namespace kvx::adapters::office {

namespace {

constexpr std::int32_t kCellMarginTwips = 108;
constexpr std::int32_t kNarrowCellMarginTwips = 28;
constexpr std::int32_t kWidestTextTwips = 5 * 1440;  // one long remark must not starve its neighbours

// Widths in thousandths of the letter height, rounded up from the common sans-serif fonts; near enough to share a page.
std::int64_t WidthOfCharacter(char32_t character)
{
    if (character >= 0x2E80) return 1000;
    constexpr std::string_view kNarrow = "iljtfrI.,:;'!|()[]/\\ -\t";
    if (character < 0x80 && kNarrow.find(static_cast<char>(character)) != std::string_view::npos) return 340;
    if (character == 'm' || character == 'M' || character == 'w' || character == 'W' || character == '@') return 950;
    return basic::LowerCharacter(character) != character ? 740 : 570;
}

struct Need {
    std::int64_t text = 0;  // the longest text
    std::int64_t word = 0;  // the longest word
};

Need MeasureCell(std::string_view text)
{
    Need need;
    std::int64_t word = 0;
    while (!text.empty()) {
        const char32_t character = basic::NextCharacter(text);
        const std::int64_t width = WidthOfCharacter(character);
        need.text += width;
        word = character == ' ' ? 0 : word + width;
        need.word = std::max(need.word, word);
    }
    return need;
}

// A title stands alone in the first cell of its line: it may run over several lines, else it would take the page.
bool IsTitle(std::string_view line)
{
    const std::size_t tab = line.find('\t');
    return tab != std::string_view::npos && line.find_first_not_of('\t', tab) == std::string_view::npos;
}

std::vector<Need> Measure(const PrintedTable& table)
{
    std::vector<Need> needs(static_cast<std::size_t>(table.columns));
    for (std::int32_t row = 1; row <= table.Rows(); ++row) {
        const std::string_view line = table.lines[static_cast<std::size_t>(row) - 1];
        const CellFormat& format = table.FormatOf(row);
        const std::int64_t points = format.fontPoints > 0 ? format.fontPoints : 12;
        const std::int64_t twipsPerThousand = points * 20 + (format.bold ? points * 2 : 0);
        const bool isTitle = IsTitle(line);
        ForEachCell(line, table.columns, [&](std::int32_t column, std::string_view text) {
            Need need = MeasureCell(text);
            if (isTitle) need.text = need.word;
            Need& most = needs[static_cast<std::size_t>(column)];
            most.text =
                std::max(most.text, std::min<std::int64_t>(need.text * twipsPerThousand / 1000, kWidestTextTwips));
            most.word =
                std::max(most.word, std::min<std::int64_t>(need.word * twipsPerThousand / 1000, kWidestTextTwips));
        });
    }
    return needs;
}

// Each column gets its base, and of the rest of the width a share by weight.
std::vector<std::int32_t> Share(const std::vector<std::int64_t>& bases, const std::vector<std::int64_t>& weights,
                                std::int64_t width)
{
    const std::int64_t rest = width - std::accumulate(bases.begin(), bases.end(), std::int64_t{0});
    const std::int64_t weight = std::accumulate(weights.begin(), weights.end(), std::int64_t{0});
    std::vector<std::int32_t> widths;
    std::int64_t weightSoFar = 0, given = 0;
    for (std::size_t i = 0; i < bases.size(); ++i) {
        weightSoFar += weights[i];
        const std::int64_t share = weight == 0 ? 0 : rest * weightSoFar / weight - given;
        given += share;
        widths.push_back(static_cast<std::int32_t>(bases[i] + share));
    }
    return widths;
}

}  // namespace

ColumnLayout LayOutColumns(const PrintedTable& table, std::int32_t widthTwips)
{
    const std::vector<Need> needs = Measure(table);
    for (const std::int32_t margin : {kCellMarginTwips, kNarrowCellMarginTwips}) {
        std::vector<std::int64_t> texts, words, spread;
        for (const Need& need : needs) {
            texts.push_back(need.text + 2 * margin);
            words.push_back(need.word + 2 * margin);
            spread.push_back(need.text - need.word);
        }
        const auto sum = [](const std::vector<std::int64_t>& of) {
            return std::accumulate(of.begin(), of.end(), std::int64_t{0});
        };
        if (sum(texts) <= widthTwips) return {Share(texts, texts, widthTwips), margin};
        if (sum(words) <= widthTwips) return {Share(words, spread, widthTwips), margin};
        if (margin == kNarrowCellMarginTwips)
            return {Share(std::vector<std::int64_t>(words.size()), words, widthTwips), margin};
    }
    return {};
}

}  // namespace kvx::adapters::office
