#include "ado/Cursor.h"
#include "ado/Errors.h"
#include "ado/Values.h"
#include "basic/Convert.h"
#include "basic/Object.h"
#include "basic/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <compare>

namespace kvx::ado {
namespace {

enum class Operator : std::uint8_t { Equal, Unequal, Less, Greater, AtMost, AtLeast, Like };

// "NAME like 'Ei*'" taken apart.
struct Criterion {
    std::string column;
    Operator op = Operator::Equal;
    char quote = 0; // ' or #; 0 = bare
    std::string value;
};

[[noreturn]] void RaiseUnreadable()
{
    RaiseAdo(kErrWrongArgument);
}

void SkipBlanks(std::string_view& text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
}

std::string TakeUpTo(std::string_view& text, std::string_view ends)
{
    const std::size_t end = std::min(text.find_first_of(ends), text.size());
    std::string piece(text.substr(0, end));
    text.remove_prefix(end);
    return piece;
}

Operator TakeOperator(std::string_view& text)
{
    struct Spelling {
        std::string_view text;
        Operator op;
    };
    constexpr Spelling kSpellings[] = {
        {"<>", Operator::Unequal}, {"<=", Operator::AtMost}, {">=", Operator::AtLeast},
        {"=", Operator::Equal},    {"<", Operator::Less},    {">", Operator::Greater},
    };
    for (const Spelling& spelling : kSpellings) {
        if (!text.starts_with(spelling.text)) continue;
        text.remove_prefix(spelling.text.size());
        return spelling.op;
    }
    if (basic::SameName(text.substr(0, 4), "like") && text.size() > 4) {
        text.remove_prefix(4);
        return Operator::Like;
    }
    RaiseUnreadable();
}

std::string TakeQuoted(std::string_view& text)
{
    const char quote = text.front();
    text.remove_prefix(1);
    std::string value;
    while (!text.empty()) {
        const char character = text.front();
        text.remove_prefix(1);
        if (character == quote) {
            if (!text.starts_with(quote)) return value;
            text.remove_prefix(1);
        }
        value += character;
    }
    RaiseUnreadable(); // the quote was not closed
}

Criterion Parse(std::string_view text)
{
    Criterion criterion;
    SkipBlanks(text);
    if (text.starts_with('[')) {
        text.remove_prefix(1);
        criterion.column = TakeUpTo(text, "]");
        if (text.empty()) RaiseUnreadable();
        text.remove_prefix(1);
    } else {
        criterion.column = TakeUpTo(text, " \t=<>");
    }
    if (criterion.column.empty()) RaiseUnreadable();
    SkipBlanks(text);
    criterion.op = TakeOperator(text);
    SkipBlanks(text);
    if (text.starts_with('\'') || text.starts_with('#')) {
        criterion.quote = text.front();
        criterion.value = TakeQuoted(text);
    } else {
        criterion.value = TakeUpTo(text, " \t");
    }
    SkipBlanks(text);
    if (!text.empty()) RaiseUnreadable(); // AND, OR or a second value
    return criterion;
}

// m/d/yyyy, the order of the # literals whatever the machine's language.
std::optional<basic::Date> ParseUsDate(std::string_view text)
{
    std::int32_t parts[3] = {};
    for (int part = 0; part < 3; ++part) {
        const auto result = std::from_chars(text.data(), text.data() + text.size(), parts[part]);
        if (result.ec != std::errc{}) return {};
        text.remove_prefix(static_cast<std::size_t>(result.ptr - text.data()));
        if (part == 2) break;
        if (!text.starts_with('/')) return {};
        text.remove_prefix(1);
    }
    if (parts[2] < 100 || parts[2] > 9999) return {};
    return ParseDate(std::to_string(parts[2]) + "-" + std::to_string(parts[0]) + "-" + std::to_string(parts[1]) +
                     std::string(text));
}

// Compares letter by letter without regard to case.
std::strong_ordering CompareTexts(std::string_view a, std::string_view b)
{
    while (!a.empty() && !b.empty()) {
        const char32_t left = basic::LowerCharacter(basic::NextCharacter(a));
        const char32_t right = basic::LowerCharacter(basic::NextCharacter(b));
        if (left != right) return left <=> right;
    }
    return a.size() <=> b.size();
}

bool Holds(Operator op, std::strong_ordering order)
{
    switch (op) {
    case Operator::Equal: return order == 0;
    case Operator::Unequal: return order != 0;
    case Operator::Less: return order < 0;
    case Operator::Greater: return order > 0;
    case Operator::AtMost: return order <= 0;
    case Operator::AtLeast: return order >= 0;
    case Operator::Like: break;
    }
    return false;
}

// A criterion made ready for the type of its column, so that a row costs no parsing.
class Matcher {
public:
    Matcher(const ColumnInfo& column, const Criterion& criterion) : column_(column), op_(criterion.op)
    {
        if (IsDateType(column.type))
            PrepareDate(criterion);
        else if (IsNumberType(column.type))
            PrepareNumber(criterion);
        else
            PrepareText(criterion);
    }

