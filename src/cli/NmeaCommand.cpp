// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/FileArguments.h"
#include "cli/GpsStateJson.h"
#include "cli/ReadableNumber.h"
#include "cli/StandardInput.h"
#include "recording/MRVMARVONMEASentenceParser.h"
#include "recording/MRVNMEASentenceParser.h"
#include "recording/Positions.h"
#include "recording/SentenceStream.h"
#include "support/PrintableText.h"

#include <algorithm>
#include <cstdio>

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

constexpr std::string_view usage =
    "Usage: marvo-cli nmea FILE|- [--json] [--dialect]\n"
    "\n"
    "Reads NMEA 0183 text from a file, or with - from standard input, with the parser for recordings: it\n"
    "takes every sentence that starts with \"$G\" and ends with CR, LF or a zero byte. Without --json it\n"
    "prints a summary.\n"
    "\n"
    "  --json     print one JSON document: accepted has true for each sentence that the parser\n"
    "             accepted, else false; snapshots has the state after each.\n"
    "  --dialect  read the camera's own sentences \"$GA\" and \"$GC\" instead of the standard ones.\n"
    "\n"
    "A sentence of more than 64 KiB is not accepted.\n";

} // namespace

const Command nmeaCommand{"nmea", "show the content of NMEA 0183 sentences", usage, run};

namespace {

/// Feeds every sentence to a fresh parser. Sink: void(bool accepted, const MRVGpsData& state).
template <typename Parser, typename Sink>
void parseAll(ByteSource& source, Sink&& sink)
{
    Parser parser;
    splitSource(source, [&](std::string_view sentence, SentenceFit fit) {
        const bool accepted = fit == SentenceFit::Whole && parser.parse(sentence);
        sink(accepted, parser.m_Current());
    });
}

/// Writes two lists, one after the other. Neither is kept in memory: the text is read once for each.
template <typename Parser>
bool writeDocument(ByteSource& source)
{
    constexpr std::size_t pieceSize = 256 * 1024;
    bool taken = true;
    std::string text = "{\"accepted\":[";
    text.reserve(pieceSize * 2);
    bool first = true;
    const auto separate = [&] {
        if (text.size() >= pieceSize) {
            taken = taken && writeOut(text);
            text.clear();
        }
        if (!first)
            text += ',';
        first = false;
    };

    const auto satellites = MRVNMEASentenceParser::satelliteListState();
    parseAll<Parser>(source, [&](bool accepted, const MRVGpsData&) {
        separate();
        text += accepted ? "true" : "false";
    });
    text += "],\"snapshots\":[";
    first = true;
    GpsStateJson states;
    MRVNMEASentenceParser::setSatelliteListState(satellites);
    parseAll<Parser>(source, [&](bool, const MRVGpsData& state) {
        separate();
        states.append(text, state);
    });
    text += "]}\n";
    return taken && writeOut(text);
}

std::string timeText(const _SYSTEMTIME& time)
{
    if (time == _SYSTEMTIME{})
        return "none";
    char text[64];
    const bool hasDate = time.wYear != 0 || time.wMonth != 0 || time.wDay != 0;
    if (!hasDate) {
        std::snprintf(text, sizeof text, "%02u:%02u:%02u.%03u UTC, no date", unsigned{time.wHour},
                      unsigned{time.wMinute}, unsigned{time.wSecond}, unsigned{time.wMilliseconds});
        return text;
    }
    std::snprintf(text, sizeof text, "%04u-%02u-%02u %02u:%02u:%02u.%03u UTC", unsigned{time.wYear},
                  unsigned{time.wMonth}, unsigned{time.wDay}, unsigned{time.wHour}, unsigned{time.wMinute},
                  unsigned{time.wSecond}, unsigned{time.wMilliseconds});
    return text;
}

std::string positionText(const MRVGpsData& state)
{
    if (state.Latitude == 0 && state.Longitude == 0)
        return "none"; // no sentence told one, or the receiver had no fix
    const double latitude = nmeaToDegrees(state.Latitude);
    const double longitude = nmeaToDegrees(state.Longitude);
    return readableNumber(state.NS == 'N' ? latitude : -latitude, 6) + ", " +
           readableNumber(state.EW == 'E' ? longitude : -longitude, 6);
}

template <typename Parser>
std::string summaryText(ByteSource& source)
{
    constexpr double kilometresPerHour = 1.852; // one knot
    std::uint64_t sentences = 0;
    std::uint64_t acceptedCount = 0;
    double topKnots = 0;
    _SYSTEMTIME firstTime;
    MRVGpsData last;
    parseAll<Parser>(source, [&](bool accepted, const MRVGpsData& state) {
        ++sentences;
        acceptedCount += accepted ? 1 : 0;
        topKnots = std::max(topKnots, state.SpeedOverGround);
        if (firstTime == _SYSTEMTIME{})
            firstTime = state.Now;
        last = state;
    });

    const auto line = [](std::string_view name, const std::string& value) {
        std::string text(name);
        text.append(name.size() < 20 ? 20 - name.size() : 1, ' ');
        return text + value + "\n";
    };
    const auto speed = [](double knots) {
        return readableNumber(knots, 1) + " knots (" + readableNumber(knots * kilometresPerHour, 1) +
               " km/h)";
    };
    return line("Sentences", std::to_string(sentences)) + line("Accepted", std::to_string(acceptedCount)) +
           line("First time", timeText(firstTime)) + line("Last time", timeText(last.Now)) +
           line("Last position", positionText(last)) + line("Last speed", speed(last.SpeedOverGround)) +
           line("Top speed", speed(topKnots)) +
           line("Last course", readableNumber(last.CourseOverGround, 1) + " degrees") +
           line("Satellites", std::to_string(last.SatelliteUsedCount) + " used, " +
                                  std::to_string(last.SatelliteCount) + " in view") +
           line("HDOP", readableNumber(last.HDOP, 1));
}

template <typename Parser>
bool show(ByteSource& source, OutputFormat format)
{
    return format == OutputFormat::Json ? writeDocument<Parser>(source)
                                        : writeOut(summaryText<Parser>(source));
}

ExitCode run(const Arguments& words)
{
    const auto arguments = FileArguments::parse(nmeaCommand, words);
    if (!arguments)
        return WrongUsage;
    const bool fromInput = arguments->file == "-";
    const std::string name = fromInput ? "standard input" : printableText(arguments->file);
    StandardInput input =
        fromInput ? StandardInput::open()
                  : StandardInput{.source = std::make_unique<FileSource>(arguments->file), .error = {}};
    if (!input.source || !input.source->isOpen())
        return failed(nmeaCommand,
                      "cannot open " + name + ": " + (input.source ? input.source->error() : input.error));

    const bool written = arguments->sentences == Sentences::Dialect
                             ? show<MRVMARVONMEASentenceParser>(*input.source, arguments->format)
                             : show<MRVNMEASentenceParser>(*input.source, arguments->format);
    if (!written)
        return failed(nmeaCommand, "the result could not be written");
    if (!input.source->error().empty())
        return failed(nmeaCommand, "cannot read all of " + name + ": " + input.source->error());
    return Done;
}

} // namespace

} // namespace marvo::cli
