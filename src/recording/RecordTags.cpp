// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "recording/RecordTags.h"

#include <algorithm>

// Twice as wide vectors where the machine has them. The sanitizers do not support a choice at load time, and
// Clang 14 has none.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_ADDRESS__) &&     \
    !defined(__SANITIZE_THREAD__)
#define MARVO_WIDEST_VECTORS __attribute__((target_clones("avx2", "default")))
#else
#define MARVO_WIDEST_VECTORS
#endif

namespace marvo {

namespace {

constexpr std::size_t group = 64;

/// The common beginning of both tags: one comparison for each word instead of two.
constexpr Tag beginningMask = std::bit_cast<Tag>(std::array<std::uint8_t, 4>{0xFF, 0xFF, 0, 0});
static_assert((gpsTag & beginningMask) == (gSensorTag & beginningMask));

/// Number of leading groups in which no word begins as a tag does. No branch inside a group, so that
/// compilers make vector instructions of it: a card may hold gigabytes between records.
MARVO_WIDEST_VECTORS std::size_t groupsWithoutBeginning(const std::byte* words, std::size_t groups)
{
    for (std::size_t i = 0; i < groups; ++i) {
        Tag found = 0;
        for (std::size_t k = 0; k < group; ++k)
            found |= static_cast<Tag>((tagAt(words + (i * group + k) * tagSize) & beginningMask) ==
                                      (gpsTag & beginningMask));
        if (found)
            return i;
    }
    return groups;
}

} // namespace

std::size_t wordsWithoutTag(std::span<const std::byte> bytes)
{
    const std::size_t count = bytes.size() / tagSize;
    std::size_t i = 0;
    while (i < count) {
        i += group * groupsWithoutBeginning(bytes.data() + i * tagSize, (count - i) / group);
        // The group where the search stopped, or the words of an incomplete group.
        for (const std::size_t end = std::min(i + group, count); i < end; ++i) {
            const Tag tag = tagAt(bytes.data() + i * tagSize);
            if (tag == gpsTag || tag == gSensorTag)
                return i;
        }
    }
    return count;
}

} // namespace marvo
