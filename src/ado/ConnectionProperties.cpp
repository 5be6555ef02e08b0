#include "ado/Driver.h"
#include "basic/Object.h"

#include <algorithm>

namespace kvx::ado {
namespace {

std::string_view TrimBlanks(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Reads a value up to the next ";": bare, or in one of the two quotes with that quote doubled inside.
std::string ReadValue(std::string_view text, std::size_t& position)
{
    const std::size_t start = std::min(text.find_first_not_of(" \t", position), text.size());
    if (start < text.size() && (text[start] == '"' || text[start] == '\'')) {
        const char quote = text[start];
        std::string value;
        position = start + 1;
        while (position < text.size()) {
            const char character = text[position++];
            if (character != quote) {
                value += character;
            } else if (position < text.size() && text[position] == quote) {
                value += quote;
                ++position;
            } else {
                break;
            }
        }
        position = std::min(text.find(';', position), text.size());
        return value;
    }
    const std::size_t end = std::min(text.find(';', start), text.size());
    position = end;
    return std::string(TrimBlanks(text.substr(start, end - start)));
}

bool NeedsQuotes(std::string_view value)
{
    return value.find_first_of(";\"'") != std::string_view::npos || value != TrimBlanks(value);
}

std::string Quoted(std::string_view value)
{
    const char quote = value.find('"') == std::string_view::npos ? '"' : '\'';
    std::string text(1, quote);
    for (const char character : value) {
        text += character;
        if (character == quote) text += quote;
    }
    return text + quote;
}

}  // namespace

ConnectionProperties::ConnectionProperties(std::string_view connectionString)
{
    std::size_t position = 0;
    while (position < connectionString.size()) {
        const std::size_t end = std::min(connectionString.find_first_of("=;", position), connectionString.size());
        const std::string_view name = TrimBlanks(connectionString.substr(position, end - position));
        position = end;
        std::string value;
        if (position < connectionString.size() && connectionString[position] == '=')
            value = ReadValue(connectionString, ++position);
        ++position;  // the ";"
        if (!name.empty()) Set(name, value);
    }
}

std::string ConnectionProperties::Get(std::initializer_list<std::string_view> names) const
{
    for (const std::string_view name : names)
        for (const auto& [partName, value] : parts_)
            if (basic::SameName(partName, name)) return value;
    return {};
}

bool ConnectionProperties::Has(std::string_view name) const
{
    return std::ranges::any_of(parts_, [&](const auto& part) { return basic::SameName(part.first, name); });
}

void ConnectionProperties::Set(std::string_view name, std::string_view value)
{
    for (auto& [partName, partValue] : parts_) {
        if (!basic::SameName(partName, name)) continue;
        partValue = value;
        return;
    }
    parts_.emplace_back(name, value);
}

std::string ConnectionProperties::ToString(std::initializer_list<std::string_view> without) const
{
    std::string text;
    for (const auto& part : parts_) {
        const std::string& name = part.first;
        const std::string& value = part.second;
        if (std::ranges::any_of(without, [&](std::string_view other) { return basic::SameName(name, other); }))
            continue;
        if (!text.empty()) text += ';';
        text += name + '=' + (NeedsQuotes(value) ? Quoted(value) : value);
    }
    return text;
}

}  // namespace kvx::ado
