// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "drives/Drives.h"

#include <algorithm>
#include <tuple>

namespace marvo {

namespace {

using Recordings = std::vector<DriveRecording>;

struct Pair
{
    std::int64_t difference;
    std::int64_t earlier;
    std::size_t front;
    std::size_t rear;
};

std::vector<Pair> possiblePairs(const Recordings& recordings)
{
    struct Entry
    {
        std::int64_t startMs;
        std::size_t number;
    };
    std::vector<Entry> fronts;
    std::vector<Entry> rears;
    for (std::size_t i = 0; i < recordings.size(); ++i) {
        if (recordings[i].name.time)
            (recordings[i].name.isRear ? rears : fronts).push_back({recordings[i].startMs(), i});
    }
    std::ranges::sort(rears, {}, &Entry::startMs);
    std::vector<Pair> pairs;
    for (const Entry& front : fronts) {
        auto rear = std::ranges::lower_bound(rears, front.startMs - longestPairOffsetMs, {}, &Entry::startMs);
        for (; rear != rears.end() && rear->startMs <= front.startMs + longestPairOffsetMs; ++rear) {
            if (recordings[front.number].name.kind == recordings[rear->number].name.kind)
                pairs.push_back({std::abs(front.startMs - rear->startMs),
                                 std::min(front.startMs, rear->startMs), front.number, rear->number});
        }
    }
    std::ranges::sort(pairs, {}, [&](const Pair& pair) {
        return std::tuple<std::int64_t, std::int64_t, const std::string&, const std::string&>(
            pair.difference, pair.earlier, recordings[pair.front].path, recordings[pair.rear].path);
    });
    return pairs;
}

Clip clipOf(const Recordings& recordings, std::optional<std::size_t> front, std::optional<std::size_t> rear)
{
    Clip clip{front, rear};
    bool isFirst = true;
    for (const auto& number : {front, rear}) {
        if (!number)
            continue;
        const DriveRecording& recording = recordings[*number];
        const std::int64_t start = recording.name.time ? recording.startMs() : 0;
        const std::int64_t end = start + recording.durationMs;
        clip.startMs = isFirst ? start : std::min(clip.startMs, start);
        clip.endMs = isFirst ? end : std::max(clip.endMs, end);
        isFirst = false;
    }
    return clip;
}

} // namespace

std::size_t Clip::first(const Recordings& recordings) const
{
    if (!front || !rear)
        return front ? *front : *rear;
    return recordings[*rear].startMs() < recordings[*front].startMs() ? *rear : *front;
}

std::vector<Drive> groupDrives(const Recordings& recordings)
{
    std::vector<bool> isTaken(recordings.size());
    std::vector<Clip> clips;
    for (const Pair& pair : possiblePairs(recordings)) {
        if (isTaken[pair.front] || isTaken[pair.rear])
            continue;
        isTaken[pair.front] = isTaken[pair.rear] = true;
        clips.push_back(clipOf(recordings, pair.front, pair.rear));
    }
    Drive timeless{.hasTime = false};
    for (std::size_t i = 0; i < recordings.size(); ++i) {
        if (isTaken[i])
            continue;
        const bool isRear = recordings[i].name.isRear;
        const Clip clip = clipOf(recordings, isRear ? std::nullopt : std::optional(i),
                                 isRear ? std::optional(i) : std::nullopt);
        (recordings[i].name.time ? clips : timeless.clips).push_back(clip);
    }
    std::ranges::sort(clips, {}, [&](const Clip& clip) {
        const DriveRecording& named = recordings[clip.front ? *clip.front : *clip.rear];
        return std::tuple<std::int64_t, int, const std::string&>(clip.startMs, -named.name.kind, named.path);
    });

    std::vector<Drive> drives;
    for (const Clip& clip : clips) {
        if (drives.empty() || clip.startMs > drives.back().endMs + longestPauseMs)
            drives.push_back({.startMs = clip.startMs, .endMs = clip.endMs});
        drives.back().clips.push_back(clip);
        drives.back().endMs = std::max(drives.back().endMs, clip.endMs);
    }
    if (!timeless.clips.empty())
        drives.push_back(std::move(timeless));
    return drives;
}

} // namespace marvo
