// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/DriveFiles.h"
#include "media/RecordingKinds.h"
#include "support/JsonWriter.h"
#include "support/PrintableText.h"

#include <array>
#include <cstdio>
#include <optional>
#include <string>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command drivesCommand{
    "drives", "the recordings of a folder, grouped into drives",
    "Usage: marvo-cli drives FOLDER [--json]\n"
    "\n"
    "Groups the recordings in FOLDER and all folders below it into drives: front and rear\n"
    "recordings that begin within two seconds are one clip; a pause of over five minutes\n"
    "ends a drive. Recordings whose names tell no time stand last, in a group of their own.\n"
    "\n"
    "  --json   one array of drives: start, end (the camera's clock), distanceM and\n"
    "           topSpeedKmh (null without a fix), clips: front, rear (paths or null), kind\n"
    "           (0 always, 1 motion, 2 event), start, durationMs.\n"
    "  --       ends the options; FOLDER may then begin with a dash\n",
    run};

namespace {

struct DriveFacts
{
    std::optional<double> distanceMetres;
    std::optional<double> topSpeedKmh;
    int damaged = 0;
};

DriveFacts factsOf(const Drive& drive, const DriveFiles& files)
{
    DriveFacts facts;
    for (const Clip& clip : drive.clips) {
        const RecordingReading* told = nullptr;
        for (const auto& number : {clip.front, clip.rear}) {
            if (!number)
                continue;
            const RecordingReading& reading = files.readings[*number];
            facts.damaged += reading.isDamaged ? 1 : 0;
            if (told == nullptr && reading.hasFix)
                told = &reading;
        }
        if (told == nullptr)
            continue;
        facts.distanceMetres = facts.distanceMetres.value_or(0) + told->distanceMetres;
        if (told->topSpeedKmh && !(facts.topSpeedKmh > told->topSpeedKmh))
            facts.topSpeedKmh = told->topSpeedKmh;
    }
    return facts;
}

template <typename Value>
void member(JsonWriter& json, std::string_view name, const std::optional<Value>& value)
{
    json.key(name);
    if (value)
        json.value(*value);
    else
        json.null();
}

std::optional<std::string> pathOf(const DriveFiles& files, const std::optional<std::size_t>& number)
{
    return number ? std::optional(files.recordings[*number].path) : std::nullopt;
}

std::optional<std::string> startText(const Clip& clip, const DriveFiles& files)
{
    const DriveRecording& first = files.recordings[clip.first(files.recordings)];
    return first.name.time ? std::optional(digitsText(*first.name.time)) : std::nullopt;
}

std::string jsonOf(const std::vector<Drive>& drives, const DriveFiles& files)
{
    JsonWriter json;
    json.beginArray();
    for (const Drive& drive : drives) {
        const DriveFacts facts = factsOf(drive, files);
        json.beginObject();
        member(json, "start", drive.hasTime ? startText(drive.clips.front(), files) : std::nullopt);
        member(json, "end", drive.hasTime ? std::optional(clockTimeText(drive.endMs)) : std::nullopt);
        member(json, "distanceM", facts.distanceMetres);
        member(json, "topSpeedKmh", facts.topSpeedKmh);
        json.key("clips");
        json.beginArray();
        for (const Clip& clip : drive.clips) {
            json.beginObject();
            member(json, "front", pathOf(files, clip.front));
            member(json, "rear", pathOf(files, clip.rear));
            json.member("kind", files.recordings[clip.first(files.recordings)].name.kind);
            member(json, "start", startText(clip, files));
            json.member("durationMs", clip.endMs - clip.startMs);
            json.endObject();
        }
        json.endArray();
        json.endObject();
    }
    json.endArray();
    return json.take() + '\n';
}

std::string tableOf(const std::vector<Drive>& drives, const DriveFiles& files)
{
    std::string table = "Start                End                  Clips  Damaged  Distance   Top speed\n";
    for (const Drive& drive : drives) {
        const DriveFacts facts = factsOf(drive, files);
        const std::string start = drive.hasTime ? startText(drive.clips.front(), files).value_or("-") : "-";
        const std::string end = drive.hasTime ? clockTimeText(drive.endMs) : "-";
        std::array<char, 32> distance{"-"};
        std::array<char, 32> speed{"-"};
        if (facts.distanceMetres)
            std::snprintf(distance.data(), distance.size(), "%.1f km", *facts.distanceMetres / 1000);
        if (facts.topSpeedKmh)
            std::snprintf(speed.data(), speed.size(), "%.0f km/h", *facts.topSpeedKmh);
        std::array<char, 160> row{};
        std::snprintf(row.data(), row.size(), "%-19s  %-19s  %5zu  %7d  %9s  %10s\n", start.c_str(),
                      end.c_str(), drive.clips.size(), facts.damaged, distance.data(), speed.data());
        table += row.data();
    }
    return table;
}

ExitCode run(const Arguments& arguments)
{
    std::optional<std::string_view> folder;
    bool asJson = false;
    bool optionsEnded = false;
    for (const std::string_view argument : arguments) {
        if (!optionsEnded && argument == "--")
            optionsEnded = true;
        else if (!optionsEnded && argument == "--json")
            asJson = true;
        else if (!optionsEnded && argument.starts_with('-') && argument != "-")
            return wrongUsage(drivesCommand, "no option " + std::string(argument));
        else if (folder)
            return wrongUsage(drivesCommand, "one folder, please");
        else
            folder = argument;
    }
    if (!folder)
        return wrongUsage(drivesCommand, "which folder?");
    const std::string path(*folder);
    const DriveFiles files = readDriveFiles(path, {});
    if (files.error && files.recordings.empty())
        return failed(drivesCommand, path + ": " + files.error.message());
    const std::vector<Drive> drives = groupDrives(files.recordings);
    if (!writeOut(asJson ? jsonOf(drives, files) : tableOf(drives, files)))
        return failed(drivesCommand, "the drives could not be written");
    return files.error ? failed(drivesCommand, path + ": " + files.error.message()) : Done;
}

} // namespace

} // namespace marvo::cli
