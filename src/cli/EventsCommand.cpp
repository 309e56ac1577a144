// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/DriveFiles.h"
#include "support/JsonWriter.h"
#include "support/PrintableText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>
#include <string>
#include <tuple>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command eventsCommand{
    "events", "impacts, hard braking and event recordings of a file or folder",
    "Usage: marvo-cli events FILE|FOLDER [--threshold X,Y,Z] [--json]\n"
    "\n"
    "Lists what happened in the recordings, by time: event and motion recordings, impacts of\n"
    "the G-sensor, hard braking and acceleration. Of a front and rear recording that belong\n"
    "together one is told of.\n"
    "\n"
    "  --threshold X,Y,Z  from which g on a reading is an impact: |x|, |y|, |z-1|;\n"
    "                     0.55,0.70,0.50 without it\n"
    "  --json             one array: recording, time (the camera's clock, or null), offsetMs,\n"
    "                     kind, strength (g, or null), lat, lng (or null)\n"
    "  --                 ends the options\n",
    run};

namespace {

struct Told
{
    std::optional<std::int64_t> timeMs;
    std::size_t recording;
    DriveEvent event;
};

void append(std::vector<Told>& told, const DriveFiles& files, std::size_t number,
            const std::vector<DriveEvent>& events)
{
    const DriveRecording& recording = files.recordings[number];
    for (const DriveEvent& event : events)
        told.push_back(
            {recording.name.time ? std::optional(recording.startMs() + event.offsetMs) : std::nullopt, number,
             event});
}

std::vector<Told> eventsOf(const DriveFiles& files)
{
    std::vector<Told> told;
    for (const Drive& drive : groupDrives(files.recordings)) {
        for (const Clip& clip : drive.clips) {
            const auto firstThat = [&](bool RecordingReading::*holds) -> std::optional<std::size_t> {
                for (const auto& number : {clip.front, clip.rear}) {
                    if (number && files.readings[*number].*holds)
                        return number;
                }
                return std::nullopt;
            };
            if (const auto number = firstThat(&RecordingReading::hasReading))
                append(told, files, *number, files.readings[*number].impacts);
            if (const auto number = firstThat(&RecordingReading::hasFix))
                append(told, files, *number, files.readings[*number].speeding);
            const std::size_t named = clip.front ? *clip.front : *clip.rear;
            const int kind = files.recordings[named].name.kind;
            if (kind == 1 || kind == 2)
                append(told, files, named,
                       {{.kind = kind == 2 ? DriveEvent::Kind::Event : DriveEvent::Kind::Motion,
                         .place = files.readings[named].firstFix}});
        }
    }
    using Order = std::tuple<std::int64_t, const std::string&, std::int64_t, DriveEvent::Kind>;
    std::ranges::sort(told, {}, [&](const Told& one) {
        return Order(one.timeMs.value_or(std::numeric_limits<std::int64_t>::max()),
                     files.recordings[one.recording].path, one.event.offsetMs, one.event.kind);
    });
    return told;
}

std::string jsonOf(const std::vector<Told>& told, const DriveFiles& files)
{
    JsonWriter json;
    const auto number = [&](std::string_view name, const std::optional<double>& value) {
        json.key(name);
        if (value)
            json.value(*value);
        else
            json.null();
    };
    json.beginArray();
    for (const Told& one : told) {
        json.beginObject();
        json.member("recording", files.recordings[one.recording].path);
        json.key("time");
        if (one.timeMs)
            json.value(clockTimeTextMs(*one.timeMs));
        else
            json.null();
        json.member("offsetMs", one.event.offsetMs);
        json.member("kind", eventKindName(one.event.kind));
        number("strength", one.event.strength);
        number("lat", one.event.place ? std::optional(one.event.place->latitude) : std::nullopt);
        number("lng", one.event.place ? std::optional(one.event.place->longitude) : std::nullopt);
        json.endObject();
    }
    json.endArray();
    return json.take() + '\n';
}

std::string tableOf(const std::vector<Told>& told, const DriveFiles& files)
{
    std::string table =
        "Time                     Kind          Strength  Place                   Recording\n";
    for (const Told& one : told) {
        std::array<char, 16> strength{"-"};
        if (one.event.strength)
            std::snprintf(strength.data(), strength.size(), "%.2f g", *one.event.strength);
        std::array<char, 40> place{"-"};
        if (one.event.place)
            std::snprintf(place.data(), place.size(), "%.5f, %.5f", one.event.place->latitude,
                          one.event.place->longitude);
        std::array<char, 160> row{};
        std::snprintf(row.data(), row.size(), "%-23s  %-12s  %8s  %-22s  ",
                      one.timeMs ? clockTimeTextMs(*one.timeMs).c_str() : "-", eventKindName(one.event.kind),
                      strength.data(), place.data());
        table.append(row.data()).append(printableText(files.recordings[one.recording].path)).push_back('\n');
    }
    return table;
}

/// "X,Y,Z"; none for anything else.
std::optional<ImpactThresholds> thresholdsOf(std::string_view text)
{
    std::array<double, 3> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const std::size_t comma = text.find(',');
        if ((comma == std::string_view::npos) != (i + 1 == numbers.size()))
            return std::nullopt;
        const std::string_view part = text.substr(0, comma);
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), numbers[i]);
        if (error != std::errc() || end != part.data() + part.size() || !std::isfinite(numbers[i]) ||
            numbers[i] < 0)
            return std::nullopt;
        text.remove_prefix(std::min(text.size(), part.size() + 1));
    }
    return ImpactThresholds{numbers[0], numbers[1], numbers[2]};
}

ExitCode run(const Arguments& arguments)
{
    std::optional<std::string_view> path;
    ReadingRequest request;
    bool asJson = false;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (!optionsEnded && argument == "--") {
            optionsEnded = true;
        } else if (!optionsEnded && argument == "--json") {
            asJson = true;
        } else if (!optionsEnded && argument == "--threshold") {
            const auto thresholds = i + 1 < arguments.size() ? thresholdsOf(arguments[++i]) : std::nullopt;
            if (!thresholds)
                return wrongUsage(eventsCommand, "--threshold needs three numbers: X,Y,Z");
            request.thresholds = *thresholds;
        } else if (!optionsEnded && argument.starts_with('-') && argument != "-") {
            return wrongUsage(eventsCommand, "no option " + std::string(argument));
        } else if (path) {
            return wrongUsage(eventsCommand, "one file or folder, please");
        } else {
            path = argument;
        }
    }
    if (!path)
        return wrongUsage(eventsCommand, "which file or folder?");
    const std::string given(*path);
    const DriveFiles files = readDriveFiles(given, request);
    if (files.error && files.recordings.empty())
        return failed(eventsCommand, given + ": " + files.error.message());
    const std::vector<Told> told = eventsOf(files);
    if (!writeOut(asJson ? jsonOf(told, files) : tableOf(told, files)))
        return failed(eventsCommand, "the events could not be written");
    return files.error ? failed(eventsCommand, given + ": " + files.error.message()) : Done;
}

} // namespace

} // namespace marvo::cli
