// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "card/CardContents.h"
#include "cli/Commands.h"
#include "cli/LongWork.h"
#include "drives/RecordingTime.h"
#include "report/CardReport.h"
#include "support/JsonWriter.h"
#include "support/PrintableText.h"

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& words);

} // namespace

const Command reportCommand{
    "report", "tells how a card fares",
    "Usage: marvo-cli report CARD [--json]\n"
    "\n"
    "Looks through a card, or a copy of one: how many recordings of each kind there are and how long they "
    "are,\n"
    "which are damaged and why, films that the recording list leaves out, gaps inside drives, how long until "
    "the\n"
    "camera overwrites, its clock beside GPS time, and the settings that differ from a new camera's.\n"
    "Nothing is written.\n"
    "\n"
    "Exit code: 0 done, also with damaged recordings; 1 when the card cannot be read to its end; 2 wrong "
    "usage.\n",
    run};

namespace {

std::string lengthText(std::int64_t seconds)
{
    char text[48];
    std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", static_cast<long long>(seconds / 3600),
                  static_cast<long long>(seconds / 60 % 60), static_cast<long long>(seconds % 60));
    return text;
}

std::string_view reasonText(DamagedRecording::Why why)
{
    return why == DamagedRecording::Why::Unplayable
               ? "no picture can be shown"
               : "its header or index tells of another number of pictures than there are";
}

std::string clockText(const ClockReport& clock)
{
    char text[96];
    const std::int64_t minutes = std::llabs(clock.zoneMinutes);
    std::snprintf(text, sizeof text, "UTC%c%02lld:%02lld, %lld.%lld s %s", clock.zoneMinutes < 0 ? '-' : '+',
                  static_cast<long long>(minutes / 60), static_cast<long long>(minutes % 60),
                  std::llabs(clock.errorMs) / 1000, std::llabs(clock.errorMs) / 100 % 10,
                  clock.errorMs < 0 ? "behind" : "ahead");
    return std::string(text) + (std::llabs(clock.errorMs) >= 5000 ? "; set the clock" : "");
}

std::string tableOf(const CardReport& report)
{
    std::string text = "Kind      Recordings     Length        Size  Until overwritten\n";
    for (const KindReport& kind : report.kinds) {
        char row[160];
        std::snprintf(row, sizeof row, "%-8.*s  %10zu  %9s  %10s  %s\n", static_cast<int>(kind.name.size()),
                      kind.name.data(), kind.count, lengthText(kind.lengthMs / 1000).c_str(),
                      decimalSizeString(kind.bytes).c_str(),
                      kind.secondsLeft ? lengthText(*kind.secondsLeft).c_str() : "not known");
        text += row;
    }
    std::int64_t lostMs = 0;
    for (const DriveGap& gap : report.gaps)
        lostMs += gap.lengthMs;
    text += "\nDrives    " + std::to_string(report.drives) + ", " + std::to_string(report.gaps.size()) +
            " gaps, " + std::to_string(lostMs / 1000) + " s lost\n";
    for (const DriveGap& gap : report.gaps)
        text += "  " + clockTimeText(gap.startMs) + "  " + std::to_string(gap.lengthMs / 1000) + " s\n";
    text += "Damaged   " + std::to_string(report.damaged.size()) + "\n";
    for (const DamagedRecording& recording : report.damaged)
        text += "  " + printableText(recording.path) + ": " + std::string(reasonText(recording.why)) + "\n";
    text += "Left out  " + std::to_string(report.leftOut.size()) + "\n";
    for (const std::string& path : report.leftOut)
        text += "  " + printableText(path) + "\n";
    text += "Clock     " + (report.clock ? clockText(*report.clock) : std::string("not known")) + "\n";
    text +=
        "Settings  " +
        (report.hasSettings ? std::to_string(report.changedSettings.size()) + " differ from a new camera's"
                            : std::string("none")) +
        "\n";
    for (const ChangedSetting& setting : report.changedSettings)
        text += "  " + std::string(setting.name) + " " + printableText(setting.value) + " (" +
                setting.standard + ")\n";
    return text;
}

std::string jsonOf(const CardReport& report)
{
    JsonWriter json;
    json.beginObject();
    json.key("kinds");
    json.beginArray();
    for (const KindReport& kind : report.kinds) {
        json.beginObject();
        json.member("kind", kind.name);
        json.member("recordings", kind.count);
        json.member("lengthMs", kind.lengthMs);
        json.member("bytes", kind.bytes);
        json.key("secondsLeft");
        kind.secondsLeft ? json.value(*kind.secondsLeft) : json.null();
        json.endObject();
    }
    json.endArray();
    json.member("drives", report.drives);
    json.key("gaps");
    json.beginArray();
    for (const DriveGap& gap : report.gaps) {
        json.beginObject();
        json.member("start", clockTimeText(gap.startMs));
        json.member("lengthMs", gap.lengthMs);
        json.endObject();
    }
    json.endArray();
    json.key("damaged");
    json.beginArray();
    for (const DamagedRecording& recording : report.damaged) {
        json.beginObject();
        json.member("path", recording.path);
        json.member("why", recording.why == DamagedRecording::Why::Unplayable ? "unplayable" : "otherCount");
        json.endObject();
    }
    json.endArray();
    json.key("leftOut");
    json.beginArray();
    for (const std::string& path : report.leftOut)
        json.value(path);
    json.endArray();
    json.key("clock");
    if (report.clock) {
        json.beginObject();
        json.member("zoneMinutes", report.clock->zoneMinutes);
        json.member("errorMs", report.clock->errorMs);
        json.endObject();
    } else {
        json.null();
    }
    json.key("changedSettings");
    if (report.hasSettings) {
        json.beginArray();
        for (const ChangedSetting& setting : report.changedSettings) {
            json.beginObject();
            json.member("name", setting.name);
            json.member("value", setting.value);
            json.member("default", setting.standard);
            json.endObject();
        }
        json.endArray();
    } else {
        json.null();
    }
    json.member("capacity", report.capacity);
    json.endObject();
    return json.take() + '\n';
}

ExitCode run(const Arguments& words)
{
    std::optional<std::string> card;
    bool asJson = false;
    bool optionsEnded = false;
    for (const std::string_view word : words) {
        if (!optionsEnded && word == "--")
            optionsEnded = true;
        else if (!optionsEnded && word == "--json")
            asJson = true;
        else if (!optionsEnded && word.size() > 1 && word.front() == '-')
            return wrongUsage(reportCommand, "no option '" + std::string(word) + "'");
        else if (card || word.empty())
            return wrongUsage(reportCommand, "takes one CARD");
        else
            card = std::string(word);
    }
    if (!card)
        return wrongUsage(reportCommand, "CARD is missing");
    const StopOnInterrupt interrupt;
    const CardReport report = reportCard(*card, interrupt.token());
    if (interrupt.token().stop_requested())
        return failed(reportCommand, "stopped");
    if (!report.error && !writeOut(asJson ? jsonOf(report) : tableOf(report)))
        return failed(reportCommand, "the report could not be written");
    return report.error ? failed(reportCommand, "cannot read " + *card + ": " + report.error.message())
                        : Done;
}

} // namespace

} // namespace marvo::cli
