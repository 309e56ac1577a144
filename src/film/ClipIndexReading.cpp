// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/ClipIndexReading.h"

#include "support/FileSource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string_view>

namespace marvo {

namespace {

std::uint32_t u32(const std::uint8_t* p)
{
    return p[0] | std::uint32_t{p[1]} << 8 | std::uint32_t{p[2]} << 16 | std::uint32_t{p[3]} << 24;
}

bool is(const std::uint8_t* p, std::string_view id) { return std::memcmp(p, id.data(), id.size()) == 0; }

std::size_t readBytes(FileSource& file, std::uint64_t at, std::span<std::uint8_t> into)
{
    return file.readAt(at, std::as_writable_bytes(into));
}

void readStreams(std::span<const std::uint8_t> body, ClipIndex& index)
{
    while (body.size() >= 8) {
        const std::size_t size = std::min<std::size_t>(u32(body.data() + 4), body.size() - 8);
        const auto content = body.subspan(8, size);
        if (is(body.data(), "LIST") && size >= 4 && is(content.data(), "strl")) {
            index.streams.emplace_back();
            readStreams(content.subspan(4), index);
        } else if (is(body.data(), "strh") && size >= 48 && !index.streams.empty()) {
            ClipStream& stream = index.streams.back();
            stream.kind = is(content.data(), "vids")   ? ClipStream::Kind::Video
                          : is(content.data(), "auds") ? ClipStream::Kind::Sound
                                                       : ClipStream::Kind::Other;
            stream.scale = u32(content.data() + 20);
            stream.rate = u32(content.data() + 24);
            stream.sampleSize = u32(content.data() + 44);
        } else if (is(body.data(), "strf") && !index.streams.empty()) {
            index.streams.back().format.assign(content.begin(), content.end());
        }
        body = body.subspan(std::min(body.size(), 8 + size + (size & 1U)));
    }
}

bool isPictureKey(FileSource& file, std::uint64_t at, std::uint32_t size)
{
    std::array<std::uint8_t, 64> start{};
    const std::size_t count = readBytes(file, at, std::span(start).first(std::min<std::size_t>(64, size)));
    if (count > 2 && start[0] == 0xFF && start[1] == 0xD8)
        return true;
    for (std::size_t i = 0; i + 3 < count; ++i) {
        if (start[i] == 0 && start[i + 1] == 0 && start[i + 2] == 1 &&
            ((start[i + 3] & 31) == 5 || (start[i + 3] & 31) == 7))
            return true;
    }
    return false;
}

} // namespace

ClipIndex readClipIndex(const std::string& path)
{
    ClipIndex index;
    FileSource file(path);
    std::uint64_t at = 12;
    std::uint64_t moviAt = 0;
    std::uint64_t moviEnd = 0;
    std::array<std::uint8_t, 12> head{};
    if (readBytes(file, 0, head) != 12 || !is(head.data(), "RIFF") || !is(head.data() + 8, "AVI "))
        return {};
    while (readBytes(file, at, head) >= 8) {
        const std::uint64_t size = u32(head.data() + 4);
        if (is(head.data(), "LIST") && is(head.data() + 8, "hdrl")) {
            std::vector<std::uint8_t> body(std::min<std::uint64_t>(size, 1 << 20));
            body.resize(readBytes(file, at + 12, body));
            readStreams(body, index);
        } else if (is(head.data(), "LIST") && is(head.data() + 8, "movi")) {
            moviAt = at + 8;
            moviEnd = std::min<std::uint64_t>(at + 8 + size, file.size());
        } else if (is(head.data(), "idx1")) {
            std::vector<std::uint8_t> rows(std::min<std::uint64_t>(size, file.size() - at - 8));
            rows.resize(readBytes(file, at + 8, rows) / 16 * 16);
            for (std::size_t i = 0; i < rows.size(); i += 16) {
                const std::uint8_t* row = rows.data() + i;
                index.chunks.push_back({moviAt + u32(row + 8) + 8, u32(row + 12),
                                        static_cast<std::uint8_t>((row[0] - '0') * 10 + row[1] - '0'),
                                        (row[4] & 0x10) != 0});
            }
        }
        at += 8 + size + (size & 1U);
    }
    if (!index.chunks.empty() || moviAt == 0)
        return index;
    for (at = moviAt + 4; at + 8 <= moviEnd;) {
        if (readBytes(file, at, head) < 8)
            break;
        const std::uint32_t size = u32(head.data() + 4);
        if (head[0] >= '0' && head[0] <= '9' && at + 8 + size <= file.size()) {
            const auto stream = static_cast<std::uint8_t>((head[0] - '0') * 10 + head[1] - '0');
            index.chunks.push_back({at + 8, size, stream, isPictureKey(file, at + 8, size)});
        }
        at += 8 + std::uint64_t{size} + (size & 1U);
    }
    return index;
}

} // namespace marvo
