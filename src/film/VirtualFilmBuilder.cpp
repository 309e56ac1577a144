// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/VirtualFilmBuilder.h"

#include "film/StreamFormat.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace marvo {

namespace {

/// A block's size has 28 bits, all of them set being kept for "unknown".
constexpr std::uint32_t largestChunk = (1U << 28) - 16;
/// A block tells its time by 16 bits.
constexpr std::int64_t longestClusterMs = 30'000;
/// Where every picture is a key picture: how far apart places to enter are. A seek decodes from one of them.
constexpr std::int64_t shortestClusterMs = 250;
/// After the end the last picture comes again, late enough to be never seen.
constexpr std::int64_t firstRepeatMs = 200;
constexpr std::int64_t repeatEveryMs = 100;
constexpr std::int64_t lastRepeatMs = 28'800; // of which the fastest player needs all
constexpr std::int64_t silenceMs = 200;
constexpr std::int64_t shortestSilenceMs = 100;
constexpr std::size_t largestFormat = 64 * 1024;
constexpr std::size_t bitmapHeaderBytes = 40;
constexpr std::size_t waveHeaderBytes = 18;
constexpr std::uint16_t wavePcm = 1;
constexpr std::int64_t longestClipMs = 24LL * 3600 * 1000;

const ClipStream* streamOf(const ClipIndex& index, ClipStream::Kind kind)
{
    const auto found = std::ranges::find(index.streams, kind, &ClipStream::kind);
    return found != index.streams.end() ? &*found : nullptr;
}

/// Cut to whole milliseconds, and to the longest clip.
std::int64_t unitsToMs(std::uint64_t units, std::uint32_t scale, std::uint32_t rate)
{
    const std::uint64_t parts = std::min(units, std::uint64_t{1} << 40) * scale; // scales are below 2^20
    if (parts / rate >= longestClipMs / 1000)
        return longestClipMs;
    return static_cast<std::int64_t>(parts / rate * 1000 + parts % rate * 1000 / rate);
}

/// A rate as small numbers, which no product runs over; false where it is no rate of pictures.
bool pictureRate(const ClipStream& stream, std::uint32_t& scale, std::uint32_t& rate)
{
    const std::uint32_t common = std::max<std::uint32_t>(std::gcd(stream.scale, stream.rate), 1);
    scale = stream.scale / common;
    rate = stream.rate / common;
    while (scale > 0xF'FFFFU || rate > 0xF'FFFFU) {
        scale >>= 1U;
        rate >>= 1U;
    }
    return scale > 0 && rate > 0 && rate >= scale / 2 && rate / 1000 < scale;
}

bool isStored(const ClipChunk& chunk)
{
    return chunk.size > 0 && chunk.size <= largestChunk && chunk.offset < std::uint64_t{1} << 60;
}

std::vector<std::uint8_t> paddedFormat(const std::vector<std::uint8_t>& format, std::size_t atLeast)
{
    std::vector<std::uint8_t> padded(format.begin(), format.begin() + std::min(format.size(), largestFormat));
    padded.resize(std::max(padded.size(), atLeast));
    return padded;
}

/// WAVEFORMATEX tells how much follows it; no more than does.
std::vector<std::uint8_t> soundFormatOf(const ClipIndex& index)
{
    const ClipStream* sound = streamOf(index, ClipStream::Kind::Sound);
    if (sound == nullptr || sound->format.size() < waveHeaderBytes - 2 || sound->rate == 0)
        return {};
    std::vector<std::uint8_t> format = paddedFormat(sound->format, waveHeaderBytes);
    const std::size_t told = format[16] | std::size_t{format[17]} << 8;
    const std::size_t follows = std::min<std::size_t>(told, format.size() - waveHeaderBytes);
    format[16] = static_cast<std::uint8_t>(follows);
    format[17] = static_cast<std::uint8_t>(follows >> 8);
    format.resize(waveHeaderBytes + follows);
    return format;
}

bool haveSamePictures(const std::vector<std::uint8_t>& one, const std::vector<std::uint8_t>& other)
{
    const auto sameBytes = [&](std::size_t from, std::size_t count) {
        return std::memcmp(one.data() + from, other.data() + from, count) == 0;
    };
    return one.size() == other.size() && sameBytes(4, 8) && sameBytes(16, 4) &&
           sameBytes(bitmapHeaderBytes, one.size() - bitmapHeaderBytes);
}

} // namespace

