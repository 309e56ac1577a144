// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/VirtualFilmBuilder.h"

#include "film/Matroska.h"
#include "support/ByteReader.h"

#include <algorithm>
#include <cstring>
#include <numeric>
#include <utility>

namespace marvo {

namespace {

/// A block's size has 28 bits, all of them set being kept for "unknown".
constexpr std::uint32_t LargestChunk = (1U << 28) - 16;
/// A block tells its time by 16 bits.
constexpr std::int64_t LongestClusterMs = 30'000;
/// Where every picture is a key picture: how far apart places to enter are. A seek decodes from one of them.
constexpr std::int64_t ShortestClusterMs = 250;
/// Key pictures closer together than this are not all shown when they alone are.
constexpr std::int64_t KeyPictureMs = 33;
constexpr std::size_t LargestFormat = 64 * 1024;
constexpr std::size_t BitmapHeaderBytes = 40;
constexpr std::size_t WaveHeaderBytes = 18;
constexpr std::uint16_t WavePcm = 1;
constexpr std::int64_t LongestClipMs = 24LL * 3600 * 1000;

const ClipStream* streamOf(const ClipIndex& index, ClipStream::Kind kind)
{
    const auto found = std::ranges::find(index.streams, kind, &ClipStream::kind);
    return found != index.streams.end() ? &*found : nullptr;
}

/// Cut to whole milliseconds, and to the longest clip.
std::int64_t unitsToMs(std::uint64_t units, std::uint32_t scale, std::uint32_t rate)
{
    const std::uint64_t parts = std::min(units, std::uint64_t{1} << 40) * scale; // scales are below 2^20
    if (parts / rate >= LongestClipMs / 1000)
        return LongestClipMs;
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

std::vector<std::uint8_t> paddedFormat(const std::vector<std::uint8_t>& format, std::size_t atLeast)
{
    std::vector<std::uint8_t> padded(format.begin(), format.begin() + std::min(format.size(), LargestFormat));
    padded.resize(std::max(padded.size(), atLeast));
    return padded;
}

/// WAVEFORMATEX tells how much follows it; no more than does.
std::vector<std::uint8_t> soundFormatOf(const ClipIndex& index)
{
    const ClipStream* sound = streamOf(index, ClipStream::Kind::Sound);
    if (sound == nullptr || sound->format.size() < WaveHeaderBytes - 2 || sound->rate == 0)
        return {};
    std::vector<std::uint8_t> format = paddedFormat(sound->format, WaveHeaderBytes);
    const std::size_t told = format[16] | std::size_t{format[17]} << 8;
    const std::size_t follows = std::min<std::size_t>(told, format.size() - WaveHeaderBytes);
    format[16] = static_cast<std::uint8_t>(follows);
    format[17] = static_cast<std::uint8_t>(follows >> 8);
    format.resize(WaveHeaderBytes + follows);
    return format;
}

struct WaveFormat
{
    std::uint16_t tag = 0;
    std::uint16_t channels = 0;
    std::uint32_t samplesPerSecond = 0;
    std::uint16_t blockAlign = 1;
    std::uint16_t bits = 0;

    explicit WaveFormat(const std::vector<std::uint8_t>& format)
    {
        ByteReader reader(format.data(), format.size());
        tag = reader.littleEndian<std::uint16_t>();
        channels = reader.littleEndian<std::uint16_t>();
        samplesPerSecond = reader.littleEndian<std::uint32_t>();
        reader.skip(4);
        blockAlign = std::max<std::uint16_t>(reader.littleEndian<std::uint16_t>(), 1);
        bits = reader.littleEndian<std::uint16_t>();
    }
};

struct BitmapFormat
{
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    explicit BitmapFormat(const std::vector<std::uint8_t>& format)
    {
        ByteReader reader(format.data(), format.size());
        reader.skip(4);
        width = reader.littleEndian<std::uint32_t>();
        height = reader.littleEndian<std::uint32_t>();
        if (height > 0x7FFF'FFFFU) // a picture stored from the top has a negative height
            height = 0U - height;
    }
};

bool haveSamePictures(const std::vector<std::uint8_t>& one, const std::vector<std::uint8_t>& other)
{
    const auto sameBytes = [&](std::size_t from, std::size_t count) {
        return std::memcmp(one.data() + from, other.data() + from, count) == 0;
    };
    return one.size() == other.size() && sameBytes(4, 8) && sameBytes(16, 4) &&
           sameBytes(BitmapHeaderBytes, one.size() - BitmapHeaderBytes);
}

} // namespace

VirtualFilmBuilder::VirtualFilmBuilder(std::int64_t startMs, int speed)
    : m_film(std::make_shared<VirtualFilm>())
{
    m_film->m_startMs = startMs;
    m_film->m_speed = speed;
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
        return chunk.stream == stream && chunk.size > 0 && chunk.size <= LargestChunk;
    };
    const std::int64_t lengthMs = unitsToMs(static_cast<std::uint64_t>(pictures), scale, rate);
    return std::ranges::any_of(index.chunks, isShown) && lengthMs < LongestClipMs ? lengthMs : 0;
}

bool VirtualFilmBuilder::fits(const ClipIndex& index) const
{
    const ClipStream* video = streamOf(index, ClipStream::Kind::Video);
    if (m_film->m_clips.empty() || video == nullptr)
        return video != nullptr;
    const std::vector<std::uint8_t> sound = soundFormatOf(index);
    return haveSamePictures(m_film->m_videoFormat, paddedFormat(video->format, BitmapHeaderBytes)) &&
           (sound.empty() || sound == m_soundFormat);
}

/// mayBegin: the film can be entered at this chunk.
void VirtualFilmBuilder::put(VirtualFilm::Entry entry, std::int64_t filmMs, bool mayBegin)
{
    VirtualFilm& film = *m_film;
    const std::uint32_t clip = static_cast<std::uint32_t>(film.m_clips.size());
    const bool isOther = film.m_clusters.empty() || film.m_clusters.back().clip != clip;
    const std::int64_t sinceMs = isOther ? 0 : filmMs - film.m_clusters.back().startMs;
    if (isOther || sinceMs > LongestClusterMs || (mayBegin && sinceMs >= ShortestClusterMs))
        film.m_clusters.push_back({0, filmMs, static_cast<std::uint32_t>(film.m_entries.size()), clip});
    entry.sinceClusterMs = static_cast<std::int32_t>(filmMs - film.m_clusters.back().startMs);
    film.m_entries.push_back(entry);
}

void VirtualFilmBuilder::append(std::string path, const ClipIndex& index, std::int64_t startMs)
{
    VirtualFilm& film = *m_film;
    const ClipStream& video = *streamOf(index, ClipStream::Kind::Video);
    const ClipStream* sound = streamOf(index, ClipStream::Kind::Sound);
    if (film.m_clips.empty()) {
        film.m_videoFormat = paddedFormat(video.format, BitmapHeaderBytes);
        m_soundFormat = soundFormatOf(index);
    }
    if (m_soundFormat.empty() || soundFormatOf(index).empty())
        sound = nullptr;
    VirtualFilm::Clip clip{std::move(path), film.toFilmMs(startMs), 0, 1, 1};
    pictureRate(video, clip.scale, clip.rate);
    clip.endMs = clip.startMs + lengthMs(index);
    std::uint32_t soundScale = 1;
    std::uint32_t soundRate = 1;
    if (sound != nullptr) {
        soundScale = std::min<std::uint32_t>(sound->scale, 0xF'FFFFU);
        soundRate = sound->rate;
    }
    const WaveFormat wave(m_soundFormat);

    // Pictures and sound each are in the order of time; the film has both in one order.
    struct Timed
    {
        std::int64_t filmMs;
        VirtualFilm::Entry entry;
        bool mayBegin;
    };
    std::vector<Timed> pictures;
    std::vector<Timed> sounds;
    std::int64_t pictureCount = 0;
    std::uint64_t soundUnits = 0;
    for (const ClipChunk& chunk : index.chunks) {
        const ClipStream* stream =
            chunk.stream < index.streams.size() ? &index.streams[chunk.stream] : nullptr;
        const bool isStored =
            chunk.size > 0 && chunk.size <= LargestChunk && chunk.offset <= VirtualFilm::OffsetBits;
        if (stream == &video) {
            const std::int64_t filmMs = clip.pictureMs(pictureCount++);
            const bool mayBegin = chunk.isKey || pictures.empty();
            const std::uint64_t flags = VirtualFilm::IsPicture | (mayBegin ? VirtualFilm::IsKey : 0);
            if (isStored)
                pictures.push_back({filmMs, {chunk.offset | flags, chunk.size, 0}, mayBegin});
        } else if (sound != nullptr && stream == sound) {
            const std::int64_t sinceMs = unitsToMs(soundUnits, soundScale, soundRate);
            soundUnits += sound->sampleSize > 0 ? chunk.size / sound->sampleSize : 1;
            const std::int64_t leftMs = clip.endMs - clip.startMs - sinceMs;
            if (!isStored || leftMs <= 0)
                continue;
            std::uint32_t size = chunk.size;
            if (wave.tag == WavePcm) { // what goes on beyond the pictures would overlap the next clip's
                const std::uint64_t frames =
                    static_cast<std::uint64_t>(leftMs) * wave.samplesPerSecond / 1000 + 1;
                size = static_cast<std::uint32_t>(std::min<std::uint64_t>(size, frames * wave.blockAlign));
            }
            sounds.push_back({clip.startMs + sinceMs, {chunk.offset, size, 0}, false});
        }
    }
    film.m_entries.reserve(film.m_entries.size() + pictures.size() + sounds.size());
    auto piece = sounds.begin();
    for (const Timed& picture : pictures) {
        for (; piece != sounds.end() && piece->filmMs < picture.filmMs; ++piece)
            put(piece->entry, piece->filmMs, false);
        put(picture.entry, picture.filmMs, picture.mayBegin);
    }
    for (; piece != sounds.end(); ++piece)
        put(piece->entry, piece->filmMs, false);
    film.m_clips.push_back(std::move(clip));
}

namespace {

/// The sizes and codec of the pictures, and their usual rate, for whoever goes by it.
MatroskaWriter videoTrack(const std::vector<std::uint8_t>& format, const VirtualFilm::Clip& clip)
{
    const BitmapFormat bitmap(format);
    MatroskaWriter size;
    size.number(matroska::PixelWidth, bitmap.width);
    size.number(matroska::PixelHeight, bitmap.height);
    MatroskaWriter track;
    track.number(matroska::TrackNumber, VirtualFilm::VideoTrack);
    track.number(matroska::TrackUid, VirtualFilm::VideoTrack);
    track.number(matroska::TrackType, 1);
    track.number(matroska::FlagLacing, 0);
    track.number(matroska::DefaultDuration, std::uint64_t{1'000'000'000} * clip.scale / clip.rate);
    track.text(matroska::CodecId, "V_MS/VFW/FOURCC");
    track.binary(matroska::CodecPrivate, format);
    track.master(matroska::Video, size);
    return track;
}

MatroskaWriter soundTrack(const std::vector<std::uint8_t>& format)
{
    const WaveFormat wave(format);
    MatroskaWriter facts;
    facts.floating(matroska::SamplingFrequency, wave.samplesPerSecond);
    facts.number(matroska::Channels, wave.channels);
    facts.number(matroska::BitDepth, wave.bits);
    MatroskaWriter track;
    track.number(matroska::TrackNumber, VirtualFilm::SoundTrack);
    track.number(matroska::TrackUid, VirtualFilm::SoundTrack);
    track.number(matroska::TrackType, 2);
    track.number(matroska::FlagLacing, 0);
    track.text(matroska::CodecId, "A_MS/ACM");
    track.binary(matroska::CodecPrivate, format);
    track.master(matroska::Audio, facts);
    return track;
}

} // namespace

void VirtualFilmBuilder::writeHead()
{
    VirtualFilm& film = *m_film;
    MatroskaWriter ebml;
    ebml.text(matroska::DocType, "matroska");
    ebml.number(matroska::DocTypeVersion, 4);
    ebml.number(matroska::DocTypeReadVersion, 2);
    MatroskaWriter info;
    info.number(matroska::TimecodeScale, 1'000'000);
    info.floating(matroska::Duration, static_cast<double>(film.lengthMs()));
    info.text(matroska::MuxingApp, "MARVO");
    info.text(matroska::WritingApp, "MARVO");
    MatroskaWriter tracks;
    tracks.master(matroska::TrackEntry, videoTrack(film.m_videoFormat, film.m_clips.front()));
    if (!m_soundFormat.empty())
        tracks.master(matroska::TrackEntry, soundTrack(m_soundFormat));

    // The cues stand before what they tell of, so their size, which is that of numbers of fixed width, comes
    // first.
    const auto cues = [&film](std::uint64_t clustersAt) {
        MatroskaWriter points;
        std::uint64_t position = clustersAt;
        for (std::size_t i = 0; i < film.m_clusters.size(); ++i) {
            film.m_clusters[i].position = position;
            MatroskaWriter place;
            place.number(matroska::CueTrack, VirtualFilm::VideoTrack);
            place.number(matroska::CueClusterPosition, position);
            MatroskaWriter point;
            point.number(matroska::CueTime, static_cast<std::uint64_t>(film.m_clusters[i].startMs));
            point.master(matroska::CueTrackPositions, place);
            points.master(matroska::CuePoint, point);
            position += VirtualFilm::ClusterHeadBytes;
            for (std::size_t entry = film.m_clusters[i].firstEntry; entry < film.entryEnd(i); ++entry)
                position += VirtualFilm::BlockHeadBytes + film.m_entries[entry].size;
        }
        film.m_sizeBytes = position;
        return points;
    };
    MatroskaWriter segment;
    segment.master(matroska::Info, info);
    segment.master(matroska::Tracks, tracks);
    const std::uint64_t clustersAt = segment.size() + 12 + cues(0).size();
    segment.master(matroska::Cues, cues(clustersAt)); // counts from the segment's body

    MatroskaWriter head;
    head.master(matroska::Ebml, ebml);
    const std::size_t bodyAt = head.size() + 12;
    head.identifier(matroska::Segment);
    head.wideSize(film.m_sizeBytes);
    head.raw(segment.bytes());
    film.m_head = head.bytes();
    for (VirtualFilm::Cluster& cluster : film.m_clusters)
        cluster.position += bodyAt;
    film.m_sizeBytes += bodyAt;
}

std::shared_ptr<const VirtualFilm> VirtualFilmBuilder::finish()
{
    if (m_film->m_clips.empty())
        return nullptr;
    m_film->m_entries.shrink_to_fit();
    m_film->m_clusters.shrink_to_fit();
    writeHead();
    return std::exchange(m_film, nullptr);
}

std::shared_ptr<const VirtualFilm> VirtualFilm::keyPictures(int speed) const
{
    VirtualFilmBuilder builder(m_startMs, speed);
    builder.m_film->m_videoFormat = m_videoFormat;
    std::optional<std::int64_t> lastMs;
    std::size_t cluster = 0;
    for (std::size_t number = 0; number < m_clips.size(); ++number) {
        for (; cluster < m_clusters.size() && m_clusters[cluster].clip == number; ++cluster) {
            for (std::size_t i = m_clusters[cluster].firstEntry; i < entryEnd(cluster); ++i) {
                const std::int64_t filmMs =
                    (m_clusters[cluster].startMs + m_entries[i].sinceClusterMs) / speed;
                if (!m_entries[i].isKey() || (lastMs && filmMs - *lastMs < KeyPictureMs))
                    continue;
                lastMs = filmMs;
                builder.put(m_entries[i], filmMs, true);
            }
        }
        Clip clip = m_clips[number];
        clip.startMs /= speed;
        clip.endMs /= speed;
        builder.m_film->m_clips.push_back(std::move(clip));
    }
    return builder.finish();
}

std::int64_t VirtualFilm::Clip::pictureMs(std::int64_t n) const
{
    return startMs + unitsToMs(static_cast<std::uint64_t>(std::max<std::int64_t>(n, 0)), scale, rate);
}

} // namespace marvo
