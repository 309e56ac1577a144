// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/SumsList.h"

#include "support/Descriptor.h"
#include "support/System.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace marvo {

namespace {

/// None for a backslash that begins no known pair.
std::optional<std::string> unescaped(std::string_view escaped)
{
    std::string path;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '\\') {
            path += escaped[i];
            continue;
        }
        const char next = ++i < escaped.size() ? escaped[i] : '\0';
        if (next != '\\' && next != 'n' && next != 'r')
            return std::nullopt;
        path += next == 'n' ? '\n' : next == 'r' ? '\r' : '\\';
    }
    return path;
}

} // namespace

bool isPathWithin(std::string_view path)
{
    if (path.empty() || path.find('\0') != std::string_view::npos)
        return false;
    while (true) {
        const std::size_t slash = path.find('/');
        const std::string_view name = path.substr(0, slash);
        if (name.empty() || name == "." || name == "..")
            return false;
        if (slash == std::string_view::npos)
            return true;
        path.remove_prefix(slash + 1);
    }
}

std::string sumsLine(std::string_view path, const Sha256Sum& sum)
{
    const bool isPlain = path.find_first_of("\\\r\n") == std::string_view::npos;
    std::string line = isPlain ? "" : "\\";
    line += hexText(sum) + "  ";
    for (const char c : path) {
        if (c == '\\')
            line += "\\\\";
        else if (c == '\n')
            line += "\\n";
        else if (c == '\r')
            line += "\\r";
        else
            line += c;
    }
    return line + "\n";
}

void SumsList::read(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        const bool isWhole = end != std::string_view::npos;
        const std::string_view wholeLine = text.substr(0, end);
        std::string_view line = wholeLine;
        text.remove_prefix(isWhole ? end + 1 : text.size());
        const bool isEscaped = line.starts_with('\\');
        if (isEscaped)
            line.remove_prefix(1);
        constexpr std::size_t pathStart = 66;
        const auto sum = readSha256(line.substr(0, 64));
        const bool isLine = sum && line.size() > pathStart && line[64] == ' ' &&
                            (line[65] == ' ' || line[65] == '*');
        std::optional<std::string> path;
        if (isLine)
            path = isEscaped ? unescaped(line.substr(pathStart)) : std::string(line.substr(pathStart));
        if (!path || !isPathWithin(*path)) {
            m_badLines.emplace_back(wholeLine);
            continue;
        }
        const auto [entry, isNew] = m_entries.try_emplace(std::move(*path), *sum);
        if (!isNew && entry->second != *sum)
            m_badLines.emplace_back(wholeLine);
    }
}

std::string SumsList::text() const
{
    std::string text;
    for (const auto& [path, sum] : m_entries)
        text += sumsLine(path, sum);
    for (const std::string& line : m_badLines)
        text += line + "\n";
    return text;
}

std::optional<Sha256Sum> SumsList::find(std::string_view path) const
{
    const auto entry = m_entries.find(path);
    return entry == m_entries.end() ? std::nullopt : std::optional(entry->second);
}

void SumsList::remove(std::string_view path)
{
    if (const auto entry = m_entries.find(path); entry != m_entries.end())
        m_entries.erase(entry);
}

std::error_code readTextAt(int folder, const char* name, std::string& text, std::int64_t largest)
{
    text.clear();
    const Descriptor file(::openat(folder, name, O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY));
    if (!file)
        return errno == ENOENT ? std::error_code() : systemError();
    struct stat facts;
    if (::fstat(*file, &facts) != 0)
        return systemError();
    if (!S_ISREG(facts.st_mode) || facts.st_size > largest)
        return std::make_error_code(std::errc::invalid_argument);
    text.resize(static_cast<std::size_t>(facts.st_size));
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t count =
            ::pread(*file, text.data() + done, text.size() - done, static_cast<off_t>(done));
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return systemError();
        if (count == 0)
            break;
        done += static_cast<std::size_t>(count);
    }
    text.resize(done);
    return {};
}

} // namespace marvo
