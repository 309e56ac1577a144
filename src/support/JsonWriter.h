// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <charconv>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace marvo {

/// Writes one JSON document (RFC 8259) step by step, so that long lists need no tree in memory.
///
/// Numbers are written in the shortest form that reads back to the same value; a number that JSON cannot hold
/// (infinite, not a number) becomes null. Text that is not valid UTF-8 gets U+FFFD in place of each bad byte.
/// The caller is responsible for the nesting: every begin needs its end, and inside an object every value
/// follows a key.
class JsonWriter
{
public:
    void beginObject();
    void endObject();
    void beginArray();
    void endArray();
    void key(std::string_view name);

    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(double number);
    void value(std::same_as<bool> auto flag) { token(flag ? "true" : "false"); }
    void value(std::integral auto number) requires(!std::same_as<decltype(number), bool>)
    {
        char digits[24];
        const auto end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        token(std::string_view(digits, static_cast<std::size_t>(end - digits)));
    }
    void null() { token("null"); }
    /// A value that already is JSON text.
    void rendered(std::string_view json) { token(json); }

    /// A key and its value in one call.
    template <typename Value>
    void member(std::string_view name, const Value& v)
    {
        key(name);
        value(v);
    }

    /// The text written so far. take() returns and empties it without ending the document, so that a long
    /// document can be written in pieces.
    const std::string& text() const { return m_text; }
    std::string take();
    /// Empties the text as take() does, but keeps its memory.
    void drop() { m_text.clear(); }

private:
    void separate();
    void token(std::string_view text);
    void quoted(std::string_view text);

    std::string m_text;
    std::vector<bool> m_hasElements; ///< one entry an open object or array
    bool m_afterKey = false;
};

} // namespace marvo
