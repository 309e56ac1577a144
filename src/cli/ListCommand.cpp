// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "media/MediaScan.h"
#include "media/RecordingKinds.h"
#include "support/JsonWriter.h"
#include "support/PrintableText.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

} // namespace

const Command listCommand{
    "list", "list the recordings in a folder and below it, oldest first",
    "Usage: marvo-cli list FOLDER [--json]\n"
    "\n"
    "Lists every recording in FOLDER and all folders below it, oldest first. Recordings are\n"
    "recognised by their names: alwa_, motion_ or event_ with date and time, extension avi.\n"
    "\n"
    "  --json   one array of objects: path, fileName, mediaDivision (0 always, 1 motion,\n"
    "           2 event), yyyymmddhhmiss (zeros when the name has no time),\n"
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

constexpr std::size_t pieceSize = 30000;

/// Written in pieces, so that a long list is not in memory again as text.
bool writeJson(const std::vector<MRVMedia>& medias)
{
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
        if (json.text().size() > pieceSize) {
            if (!writeOut(json.text()))
                return false;
            json.drop();
        }
    }
    json.endArray();
    return writeOut(json.take() + '\n');
}

void appendPadded(std::string& text, std::string_view cell, std::size_t width)
{
    text.append(cell).append(width - std::min(width, cell.size()) + 2, ' ');
}

/// As the JSON, in pieces.
bool writeTable(const std::vector<MRVMedia>& medias)
{
    static constexpr std::array<std::string_view, 3> channels = {"front", "rear", "-"};

    std::string table;
    const auto row = [&](std::string_view date, std::string_view time, std::string_view kind,
                         std::string_view channel) {
        appendPadded(table, date, 10);
        appendPadded(table, time, 8);
        appendPadded(table, kind, 6);
        appendPadded(table, channel, 7);
    };
    row("Date", "Time", "Kind", "Channel");
    table += "File\n";
    for (const MRVMedia& media : medias) {
        std::string date = "-";
        std::string time = "-";
        if (media.year() != 0) {
            const std::string digits = media.yyyymmddhhmiss();
            date = digits.substr(0, 8).insert(6, 1, '-').insert(4, 1, '-');
            time = digits.substr(8).insert(4, 1, ':').insert(2, 1, ':');
        }
        row(date, time, recordingKinds.at(static_cast<std::size_t>(media.mediaDivision())).name,
            channels.at(static_cast<std::size_t>(mediaDirection(media.path()))));
        table.append(printableText(media.path())).push_back('\n');
        if (table.size() > pieceSize) {
            if (!writeOut(table))
                return false;
            table.clear();
        }
    }
    return writeOut(table);
}

ExitCode list(const Request& request)
{
    const std::string folder(*request.folder);
    const MediaScan scan = scanFolder(folder);
    const std::string reason = printableText(folder) + ": " + scan.folderError.message();
    if (scan.folderError && scan.medias.empty())
        return failed(listCommand, reason);
    if (!(request.format == Format::Json ? writeJson(scan.medias) : writeTable(scan.medias)))
        return failed(listCommand, "the list could not be written");
    // The medium failed halfway: the list is printed, but it is not complete.
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
            return wrongUsage(listCommand, "no option " + printableText(argument));
        else if (request.folder)
            return wrongUsage(listCommand, "takes one FOLDER");
        else
            request.folder = argument;
    }
    if (!request.folder)
        return wrongUsage(listCommand, "FOLDER is missing");
    return list(request);
}

} // namespace

} // namespace marvo::cli
