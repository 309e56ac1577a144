// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "film/preview/Preview.h"

#include "film/ClipIndexReading.h"
#include "film/preview/PictureDecoder.h"
#include "support/FileSource.h"

#include <algorithm>
#include <cstring>
#include <fcntl.h>
#include <list>
#include <unistd.h>

namespace marvo {

namespace {
constexpr std::size_t mostIndexes = 8;
constexpr std::size_t formatBytes = 40;
/// More than this between two key pictures is no film of a camera's.
constexpr std::size_t mostPictures = 600;
constexpr std::uint64_t mostBytes = 64 * 1024 * 1024;
} // namespace

struct Preview::Indexes
{
    struct Known
    {
        std::string path;
        std::uint64_t fileBytes;
        std::shared_ptr<const ClipIndex> index;
    };
    std::mutex mutex;
    std::list<Known> known; ///< the one asked about last comes first

    std::shared_ptr<const ClipIndex> of(const std::string& path, FileSource& file)
    {
        {
            const std::scoped_lock lock(mutex);
            const auto found = std::ranges::find_if(
                known, [&](const Known& one) { return one.path == path && one.fileBytes == file.size(); });
            if (found != known.end()) {
                known.splice(known.begin(), known, found);
                return found->index;
            }
        }
        auto index = std::make_shared<const ClipIndex>(readClipIndex(file, file.size()));
        const std::scoped_lock lock(mutex);
        known.push_front({path, file.size(), index});
        if (known.size() > mostIndexes)
            known.pop_back();
        return index;
    }
};

Preview::Preview(QObject* parent) : QObject(parent), m_indexes(std::make_shared<Indexes>()) {}

void Preview::request(const std::string& path, std::int64_t offsetMs, QSize within)
{
    m_latest.start(
        [indexes = m_indexes, path, offsetMs, within](const LatestRun& run) {
            return make(*indexes, path, offsetMs, within, run.stopToken());
        },
        [this, path](const Result& result) { Q_EMIT came(result.picture, path, result.offsetMs); });
}

void Preview::cancel() { m_latest.abandon(); }

Preview::Result Preview::make(Indexes& indexes, const std::string& path, std::int64_t offsetMs, QSize within,
                              const std::stop_token& stop)
{
    // The system would read ahead some hundred kilobytes of each place.
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    if (descriptor < 0)
        return {};
    ::posix_fadvise(descriptor, 0, 0, POSIX_FADV_RANDOM);
    FileSource file(descriptor); // closes it
    const PictureDecoder* decoder = pictureDecoder();
    if (!file.isOpen() || decoder == nullptr || stop.stop_requested())
        return {};
    const auto index = indexes.of(path, file);
    const auto video = std::ranges::find(index->streams, ClipStream::Kind::Video, &ClipStream::kind);
    if (video == index->streams.end() || video->scale == 0 || video->rate == 0 ||
        video->format.size() < formatBytes)
        return {};
    std::vector<const ClipChunk*> pictures;
    for (const ClipChunk& chunk : index->chunks) {
        if (chunk.stream == video - index->streams.begin())
            pictures.push_back(&chunk);
    }
    if (pictures.empty())
        return {};
    // Picture n begins at n * scale / rate seconds, cut to milliseconds as a film has it.
    const double pictureMs = 1000.0 * video->scale / video->rate;
    const auto beginsAt = [&](std::size_t n) {
        return static_cast<std::int64_t>(static_cast<double>(n) * pictureMs + 1e-6);
    };
    auto number = static_cast<std::size_t>(std::clamp(static_cast<double>(offsetMs + 1) / pictureMs, 0.0,
                                                      static_cast<double>(pictures.size() - 1)));
    if (number > 0 && beginsAt(number) > offsetMs)
        --number;
    std::size_t key = number;
    while (key > 0 && !(pictures[key]->isKey && pictures[key]->size > 0))
        --key;
    if (number - key > mostPictures)
        return {};
    CodedPictures coded;
    std::memcpy(coded.codec.data(), video->format.data() + 16, coded.codec.size());
    coded.setUp.assign(video->format.begin() + formatBytes, video->format.end());
    std::uint64_t bytes = 0;
    for (std::size_t n = key; n <= number && !stop.stop_requested(); ++n) {
        bytes += pictures[n]->size;
        if (bytes > mostBytes)
            return {};
        std::vector<std::uint8_t> picture(pictures[n]->size);
        if (file.readAt(pictures[n]->offset, std::as_writable_bytes(std::span(picture))) < picture.size())
            return {};
        if (!picture.empty()) // else it repeats the one before
            coded.pictures.push_back(std::move(picture));
    }
    return {decoder->decodeLast(coded, within, stop), beginsAt(number)};
}

} // namespace marvo
