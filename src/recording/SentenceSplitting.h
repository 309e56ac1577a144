// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace marvo {

/// Splits a text into sentences and passes each that starts with "$G" to the sink, in order.
///
/// A byte 0, LF or CR ends a piece. Every "$" restarts the piece, so that noise before a sentence is skipped.
/// Text after the last terminator is not passed on; the offset where it begins is returned. Sink:
/// void(std::string_view sentence), without the terminator.
template <typename Sink>
std::size_t splitSentences(std::string_view text, Sink&& sink)
{
    const char* const end = text.data() + text.size();
    const auto find = [end](const char* from, char c) {
        const void* found =
            from == end ? nullptr : std::memchr(from, c, static_cast<std::size_t>(end - from));
        return found ? static_cast<const char*>(found) : end;
    };

    // The next position of each kind of terminator. It is searched again only after it was passed, so that a
    // text without one of them is scanned once, not once for each piece.
    static constexpr std::array<char, 3> terminators = {'\n', '\r', '\0'};
    std::array<const char*, 3> next;
    const char* piece = text.data();
    for (std::size_t i = 0; i < next.size(); ++i)
        next[i] = find(piece, terminators[i]);

    for (;;) {
        const char* const pieceEnd = std::min({next[0], next[1], next[2]});
        if (pieceEnd == end)
            return static_cast<std::size_t>(piece - text.data());
        std::string_view sentence(piece, static_cast<std::size_t>(pieceEnd - piece));
        if (const std::size_t dollar = sentence.rfind('$'); dollar != std::string_view::npos) {
            sentence.remove_prefix(dollar);
            if (sentence.size() > 1 && sentence[1] == 'G')
                sink(sentence);
        }
        piece = pieceEnd + 1;
        for (std::size_t i = 0; i < next.size(); ++i) {
            if (next[i] == pieceEnd)
                next[i] = find(piece, terminators[i]);
        }
    }
}

} // namespace marvo
