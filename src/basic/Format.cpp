#include "basic/Format.h"

#include "basic/Convert.h"
#include "basic/Dates.h"
#include "basic/Digits.h"
#include "basic/Error.h"
#include "basic/Locale.h"
#include "basic/Object.h"
#include "basic/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace kvx::basic {
namespace {

/// Walks over a mask; quoted and escaped characters come as literals.
class MaskReader {
public:
    explicit MaskReader(std::string_view mask) : rest_(mask) {}

    /// @param c        the next byte
    /// @param literal  true when it prints itself, whatever it means elsewhere
    /// @return false at the end
    bool Next(char& c, bool& literal)
    {
        while (!rest_.empty()) {
            c = rest_.front();
            rest_.remove_prefix(1);
            if (c == '"') {
                quoted_ = !quoted_;
                continue;
            }
            literal = quoted_;
            if (!quoted_ && c == '\\' && !rest_.empty()) {
                c = rest_.front();
                rest_.remove_prefix(1);
                literal = true;
            }
            return true;
        }
        return false;
    }

    std::string_view Rest() const { return rest_; }
    void Skip(std::size_t bytes) { rest_.remove_prefix(bytes); }

private:
    std::string_view rest_;
    bool quoted_ = false;
};

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

enum class MaskKind : std::uint8_t { Number, Date, Text };

/// A digit place makes a number mask; without one, a letter of a date makes a date mask.
MaskKind KindOf(std::string_view mask)
{
    bool isDate = false;
    bool isText = false;
    MaskReader reader(mask);
    char c = 0;
    bool literal = false;
    while (reader.Next(c, literal)) {
        if (literal) continue;
        switch (Lower(c)) {
        case '0':
        case '#': return MaskKind::Number;
        case 'd':
        case 'm':
        case 'y':
        case 'h':
        case 'n':
        case 's':
        case 'q':
        case 'w':
        case 'c':
        case 't': isDate = true; break;
        case 'a':
            isDate =
                isDate || SameName(reader.Rest().substr(0, 2), "/p") || SameName(reader.Rest().substr(0, 4), "m/pm");
            break;
        case '@':
        case '&':
        case '<':
        case '>':
        case '!': isText = true; break;
        default: break;
        }
    }
    return isDate ? MaskKind::Date : isText ? MaskKind::Text : MaskKind::Number;
}

/// The parts of a mask between its semicolons, at most four.
struct Sections {
    std::array<std::string_view, 4> text;
    std::size_t count = 0;
};

Sections SectionsOf(std::string_view mask)
{
    Sections sections;
    MaskReader reader(mask);
    const char* begin = mask.data();
    char c = 0;
    bool literal = false;
    while (reader.Next(c, literal)) {
        if (literal || c != ';' || sections.count == 3) continue;
        const char* end = reader.Rest().data() - 1;
        sections.text[sections.count++] = std::string_view(begin, static_cast<std::size_t>(end - begin));
        begin = end + 1;
    }
    const char* last = mask.data() + mask.size();
    sections.text[sections.count++] = std::string_view(begin, static_cast<std::size_t>(last - begin));
    return sections;
}

/// Number masks.

struct NumberMask {
    std::int32_t integerPlaces = 0, leastIntegers = 0;
    std::int32_t decimalPlaces = 0, leastDecimals = 0;
    std::int32_t thousandsLess = 0; ///< commas behind the last integer place: each divides by 1000
    std::int32_t percents = 0;
    bool point = false, grouped = false, exponent = false;
};

/// "E+", "E-" in either case.
bool StandsExponent(char c, std::string_view rest)
{
    return Lower(c) == 'e' && !rest.empty() && (rest.front() == '+' || rest.front() == '-');
}

NumberMask ReadNumberMask(std::string_view section)
{
    NumberMask mask;
    MaskReader reader(section);
    char c = 0;
    bool literal = false;
    std::int32_t commas = 0;
    while (reader.Next(c, literal)) {
        if (literal) continue;
        if (c == '0' || c == '#') {
            if (mask.exponent) continue;
            if (mask.point) {
                ++mask.decimalPlaces;
                if (c == '0') mask.leastDecimals = mask.decimalPlaces;
                continue;
            }
            mask.grouped = mask.grouped || commas > 0;
            commas = 0;
            ++mask.integerPlaces;
            if (c == '0' || mask.leastIntegers > 0) ++mask.leastIntegers;
        } else if (c == '.') {
            mask.point = true;
        } else if (c == ',' && !mask.point && mask.integerPlaces > 0) {
            ++commas;
        } else if (c == '%') {
            ++mask.percents;
        } else if (StandsExponent(c, reader.Rest())) {
            mask.exponent = true;
            reader.Skip(1);
        }
    }
    mask.thousandsLess = commas;
    return mask;
}

/// Writes the number's digits into the places of one section, without a sign.
class NumberWriter {
public:
    NumberWriter(Digits digits, std::string_view section)
        : locale_(CurrentLocale()), section_(section), mask_(ReadNumberMask(section)), digits_(digits)
    {
        if (!digits_.IsZero()) digits_.point += 2 * mask_.percents - 3 * mask_.thousandsLess;
        if (mask_.exponent) {
            // Rounding may carry into a further place; the exponent then grows by one.
            ScaleMantissa();
            RoundAt(digits_, mask_.decimalPlaces);
            ScaleMantissa();
        }
        RoundAt(digits_, mask_.decimalPlaces);
        integers_ = std::max(digits_.point, 0);
        shownIntegers_ = std::max(integers_, mask_.leastIntegers);
        shownDecimals_ = std::max(digits_.count - digits_.point, mask_.leastDecimals);
        if (digits_.IsZero()) shownDecimals_ = mask_.leastDecimals;
    }

