// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace marvo {

/// The identifiers of the elements that are written, by their names in the format.
namespace matroska {
enum Id : std::uint32_t {
    Ebml = 0x1A45DFA3,
    DocType = 0x4282,
    DocTypeVersion = 0x4287,
    DocTypeReadVersion = 0x4285,
    Segment = 0x18538067,
    Info = 0x1549A966,
    TimecodeScale = 0x2AD7B1,
    Duration = 0x4489,
    MuxingApp = 0x4D80,
    WritingApp = 0x5741,
    Tracks = 0x1654AE6B,
    TrackEntry = 0xAE,
    TrackNumber = 0xD7,
    TrackUid = 0x73C5,
    TrackType = 0x83,
    FlagLacing = 0x9C,
    DefaultDuration = 0x23E383,
    CodecId = 0x86,
    CodecPrivate = 0x63A2,
    Video = 0xE0,
    PixelWidth = 0xB0,
    PixelHeight = 0xBA,
    Audio = 0xE1,
    SamplingFrequency = 0xB5,
    Channels = 0x9F,
    BitDepth = 0x6264,
    Cues = 0x1C53BB6B,
    CuePoint = 0xBB,
    CueTime = 0xB3,
    CueTrackPositions = 0xB7,
    CueTrack = 0xF7,
    CueClusterPosition = 0xF1,
    ClusterId = 0x1F43B675,
    Timecode = 0xE7,
    SimpleBlock = 0xA3,
};
} // namespace matroska

/// Writes elements of Matroska, a container of nested elements (RFC 8794, RFC 9559), into memory.
///
/// An element is an identifier of one to four bytes, the size of its body and the body. Numbers of fixed
/// width are used where a body's size must be known before its contents are.
class MatroskaWriter
{
public:
    using Bytes = std::vector<std::uint8_t>;

    const Bytes& bytes() const { return m_bytes; }
    std::size_t size() const { return m_bytes.size(); }

    /// The identifier alone, its length marker included, as the format's tables have it.
    void identifier(std::uint32_t id);
    /// A size or a track number in eight bytes (below 2^56).
    void wideSize(std::uint64_t size);
    /// A size in four bytes (below 2^28).
    void shortSize(std::uint32_t size);
    void raw(std::span<const std::uint8_t> bytes);
    void bigEndian(std::uint64_t value, int width);

    void number(std::uint32_t id, std::uint64_t value); ///< an unsigned number in eight bytes
    void floating(std::uint32_t id, double value);
    void text(std::uint32_t id, std::string_view value);
    void binary(std::uint32_t id, std::span<const std::uint8_t> value);
    void master(std::uint32_t id, const MatroskaWriter& body); ///< an element of elements

private:
    Bytes m_bytes;
};

} // namespace marvo
