#include "adapters/sqlite/Functions.h"

#include "adapters/sqlite/Dates.h"
#include "adapters/sqlite/Errors.h"
#include "adapters/sqlite/Tokenizer.h"
#include "adapters/sqlite/Types.h"

#include <algorithm>
#include <cstring>
#include <optional>
#include <sqlite3.h>
#include <string>
#include <unicode/uchar.h>

namespace kvx::adapters::sqlite {
namespace {

using Arguments = sqlite3_value**;

std::function<std::time_t()>& Clock()
{
    static std::function<std::time_t()> clock;
    return clock;
}

std::string_view TextOf(sqlite3_value* value)
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view()
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

bool IsNull(sqlite3_value* value)
{
    return sqlite3_value_type(value) == SQLITE_NULL;
}

void ResultText(sqlite3_context* context, std::string_view text)
{
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

// The error mapping tells refused values by this code.
void ResultConversionError(sqlite3_context* context, const std::string& message)
{
    sqlite3_result_error(context, message.c_str(), static_cast<int>(message.size()));
    sqlite3_result_error_code(context, SQLITE_MISMATCH);
}

// One character, and where the next begins. A byte that is no UTF-8 stands for itself.
struct Decoded {
    char32_t character;
    std::size_t size;
};

Decoded Decode(std::string_view text, std::size_t i)
{
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char first = byte(i);
    if (first < 0x80) return {first, 1};
    const std::size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : first >= 0xC0 ? 2 : 1;
    if (size == 1 || i + size > text.size()) return {first, 1};
    char32_t character = first & (0xFFu >> (size + 1));
    for (std::size_t k = 1; k < size; ++k)
        character = character << 6 | (byte(i + k) & 0x3Fu);
    return {character, size};
}

char32_t Fold(char32_t c)
{
    if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
    return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

class LikeMatcher {
public:
    LikeMatcher(std::string_view text, std::string_view pattern, std::string_view escape)
        : text_(text), pattern_(pattern), escape_(escape.empty() ? 0 : Decode(escape, 0).character)
    {
    }

    // On a failure behind a % the % takes one character more; only the last % need be tried again.
    bool Run() const
    {
        std::size_t t = 0, p = 0;
        std::optional<std::size_t> retryPattern;
        std::size_t retryText = 0;
        while (true) {
            if (p < pattern_.size() && pattern_[p] == '%' && escape_ != U'%') {
                retryPattern = ++p;
                retryText = t;
                continue;
            }
            if (t >= text_.size() && p >= pattern_.size()) return true;
            if (p < pattern_.size() && t < text_.size()) {
                const Decoded c = Decode(text_, t);
                const std::size_t behind = MatchOne(c.character, p);
                if (behind != 0) {
                    p = behind;
                    t += c.size;
                    continue;
                }
            }
            if (!retryPattern || retryText >= text_.size()) return false;
            retryText += Decode(text_, retryText).size;
            t = retryText;
            p = *retryPattern;
        }
    }

private:
    // The pattern's place behind what matches the character; 0 = it does not match.
    std::size_t MatchOne(char32_t character, std::size_t p) const
    {
        Decoded wanted = Decode(pattern_, p);
        if (escape_ != 0 && wanted.character == escape_ && p + wanted.size < pattern_.size()) {
            p += wanted.size;
            wanted = Decode(pattern_, p);
        } else if (wanted.character == U'_') {
            return p + 1;
        } else if (wanted.character == U'[' && pattern_.find(']', p + 1) != std::string_view::npos) {
            return MatchSet(character, p);
        }
        return Fold(wanted.character) == Fold(character) ? p + wanted.size : 0;
    }

    std::size_t MatchSet(char32_t character, std::size_t p) const
    {
        const std::size_t end = pattern_.find(']', p + 1);
        std::size_t i = p + 1;
        const bool negated = i < end && pattern_[i] == '^';
        if (negated) ++i;
        bool found = false;
        while (i < end) {
            const Decoded low = Decode(pattern_, i);
            i += low.size;
            char32_t high = low.character;
            if (i + 1 < end && pattern_[i] == '-') {
                const Decoded upper = Decode(pattern_, i + 1);
                high = upper.character;
                i += 1 + upper.size;
            }
            const char32_t folded = Fold(character);
            found = found || (Fold(low.character) <= folded && folded <= Fold(high));
        }
        return found != negated ? end + 1 : 0;
    }

    std::string_view text_, pattern_;
    char32_t escape_;
};

void Like(sqlite3_context* context, int count, Arguments arguments)
{
    for (int i = 0; i < count; ++i)
        if (IsNull(arguments[i])) return;
    sqlite3_result_int(context, LikeMatches(TextOf(arguments[1]), TextOf(arguments[0]),
                                            count > 2 ? TextOf(arguments[2]) : std::string_view()));
}

void GetDate(sqlite3_context* context, int, Arguments)
{
    const std::time_t now = Clock() ? Clock()() : std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    char buffer[32];
    ResultText(context, {buffer, std::strftime(buffer, sizeof buffer, "%Y-%m-%d %H:%M:%S", &local)});
}

// The place behind so many characters.
std::size_t Advance(std::string_view text, sqlite3_int64 characters)
{
    std::size_t i = 0;
    for (; characters > 0 && i < text.size(); --characters)
        i += Decode(text, i).size;
    return i;
}

void Left(sqlite3_context* context, int, Arguments arguments)
{
    if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
    const std::string_view text = TextOf(arguments[0]);
    ResultText(context, text.substr(0, Advance(text, sqlite3_value_int64(arguments[1]))));
}

void Right(sqlite3_context* context, int, Arguments arguments)
{
    if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
    const std::string_view text = TextOf(arguments[0]);
    const auto characters = static_cast<sqlite3_int64>(CountCharacters(text));
    ResultText(context,
               text.substr(Advance(text, characters - std::max<sqlite3_int64>(sqlite3_value_int64(arguments[1]), 0))));
}

// kvx_date(text[, style]): the day in one spelling, or an error when there is no such day.
void Date(sqlite3_context* context, int count, Arguments arguments)
{
    if (IsNull(arguments[0])) return;
    const std::string_view text = TextOf(arguments[0]);
    const std::optional<DateTime> date = count > 1 ? ParseDate(text, sqlite3_value_int(arguments[1])) : ParseDate(text);
    if (!date) {
        ResultConversionError(context, "The conversion of a varchar data type to a datetime data type resulted in an "
                                       "out-of-range value: '" +
                                           std::string(text) + "'.");
        return;
    }
    ResultText(context, IsoText(*date));
}

void IsDate(sqlite3_context* context, int, Arguments arguments)
{
    sqlite3_result_int(context, IsNull(arguments[0]) || ParseDate(TextOf(arguments[0])).has_value());
}

void DatePart(sqlite3_context* context, Arguments arguments, std::int32_t CalendarDay::*part)
{
    if (IsNull(arguments[0])) return;
    const std::optional<DateTime> date = ParseDate(TextOf(arguments[0]));
    if (!date) {
        ResultConversionError(context, "Conversion failed when converting date and/or time from character string.");
        return;
    }
    sqlite3_result_int(context, CalendarDayOf(date->days).*part);
}

void Len(sqlite3_context* context, int, Arguments arguments)
{
    if (IsNull(arguments[0])) return;
    std::string_view text = TextOf(arguments[0]);
    while (text.ends_with(' '))
        text.remove_suffix(1);  // as the server counts
    sqlite3_result_int64(context, static_cast<sqlite3_int64>(CountCharacters(text)));
}

void AppendUtf8(std::string& text, char32_t c)
{
    const auto put = [&](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

void MapCase(sqlite3_context* context, Arguments arguments, UChar32 (*map)(UChar32))
{
    if (IsNull(arguments[0])) return;
    const std::string_view text = TextOf(arguments[0]);
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const Decoded c = Decode(text, i);
        if (c.size == 1 && c.character >= 0x80)
            result += text[i];
        else
            AppendUtf8(result, static_cast<char32_t>(map(static_cast<UChar32>(c.character))));
        i += c.size;
    }
    ResultText(context, result);
}

// charindex(part, text): from 1, 0 = not there.
void CharIndex(sqlite3_context* context, int, Arguments arguments)
{
    if (IsNull(arguments[0]) || IsNull(arguments[1])) return;
    const std::string_view part = TextOf(arguments[0]), text = TextOf(arguments[1]);
    const auto startsWith = [&](std::size_t from) {
        std::size_t i = from;
        for (std::size_t k = 0; k < part.size();) {
            if (i >= text.size()) return false;
            const Decoded a = Decode(part, k), b = Decode(text, i);
            if (Fold(a.character) != Fold(b.character)) return false;
            k += a.size;
            i += b.size;
        }
        return true;
    };
    int position = 1;
    for (std::size_t i = 0; i < text.size() && !part.empty(); i += Decode(text, i).size, ++position) {
        if (startsWith(i)) {
            sqlite3_result_int(context, position);
            return;
        }
    }
    sqlite3_result_int(context, 0);
}

// object_id(name[, type]): NULL when there is no such table or view. What schema scripts ask before they drop one.
void ObjectId(sqlite3_context* context, int, Arguments arguments)
{
    std::string_view name = TextOf(arguments[0]);
    if (const std::size_t point = name.rfind('.'); point != std::string_view::npos) name.remove_prefix(point + 1);
    const std::string table = Unquote(name);
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v2(sqlite3_context_db_handle(context),
                           "SELECT rowid FROM sqlite_master WHERE name = ? COLLATE NOCASE", -1, &statement,
                           nullptr) == SQLITE_OK) {
        sqlite3_bind_text(statement, 1, table.c_str(), static_cast<int>(table.size()), SQLITE_STATIC);
        if (sqlite3_step(statement) == SQLITE_ROW) sqlite3_result_value(context, sqlite3_column_value(statement, 0));
    }
    sqlite3_finalize(statement);
}

struct Function {
    const char* name;
    int arguments;
    bool deterministic;
    void (*call)(sqlite3_context*, int, Arguments);
};

constexpr Function kFunctions[] = {
    {"like", 2, true, Like},
    {"like", 3, true, Like},
    {"getdate", 0, false, GetDate},
    {"kvx_left", 2, true, Left},
    {"kvx_right", 2, true, Right},
    {"kvx_date", 1, true, Date},
    {"kvx_date", 2, true, Date},
    {"kvx_isdate", 1, true, IsDate},
    {"len", 1, true, Len},
    {"charindex", 2, true, CharIndex},
    {"object_id", 1, false, ObjectId},
    {"object_id", 2, false, ObjectId},
    {"upper", 1, true, [](sqlite3_context* c, int, Arguments a) { MapCase(c, a, u_toupper); }},
    {"lower", 1, true, [](sqlite3_context* c, int, Arguments a) { MapCase(c, a, u_tolower); }},
    {"year", 1, true, [](sqlite3_context* c, int, Arguments a) { DatePart(c, a, &CalendarDay::year); }},
    {"month", 1, true, [](sqlite3_context* c, int, Arguments a) { DatePart(c, a, &CalendarDay::month); }},
    {"day", 1, true, [](sqlite3_context* c, int, Arguments a) { DatePart(c, a, &CalendarDay::day); }},
};

}  // namespace

void SetClock(std::function<std::time_t()> clock)
{
    Clock() = std::move(clock);
}

bool LikeMatches(std::string_view text, std::string_view pattern, std::string_view escape)
{
    return LikeMatcher(text, pattern, escape).Run();
}

void RegisterFunctions(sqlite3* database)
{
    for (const Function& function : kFunctions) {
        const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (function.deterministic ? SQLITE_DETERMINISTIC : 0);
        Check(database, sqlite3_create_function_v2(database, function.name, function.arguments, flags, nullptr,
                                                   function.call, nullptr, nullptr, nullptr));
    }
}

}  // namespace kvx::adapters::sqlite
