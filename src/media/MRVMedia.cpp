// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/MRVMedia.h"

#include "support/Utf8.h"

#include <utility>

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

} // namespace

int mediaDirection(std::string_view path)
{
    if (endsWithIgnoringCase(path, "_r.avi"))
        return RearMedia;
    return endsWithIgnoringCase(path, "_f.avi") ? FrontMedia : UnknownMedia;
}

bool isFrontMedia(std::string_view path) { return mediaDirection(path) == FrontMedia; }

bool isRearMedia(std::string_view path) { return mediaDirection(path) == RearMedia; }

MRVMedia::MRVMedia(std::string_view path) { parsePath(absoluteFilePath(path)); }

MRVMedia MRVMedia::ofAbsolutePath(std::string path)
{
    MRVMedia media;
    media.parsePath(std::move(path));
    return media;
}

void MRVMedia::parsePath(std::string path)
{
    m_path = std::move(path);
    m_nameStart = m_path.rfind('/') + 1; // 0 when there is none
    m_nameLength = splitFileName(std::string_view(m_path).substr(m_nameStart)).base.size();

    if (!hasMediaNameLength(mediaName()))
        return;
    const std::optional<int> kind = kindOfMediaName(mediaName());
    if (!kind)
        return;
    m_mediaDivision = *kind;
    m_timeDigits = digitsOf(readMediaTime(mediaName(), timeStart(*kind)).value_or(MediaTime{}));
}

std::string_view MRVMedia::mediaName() const
{
    return std::string_view(m_path).substr(m_nameStart, m_nameLength);
}

std::string_view MRVMedia::extension() const
{
    return splitFileName(std::string_view(m_path).substr(m_nameStart)).extension;
}

std::string_view MRVMedia::dir() const
{
    return std::string_view(m_path).substr(0, m_nameStart > 1 ? m_nameStart - 1 : m_nameStart);
}

std::string MRVMedia::fileName() const
{
    const std::string_view name = mediaName();
    const std::string_view end = extension();
    std::string text;
    text.reserve(name.size() + 1 + end.size());
    return text.append(name).append(1, '.').append(end);
}

std::string MRVMedia::mediaGroupName() const
{
    const std::string_view name = mediaName();
    std::size_t last = 0;
    std::size_t beforeLast = 0;
    for (std::size_t at = 0; at < name.size();) {
        beforeLast = last;
        last = at;
        const std::size_t length = utf8CharacterLength(name.substr(at));
        at += length == 0 ? 1 : length;
    }
    return std::string(name.substr(0, beforeLast));
}

std::string MRVMedia::yyyymmddhhmiss() const
{
    std::string text(14, '0');
    std::int64_t digits = m_timeDigits;
    for (std::size_t place = text.size(); digits > 0; digits /= 10)
        text[--place] = static_cast<char>('0' + digits % 10);
    return text;
}

int MRVMedia::compareDate(const MRVMedia& other) const
{
    // A time of a name has four digits of the year or is all zeros, so the numbers sort as their texts do.
    const auto order = dateOrder() <=> other.dateOrder();
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

} // namespace marvo
