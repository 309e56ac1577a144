// SPDX-FileCopyrightText: 2026 The MARVO developers
// SPDX-License-Identifier: MIT
#include "cli/Commands.h"
#include "cli/FileArguments.h"
#include "cli/GpsStateJson.h"
#include "cli/ReadableNumber.h"
#include "recording/DialectReading.h"
#include "recording/MRVBlackBoxData.h"
#include "recording/RecordingSummary.h"
#include "support/FileSource.h"
#include "support/JsonWriter.h"
#include "support/PrintableText.h"

namespace marvo::cli {

namespace {

ExitCode run(const Arguments& arguments);

constexpr std::string_view usage =
    "Usage: marvo-cli inspect FILE [--json] [--dialect]\n"
    "\n"
    "Reads the camera's data area of one AVI recording. Without --json it prints a summary: duration,\n"
    "samples, first and last fix (decimal degrees, north and east positive), distance, top speed and the\n"
    "strongest G-sensor reading. Times count from the first sample.\n"
    "\n"
    "  --json     print everything that was read as one JSON document: file, result, m_GSensors (g),\n"
    "             m_vGSensorData, m_vGpsData and m_NMEAs. result is false when there is no data area or\n"
    "             when it is damaged; the lists then hold the data before the damage.\n"
    "  --dialect  read the sentences as the camera's own, \"$GA\" and \"$GC\", and tell whether all are of\n"
    "             that kind (in JSON: dialect). Only this option recognises such a recording.\n"
    "\n"
    "Exit code: 0 when the file could be read, damaged or not; 1 when it could not.\n";

} // namespace

const Command inspectCommand{"inspect", "show the camera's data in one recording", usage, run};

namespace {

/// Writes a long document in pieces, so that it is never in memory as a whole.
class DocumentOutput
{
public:
    explicit DocumentOutput(JsonWriter& json) : m_json(json) {}

    void afterElement()
    {
        constexpr std::size_t pieceSize = 256 * 1024;
        if (m_json.text().size() < pieceSize)
            return;
        m_taken = m_taken && writeOut(m_json.text());
        m_json.drop();
    }
    bool finish()
    {
        m_taken = m_taken && writeOut(m_json.take() + "\n");
        return m_taken;
    }
    /// False after stdout has refused a piece.
    bool wanted() const { return m_taken; }

private:
    JsonWriter& m_json;
    bool m_taken = true;
};

template <typename List, typename WriteElement>
void writeList(JsonWriter& json, DocumentOutput& output, std::string_view name, const List& list,
               WriteElement&& writeElement)
{
    json.key(name);
    json.beginArray();
    for (const auto& element : list) {
        if (!output.wanted())
            return;
        writeElement(element);
        output.afterElement();
    }
    json.endArray();
}

/// A recording and, if asked for, its sentences read as the dialect.
struct Inspected
{
    bool result = false;
    MRVBlackBoxData recording;
    std::optional<DialectReading> dialect;

    const std::vector<std::shared_ptr<const MRVGpsData>>& snapshots() const
    {
        return dialect ? dialect->snapshots() : recording.m_NMEAs();
    }
};

bool writeDocument(const std::string& file, const Inspected& inspected)
{
    const MRVBlackBoxData& recording = inspected.recording;
    JsonWriter json;
    DocumentOutput output(json);
    json.beginObject();
    json.member("file", file);
    json.member("result", inspected.result);
    if (inspected.dialect)
        json.member("dialect", inspected.dialect->isDialect());
    writeList(json, output, "m_GSensors", recording.m_GSensors(), [&](const MRVGSensor& axes) {
        json.beginArray();
        for (const float axis : {axes.x, axes.y, axes.z})
            json.value(static_cast<double>(axis));
        json.endArray();
    });
    writeList(json, output, "m_vGSensorData", recording.m_vGSensorData(), [&](const MRVAviGSensorData& raw) {
        const _AVI_GSENSOR_DATA_T data = raw.data();
        json.beginArray();
        json.value(data.nTimestamp);
        for (const std::int32_t number : {data.xAxis, data.yAxis, data.zAxis, data.nTemperature})
            json.value(number);
        json.endArray();
    });
    writeList(json, output, "m_vGpsData", recording.m_vGpsData(), [&](const MRVAviGpsData& sample) {
        const _AVI_GPS_DATA_T data = sample.data();
        json.beginObject();
        json.member("nTimestamp", data.nTimestamp);
        json.member("dwExtLength", data.dwExtLength);
        json.member("nQualityIndicator", data.nQualityIndicator);
        json.member("fLatitude", data.fLatitude);
        json.member("fLongitude", data.fLongitude);
        json.member("fSpeed", data.fSpeed);
        json.member("KM", data.KM);
        json.endObject();
    });
    GpsStateJson states;
    std::string text;
    writeList(json, output, "m_NMEAs", inspected.snapshots(), [&](const auto& state) {
        text.clear();
        states.append(text, *state);
        json.rendered(text);
    });
    json.endObject();
    return output.finish();
}

/// The summary's samples as text, their times counted from the first sample.
class SampleTexts
{
public:
    explicit SampleTexts(const RecordingSummary& summary) : m_summary(summary) {}

