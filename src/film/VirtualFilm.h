// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace marvo {

/// Several clips of one camera as one film: a Matroska file that exists nowhere.
///
/// Of the film only a table is kept, some 16 bytes a chunk; its bytes are made when they are read, out of the
/// clips' own chunks. Every chunk carries its time, so that sound that is a little longer or shorter than the
/// pictures does not add up over the clips.
///
/// Times are whole milliseconds. A film time counts from the film's beginning, a drive time is the place on
/// the time line that the film was built for. The table never changes once it is built: any thread may read.
class VirtualFilm
{
public:
    static constexpr std::uint64_t videoTrackNumber = 1;
    static constexpr std::uint64_t soundTrackNumber = 2;

    struct Clip
    {
        std::string path;
        std::int64_t startMs = 0; ///< film time of its first picture
        std::int64_t endMs = 0;   ///< film time at which its last picture ends
        std::uint32_t scale = 1;  ///< a picture lasts scale / rate seconds
        std::uint32_t rate = 1;

        /// The film time of the clip's picture n, which begins there.
        std::int64_t pictureMs(std::int64_t n) const;
    };

    /// What stands at an offset: bytes made here, or `length` bytes at `fileOffset` of a clip's file.
    struct Piece
    {
        std::size_t length = 0; ///< 0 at the end of the film
        std::optional<std::size_t> clip;
        std::uint64_t fileOffset = 0;
    };

    std::uint64_t sizeBytes() const { return m_sizeBytes; }
    /// How the film begins, headBytes() long: all that its speed is told by. At another speed than 1 the
    /// chunks' times mean less or more, the sound is higher or lower, and everything else stays as it is. So
    /// a player plays at its usual rate, which costs it no picture.
    std::vector<std::uint8_t> head(double speed) const;
    std::size_t headBytes() const { return m_headBytes; }
    /// The piece at an offset behind the head; of what is made here as much as fits is put into `into`.
    Piece pieceAt(std::uint64_t offset, std::span<std::byte> into) const;

    int pictureLines() const;
    bool isMotionJpeg() const;

    const std::vector<Clip>& clips() const { return m_clips; }
    /// The clip shown at a film time: the last that has begun, else the first.
    std::size_t clipAt(std::int64_t filmMs) const;

    std::int64_t lengthMs() const { return m_clips.back().endMs; } ///< film time
    /// Where the film begins and ends on the drive's time line.
    std::int64_t startMs() const { return m_startMs; }
    std::int64_t endMs() const { return m_startMs + lengthMs(); }
    std::int64_t toFilmMs(std::int64_t driveMs) const { return driveMs - m_startMs; }
    std::int64_t toDriveMs(std::int64_t filmMs) const { return m_startMs + filmMs; }

    /// The film time at which the picture shown at a film time begins: the last that has begun, else the
    /// first.
    std::int64_t pictureAt(std::int64_t filmMs) const;
    /// The same of the picture after it or before it; none at the film's ends.
    std::optional<std::int64_t> pictureAfter(std::int64_t filmMs) const;
    std::optional<std::int64_t> pictureBefore(std::int64_t filmMs) const;

    /// The key pictures alone, without sound, none of them sooner than that after the one before.
    std::shared_ptr<const VirtualFilm> keyPictures(std::int64_t atLeastApartMs) const;

    std::size_t tableBytes() const; ///< memory taken by the table

private:
    friend class VirtualFilmBuilder;
    // The film, in this order:
    //
    //   EBML       version, document type "matroska"
    //   Segment
    //     Info     a time unit of 1 ms at the usual speed, the duration
    //     Tracks   1: pictures, 2: sound, each with the header that the AVI file has of it
    //     Cues     where the cluster of each time stands
    //     Cluster  Timecode, then a SimpleBlock a chunk: track, time since the cluster's, flags, the chunk
    //     Cluster  ...
    //     Cluster  after the end silence and the last picture again: in pause a player shows a picture only
    //              when it has read on beyond it
    static constexpr std::size_t clusterHeadBytes = 4 + 8 + 10;
    static constexpr std::size_t blockHeadBytes = 1 + 4 + 4;

    static constexpr std::uint64_t pictureBit = std::uint64_t{1} << 63;
    static constexpr std::uint64_t keyBit = std::uint64_t{1} << 62;
    static constexpr std::uint64_t silenceBit = std::uint64_t{1} << 61;
    static constexpr std::uint64_t offsetBits = silenceBit - 1;
    struct Entry
    {
        std::uint64_t offset; ///< in the clip's file, and the flags
        std::uint32_t size;
        std::int32_t sinceClusterMs;
        bool isPicture() const { return (offset & pictureBit) != 0; }
        bool isKey() const { return (offset & keyBit) != 0; }
        bool isSilence() const { return (offset & silenceBit) != 0; }
    };
    /// Some chunks with a time in common, which theirs are told from; the film can be entered at each.
    struct Cluster
    {
        std::uint64_t position; ///< in the film
        std::int64_t startMs;
        std::uint32_t firstEntry;
        std::uint32_t clip;
    };

    std::size_t entryEnd(std::size_t cluster) const;
    std::uint64_t clusterEnd(std::size_t cluster) const;
    /// The entry of the picture shown at a film time, with its time.
    struct Picture
    {
        std::size_t cluster;
        std::size_t entry;
        std::int64_t startMs;
    };
    std::optional<Picture> find(std::int64_t filmMs) const;
    std::size_t copyMade(std::uint64_t offset, std::span<const std::uint8_t> made, std::uint64_t madeAt,
                         std::span<std::byte> into) const;

    std::vector<std::uint8_t> m_videoFormat; ///< BITMAPINFOHEADER, with what follows it
    std::vector<std::uint8_t> m_soundFormat; ///< WAVEFORMATEX, with what follows it; empty without sound
    std::vector<Clip> m_clips;
    std::vector<Cluster> m_clusters;
    std::vector<Entry> m_entries;
    std::size_t m_shownClusters = 0; ///< all but the one after the end
    std::uint64_t m_sizeBytes = 0;
    std::int64_t m_startMs = 0;
    std::size_t m_headBytes = 0;
};

} // namespace marvo