    std::string Write()
    {
        MaskReader reader(section_);
        char c = 0;
        bool literal = false;
        bool inDecimals = false;
        std::int32_t place = mask_.integerPlaces;
        while (reader.Next(c, literal)) {
            if (literal) {
                text_.push_back(c);
            } else if ((c == '0' || c == '#') && !inDecimals) {
                if (place == mask_.integerPlaces) PutAbove(place);
                --place;
                if (place < shownIntegers_) PutInteger(place);
            } else if (c == '0' || c == '#') {
                --place;
                if (-place <= shownDecimals_) text_.push_back(digits_.At(place));
            } else if (c == '.' && !inDecimals) {
                if (mask_.integerPlaces == 0) PutAbove(0);
                inDecimals = true;
                place = 0;
                text_.append(locale_.decimalSeparator);
            } else if (c == ',' && (inDecimals || place < mask_.integerPlaces)) {
                continue; // grouping is done while the digits are put
            } else if (mask_.exponent && StandsExponent(c, reader.Rest())) {
                PutExponent(c, reader);
            } else {
                text_.push_back(c);
            }
        }
        return std::move(text_);
    }

private:
    void ScaleMantissa()
    {
        if (digits_.IsZero()) return;
        exponent_ += digits_.point - mask_.integerPlaces;
        digits_.point = mask_.integerPlaces;
    }

    void PutInteger(std::int32_t place)
    {
        text_.push_back(digits_.At(place));
        if (mask_.grouped && place > 0 && place % 3 == 0) text_.append(locale_.thousandsSeparator);
    }

    /// Digits above the mask are never cut: they stand before its first place.
    void PutAbove(std::int32_t places)
    {
        for (std::int32_t place = integers_ - 1; place >= places; --place)
            PutInteger(place);
    }

    void PutExponent(char letter, MaskReader& reader)
    {
        text_.push_back(letter);
        const bool showPlus = reader.Rest().front() == '+';
        reader.Skip(1);
        if (exponent_ < 0)
            text_.push_back('-');
        else if (showPlus)
            text_.push_back('+');
        std::size_t places = 0;
        while (!reader.Rest().empty() && (reader.Rest().front() == '0' || reader.Rest().front() == '#')) {
            if (reader.Rest().front() == '0') ++places;
            reader.Skip(1);
        }
        const std::string magnitude = std::to_string(exponent_ < 0 ? -exponent_ : exponent_);
        if (magnitude.size() < places) text_.append(places - magnitude.size(), '0');
        text_.append(magnitude);
    }

