// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/ClipIndexReading.h"

#include "support/FileSource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <span>
#include <string_view>

namespace marvo {

namespace {

// A chunk is an id of four bytes, a 32-bit size (little-endian), the body, and a padding byte when the size
// is odd. A "LIST" or "RIFF" body starts with four bytes that name its kind.
//
//   RIFF "AVI "
//     LIST "hdrl"
//       LIST "strl"   a stream, numbered from 0
//         strh        0 fccType  20 dwScale  24 dwRate  32 dwLength  44 dwSampleSize
//         strf
//     LIST "movi"
//       00dc, 01wb .. a chunk of stream 0, 1 ..
//       LIST "rec "   more of them
//     idx1            16 bytes a chunk: 0 id  4 flags  8 offset from the word "movi"  12 size
//   RIFF "AVIX"       further parts of large films
//     LIST "movi"

constexpr std::uint64_t headBytes = 8;
constexpr std::uint64_t listHeadBytes = 12;
constexpr std::size_t largestHeaderList = 1024 * 1024;
constexpr std::size_t indexRowBytes = 16;
constexpr std::uint32_t keyFlag = 0x10;
constexpr int mostTopLevelChunks = 4096;
/// 24 hours of 60 pictures and as many pieces of sound a second.
constexpr std::size_t mostChunks = 12'000'000;
constexpr std::uint8_t noStream = 0xFF;
/// A picture's kind is told within so many bytes: what stands before it tells of the film.
constexpr std::size_t pictureStartBytes = 96;

using Bytes = std::span<const std::uint8_t>;

std::uint32_t u32(Bytes bytes, std::size_t at)
{
    return bytes[at] | std::uint32_t{bytes[at + 1]} << 8 | std::uint32_t{bytes[at + 2]} << 16 |
           std::uint32_t{bytes[at + 3]} << 24;
}

bool hasId(Bytes bytes, std::size_t at, std::string_view id)
{
    return at + id.size() <= bytes.size() && std::memcmp(bytes.data() + at, id.data(), id.size()) == 0;
}

/// The stream of a chunk's id, such as 1 of "01wb".
std::uint8_t streamOf(Bytes id)
{
    const auto isDigit = [](std::uint8_t c) { return c >= '0' && c <= '9'; };
    return isDigit(id[0]) && isDigit(id[1]) ? static_cast<std::uint8_t>((id[0] - '0') * 10 + id[1] - '0')
                                            : noStream;
}

/// A JPEG picture, or one of H.264 that begins with a sequence's parameters or is an "instantaneous decoding
/// refresh" (ITU-T H.264, table 7-1).
bool isKeyPicture(Bytes start)
{
    if (start.size() > 2 && start[0] == 0xFF && start[1] == 0xD8)
        return true;
    for (std::size_t i = 0; i + 3 < start.size(); ++i) {
        const int unit = start[i + 3] & 0x1F;
        if (start[i] == 0 && start[i + 1] == 0 && start[i + 2] == 1 && (unit == 5 || unit == 7))
            return true;
    }
    return false;
}

class IndexReader
{
public:
    IndexReader(ByteSource& file, std::uint64_t fileBytes) : m_file(file), m_fileBytes(fileBytes) {}
    ClipIndex read();

private:
    struct Part
    {
        std::uint64_t at; ///< of its first chunk
        std::uint64_t end;
    };
    Bytes readAt(std::uint64_t at, std::span<std::uint8_t> into);
    void findParts();
    void readHeader(Bytes list, int depth);
    bool readIndexChunk();
    void goThrough(const Part& part);
    void checkKeys();
    std::size_t pictures() const;

