// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "support/AtomicFile.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace marvo::demo {

/// A recording or other file of the card, written whole or not at all as by AtomicFile, with its name and
/// size. After the first failure later writes do nothing, and commit() reports it.
class OutputFile
{
public:
    explicit OutputFile(std::string path);

    void write(std::span<const std::uint8_t> bytes);
    void write(std::string_view text);
    /// Replaces bytes that were written before.
    void overwrite(std::int64_t offset, std::span<const std::uint8_t> bytes);

    std::int64_t size() const { return m_size; } ///< bytes written so far
    bool hasFailed() const { return static_cast<bool>(m_error); }

    /// Puts the file in place. An error text that names the file and the system's reason, or none.
    std::optional<std::string> commit();

private:
    std::string m_path;
    AtomicFile m_file;
    std::error_code m_error;
    std::int64_t m_size = 0;
};

/// "cannot write 'PATH': REASON".
std::string writeError(const std::string& path, const std::error_code& error);

} // namespace marvo::demo