    const Locale& locale_;
    std::string_view section_;
    NumberMask mask_;
    Digits digits_;
    std::int32_t exponent_ = 0;
    std::int32_t integers_ = 0, shownIntegers_ = 0, shownDecimals_ = 0;
    std::string text_;
};

std::string FormatNumber(const Digits& digits, std::string_view mask)
{
    const Sections sections = SectionsOf(mask);
    std::string_view section = sections.text[0];
    bool showSign = digits.negative;
    if (digits.negative && sections.count > 1 && !sections.text[1].empty()) {
        section = sections.text[1];
        showSign = false;
    } else if (digits.IsZero() && sections.count > 2 && !sections.text[2].empty()) {
        section = sections.text[2];
    }
    std::string text = NumberWriter(digits, section).Write();
    // A negative number that rounds to zero keeps its sign.
    if (showSign) text.insert(0, 1, '-');
    return text;
}

/// Null and Empty: the fourth section, nothing without one.
std::string FormatNothing(std::string_view mask)
{
    const Sections sections = SectionsOf(mask);
    return sections.count < 4 ? std::string() : NumberWriter(Digits{}, sections.text[3]).Write();
}

/// Text masks.

std::string FormatText(std::string_view value, std::string_view mask)
{
    const Sections sections = SectionsOf(mask);
    const std::string_view section = value.empty() && sections.count > 1 ? sections.text[1] : sections.text[0];
    std::int32_t places = 0;
    bool leftToRight = false;
    char letterCase = 0;
    char c = 0;
    bool literal = false;
    for (MaskReader reader(section); reader.Next(c, literal);) {
        if (literal) continue;
        if (c == '@' || c == '&') ++places;
        if (c == '!') leftToRight = true;
        if (c == '<' || c == '>') letterCase = c;
    }
    const std::string cased = letterCase == '<' ? LCase(value) : letterCase == '>' ? UCase(value) : std::string(value);
    std::string_view rest = cased;
    const std::int32_t length = Len(cased);
    std::int32_t missing = std::max(places - length, 0); // places without a character
    std::int32_t above = leftToRight ? 0 : std::max(length - places, 0);
    std::int32_t left = places; // places still to come
    const auto put = [&](std::string& text) {
        const std::string_view before = rest;
        NextCharacter(rest);
        text.append(before.substr(0, before.size() - rest.size()));
    };

    std::string text;
    for (MaskReader reader(section); reader.Next(c, literal);) {
        if (!literal && (c == '!' || c == '<' || c == '>')) continue;
        if (literal || (c != '@' && c != '&')) {
            text.push_back(c);
            continue;
        }
        for (; above > 0; --above)
            put(text);
        // Filled from the right, the first places stay free; filled from the left, the last ones.
        const bool isFree = leftToRight ? left <= missing : missing > 0;
        --left;
        if (!isFree) {
            put(text);
            continue;
        }
        if (!leftToRight) --missing;
        if (c == '@') text.push_back(' ');
    }
    return text.append(rest);
}

/// Date masks.

void PutPadded(std::string& text, std::int32_t value, std::size_t width)
{
    char buffer[16];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
    const auto size = static_cast<std::size_t>(end - buffer);
    if (size < width) text.append(width - size, '0');
    text.append(buffer, size);
}

constexpr std::array<std::string_view, 6> kHalfDayMarks = {"AM/PM", "am/pm", "A/P", "a/p", "AMPM", "ampm"};

/// The mark of a half day that stands here; empty = none.
std::string_view HalfDayMark(std::string_view text)
{
    for (const std::string_view mark : kHalfDayMarks)
        if (text.starts_with(mark)) return mark;
    // Mixed case counts as capitals.
    if (SameName(text.substr(0, 5), "AM/PM")) return kHalfDayMarks[0];
    return {};
}

void PutHalfDay(std::string& text, std::string_view mark, bool afternoon)
{
    if (mark.size() == 4) {
        text.append(afternoon ? "PM" : "AM");
        return;
    }
    const std::size_t slash = mark.find('/');
    text.append(afternoon ? mark.substr(slash + 1) : mark.substr(0, slash));
}

bool HasHalfDay(std::string_view mask)
{
    MaskReader reader(mask);
    char c = 0;
    bool literal = false;
    while (reader.Next(c, literal)) {
        if (literal || Lower(c) != 'a') continue;
        const char* here = reader.Rest().data() - 1;
        if (!HalfDayMark(std::string_view(here, reader.Rest().size() + 1)).empty()) return true;
    }
    return false;
}

class DateWriter {
public:
    DateWriter(Date date, std::string_view mask)
        : locale_(CurrentLocale()), date_(date), parts_(PartsOf(date)), mask_(mask), halfDays_(HasHalfDay(mask))
    {
    }

