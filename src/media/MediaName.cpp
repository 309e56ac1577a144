// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MediaName.h"

#include "media/RecordingKinds.h"
#include "support/Utf8.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace marvo {

namespace {

constexpr std::size_t timeLength = 15; // yyyymmdd_hhmiss

/// The current directory, of any length; empty when there is none.
std::string currentDirectory()
{
    std::string buffer(256, '\0');
    while (::getcwd(buffer.data(), buffer.size()) == nullptr) {
        if (errno != ERANGE)
            return {};
        buffer.resize(buffer.size() * 2);
    }
    buffer.resize(buffer.find('\0'));
    // Linux answers "(unreachable)/..." for a directory outside of the process's root.
    return buffer.front() == '/' ? buffer : std::string();
}

/// The text starting at a character; empty when the text is shorter.
std::string_view fromCharacter(std::string_view text, std::size_t index)
{
    if (asciiLength(text.substr(0, index)) == index)
        return text.substr(index);
    for (; index > 0 && !text.empty(); --index) {
        const std::size_t length = utf8CharacterLength(text);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return text;
}

/// The number that the text begins with, of at most `digits` digits; 0 when there is none.
int leadingNumber(std::string_view text, std::size_t digits)
{
    int number = 0;
    for (const char c : text.substr(0, digits)) {
        if (c < '0' || c > '9')
            break;
        number = number * 10 + (c - '0');
    }
    return number;
}

bool isWithin(int number, int lowest, int highest) { return number >= lowest && number <= highest; }

} // namespace

std::string absoluteFilePath(std::string_view path)
{
    const bool isPlain = path.size() > 1 && path.front() == '/' && path.back() != '/' &&
                         path.find("//") == std::string_view::npos &&
                         path.find("/.") == std::string_view::npos;
    if (isPlain)
        return std::string(path);

    std::string result;
    if (path.empty() || path.front() != '/')
        result = currentDirectory();
    const bool absolute = !result.empty() || (!path.empty() && path.front() == '/');
    if (result == "/")
        result.clear();

    result.reserve(result.size() + path.size() + 1);
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        const std::string_view component = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (component.empty() || component == ".")
            continue;
        if (absolute || !result.empty())
            result += '/';
        result += component;
    }
    if (result.empty())
        return absolute ? "/" : ".";
    return result;
}

SplitFileName splitFileName(std::string_view fileName)
{
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return {fileName, {}};
    return {fileName.substr(0, dot), fileName.substr(dot + 1)};
}

std::optional<int> kindOfMediaName(std::string_view mediaName)
{
    for (std::size_t kind = 0; kind < recordingKinds.size(); ++kind) {
        if (mediaName.starts_with(recordingKinds[kind].prefix))
            return static_cast<int>(kind);
    }
    return std::nullopt;
}

std::size_t timeStart(int kind) { return recordingKinds.at(static_cast<std::size_t>(kind)).prefix.size(); }

bool hasMediaNameLength(std::string_view mediaName)
{
    const std::size_t length = utf8Length(mediaName);
    return std::ranges::any_of(
        recordingKinds, [&](const RecordingKind& kind) { return length == kind.prefix.size() + timeLength; });
}

bool _checkTimeByName(std::string_view mediaName, std::size_t startPos)
{
    return utf8Length(mediaName) >= startPos + timeLength;
}

bool isMediaName(std::string_view mediaName)
{
    if (!hasMediaNameLength(mediaName))
        return false;
    const std::optional<int> kind = kindOfMediaName(mediaName);
    return !kind || _checkTimeByName(mediaName, timeStart(*kind));
}

std::optional<MediaTime> readMediaTime(std::string_view mediaName, std::size_t startPos)
{
    if (!_checkTimeByName(mediaName, startPos))
        return std::nullopt;
    const std::string_view text = fromCharacter(mediaName, startPos);
    const auto number = [&](std::size_t offset, std::size_t digits) {
        return leadingNumber(fromCharacter(text, offset), digits);
    };
    const MediaTime time{.year = number(0, 4),
                         .month = number(4, 2),
                         .day = number(6, 2),
                         .hour = number(9, 2),
                         .minute = number(11, 2),
                         .second = number(13, 2)};
    if (!isWithin(time.year, 1970, 2700) || !isWithin(time.month, 1, 12) || !isWithin(time.day, 1, 31) ||
        !isWithin(time.hour, 0, 24) || !isWithin(time.minute, 0, 60) || !isWithin(time.second, 0, 60))
        return std::nullopt;
    return time;
}

} // namespace marvo
