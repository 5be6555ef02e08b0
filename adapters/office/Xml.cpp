#include "adapters/office/Xml.h"

#include "basic/Text.h"

#include <algorithm>

namespace kvx::adapters::office {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

bool IsPlain(char byte)
{
    return byte >= 0x20 && byte < 0x7F && byte != '&' && byte != '<' && byte != '>' && byte != '"';
}

}  // namespace

void AppendEscaped(std::string& xml, std::string_view text)
{
    while (!text.empty()) {
        const auto plain = std::ranges::find_if_not(text, IsPlain) - text.begin();
        xml.append(text.substr(0, static_cast<std::size_t>(plain)));
        text.remove_prefix(static_cast<std::size_t>(plain));
        if (text.empty()) return;

        const std::string_view before = text;
        const char32_t character = basic::NextCharacter(text);
        const std::string_view bytes = before.substr(0, before.size() - text.size());
        switch (character) {
        case '&': xml += "&amp;"; continue;
        case '<': xml += "&lt;"; continue;
        case '>': xml += "&gt;"; continue;
        case '"': xml += "&quot;"; continue;
        default: break;
        }
        const bool isStrayByte = bytes.size() == 1 && static_cast<unsigned char>(bytes.front()) >= 0x80;
        if (isStrayByte || character == 0xFFFE || character == 0xFFFF) {
            basic::AppendCharacter(xml, kReplacement);
        } else if (!IsControl(character)) {
            xml.append(bytes);
        }
    }
}

}  // namespace kvx::adapters::office