    std::string Write()
    {
        MaskReader reader(mask_);
        char c = 0;
        bool literal = false;
        while (reader.Next(c, literal)) {
            if (literal) {
                text_.push_back(c);
                continue;
            }
            const char kind = Lower(c);
            if (kind == '/') {
                text_.append(locale_.dateSeparator);
            } else if (kind == ':') {
                text_.append(locale_.timeSeparator);
            } else if (kind == 'a') {
                const char* here = reader.Rest().data() - 1;
                const std::string_view mark = HalfDayMark(std::string_view(here, reader.Rest().size() + 1));
                if (mark.empty()) {
                    text_.push_back(c);
                    continue;
                }
                PutHalfDay(text_, mark, parts_.hour >= 12);
                reader.Skip(mark.size() - 1);
            } else if (std::string_view("dmyhnsqwct").find(kind) != std::string_view::npos) {
                std::size_t run = 1;
                while (!reader.Rest().empty() && Lower(reader.Rest().front()) == kind && kind != 'c') {
                    reader.Skip(1);
                    ++run;
                }
                PutPart(kind, run);
                afterHour_ = kind == 'h';
            } else {
                text_.push_back(c);
            }
        }
        return std::move(text_);
    }

private:
    void PutPart(char kind, std::size_t run)
    {
        const auto padded = [&](std::int32_t value) { PutPadded(text_, value, run > 2 ? 2 : run); };
        switch (kind) {
        case 'd': PutDay(run); break;
        case 'm':
            if (afterHour_ && run <= 2)
                padded(parts_.minute);
            else
                PutMonth(run);
            break;
        case 'y': PutYear(run); break;
        case 'h': padded(halfDays_ ? (parts_.hour + 11) % 12 + 1 : parts_.hour); break;
        case 'n': padded(parts_.minute); break;
        case 's': padded(parts_.second); break;
        case 'q': PutPadded(text_, (parts_.month + 2) / 3, 1); break;
        case 'w':
            if (run == 1)
                PutPadded(text_, WeekdayOf(parts_), 1);
            else
                PutPadded(text_, WeekOfYear(), 1);
            break;
        case 'c': text_.append(CStr(date_)); break;
        case 't':
            if (run == 5)
                text_.append(FormatDate(date_, locale_.longTimeMask));
            else
                text_.append(run, 't');
            break;
        default: break;
        }
    }

    void PutDay(std::size_t run)
    {
        const auto weekday = static_cast<std::size_t>(WeekdayOf(parts_) - 1);
        switch (run) {
        case 1:
        case 2: PutPadded(text_, parts_.day, run); break;
        case 3: text_.append(locale_.dayShortNames[weekday]); break;
        case 4: text_.append(locale_.dayNames[weekday]); break;
        case 5: text_.append(FormatDate(date_, locale_.shortDateMask)); break;
        default: text_.append(FormatDate(date_, locale_.longDateMask)); break;
        }
    }

    void PutMonth(std::size_t run)
    {
        const auto month = static_cast<std::size_t>(parts_.month - 1);
        if (run <= 2)
            PutPadded(text_, parts_.month, run);
        else
            text_.append(run == 3 ? locale_.monthShortNames[month] : locale_.monthNames[month]);
    }

    void PutYear(std::size_t run)
    {
        if (run == 1)
            PutPadded(text_, DayOfYear(parts_), 1);
        else if (run == 2)
            PutPadded(text_, parts_.year % 100, 2);
        else
            PutPadded(text_, parts_.year, 4);
    }

    /// Weeks begin on Sunday; the first one holds the first of January.
    std::int32_t WeekOfYear() const
    {
        const DateParts newYear{.year = parts_.year, .month = 1, .day = 1};
        return (DayOfYear(parts_) + WeekdayOf(newYear) - 2) / 7 + 1;
    }

