#include "adapters/headless/Keys.h"

#include "basic/Error.h"
#include "basic/Object.h"
#include "basic/Text.h"
#include "ui/Constants.h"

#include <charconv>

namespace kvx::adapters::headless {
namespace {

using namespace ui;

constexpr std::int16_t kOtherKey = 231;  // a key that types a character and has no code of its own

struct NamedKey {
    std::string_view name;
    std::int16_t keyCode;
    std::int32_t character;
};
// clang-format off
constexpr NamedKey kNamedKeys[] = {
    {"TAB", vbKeyTab, 0},            {"ENTER", vbKeyReturn, 13},  {"ESC", vbKeyEscape, 27},
    {"BS", vbKeyBack, 8},            {"BACKSPACE", vbKeyBack, 8}, {"BKSP", vbKeyBack, 8},
    {"DEL", vbKeyDelete, 0},         {"DELETE", vbKeyDelete, 0},  {"INS", vbKeyInsert, 0},
    {"INSERT", vbKeyInsert, 0},      {"HOME", vbKeyHome, 0},      {"END", vbKeyEnd, 0},
    {"PGUP", vbKeyPageUp, 0},        {"PGDN", vbKeyPageDown, 0},  {"UP", vbKeyUp, 0},
    {"DOWN", vbKeyDown, 0},          {"LEFT", vbKeyLeft, 0},      {"RIGHT", vbKeyRight, 0},
    {"F1", vbKeyF1, 0},              {"F2", vbKeyF2, 0},          {"SPACE", vbKeySpace, 32},
};
// clang-format on

KeyStroke Typed(char32_t character, std::int16_t shift)
{
    KeyStroke stroke{kOtherKey, shift, static_cast<std::int32_t>(character)};
    const auto between = [character](char32_t first, char32_t last) { return character >= first && character <= last; };
    if (between(U'0', U'9') || between(U'A', U'Z') || character == U' ')
        stroke.keyCode = static_cast<std::int16_t>(character);
    if (between(U'a', U'z')) stroke.keyCode = static_cast<std::int16_t>(character - U'a' + U'A');
    if (between(U'A', U'Z')) stroke.shift |= vbShiftMask;
    if (character == U',') stroke.keyCode = 188;
    if (character == U'-') stroke.keyCode = 189;
    if (character == U'.') stroke.keyCode = 190;
    const bool letter = stroke.keyCode >= 'A' && stroke.keyCode <= 'Z';
    if ((shift & vbShiftMask) != 0) stroke.character = static_cast<std::int32_t>(basic::UpperCharacter(character));
    if ((shift & vbCtrlMask) != 0) stroke.character = letter ? stroke.keyCode - 'A' + 1 : 0;
    return stroke;
}

class Parser {
public:
    explicit Parser(std::string_view keys) : rest_(keys) {}
    std::vector<KeyStroke> Run()
    {
        while (!rest_.empty())
            Next(0);
        return std::move(strokes_);
    }

private:
    void Next(std::int16_t shift)
    {
        const char32_t c = basic::NextCharacter(rest_);
        std::int16_t more = 0;
        if (c == U'+') more = vbShiftMask;
        if (c == U'^') more = vbCtrlMask;
        if (c == U'%') more = vbAltMask;
        if (more != 0 && !rest_.empty())
            Next(static_cast<std::int16_t>(shift | more));
        else if (c == U'(')
            Group(shift);
        else if (c == U'{')
            Named(shift);
        else if (c == U'~')
            strokes_.push_back({vbKeyReturn, shift, 13});
        else
            strokes_.push_back(Typed(c, shift));
    }
    void Group(std::int16_t shift)
    {
        while (!rest_.empty() && rest_.front() != ')')
            Next(shift);
        if (rest_.empty()) basic::Raise(basic::kErrInvalidCall);
        rest_.remove_prefix(1);
    }
    void Named(std::int16_t shift)
    {
        // "{}}" is the bracket itself.
        const std::size_t end = rest_.find('}', 1);
        if (end == std::string_view::npos) basic::Raise(basic::kErrInvalidCall);
        std::string_view name = rest_.substr(0, end);
        rest_.remove_prefix(end + 1);
        int times = 1;
        if (const std::size_t blank = name.rfind(' '); blank != std::string_view::npos && blank > 0) {
            const std::string_view number = name.substr(blank + 1);
            if (std::from_chars(number.data(), number.data() + number.size(), times).ec != std::errc{})
                basic::Raise(basic::kErrInvalidCall);
            name = name.substr(0, blank);
        }
        KeyStroke stroke;
        if (basic::Len(name) == 1) {
            stroke = Typed(basic::NextCharacter(name), shift);
        } else {
            const NamedKey* found = nullptr;
            for (const NamedKey& key : kNamedKeys)
                if (basic::SameName(key.name, name)) found = &key;
            if (found == nullptr) basic::Raise(basic::kErrInvalidCall);
            stroke = {found->keyCode, shift, found->character};
        }
        for (int i = 0; i < times; ++i)
            strokes_.push_back(stroke);
    }
    std::string_view rest_;
    std::vector<KeyStroke> strokes_;
};

}  // namespace

std::vector<KeyStroke> ParseKeys(std::string_view keys)
{
    return Parser{keys}.Run();
}

std::vector<KeyStroke> TypeKeys(std::string_view text)
{
    std::vector<KeyStroke> strokes;
    while (!text.empty())
        strokes.push_back(Typed(basic::NextCharacter(text), 0));
    return strokes;
}

}  // namespace kvx::adapters::headless
