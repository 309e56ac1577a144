// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/cut/FilmCutting.h"

#include "film/ClipIndexReading.h"
#include "film/cut/AviFileWriter.h"
#include "film/cut/DataAreaCutting.h"
#include "support/FileSource.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace marvo {

namespace {

constexpr std::size_t progressStep = 64; // chunks

/// A film that is open for copying.
struct OpenFilm
{
    explicit OpenFilm(const std::string& path) : file(path)
    {
        if (!file.isOpen())
            return;
        index = readClipIndex(file, file.size());
        layout = readAviLayout(file, file.size(), index);
    }

    /// What keeps it from being copied.
    CutResult check() const
    {
        CutResult result;
        if (!file.isOpen() || file.errorNumber() != 0) {
            result.fault = CutFault::CannotRead;
            result.error = {std::max(file.errorNumber(), 0), std::generic_category()};
        } else if (!index.video || !layout.hasHeader() || pictures() == 0) {
            result.fault = CutFault::NoFilm;
        } else if (video().scale == 0 || video().rate == 0) {
            result.fault = CutFault::NoRate;
        }
        return result;
    }
    const ClipStream& video() const { return index.streams[*index.video]; }
    std::uint64_t pictures() const
    {
        return static_cast<std::uint64_t>(std::ranges::count(index.chunks, *index.video, &ClipChunk::stream));
    }
    /// Of so many pictures, cut to whole ms.
    std::int64_t lengthMs(std::uint64_t count) const
    {
        return static_cast<std::int64_t>(static_cast<double>(count) * 1000 * video().scale / video().rate);
    }

    FileSource file;
    ClipIndex index;
    AviLayout layout;
};

CutResult failure(CutResult result, const std::error_code& error, const FileSource& source)
{
    result.error = error;
    if (error == std::errc::operation_canceled) {
        result.fault = CutFault::Stopped;
    } else if (source.errorNumber() != 0 || error == std::errc::io_error) {
        result.fault = CutFault::CannotRead;
        if (source.errorNumber() > 0)
            result.error = {source.errorNumber(), std::generic_category()};
    } else {
        result.fault = CutFault::CannotWrite;
    }
    return result;
}

/// What is taken of one chunk.
struct Piece
{
    const ClipChunk* chunk;
    FileRange part;
};

std::error_code writePieces(AviFileWriter& writer, FileSource& file, const std::vector<Piece>& pieces,
                            const CutOptions& options)
{
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        if (const std::error_code error = writer.addChunk(file, *pieces[i].chunk, pieces[i].part))
            return error;
        if (options.progress && i % progressStep == 0)
            options.progress(static_cast<double>(i) / static_cast<double>(pieces.size()));
    }
    return writer.endMovie();
}

/// The part of a piece of sound between two times; PCM is cut to the sample (WAVEFORMATEX: format at 0, bytes
/// a second at 8, bytes of a sample of all channels at 12).
class SoundCut
{
public:
    SoundCut(const ClipStream& stream, double fromMs, double toMs) : m_fromMs(fromMs), m_toMs(toMs)
    {
        if (stream.format.size() < 14)
            return;
        const auto at = [&](std::size_t i) { return std::uint32_t{stream.format[i]}; };
        m_bytesPerSecond = at(8) | at(9) << 8 | at(10) << 16 | at(11) << 24;
        m_isPcm = at(0) == 1 && at(1) == 0;
        m_sampleBytes = std::max(1U, at(12) | at(13) << 8);
    }

    FileRange next(const ClipChunk& chunk)
    {
        if (m_bytesPerSecond == 0)
            return {};
        const std::uint64_t begin = m_bytes;
        m_bytes += chunk.size;
        if (!m_isPcm) {
            const double atMs = static_cast<double>(begin) * 1000 / m_bytesPerSecond;
            return atMs >= m_fromMs && atMs < m_toMs ? FileRange{chunk.offset, chunk.size} : FileRange{};
        }
        const std::uint64_t from = std::clamp(byteAt(m_fromMs), begin, m_bytes);
        const std::uint64_t to = std::clamp(byteAt(m_toMs), from, m_bytes);
        return {chunk.offset + (from - begin), to - from};
    }

private:
    std::uint64_t byteAt(double ms) const
    {
        return static_cast<std::uint64_t>(ms * m_bytesPerSecond / 1000) / m_sampleBytes * m_sampleBytes;
    }

    double m_fromMs;
    double m_toMs;
    std::uint32_t m_bytesPerSecond = 0;
    std::uint32_t m_sampleBytes = 1;
    std::uint64_t m_bytes = 0;
    bool m_isPcm = false;
};

