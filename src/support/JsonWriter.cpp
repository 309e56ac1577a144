// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/JsonWriter.h"

#include "support/Utf8.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <utility>

namespace marvo {

namespace {

/// What cannot be copied as it stands.
bool needsCare(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte < ' ' || byte == '"' || byte == '\\' || byte >= 0x80;
}

/// Number of leading bytes that can be copied as they stand. Most text is nothing else, so it is looked at
/// eight bytes at a time; below, a byte's highest bit is set where the byte is zero, or less than the one
/// compared with.
std::size_t plainLength(std::string_view text)
{
    constexpr std::uint64_t ones = 0x0101010101010101;
    constexpr std::uint64_t highBits = ones * 0x80;
    const auto hasByte = [](std::uint64_t word, unsigned char byte) {
        const std::uint64_t zeroWhereEqual = word ^ (ones * byte);
        return (zeroWhereEqual - ones) & ~zeroWhereEqual;
    };
    std::size_t i = 0;
    for (std::uint64_t word; i + sizeof word <= text.size(); i += sizeof word) {
        std::memcpy(&word, text.data() + i, sizeof word);
        const std::uint64_t control = (word - ones * ' ') & ~word;
        if ((word | control | hasByte(word, '"') | hasByte(word, '\\')) & highBits)
            break;
    }
    while (i < text.size() && !needsCare(text[i]))
        ++i;
    return i;
}

} // namespace

void JsonWriter::beginObject()
{
    token("{");
    m_hasElements.push_back(false);
}

void JsonWriter::endObject()
{
    m_hasElements.pop_back();
    m_text += '}';
}

void JsonWriter::beginArray()
{
    token("[");
    m_hasElements.push_back(false);
}

void JsonWriter::endArray()
{
    m_hasElements.pop_back();
    m_text += ']';
}

void JsonWriter::key(std::string_view name)
{
    separate();
    quoted(name);
    m_text += ':';
    m_afterKey = true;
}

void JsonWriter::value(std::string_view text)
{
    separate();
    quoted(text);
}

void JsonWriter::value(double number)
{
    if (!std::isfinite(number))
        return null();
    std::array<char, 32> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    token(std::string_view(digits.data(), static_cast<std::size_t>(end - digits.data())));
}

std::string JsonWriter::take() { return std::exchange(m_text, {}); }

void JsonWriter::separate()
{
    if (std::exchange(m_afterKey, false) || m_hasElements.empty())
        return;
    if (m_hasElements.back())
        m_text += ',';
    m_hasElements.back() = true;
}

void JsonWriter::token(std::string_view text)
{
    separate();
    m_text += text;
}

void JsonWriter::quoted(std::string_view text)
{
    static constexpr char hex[] = "0123456789abcdef";
    if (plainLength(text) == text.size()) {
        const std::size_t start = m_text.size();
        m_text.resize(start + text.size() + 2, '"');
        std::memcpy(m_text.data() + start + 1, text.data(), text.size());
        return;
    }
    m_text += '"';
    while (!text.empty()) {
        const std::size_t plain = plainLength(text);
        m_text += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty())
            break;
        const std::size_t length = utf8CharacterLength(text);
        const auto first = static_cast<unsigned char>(text.front());
        if (length == 0) {
            m_text += "\xEF\xBF\xBD";
        } else if (first == '"' || first == '\\') {
            m_text += '\\';
            m_text += text.front();
        } else if (first < 0x20) {
            m_text += "\\u00";
            m_text += hex[first >> 4];
            m_text += hex[first & 15];
        } else {
            m_text += text.substr(0, length);
        }
        text.remove_prefix(length == 0 ? 1 : length);
    }
    m_text += '"';
}

} // namespace marvo