    bool Matches(const Cell& cell) const
    {
        if (cell.kind == Cell::Kind::Null) return false;
        if (kind_ == Kind::Text) return MatchesText(cell);
        if (kind_ == Kind::Date) {
            const basic::Variant value = ToVariant(column_, cell);
            const basic::Date* date = value.As<basic::Date>();
            return date != nullptr && Holds(op_, Seconds(*date) <=> seconds_);
        }
        if (cell.kind == Cell::Kind::Integer && whole_) return Holds(op_, cell.integer <=> *whole_);
        double number = static_cast<double>(cell.integer);
        if (cell.kind == Cell::Kind::Real) number = cell.real;
        if (cell.kind == Cell::Kind::Text) {
            const std::optional<double> parsed = ParseDouble(cell.text);
            if (!parsed) return false;
            number = *parsed;
        }
        return Holds(op_, number < number_   ? std::strong_ordering::less
                          : number > number_ ? std::strong_ordering::greater
                                             : std::strong_ordering::equal);
    }

private:
    enum class Kind : std::uint8_t { Text, Number, Date };
    enum class Pattern : std::uint8_t { Whole, Beginning, Anywhere };

    static std::int64_t Seconds(basic::Date date) { return std::llround(date.days * 86400); }

    void PrepareDate(const Criterion& criterion)
    {
        kind_ = Kind::Date;
        if (criterion.quote == 0 || op_ == Operator::Like) RaiseUnreadable();
        std::optional<basic::Date> date = ParseUsDate(criterion.value);
        if (!date) date = ParseDate(criterion.value);
        if (!date) RaiseUnreadable();
        seconds_ = Seconds(*date);
    }

    void PrepareNumber(const Criterion& criterion)
    {
        kind_ = Kind::Number;
        const std::optional<double> number = ParseDouble(criterion.value);
        if (!number || op_ == Operator::Like) RaiseUnreadable();
        number_ = *number;
        if (column_.type == adBoolean && number_ != 0) number_ = 1; // True is written as -1, too
        if (number_ == std::floor(number_) && std::abs(number_) < 9e15) whole_ = static_cast<std::int64_t>(number_);
    }

    void PrepareText(const Criterion& criterion)
    {
        text_ = criterion.value;
        const auto isDigit = [](char character) { return character >= '0' && character <= '9'; };
        if (criterion.quote == 0 && (text_.empty() || !std::ranges::all_of(text_, isDigit))) RaiseUnreadable();
        if (op_ != Operator::Like) return;
        constexpr std::string_view kWild = "*%";
        const bool ends = !text_.empty() && kWild.find(text_.back()) != std::string_view::npos;
        if (ends) text_.pop_back();
        const bool starts = ends && !text_.empty() && kWild.find(text_.front()) != std::string_view::npos;
        if (starts) text_.erase(0, 1);
        if (text_.find_first_of(kWild) != std::string::npos) RaiseUnreadable();
        if (ends) pattern_ = starts ? Pattern::Anywhere : Pattern::Beginning;
        if (starts) text_ = basic::LCase(text_);
    }

    bool MatchesText(const Cell& cell) const
    {
        std::string digits;
        std::string_view text = cell.text;
        if (cell.kind != Cell::Kind::Text) {
            digits = *ToOwnedText(cell);
            text = digits;
        }
        if (op_ != Operator::Like) return Holds(op_, CompareTexts(text, text_));
        switch (pattern_) {
        case Pattern::Whole: return CompareTexts(text, text_) == 0;
        case Pattern::Beginning: return CompareTexts(basic::Left(text, basic::Len(text_)), text_) == 0;
        case Pattern::Anywhere: return basic::LCase(text).find(text_) != std::string::npos;
        }
        return false;
    }

    // An engine may keep a number in a text column.
    std::optional<std::string> ToOwnedText(const Cell& cell) const
    {
        const basic::Variant value = ToVariant(column_, cell);
        const std::string* text = value.As<std::string>();
        return text == nullptr ? std::string() : *text;
    }

    const ColumnInfo& column_;
    Operator op_;
    Kind kind_ = Kind::Text;
    Pattern pattern_ = Pattern::Whole;
    std::string text_;
    double number_ = 0;
    std::optional<std::int64_t> whole_;
    std::int64_t seconds_ = 0;
};

} // namespace

void Cursor::Find(std::string_view criteria, std::int64_t skip, SearchDirectionEnum direction,
                  const basic::Variant& start)
{
    RequireOpen();
    FinishEdit();
    const Criterion criterion = Parse(criteria);
    const std::size_t column = ColumnIndex(std::string_view(criterion.column));
    const Matcher matcher((*infos_)[column], criterion);
    if (direction != adSearchForward && direction != adSearchBackward) RaiseUnreadable();
    if (type_ == adOpenForwardOnly) {
        if (direction == adSearchBackward || skip < 0) RaiseAdo(kErrNotAllowedHere);
        const std::int32_t* which = start.As<std::int32_t>();
        if (which == nullptr || *which != adBookmarkCurrent) RaiseAdo(kErrNotSupported);
        if (place_ != Place::On) RaiseAdo(kErrNoCurrentRecord);
        while (place_ == Place::On && (skip > 0 || !matcher.Matches(Current(column)))) {
            if (skip > 0) --skip;
            onFirst_ = false;
            if (!statement_ && rows_)
                GoTo(static_cast<std::int64_t>(row_) + 1);
            else if (!statement_ || !Step())
                place_ = Place::After;
        }
    } else {
        rows_->ReadRest();
        const auto count = static_cast<std::int64_t>(rows_->Rows());
        std::int64_t row = static_cast<std::int64_t>(StartRow(start)) + std::clamp(skip, -count, count) * direction;
        while (row >= 0 && row < count && !matcher.Matches(rows_->At(column, static_cast<std::size_t>(row))))
            row += direction;
        // Nothing found: the end that the search ran to, whichever way a negative skip went beyond.
        if (row < 0 || row >= count) row = direction == adSearchForward ? count : -1;
        GoTo(row);
    }
    FireMoveComplete();
}

} // namespace kvx::ado