VirtualFilmBuilder::VirtualFilmBuilder(std::int64_t startMs) : m_film(std::make_shared<VirtualFilm>())
{
    m_film->m_startMs = startMs;
}

bool VirtualFilmBuilder::isPlayable(const ClipIndex& index) { return lengthMs(index) > 0; }

std::int64_t VirtualFilmBuilder::lengthMs(const ClipIndex& index)
{
    const ClipStream* video = streamOf(index, ClipStream::Kind::Video);
    std::uint32_t scale = 0;
    std::uint32_t rate = 0;
    if (video == nullptr || !pictureRate(*video, scale, rate) || video->format.size() < 20)
        return 0;
    const auto stream = static_cast<std::uint8_t>(video - index.streams.data());
    const auto pictures = std::ranges::count(index.chunks, stream, &ClipChunk::stream);
    const auto isShown = [stream](const ClipChunk& chunk) {
        return chunk.stream == stream && isStored(chunk);
    };
    const std::int64_t lengthMs = unitsToMs(static_cast<std::uint64_t>(pictures), scale, rate);
    return std::ranges::any_of(index.chunks, isShown) && lengthMs < longestClipMs ? lengthMs : 0;
}

bool VirtualFilmBuilder::fits(const ClipIndex& index) const
{
    const ClipStream* video = streamOf(index, ClipStream::Kind::Video);
    if (m_film->m_clips.empty() || video == nullptr)
        return video != nullptr;
    const std::vector<std::uint8_t> sound = soundFormatOf(index);
    return haveSamePictures(m_film->m_videoFormat, paddedFormat(video->format, bitmapHeaderBytes)) &&
           (sound == m_film->m_soundFormat ||
            (sound.empty() && WaveFormat(m_film->m_soundFormat).tag == wavePcm));
}

void VirtualFilmBuilder::put(const Timed& timed)
{
    VirtualFilm& film = *m_film;
    const std::uint32_t clip = static_cast<std::uint32_t>(film.m_clips.size());
    const bool isOther = film.m_clusters.empty() || film.m_clusters.back().clip != clip;
    const std::int64_t sinceMs = isOther ? 0 : timed.filmMs - film.m_clusters.back().startMs;
    if (isOther || sinceMs > longestClusterMs || (timed.mayBegin && sinceMs >= shortestClusterMs))
        film.m_clusters.push_back({0, timed.filmMs, static_cast<std::uint32_t>(film.m_entries.size()), clip});
    film.m_entries.push_back(timed.entry);
    film.m_entries.back().sinceClusterMs =
        static_cast<std::int32_t>(timed.filmMs - film.m_clusters.back().startMs);
}

/// The pictures of a clip; each has its time, whether it is stored or repeats the one before.
std::vector<VirtualFilmBuilder::Timed> VirtualFilmBuilder::picturesOf(const ClipIndex& index,
                                                                      const VirtualFilm::Clip& clip)
{
    const ClipStream& video = *streamOf(index, ClipStream::Kind::Video);
    const auto stream = static_cast<std::uint8_t>(&video - index.streams.data());
    std::vector<Timed> pictures;
    std::int64_t count = 0;
    for (const ClipChunk& chunk : index.chunks) {
        if (chunk.stream != stream)
            continue;
        const std::int64_t filmMs = clip.pictureMs(count++);
        const bool mayBegin = chunk.isKey || pictures.empty();
        const std::uint64_t flags = VirtualFilm::pictureBit | (mayBegin ? VirtualFilm::keyBit : 0);
        if (isStored(chunk))
            pictures.push_back({filmMs, {chunk.offset | flags, chunk.size, 0}, mayBegin});
    }
    return pictures;
}

