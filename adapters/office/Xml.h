#pragma once

#include <string>
#include <string_view>

namespace kvx::adapters::office {

/// Appends a text as XML content or attribute value: markup is escaped, what XML cannot hold is left out (control
/// characters) or becomes U+FFFD (bytes that are no UTF-8).
void AppendEscaped(std::string& xml, std::string_view text);

}  // namespace kvx::adapters::office
