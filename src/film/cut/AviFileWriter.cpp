// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/cut/AviFileWriter.h"

#include "support/ByteSource.h"

#include <algorithm>
#include <utility>

namespace marvo {

namespace {

constexpr std::size_t blockBytes = 1024 * 1024;
constexpr std::uint64_t largestFilm = 0xFFFF'FFFFU - 64U * 1024 * 1024; // room for the index
constexpr std::uint32_t keyFlag = 0x10;
constexpr std::uint64_t headerListAt = 12;

std::string u32(std::uint64_t value)
{
    std::string text;
    for (int i = 0; i < 4; ++i)
        text.push_back(static_cast<char>(value >> (8 * i)));
    return text;
}

std::string_view textOf(std::span<const std::byte> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

} // namespace

std::error_code AviFileWriter::keep(const std::error_code& error)
{
    if (!m_error)
        m_error = error;
    return m_error;
}

std::error_code AviFileWriter::put(std::string_view bytes)
{
    if (m_error)
        return m_error;
    if (m_stop.stop_requested())
        return keep(std::make_error_code(std::errc::operation_canceled));
    if (m_size + bytes.size() > largestFilm)
        return keep(std::make_error_code(std::errc::file_too_large));
    m_size += bytes.size();
    return keep(m_file.write(bytes));
}

std::error_code AviFileWriter::begin(const std::string& path, const AviLayout& layout, const ClipIndex& index)
{
    m_headerList = layout.headerList;
    m_headerList.resize(m_headerList.size() / 2 * 2);
    m_streams = index.streams;
    m_video = index.video.value_or(0);
    m_counts.assign(m_streams.size(), {});
    m_soundBytes.assign(m_streams.size(), 0);
    m_error = m_file.open(path, AtomicFile::Existing::Keep);
    put("RIFF" + u32(0) + "AVI LIST" + u32(m_headerList.size() + 4) + "hdrl");
    return put(textOf(m_headerList));
}

std::error_code AviFileWriter::copy(ByteSource& source, const FileRange& range)
{
    m_buffer.resize(blockBytes);
    for (std::uint64_t done = 0; done < range.size && !m_error;) {
        const std::size_t wanted =
            static_cast<std::size_t>(std::min<std::uint64_t>(range.size - done, m_buffer.size()));
        const std::size_t count = source.readAt(range.from + done, std::span(m_buffer).first(wanted));
        if (count < wanted)
            return keep(std::make_error_code(std::errc::io_error));
        put(textOf(std::span(m_buffer).first(count)));
        done += count;
    }
    return m_error;
}

std::error_code AviFileWriter::addChunk(ByteSource& source, const ClipChunk& chunk, const FileRange& part)
{
    if (m_movieAt == 0) {
        put("LIST" + u32(0));
        m_movieAt = m_size;
        put("movi");
    }
    const bool isPicture = chunk.stream == m_video;
    const char id[] = {static_cast<char>('0' + chunk.stream / 10), static_cast<char>('0' + chunk.stream % 10),
                       isPicture ? 'd' : 'w', isPicture ? 'c' : 'b'};
    const std::string_view name(id, sizeof id);
    m_index.append(name)
        .append(u32(chunk.isKey ? keyFlag : 0))
        .append(u32(m_size - m_movieAt))
        .append(u32(part.size));
    put(std::string(name) + u32(part.size));
    copy(source, part);
    if (part.size % 2 != 0)
        put(std::string_view("\0", 1));

    StreamCount& count = m_counts[chunk.stream];
    count.largestChunk = std::max(count.largestChunk, static_cast<std::uint32_t>(part.size));
    m_soundBytes[chunk.stream] += part.size;
    const std::uint32_t unit = isPicture ? 0 : m_streams[chunk.stream].sampleSize;
    count.length =
        unit == 0 ? count.length + 1 : static_cast<std::uint32_t>(m_soundBytes[chunk.stream] / unit);
    return m_error;
}

std::uint32_t AviFileWriter::pictures() const
{
    return m_video < m_counts.size() ? m_counts[m_video].length : 0;
}

std::error_code AviFileWriter::endMovie()
{
    if (m_movieAt == 0)
        return keep(std::make_error_code(std::errc::invalid_argument));
    const std::uint64_t movieEnd = m_size;
    put("idx1" + u32(m_index.size()));
    put(m_index);
    putCounts(m_headerList, m_counts, m_video);
    if (!m_error)
        keep(m_file.overwrite(static_cast<std::int64_t>(m_movieAt) - 4, u32(movieEnd - m_movieAt)));
    return m_error;
}

std::error_code AviFileWriter::commit()
{
    if (!m_error)
        keep(m_file.overwrite(4, u32(m_size - 8)));
    if (!m_error)
        keep(m_file.overwrite(headerListAt + 12, textOf(m_headerList)));
    if (!m_error)
        keep(m_file.commit());
    return m_error;
}

} // namespace marvo
