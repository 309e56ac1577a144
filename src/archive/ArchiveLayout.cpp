// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "archive/ArchiveLayout.h"

#include "support/Utf8.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace marvo {

namespace {

constexpr std::string_view decimalDigits = "0123456789";

int numberOf(std::string_view digits)
{
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; };
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::string_view lastComponent(std::string_view path) { return path.substr(path.rfind('/') + 1); }

} // namespace

std::optional<std::string> dayOfFileName(std::string_view fileName)
{
    for (std::size_t start = fileName.find_first_of(decimalDigits); start != std::string_view::npos;
         start = fileName.find_first_of(decimalDigits, start)) {
        const std::size_t end = std::min(fileName.find_first_not_of(decimalDigits, start), fileName.size());
        const std::string_view run = fileName.substr(start, end - start);
        start = end;
        if (run.size() != 8 && run.size() != 14)
            continue;
        const int year = numberOf(run.substr(0, 4));
        const std::chrono::year_month_day day{
            std::chrono::year(year), std::chrono::month(static_cast<unsigned>(numberOf(run.substr(4, 2)))),
            std::chrono::day(static_cast<unsigned>(numberOf(run.substr(6, 2))))};
        if (year >= 1970 && year <= 2700 && day.ok())
            return std::string(run.substr(0, 4))
                .append("-")
                .append(run.substr(4, 2))
                .append("-")
                .append(run.substr(6, 2));
    }
    return std::nullopt;
}

std::string dayFolderOf(std::string_view cardPath)
{
    const auto day = dayOfFileName(lastComponent(cardPath));
    return day ? day->substr(0, 4) + "/" + *day : std::string(undatedFolder);
}

std::string placeInDay(std::string_view cardPath, int variant)
{
    if (variant <= 1)
        return std::string(cardPath);
    return ("~" + std::to_string(variant) + "/").append(cardPath);
}

std::string partialPlaceInDay(std::string_view cardPath, int variant)
{
    return std::string(partialFolder) + "/" + placeInDay(cardPath, variant);
}

int firstVariant(std::string_view cardPath)
{
    const std::string_view first = cardPath.substr(0, cardPath.find('/'));
    const bool isTaken = equalsIgnoringCase(first, sumsFileName) ||
                         equalsIgnoringCase(first, partialFolder) ||
                         isUnfinishedName(lastComponent(cardPath));
    return isTaken ? 2 : 1;
}

std::string dayOfPlace(std::string_view pathInArchive)
{
    const std::size_t car = pathInArchive.find('/');
    const std::size_t year = car == std::string_view::npos ? car : pathInArchive.find('/', car + 1);
    if (year == std::string_view::npos)
        return {};
    if (pathInArchive.substr(car + 1, year - car - 1) == undatedFolder)
        return std::string(pathInArchive.substr(0, year));
    const std::size_t day = pathInArchive.find('/', year + 1);
    if (day == std::string_view::npos)
        return {};
    std::string digits(pathInArchive.substr(year + 1, day - year - 1));
    std::erase(digits, '-');
    const auto named = dayOfFileName(digits);
    const std::string folder(pathInArchive.substr(0, day));
    return named && folder.substr(car + 1) == named->substr(0, 4) + "/" + *named ? folder : std::string();
}

int variantOfPlace(std::string_view pathInDay)
{
    if (isPartialPlace(pathInDay))
        pathInDay.remove_prefix(partialFolder.size() + 1);
    int variant = 1;
    const std::size_t slash = pathInDay.find('/');
    if (pathInDay.starts_with('~') && slash != std::string_view::npos) {
        const auto read = std::from_chars(pathInDay.data() + 1, pathInDay.data() + slash, variant);
        if (read.ptr != pathInDay.data() + slash || variant < 2 || variant > lastVariant)
            return 1;
    }
    return variant;
}

bool isPartialPlace(std::string_view pathInDay)
{
    return pathInDay.starts_with(partialFolder) && pathInDay.substr(partialFolder.size()).starts_with('/');
}

bool isCarName(std::string_view name)
{
    constexpr std::size_t longest = 80;
    if (name.empty() || name.size() > longest || !isValidUtf8(name))
        return false;
    if (name.find_first_of("<>:\"/\\|?*\x7F") != std::string_view::npos ||
        std::ranges::any_of(name, [](char c) { return c >= '\0' && c < ' '; }))
        return false;
    const char first = name.front();
    const char last = name.back();
    return first != '.' && first != '~' && first != ' ' && last != '.' && last != ' ';
}

bool isOutsideArchive(std::string_view nameInRoot)
{
    return equalsIgnoringCase(nameInRoot, ownFolder) || nameInRoot.starts_with(".Trash");
}

bool isUnfinishedName(std::string_view fileName)
{
    constexpr std::string_view prefix = ".marvo-";
    constexpr std::string_view ending = ".part";
    constexpr std::size_t digits = 16;
    if (fileName.ends_with(ending))
        fileName.remove_suffix(ending.size());
    return fileName.size() == prefix.size() + digits && fileName.starts_with(prefix) &&
           fileName.find_first_not_of("0123456789abcdef", prefix.size()) == std::string_view::npos;
}

} // namespace marvo
