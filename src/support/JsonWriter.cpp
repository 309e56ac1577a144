// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "support/JsonWriter.h"

#include "support/Utf8.h"

#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace marvo {

namespace {

/// By byte: what cannot be copied as it stands. Most text is plain and copied in one go.
constexpr auto needsCare = [] {
    std::array<bool, 256> bytes{};
    for (std::size_t byte = 0; byte < bytes.size(); ++byte)
        bytes[byte] = byte < ' ' || byte == '"' || byte == '\\' || byte >= 0x80;
    return bytes;
}();

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
    m_text += '"';
    while (!text.empty()) {
        std::size_t plain = 0;
        while (plain < text.size() && !needsCare[static_cast<unsigned char>(text[plain])])
            ++plain;
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
