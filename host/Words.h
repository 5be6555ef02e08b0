#pragma once

#include <string_view>

namespace kvx::host {

/// A text of the host in both languages.
struct Words {
    std::string_view german, english;
    std::string_view In(bool inEnglish) const { return inEnglish ? english : german; }
};

}  // namespace kvx::host