    const Locale& locale_;
    Date date_;
    DateParts parts_;
    std::string_view mask_;
    bool halfDays_;
    bool afterHour_ = false; ///< the last part was an hour: "mm" then means minutes
    std::string text_;
};

/// Named formats.

struct NamedFormat {
    std::string_view name;
    std::string_view mask;
};
constexpr NamedFormat kNamedFormats[] = {
    {"Fixed", "0.00"},      {"Standard", "#,##0.00"},       {"Percent", "0.00%"},         {"Scientific", "0.00E+00"},
    {"General Date", "c"},  {"Long Date", "dddddd"},        {"Medium Date", "dd-mmm-yy"}, {"Short Date", "ddddd"},
    {"Long Time", "ttttt"}, {"Medium Time", "hh:nn AM/PM"}, {"Short Time", "hh:nn"},
};

std::string_view MaskOfName(std::string_view mask)
{
    for (const NamedFormat& format : kNamedFormats)
        if (SameName(mask, format.name)) return format.mask;
    if (SameName(mask, "Currency")) return CurrentLocale().currencyMask;
    return mask;
}

/// The two words of a format that names truth values; nothing for any other.
std::optional<std::array<std::string_view, 2>> WordsOfName(std::string_view mask)
{
    const Locale& locale = CurrentLocale();
    if (SameName(mask, "Yes/No")) return std::array<std::string_view, 2>{locale.noWord, locale.yesWord};
    if (SameName(mask, "True/False")) return std::array<std::string_view, 2>{locale.falseWord, locale.trueWord};
    if (SameName(mask, "On/Off")) return std::array<std::string_view, 2>{locale.offWord, locale.onWord};
    return std::nullopt;
}

/// The value as digits; nothing for a text that is no number.
std::optional<Digits> DigitsOfValue(const Variant& value)
{
    if (const auto* text = value.As<std::string>()) {
        const std::optional<double> number = ReadNumber(*text);
        if (!number) return std::nullopt;
        return DigitsOf(*number);
    }
    if (const auto* currency = value.As<Currency>()) return ScaledDigits(currency->tenThousandths, 4);
    if (const auto* decimal = value.As<Decimal>()) return ScaledDigits(decimal->units, decimal->scale);
    if (const auto* single = value.As<float>()) return DigitsOf(static_cast<double>(*single), 7);
    return DigitsOf(CDbl(value));
}

/// The value as a date; nothing for a text that is neither date nor number.
std::optional<Date> DateOfValue(const Variant& value)
{
    if (const auto* text = value.As<std::string>()) {
        if (const std::optional<Date> date = ReadDateText(*text)) return date;
        const std::optional<double> days = ReadNumber(*text);
        if (!days || !IsInDateRange(*days) || !MayBeSerial(*text)) return std::nullopt;
        return Date{*days};
    }
    return CDate(value);
}

} // namespace

std::string FormatDate(Date date, std::string_view mask)
{
    return DateWriter(date, mask).Write();
}

std::string Format(const Variant& value, std::string_view mask)
{
    if (const ObjectRef* object = value.As<ObjectRef>()) return Format(Deref(*object).Get(""), mask);
    if (value.IsArray()) Raise(kErrTypeMismatch);
    if (mask.empty()) return ToText(value);
    const bool isText = value.IsText();

    if (const auto words = WordsOfName(mask)) {
        if (value.IsNull()) return {};
        const std::optional<Digits> digits = DigitsOfValue(value);
        return digits ? std::string((*words)[digits->IsZero() ? 0 : 1]) : ToText(value);
    }
    if (SameName(mask, "General Number")) {
        const std::optional<double> number = isText ? ReadNumber(value.Held<std::string>()) : std::nullopt;
        return number ? NumberText(*number) : ToText(value);
    }
    mask = MaskOfName(mask);

    switch (KindOf(mask)) {
    case MaskKind::Text: return FormatText(ToText(value), mask);
    case MaskKind::Date: {
        if (value.IsNull() || value.IsEmpty()) return {};
        const std::optional<Date> date = DateOfValue(value);
        return date ? FormatDate(*date, mask) : ToText(value);
    }
    case MaskKind::Number: break;
    }
    if (value.IsNull() || value.IsEmpty()) return FormatNothing(mask);
    const std::optional<Digits> digits = DigitsOfValue(value);
    return digits ? FormatNumber(*digits, mask) : ToText(value);
}

} // namespace kvx::basic
