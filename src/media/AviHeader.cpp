// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "media/AviHeader.h"

#include "support/FileSource.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <span>
#include <string_view>
#include <vector>

namespace marvo {

namespace {

// A chunk is an id of four bytes, a 32-bit size (little-endian), the body, and a padding byte when the size
// is odd. A "LIST" body starts with four bytes that name its kind.
//
//   RIFF size "AVI "
//     LIST size "hdrl"
//       avih  0 dwMicroSecPerFrame  16 dwTotalFrames
//       LIST size "strl"
//         strh  0 fccType  20 dwScale  24 dwRate  32 dwLength
//         strf  (video) 4 biWidth  8 biHeight  16 biCompression
//         indx
//       LIST size "odml"
//         dmlh  0 dwTotalFrames, of the whole file where it has several RIFF parts
//     LIST size "movi"
//     idx1

constexpr std::size_t chunkHeaderSize = 8;
constexpr std::size_t largestHeaderList = 1024 * 1024;
constexpr int mostTopLevelChunks = 4096;
constexpr std::int64_t longestDurationMs = 7LL * 24 * 3600 * 1000;
constexpr std::int64_t lengthToleranceMs = 1500;

using Bytes = std::span<const std::uint8_t>;

std::uint32_t u32(Bytes bytes, std::size_t offset)
{
    if (offset > bytes.size() || bytes.size() - offset < 4)
        return 0;
    return bytes[offset] | std::uint32_t{bytes[offset + 1]} << 8 | std::uint32_t{bytes[offset + 2]} << 16 |
           std::uint32_t{bytes[offset + 3]} << 24;
}

bool hasId(Bytes bytes, std::size_t offset, std::string_view id)
{
    return offset <= bytes.size() && bytes.size() - offset >= id.size() &&
           std::memcmp(bytes.data() + offset, id.data(), id.size()) == 0;
}

/// Calls visit(whole chunk with its 8-byte header, body) for each complete chunk in a list's body.
template <typename Visit>
void forEachChunk(Bytes list, Visit visit)
{
    while (list.size() >= chunkHeaderSize) {
        const std::uint32_t size = u32(list, 4);
        const std::size_t bodySize = std::min<std::size_t>(size, list.size() - chunkHeaderSize);
        visit(list.first(chunkHeaderSize + bodySize), list.subspan(chunkHeaderSize, bodySize));
        const std::size_t padded = chunkHeaderSize + bodySize + (bodySize & 1U);
        list = list.subspan(std::min(padded, list.size()));
    }
}

std::int64_t clampedMs(std::uint64_t milliseconds)
{
    return milliseconds <= longestDurationMs ? static_cast<std::int64_t>(milliseconds) : 0;
}

struct StreamList
{
    bool isVideo = false;
    bool isAudio = false;
    bool hasIndex = false;
    std::uint32_t scale = 0;
    std::uint32_t rate = 0;
    std::uint32_t length = 0;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::array<char, 4> codec{};
};

StreamList parseStreamList(Bytes body)
{
    StreamList stream;
    forEachChunk(body, [&](Bytes chunk, Bytes content) {
        if (hasId(chunk, 0, "strh")) {
            stream.isVideo = hasId(content, 0, "vids");
            stream.isAudio = hasId(content, 0, "auds");
            stream.scale = u32(content, 20);
            stream.rate = u32(content, 24);
            stream.length = u32(content, 32);
        } else if (hasId(chunk, 0, "strf") && content.size() >= 20) {
            stream.width = u32(content, 4);
            stream.height = u32(content, 8);
            if (stream.height > 0x7FFF'FFFFU) // a picture stored from the top has a negative height
                stream.height = 0U - stream.height;
            std::memcpy(stream.codec.data(), content.data() + 16, stream.codec.size());
        } else if (hasId(chunk, 0, "indx")) {
            stream.hasIndex = true;
        }
    });
    return stream;
}

/// False when the list names no video stream.
bool parseHeaderList(Bytes body, AviHeader& header)
{
    bool videoSeen = false;
    forEachChunk(body, [&](Bytes chunk, Bytes content) {
        if (hasId(chunk, 0, "avih")) {
            header.microSecPerFrame = u32(content, 0);
            header.totalFrames = std::max<std::uint64_t>(header.totalFrames, u32(content, 16));
        } else if (hasId(chunk, 0, "LIST") && hasId(content, 0, "strl")) {
            const StreamList stream = parseStreamList(content.subspan(4));
            header.audioStreams += stream.isAudio ? 1 : 0;
            if (!stream.isVideo || videoSeen)
                return;
            videoSeen = true;
            header.videoCodec = stream.codec;
            header.width = stream.width;
            header.height = stream.height;
            header.hasIndex = stream.hasIndex;
            if (stream.rate > 0 && stream.scale > 0) {
                const std::uint64_t units = std::uint64_t{stream.length} * stream.scale; // below 2^64
                const std::uint64_t wholeSeconds = units / stream.rate;
                if (wholeSeconds <= longestDurationMs / 1000)
                    header.streamDurationMs =
                        clampedMs(wholeSeconds * 1000 + units % stream.rate * 1000 / stream.rate);
            }
        } else if (hasId(chunk, 0, "LIST") && hasId(content, 0, "odml")) {
            forEachChunk(content.subspan(4), [&](Bytes inner, Bytes innerContent) {
                if (hasId(inner, 0, "dmlh"))
                    header.totalFrames = std::max<std::uint64_t>(header.totalFrames, u32(innerContent, 0));
            });
        }
    });
    header.durationMs = clampedMs((header.totalFrames * header.microSecPerFrame + 500) / 1000);
    return videoSeen;
}

AviFault openingFault(int errorNumber)
{
    switch (errorNumber) {
    case EACCES:
    case EPERM:
        return AviFault::NoAccess;
    case FileSource::notRegular:
    case EISDIR:
    case ENXIO: // a socket
        return AviFault::NotAFile;
    case ENOENT:
    case ENOTDIR:
        return AviFault::Missing;
    default:
        return AviFault::CannotRead;
    }
}

std::size_t readAt(FileSource& file, std::uint64_t offset, std::span<std::uint8_t> into)
{
    return file.readAt(offset, std::as_writable_bytes(into));
}

} // namespace

std::int64_t AviHeader::durationMsBeside(std::int64_t foundLengthMs) const
{
    if (foundLengthMs <= 0)
        return durationMs > 0 ? durationMs : streamDurationMs;
    for (const std::int64_t candidate : {durationMs, streamDurationMs}) {
        if (candidate > foundLengthMs - lengthToleranceMs && candidate < foundLengthMs + lengthToleranceMs &&
            candidate > 0)
            return candidate;
    }
    return foundLengthMs;
}

std::variant<AviHeader, AviFault> readAviHeader(const std::string& path)
{
    FileSource file(path);
    return readAviHeader(file);
}

std::variant<AviHeader, AviFault> readAviHeader(FileSource& file)
{
    if (!file.isOpen())
        return openingFault(file.errorNumber());
    // A failing medium is no fault of the recording.
    const auto whereReadable = [&file](AviFault fault) {
        return file.errorNumber() == 0 ? fault : AviFault::CannotRead;
    };
    AviHeader header;
    header.fileSizeBytes = file.size();
    if (header.fileSizeBytes == 0)
        return AviFault::Empty;

    std::array<std::uint8_t, 12> start{};
    if (readAt(file, 0, start) != start.size() || !hasId(start, 0, "RIFF") || !hasId(start, 8, "AVI "))
        return whereReadable(AviFault::NotAvi);
    const std::uint64_t riffEnd =
        std::min<std::uint64_t>(header.fileSizeBytes, chunkHeaderSize + std::uint64_t{u32(start, 4)});

    bool headerSeen = false;
    bool movieSeen = false;
    std::uint64_t offset = start.size();
    for (int i = 0; i < mostTopLevelChunks && offset + chunkHeaderSize <= header.fileSizeBytes; ++i) {
        std::array<std::uint8_t, 12> chunk{};
        if (readAt(file, offset, chunk) < chunkHeaderSize)
            break;
        const std::uint64_t size = u32(chunk, 4);
        const bool isList = hasId(chunk, 0, "LIST") && size >= 4;
        if (isList && hasId(chunk, 8, "hdrl") && !headerSeen) {
            std::vector<std::uint8_t> body(static_cast<std::size_t>(std::min<std::uint64_t>(
                {size - 4, header.fileSizeBytes - std::min(header.fileSizeBytes, offset + 12),
                 largestHeaderList})));
            body.resize(readAt(file, offset + 12, body));
            if (!parseHeaderList(body, header))
                return whereReadable(AviFault::NoVideo);
            headerSeen = true;
        } else if (isList && hasId(chunk, 8, "movi")) {
            movieSeen = true;
        } else if (movieSeen && hasId(chunk, 0, "idx1")) {
            // An index outside the RIFF part, or cut off, is not found by a player.
            header.hasIndex = header.hasIndex || offset + chunkHeaderSize + size <= riffEnd;
            break;
        }
        offset += chunkHeaderSize + size + (size & 1U);
    }
    if (!headerSeen)
        return whereReadable(AviFault::NoVideo);
    return header;
}

} // namespace marvo
