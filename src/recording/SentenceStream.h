// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include "recording/SentenceSplitting.h"
#include "support/ByteSource.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

namespace marvo {

/// Longest sentence that is passed on; real receivers write up to 82 bytes.
inline constexpr std::size_t longestSentence = 64 * 1024;

enum class SentenceFit {
    Whole,
    TooLong, ///< longer than longestSentence; its text is not kept
};

/// Splits a whole source as splitSentences() splits a text, in two blocks of memory whatever the length of
/// the source and its sentences. Sink: void(std::string_view sentence, SentenceFit fit); a sentence that is
/// too long has an empty text.
template <typename Sink>
void splitSource(ByteSource& source, Sink&& sink)
{
    constexpr std::size_t readSize = 256 * 1024;
    constexpr std::size_t capacity = longestSentence + readSize;
    const auto buffer = std::make_unique_for_overwrite<std::byte[]>(capacity);
    const char* const text = reinterpret_cast<const char*>(buffer.get());
    const auto checked = [&sink](std::string_view sentence) {
        if (sentence.size() <= longestSentence)
            sink(sentence, SentenceFit::Whole);
        else
            sink(std::string_view(), SentenceFit::TooLong);
    };

    std::uint64_t offset = 0;
    std::size_t kept = 0;    // bytes at the buffer's start that belong to a sentence without end so far
    bool discarding = false; // that sentence is already too long: only its end matters
    for (;;) {
        const std::size_t count = source.readAt(offset, {buffer.get() + kept, readSize});
        if (count == 0)
            return;
        offset += count;
        std::string_view rest(text, kept + count);
        if (discarding) {
            using namespace std::string_view_literals;
            const std::size_t end = rest.find_first_of("$\n\r\0"sv);
            if (end == std::string_view::npos)
                continue;
            discarding = false;
            if (rest[end] != '$')
                sink(std::string_view(), SentenceFit::TooLong);
            rest.remove_prefix(end);
        }
        rest.remove_prefix(splitSentences(rest, checked));

        const std::size_t dollar = rest.rfind('$');
        rest.remove_prefix(dollar == std::string_view::npos ? rest.size() : dollar);
        if (rest.size() > longestSentence) {
            discarding = rest[1] == 'G';
            rest = rest.substr(0, discarding ? 0 : 2); // of other sentences the name's start keeps them out
        }
        kept = rest.size();
        std::memmove(buffer.get(), rest.data(), kept);
    }
}

} // namespace marvo
