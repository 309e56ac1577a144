// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMedia.h"

#include "support/Utf8.h"

#include <array>
#include <cstdio>

namespace marvo {

namespace {

bool endsWithIgnoringCase(std::string_view text, std::string_view lowerCaseEnd)
{
    if (text.size() < lowerCaseEnd.size())
        return false;
    text.remove_prefix(text.size() - lowerCaseEnd.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if ((c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) != lowerCaseEnd[i])
            return false;
    }
    return true;
}

std::int64_t digitsOf(const MediaTime& time)
{
    std::int64_t digits = time.year;
    for (const int part : {time.month, time.day, time.hour, time.minute, time.second})
        digits = digits * 100 + part;
    return digits;
}

QString displayed(const std::string& bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

} // namespace

int mediaDirection(std::string_view path)
{
    if (endsWithIgnoringCase(path, "_r.avi"))
        return RearMedia;
    return endsWithIgnoringCase(path, "_f.avi") ? FrontMedia : UnknownMedia;
}

bool isFrontMedia(std::string_view path) { return mediaDirection(path) == FrontMedia; }

bool isRearMedia(std::string_view path) { return mediaDirection(path) == RearMedia; }

MRVMedia::MRVMedia(std::string_view path) { parsePath(path); }

void MRVMedia::parsePath(std::string_view path)
{
    m_path = absoluteFilePath(path);
    const std::string_view whole = m_path;
    const std::size_t slash = whole.rfind('/');
    const SplitFileName name =
        splitFileName(slash == std::string_view::npos ? whole : whole.substr(slash + 1));
    m_mediaName = name.base;
    m_extension = name.extension;
    if (slash != std::string_view::npos)
        m_dir = whole.substr(0, slash == 0 ? 1 : slash);

    if (!hasMediaNameLength(m_mediaName))
        return;
    const MediaNamePattern* pattern = patternOfMediaName(m_mediaName);
    if (pattern == nullptr)
        return;
    m_mediaDivision = pattern->mediaDivision;
    m_time = readMediaTime(m_mediaName, pattern->timeStart).value_or(MediaTime{});
    m_timeDigits = digitsOf(m_time);
}

std::string MRVMedia::fileName() const { return m_mediaName + '.' + m_extension; }

std::string MRVMedia::mediaGroupName() const
{
    std::size_t last = 0;
    std::size_t beforeLast = 0;
    for (std::size_t at = 0; at < m_mediaName.size();) {
        beforeLast = last;
        last = at;
        const std::size_t length = utf8CharacterLength(std::string_view(m_mediaName).substr(at));
        at += length == 0 ? 1 : length;
    }
    return m_mediaName.substr(0, beforeLast);
}

QString MRVMedia::displayFileName() const { return displayed(fileName()); }

QString MRVMedia::displayPath() const { return displayed(m_path); }

std::string MRVMedia::yyyymmddhhmiss() const
{
    std::array<char, 16> text;
    std::snprintf(text.data(), text.size(), "%014lld", static_cast<long long>(m_timeDigits));
    return text.data();
}

int MRVMedia::compareDate(const MRVMedia& other) const
{
    // A time of a name has four digits of the year or is all zeros, so the numbers sort as their texts do.
    if (m_timeDigits != other.m_timeDigits)
        return m_timeDigits < other.m_timeDigits ? -1 : 1;
    return other.m_mediaDivision - m_mediaDivision;
}

} // namespace marvo
