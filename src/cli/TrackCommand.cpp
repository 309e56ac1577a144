// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "evidence/Track.h"
#include "evidence/TrackText.h"
#include "media/MediaName.h"
#include "media/MediaScan.h"
#include "support/AtomicFile.h"
#include "support/FileSource.h"
#include "support/PrintableText.h"

#include <sys/stat.h>

#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& words);

} // namespace

const Command trackCommand{
    "track", "writes where recordings were made as GPX, GeoJSON, KML or CSV",
    "Usage: marvo-cli track FILE|FOLDER --format gpx|geojson|kml|csv OUT|-\n"
    "\n"
    "Writes the track of one recording, or of all recordings in a folder, oldest first. Of two channels of "
    "a\n"
    "recording the front one is read. A new segment begins where fixes are missing. Times are written only "
    "where\n"
    "the recording's sentences tell GPS time.\n"
    "\n"
    "  --format gpx      GPX 1.1 with speed and course over ground\n"
    "           geojson  a MultiLineString; a single fix is a Point\n"
    "           kml      KML 2.2 with gx:Track\n"
    "           csv      a line for each reading of the G-sensor, with the fix that belongs to it\n"
    "\n"
    "Exit code: 0 done, also when no place is known; 1 when a file cannot be read or written; 2 wrong "
    "usage.\n",
    run};

namespace {

struct TrackArguments
{
    std::string source;
    std::string out;
    std::optional<TrackFormat> format;
};

std::optional<TrackArguments> parse(const Arguments& words)
{
    const auto refused = [](const std::string& message) {
        wrongUsage(trackCommand, message);
        return std::nullopt;
    };
    TrackArguments result;
    std::vector<std::string> paths;
    bool optionsEnded = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const bool isOption = !optionsEnded && words[i].size() > 1 && words[i].front() == '-';
        if (isOption && words[i] == "--") {
            optionsEnded = true;
        } else if (isOption && words[i] == "--format") {
            result.format = ++i < words.size() ? trackFormatNamed(words[i]) : std::nullopt;
            if (!result.format)
                return refused("--format takes gpx, geojson, kml or csv");
        } else if (isOption) {
            return refused("no option '" + printableText(words[i]) + "'");
        } else {
            paths.emplace_back(words[i]);
        }
    }
    if (paths.size() != 2 || paths[0].empty() || paths[1].empty())
        return refused("takes FILE or FOLDER, and OUT");
    if (!result.format)
        return refused("--format is missing");
    result.source = paths[0];
    result.out = paths[1];
    return result;
}

/// The recordings to read; of two channels of one recording the first one, which is the front.
std::vector<std::string> recordingsIn(const MediaScan& scan)
{
    std::set<std::string> fronts;
    for (const MRVMedia& media : scan.medias) {
        if (isFrontMedia(media.path()))
            fronts.insert(std::string(media.dir()) + "/" + media.mediaGroupName());
    }
    std::vector<std::string> paths;
    for (const MRVMedia& media : scan.medias) {
        if (!isRearMedia(media.path()) ||
            !fronts.contains(std::string(media.dir()) + "/" + media.mediaGroupName()))
            paths.push_back(media.path());
    }
    return paths;
}

bool isSameFile(const std::string& a, const std::string& b)
{
    struct stat first;
    struct stat second;
    return ::stat(a.c_str(), &first) == 0 && ::stat(b.c_str(), &second) == 0 &&
           first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

ExitCode run(const Arguments& words)
{
    const auto arguments = parse(words);
    if (!arguments)
        return WrongUsage;
    struct stat facts;
    std::vector<std::string> paths{arguments->source};
    if (::stat(arguments->source.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode)) {
        const MediaScan scan = scanFolder(arguments->source);
        if (scan.folderError)
            return failed(trackCommand, "cannot list " + printableText(arguments->source) + ": " +
                                            scan.folderError.message());
        paths = recordingsIn(scan);
    }
    std::vector<RecordingTrack> tracks;
    bool isAllRead = true;
    for (const std::string& path : paths) {
        // What the camera recorded is never written to.
        if (isSameFile(path, arguments->out))
            return failed(trackCommand, printableText(arguments->out) + " is a recording");
        FileSource source(path);
        if (source.isOpen())
            tracks.push_back(readTrack(source, path.substr(path.rfind('/') + 1)));
        if (!source.error().empty()) {
            failed(trackCommand, "cannot read " + printableText(path) + ": " + source.error());
            isAllRead = false;
        }
    }
    if (paths.size() == 1 && tracks.empty())
        return Failed;
    const std::string_view source = arguments->source;
    const std::string text = trackText(tracks, *arguments->format, source.substr(source.rfind('/') + 1));
    if (arguments->out == "-") {
        if (!writeOut(text))
            return failed(trackCommand, "the result could not be written");
    } else if (const std::error_code error = writeFileAtomically(arguments->out, text)) {
        return failed(trackCommand, "cannot write " + printableText(arguments->out) + ": " + error.message());
    }
    if (*arguments->format != TrackFormat::Csv && segmentsOf(tracks).empty())
        std::fputs("marvo-cli track: no place is known\n", stderr);
    return isAllRead ? Done : Failed;
}

} // namespace

} // namespace marvo::cli