/// The sound of a clip, which ends with its pictures: what goes on beyond them would overlap the next clip's.
std::vector<VirtualFilmBuilder::Timed> VirtualFilmBuilder::soundOf(const ClipIndex& index,
                                                                   const VirtualFilm::Clip& clip)
{
    std::vector<Timed> pieces;
    if (m_film->m_soundFormat.empty())
        return pieces;
    const WaveFormat wave(m_film->m_soundFormat);
    const bool isPlain = wave.tag == wavePcm && wave.samplesPerSecond > 0;
    if (isPlain)
        addSilence(pieces, m_soundEndMs, clip.startMs);
    std::int64_t endMs = clip.startMs;
    const ClipStream* sound =
        soundFormatOf(index).empty() ? nullptr : streamOf(index, ClipStream::Kind::Sound);
    std::uint64_t units = 0;
    for (const ClipChunk& chunk : index.chunks) {
        if (sound == nullptr || chunk.stream != sound - index.streams.data())
            continue;
        const std::int64_t sinceMs =
            unitsToMs(units, std::min<std::uint32_t>(sound->scale, 0xF'FFFFU), sound->rate);
        units += sound->sampleSize > 0 ? chunk.size / sound->sampleSize : 1;
        const std::int64_t leftMs = clip.endMs - clip.startMs - sinceMs;
        if (!isStored(chunk) || leftMs <= 0)
            continue;
        std::uint32_t size = chunk.size;
        if (isPlain) {
            const std::uint64_t frames =
                static_cast<std::uint64_t>(leftMs) * wave.samplesPerSecond / 1000 + 1;
            size = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, frames * wave.blockAlign));
            endMs = clip.startMs + sinceMs +
                    static_cast<std::int64_t>(std::uint64_t{size} / wave.blockAlign * 1000 /
                                              wave.samplesPerSecond);
        }
        pieces.push_back({clip.startMs + sinceMs, {chunk.offset, size, 0}, false});
    }
    if (isPlain)
        addSilence(pieces, endMs, clip.endMs);
    m_soundEndMs = clip.endMs;
    return pieces;
}

/// A player waits for the sound of a film that has any, and shows no picture meanwhile.
void VirtualFilmBuilder::addSilence(std::vector<Timed>& pieces, std::int64_t fromMs, std::int64_t toMs) const
{
    const WaveFormat wave(m_film->m_soundFormat);
    for (std::int64_t ms = fromMs; toMs - ms >= shortestSilenceMs; ms += silenceMs) {
        const auto lengthMs = static_cast<std::uint64_t>(std::min(silenceMs, toMs - ms));
        const std::uint64_t bytes = lengthMs * wave.samplesPerSecond / 1000 * wave.blockAlign;
        if (bytes > 0 && bytes <= largestChunk)
            pieces.push_back({ms, {VirtualFilm::silenceBit, static_cast<std::uint32_t>(bytes), 0}, false});
    }
}

void VirtualFilmBuilder::append(std::string path, const ClipIndex& index, std::int64_t startMs)
{
    VirtualFilm& film = *m_film;
    const ClipStream& video = *streamOf(index, ClipStream::Kind::Video);
    if (film.m_clips.empty()) {
        film.m_videoFormat = paddedFormat(video.format, bitmapHeaderBytes);
        m_film->m_soundFormat = soundFormatOf(index);
    }
    VirtualFilm::Clip clip{std::move(path), film.toFilmMs(startMs), 0, 1, 1};
    pictureRate(video, clip.scale, clip.rate);
    clip.endMs = clip.startMs + lengthMs(index);

    // Each in the order of time; the film has both in one order.
    const std::vector<Timed> pictures = picturesOf(index, clip);
    const std::vector<Timed> pieces = soundOf(index, clip);
    film.m_entries.reserve(film.m_entries.size() + pictures.size() + pieces.size());
    auto piece = pieces.begin();
    for (const Timed& picture : pictures) {
        for (; piece != pieces.end() && piece->filmMs < picture.filmMs; ++piece)
            put(*piece);
        put(picture);
    }
    for (; piece != pieces.end(); ++piece)
        put(*piece);
    film.m_clips.push_back(std::move(clip));
}

