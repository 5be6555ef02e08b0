#pragma once

#include <array>
#include <cstdint>
#include <string_view>

// Passwords are kept as salted hashes.
namespace kvx::adapters::sqlite {

using Hash256 = std::array<std::uint8_t, 32>;

/// SHA-256, FIPS 180-4.
Hash256 Sha256(std::string_view data);

/// PBKDF2 with HMAC-SHA-256, one block (RFC 8018).
Hash256 StretchPassword(std::string_view password, std::string_view salt, std::uint32_t iterations);

}  // namespace kvx::adapters::sqlite