    std::string fix(const std::optional<RecordingSummary::Fix>& fix) const
    {
        if (!fix)
            return "none";
        return readableNumber(fix->position.latitude, 6) + ", " + readableNumber(fix->position.longitude, 6) +
               at(fix->timestampMs);
    }

    std::string topSpeed() const
    {
        const auto& top = m_summary.topSpeed;
        if (!top)
            return "none";
        const bool isCharacter = top->KM >= 0x20 && top->KM < 0x7F;
        const std::string marker = isCharacter ? std::string{'\'', static_cast<char>(top->KM), '\''}
                                               : std::to_string(unsigned{top->KM});
        return readableNumber(top->speed, 1) + at(top->timestampMs) +
               ", in the camera's own unit (marker byte " + marker + ")";
    }

    std::string strongestReading() const
    {
        const auto& strongest = m_summary.strongestReading;
        if (!strongest)
            return "none";
        const auto axis = [](const char* name, float value) {
            return name + readableSignedNumber(static_cast<double>(value), 2);
        };
        return readableNumber(strongest->magnitude, 2) + " g" + at(strongest->timestampMs) + " (" +
               axis("X=", strongest->axes.x) + " " + axis("Y=", strongest->axes.y) + " " +
               axis("Z=", strongest->axes.z) + ")";
    }

private:
    std::string at(std::int64_t timestampMs) const
    {
        const double sinceBegin = static_cast<double>(timestampMs) - m_summary.beginMs;
        return " at " + readableNumber(sinceBegin / 1000, 1) + " s";
    }

    const RecordingSummary& m_summary;
};

std::string dataAreaText(bool result, const MRVBlackBoxData& recording)
{
    if (result)
        return "complete";
    if (recording.m_GSensors().empty() && recording.m_NMEAs().empty())
        return "none found, or damaged at its start";
    return "damaged; the data before the damage is shown";
}

std::string dialectText(const DialectReading& dialect)
{
    const std::string all = std::to_string(dialect.snapshots().size());
    if (dialect.isDialect())
        return "all " + all + " sentences are of the camera's own dialect";
    if (dialect.snapshots().empty())
        return "no sentences";
    return std::to_string(dialect.accepted()) + " of " + all +
           " sentences; read the others without --dialect";
}

std::string summaryText(const std::string& file, const Inspected& inspected)
{
    const MRVBlackBoxData& recording = inspected.recording;
    const RecordingSummary summary = summarise(recording, inspected.snapshots());
    const SampleTexts texts(summary);
    const auto line = [](std::string_view name, const std::string& value) {
        std::string text(name);
        text.append(name.size() < 20 ? 20 - name.size() : 1, ' ');
        return text + value + "\n";
    };
    const auto count = [](const auto& list) { return std::to_string(list.size()); };
    return line("File", printableText(file)) +
           line("Camera data", dataAreaText(inspected.result, recording)) +
           line("Duration of data",
                summary.durationSeconds ? readableNumber(*summary.durationSeconds, 1) + " s" : "none") +
           line("G-sensor readings", count(recording.m_GSensors())) +
           line("GPS samples", count(recording.m_vGpsData())) +
           line("NMEA sentences", count(recording.m_NMEAs())) +
           (inspected.dialect ? line("Dialect", dialectText(*inspected.dialect)) : std::string()) +
           line("First fix", texts.fix(summary.firstFix)) + line("Last fix", texts.fix(summary.lastFix)) +
           line("Distance", readableNumber(summary.distanceMetres / 1000, 3) + " km") +
           line("Top speed", texts.topSpeed()) + line("Strongest reading", texts.strongestReading());
}

ExitCode run(const Arguments& words)
{
    const auto arguments = FileArguments::parse(inspectCommand, words);
    if (!arguments)
        return WrongUsage;
    FileSource source(arguments->file);
    if (!source.isOpen())
        return failed(inspectCommand,
                      "cannot open " + printableText(arguments->file) + ": " + source.error());

    Inspected inspected;
    if (arguments->sentences == Sentences::Dialect) {
        inspected.dialect.emplace();
        inspected.recording.setSentenceListener(
            [&inspected](std::string_view sentence) { inspected.dialect->take(sentence); });
    }
    inspected.result = inspected.recording.ExtractStreamInformation(source);
    const bool written = arguments->format == OutputFormat::Json
                             ? writeDocument(arguments->file, inspected)
                             : writeOut(summaryText(arguments->file, inspected));
    if (!written)
        return failed(inspectCommand, "the result could not be written");
    if (!source.error().empty())
        return failed(inspectCommand,
                      "cannot read all of " + printableText(arguments->file) + ": " + source.error());
    return Done;
}

} // namespace

} // namespace marvo::cli
