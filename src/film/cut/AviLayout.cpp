// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/cut/AviLayout.h"

#include "support/ByteSource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace marvo {

namespace {

constexpr std::size_t headBytes = 8;
constexpr std::size_t listHeadBytes = 12;
constexpr std::size_t largestHeaderList = 1024 * 1024;
constexpr int mostTopLevelChunks = 4096;
constexpr std::uint32_t hasIndexFlag = 0x10;

using Bytes = std::span<std::byte>;

std::uint32_t u32(std::span<const std::byte> bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value |= std::to_integer<std::uint32_t>(bytes[at + i]) << (8 * i);
    return value;
}

void putU32(Bytes bytes, std::size_t at, std::uint32_t value)
{
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<std::byte>(value >> (8 * i));
}

bool hasId(std::span<const std::byte> bytes, std::string_view id, std::size_t at = 0)
{
    return at + id.size() <= bytes.size() && std::memcmp(bytes.data() + at, id.data(), id.size()) == 0;
}

bool isChunkId(std::span<const std::byte> bytes)
{
    return std::ranges::all_of(bytes.first(4),
                               [](std::byte b) { return b >= std::byte{' '} && b < std::byte{127}; });
}

bool isMovieChunk(std::span<const std::byte> bytes)
{
    const auto isDigit = [](std::byte b) { return b >= std::byte{'0'} && b <= std::byte{'9'}; };
    return isDigit(bytes[0]) && isDigit(bytes[1]);
}

/// Calls visit(id and size, body) for each chunk of a list.
template <typename Visit>
void eachChunk(Bytes list, Visit visit)
{
    while (list.size() >= headBytes) {
        const std::size_t size = std::min<std::size_t>(u32(list, 4), list.size() - headBytes);
        visit(list.first(headBytes), list.subspan(headBytes, size));
        list = list.subspan(std::min(list.size(), headBytes + size + (size & 1U)));
    }
}

} // namespace

AviLayout readAviLayout(ByteSource& file, std::uint64_t fileBytes, const ClipIndex& index)
{
    AviLayout layout;
    const auto headAt = [&](std::uint64_t at, std::array<std::byte, listHeadBytes>& head) {
        head = {};
        return file.readAt(at, head) >= headBytes;
    };
    std::array<std::byte, listHeadBytes> head{};
    std::uint64_t at = 0;
    std::uint64_t headerEnd = 0;
    for (int i = 0; i < mostTopLevelChunks && headAt(at, head); ++i) {
        if (hasId(head, "RIFF")) {
            at += listHeadBytes;
            continue;
        }
        const std::uint64_t size = u32(head, 4);
        if (hasId(head, "LIST") && hasId(head, "hdrl", 8) && headerEnd == 0) {
            const std::uint64_t body = size < 4 ? 0 : std::min<std::uint64_t>(size - 4, largestHeaderList);
            layout.headerList.resize(static_cast<std::size_t>(body));
            layout.headerList.resize(file.readAt(at + listHeadBytes, layout.headerList));
            headerEnd = at + headBytes + size + (size & 1U);
        } else if (hasId(head, "LIST") && hasId(head, "movi", 8)) {
            if (headerEnd != 0)
                layout.beforeMovie = {headerEnd, at - headerEnd};
            break;
        }
        at += headBytes + size + (size & 1U);
    }

    std::uint64_t end = 0;
    for (const ClipChunk& chunk : index.chunks)
        end = std::max(end, chunk.offset + chunk.size + (chunk.size & 1U));
    while (end != 0 && headAt(end, head) && isChunkId(head) && !isMovieChunk(head)) {
        const bool isIndex = hasId(head, "idx1") || hasId(head, "ix", 0);
        if (!isIndex) {
            layout.afterMovie = {end, fileBytes - std::min(end, fileBytes)};
            break;
        }
        end += headBytes + u32(head, 4) + (u32(head, 4) & 1U);
    }
    return layout;
}

void putCounts(Bytes headerList, std::span<const StreamCount> streams, std::size_t video)
{
    std::uint32_t pictureMicroseconds = 0;
    std::uint32_t largest = 0;
    for (const StreamCount& stream : streams)
        largest = std::max(largest, stream.largestChunk);
    std::size_t number = 0;
    Bytes main;
    eachChunk(headerList, [&](Bytes head, Bytes body) {
        if (hasId(head, "avih") && body.size() >= 40)
            main = body;
        if (!hasId(head, "LIST") || !hasId(body, "strl")) {
            if (hasId(body, "odml"))
                std::memcpy(head.data(), "JUNK", 4);
            return;
        }
        const std::size_t stream = number++;
        eachChunk(body.subspan(4), [&](Bytes inner, Bytes header) {
            if (hasId(inner, "indx"))
                std::memcpy(inner.data(), "JUNK", 4);
            if (!hasId(inner, "strh") || header.size() < 48 || stream >= streams.size())
                return;
            putU32(header, 32, streams[stream].length);
            putU32(header, 36, streams[stream].largestChunk);
            if (stream == video && u32(header, 24) > 0)
                pictureMicroseconds = static_cast<std::uint32_t>(std::min<std::uint64_t>(
                    std::uint64_t{u32(header, 20)} * 1'000'000 / u32(header, 24), UINT32_MAX));
        });
    });
    if (main.empty())
        return;
    if (u32(main, 0) == 0)
        putU32(main, 0, pictureMicroseconds);
    putU32(main, 12, u32(main, 12) | hasIndexFlag);
    putU32(main, 16, video < streams.size() ? streams[video].length : 0);
    putU32(main, 28, largest);
}

} // namespace marvo
