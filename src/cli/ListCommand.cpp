// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/Printable.h"
#include "media/MediaScan.h"
#include "support/JsonWriter.h"

#include <array>
#include <cstdio>
#include <optional>
#include <string>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command listCommand{
    "list", "the recordings in a folder and below it, oldest first",
    "Usage: marvo-cli list FOLDER [--json]\n"
    "\n"
    "Lists every recording in FOLDER and all folders below it, oldest first. Recordings are\n"
    "known by their names: alwa_, motion_ or event_ with date and time, extension avi.\n"
    "\n"
    "  --json   one array of objects: path, fileName, mediaDivision (0 always, 1 motion,\n"
    "           2 event), yyyymmddhhmiss (zeros when the name tells no time),\n"
    "           mediaDirection (0 front, 1 rear, 2 unknown). Bytes of a name that are not\n"
    "           UTF-8 become U+FFFD.\n"
    "  --       ends the options; FOLDER may then begin with a dash\n",
    run};

namespace {

enum class Format { Table, Json };

struct Request
{
    std::optional<std::string_view> folder;
    Format format = Format::Table;
};

/// Written in pieces, so that a list of thousands is not in memory once more as text.
bool writeJson(const std::vector<MRVMedia>& medias)
{
    static constexpr std::size_t pieceSize = 30000;
    JsonWriter json;
    json.beginArray();
    for (const MRVMedia& media : medias) {
        json.beginObject();
        json.member("path", media.path());
        json.member("fileName", media.fileName());
        json.member("mediaDivision", media.mediaDivision());
        json.member("yyyymmddhhmiss", media.yyyymmddhhmiss());
        json.member("mediaDirection", mediaDirection(media.path()));
        json.endObject();
        if (json.text().size() > pieceSize && !writeOut(json.take()))
            return false;
    }
    json.endArray();
    return writeOut(json.take() + '\n');
}

std::string asTable(const std::vector<MRVMedia>& medias)
{
    static constexpr std::array kinds = {"always", "motion", "event"};
    static constexpr std::array channels = {"front", "rear", "-"};

    std::string table;
    const auto row = [&](const char* date, const char* time, const char* kind, const char* channel) {
        std::array<char, 64> line;
        std::snprintf(line.data(), line.size(), "%-10s  %-8s  %-6s  %-7s  ", date, time, kind, channel);
        table += line.data();
    };
    row("Date", "Time", "Kind", "Channel");
    table += "File\n";
    for (const MRVMedia& media : medias) {
        std::array<char, 48> date{"-"};
        std::array<char, 48> time{"-"};
        if (media.year() != 0) {
            std::snprintf(date.data(), date.size(), "%04d-%02d-%02d", media.year(), media.month(),
                          media.day());
            std::snprintf(time.data(), time.size(), "%02d:%02d:%02d", media.hour(), media.minute(),
                          media.second());
        }
        row(date.data(), time.data(), kinds.at(static_cast<std::size_t>(media.mediaDivision())),
            channels.at(static_cast<std::size_t>(mediaDirection(media.path()))));
        table += printable(media.path()) + '\n';
    }
    return table;
}

ExitCode list(const Request& request)
{
    const std::string folder(*request.folder);
    const MediaScan scan = scanFolder(folder);
    const std::string reason = printable(folder) + ": " + scan.folderError.message();
    if (scan.folderError && scan.medias.empty())
        return failed(listCommand, reason);
    if (!(request.format == Format::Json ? writeJson(scan.medias) : writeOut(asTable(scan.medias))))
        return failed(listCommand, "the list could not be written");
    // The medium gave up half way: what it told is there, but the list is not whole.
    return scan.folderError ? failed(listCommand, reason) : Done;
}

ExitCode run(const Arguments& arguments)
{
    Request request;
    bool optionsEnded = false;
    for (const std::string_view argument : arguments) {
        if (!optionsEnded && argument == "--")
            optionsEnded = true;
        else if (!optionsEnded && argument == "--json")
            request.format = Format::Json;
        else if (!optionsEnded && argument.starts_with('-') && argument != "-")
            return wrongUsage(listCommand, "no option " + printable(argument));
        else if (request.folder)
            return wrongUsage(listCommand, "one folder, please");
        else
            request.folder = argument;
    }
    if (!request.folder)
        return wrongUsage(listCommand, "which folder?");
    return list(request);
}

} // namespace

} // namespace marvo::cli
