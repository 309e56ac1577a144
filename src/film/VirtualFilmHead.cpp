// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/Matroska.h"
#include "film/StreamFormat.h"
#include "film/VirtualFilm.h"

#include <cmath>
#include <cstring>

namespace marvo {

namespace {

std::uint64_t nanoseconds(double usual, double speed)
{
    return static_cast<std::uint64_t>(std::llround(usual / speed));
}

/// Of a number of four bytes in a header.
void scale(std::vector<std::uint8_t>& format, std::size_t at, double factor)
{
    std::uint32_t number = 0;
    for (std::size_t i = 0; i < 4; ++i)
        number |= std::uint32_t{format[at + i]} << 8 * i;
    number = static_cast<std::uint32_t>(std::min(std::round(number * factor), 4e9));
    for (std::size_t i = 0; i < 4; ++i)
        format[at + i] = static_cast<std::uint8_t>(number >> 8 * i);
}

/// The sizes and codec of the pictures, and their usual rate, for whoever goes by it.
MatroskaWriter videoTrack(const std::vector<std::uint8_t>& format, const VirtualFilm::Clip& clip,
                          double speed)
{
    const BitmapFormat bitmap(format);
    MatroskaWriter size;
    size.number(matroska::PixelWidth, bitmap.width);
    size.number(matroska::PixelHeight, bitmap.height);
    MatroskaWriter track;
    track.number(matroska::TrackNumber, VirtualFilm::videoTrackNumber);
    track.number(matroska::TrackUid, VirtualFilm::videoTrackNumber);
    track.number(matroska::TrackType, 1);
    track.number(matroska::FlagLacing, 0);
    track.number(matroska::DefaultDuration, nanoseconds(1e9 * clip.scale / clip.rate, speed));
    track.text(matroska::CodecId, "V_MS/VFW/FOURCC");
    track.binary(matroska::CodecPrivate, format);
    track.master(matroska::Video, size);
    return track;
}

MatroskaWriter soundTrack(std::vector<std::uint8_t> format, double speed)
{
    const WaveFormat wave(format);
    scale(format, 4, speed); // samples a second
    scale(format, 8, speed); // bytes a second
    MatroskaWriter facts;
    facts.floating(matroska::SamplingFrequency, std::round(wave.samplesPerSecond * speed));
    facts.number(matroska::Channels, wave.channels);
    facts.number(matroska::BitDepth, wave.bits);
    MatroskaWriter track;
    track.number(matroska::TrackNumber, VirtualFilm::soundTrackNumber);
    track.number(matroska::TrackUid, VirtualFilm::soundTrackNumber);
    track.number(matroska::TrackType, 2);
    track.number(matroska::FlagLacing, 0);
    track.text(matroska::CodecId, "A_MS/ACM");
    track.binary(matroska::CodecPrivate, format);
    track.master(matroska::Audio, facts);
    return track;
}

} // namespace

/// The numbers' widths are fixed, so that the head is as long at every speed.
std::vector<std::uint8_t> VirtualFilm::head(double speed) const
{
    MatroskaWriter ebml;
    ebml.text(matroska::DocType, "matroska");
    ebml.number(matroska::DocTypeVersion, 4);
    ebml.number(matroska::DocTypeReadVersion, 2);
    MatroskaWriter info;
    info.number(matroska::TimecodeScale, nanoseconds(1'000'000, speed));
    const Cluster& last = m_clusters.back();
    info.floating(matroska::Duration, static_cast<double>(last.startMs + m_entries.back().sinceClusterMs));
    info.text(matroska::MuxingApp, "MARVO");
    info.text(matroska::WritingApp, "MARVO");
    MatroskaWriter tracks;
    tracks.master(matroska::TrackEntry, videoTrack(m_videoFormat, m_clips.front(), speed));
    if (!m_soundFormat.empty())
        tracks.master(matroska::TrackEntry, soundTrack(m_soundFormat, speed));
    MatroskaWriter head;
    head.master(matroska::Ebml, ebml);
    const std::size_t bodyAt = head.size() + 12; // which the cues count from
    MatroskaWriter cues;
    for (const Cluster& cluster : m_clusters) {
        MatroskaWriter place;
        place.number(matroska::CueTrack, videoTrackNumber);
        place.number(matroska::CueClusterPosition, cluster.position - bodyAt);
        MatroskaWriter point;
        point.number(matroska::CueTime, static_cast<std::uint64_t>(cluster.startMs));
        point.master(matroska::CueTrackPositions, place);
        cues.master(matroska::CuePoint, point);
    }
    MatroskaWriter segment;
    segment.master(matroska::Info, info);
    segment.master(matroska::Tracks, tracks);
    segment.master(matroska::Cues, cues);
    head.identifier(matroska::Segment);
    head.wideSize((m_sizeBytes - bodyAt) & ((std::uint64_t{1} << 56) - 1));
    head.raw(segment.bytes());
    return head.bytes();
}

int VirtualFilm::pictureLines() const
{
    return static_cast<int>(std::min(BitmapFormat(m_videoFormat).height, 0xFFFFU));
}

bool VirtualFilm::isMotionJpeg() const
{
    return m_videoFormat.size() >= 20 && (std::memcmp(m_videoFormat.data() + 16, "MJPG", 4) == 0 ||
                                          std::memcmp(m_videoFormat.data() + 16, "mjpg", 4) == 0);
}

} // namespace marvo