/// The pictures of a range, by their numbers.
struct PictureRange
{
    std::uint64_t from = 0;
    std::uint64_t end = 0;
};

/// From the key picture that is needed for the first on; none where nothing is asked for.
std::optional<PictureRange> picturesOf(const OpenFilm& film, std::int64_t fromMs, std::int64_t toMs)
{
    const double perMs = static_cast<double>(film.video().rate) / film.video().scale / 1000;
    const auto count = static_cast<double>(film.pictures());
    const double first = std::floor(static_cast<double>(std::max<std::int64_t>(fromMs, 0)) * perMs + 1e-6);
    const double end = std::min(std::ceil(static_cast<double>(toMs) * perMs - 1e-6), count);
    if (!(first < end))
        return std::nullopt;
    PictureRange range{0, static_cast<std::uint64_t>(end)};
    std::uint64_t number = 0;
    for (const ClipChunk& chunk : film.index.chunks) {
        if (chunk.stream != *film.index.video)
            continue;
        if (chunk.isKey && static_cast<double>(number) <= first)
            range.from = number;
        ++number;
    }
    return range;
}

std::vector<Piece> piecesOf(const OpenFilm& film, const PictureRange& range, bool withSound)
{
    std::vector<SoundCut> sounds;
    const double pictureMs = 1000.0 * film.video().scale / film.video().rate;
    for (const ClipStream& stream : film.index.streams)
        sounds.emplace_back(stream, static_cast<double>(range.from) * pictureMs,
                            static_cast<double>(range.end) * pictureMs);
    std::vector<Piece> pieces;
    std::uint64_t number = 0;
    for (const ClipChunk& chunk : film.index.chunks) {
        if (chunk.stream == *film.index.video) {
            if (number >= range.from && number < range.end)
                pieces.push_back({&chunk, {chunk.offset, chunk.size}});
            ++number;
        } else if (withSound && film.index.streams[chunk.stream].kind == ClipStream::Kind::Sound) {
            if (const FileRange part = sounds[chunk.stream].next(chunk); part.size > 0)
                pieces.push_back({&chunk, part});
        }
    }
    return pieces;
}

} // namespace

CutResult repairRecording(const std::string& path, const std::string& out, const CutOptions& options)
{
    OpenFilm film(path);
    CutResult result = film.check();
    if (result.fault != CutFault::None)
        return result;
    std::vector<Piece> pieces;
    for (const ClipChunk& chunk : film.index.chunks)
        pieces.push_back({&chunk, {chunk.offset, chunk.size}});

    AviFileWriter writer(options.stop);
    std::error_code error = writer.begin(out, film.layout, film.index);
    if (!error)
        error = writer.copy(film.file, film.layout.beforeMovie);
    if (!error)
        error = writePieces(writer, film.file, pieces, options);
    if (!error)
        error = writer.copy(film.file, film.layout.afterMovie);
    if (!error)
        error = writer.commit();
    if (error)
        return failure(result, error, film.file);
    result.pictures = writer.pictures();
    result.lengthMs = film.lengthMs(result.pictures);
    return result;
}

CutResult cutClip(const std::string& path, std::int64_t fromMs, std::int64_t toMs, const std::string& out,
                  const CutOptions& options)
{
    OpenFilm film(path);
    CutResult result = film.check();
    if (result.fault != CutFault::None)
        return result;
    const auto range = picturesOf(film, fromMs, toMs);
    if (!range) {
        result.fault = CutFault::NothingThere;
        return result;
    }
    const double pictureMs = 1000.0 * film.video().scale / film.video().rate;
    const DataAreaCut data =
        cutDataArea(film.file, static_cast<double>(range->from) / static_cast<double>(film.pictures()),
                    static_cast<double>(range->end) / static_cast<double>(film.pictures()), options.stop);

    AviFileWriter writer(options.stop);
    std::error_code error = writer.begin(out, film.layout, film.index);
    if (!error)
        error = writePieces(writer, film.file, piecesOf(film, *range, options.withSound), options);
    if (!error)
        error = writer.put(data.chunk);
    if (!error)
        error = writer.commit();
    if (error)
        return failure(result, error, film.file);
    result.pictures = writer.pictures();
    result.lengthMs = film.lengthMs(result.pictures);
    result.earlierMs = std::max<std::int64_t>(
        0, std::max<std::int64_t>(fromMs, 0) -
               static_cast<std::int64_t>(static_cast<double>(range->from) * pictureMs));
    result.readings = data.readings;
    return result;
}

} // namespace marvo
