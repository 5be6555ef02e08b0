#include "adapters/sqlite/Sha256.h"

#include <bit>
#include <cstddef>
#include <string>

namespace kvx::adapters::sqlite {
namespace {

using State = std::array<std::uint32_t, 8>;
using Block = std::array<std::uint8_t, 64>;

constexpr State kInitial = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                            0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};

constexpr std::uint32_t kRound[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2,
};

void Compress(State& state, const std::uint8_t* block)
{
    std::uint32_t w[64];
    for (std::size_t i = 0; i < 16; ++i)
        w[i] = static_cast<std::uint32_t>(block[i * 4] << 24 | block[i * 4 + 1] << 16 | block[i * 4 + 2] << 8 |
                                          block[i * 4 + 3]);
    for (std::size_t i = 16; i < 64; ++i) {
        const std::uint32_t s0 = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ (w[i - 15] >> 3);
        const std::uint32_t s1 = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ (w[i - 2] >> 10);
        w[i] = w[i - 16] + s0 + w[i - 7] + s1;
    }
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < 64; ++i) {
        const std::uint32_t s1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
        const std::uint32_t t1 = h + s1 + ((e & f) ^ (~e & g)) + kRound[i] + w[i];
        const std::uint32_t s0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
        const std::uint32_t t2 = s0 + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + t1;
        d = c;
        c = b;
        b = a;
        a = t1 + t2;
    }
    const State add = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < 8; ++i)
        state[i] += add[i];
}

// The rest of a message of which so many bytes went into the state already.
Hash256 Finish(State state, std::string_view rest, std::uint64_t bytesBefore)
{
    const std::uint64_t bits = (bytesBefore + rest.size()) * 8;
    std::string padded(rest);
    padded += '\x80';
    while (padded.size() % 64 != 56)
        padded += '\0';
    for (int shift = 56; shift >= 0; shift -= 8)
        padded += static_cast<char>(bits >> shift);
    for (std::size_t i = 0; i < padded.size(); i += 64)
        Compress(state, reinterpret_cast<const std::uint8_t*>(padded.data()) + i);
    Hash256 hash{};
    for (std::size_t i = 0; i < 32; ++i)
        hash[i] = static_cast<std::uint8_t>(state[i / 4] >> (24 - i % 4 * 8));
    return hash;
}

std::string_view View(const Hash256& hash)
{
    return {reinterpret_cast<const char*>(hash.data()), hash.size()};
}

}  // namespace

Hash256 Sha256(std::string_view data)
{
    return Finish(kInitial, data, 0);
}

Hash256 StretchPassword(std::string_view password, std::string_view salt, std::uint32_t iterations)
{
    const Hash256 hashed = Sha256(password);
    const std::string_view key = password.size() > 64 ? View(hashed) : password;
    Block inner{}, outer{};
    inner.fill(0x36);
    outer.fill(0x5c);
    for (std::size_t i = 0; i < key.size(); ++i) {
        inner[i] ^= static_cast<std::uint8_t>(key[i]);
        outer[i] ^= static_cast<std::uint8_t>(key[i]);
    }
    State innerState = kInitial, outerState = kInitial;
    Compress(innerState, inner.data());
    Compress(outerState, outer.data());
    const auto hmac = [&](std::string_view message) {
        const Hash256 first = Finish(innerState, message, 64);
        return Finish(outerState, View(first), 64);
    };
    Hash256 step = hmac(std::string(salt) + std::string("\0\0\0\x01", 4));
    Hash256 result = step;
    for (std::uint32_t i = 1; i < iterations; ++i) {
        step = hmac(View(step));
        for (std::size_t k = 0; k < result.size(); ++k)
            result[k] ^= step[k];
    }
    return result;
}

}  // namespace kvx::adapters::sqlite
