// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "demo/AviWriter.h"

#include <algorithm>

namespace marvo::demo {

namespace {

constexpr std::uint32_t bytesPerSample = 2;

/// A chunk around a body.
void putChunk(Bytes& out, std::string_view id, const Bytes& body)
{
    putText(out, id);
    putLe(out, static_cast<std::uint32_t>(body.size()));
    out.insert(out.end(), body.begin(), body.end());
}

void putList(Bytes& out, std::string_view type, const Bytes& chunks)
{
    putText(out, "LIST");
    putLe(out, static_cast<std::uint32_t>(chunks.size() + 4));
    putText(out, type);
    out.insert(out.end(), chunks.begin(), chunks.end());
}

/// The stream header "strh", 56 bytes.
struct StreamHeader
{
    std::string_view type;
    std::string_view handler;
    std::uint32_t scale = 1; ///< rate / scale is the number of samples (frames) a second
    std::uint32_t rate = 1;
    std::uint32_t length = 0;
    std::uint32_t bufferSize = 0;
    std::uint32_t sampleSize = 0;
    int width = 0;
    int height = 0;

    Bytes bytes() const
    {
        Bytes out;
        putText(out, type);
        putText(out, handler);
        putLe(out, std::uint32_t{0}); // flags
        putLe(out, std::uint32_t{0}); // priority, language
        putLe(out, std::uint32_t{0}); // initial frames
        putLe(out, scale);
        putLe(out, rate);
        putLe(out, std::uint32_t{0}); // start
        putLe(out, length);
        putLe(out, bufferSize);
        putLe(out, std::uint32_t{0xFFFFFFFF}); // quality: the codec's own
        putLe(out, sampleSize);
        putLe(out, std::uint32_t{0}); // frame: left, top
        putLe(out, static_cast<std::int16_t>(width));
        putLe(out, static_cast<std::int16_t>(height));
        return out;
    }
};

Bytes videoFormat(const AviFormat& format)
{
    Bytes out; // BITMAPINFOHEADER
    putLe(out, std::uint32_t{40});
    putLe(out, static_cast<std::int32_t>(format.width));
    putLe(out, static_cast<std::int32_t>(format.height));
    putLe(out, std::uint16_t{1});
    putLe(out, std::uint16_t{24});
    putText(out, "MJPG");
    putLe(out, static_cast<std::uint32_t>(format.width) * static_cast<std::uint32_t>(format.height) * 3);
    for (int i = 0; i < 4; ++i)
        putLe(out, std::uint32_t{0});
    return out;
}

Bytes soundFormat(std::uint32_t rateHz)
{
    Bytes out; // PCMWAVEFORMAT
    putLe(out, std::uint16_t{1});
    putLe(out, std::uint16_t{1});
    putLe(out, rateHz);
    putLe(out, rateHz * bytesPerSample);
    putLe(out, static_cast<std::uint16_t>(bytesPerSample));
    putLe(out, std::uint16_t{16});
    return out;
}

} // namespace

Bytes softwareList(std::string_view name)
{
    Bytes text;
    putText(text, name);
    text.resize(text.size() / 2 * 2 + 2); // ends with a zero byte, at an even length
    Bytes entry;
    putChunk(entry, "ISFT", text);
    Bytes out;
    putList(out, "INFO", entry);
    return out;
}

AviWriter::AviWriter(OutputFile& file, const AviFormat& format) : m_file(file), m_format(format)
{
    m_file.write(header());
}

// RIFF size "AVI "
//   LIST size "hdrl"
//     "avih"                       main header, 56 bytes
//     LIST "strl" "strh" "strf"    video
//     LIST "strl" "strh" "strf"    sound
//   chunks before the movie
//   LIST size "movi"               "00dc" frames and "01wb" sound
//   "idx1"                         16 bytes a movie chunk
//   chunks after the index
Bytes AviWriter::header() const
{
    const auto rateHz = static_cast<std::uint32_t>(m_format.soundRateHz);
    const auto fps = static_cast<std::uint32_t>(std::max(1, m_format.framesPerSecond));

    Bytes main;
    putLe(main, 1'000'000 / fps);                                // microseconds a frame
    putLe(main, m_largestFrame * fps + rateHz * bytesPerSample); // bytes a second, at most
    putLe(main, std::uint32_t{0});                               // padding
    putLe(main, std::uint32_t{0x10 | 0x100});                    // has an index, is interleaved
    putLe(main, m_frames);
    putLe(main, std::uint32_t{0});                         // initial frames
    putLe(main, std::uint32_t{rateHz > 0 ? 2U : 1U});      // streams
    putLe(main, std::max(m_largestFrame, m_largestSound)); // buffer size
    putLe(main, static_cast<std::uint32_t>(m_format.width));
    putLe(main, static_cast<std::uint32_t>(m_format.height));
    for (int i = 0; i < 4; ++i)
        putLe(main, std::uint32_t{0});

    const StreamHeader video{"vids",         "MJPG",         1, fps, m_frames, m_largestFrame, 0,
                             m_format.width, m_format.height};
    Bytes videoStream;
    putChunk(videoStream, "strh", video.bytes());
    putChunk(videoStream, "strf", videoFormat(m_format));

    Bytes lists;
    putChunk(lists, "avih", main);
    putList(lists, "strl", videoStream);
    if (rateHz > 0) {
        const std::string_view noHandler("\0\0\0\0", 4);
        const StreamHeader sound{"auds", noHandler, 1, rateHz, m_soundFrames, m_largestSound, bytesPerSample};
        Bytes soundStream;
        putChunk(soundStream, "strh", sound.bytes());
        putChunk(soundStream, "strf", soundFormat(rateHz));
        putList(lists, "strl", soundStream);
    }

    Bytes out;
    putText(out, "RIFF");
    putLe(out, static_cast<std::uint32_t>(std::max<std::int64_t>(0, m_file.size() - 8)));
    putText(out, "AVI ");
    putList(out, "hdrl", lists);
    return out;
}

void AviWriter::putBeforeMovie(std::span<const std::uint8_t> chunks) { m_file.write(chunks); }

void AviWriter::beginMovie()
{
    if (m_movieStart != 0)
        return;
    Bytes list;
    putList(list, "movi", {});
    m_file.write(list);
    m_movieStart = m_file.size() - 4;
}

void AviWriter::putMovieChunk(Stream stream, std::span<const std::uint8_t> body)
{
    beginMovie();
    const std::string_view id = stream == Stream::Video ? "00dc" : "01wb";
    const auto size = static_cast<std::uint32_t>(body.size());
    putText(m_index, id);
    putLe(m_index, std::uint32_t{0x10}); // a key frame
    putLe(m_index, static_cast<std::uint32_t>(m_file.size() - m_movieStart));
    putLe(m_index, size);

    m_scratch.clear();
    putText(m_scratch, id);
    putLe(m_scratch, size);
    m_scratch.insert(m_scratch.end(), body.begin(), body.end());
    m_file.write(m_scratch);
}

void AviWriter::putFrame(std::span<const std::uint8_t> jpeg)
{
    putMovieChunk(Stream::Video, jpeg);
    ++m_frames;
    m_largestFrame = std::max(m_largestFrame, static_cast<std::uint32_t>(jpeg.size()));
}

void AviWriter::putSound(std::span<const std::int16_t> samples)
{
    Bytes body;
    body.reserve(samples.size_bytes());
    for (const std::int16_t sample : samples)
        putLe(body, sample);
    putMovieChunk(Stream::Sound, body);
    m_soundFrames += static_cast<std::uint32_t>(samples.size());
    m_largestSound = std::max(m_largestSound, static_cast<std::uint32_t>(body.size()));
}

void AviWriter::finish(std::span<const std::uint8_t> chunksAfterIndex)
{
    beginMovie();
    m_movieEnd = m_file.size();
    Bytes index;
    putChunk(index, "idx1", m_index);
    m_file.write(index);
    m_file.write(chunksAfterIndex);

    m_file.overwrite(0, header());
    Bytes movieSize;
    putLe(movieSize, static_cast<std::uint32_t>(m_movieEnd - m_movieStart));
    m_file.overwrite(m_movieStart - 4, movieSize);
}

} // namespace marvo::demo