/// Where the clusters stand: behind the head, whose length does not hang on that.
void VirtualFilmBuilder::placeClusters()
{
    VirtualFilm& film = *m_film;
    film.m_headBytes = film.head(1).size();
    std::uint64_t position = film.m_headBytes;
    for (std::size_t i = 0; i < film.m_clusters.size(); ++i) {
        film.m_clusters[i].position = position;
        position += VirtualFilm::clusterHeadBytes;
        for (std::size_t entry = film.m_clusters[i].firstEntry; entry < film.entryEnd(i); ++entry)
            position += VirtualFilm::blockHeadBytes + film.m_entries[entry].size;
    }
    film.m_sizeBytes = position;
}

void VirtualFilmBuilder::repeatAtEnd()
{
    VirtualFilm& film = *m_film;
    const auto last = std::find_if(film.m_entries.rbegin(), film.m_entries.rend(),
                                   [](const VirtualFilm::Entry& entry) { return entry.isPicture(); });
    const VirtualFilm::Entry entry = *last;
    const std::uint32_t clip = film.m_clusters.back().clip;
    const std::int64_t startMs = film.lengthMs();
    film.m_clusters.push_back({0, startMs, static_cast<std::uint32_t>(film.m_entries.size()), clip});
    std::vector<Timed> sound;
    if (!m_film->m_soundFormat.empty())
        addSilence(sound, startMs, startMs + lastRepeatMs);
    for (std::int64_t ms = firstRepeatMs; ms <= lastRepeatMs; ms += std::max(repeatEveryMs, ms / 8))
        sound.push_back({startMs + ms, entry, true});
    std::ranges::stable_sort(sound, {}, &Timed::filmMs);
    for (const Timed& timed : sound) {
        film.m_entries.push_back(timed.entry);
        film.m_entries.back().sinceClusterMs = static_cast<std::int32_t>(timed.filmMs - startMs);
    }
}

std::shared_ptr<const VirtualFilm> VirtualFilmBuilder::finish(Tail tail)
{
    if (m_film->m_clips.empty())
        return nullptr;
    m_film->m_shownClusters = m_film->m_clusters.size();
    if (tail == Tail::Repeated)
        repeatAtEnd();
    m_film->m_entries.shrink_to_fit();
    m_film->m_clusters.shrink_to_fit();
    placeClusters();
    return std::exchange(m_film, nullptr);
}

std::shared_ptr<const VirtualFilm> VirtualFilm::keyPictures(std::int64_t atLeastApartMs) const
{
    VirtualFilmBuilder builder(m_startMs);
    builder.m_film->m_videoFormat = m_videoFormat;
    std::optional<std::int64_t> lastMs;
    std::size_t cluster = 0;
    for (std::size_t number = 0; number < m_clips.size(); ++number) {
        for (; cluster < m_shownClusters && m_clusters[cluster].clip == number; ++cluster) {
            for (std::size_t i = m_clusters[cluster].firstEntry; i < entryEnd(cluster); ++i) {
                const std::int64_t filmMs = m_clusters[cluster].startMs + m_entries[i].sinceClusterMs;
                if (!m_entries[i].isKey() || (lastMs && filmMs - *lastMs < atLeastApartMs))
                    continue;
                lastMs = filmMs;
                builder.put({filmMs, m_entries[i], true});
            }
        }
        builder.m_film->m_clips.push_back(m_clips[number]);
    }
    return builder.finish();
}

std::int64_t VirtualFilm::Clip::pictureMs(std::int64_t n) const
{
    return startMs + unitsToMs(static_cast<std::uint64_t>(std::max<std::int64_t>(n, 0)), scale, rate);
}

} // namespace marvo
