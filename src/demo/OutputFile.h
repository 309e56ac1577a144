// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace marvo::demo {

/// A file that appears under its name only when it is whole: it is written under a temporary name in the same
/// folder and renamed by commit(). Destroyed before that, it leaves nothing behind.
///
/// The first failure sticks: later writes do nothing, and commit() tells what went wrong. Paths are bytes.
class OutputFile
{
public:
    explicit OutputFile(std::string path);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(std::span<const std::uint8_t> bytes);
    void write(std::string_view text);
    /// Replaces bytes that were written before; the range must lie inside what was written.
    void overwrite(std::int64_t offset, std::span<const std::uint8_t> bytes);

    std::int64_t size() const { return m_size; } ///< bytes written so far
    bool hasFailed() const { return m_error != 0; }

    /// Gives the file its name. An error text that names the file and the system's reason, or none.
    std::optional<std::string> commit();

private:
    void fail(int error);
    void writeAt(std::int64_t offset, std::span<const std::uint8_t> bytes);

    std::string m_path;
    std::string m_temporary;
    std::int64_t m_size = 0;
    int m_descriptor = -1;
    int m_error = 0; ///< errno of the first failure
};

} // namespace marvo::demo
