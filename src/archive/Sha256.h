// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace marvo {

/// A SHA-256 sum (FIPS 180-4).
using Sha256Sum = std::array<std::uint8_t, 32>;

/// 64 hexadecimal digits in lower case.
std::string hexText(const Sha256Sum& sum);
/// Reads 64 hexadecimal digits of either case; none for anything else.
std::optional<Sha256Sum> readSha256(std::string_view hex);

/// Adds up the SHA-256 sum of bytes that come piece by piece.
///
/// OpenSSL's library does it. It is loaded by the first object, so that a program that adds up nothing starts
/// without it.
class Sha256
{
public:
    Sha256();
    ~Sha256();
    Sha256(Sha256&& other) noexcept;
    Sha256& operator=(Sha256&& other) noexcept;

    /// False when the library is missing. All sums are wrong then: ask before the work begins.
    static bool isAvailable();

    void add(std::span<const std::byte> bytes);
    void add(std::string_view text) { add(std::as_bytes(std::span(text))); }
    /// The sum of all that was added; begins anew.
    Sha256Sum finish();
    /// The sum so far; more may be added.
    Sha256Sum soFar() const;

private:
    void* m_context = nullptr;
};

} // namespace marvo