    ByteSource& m_file;
    std::uint64_t m_fileBytes;
    ClipIndex m_index;
    std::uint64_t m_picturesTold = 0; ///< by the header
    std::optional<std::uint8_t> m_video;
    std::vector<Part> m_movie;
    std::optional<Part> m_indexChunk;
};

Bytes IndexReader::readAt(std::uint64_t at, std::span<std::uint8_t> into)
{
    return into.first(m_file.readAt(at, std::as_writable_bytes(into)));
}

void IndexReader::readHeader(Bytes list, int depth)
{
    while (list.size() >= headBytes) {
        const std::size_t size = std::min<std::size_t>(u32(list, 4), list.size() - headBytes);
        const Bytes body = list.subspan(headBytes, size);
        if (hasId(list, 0, "LIST") && hasId(body, 0, "strl") && depth == 0 &&
            m_index.streams.size() < noStream) {
            m_index.streams.emplace_back();
            readHeader(body.subspan(4), depth + 1);
        } else if (hasId(list, 0, "strh") && size >= 48 && depth == 1) {
            ClipStream& stream = m_index.streams.back();
            stream.kind = hasId(body, 0, "vids")   ? ClipStream::Kind::Video
                          : hasId(body, 0, "auds") ? ClipStream::Kind::Sound
                                                   : ClipStream::Kind::Other;
            stream.scale = u32(body, 20);
            stream.rate = u32(body, 24);
            stream.sampleSize = u32(body, 44);
            if (stream.kind == ClipStream::Kind::Video && !m_video) {
                m_video = static_cast<std::uint8_t>(m_index.streams.size() - 1);
                m_picturesTold = u32(body, 32);
            }
        } else if (hasId(list, 0, "strf") && depth == 1) {
            m_index.streams.back().format.assign(body.begin(), body.end());
        }
        list = list.subspan(std::min(list.size(), headBytes + size + (size & 1U)));
    }
}

void IndexReader::findParts()
{
    std::uint64_t at = 0;
    for (int i = 0; i < mostTopLevelChunks && at + headBytes <= m_fileBytes; ++i) {
        std::array<std::uint8_t, listHeadBytes> buffer{};
        const Bytes head = readAt(at, buffer);
        if (head.size() < headBytes || (i == 0 && !(hasId(head, 0, "RIFF") && hasId(head, 8, "AVI "))))
            return;
        const std::uint64_t size = u32(head, 4);
        const std::uint64_t end = std::min(at + headBytes + size, m_fileBytes);
        if (hasId(head, 0, "RIFF")) { // its chunks follow
            at += listHeadBytes;
            continue;
        }
        if (hasId(head, 0, "LIST") && hasId(head, 8, "movi")) {
            if (size < 4) { // never filled in: the power was lost while filming
                m_movie.push_back({at + listHeadBytes, m_fileBytes});
                return;
            }
            m_movie.push_back({at + listHeadBytes, end});
        } else if (hasId(head, 0, "LIST") && hasId(head, 8, "hdrl") && m_index.streams.empty() &&
                   end > at + listHeadBytes) {
            std::vector<std::uint8_t> list(
                std::min<std::uint64_t>(end - at - listHeadBytes, largestHeaderList));
            readHeader(readAt(at + listHeadBytes, list), 0);
        } else if (hasId(head, 0, "idx1") && !m_indexChunk) {
            m_indexChunk = Part{at + headBytes, end};
        }
        at += headBytes + size + (size & 1U);
    }
}

std::size_t IndexReader::pictures() const
{
    return static_cast<std::size_t>(std::ranges::count(m_index.chunks, m_video, &ClipChunk::stream));
}

/// False where the index does not fit the film.
bool IndexReader::readIndexChunk()
{
    if (!m_indexChunk || m_movie.size() != 1)
        return false;
    const std::size_t rows =
        std::min<std::size_t>((m_indexChunk->end - m_indexChunk->at) / indexRowBytes, mostChunks);
    std::vector<std::uint8_t> buffer(rows * indexRowBytes);
    const Bytes bytes = readAt(m_indexChunk->at, buffer);
    if (bytes.size() < buffer.size() || rows == 0)
        return false;
    // Some writers count from the beginning of the file.
    std::uint64_t base = m_movie.front().at - 4;
    std::array<std::uint8_t, 4> id{};
    const Bytes first = bytes.first(4);
    if (!std::ranges::equal(readAt(base + u32(bytes, 8), id), first)) {
        base = 0;
        if (!std::ranges::equal(readAt(base + u32(bytes, 8), id), first))
            return false;
    }
    for (std::size_t row = 0; row < bytes.size(); row += indexRowBytes) {
        const ClipChunk chunk{base + u32(bytes, row + 8) + headBytes, u32(bytes, row + 12),
                              streamOf(bytes.subspan(row)), (u32(bytes, row + 4) & keyFlag) != 0};
        if (chunk.offset + chunk.size > m_fileBytes)
            return false;
        m_index.chunks.push_back(chunk);
    }
    return m_picturesTold == 0 || pictures() == m_picturesTold;
}

void IndexReader::goThrough(const Part& part)
{
    std::uint64_t at = part.at;
    while (at + headBytes <= part.end && m_index.chunks.size() < mostChunks) {
        std::array<std::uint8_t, headBytes + pictureStartBytes> buffer{};
        const Bytes bytes = readAt(at, buffer);
        if (bytes.size() < headBytes)
            return;
        const std::uint64_t size = u32(bytes, 4);
        if (hasId(bytes, 0, "LIST") && hasId(bytes, 8, "rec ")) {
            at += listHeadBytes;
            continue;
        }
        if (at + headBytes + size > m_fileBytes)
            return; // cut off
        const std::uint8_t stream = streamOf(bytes);
        if (stream < m_index.streams.size()) {
            const Bytes start = bytes.subspan(headBytes);
            m_index.chunks.push_back(
                {at + headBytes, static_cast<std::uint32_t>(size), stream,
                 stream != m_video || isKeyPicture(start.first(std::min<std::size_t>(
                                          start.size(), static_cast<std::size_t>(size))))});
        }
        at += headBytes + size + (size & 1U);
    }
}

/// Some cameras mark every picture as a key picture, or none.
void IndexReader::checkKeys()
{
    std::size_t keys = 0;
    std::size_t others = 0;
    for (const ClipChunk& chunk : m_index.chunks) {
        if (chunk.stream == m_video && chunk.size > 0)
            ++(chunk.isKey ? keys : others);
    }
    if ((keys > 0 && others > 0) || keys + others < 2)
        return;
    std::array<std::uint8_t, pictureStartBytes> buffer{};
    const auto isKey = [&](const ClipChunk& chunk) {
        return isKeyPicture(
            readAt(chunk.offset, std::span(buffer).first(std::min<std::size_t>(chunk.size, buffer.size()))));
    };
    std::size_t seen = 0;
    for (ClipChunk& chunk : m_index.chunks) {
        if (chunk.stream != m_video || chunk.size == 0)
            continue;
        const bool isOne = isKey(chunk);
        if (++seen == 2 && keys > 0 && isOne)
            return; // as with motion JPEG
        chunk.isKey = isOne;
    }
}

ClipIndex IndexReader::read()
{
    findParts();
    if (!m_video)
        return {};
    m_index.video = m_video;
    m_index.picturesTold = m_picturesTold;
    if (!readIndexChunk()) {
        m_index.chunks.clear();
        for (const Part& part : m_movie)
            goThrough(part);
        return std::move(m_index);
    }
    checkKeys();
    return std::move(m_index);
}

} // namespace

ClipIndex readClipIndex(ByteSource& file, std::uint64_t fileBytes)
{
    return IndexReader(file, fileBytes).read();
}

ClipIndex readClipIndex(const std::string& path)
{
    FileSource file(path);
    return file.isOpen() ? readClipIndex(file, file.size()) : ClipIndex();
}

} // namespace marvo
