// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/VirtualFilm.h"

#include "film/Matroska.h"
#include "film/StreamFormat.h"

#include <algorithm>
#include <cstring>

namespace marvo {

std::size_t VirtualFilm::entryEnd(std::size_t cluster) const
{
    return cluster + 1 < m_clusters.size() ? m_clusters[cluster + 1].firstEntry : m_entries.size();
}

std::uint64_t VirtualFilm::clusterEnd(std::size_t cluster) const
{
    return cluster + 1 < m_clusters.size() ? m_clusters[cluster + 1].position : m_sizeBytes;
}

/// Of `made`, which stands at madeAt in the film, what stands at the offset and behind it.
std::size_t VirtualFilm::copyMade(std::uint64_t offset, std::span<const std::uint8_t> made,
                                  std::uint64_t madeAt, std::span<std::byte> into) const
{
    const std::size_t from = static_cast<std::size_t>(offset - madeAt);
    const std::size_t count = std::min(into.size(), made.size() - from);
    if (count > 0)
        std::memcpy(into.data(), made.data() + from, count);
    return count;
}

VirtualFilm::Piece VirtualFilm::pieceAt(std::uint64_t offset, std::span<std::byte> into) const
{
    if (offset < m_headBytes || offset >= m_sizeBytes)
        return {};
    const auto next = std::ranges::upper_bound(m_clusters, offset, {}, &Cluster::position);
    const std::size_t number = static_cast<std::size_t>(next - m_clusters.begin()) - 1;
    const Cluster& cluster = m_clusters[number];
    if (offset < cluster.position + clusterHeadBytes) {
        MatroskaWriter head;
        head.identifier(matroska::ClusterId);
        head.wideSize(clusterEnd(number) - cluster.position - 12);
        head.number(matroska::Timecode, static_cast<std::uint64_t>(cluster.startMs));
        return {copyMade(offset, head.bytes(), cluster.position, into), {}, 0};
    }
    std::uint64_t position = cluster.position + clusterHeadBytes;
    for (std::size_t i = cluster.firstEntry; i < entryEnd(number); ++i) {
        const Entry& entry = m_entries[i];
        const std::uint64_t body = position + blockHeadBytes;
        if (offset < body) {
            MatroskaWriter head;
            head.identifier(matroska::SimpleBlock);
            head.shortSize(entry.size + 4);
            head.bigEndian(0x80U | (entry.isPicture() ? videoTrackNumber : soundTrackNumber), 1);
            head.bigEndian(static_cast<std::uint64_t>(entry.sinceClusterMs), 2);
            head.bigEndian(entry.isKey() || !entry.isPicture() ? 0x80U : 0, 1);
            return {copyMade(offset, head.bytes(), position, into), {}, 0};
        }
        if (offset < body + entry.size) {
            const std::uint64_t inside = offset - body;
            const std::size_t count = std::min(into.size(), static_cast<std::size_t>(entry.size - inside));
            if (entry.isSilence()) {
                std::ranges::fill(into.first(count),
                                  WaveFormat(m_soundFormat).bits == 8 ? std::byte{0x80} : std::byte{0});
                return {count, {}, 0};
            }
            return {count, cluster.clip, (entry.offset & offsetBits) + inside};
        }
        position = body + entry.size;
    }
    return {};
}

// Times

std::size_t VirtualFilm::clipAt(std::int64_t filmMs) const
{
    const auto next = std::ranges::upper_bound(m_clips, filmMs, {}, &Clip::startMs);
    return next == m_clips.begin() ? 0 : static_cast<std::size_t>(next - m_clips.begin()) - 1;
}

std::optional<VirtualFilm::Picture> VirtualFilm::find(std::int64_t filmMs) const
{
    const auto shown = std::span(m_clusters).first(m_shownClusters);
    const auto next = std::ranges::upper_bound(shown, filmMs, {}, &Cluster::startMs);
    for (std::size_t number = static_cast<std::size_t>(next - shown.begin()); number-- > 0;) {
        const Cluster& cluster = m_clusters[number];
        for (std::size_t i = entryEnd(number); i-- > cluster.firstEntry;) {
            const std::int64_t startMs = cluster.startMs + m_entries[i].sinceClusterMs;
            if (m_entries[i].isPicture() && startMs <= filmMs)
                return Picture{number, i, startMs};
        }
    }
    return {};
}

std::int64_t VirtualFilm::pictureAt(std::int64_t filmMs) const
{
    if (const auto shown = find(filmMs))
        return shown->startMs;
    return pictureAfter(filmMs).value_or(0);
}

std::optional<std::int64_t> VirtualFilm::pictureBefore(std::int64_t filmMs) const
{
    const auto shown = find(filmMs);
    const auto before = shown ? find(shown->startMs - 1) : shown;
    return before ? std::optional(before->startMs) : std::nullopt;
}

std::optional<std::int64_t> VirtualFilm::pictureAfter(std::int64_t filmMs) const
{
    const auto shown = find(filmMs);
    std::size_t entry = shown ? shown->entry + 1 : 0;
    for (std::size_t number = shown ? shown->cluster : 0; number < m_shownClusters; ++number) {
        for (; entry < entryEnd(number); ++entry) {
            const std::int64_t startMs = m_clusters[number].startMs + m_entries[entry].sinceClusterMs;
            if (m_entries[entry].isPicture() && startMs > filmMs)
                return startMs;
        }
    }
    return {};
}

std::size_t VirtualFilm::tableBytes() const
{
    return m_clusters.capacity() * sizeof(Cluster) + m_entries.capacity() * sizeof(Entry);
}

} // namespace marvo
