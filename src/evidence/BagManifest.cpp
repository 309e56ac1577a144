// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "evidence/BagManifest.h"

#include "archive/SumsList.h"

#include <algorithm>
#include <array>
#include <optional>

namespace marvo {

namespace {

constexpr std::string_view whiteSpace = " \t";

/// Takes the first line off a text, which may end with CR, LF or both.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    const bool isPair = text.substr(end).starts_with("\r\n");
    text.remove_prefix(std::min(end + (isPair ? 2 : 1), text.size()));
    return line;
}

} // namespace

std::string escapedBagPath(std::string_view path)
{
    std::string escaped;
    for (const char c : path) {
        if (c == '\n')
            escaped += "%0A";
        else if (c == '\r')
            escaped += "%0D";
        else if (c == '%')
            escaped += "%25";
        else
            escaped += c;
    }
    return escaped;
}

std::string unescapedBagPath(std::string_view escaped)
{
    std::string path;
    while (!escaped.empty()) {
        const std::string_view three = escaped.substr(0, 3);
        const bool isLineFeed = three == "%0A" || three == "%0a";
        const bool isReturn = three == "%0D" || three == "%0d";
        const bool isPercent = three == "%25";
        path += isLineFeed ? '\n' : isReturn ? '\r' : isPercent ? '%' : escaped.front();
        escaped.remove_prefix(isLineFeed || isReturn || isPercent ? 3 : 1);
    }
    return path;
}

BagManifest BagManifest::read(std::string_view text)
{
    BagManifest manifest;
    bool hasLower = false;
    bool hasUpper = false;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.empty())
            continue;
        constexpr std::size_t digits = 64;
        const std::string_view hex = line.substr(0, digits);
        const auto sum = readSha256(hex);
        std::string_view rest = line.substr(hex.size());
        const std::size_t gap = std::min(rest.find_first_not_of(whiteSpace), rest.size());
        rest.remove_prefix(gap);
        if (rest.starts_with('*'))
            rest.remove_prefix(1);
        const std::string_view relative = rest.starts_with("./") ? rest.substr(2) : rest;
        std::string path = unescapedBagPath(relative);
        if (!sum || gap == 0 || !isPathWithin(path) ||
            !manifest.files.emplace(std::move(path), *sum).second) {
            ++manifest.badLines;
            continue;
        }
        hasLower = hasLower || std::ranges::any_of(hex, [](char c) { return c >= 'a'; });
        hasUpper = hasUpper || std::ranges::any_of(hex, [](char c) { return c >= 'A' && c <= 'F'; });
    }
    if (hasLower && hasUpper)
        ++manifest.badLines;
    return manifest;
}

std::string BagManifest::text() const
{
    std::string text;
    for (const auto& [path, sum] : files) {
        // Behind "*" a path may begin with what else would be taken for the gap.
        const bool needsStar = path.find_first_of("* \t") == 0;
        text += hexText(sum) + "  " + (needsStar ? "*" : "") + escapedBagPath(path) + "\n";
    }
    return text;
}

bool isBagDeclaration(std::string_view text)
{
    constexpr std::array<std::string_view, 6> versions{"0.93", "0.94", "0.95", "0.96", "0.97", "1.0"};
    constexpr std::string_view begin = "BagIt-Version: ";
    const std::string_view version = takeLine(text);
    const std::string_view encoding = takeLine(text);
    return version.starts_with(begin) &&
           std::ranges::find(versions, version.substr(begin.size())) != versions.end() &&
           encoding == "Tag-File-Character-Encoding: UTF-8" && text.empty();
}

std::string payloadOxumOf(std::string_view bagInfo)
{
    constexpr std::string_view name = "Payload-Oxum:";
    while (!bagInfo.empty()) {
        std::string_view line = takeLine(bagInfo);
        if (!line.starts_with(name))
            continue;
        line.remove_prefix(name.size());
        line.remove_prefix(std::min(line.find_first_not_of(whiteSpace), line.size()));
        return std::string(line.substr(0, line.find_last_not_of(whiteSpace) + 1));
    }
    return {};
}

} // namespace marvo
