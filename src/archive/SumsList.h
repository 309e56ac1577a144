// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "archive/Sha256.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace marvo {

/// The files of a folder with their sums, as `sha256sum` writes and `sha256sum -c` reads them: a line of 64
/// hexadecimal digits, two spaces and the path. A line whose path has a backslash, CR or LF begins with a
/// backslash and has these as "\\", "\r" and "\n". Paths are bytes.
class SumsList
{
public:
    /// Reads the lines of a list. A line that is none of the above, has a path that leads out of the folder
    /// or contradicts an earlier line is a bad one, and so is a last line without its end. Bad lines are kept
    /// as they are.
    void read(std::string_view text);
    const std::vector<std::string>& badLines() const { return m_badLines; }

    /// All lines, sorted by path, then the bad ones.
    std::string text() const;

    const std::map<std::string, Sha256Sum, std::less<>>& entries() const { return m_entries; }
    std::optional<Sha256Sum> find(std::string_view path) const;
    void set(std::string path, const Sha256Sum& sum) { m_entries.insert_or_assign(std::move(path), sum); }
    void remove(std::string_view path);

private:
    std::map<std::string, Sha256Sum, std::less<>> m_entries;
    std::vector<std::string> m_badLines;
};

/// One line of such a list, with its end.
std::string sumsLine(std::string_view path, const Sha256Sum& sum);

/// True for a path whose components are all names: relative, not empty, without "." and "..".
bool isPathWithin(std::string_view path);

/// Reads a small text file of a folder (a descriptor); a missing one is empty. Nothing but a regular file is
/// read, and none that is larger than told.
std::error_code readTextAt(int folder, const char* name, std::string& text,
                           std::int64_t largest = std::int64_t{1} << 30);

} // namespace marvo
